#!/usr/bin/env python3
"""Mail merges with a data file."""
from command_line import SAMPLE, CommandLineCase, main


class MergeTest(CommandLineCase):
    def test_letters_from_the_sample_template(self):
        data = self.data_file("cislo;nazev;celkem\n1;Řehoř & syn;1234,5\n2;\"a;b\";7\n")
        stdout, stderr = self.run_program("merge", "--template", SAMPLE.parent / "upominka.dotx", "--data-file", data,
                                          "-o", "letters.docx")
        self.assertEqual(stdout, f"{self.folder}/letters.docx\n")
        self.assertIn("zorkanca: warning: There is no column for the merge field ulice", stderr)
        text = self.part(self.folder / "letters.docx", "word/document.xml")
        self.assertIn("Řehoř &amp; syn", text)
        self.assertIn("1 234,50 Kč", text.replace("\u00a0", " "))
        self.assertEqual(text.count("<w:sectPr"), 2)
        self.assertIn("wordprocessingml.document.main+xml", self.part(self.folder / "letters.docx", "[Content_Types].xml"))

    def test_one_document_each(self):
        data = self.data_file("nazev;cislo\n\"a×¶b\";1\nc;2\n")
        stdout, _ = self.run_program("merge", "--template", SAMPLE.parent / "upominka.dotx", "--data-file", data, "--multi",
                                     "-o", "each/")
        self.assertEqual(stdout, f"{self.folder}/each/0001.docx\n{self.folder}/each/0002.docx\n")
        self.assertRegex(self.part(self.folder / "each/0001.docx", "word/document.xml"), r"(?s)>a<.*<w:br/>.*>b<")
        self.assertEqual(list((self.folder / "tmp" / "Zorix").glob("*.tmp")), [])

    def test_merges_that_fail(self):
        data = self.data_file("a;b\n1;2\n")
        (self.folder / "garbage.docx").write_bytes(b"PK\x03\x04 no document")
        template = SAMPLE.parent / "cenik.docx"
        for arguments, message in [
            (["--template", "missing.dotx", "--data-file", data, "-o", "no.docx"], "Nepodařilo se otevřít aplikaci MS Word !"),
            (["--template", "garbage.docx", "--data-file", data, "-o", "no.docx"], "Chyba při otvírání dokumentu"),
            (["--template", template, "--data-file", "missing.txt", "-o", "no.docx"], "Chyba ve zpracování dat"),
            (["--template", template, "--data-file", self.folder / "odd.db", "-o", "no.docx"], "is no text file."),
            (["--template", template, "--data-file", data, "-o", "none/no.docx"], "Path not found"),
        ]:
            stdout, stderr = self.run_program("merge", *arguments, status=1)
            self.assertEqual(stdout, "")
            self.assertIn(message, stderr, arguments)
            self.assertFalse((self.folder / "no.docx").exists())
        self.run_program("merge", "--template", template, "--data-file", data, "-o", "no.txt", status=2)
        self.run_program("merge", "--template", template, "--data-file", data, "--multi", "-o", "no.docx", status=2)


if __name__ == "__main__":
    main()

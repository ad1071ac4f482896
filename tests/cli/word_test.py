#!/usr/bin/env python3
"""Exports into Word."""
import signal
import subprocess
import time

from command_line import PROGRAM, SAMPLE, CommandLineCase, main


class WordTest(CommandLineCase):
    def test_word_from_the_query_to_the_document(self):
        word = ["word", "--db", "sklad.db", "--template", SAMPLE.parent / "faktura.dotx", "--select", self.query("faktury.sql", 2),
                "--names", "{Code39;cislo,trim;carkod;0}"]
        formats = [part for text in [""] * 5 + ["00000000"] for part in ("--format", text)]
        stdout, stderr = self.run_program(*word, *formats, "--data-file", "data.txt", "-o", "invoices.docx")
        self.assertEqual((stdout, stderr), (f"{self.folder}/invoices.docx\n", ""))
        text = self.part(self.folder / "invoices.docx", "word/document.xml")
        self.assertEqual(text.count("<w:sectPr"), 2)
        self.assertRegex(text, r">\*20\d{8}\*<")
        data = (self.folder / "data.txt").read_bytes().decode("utf-16")
        self.assertRegex(data, r"^cislo;nazev;.*;polozky_castka;carkod\r\n")
        self.assertRegex(data, r"(?m);\d{8};")

        stdout, _ = self.run_program(*word, "--multi", "-o", "invoices/")
        self.assertEqual(stdout, f"{self.folder}/invoices/0001.docx\n{self.folder}/invoices/0002.docx\n")
        self.assertIn("<w:br/>", self.part(self.folder / "invoices/0001.docx", "word/document.xml"))
        stdout, _ = self.run_program(*word, "--multi", "--pdf", "-o", "pdfs/")
        self.assertEqual([(self.folder / "pdfs" / name).read_bytes()[:5] for name in ("0001.pdf", "0002.pdf")], [b"%PDF-"] * 2)
        self.assertEqual(stdout.count("\n"), 2)
        self.assertEqual(self.left_behind(), [])
        for wrong in (["-o", "a/"], ["-o", "a.txt"], ["--multi", "-o", "a.docx"]):
            self.run_program(*word, *wrong, status=2)

    def test_templates_of_the_shared_folder(self):
        home = ["--home", "templates-home"]
        # The names are derived from a SELECT of several lines.
        word = [*home, "word", "--db", "sklad.db", "--select", (SAMPLE.parent / "cenik.sql").read_text(), "--no-open",
                "--names", "select"]
        title = "Export dat do aplikace MS Word: "
        self.assertIn(title + "Neplatný název šablony !\n", self.run_program(*word, "--template", "cenik.docx", status=1)[1])
        self.run_program(*home, "registry", "set", "HKLM\\SOFTWARE\\QRD\\Zorix\\Instalace", "sablony", SAMPLE.parent)
        self.assertEqual(self.run_program(*word, "--template", "cenik.docx"), (f"{self.folder}/cenik.docx\n", ""))
        self.assertIn(">Z01010<", self.part(self.folder / "cenik.docx", "word/document.xml"))
        self.assertEqual(self.run_program(*word, "--template", "cenik.docx", "-o", "none/x.docx", status=1)[0], "")
        self.assertEqual(self.left_behind(), [])

    def test_word_from_prepared_files(self):
        (self.folder / "h.txt").write_bytes("kod;nazev;cena".encode("cp1250"))
        (self.folder / "d.txt").write_bytes('A1;"Šroub ""M8""; 10 ks";12,5\r\nA2;Matice;3\r\n'.encode("cp1250"))
        command = ["word-file", "--headers", "h.txt", "--data", "d.txt", "--template", SAMPLE.parent / "cenik.docx", "-o"]
        self.run_program(*command, "list.docx")
        text = self.part(self.folder / "list.docx", "word/document.xml")
        self.assertIn('Šroub "M8"; 10 ks', text)
        self.assertIn("12,50 Kč", text.replace("\u00a0", " "))
        (self.folder / "d.txt").write_bytes(b"A1;x\r\n")
        self.assertIn("9 - Subscript out of range.", self.run_program(*command, "no.docx", status=1)[1])
        self.assertEqual(self.output("split", 'a;"x;""y""";'), 'a\nx;"y"\n\n')

    def test_forms(self):
        form = ["form", "--db", "sklad.db", "--template", SAMPLE.parent / "registrace.dotx", "--barcode",
                "Code39;'ODB'|cislo,4;kod;0", "--left", "3", "--one-char", "6", "--select"]
        self.output(*form, self.query("registrace.sql", 1), "-o", "one.docx")
        text = self.part(self.folder / "one.docx", "word/document.xml")
        for expected in ("*ODB0001*", "Truhlářství Březina a syn", 'w:left="1701"', "objednavky@odberatel01.example",
                         '<w:checked w:val="1"/>', '<w:result w:val="1"/>'):
            self.assertIn(expected, text)
        self.assertIn('w:enforcement="1"', self.part(self.folder / "one.docx", "word/settings.xml"))
        stdout = self.output(*form, self.query("registrace.sql", 3), "--no-open")
        self.assertEqual(stdout, "".join(f"{self.folder}/registrace/000{i}.docx\n" for i in (1, 2, 3)))
        message = self.run_program(*form, self.query("registrace.sql", 3), "-o", "one-file.docx", status=1)[1]
        self.assertIn("-o must name a folder", message)
        self.assertFalse((self.folder / "one-file.docx").exists())

    def test_interrupted_word_exports_keep_what_is_finished(self):
        numbers = "WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c LIMIT 300000) SELECT i AS "
        for command, column in ((["form", "--template", SAMPLE.parent / "registrace.dotx"], "nazev"),
                                (["word", "--template", SAMPLE.parent / "cenik.docx", "--multi"], "kod"),
                                (["word", "--template", SAMPLE.parent / "upominka.dotx"], "cislo")):
            several = command[0] == "form" or "--multi" in command
            output = "stopped/" if several else "stopped.docx"
            names = [] if command[0] == "form" else ["--names", column]
            with subprocess.Popen([PROGRAM, "--quiet", *command, "--db", "sklad.db", "--select", numbers + column + " FROM c",
                                   *names, "-o", output], cwd=self.folder, env=self.environment(),
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
                first = b""
                if several:
                    first = process.stdout.readline()  # some documents are finished
                else:
                    time.sleep(1)
                process.send_signal(signal.SIGINT)
                stdout, stderr = first + process.stdout.read(), process.stderr.read()
                self.assertEqual(process.wait(timeout=30), 130, stderr.decode())
            if several:
                self.assertIn("přerušen uživatelem !", stderr.decode())
            self.assertEqual(self.left_behind(), [])
            finished = sorted((self.folder / "stopped").glob("*")) if several else []
            self.assertEqual(len(finished), stdout.count(b"\n"))
            for path in finished[-1:]:
                self.part(path, "word/document.xml")
            for path in finished:
                path.unlink()
        self.assertFalse((self.folder / "stopped.docx").exists())


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""PDF, opening documents, the alternative office package."""
import os
import signal
import subprocess
import time

from command_line import SAMPLE, PROGRAM, CommandLineCase, main


class OfficeTest(CommandLineCase):
    def test_pdf(self):
        self.document("a b.docx")
        for bookmarks, archive, outline in [("0", [], ""), ("1", ["--pdf-a"], "Nadpis"), ("2", [], "Závěr_1")]:
            stdout, _ = self.run_program("pdf", "a b.docx", "a.pdf", "--bookmarks", bookmarks, *archive)
            self.assertEqual(stdout, f"{self.folder}/a.pdf\n")
            info = subprocess.run(["pdfinfo", self.folder / "a.pdf"], capture_output=True, text=True, check=True).stdout
            self.assertRegex(info, r"Pages: +2\n")
            self.assertRegex(info, "PDF version: +1.4" if archive else "PDF version: +1.[67]")
            self.assertRegex(info, "Metadata Stream: +" + ("yes" if archive else "no"))
            shown = subprocess.run(["pdftohtml", "-xml", "-i", "-stdout", self.folder / "a.pdf"], capture_output=True,
                                   text=True, check=True).stdout
            items = shown.split("<outline>")[1] if "<outline>" in shown else ""
            self.assertEqual("<item" in items, bool(outline))
            self.assertIn(outline, items)
        self.assertEqual(list((self.folder / "tmp").glob("zorkanca-*.docx")), [])

    def test_pdf_that_fails(self):
        self.document("good.docx")
        (self.folder / "bad.docx").write_bytes(b"no document")
        title = "Quelma Zorix - vazba na kancelářské aplikace: "
        opening = title + "Nepodařilo se otevřít dokument: \n"
        for source, target, message in [
            ("none.docx", "x.pdf", opening + f"{self.folder}/none.docx\n"
             f"zorkanca: cause: 5174 - The file {self.folder}/none.docx could not be found.\n"),
            ("bad.docx", "x.pdf", opening + f"{self.folder}/bad.docx\n"
             f"zorkanca: cause: 5 - {self.folder}/bad.docx is not an Office document: it is in none of the formats that are converted\n"),
            ("none.xlsx", "x.pdf", title + f"Nepodařilo se otevřít soubor: \n{self.folder}/none.xlsx\n"
             f"zorkanca: cause: 1004 - The file {self.folder}/none.xlsx could not be found.\n"),
            ("good.docx", "none/x.pdf", f"zorkanca: 76 - Path not found: {self.folder}/none\n"),
        ]:
            self.assertEqual(self.run_program("pdf", source, target, status=1), ("", message))
            self.assertFalse((self.folder / "x.pdf").exists())
        self.run_program("pdf", "good.txt", "x.pdf", status=2)
        self.run_program("pdf", "good.docx", "../" + self.folder.name + "/good.docx", status=2)

    def test_interrupted_pdf_leaves_no_process(self):
        self.document("good.docx")
        hanging = self.folder / "hanging"
        hanging.mkdir()
        (hanging / "soffice").write_text("#!/bin/sh\ntrap '' TERM\ntouch \"${0%/*}/started\"\n"
                                         "sleep 987.5 &\nwhile :; do sleep 1; done\n")
        (hanging / "soffice").chmod(0o755)
        process = subprocess.Popen([PROGRAM, "pdf", "good.docx", "never.pdf"], cwd=self.folder, stderr=subprocess.DEVNULL,
                                   env=self.environment(PATH=f"{hanging}:{os.environ['PATH']}"))
        while not (hanging / "started").exists():
            self.assertIsNone(process.poll())
            time.sleep(0.01)
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(timeout=30), 130)
        self.assertFalse((self.folder / "never.pdf").exists())
        end = time.monotonic() + 10
        while self.running("987.5") + self.running("hanging/soffice") and time.monotonic() < end:
            time.sleep(0.05)  # until the signals have arrived
        self.assertEqual(self.running("987.5") + self.running("hanging/soffice"), 0)

    def test_installed_and_opened(self):
        home = ["--home", "installed"]
        self.document("good.docx")
        self.assertEqual(self.output(*home, "installed"), "word 1\nexcel 1\n")
        self.run_program(*home, "registry", "delete", "HKCR\\Word.Application")
        self.assertEqual(self.output(*home, "installed"), "word 0\nexcel 1\n")
        self.run_program(*home, "open", "good.docx")
        self.assertEqual(self.output(*home, "log"), "")
        (self.folder / "bad.docx").write_bytes(b"no document")
        self.run_program(*home, "open", "bad.docx", status=1)
        self.assertIn(f"OtevriDoc: pokus o GetObject({self.folder}/bad.docx)\tChyba: 5; ", self.output(*home, "log"))

    def test_alternative_office(self):
        run = ["--home", "alternative", "alternative"]
        program = self.folder / 'my "office" program'
        program.write_text("#!/bin/sh\nprintf '%s|' \"$@\" > \"${0%/*}/alternative.txt\"\n")
        keys = [kind + name for kind, name in [("UseAlternative", "TableEditor"), ("", "TableEditorAppPath"),
                                               ("", "TableEditorStoreFolder"), ("UseAlternative", "DocumentEditor"),
                                               ("", "DocumentEditorAppPath"), ("", "DocumentEditorStoreFolder")]]
        self.assertEqual(self.output(*run, "get"), "".join(f"{key}\t{'0' if 'Use' in key else ''}\n" for key in keys))
        self.run_program(*run, "set", "TableEditorAppPath", program)
        self.run_program(*run, "set", "UseAlternativeTableEditor", "1")
        self.run_program(*run, "set", "TableEditorStoreFolder", "-x", "--prefix", " abc ")
        self.assertEqual(self.output(*run, "get", "TableEditorStoreFolder", "--prefix", "abc"), "-x\n")
        self.assertEqual(self.output(*run, "get", "UseAlternativeTableEditor"), "1\n")
        self.assertIn("53 - ", self.run_program(*run, "open", "none.xls", "--table", status=1)[1])
        for name in ("a.xls", 'my "book".xls'):
            (self.folder / name).touch()
        self.assertIn("53 - ", self.run_program(*run, "open", "a.xls", "--document", status=1)[1])
        self.assertIn("could not be started", self.run_program(*run, "open", "a.xls", "--table", status=1)[1])
        program.chmod(0o755)
        self.run_program(*run, "open", 'my "book".xls', "--table")
        end = time.monotonic() + 10
        written = self.folder / "alternative.txt"
        while not (written.exists() and written.read_text()) and time.monotonic() < end:
            time.sleep(0.01)
        self.assertEqual(written.read_text(), f'{self.folder}/my "book".xls|')

        self.assertEqual(self.output(*run, "default", "document", "--prefix", "ABC"),
                         f"{self.folder}/tmp/Zorix/ABC/Documents\n")
        (self.folder / "swriter").write_text("")
        self.assertEqual(self.output(*run, "program", "document", PATH=str(self.folder)), f"{self.folder}/swriter\n")
        for arguments in [["set", "UseAlternativeTableEditor", "yes"], ["get", "none"], ["program", "sheet"],
                          ["open", "a.xls"], ["open", "a.xls", "--table", "--document"]]:
            self.run_program(*run, *arguments, status=2)

    def test_several_pdf_files(self):
        for name in ("cenik.docx", "stav-zasob.xltx"):
            (self.folder / name).write_bytes((SAMPLE.parent / name).read_bytes())
        (self.folder / "other").mkdir()
        (self.folder / "other/cenik.docx").write_bytes((SAMPLE.parent / "cenik.docx").read_bytes())
        self.output("fill", SAMPLE.parent / "faktura.xml", SAMPLE.parent / "faktura.json", "-o", "faktura.xml")
        made = self.output("pdf", "cenik.docx", "stav-zasob.xltx", "other/cenik.docx", "faktura.xml", "print/", "--jobs", "2")
        names = ["cenik (2).pdf", "cenik.pdf", "faktura.pdf", "stav-zasob.pdf"]
        self.assertEqual(sorted(made.splitlines()), [f"{self.folder}/print/{name}" for name in names])
        for name in names:
            self.assertEqual((self.folder / "print" / name).read_bytes()[:5], b"%PDF-", name)
        (self.folder / "bad.docx").write_text("no document")
        self.run_program("pdf", "bad.docx", "cenik.docx", "some/", status=1)
        self.assertEqual([path.name for path in (self.folder / "some").iterdir()], ["cenik.pdf"])
        for arguments, status, message in [
            (["cenik.docx"], 2, "takes a document and the PDF file"),
            (["cenik.docx", "faktura.xml", "x.pdf"], 2, "several documents ask for a folder"),
            (["cenik.docx", "bad.docx"], 2, "TARGET, a .pdf file or a folder"),
            (["stav-zasob.xltx", "x.pdf", "--pdf-a"], 2, "--pdf-a and --bookmarks are for Word documents"),
            (["cenik.docx", "none.docx", "print/"], 1, "none.docx"),
            (["cenik.docx", "x.pdf", "--jobs", "0"], 2, "--jobs"),
        ]:
            self.assertIn(message, self.run_program("pdf", *arguments, status=status)[1], arguments)


if __name__ == "__main__":
    main()

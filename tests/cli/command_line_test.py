#!/usr/bin/env python3
"""Runs the program as a user would: results on standard output, messages on standard error, exit status, files.

    command_line_test.py PROGRAM SAMPLE_SQL
"""
import json
import os
import pathlib
import pty
import re
import signal
import sqlite3
import subprocess
import sys
import tempfile
import threading
import time
import unittest
import zipfile
from xml.etree import ElementTree

PROGRAM = pathlib.Path(sys.argv[1]).resolve()
SAMPLE = pathlib.Path(sys.argv[2]).resolve()
TITLE = "Export dat do formátu HTML: "
UNEXPECTED = TITLE + "Neočekávaná chyba: \n"


class CommandLineTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.holder = tempfile.TemporaryDirectory()
        cls.folder = pathlib.Path(cls.holder.name)
        cls.database = cls.folder / "sklad.db"
        subprocess.run(["sqlite3", cls.database], input=SAMPLE.read_bytes(), check=True)
        with sqlite3.connect(cls.folder / "odd.db") as odd:
            odd.executescript(
                "CREATE TABLE t(a INTEGER, b BLOB, c TEXT, d TEXT);"
                "INSERT INTO t VALUES(1, x'00FF', CAST(x'41FF' AS TEXT), 'a' || char(0) || 'b');")

    @classmethod
    def tearDownClass(cls):
        cls.holder.cleanup()

    def environment(self, **changes):
        clean = {"PATH": os.environ["PATH"], "HOME": str(self.folder), "TMPDIR": str(self.folder / "tmp")}
        (self.folder / "tmp").mkdir(mode=0o700, exist_ok=True)
        return clean | changes

    def run_program(self, *arguments, status=0, stdin="", **changes):
        """Runs it; returns (standard output, standard error)."""
        done = subprocess.run([PROGRAM, *map(str, arguments)], input=stdin.encode(), capture_output=True,
                              cwd=self.folder, env=self.environment(**changes), timeout=60)
        shown = (done.stdout.decode(), done.stderr.decode())
        self.assertEqual(done.returncode, status, f"{arguments}: {shown}")
        return shown

    def output(self, *arguments, **options):
        return self.run_program(*arguments, **options)[0]

    def html(self, select, *more, database="sklad.db", status=0, before=(), **options):
        return self.run_program(*before, "html", "--db", database, "--select", select, "--no-open", *more,
                                status=status, **options)

    # --- single values -------------------------------------------------------------------------------------------

    def test_values(self):
        for arguments, expected in [
            (["number", "#,##0.00", "1234.5"], "1\u00a0234,50"),
            (["number", "0.00", "-5"], "-5,00"),
            (["number", "0", "2.5"], "3"),
            (["number", "0.00", "1,5", "--type", "text"], "1,50"),
            (["number", "0.0000", "922337203685477.5807", "--type", "currency"], "922337203685477,5807"),
            (["date", "d.m.yyyy", "2026-11-06"], "6.11.2026"),
            (["date", "hh:nn", "2026-11-06 14:05:09"], "14:05"),
            (["text", "0.5"], "0,5"),
            (["text", "1e-7"], "0,0000001"),
            (["text", "2.5", "--type", "integer"], "2"),
            (["text", "true", "--type", "boolean"], "True"),
            (["text", "2026-11-16", "--type", "date"], "16.11.2026"),
            (["text", "-1.50", "--type", "decimal"], "-1,5"),
            (["text", "", "--type", "text"], ""),
            (["--locale", "en-US", "text", "1234.5"], "1234.5"),
            (["format", "shoda", "-1"], "U"),
            (["format", "case null: nic case else: @", "--null"], "nic"),
            (["format", "trim", "--", "--null"], "--null"),
            (["barcode", "Code39;'A',;OUT;1", "--value", "x"], "*AA*"),
            (["names", "SELECT a.kod, b.kod, nazev AS jmeno FROM a, b"], "a_kod;b_kod;jmeno"),
        ]:
            self.assertEqual(self.output(*arguments), expected + "\n", arguments)
        self.assertEqual(self.output("text", "0.5", ZORKANCA_LOCALE="de-DE"), "0,5\n")

    def test_wrong_usage(self):
        for arguments in [[], ["nic"], ["html"], ["text"], ["text", "abc"], ["text", "1", "--type", "guid"],
                          ["number", "0", "1", "2"], ["--locale", "xx-XX", "text", "1"], ["registry", "get", "HKXX\\a"],
                          ["--yes", "--no", "text", "1"], ["format", "trim"], ["text", "1", "--bogus"]]:
            shown = self.run_program(*arguments, status=2)
            self.assertEqual(shown[0], "", arguments)
            self.assertNotEqual(shown[1], "", arguments)
        self.run_program("names", "SELECT 1", status=1)
        self.run_program("text", "99999", "--type", "integer", status=1)
        self.assertIn("Usage", self.output("--help"))
        self.assertRegex(self.output("--version"), r"^zorkanca \d+\.\d+\.\d+\n$")

    # --- the HTML export -----------------------------------------------------------------------------------------

    def test_export_and_events(self):
        stdout, stderr = self.html("SELECT kod, cena FROM zbozi WHERE kod IN (SELECT kod FROM zbozi ORDER BY kod LIMIT 4)",
                                   "-o", "zbozi.TXT", "--step", "37.5", before=["--events"])
        self.assertEqual(stdout, f"{self.folder}/zbozi.htm\n")
        self.assertEqual(stderr, "PercentDone 37.5\nPercentDone 75\nPercentDone 75\nPercentDone 100\n"
                                 "ExportState 1 Otvírá se prohlížeč formátu HTML ...\n"
                                 "ExportState 0 Dokončeno otvírání prohlížeče formátu HTML\n")
        page = (self.folder / "zbozi.htm").read_bytes()
        self.assertTrue(page.startswith(b"<HTML>\r\n<HEAD>\r\n<TITLE></TITLE>\r\n"))
        self.assertEqual(page.count(b"    <TR>\r\n"), 5)

    def test_other_sources_of_select_names_and_path(self):
        stdout, stderr = self.html("-", "--names", "Číslo;", "--blank-records", "2", "--border", "0",
                                   stdin="select cislo, nazev from odberatele")
        self.assertEqual(stderr, "")
        path = pathlib.Path(stdout.rstrip("\n"))
        self.assertEqual(path.parent, self.folder / "tmp" / "Zorix")
        page = path.read_text(encoding="cp1250")
        self.assertIn("<TABLE border=0 ", page)
        self.assertIn("&nbsp;Číslo&nbsp;", page)
        self.assertEqual(page.count("<FONT"), 2)
        self.assertEqual(page.count("    <TR>"), 43)

    def test_failures_leave_nothing(self):
        kept = self.folder / "kept.htm"
        (self.folder / "out").mkdir(exist_ok=True)
        (self.folder / "garbage.db").write_bytes(b"no database at all" * 100)
        access = TITLE + "Chyba při přístupu k datům !\n"
        for select, database, output, message in [
            ("SELECT a FROM t", "missing.db", "kept.htm", access),
            ("SELECT a FROM t", "garbage.db", "kept.htm", access),
            ("SELECT a FROM neni", "odd.db", "kept.htm", access),
            ("SELECT a FROM t; SELECT a FROM t", "odd.db", "kept.htm", access),
            ("DELETE FROM t", "odd.db", "kept.htm", access),
            ("SELECT a FROM t WHERE a = 2", "odd.db", "kept.htm", TITLE + "Nebyly nalezeny žádné záznamy !\n"),
            ("SELECT FROM t", "odd.db", "kept.htm", TITLE + "Chyba při sestavování hlavičky souboru !\n"),
            ("SELECT b FROM t", "odd.db", "new.htm", UNEXPECTED + "13 - Type mismatch.\n"),
            ("SELECT c FROM t", "odd.db", "new.htm", UNEXPECTED + "13 - Type mismatch"),
            ("SELECT d FROM t", "odd.db", "new.htm", UNEXPECTED + "13 - Type mismatch"),
            ("SELECT a FROM t", "odd.db", "none/new.htm", UNEXPECTED + "76 - Path not found.\n"),
        ]:
            kept.write_text("old")
            before = set(self.folder.iterdir())
            stdout, stderr = self.html(select, "-o", output, database=database, status=1)
            self.assertEqual(stdout, "")
            self.assertTrue(stderr.startswith(message), (select, stderr))
            self.assertEqual(kept.read_text(), "old")
            self.assertEqual(set(self.folder.iterdir()), before, select)
        self.html("SELECT a FROM t", "-o", "out", database="odd.db", status=2)

    def test_interruption_ends_soon_and_leaves_nothing(self):
        # A query that would run for minutes, and one whose rows take long to write.
        endless = "WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c) SELECT count(*) AS n FROM c"
        long = "WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c LIMIT 30000000) SELECT i FROM c"
        for select in (endless, long):
            command = [PROGRAM, "--quiet", "html", "--db", "sklad.db", "--select", select, "--step", "50", "-o", "cut.htm",
                       "--names", "n", "--no-open"]
            process = subprocess.Popen(command, cwd=self.folder, env=self.environment(), stdout=subprocess.PIPE,
                                       stderr=subprocess.PIPE)
            time.sleep(0.5)
            process.send_signal(signal.SIGINT)
            stdout, stderr = process.communicate(timeout=10)
            self.assertEqual((process.returncode, stdout), (130, b""))
            self.assertEqual(stderr.decode(), TITLE + "Výstup byl přerušen uživatelem !\n")
            self.assertEqual([path for path in self.folder.iterdir() if "cut" in path.name], [])

    def test_bar_on_a_terminal(self):
        master, slave = pty.openpty()
        shown = bytearray()

        def collect():
            try:
                while chunk := os.read(master, 4096):
                    shown.extend(chunk)
            except OSError:
                pass  # the terminal is gone once the program has ended

        reader = threading.Thread(target=collect)
        reader.start()
        process = subprocess.run([PROGRAM, "html", "--db", "sklad.db", "--select", "SELECT * FROM polozky", "-o", "bar.htm",
                                  "--no-open"], cwd=self.folder, env=self.environment(NO_COLOR="1"), stderr=slave,
                                 stdout=subprocess.DEVNULL)
        os.close(slave)
        reader.join(timeout=10)
        os.close(master)
        self.assertEqual(process.returncode, 0)
        self.assertIn("############################## 100.0 %", shown.decode())
        self.assertNotIn("\x1b[3", shown.decode(), "NO_COLOR takes the colour away")
        self.assertNotIn("Otvírá se", shown.decode(), "nothing is opened")

    # --- mail merges ---------------------------------------------------------------------------------------------

    def data_file(self, text):
        path = self.folder / "data.txt"
        path.write_bytes(text.replace("\n", "\r\n").encode("utf-16"))
        return path

    @staticmethod
    def part(path, name):
        with zipfile.ZipFile(path) as package:
            return package.read(name).decode()

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

    # --- spreadsheet-XML templates -------------------------------------------------------------------------------

    TEMPLATE = ('<Workbook><?zrx_xls #worksheet_begin# ?><Worksheet ss:Name="#worksheet_name#(a)"><Table ss:X="1">'
                '<Cell><Data><?zrx_xls #GD-C1-c[***]-R1-r[***]-# ?></Data></Cell>'
                '<?zrx_xls #worksheet_section_begin(2)# ?><s><?zrx_xls #GD-C1-c[***]-R1-r[***]-# ?></s>'
                '<?zrx_xls #worksheet_section_end(2)# ?></Table></Worksheet><?zrx_xls #worksheet_end# ?></Workbook>')

    def fill(self, steps, status=0):
        (self.folder / "vzor.xml").write_text(self.TEMPLATE)
        return self.run_program("fill", "vzor.xml", "-", "-o", "sesit.xml", stdin=steps, status=status)

    def test_fills_a_template(self):
        stdout, stderr = self.fill('[["AddWorksheet", "Žluť", "A", [["SetDataIntoTaggedCell", "ř", 1, 1],'
                                   '["AddWorksheetSection", 2, [["SetDataIntoTaggedCell", "x", 1, 1, 5, 5]]],'
                                   '["GetAttributeValueFromTable", "ss:x"], ["SetColumnWidth", 1, 40, true]]],'
                                   ' ["AddWorksheet", "b"]]')
        self.assertEqual((stdout, stderr), (f"1\n{self.folder}/sesit.xml\n", ""))
        table = '<Table ss:X="1">\n   <Column ss:AutoFitWidth="1" ss:Width="40"/>'
        self.assertEqual((self.folder / "sesit.xml").read_text(),
                         f'<Workbook>\n<Worksheet ss:Name="Žluť">{table}<Cell><Data>ř</Data></Cell><s>x</s></Table></Worksheet>\n'
                         '<Worksheet ss:Name="b"><Table ss:X="1"><Cell><Data></Data></Cell></Table></Worksheet>\n</Workbook>')

    def test_fills_the_documented_example(self):
        page = (SAMPLE.parent.parent / "docs/formats/spreadsheet_xml.md").read_text()
        blocks = ["\r\n".join(line[4:] for line in block.splitlines()) + "\r\n"
                  for block in re.findall(r"(?m)(?:^    .*\n)+", page)]
        template, result = [block for block in blocks if block.startswith("<?xml version")]
        [steps] = [block for block in blocks if block.startswith("[[")]
        (self.folder / "vzor.xml").write_bytes(template.encode())
        self.run_program("fill", "vzor.xml", "-", "-o", "cenik.xml", stdin=steps)
        self.assertEqual((self.folder / "cenik.xml").read_bytes().decode(), result)

    def test_steps_that_fail_are_named(self):
        (self.folder / "sesit.xml").unlink(missing_ok=True)
        inner = '[["AddWorksheet", "a"], ["AddWorksheet", "b", "", [["RemoveDataFromTaggedCell", 1, 1], %s]]]'
        for steps, status, message in [
            (inner % '["SetData"]', 2, 'step 2.2: unknown operation "SetData"'),
            (inner % '["SetRowsOfTaggedGrid", 1]', 2, "step 2.2: SetRowsOfTaggedGrid takes iRowSign, iNumberOfRows"),
            (inner % '["SetRowsOfTaggedGrid", 1, 2, 3]', 2, "step 2.2: SetRowsOfTaggedGrid takes"),
            (inner % '["SetRowsOfTaggedGrid", 1, 32768]', 2, "step 2.2: iNumberOfRows must be a whole number"),
            (inner % '["SetRowsOfTaggedGrid", 1, 2.5]', 2, "step 2.2: iNumberOfRows must be a whole number"),
            (inner % '["SetDataIntoTaggedCell", 5, 1, 1]', 2, "step 2.2: data must be a text"),
            (inner % '["AddWorksheetSection", 2, [["SetColumnWidth", 1, 1]]]', 2, "step 2.2.1: SetColumnWidth is no operation"),
            (inner % '["AddWorksheetSection", 2, [], 1]', 2, "step 2.2: nothing may follow"),
            (inner % '["RemoveDataFromTaggedCell", 1, 1, [[]]]', 2, "step 2.2: RemoveDataFromTaggedCell has no steps"),
            (inner % '{"a": 1}', 2, "step 2.2: steps hold no objects"),
            (inner % '"AddWorksheet"', 2, "step 2.2: a step is an array"),
            (inner % '[]', 2, "step 2.2: a step begins with the name"),
            (inner % '["SetColumnWidth", 1 40]', 2, "step 2.2: parse error at line 1"),
            ("", 2, "steps: parse error"),
            ("5", 2, "steps: the steps must be an array"),
            ("[" * 100_000, 2, "step 1: a step begins with the name"),
            (inner % '["SetColumnWidth", 0, 40]', 1, "step 2.2: -9999 - Hodnotu indexu sloupce"),
            (inner % '["AddWorksheetSection", 7]', 1, "step 2.2: 5 - the worksheet has no section 7"),
            ('[["AddWorksheet", "a", "neni"]]', 1, "step 1: 5 - the worksheet was not added"),
            ("[]", 1, "Není definován ani jeden list!"),
        ]:
            stdout, stderr = self.fill(steps, status=status)
            self.assertEqual(stdout, "")
            self.assertIn(message, stderr, steps[:200])
            self.assertFalse((self.folder / "sesit.xml").exists(), steps[:200])
        self.assertIn("otevírání souboru šablony", self.run_program("fill", "neni.xml", "-", "-o", "s.xml", stdin="[]", status=1)[1])
        self.run_program("fill", "vzor.xml", "neni.json", "-o", "s.xml", status=1)

    # --- the office applications ---------------------------------------------------------------------------------

    def document(self, name):
        """A document with a heading and a bookmark on two pages."""
        main = "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml"
        relation = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument"
        with zipfile.ZipFile(self.folder / name, "w") as package:
            package.writestr("[Content_Types].xml", (
                '<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">'
                '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
                f'<Override PartName="/word/document.xml" ContentType="{main}"/></Types>'))
            package.writestr("_rels/.rels", (
                '<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">'
                f'<Relationship Id="r1" Type="{relation}" Target="word/document.xml"/></Relationships>'))
            package.writestr("word/document.xml", (
                '<w:document xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main"><w:body>'
                '<w:p><w:pPr><w:outlineLvl w:val="0"/></w:pPr><w:r><w:t>Nadpis</w:t></w:r></w:p>'
                '<w:p><w:r><w:br w:type="page"/></w:r><w:bookmarkStart w:id="1" w:name="Závěr_1"/>'
                '<w:r><w:t>Text</w:t></w:r><w:bookmarkEnd w:id="1"/></w:p></w:body></w:document>'))

    def running(self, word):
        """How many processes were started with the word among their arguments."""
        commands = (path.read_bytes() for path in pathlib.Path("/proc").glob("[0-9]*/cmdline") if path.exists())
        return sum(word.encode() in command for command in commands)

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
        converting = title + f'Došlo k chybě při konverzi souboru "{self.folder}/good.docx" do formátu *.pdf\n'
        for source, target, message in [
            ("none.docx", "x.pdf", opening + f"{self.folder}/none.docx\n"),
            ("bad.docx", "x.pdf", opening + f"{self.folder}/bad.docx\n"),
            ("none.xlsx", "x.pdf", title + f"Nepodařilo se otevřít soubor: \n{self.folder}/none.xlsx\n"),
            ("good.docx", "none/x.pdf", converting + "76 - Path not found\n"),
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
        self.run_program(*home, "open", "none.docx", status=1)
        self.assertIn(f"OtevriDoc: pokus o GetObject({self.folder}/none.docx)\tChyba: 5174; ", self.output(*home, "log"))

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
    # --- exports into Word ---------------------------------------------------------------------------------------

    def query(self, name, limit=1000):
        return f"SELECT * FROM ({(SAMPLE.parent / name).read_text()}) LIMIT {limit}"

    def left_behind(self):
        return list((self.folder / "tmp").rglob("*.tmp")) + list((self.folder / "tmp").rglob("*.docx"))

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
        word = [*home, "word", "--db", "sklad.db", "--select", (SAMPLE.parent / "cenik.sql").read_text(), "--no-open"]
        title = "Export dat do aplikace MS Word: "
        self.assertEqual(self.run_program(*word, "--template", "cenik.docx", status=1)[1], title + "Neplatný název šablony !\n")
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

    # --- exports into Excel --------------------------------------------------------------------------------------

    def cells(self, name, sheet=1):
        """Rows of a sheet of a workbook: by column the text, the formula with its "=", or the stored value."""
        main = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"
        path = self.folder / name
        shared = ["".join(item.itertext()) for item in ElementTree.fromstring(self.part(path, "xl/sharedStrings.xml"))]

        def content(cell):
            value, formula, inline = (cell.find(main + tag) for tag in ("v", "f", "is"))
            if formula is not None:
                return "=" + formula.text
            if inline is not None:
                return "".join(inline.itertext())
            if value is not None:
                return shared[int(value.text)] if cell.get("t") == "s" else value.text
            return None

        rows = ElementTree.fromstring(self.part(path, f"xl/worksheets/sheet{sheet}.xml")).iter(main + "row")
        return {int(row.get("r")): {cell.get("r").rstrip("0123456789"): content(cell) for cell in row} for row in rows}

    def test_excel_tables(self):
        excel = ["excel", "--db", "sklad.db", "--no-open", "--select"]
        stdout, stderr = self.run_program(*excel, "SELECT kod, '=' || nazev AS nazev, cena, popis FROM zbozi WHERE "
                                          "kod = 'Z01420' OR cena = 74.9", "--blank-records", 1, "--data-file", "kept.txt")
        self.assertEqual((stdout, stderr), (f"{self.folder}/export.xlsx\n", ""))
        rows = self.cells("export.xlsx")
        self.assertEqual(rows[1], {"A": "kod", "B": "nazev", "C": "cena", "D": "popis"})
        self.assertEqual([rows[2].get(column) for column in "AB"], [" ", None])
        found = {rows[row]["A"]: rows[row] for row in (3, 4)}
        self.assertEqual(found["Z01420"]["B"], "=Kolečko stavební 80 l", "a text, no formula")
        self.assertEqual(found["Z01420"]["C"], "1890")
        self.assertIn("stavu:\n– korba", found["Z01420"]["D"].replace("\r", ""))
        self.assertTrue((self.folder / "kept.txt").read_bytes().startswith(b"kod;nazev;cena;popis\r\n ;;;\r\n"))
        self.output(*excel, "SELECT kod, cena FROM zbozi LIMIT 3", "-o", "table.pdf")
        self.assertEqual((self.folder / "table.pdf").read_bytes()[:5], b"%PDF-")

        title = "Export dat do aplikace MS Excel: "
        self.assertIn(title + "Nebyly nalezeny žádné záznamy !",
                      self.run_program(*excel, "SELECT kod FROM zbozi WHERE 0", "-o", "no.xlsx", status=1)[1])
        long = self.run_program(*excel, "SELECT printf('%40000s', kod) AS dlouhy FROM zbozi", "-o", "no.xlsx", status=1)[1]
        self.assertIn('6 - Characters of a text: 40000; a cell holds 32767.\r\n', long.replace("\r", "").replace("\n", "\r\n"))
        many = "WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c LIMIT 1048576) SELECT i AS a FROM c"
        self.assertIn("a sheet has 1048576", self.run_program(*excel, many, "--names", "a", "-o", "no.xlsx", status=1)[1])
        for wrong in ("no.xls", "no/", "tmp"):
            self.run_program(*excel, "SELECT kod FROM zbozi", "-o", wrong, status=2)
        self.assertFalse((self.folder / "no.xlsx").exists())
        self.assertEqual(self.left_behind(), [])

    def test_excel_templates(self):
        fill = ["excel-template", "--db", "sklad.db", "--no-open", "--template"]
        stock = self.query("stav-zasob.sql", 3)
        for setting in ("0", "1"):  # by the clipboard and without it
            home = ["--home", f"home-{setting}"]
            self.output(*home, "registry", "set", "HKLM\\SOFTWARE\\QRD\\Zorix\\Instalace\\ZorKancA", "XlPasteFormulasNoClipboard", setting)
            stdout, stderr = self.run_program(*home, *fill, SAMPLE.parent / "stav-zasob.xltx", "--select", stock)
            self.assertEqual((stdout, stderr), (f"{self.folder}/stav-zasob.xlsx\n", ""))
            rows = self.cells("stav-zasob.xlsx", sheet=2)
            self.assertEqual(len(rows), 6)
            self.assertEqual([rows[6][column] for column in "ABCDE"],
                             ["Z01290", "Brusný papír P120, 10 archů", "bal", "57,00", "88,00"])
            self.assertEqual(rows[5]["H"], "hodnota")
            self.assertEqual(rows[6]["H"], '=IF(D6="",0,_xlfn.NUMBERVALUE(D6,",")*_xlfn.NUMBERVALUE(E6,","))')
            self.assertEqual(self.cells("stav-zasob.xlsx")[7]["C"], "=SUM(Zásoby!H:H)")
        self.assertIn("sheet.main+xml", self.part(self.folder / "stav-zasob.xlsx", "[Content_Types].xml"))

        # As many labels as the multiplier sums to, each with its picture.
        self.output(*fill, SAMPLE.parent / "cenovky.xltx", "--select", (SAMPLE.parent / "cenovky.sql").read_text(),
                    "--multiplier", "pocet", "-o", "labels.xlsx")
        with sqlite3.connect(self.database) as database:
            labels = database.execute("SELECT SUM(pocet) FROM zbozi WHERE NOT vyrazeno").fetchone()[0]
        self.assertEqual(max(self.cells("labels.xlsx")), 3 * labels)
        self.assertEqual(self.part(self.folder / "labels.xlsx", "xl/drawings/drawing1.xml").count("<xdr:from>") +
                         self.part(self.folder / "labels.xlsx", "xl/drawings/drawing1.xml").count("<from>"), labels)

        (self.folder / "h.txt").write_bytes("nazev;cena;kod".encode("cp1250"))
        (self.folder / "d.txt").write_bytes('"Šroub ""M8""; 10 ks";12,5;A1\r\n=1+1;3;A2\r\n'.encode("cp1250"))
        self.output("excel-template-file", "--headers", "h.txt", "--data", "d.txt", "--template", SAMPLE.parent / "cenovky.xltx",
                    "-o", "labels.xlsx")
        rows = self.cells("labels.xlsx")
        self.assertEqual([rows[row]["A"] for row in (1, 2, 3, 4)],
                         ['Šroub "M8"; 10 ks', "12,50 Kč / ", "kód A1, EAN ", "=1+1"])
        message = self.run_program(*fill, SAMPLE.parent / "cenovky.xltx", "--select", "SELECT kod FROM zbozi", "-o", "no.xlsx",
                                   status=1)[1]
        self.assertIn('Název položky: "nazev"', message)
        (self.folder / "bad.xlsx").write_bytes(b"PK\x03\x04 no workbook")
        message = self.run_program(*fill, "./bad.xlsx", "--select", "SELECT kod FROM zbozi", "-o", "no.xlsx", status=1)[1]
        self.assertIn("Nepodařilo se otevřít aplikaci MS Excel !", message)
        self.assertIn("XlExport_sab: Chyba při otvírání sešitu v aplikaci MS Excel: ", message)
        self.assertFalse((self.folder / "no.xlsx").exists())
        self.assertEqual(self.left_behind(), [])

    # --- the registry --------------------------------------------------------------------------------------------

    def test_registry(self):
        home = ["--home", "home"]
        key = "HKCU\\Software\\Zkouška"
        self.run_program(*home, "registry", "set", key, "Text", "žluť;\"x\"\\")
        self.run_program(*home, "registry", "set", key, "Počet", "-5", "--type", "number")
        self.run_program(*home, "registry", "set", key + "\\Pod", "", "výchozí")
        self.assertEqual(self.output(*home, "registry", "get", key, "text"), "žluť;\"x\"\\\n")
        self.assertEqual(self.output(*home, "registry", "get", key + "\\pod"), "výchozí\n")
        self.assertEqual(self.output(*home, "registry", "list", key),
                         "Pod\\\nText\tstring\tžluť;\"x\"\\\nPočet\tnumber\t-5\n")
        self.run_program(*home, "registry", "get", key, "chybí", status=1)
        self.run_program(*home, "registry", "set", key, "n", "4294967296", "--type", "number", status=2)

        self.assertEqual(self.output(*home, "registry", "export", "all.reg"), f"{self.folder}/all.reg\n")
        self.run_program("--home", "other", "registry", "import", "all.reg")
        self.assertEqual(self.output("--home", "other", "registry", "list", key),
                         self.output(*home, "registry", "list", key))
        self.run_program(*home, "registry", "delete", key)
        self.run_program(*home, "registry", "list", key, status=1)
        (self.folder / "bad.reg").write_text("Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\x]\nnonsense\n")
        self.assertIn("4", self.run_program(*home, "registry", "import", "bad.reg", status=1)[1])

    # --- template lists ------------------------------------------------------------------------------------------

    def templates(self, command, *arguments, kind="word", **options):
        return self.run_program("--home", "tpl", "templates", command, "--application", "A1", "--type", kind, *arguments,
                                **options)

    def listed(self):
        """Position, mark, identifier and file name of each template."""
        return [line.split("\t")[:4] for line in self.templates("show")[0].splitlines()]

    def test_template_lists(self):
        supplied = self.folder / "tpl" / "Sablony" / "A1"
        supplied.mkdir(parents=True)
        (supplied / "faktura.dot").touch()
        (supplied.parent / "ZorSabl.txt").write_bytes("A1|výchozí|faktura|Faktura €|12|\r\nA1|x\r\n".encode("cp1250"))
        shown = self.templates("show", "--json")[0]
        self.assertEqual(json.loads(shown), [{"position": 1, "active": False, "id": 12, "file": "faktura.dot",
                                              "description": "Faktura €", "path": str(supplied), "exists": True}])
        self.assertIn("ZorSabl.txt, řádek 2", self.output("--home", "tpl", "log"))

        for name in ["dopis.dot", "cenik.xlt", "nový.dot"]:
            (self.folder / name).touch()
        self.templates("add", "dopis", "--id", -7, "--before", 1, "--description", 'Dopis\n"a"')
        self.assertIn("Soubor \"dopis.dot\"", self.templates("add", "dopis.dot", status=1)[1])
        self.assertIn("má identifikátor -7", self.templates("add", "chybí.dot", "--id", -7, status=1)[1])
        self.assertIn("Šablona pro MS Word", self.templates("add", "cenik.xlt", status=1)[1])
        self.run_program("--yes", "--home", "tpl", "templates", "add", "--application", "A1", "--type", "word", "cenik.xlt",
                         status=1)  # a workbook becomes no .dot
        self.assertEqual(self.listed(), [["1", "*", "-7", "dopis.dot"], ["2", "", "12", "faktura.dot"]])
        self.templates("activate", 2)
        self.templates("edit", 2, "--file", "nový.dot", "--id", 0)
        self.assertEqual(self.listed(), [["1", "*", "-7", "dopis.dot"], ["2", "", "0", "nový.dot"]])
        self.templates("up", 2)
        self.assertEqual(self.listed(), [["1", "*", "0", "nový.dot"], ["2", "", "-7", "dopis.dot"]])
        self.templates("down", 1)
        self.templates("remove", 1)
        self.templates("supply")
        self.assertEqual(self.listed(), [["1", "*", "0", "nový.dot"], ["2", "", "12", "faktura.dot"]])
        self.assertIn("the list has 2", self.templates("up", 3, status=1)[1])
        self.templates("edit", 1, status=2)
        self.templates("show", "--list", "a\\b", status=1)
        chosen = self.templates("choose", "--admin", "--caption", "Vyberte", status=1)
        self.assertEqual(chosen[0], "")
        self.assertIn("neither a screen nor a terminal to ask on; use --template", chosen[1])
        (self.folder / "no folder").touch()
        self.assertIn("no folder/HKLM.reg: ", self.run_program("--home", "no folder", "templates", "show", "--application",
                                                               "A1", status=1)[1])

    def test_the_library_of_windows_is_loaded_only_for_windows(self):
        linked = subprocess.run(["ldd", PROGRAM], capture_output=True, check=True).stdout.decode()
        self.assertIn("libsqlite3", linked)
        self.assertNotIn("Qt", linked)

    def test_templates_survive_what_somebody_wrote_into_the_registry(self):
        key = r"[HKEY_CURRENT_USER\Software\QRD\Zorix\SABLONY\B2\(Výchozí)"
        (self.folder / "odd.reg").write_text("\n".join([
            "Windows Registry Editor Version 5.00", "", key + r"\a.dot]", '"key"="3"', '"path"=hex(1):41,00,00,00,42,00,00,00',
            key + r"\b.dot]", '"key"=dword:7fffffff', '"path"=dword:1', '"description"="1\t2"',
            key + r"\c/d.dot]", '"key"=dword:80000000']))
        home = ["--home", "odd"]
        self.run_program(*home, "registry", "import", "odd.reg")
        shown = self.output(*home, "templates", "show", "--application", "B2").splitlines()
        self.assertEqual([line.split("\t")[3] for line in shown], ["b.dot", "a.dot"])
        log = self.output(*home, "log")
        for name in ["\"key\"", "\"path\"", "c/d.dot"]:
            self.assertIn(name, log)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

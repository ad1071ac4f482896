#!/usr/bin/env python3
"""Where results go: standard output, names by columns, shares of the records, files that must stay."""
import io
import json
import subprocess
import unittest
import zipfile

from command_line import PROGRAM, SAMPLE, CommandLineCase, main


class OutputTest(CommandLineCase):
    QUERY = ["--db", "sklad.db", "--select"]

    def bytes_of(self, *arguments, status=0, stdin=b""):
        done = subprocess.run([PROGRAM, *map(str, arguments)], cwd=self.folder, env=self.environment(), input=stdin,
                              capture_output=True, timeout=60)
        self.assertEqual(done.returncode, status, (arguments, done.stderr.decode()))
        return done.stdout

    def test_standard_output(self):
        before = set(self.folder.iterdir())
        goods = [*self.QUERY, "SELECT kod, nazev FROM zbozi LIMIT 3"]
        letters = ["--template", SAMPLE.parent / "cenik.docx", *self.QUERY, "SELECT kod, nazev, cena FROM zbozi LIMIT 2"]
        self.assertTrue(self.bytes_of("html", *goods, "-o", "-").startswith(b"<HTML>\r\n"))
        for arguments, part in [(["excel", *goods, "-o", "-"], "xl/workbook.xml"), (["word", *letters, "-o", "-"], "word/document.xml")]:
            with zipfile.ZipFile(io.BytesIO(self.bytes_of(*arguments))) as package:
                self.assertIn(part, package.namelist())
        self.assertEqual(self.bytes_of("word", *letters, "--pdf", "-o", "-")[:5], b"%PDF-")
        self.assertIn(b"<Workbook", self.bytes_of("fill", SAMPLE.parent / "faktura.xml", SAMPLE.parent / "faktura.json", "-o", "-"))
        for arguments in (["--json", "html", *goods, "-o", "-"], ["word", *letters, "--multi", "-o", "-"]):
            self.run_program(*arguments, status=2)
        self.assertIn("standard output is a terminal", self.on_terminal("excel", *goods, "-o", "-", status=2))
        new = [path for path in self.folder.iterdir() if path not in before and path.name not in (".cache", ".config")]
        self.assertEqual(new, [])
        self.assertEqual(self.left_behind(), [])

    def test_only_fitting_extensions(self):
        fill = ["fill", SAMPLE.parent / "faktura.xml", SAMPLE.parent / "faktura.json"]
        for arguments, message in [
            ([*fill, "-o", "x.xlsx"], "-o takes .xml, not x.xlsx"),
            (["excel", *self.QUERY, "SELECT 1", "-o", "x.xls"], "-o takes .xlsx, .xlsm or .pdf, not x.xls"),
            (["word", *self.QUERY, "SELECT 1", "--template", "t.dotx", "-o", "x.doc"], "-o takes .docx or .pdf, not x.doc"),
            (["word", *self.QUERY, "SELECT 1", "--template", "t.dotx", "--pdf", "-o", "x.docx"], "-o takes .pdf, not x.docx"),
        ]:
            self.assertIn(message, self.run_program(*arguments, status=2)[1])

    def test_documents_named_by_columns(self):
        rows = "SELECT * FROM (VALUES (1, 'a/b:c'), (2, 'A/B:c'), (3, ''), (4, 'ž' || char(9) || '\"x\"'), (5, printf('%300s', 'ř')))"
        rows = f"SELECT column1 AS kod, column2 AS nazev, 1.5 AS cena FROM ({rows})"
        word = ["word", "--template", SAMPLE.parent / "cenik.docx", "--multi", *self.QUERY, rows]
        form = ["form", "--template", SAMPLE.parent / "registrace.dotx", *self.QUERY, rows + " LIMIT 3"]
        names = [path.split("/")[-1] for path in self.output(*word, "--name", "{NAZEV}", "-o", "named/").splitlines()]
        self.assertEqual(names[:4], ["a_b_c.docx", "A_B_c (2).docx", "0003.docx", "ž__x_.docx"])
        self.assertEqual(len(names[4].encode()), 200 + 5 if names[4].endswith("  .docx") else len(names[4].encode()))
        names = [path.split("/")[-1] for path in self.output(*form, "--name", "F {kod}: {cena}", "-o", "forms/").splitlines()]
        self.assertEqual(names, ["F 1_ 1,5.docx", "F 2_ 1,5.docx", "F 3_ 1,5.docx"])
        for pattern, status in [("{kod", 2), ("kod}", 2), ("{{kod}}", 2), ("{neni}", 1)]:
            self.assertIn("--name", self.run_program(*word, "--name", pattern, "-o", "none/", status=status)[1])
        self.run_program(*[each for each in word if each != "--multi"], "--name", "x", "-o", "x.docx", status=2)

    def test_shares_make_one_folder(self):
        rows = "WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c LIMIT 7) SELECT i AS kod FROM c"
        word = ["word", "--template", SAMPLE.parent / "cenik.docx", "--multi", *self.QUERY, rows, "-o", "share/"]
        numbers = []
        for part in ("1/3", "2/3", "3/3"):
            told = json.loads(self.output("--json", *word, "--part", part))
            numbers.append([path.split("/")[-1][:4] for path in told["files"]])
            self.assertEqual(told["records"], len(told["files"]))
        self.assertEqual(numbers, [["0001", "0002"], ["0003", "0004"], ["0005", "0006", "0007"]])
        self.output("excel", *self.QUERY, rows, "--part", "2/3", "-o", "share.xlsx")
        self.assertEqual([row["A"] for row in self.cells("share.xlsx").values()], ["kod", "3", "4"])
        self.assertIn("žádné záznamy", self.run_program("excel", *self.QUERY, rows, "--part", "1/9", "-o", "e.xlsx", status=1)[1])
        for part in ("0/3", "4/3", "2", "a/b", "1/3/5", "-1/2"):
            self.assertIn("--part takes K/N", self.run_program(*word, "--part", part, status=2)[1])

    def test_files_that_must_stay(self):
        one = [*self.QUERY, "SELECT kod, nazev, cena FROM zbozi LIMIT 1"]
        template = ["--template", SAMPLE.parent / "cenik.docx"]
        (self.folder / "old").mkdir(exist_ok=True)
        for name in ("old.htm", "old.xlsx", "old.docx", "old.xml", "old.svg", "old.reg", "old.txt", "old/0001.docx", "cenik.docx"):
            (self.folder / name).write_text("old")
        for arguments in [["html", *one, "-o", "old.htm"], ["excel", *one, "-o", "old.xlsx"],
                          ["excel", *one, "-o", "new.xlsx", "--data-file", "old.txt"],
                          ["word", *one, *template, "-o", "old.docx"], ["word", *one, *template, "--no-open"],
                          ["word", *one, *template, "--multi", "-o", "old/"],
                          ["fill", SAMPLE.parent / "faktura.xml", SAMPLE.parent / "faktura.json", "-o", "old.xml"],
                          ["barcode", "Code39;a,trim;b;0", "--value", "A", "--svg", "old.svg"], ["registry", "export", "old.reg"]]:
            self.assertIn("--no-clobber keeps it", self.run_program("--no-clobber", *arguments, status=1)[1], arguments)
        for path in self.folder.rglob("old*.*"):
            self.assertEqual(path.read_text(), "old", path)


if __name__ == "__main__":
    main()

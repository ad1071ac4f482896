#!/usr/bin/env python3
"""What the program tells while it works and at the end: progress, paths, one JSON object."""
import json
import re
import unittest

from command_line import SAMPLE, CommandLineCase, main


class ReportTest(CommandLineCase):
    ROWS = "WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c LIMIT %d) SELECT i FROM c"

    @staticmethod
    def screen(shown):
        """The lines that a terminal shows after it got these characters."""
        lines = []
        for line in re.sub(r"\x1b\[[0-9;]*m", "", shown).split("\n"):
            cells = ""
            for part in line.split("\r"):
                cells = part + cells[len(part):]
            lines.append(cells.rstrip())
        return [line for line in lines if line]

    def test_progress_on_a_terminal(self):
        for before, rows, environment, drawn, coloured in [
            ([], 10, {}, False, False),                                   # done before anybody looks
            ([], 2_000_000, {}, True, True),
            ([], 2_000_000, {"NO_COLOR": "1"}, True, False),
            ([], 2_000_000, {"TERM": "dumb"}, False, False),
            (["--progress=never"], 2_000_000, {}, False, False),
            (["--quiet", "--progress=always"], 10, {}, False, False),
            (["--progress=always"], 10, {"TERM": "dumb"}, True, False),
        ]:
            shown = self.on_terminal(*before, "html", "--db", "sklad.db", "--select", self.ROWS % rows, "--names", "n", "-o",
                                     "bar.htm", "--no-open", **environment)
            case = (before, rows, environment)
            self.assertEqual(re.search(r"#{30} 100\.0 %  [0-9.]+ %/s  0:00 left", re.sub(r"\x1b\[\d*m", "", shown)) is not None,
                             drawn, case)
            self.assertEqual("\x1b[32m" in shown, coloured, case)
            self.assertEqual(self.screen(shown), [f"{self.folder}/bar.htm"], case)
        shown = self.run_program("--progress=always", "html", "--db", "sklad.db", "--select", self.ROWS % 10, "--names", "n",
                                 "-o", "bar.htm")[1]
        self.assertIn("100.0 %", shown)
        self.assertNotIn("\x1b", shown)

    def test_one_json_object(self):
        def told(*arguments, status=0):
            return json.loads(self.output("--json", *arguments, status=status))

        html = ["html", "--db", "sklad.db", "-o", "table.htm", "--select"]
        page = str(self.folder / "table.htm")
        self.assertEqual(told(*html, "SELECT kod FROM zbozi LIMIT 3")["files"], [page])
        self.assertIsNone(told(*html, "SELECT kod FROM zbozi LIMIT 3")["error"])
        failed = told(*html, "SELECT kod FROM zbozi WHERE 0", status=1)
        self.assertEqual((failed["files"], failed["error"]["message"]), ([], "Nebyly nalezeny žádné záznamy !"))
        for name in ("cenik.docx", "cenovky.xltx"):
            (self.folder / name).write_bytes((SAMPLE.parent / name).read_bytes())
        (self.folder / "h.txt").write_text("kod;nazev;cena;jednotka;ean")
        (self.folder / "d.txt").write_text("A1;x;1;ks;1\r\nA2;y;2;ks;2\r\nA3;z;3;ks;3\r\n", newline="")
        data = self.data_file("kod;nazev;cena\nA1;x;1\nA2;y;2\n")
        prepared = ["--headers", "h.txt", "--data", "d.txt"]
        query = ["--db", "sklad.db", "--select", "SELECT kod, nazev, cena, jednotka, ean, pocet FROM zbozi LIMIT 4"]
        for arguments, records in [
            (["html", *query, "-o", "j.htm"], 4), (["html", *query, "-o", "j.htm", "--part", "2/3"], 1),
            (["excel", *query, "-o", "j.xlsx"], 4), (["word", *query, "--template", "cenik.docx", "-o", "j.docx"], 4),
            (["word", *query, "--template", "cenik.docx", "--multi", "-o", "j/"], 4),
            (["excel-template", *query, "--template", "cenovky.xltx", "-o", "j.xlsx"], 4),
            (["word-file", *prepared, "--template", "cenik.docx", "-o", "j.docx"], 3),
            (["word-file", *prepared, "--template", "cenik.docx", "--multi", "-o", "j/"], 3),
            (["excel-template-file", *prepared, "--template", "cenovky.xltx", "-o", "j.xlsx"], 3),
            (["merge", "--template", "cenik.docx", "--data-file", data, "-o", "j.docx"], 2),
            (["merge", "--template", "cenik.docx", "--data-file", data, "--multi", "-o", "j/"], 2),
            (["barcode", "Code39;kod,trim;X;0", *query], 4),
        ]:
            self.assertEqual(told(*arguments)["records"], records, arguments)
        failed = told("pdf", "none.docx", "j.pdf", status=1)
        self.assertEqual((failed["error"]["number"], failed["error"]["message"].split(":")[0]), (5174, "Nepodařilo se otevřít dokument"))
        self.assertEqual(told("excel", "--db", "sklad.db", "--select", "SELECT printf('%40000s', kod) AS a FROM zbozi", "-o", "j.xlsx",
                              status=1)["error"]["number"], 6)
        self.assertEqual(told("number", "0.0", "1.5")["values"], ["1,5"])
        self.assertEqual(told("number", "0", "x", status=2)["error"]["number"], 5)
        self.assertEqual(told("text", "99999", "--type", "integer", status=1)["error"]["number"], 6)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Where the records come from: CSV and JSON files, alone and together, as a user names them."""
import csv
import io
import json
import os
import random
import re
import subprocess
import unittest

from command_line import SAMPLE, CommandLineCase, main


class SourcesTest(CommandLineCase):
    def write(self, name, text, encoding="utf-8"):
        (self.folder / name).write_bytes(text if isinstance(text, bytes) else text.encode(encoding))
        return name

    def rows(self, sources, select, *more, before=()):
        """The query's rows as an export writes them."""
        given = [word for source in sources for word in ("--db", source)]
        self.run_program(*before, "html", *given, "--select", select, "--unicode", "--no-open", "-o", "rows.htm", *more)
        page = (self.folder / "rows.htm").read_bytes().decode()
        found = []
        for row in re.findall(r"<TR.*?</TR>", page, re.DOTALL)[1:]:
            found.append([cell.replace("&nbsp;", " ").strip() for cell in re.findall(r"<TD[^>]*>(.*?)</TD>", row, re.DOTALL)])
        return found

    def test_several_sources_are_one_database(self):
        self.write("ceny.csv", "kod;cena;od\nK0007;1,50;1.3.2026\nK0008;2,25;\n")
        self.write("texty.json", json.dumps([{"kod": "K0007", "popis": "Šroub", "akce": True}], ensure_ascii=False))
        self.write("pole.data", "a|b\n1|2\n")
        self.write("zaznamy.data", '{"a":1}\n{"a":2}\n')
        self.write("tab.TSV", 'a\tb\n"1,5"\t2\n')
        select = "SELECT c.kod, cena, od, popis, akce FROM ceny c LEFT JOIN texty t USING (kod) ORDER BY c.kod"
        self.assertEqual(self.rows(["ceny.csv", "texty.json"], select),
                         [["K0007", "1,50", "1.3.2026", "Šroub", "Pravda"], ["K0008", "2,25", "", "", ""]])
        self.assertEqual(self.rows(["csv:pole.data"], "SELECT a + b AS c FROM pole"), [["3"]])
        self.assertEqual(self.rows(["json:zaznamy.data"], "SELECT sum(a) AS s FROM zaznamy"), [["3"]])
        self.assertEqual(self.rows(["tab.TSV"], "SELECT * FROM tab"), [["1,50", "2"]])
        self.assertEqual(self.rows([":memory:"], "SELECT 1 AS a"), [["1"]])
        self.write("navic.csv", "n\n5\n")
        mixed = self.rows(["navic.csv", "sklad.db", ":memory:"], "SELECT n, (SELECT count(*) > 10 FROM zbozi) AS z FROM navic")
        self.assertEqual(mixed, [["5", "1"]])

    def test_other_commands_and_ways_to_name_sources(self):
        self.write("kody.csv", "kod\nA1\nB2\n")
        self.assertEqual(self.output("barcode", "Code39;kod,trim;OUT;0", "--db", "kody.csv", "--select", "SELECT kod FROM kody"),
                         "*A1*\n*B2*\n")
        self.write("options.toml", '[html]\ndb = ["kody.csv", "sklad.db"]\nseparator = ";"\n')
        shown, _ = self.run_program("--config", "options.toml", "html", "--select", "SELECT count(*) AS c FROM kody", "--no-open",
                                    "-o", "x.htm")
        self.assertEqual(shown, f"{self.folder}/x.htm\n")
        self.run_program("excel", "--db", "kody.csv", "--select", "SELECT * FROM kody", "-o", "kody.xlsx")
        self.assertEqual([row["A"] for row in self.cells("kody.xlsx").values()], ["kod", "A1", "B2"])
        os.mkfifo(self.folder / "roura")
        writer = subprocess.Popen(["sh", "-c", "printf 'a,b\\n1,x\\n' > roura"], cwd=self.folder)
        self.assertEqual(self.rows(["csv:roura"], "SELECT * FROM roura"), [["1", "x"]])
        writer.wait(timeout=10)

    def test_check_tells_tables_and_types(self):
        self.write("typy.csv", "i,d,t,b,s\n1,\"1,5\",1.3.2026,Ano,x\n")
        (self.folder / "upominka.dotx").write_bytes((SAMPLE.parent / "upominka.dotx").read_bytes())
        shown, _ = self.run_program("word", "--db", "typy.csv", "--db", "sklad.db", "--select", "SELECT * FROM typy", "--template",
                                    "upominka.dotx", "-o", "x.docx", "--check")
        self.assertEqual(shown.splitlines()[:3], [
            "ok: the database sklad.db",
            "ok: the table typy of typy.csv, columns i integer, d decimal, t date, b boolean, s text",
            "ok: the query, columns i;d;t;b;s"])
        self.assertFalse((self.folder / "x.docx").exists())

    def test_types_and_encodings_that_are_told(self):
        self.write("psc.csv", "psc;cena;jmeno\n10000;1,5;Žofie\n", "cp1250")
        select = "SELECT psc, cena, jmeno FROM psc"
        told = ["--encoding", "ansi", "--type", "PSC=text", "--type", "cena=currency"]
        self.assertEqual(self.rows(["psc.csv"], select, *told), [["10000", "1,50", "Žofie"]])
        self.assertEqual(self.rows(["psc.csv"], "SELECT length(jmeno) AS psc FROM psc", *told), [["5"]])
        _, told = self.html(select, "--encoding", "ansi", "--type", "jmeno=integer", database="psc.csv", status=1)
        self.assertIn('zorkanca: cause: 13 - psc.csv, line 2, field 3: "Žofie" is no value of --type jmeno=integer\n', told)
        _, told = self.html(select, "--encoding", "ansi", "--type", "neni=integer", database="psc.csv", status=1)
        self.assertIn('3265 - The query has no column "neni"', told)
        self.write("dvojtecka.csv", "a:b\n1:2\n")
        self.assertEqual(self.rows(["dvojtecka.csv"], "SELECT a, b FROM dvojtecka", "--separator", ":"), [["1", "2"]])
        self.write("utf16.csv", "a\tb\n1\tž\n", "utf-16")
        self.assertEqual(self.rows(["utf16.csv"], "SELECT * FROM utf16", "--separator", "tab"), [["1", "ž"]])
        self.write("us.csv", "a,b\n1.5,3/4/2026\n")
        self.assertEqual(self.rows(["us.csv"], "SELECT * FROM us", before=["--locale", "en-US"]), [["1.50", "3/4/2026"]])

    def test_faults_are_told_and_nothing_is_written(self):
        self.write("velky.csv", "a,b\n1,2\n3,\"")
        os.truncate(self.folder / "velky.csv", 1 << 30)
        for name, content, told in [
            ("r.csv", "a,b\n1,2,3\n", "cause: 3274 - r.csv, line 2, field 3: the record has more fields than the first line, which names 2"),
            ("q.csv", "a,b\n1,\"2\n", "cause: 3274 - q.csv, line 2, field 2: the quotation mark that opens the field is never closed"),
            ("n.csv", "a\n1\0\n", "cause: 3274 - n.csv, line 2, field 1: a NUL character stands in the text"),
            ("e.csv", b"a\n\xe9\n", "cause: 3274 - e.csv, line 2, field 1: the text is not valid UTF-8; that of the ANSI page is read with --encoding ansi"),
            ("velky.csv", None, "cause: 3274 - velky.csv, line 3, field 2: the record is longer than 64 MiB"),
            ("j.json", '[{"a":1},\n {"a":}]', "cause: 3274 - j.json, line 2, column 7: a value is expected"),
            ("neni.csv", None, "cause: 53 - File not found"),
        ]:
            if content is not None:
                self.write(name, content)
            stdout, stderr = self.html("SELECT 1 AS a", "-o", "fault.htm", database=name, status=1)
            self.assertEqual(stdout, "")
            self.assertIn("zorkanca: " + told, stderr)
            self.assertFalse((self.folder / "fault.htm").exists(), name)
        self.write("zbozi.csv", "a\n1\n")
        _, told = self.run_program("html", "--db", "sklad.db", "--db", "zbozi.csv", "--select", "SELECT 1 AS a", "--no-open", "-o",
                                   "fault.htm", status=1)
        self.assertIn('3010 - There would be two tables of the name "zbozi": that of the database and zbozi.csv', told)

    def test_sources_that_make_no_sense(self):
        self.write("a.csv", "a\n1\n")
        html = ["html", "--select", "SELECT 1 AS a", "--no-open", "-o", "x.htm"]
        for arguments, told in [
            ([], "--db is required"),
            (["--db", "sklad.db", "--db", "odd.db"], "--db takes one SQLite file, not both sklad.db and odd.db"),
            (["--db", "csv:"], "--db names no file: csv:"),
            (["--db", "a.csv", "--separator", ";;"], "--separator takes one character of ASCII"),
            (["--db", "a.csv", "--separator", '"'], "--separator takes one character of ASCII"),
            (["--db", "a.csv", "--encoding", "latin"], "--encoding takes ansi, utf-8 or utf-16, not latin\n"),
        ]:
            _, stderr = self.run_program(*html, *arguments, status=2)
            self.assertIn(told, stderr, arguments)

    def test_what_python_writes_is_read_as_it_was_meant(self):
        chance = random.Random(20261125)
        letters = ["a", "ž", "€", "\U0001F600", '"', ",", ";", "\n", "\r\n", "\t", " ", "'", "\\", "|", "0"]

        def text():
            return "x" + "".join(chance.choice(letters) for _ in range(chance.randrange(12)))

        # A value of each kind or None; texts begin with a letter, so that they never look like anything else.
        kinds = [text, lambda: chance.randrange(-10**6, 10**6), lambda: chance.randrange(-10**17, 10**17),
                 lambda: round(chance.uniform(-1e6, 1e6), 3), lambda: chance.random() < 0.5,
                 lambda: f"20{chance.randrange(100):02}-0{chance.randrange(1, 10)}-1{chance.randrange(10)}"]
        names = ["jméno", "i", "big", "cena", "ano", "den"]
        records = [[kind() if chance.random() < 0.9 else None for kind in kinds] for _ in range(400)]
        # Every column has what makes its type plain.
        records.append(["x", 1, 10**16, 0.125, True, "2026-03-01"])

        def stored(source):
            """What SQL sees, as one JSON array for each record."""
            columns = ", ".join(f'"{name}"' for name in names)
            shown = self.rows([source], f"SELECT hex(json_array({columns})) AS h FROM data")
            return [json.loads(bytes.fromhex(row[0])) for row in shown]

        expected = [[*record[:4], None if record[4] is None else int(record[4]), record[5]] for record in records]
        for delimiter in ",;\t|":
            for quoting in (csv.QUOTE_MINIMAL, csv.QUOTE_NONNUMERIC):
                out = io.StringIO(newline="")
                writer = csv.writer(out, delimiter=delimiter, quoting=quoting)
                writer.writerow(names)
                for record in records:
                    row = [("true" if value else "false") if isinstance(value, bool) else value for value in record]
                    # The writer quotes None where it quotes texts, but no value is not an empty text.
                    writer.writerow(["\0" if value is None else value for value in row])
                self.write("data.csv", re.sub('"?\0"?', "", out.getvalue()))
                self.assertEqual(stored("data.csv"), expected, (delimiter, quoting))
        objects = [{name: value for name, value in zip(names, record) if value is not None or chance.random() < 0.5}
                   for record in records]
        objects[0] = dict(zip(names, records[0]))
        for content in [json.dumps(objects), json.dumps(objects, ensure_ascii=False, indent=3),
                        "\r\n".join(json.dumps(each) for each in objects)]:
            self.write("data.json", content)
            self.assertEqual(stored("data.json"), expected)


if __name__ == "__main__":
    main()

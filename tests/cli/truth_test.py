#!/usr/bin/env python3
"""What the program must not hide: names of columns, causes of failures, what a template or the data lack."""
import json
import sqlite3

from command_line import SAMPLE, CommandLineCase, main

ACCESS = "Chyba při přístupu k datům !\nzorkanca: cause: "


class TruthTest(CommandLineCase):
    def setUp(self):
        for name in ("upominka.dotx", "stav-zasob.xltx"):
            (self.folder / name).write_bytes((SAMPLE.parent / name).read_bytes())

    def header(self, *arguments):
        """The names that a query gives its columns, as the data file of Excel has them."""
        self.run_program("excel", "--db", "sklad.db", *arguments, "--data-file", "names.txt", "-o", "names.xlsx")
        return (self.folder / "names.txt").read_text(encoding="cp1250").splitlines()[0]

    def test_columns_are_called_as_in_the_recordset(self):
        for columns, names in [
            ("coalesce(dic,ico) AS id, nazev", "id;nazev"),
            ("DISTINCT cislo, nazev", "cislo;nazev"),
            ("z.*", "cislo;nazev;ulice;mesto;psc;ico;dic;platce_dph;sleva;zalozen;email;poznamka"),
            ("printf('%s, %s', ulice, mesto) AS adresa, ico", "adresa;ico"),
            ("cislo AS \"Číslo; celé\", nazev jmeno /* a, b */", "\"Číslo; celé\";jmeno"),
        ]:
            select = f"SELECT {columns} FROM odberatele z LIMIT 1"
            self.assertEqual(self.header("--select", select), names)
            self.assertEqual(self.header("--select", select, "--names", "database"), names)
        self.assertEqual(self.header("--select", "WITH a AS (SELECT 1 AS x, 2 AS y) SELECT y, x FROM a"), "y;x")
        derived = "SELECT a.cislo, b.nazev AS Jmeno FROM odberatele a, odberatele b LIMIT 1"
        self.assertEqual(self.header("--select", derived, "--names", "select"), "cislo;jmeno")
        self.assertEqual(self.header("--select", derived, "--names", "a;b"), "a;b")
        self.run_program("word", "--db", "sklad.db", "--select", "SELECT coalesce(dic,ico) AS cislo, 'Novák' AS nazev",
                         "--template", "upominka.dotx", "-o", "id.docx", status=1)
        self.run_program("word", "--db", "sklad.db", "--select", "SELECT coalesce(NULL,7) AS cislo, 'Novák' AS nazev",
                         "--template", "upominka.dotx", "-o", "id.docx")
        self.assertIn("Novák", self.part(self.folder / "id.docx", "word/document.xml"))

    def test_causes_follow_the_message_box_and_are_logged(self):
        (self.folder / "garbage.db").write_bytes(b"no database at all" * 100)
        (self.folder / "garbage.dotx").write_text("no document")
        (self.folder / "empty.txt").touch()
        (self.folder / "h.txt").write_text("a;b")
        here = self.folder
        query = ["--db", "sklad.db", "--select", "SELECT cislo FROM odberatele"]
        word = ["word", *query, "-o", "x.docx", "--template"]
        for arguments, told in [
            (["html", "--db", "none.db", "--select", "SELECT 1"], ACCESS + "3024 - unable to open database file: none.db\n"),
            (["html", "--db", "garbage.db", "--select", "SELECT a FROM t"], ACCESS + "3343 - file is not a database: garbage.db\n"),
            (["html", "--db", here, "--select", "SELECT a FROM t"], ACCESS + f"3146 - disk I/O error: {here}\n"),
            (["excel", "--db", "sklad.db", "--select", "SELECT nic FROM odberatele"], ACCESS + "3146 - no such column: nic\n"),
            (["word", "--db", "sklad.db", "--select", "SELECT 1 FROM nic", "--template", "upominka.dotx"],
             ACCESS + "3146 - no such table: nic\n"),
            (["html", "--db", "sklad.db", "--select", "DELETE FROM odberatele"],
             ACCESS + "3146 - the statement would change the database\n"),
            (["html", *query, "--type", "cena=date"], ACCESS + "3265 - The query has no column \"cena\"; its columns are cislo\n"),
            (["html", "--db", "odd.db", "--select", "SELECT a, b FROM t"],
             "13 - Type mismatch.\nzorkanca: cause: 13 - The column \"b\" holds binary data (BLOB)"),
            (["word", "--db", "odd.db", "--select", "SELECT a, b AS data FROM t", "--template", "upominka.dotx"],
             "zorkanca: cause: 13 - The column \"data\" holds binary data (BLOB)"),
            ([*word, "none.dotx"], f"Sablony/none.dotx, {here}/none.dotx\n"),
            ([*word, "./none.dotx"], f"zorkanca: cause: 53 - The template was not found: {here}/none.dotx\n"),
            ([*word, here], f"zorkanca: cause: 75 - The template is a folder: {here}\n"),
            ([*word, "garbage.dotx"], f"zorkanca: cause: 5 - {here}/garbage.dotx is not an Office document"),
            (["excel-template", *query, "-o", "x.xlsx", "--template", "garbage.dotx"],
             f"zorkanca: cause: 5 - {here}/garbage.dotx is not an Office document"),
            (["form", *query, "-o", "x.docx", "--template", "none.dotx"], "zorkanca: cause: 53 - The template was not found: "),
            (["word-file", "--headers", "none.txt", "--data", "h.txt", "--template", "upominka.dotx"],
             f"Hlavičkový soubor nebyl nalezen !\nzorkanca: cause: 53 - File not found: {here}/none.txt\n"),
            (["word-file", "--headers", "empty.txt", "--data", "h.txt", "--template", "upominka.dotx"],
             f"Hlavičkový soubor je prázdný !\nzorkanca: cause: 62 - The file is empty: {here}/empty.txt\n"),
            (["excel-template-file", "--headers", "h.txt", "--data", "none.txt", "--template", "stav-zasob.xltx"],
             f"zorkanca: cause: 53 - File not found: {here}/none.txt\n"),
            (["merge", "--template", "upominka.dotx", "--data-file", "none.txt"],
             f"zorkanca: cause: 5174 - The data source {here}/none.txt could not be found.\n"),
        ]:
            home = self.folder / "causes"
            stdout, stderr = self.run_program("--home", home, *arguments, "--no-open", status=1)
            self.assertEqual(stdout, "", arguments)
            self.assertIn(told, stderr, arguments)
            cause = told.rpartition("cause: ")[2].rstrip("\n")
            self.assertIn(cause, self.output("--home", home, "log"), arguments)

    def test_statements_that_are_none(self):
        (self.folder / "q.sql").write_text("\ufeffSELECT 1 AS a\n", encoding="utf-8")
        (self.folder / "blank.sql").write_text(" \n;\n")
        html = ["html", "--db", "sklad.db", "--no-open", "-o", "x.htm"]
        for arguments, status, told in [
            (["--select", ""], 2, "zorkanca: --select or --sql-file is required\n"),
            ([], 2, "zorkanca: --select or --sql-file is required\n"),
            (["--select", "-"], 2, "zorkanca: standard input holds no statement\n"),
            (["--select", "q.sql"], 2, "a file is named by --sql-file q.sql\n"),
            (["--sql-file", "blank.sql"], 2, "zorkanca: the file holds no statement: blank.sql\n"),
            (["--sql-file", "none.sql"], 1, "zorkanca: 53 - The file cannot be opened: none.sql\n"),
            (["--select", "SELECT 1 AS a", "--type", "a=datum"], 2, "--type takes COLUMN=boolean, integer"),
        ]:
            stdout, stderr = self.run_program(*html, *arguments, status=status)
            self.assertEqual(stdout, "")
            self.assertIn(told, stderr, arguments)
        self.assertEqual(self.output(*html, "--sql-file", "q.sql"), f"{self.folder}/x.htm\n")

    def test_an_output_that_cannot_be_written_is_found_before_the_work(self):
        (self.folder / "file").touch()
        (self.folder / "out").mkdir(exist_ok=True)
        endless = ["--db", "sklad.db", "--select", "WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c) SELECT i FROM c"]
        word = ["word", *endless, "--template", "upominka.dotx"]
        for arguments, told in [
            (["html", *endless, "-o", "none/x.htm"], f"zorkanca: 76 - Path not found: {self.folder}/none\n"),
            (["html", *endless, "-o", "/proc/x.htm"], "zorkanca: 70 - Permission denied: /proc\n"),
            (["excel", *endless, "-o", "none/x.xlsx"], f"zorkanca: 76 - Path not found: {self.folder}/none\n"),
            (["excel", *endless, "-o", "x.xlsx", "--data-file", "out"], f"zorkanca: 75 - Path/File access error: {self.folder}/out\n"),
            ([*word, "-o", "none/x.docx"], f"zorkanca: 76 - Path not found: {self.folder}/none\n"),
            ([*word, "--multi", "-o", "none/x/"], f"zorkanca: 76 - Path not found: {self.folder}/none\n"),
            ([*word, "--multi", "-o", "file/"], f"zorkanca: 58 - A file, not a folder: {self.folder}/file\n"),
            (["fill", "upominka.dotx", "-", "-o", "/proc/x.xml"], "zorkanca: 70 - Permission denied: /proc\n"),
        ]:
            self.assertEqual(self.run_program(*arguments, status=1), ("", told), arguments)

    def test_a_computed_column_has_one_type(self):
        with sqlite3.connect(self.folder / "sums.db") as database:
            database.executescript("CREATE TABLE t(a MONEY); INSERT INTO t VALUES (6909), (10486.5)")
        html = ["SELECT a * 1 AS soucet FROM t", "-o", "sums.htm"]

        def cells(*more):
            self.html(*html, *more, database="sums.db")
            page = (self.folder / "sums.htm").read_text(encoding="cp1250")
            return [line[line.index(">") + 1:line.rindex("<")] for line in page.splitlines() if "<TD align" in line][1:]

        self.assertEqual(cells(), ["6\u00a0909,00", "10\u00a0486,50"])
        self.assertEqual(cells("--type", "soucet=boolean"), ["Pravda", "Pravda"])
        self.assertEqual(cells("--type", "SOUCET=integer"), ["6909", "10486,5"])

    def test_what_a_template_and_the_columns_do_not_agree_on(self):
        for name in ("cenovky.xltx", "registrace.dotx"):
            (self.folder / name).write_bytes((SAMPLE.parent / name).read_bytes())
        self.document("plain.docx")
        missing = "zorkanca: warning: There is no column for the "
        query = ["--db", "sklad.db", "--select"]
        fields = "cislo, nazev, ulice, psc, mesto, ico, zalozen AS vystavena, zalozen AS splatna"
        for arguments, warnings in [
            (["word", *query, f"SELECT {fields}, 1 AS celkem FROM odberatele LIMIT 2", "--template", "upominka.dotx"], []),
            (["word", *query, f"SELECT {fields}, 1 AS celkm FROM odberatele LIMIT 2", "--template", "upominka.dotx"],
             [missing + "merge field celkem; the nearest is celkm."]),
            (["word", *query, f"SELECT {fields}, 1 AS celkem FROM odberatele LIMIT 2", "--names", "a;b", "--template",
              "plain.docx"],
             ["zorkanca: warning: There are 2 column names for 9 columns.",
              f"zorkanca: warning: The template has no merge field, every record gives the same text: {self.folder}/plain.docx"]),
            (["merge", "--data-file", self.data_file("a\n1\n"), "--template", "plain.docx"],
             [f"zorkanca: warning: The template has no merge field, every record gives the same text: {self.folder}/plain.docx"]),
            (["form", *query, "SELECT cislo AS kod FROM odberatele LIMIT 1", "--template", "plain.docx"],
             [f"zorkanca: warning: The template has no form field, every record gives the same text: {self.folder}/plain.docx"]),
            (["excel-template-file", "--headers", self.ansi("h.txt", "nazev;cena;jednotka;kod"), "--data",
              self.ansi("d.txt", "a;1;ks;K1\r\n"), "--template", "cenovky.xltx"],
             [missing + "placeholder {ean}."]),
        ]:
            output = "t.xlsx" if arguments[0].startswith("excel") else "t.docx"
            stdout, stderr = self.run_program(*arguments, "-o", output)
            self.assertEqual((stdout, stderr.splitlines()), (f"{self.folder}/{output}\n", warnings), arguments)
            (self.folder / output).unlink()
            stdout, stderr = self.run_program(*arguments, "-o", output, "--check")
            self.assertEqual(sorted(stderr.splitlines()), sorted(warnings), arguments)
            self.assertTrue(stdout.endswith("ok: the output can be written\n"))
            for strictly in (["--strict"], ["--strict", "--check"]):
                self.run_program(*arguments, "-o", output, *strictly, status=1 if warnings else 0)
                written = strictly == ["--strict"] and not warnings
                self.assertEqual((self.folder / output).exists(), written, (arguments, strictly))
                (self.folder / output).unlink(missing_ok=True)
        self.run_program("word", *query, "SELECT 1 AS a", "--template", "upominka.dotx", "--multi", "--strict", "-o", "strict/",
                         status=1)
        self.assertFalse((self.folder / "strict").exists())

    def ansi(self, name, text):
        (self.folder / name).write_bytes(text.encode("cp1250"))
        return name

    def test_check_without_a_template(self):
        query = ["--db", "sklad.db", "--select", "SELECT kod, cena FROM zbozi LIMIT 2", "--check"]
        ok = "ok: the database sklad.db\nok: the query, columns kod;cena\nok: the output can be written\n"
        for command, output in (["html", "c.htm"], ["excel", "c.xlsx"]):
            self.assertEqual(self.run_program(command, *query, "-o", output), (ok, ""))
            self.assertFalse((self.folder / output).exists())
            stdout, stderr = self.run_program(command, *query, "-o", output, "--part", "1/5")
            self.assertEqual((stdout, stderr), (ok, "zorkanca: warning: The query gives no records.\n"))
            stderr = self.run_program(command, *query, "-o", f"none/{output}", "--multiplier", "x", status=1)[1]
            self.assertIn('zorkanca: 3265 - --multiplier: The query has no column "x"; its columns are kod, cena\n', stderr)
            self.assertIn(f"zorkanca: 76 - Path not found: {self.folder}/none\n", stderr)

    def test_check_tells_all_that_is_wrong(self):
        stdout, stderr = self.run_program("word", "--db", "none.db", "--select", "SELECT 1", "--template", "none.dotx", "-o",
                                          "none/x.docx", "--check", status=1)
        self.assertEqual(stdout, "")
        self.assertEqual(stderr.splitlines()[0], "zorkanca: 3024 - unable to open database file: none.db")
        self.assertIn("zorkanca: 53 - The template was not found: ", stderr)
        self.assertEqual(stderr.splitlines()[2], f"zorkanca: 76 - Path not found: {self.folder}/none")
        stdout, stderr = self.run_program("excel-template", "--db", "sklad.db", "--select", "SELECT 1 AS a WHERE 0",
                                          "--template", "stav-zasob.xltx", "-o", "x.xlsx", "--check")
        self.assertIn("ok: the query, columns a\n", stdout)
        self.assertIn("zorkanca: warning: The query gives no records.\n", stderr)
        self.assertFalse((self.folder / "x.xlsx").exists())

    def test_fields_of_templates(self):
        for name, lines in [
            ("upominka.dotx", ["field\tnazev\t1", "field\tulice\t1"]),
            ("registrace.dotx", ["form\tkod\t1", "form\tcislo\t1"]),
            ("cenovky.xltx", ["cell\tnazev\t1", "cell\tcena\t1"]),
            ("faktura.xml", ["marker\tworksheet_begin\t2", "marker\tGD-C9-c[***]-R1-r[***]-\t2"]),
        ]:
            self.assertEqual(self.output("fields", SAMPLE.parent / name).splitlines()[:2], lines)
        first = json.loads(self.output("fields", "upominka.dotx", "--json"))[0]
        self.assertEqual(first, {"kind": "field", "name": "nazev", "count": 1})
        self.assertIn("The template was not found: ", self.run_program("fields", "none.dotx", status=1)[1])

    def test_encodings_of_data_files(self):
        warning = "zorkanca: warning: The file is read as ANSI, but it looks like UTF-8; --encoding utf-8 reads it so: "
        text = "Řehoř Žížala\n" * 3
        template = ["--template", "upominka.dotx", "-o", "e.docx"]
        for encoding, arguments, isRight, warns in [
            ("cp1250", [], True, False),
            ("utf-8", [], False, True),
            ("utf-8", ["--encoding", "utf-8"], True, False),
            ("utf-8-sig", [], True, False),
            ("utf-8", ["--encoding", "ansi"], False, False),
            ("utf-16", [], True, False),
            ("utf-16-le", ["--encoding", "utf-16"], True, False),
        ]:
            header, data = self.folder / "h.txt", self.folder / "d.txt"
            header.write_bytes("nazev".encode(encoding))
            data.write_bytes(text.replace("\n", "\r\n").encode(encoding))
            merged = self.folder / "m.txt"
            merged.write_bytes(("nazev\n" + text).replace("\n", "\r\n").encode(encoding))
            for command in (["word-file", "--headers", header, "--data", data], ["merge", "--data-file", merged],
                            ["merge", "--data-file", merged, "--multi"]):
                target = ["--template", "upominka.dotx", "-o", "e/"] if "--multi" in command else template
                stderr = self.run_program(*command, *target, *arguments)[1]
                document = self.folder / ("e/0001.docx" if "--multi" in command else "e.docx")
                found = "Řehoř Žížala" in self.part(document, "word/document.xml")
                self.assertEqual((found, warning in stderr), (isRight, warns), (command, encoding, arguments))
        self.assertEqual(self.left_behind(), [])

    def test_characters_that_the_ansi_page_does_not_have(self):
        select = "SELECT 'α β ☺ Ř' AS a, 1234.5 AS b"
        warning = "zorkanca: warning: 3 characters are not in the ANSI page 1250 and became another one; --unicode keeps every character.\n"
        self.assertEqual(self.html(select, "-o", "u.htm")[1], warning)
        self.assertEqual(self.html(select, "-o", "u.htm", "--unicode")[1], "")
        page = (self.folder / "u.htm").read_text(encoding="utf-8")
        self.assertIn('<META charset="utf-8">', page)
        self.assertIn("α β ☺ Ř", page)
        excel = ["excel", "--db", "sklad.db", "--select", select, "-o", "u.xlsx"]
        self.assertEqual(self.run_program(*excel)[1], warning)
        self.assertEqual(self.run_program(*excel, "--unicode")[1], "")
        self.assertEqual(self.cells("u.xlsx")[2], {"A": "α β ☺ Ř", "B": "1234.5"})

    def test_nothing_is_said_that_nobody_needs(self):
        self.assertEqual(self.run_program("--home", "fresh", "templates", "show", "--application", "X"), ("", ""))
        (self.folder / "fresh.dot").touch()
        self.assertEqual(self.run_program("--home", "fresh", "templates", "add", "fresh.dot", "--application", "X"), ("", ""))
        self.assertIn("ZorSabl.txt", self.run_program("--home", "fresh", "templates", "supply", "--application", "X", status=1)[1])
        stderr = self.run_program("fill", SAMPLE.parent / "faktura.xml", "-", "-o", "f.xml", stdin="[]", status=1)[1]
        self.assertEqual(stderr, "Není definován ani jeden list!\n")


if __name__ == "__main__":
    main()

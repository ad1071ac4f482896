#!/usr/bin/env python3
"""What a new user does wrong: every answer names the thing and its cause, and leaves nothing behind."""
import os
import subprocess

from command_line import PROGRAM, SAMPLE, CommandLineCase, main

QUERY = ["--db", "sklad.db", "--select", "SELECT kod, nazev, cena, pocet FROM zbozi LIMIT 2"]
HTML = ["html", "--no-open", "-o", "x.htm"]
SKLAD = [*HTML, "--db", "sklad.db"]
WORD = ["word", *QUERY, "-o", "x.docx"]
CENIK = [*WORD, "--template", "cenik.docx"]
FORM = ["form", "--db", "sklad.db", "--select", "SELECT * FROM odberatele LIMIT 1", "--template", "registrace.dotx", "-o", "x.docx"]
LABELS = ["excel-template", *QUERY, "-o", "x.xlsx", "--template"]
PREPARED = ["word-file", "--template", "cenik.docx", "-o", "x.docx", "--headers", "h.txt", "--data"]
MERGE = ["merge", "-o", "x.docx", "--template", "cenik.docx", "--data-file"]
FILL = ["fill", "-o", "x.xml"]
CODE = "Code39;kod,trim;X;0"


class MistakesTest(CommandLineCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        examples = SAMPLE.parent
        for name in ("upominka.dotx", "cenik.docx", "registrace.dotx", "cenovky.xltx", "faktura.xml", "faktura.json"):
            (cls.folder / name).write_bytes((examples / name).read_bytes())
        for name in ("folder", "folder.dotx", "locked"):
            (cls.folder / name).mkdir()
        for name in ("empty.dotx", "empty.xltx", "empty.txt", "empty.xml", "empty.json", "empty.sql"):
            (cls.folder / name).touch()
        for name, content in {
            "text.docx": b"no document", "picture.dotx": b"\x89PNG\r\n\x1a\n" + bytes(100),
            "half.docx": (examples / "cenik.docx").read_bytes()[:3000], "book.docx": (examples / "cenovky.xltx").read_bytes(),
            "letter.xlsx": (examples / "cenik.docx").read_bytes(), "h.txt": b"kod;nazev;cena", "short.txt": b"A1;x;1\r\nA2;y\r\n",
            "d.txt": "A1;Šroub;1\r\n".encode("cp1250"), "d8.txt": "A1;Šroub;1\r\n".encode(), "d16.txt": "A1;Š;1\r\n".encode("utf-16-le"),
            "d16be.txt": b"\xfe\xff" + "A1;Š;1\r\n".encode("utf-16-be"), "m.txt": "kod;nazev\r\n".encode("utf-16"),
            "bad.json": b'[["AddWorksheet", ]', "name.json": b'[["AddWorksheeet", "x"]]', "bad.toml": b"locale = cs\n",
            "16.sql": "SELECT 1 AS a".encode("utf-16"), "1250.sql": "SELECT 'Š' AS a".encode("cp1250"), "nul.sql": b"SELECT 1\0",
            "mezera a 'uvozovka' č.dotx": (examples / "upominka.dotx").read_bytes(),
        }.items():
            (cls.folder / name).write_bytes(content)

    def table(self, rows, status):
        """Each row: what is typed, and what standard error must say of it."""
        for arguments, *told in rows:
            before = self.listing()
            with self.subTest(arguments=arguments):
                stdout, stderr = self.run_program(*arguments, status=status)
                self.assertEqual(stdout, "")
                for text in told:
                    self.assertIn(text, stderr)
                self.assertEqual(self.listing(), before, "something was left behind or written over")

    def listing(self):
        own = (".local", ".cache", ".config", "tmp")
        paths = [path for path in self.folder.rglob("*") if path.relative_to(self.folder).parts[0] not in own]
        return {str(path): path.stat().st_mtime_ns for path in paths if path.is_file()}

    def test_paths(self):
        here = self.folder
        self.table([
            ([*HTML, "--db", "skald.db", "--select", "SELECT 1"], "unable to open database file: skald.db; did you mean sklad.db?\n"),
            ([*HTML, "--db", "none/sklad.db", "--select", "SELECT 1"], "3024 - unable to open database file: none/sklad.db\n"),
            ([*HTML, "--db", "folder", "--select", "SELECT 1"], ": folder\n"),
            ([*HTML, "--db", "cenik.docx", "--select", "SELECT kod FROM zbozi"], "3343 - file is not a database: cenik.docx\n"),
            (["html", *QUERY, "-o", "none/x.htm"], f"76 - Path not found: {here}/none\n"),
            (["html", *QUERY, "-o", "sklad.db/x.htm"], "sklad.db"),
            (["html", *QUERY, "-o", "x" * 300 + ".htm"], "52 - Bad file name or number: "),
            ([*WORD, "--template", "upomnka.dotx"], f"{here}/upomnka.dotx; did you mean upominka.dotx?\n"),
            ([*WORD, "--template", "UPOMINKA.DOTX"], "; did you mean upominka.dotx?\n"),
            ([*WORD, "--template", "./upominka.dot"], f"{here}/upominka.dot; did you mean upominka.dotx?\n"),
            ([*WORD, "--template", "folder.dotx"], f"75 - The template is a folder: {here}/folder.dotx\n"),
            ([*WORD, "--template", "empty.dotx"], f"{here}/empty.dotx is not an Office document"),
            ([*WORD, "--template", "text.docx"], f"{here}/text.docx is not an Office document"),
            ([*WORD, "--template", "picture.dotx"], f"{here}/picture.dotx is not an Office document"),
            ([*WORD, "--template", "half.docx"], f"{here}/half.docx is not an Office document: it is no ZIP package, or its end is missing"),
            ([*WORD, "--template", "book.docx"], f"{here}/book.docx is not an Office document: its main part is no Word document"),
            ([*LABELS, "empty.xltx"], f"{here}/empty.xltx is not an Office document"),
            ([*LABELS, "letter.xlsx"], f"{here}/letter.xlsx is not an Office document: its main part is no Excel workbook"),
            ([*LABELS, "cenovyk.xltx"], "; did you mean cenovky.xltx?\n"),
            ([*CENIK, "--data-file", "folder"], f"75 - Path/File access error: {here}/folder\n"),
            ([*PREPARED, "shrot.txt"], f"53 - File not found: {here}/shrot.txt; did you mean short.txt?\n"),
            ([*PREPARED, "folder"], f"75 - A folder, not a file: {here}/folder\n"),
            ([*PREPARED, "empty.txt"], "Nebyly nalezeny žádné záznamy !\n"),
            ([*PREPARED, "short.txt"], f"9 - Record 2 has 2 values for 3 columns: {here}/short.txt\n"),
            (["excel-template-file", "--headers", "h.txt", "--data", "short.txt", "--template", "cenovky.xltx", "-o", "x.xlsx"],
             f"9 - Record 2 has 2 values for 3 columns: {here}/short.txt\n"),
            ([*MERGE, "shrot.txt"], f"5174 - The data source {here}/shrot.txt could not be found; did you mean short.txt?\n"),
            ([*MERGE, "folder"], f"75 - Path/File access error: {here}/folder\n"),
            ([*MERGE, "empty.txt"], f"5 - The data source {here}/empty.txt has no header line.\n"),
            ([*MERGE, "m.txt"], f"5631 - The data source {here}/m.txt holds no record that could be merged.\n"),
            (["merge", "--multi", "-o", "folder/", "--template", "cenik.docx", "--data-file", "m.txt"], "3021 - There is no record"),
            (["fields", "upomnka.dotx"], "; did you mean upominka.dotx?\n"),
            (["fields", "folder"], f"75 - The template is a folder: {here}/folder\n"),
            (["fields", "empty.xml"], f"5 - No template in spreadsheet XML: {here}/empty.xml\n"),
            ([*FILL, "empty.xml", "faktura.json"], "5 - No template in spreadsheet XML: empty.xml\n"),
            ([*FILL, "fakutra.xml", "faktura.json"], f"53 - File not found: {here}/fakutra.xml"),
            ([*FILL, "faktura.xml", "none.json"], "53 - The file cannot be opened: none.json\n"),
            (["open", "cenk.docx"], f"53 - File not found: {here}/cenk.docx; did you mean cenik.docx?\n"),
            (["alternative", "open", "none.ods", "--table"], f"53 - File not found: {here}/none.ods\n"),
            (["pdf", "cenk.docx", "x.pdf"], f"5174 - The file {here}/cenk.docx could not be found; did you mean cenik.docx?\n"),
            (["pdf", "folder.dotx", "x.pdf"], f"75 - Path/File access error: {here}/folder.dotx\n"),
            (["pdf", "half.docx", "x.pdf"], f"{here}/half.docx is not an Office document"),
            (["registry", "import", "h.txt"], "75 - h.txt, line 1: this is no registry file"),
            (["registry", "export", "folder"], f"75 - Path/File access error: {here}/folder\n"),
            (["--config", "folder", "text", "1"], "75 - Path/File access error: folder\n"),
            (["--home", "sklad.db", "templates", "show", "--application", "A"], "sklad.db/HKLM.reg"),
            (["barcode", CODE, "--value", "A", "--svg", "none/x.svg"], f"76 - Path not found: {here}/none\n"),
        ], status=1)
        shown = self.output("fields", "mezera a 'uvozovka' č.dotx")
        self.assertIn("field\tcelkem\t2\n", shown)

    def test_no_permission(self):
        if os.geteuid() == 0:  # root may do everything; somebody else is asked
            become = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"]
        else:
            become = []
        self.folder.chmod(0o755)
        secret = self.folder / "secret.db"
        secret.write_bytes(self.database.read_bytes())
        (self.folder / "sklad.db").chmod(0o644)
        secret.chmod(0)
        (self.folder / "locked").chmod(0o555)
        home = self.folder / "nobody"
        home.mkdir()
        home.chmod(0o777)
        for arguments, told in [
            ([*HTML[:2], "--db", "secret.db", "--select", "SELECT 1", "-o", "nobody/x.htm"], "unable to open database file: secret.db"),
            (["html", *QUERY, "-o", "locked/x.htm"], f"70 - Permission denied: {self.folder}/locked"),
            (["--home", "locked/home", "templates", "supply", "--application", "A"], "locked/home"),
        ]:
            environment = self.environment(HOME=str(home), TMPDIR=str(home))
            done = subprocess.run([*become, PROGRAM, *arguments], cwd=self.folder, env=environment, capture_output=True, timeout=60)
            self.assertEqual((done.returncode, done.stdout), (1, b""), (arguments, done.stderr.decode()))
            self.assertIn(told, done.stderr.decode())
        secret.chmod(0o600)
        secret.unlink()

    def test_columns(self):
        columns = "Its columns are kod, nazev, cena, pocet\n"
        self.table([
            ([*SKLAD, "--select", "SELECT cana FROM zbozi"], "3146 - no such column: cana\n"),
            ([*SKLAD, "--select", "SELECT cena FROM zbzi"], "3146 - no such table: zbzi\n"),
            ([*SKLAD, "--select", "SELEC 1"], '3146 - near "SELEC": syntax error\n'),
            ([*SKLAD, "--select", "SELECT 1; SELECT 2"], "3146 - more than one statement\n"),
            ([*SKLAD, "--select", "SELECT ? AS a"], "3061 - Too few parameters. Expected 1.\n"),
            (["html", *QUERY, "--multiplier", "pocett"], '3265 - --multiplier: The query has no column "pocett"; did you mean pocet? ', columns),
            (["html", *QUERY, "--multiplier", "kod"], '13 - The multiplier "kod": '),
            (["excel", *QUERY, "--multiplier", "x"], 'no column "x"; its columns are kod, nazev, cena, pocet\n'),
            (["html", *QUERY, "--type", "cna=date"], 'no column "cna"; did you mean cena? ', columns),
            ([*CENIK, "--names", "{Code39;kdo,trim;bk;0}"], '--names: The query has no column "kdo"; did you mean kod? '),
            ([*CENIK, "--format", "", "--format", "", "--format", "", "--format", "", "--format", "0"],
             "9 - --format asks for column 5; the query has 4\n"),
            (["word", *QUERY, "--template", "cenik.docx", "--multi", "-o", "folder/", "--name", "{nazve}"],
             '--name: The query has no column "nazve"; did you mean nazev? '),
            ([*FORM, "--one-char", "50"], "9 - --one-char asks for column 50; the query has 12\n"),
            ([*FORM, "--barcode", "Code39;neni,trim;psc;0"], '--barcode: The query has no column "neni"; its columns are cislo, '),
            ([*FORM, "--barcode", "Code39;cislo,trim;neni;0"], '--barcode: The query has no column "neni"; its columns are cislo, '),
            (["barcode", CODE, "--db", "sklad.db", "--select", "SELECT nazev AS kodd FROM zbozi"],
             'The query has no column "kod"; did you mean kodd? Its columns are kodd\n'),
            (["names", "x"], '5 - Names are read from SELECT ... FROM ..., not from "x"\n'),
            (["barcode", CODE, "--value", "ab"], '5 - Code39 cannot carry "ab"\n'),
        ], status=1)
        for arguments, warning in [
            ([*SKLAD, "--select", "SELECT 1 AS a, 2 AS b", "--names", "x"], "There is 1 column name for 2 columns.\n"),
            ([*SKLAD, "--select", "SELECT 1 AS a, 2 AS b", "--names", "x;y;z"], "There are 3 column names for 2 columns.\n"),
            (["excel", *QUERY, "-o", "x.xlsx", "--multiplier", "kod"], 'The multiplier "kod" is no whole number in the first record'),
            (["word", "--db", "sklad.db", "--select", "SELECT kod, 'x' AS KOD, nazev, cena FROM zbozi LIMIT 1", "--template", "cenik.docx",
              "-o", "x.docx"], "There are 2 columns called kod; the first one is taken.\n"),
        ]:
            self.assertIn(f"zorkanca: warning: {warning}", self.run_program(*arguments)[1], arguments)
        for name in ("x.htm", "x.xlsx", "x.docx"):
            (self.folder / name).unlink()

    def test_encodings(self):
        here = self.folder
        self.table([
            ([*PREPARED, "d16.txt"], f"13 - The file holds NUL characters: no text, or UTF-16, which --encoding utf-16 reads: {here}/d16.txt\n"),
            ([*PREPARED, "d16be.txt"], f"most significant byte first, which is not read: {here}/d16be.txt\n"),
            ([*PREPARED, "sklad.db"], f"13 - The file holds NUL characters: no text, or UTF-16, which --encoding utf-16 reads: {here}/sklad.db\n"),
            ([*PREPARED, "d.txt", "--encoding", "utf-8"], f"13 - The file is read as UTF-8, and is none; --encoding ansi reads it by the ANSI page: {here}/d.txt\n"),
            ([*PREPARED, "d.txt", "--encoding", "utf-16"], "13 - The file is read as UTF-16, and is none: "),
            ([*PREPARED, "d16.txt", "--encoding", "ansi"], "13 - The file holds NUL characters"),
            (["word-file", "--template", "cenik.docx", "-o", "x.docx", "--headers", "cenik.docx", "--data", "d.txt"],
             f"13 - The file holds NUL characters: no text, or UTF-16, which --encoding utf-16 reads: {here}/cenik.docx"),
            ([*MERGE, "d.txt", "--encoding", "utf-8"], f"13 - The file is read as UTF-8, and is none; --encoding ansi reads it by the ANSI page: {here}/d.txt\n"),
            ([*MERGE, "sklad.db"], f"5 - The data source {here}/sklad.db is no text file.\n"),
            ([*SKLAD, "--sql-file", "16.sql"], "13 - A statement is UTF-8; this is UTF-16: 16.sql\n"),
            ([*SKLAD, "--sql-file", "1250.sql"], "13 - A statement is UTF-8; this is none: 1250.sql\n"),
            ([*SKLAD, "--sql-file", "nul.sql"], "13 - A statement is a text; this holds NUL characters: nul.sql\n"),
        ], status=1)
        self.assertIn("but it looks like UTF-8; --encoding utf-8 reads it so", self.run_program(*PREPARED, "d8.txt")[1])
        (self.folder / "x.docx").unlink()

    def test_options(self):
        self.table([
            (["html", "--db", "", "--select", "SELECT 1"], "zorkanca: --db needs a value, not ''\n"),
            (["html", *QUERY, "-o", ""], "zorkanca: -o needs a value, not ''\n"),
            (["html", *QUERY, "--border", ""], "zorkanca: --border needs a value, not ''\n"),
            (["html", *QUERY, "--border=wide"], "zorkanca: --border: no such number: wide\n"),
            (["html", *QUERY, "--step", "-5"], "zorkanca: --step: is above 0, not -5\n"),
            (["html", *QUERY, "--step", "nan"], "zorkanca: --step: is above 0, not nan\n"),
            (["html", *QUERY, "--blank-records", "-1"], "zorkanca: --blank-records: "),
            (["--home", "", "log"], "zorkanca: --home needs a value, not ''\n"),
            (["--locale", "", "text", "1"], "zorkanca: --locale needs a value, not ''\n"),
            (["--locale", "cs_CZ", "text", "1"], "no data for the locale cs_CZ; did you mean cs-CZ? Known are cs-CZ sk-SK en-US de-DE\n"),
            (["templates", "show", "--application", ""], "zorkanca: --application needs a value, not ''\n"),
            (["pdf", "", "x.pdf"], "zorkanca: SOURCE needs a value, not ''\n"),
            (["pdf", "cenik.docx", ""], "zorkanca: SOURCE needs a value, not ''\n"),
            (["fields", ""], "zorkanca: TEMPLATE needs a value, not ''\n"),
            (["open", ""], "zorkanca: FILE needs a value, not ''\n"),
            ([""], "zorkanca: there is no command ''\n"),
            (["WORD"], "there is no command WORD; did you mean word?\n"),
            (["help", "wrod"], "there is no command wrod; did you mean word?\n"),
            (["html", *QUERY, "--template", "x"], "html has no option --template; it is an option of word, word-file, form, merge, ...\n"),
            (["excel", *QUERY, "--multi"], "excel has no option --multi; it is an option of word, word-file, merge\n"),
            (["excel", *QUERY, "--mutli"], "excel has no option --mutli"),
            (["html", *QUERY, "--select", "x"], "zorkanca: --select may be given only once\n"),
            (["html", "--sql-file", "empty.sql", *QUERY], "--select excludes --sql-file\n"),
            ([*SKLAD, "--sql-file", "empty.sql"], "the file holds no statement: empty.sql\n"),
            (["html", *QUERY, "--type", "cena=dat"], "date or text, not cena=dat; did you mean date?\n"),
            (["html", *QUERY, "--type", "cena=date", "--type", "CENA=text"], "zorkanca: --type settles CENA twice\n"),
            (["number", "0", "1", "--type", "flaot"], "zorkanca: --type takes double, single, "),
            (["number", "0", "1", "--type", "doubel"], ", date or text, not doubel; did you mean double?\n"),
            (["completion", "csh"], "zorkanca: SHELL takes bash, zsh or fish, not csh; did you mean zsh?\n"),
            ([*PREPARED, "d.txt", "--encoding", "utf8"], "zorkanca: --encoding takes ansi, utf-8 or utf-16, not utf8; did you mean utf-8?\n"),
            (["alternative", "get", "TableEditorPath"], "no such setting: TableEditorPath; did you mean TableEditorAppPath? Known are "),
            (["barcode", "code39;a,trim;b;0", "--value", "A"], "there is no symbology code39; did you mean Code39? There are Code39 "),
            ([*FORM, "--barcode", "QR;cislo,trim;psc;0"], "there is no symbology QR; there are Code39 "),
            ([*CENIK, "--names", "{Code39}"], "a bar code is symbology;items;output column;check flag, not Code39\n"),
            ([*FORM, "--left2", "3"], "zorkanca: --left2 needs --left\n"),
            ([*FORM, "--left", "-3"], "zorkanca: --left: takes centimetres from 0 to 55.8, not -3\n"),
            (WORD, "zorkanca: --template is required, or --application for its lists\n"),
            ([*WORD, "--template", "[Dopisy]"], "zorkanca: [Dopisy] is a list of an application: --application is required\n"),
            ([*FILL, "faktura.xml", "empty.json"], "zorkanca: empty.json: steps: parse error at line 1"),
            ([*FILL, "faktura.xml", "name.json"], 'name.json: step 1: unknown operation "AddWorksheeet"; did you mean AddWorksheet?\n'),
            (["--config", "bad.toml", "text", "1"], "bad.toml:1: a value is expected"),
            (["word", *QUERY, "--template", "cenik.docx", "-o", "cenik.docx"], "the result would take the place of cenik.docx; -o names another file\n"),
            (["word", *QUERY, "--template", "cenik.docx", "--no-open"], "the result would take the place of cenik.docx; -o names another file\n"),
            (["excel", *QUERY, "-o", "x.xlsx", "--data-file", "sklad.db"], "the result would take the place of sklad.db"),
            (["fill", "faktura.xml", "faktura.json", "-o", "./faktura.xml"], "the result would take the place of faktura.xml"),
            (["excel-template", *QUERY, "--template", "cenovky.xltx", "--part", "1/2", "--multiplier", "pocet"],
             "--part and --multiplier do not go together"),
            (["pdf", "folder", "x.pdf"], f"a folder, not a document: {self.folder}/folder\n"),
            (["pdf", "faktura.json", "x.pdf"], "neither a Word document nor an Excel workbook by its name: "),
        ], status=2)
        told = self.run_program("--json", "htm", status=2)[0]
        self.assertIn('"description": "there is no command htm; did you mean html?"', told)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""The export into HTML, interruptions."""
import pathlib
import signal
import subprocess
import time

from command_line import PROGRAM, CommandLineCase, main

TITLE = "Export dat do formátu HTML: "
UNEXPECTED = TITLE + "Neočekávaná chyba: \n"


class HtmlTest(CommandLineCase):
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
            ("SELECT FROM t", "odd.db", "kept.htm", access + "zorkanca: cause: 3146 - near \"FROM\": syntax error\n"),
            (("SELECT FROM t", "--names", "select"), "odd.db", "kept.htm", TITLE + "Chyba při sestavování hlavičky souboru !\n"),
            ("SELECT b FROM t", "odd.db", "new.htm", UNEXPECTED + "13 - Type mismatch.\n"),
            ("SELECT c FROM t", "odd.db", "new.htm", UNEXPECTED + "13 - Type mismatch"),
            ("SELECT d FROM t", "odd.db", "new.htm", UNEXPECTED + "13 - Type mismatch"),
            ("SELECT a FROM t", "odd.db", "none/new.htm", f"zorkanca: 76 - Path not found: {self.folder}/none\n"),
        ]:
            kept.write_text("old")
            before = set(self.folder.iterdir())
            select, *more = (select,) if isinstance(select, str) else select
            stdout, stderr = self.html(select, *more, "-o", output, database=database, status=1)
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

    def test_a_statement_typed_on_a_terminal_ends_with_one_key(self):
        shown = self.on_terminal("html", "--db", "sklad.db", "--select", "-", "--no-open", "-o", "typed.htm",
                                 typed="SELECT 7 AS n\n\x04")
        self.assertIn(f"{self.folder}/typed.htm\r\n", shown)
        self.assertIn(">7</TD>", (self.folder / "typed.htm").read_text())

    def test_interruption_while_input_is_waited_for(self):
        with subprocess.Popen([PROGRAM, "html", "--db", "sklad.db", "--select", "-", "-o", "cut.htm"], cwd=self.folder,
                              env=self.environment(), stdin=subprocess.PIPE) as process:
            time.sleep(0.3)
            process.send_signal(signal.SIGINT)
            self.assertEqual(process.wait(timeout=5), 130)


if __name__ == "__main__":
    main()

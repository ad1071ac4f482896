#!/usr/bin/env python3
"""Other databases by their drivers: servers that the tests start themselves, and everything that can go wrong with one."""
import datetime
import json
import os
import pathlib
import pty
import re
import signal
import subprocess
import sys
import time
import unittest
import zipfile

import access_file
from command_line import PROGRAM, SAMPLE, CommandLineCase, main
from servers import Server

TITLE = "Export dat do formátu HTML: "
NO_ACCESS = TITLE + "Chyba při přístupu k datům !\n"


class OdbcTest(CommandLineCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.servers = {}
        cls.missing = {}
        for kind in ("postgres", "mariadb"):
            try:
                cls.servers[kind] = Server(kind)
                cls.servers[kind].copy(cls.database)
            except LookupError as reason:
                cls.missing[kind] = str(reason)
                print(f"SKIPPED with {kind}: {reason}", file=sys.stderr)

    @classmethod
    def tearDownClass(cls):
        for server in cls.servers.values():
            server.stop()
        super().tearDownClass()

    def server(self, kind):
        if kind not in self.servers:
            self.skipTest(self.missing[kind])
        return self.servers[kind]

    def each_server(self):
        if not self.servers:
            self.skipTest("; ".join(self.missing.values()))
        return self.servers.values()

    def page(self, server, select, *more, status=0, **changes):
        changes.setdefault("ZORKANCA_DB_PASSWORD", server.password)
        return self.html(select, "-o", "page.htm", *more, database=server.string, status=status, **changes)

    @staticmethod
    def contents(path):
        """A file's bytes; of a package the bytes of its parts."""
        if path.suffix not in (".docx", ".xlsx"):
            return path.read_bytes()
        with zipfile.ZipFile(path) as package:
            return {name: package.read(name) for name in package.namelist()}

    def test_the_same_database_gives_the_same_bytes(self):
        template = SAMPLE.parent / "faktura.dotx"
        orders = [
            ["html", "--select", "SELECT * FROM zbozi ORDER BY kod", "-o", "out.htm"],
            ["html", "--select", "SELECT * FROM odberatele ORDER BY cislo", "--unicode", "-o", "out.htm"],
            ["html", "--select", "SELECT * FROM faktury ORDER BY cislo", "-o", "out.htm"],
            ["excel", "--select", "SELECT * FROM zbozi ORDER BY kod", "-o", "out.xlsx"],
            ["excel", "--select", "SELECT * FROM polozky ORDER BY faktura, radek", "-o", "out.xlsx"],
            ["word", "--template", template, "--select", "SELECT * FROM faktury ORDER BY cislo", "-o", "out.docx"],
            ["barcode", "Code39;kod,trim;OUT;0", "--select", "SELECT kod FROM zbozi ORDER BY kod"],
        ]
        for order in orders:
            if order[0] == "word" and not template.exists():
                order[order.index(template)] = next(SAMPLE.parent.glob("*.dotx"))
            results = {}
            for name, string, password in [("sqlite", "sklad.db", ""),
                                           *((s.kind, s.string, s.password) for s in self.each_server())]:
                more = [] if order[0] == "barcode" else ["--no-open"]
                stdout, _ = self.run_program(*order, "--db", string, *more, ZORKANCA_DB_PASSWORD=password)
                made = self.folder / order[-1]
                results[name] = self.contents(made) if order[-2] == "-o" else stdout
            for name, result in results.items():
                self.assertEqual(result, results["sqlite"], (name, order))

    def test_where_the_password_comes_from(self):
        server = self.server("postgres")
        secret = self.folder / "secret"
        secret.write_text(server.password + "\nsecond line\n")
        secret.chmod(0o644)
        stderr = self.page(server, "SELECT 1 AS a", "--db-password-file", secret, status=1, ZORKANCA_DB_PASSWORD="")[1]
        self.assertIn(f"Others may read the file of the password; \"chmod 600\" makes it yours alone: {secret}", stderr)
        secret.chmod(0o600)
        self.page(server, "SELECT 1 AS a", "--db-password-file", secret, ZORKANCA_DB_PASSWORD="wrong")
        self.page(server, "SELECT 1 AS a", "--db-password-file", self.folder / "none", status=1)

        braced = server.string + ";PWD={" + server.password.replace("}", "}}") + "}"
        _, stderr = self.html("SELECT 1 AS a", "-o", "page.htm", database=braced)
        self.assertEqual(stderr, "zorkanca: warning: the password in --db shows in the list of processes; --db-password-file "
                                 "and $ZORKANCA_DB_PASSWORD do not\n")
        stdout, stderr = self.run_program("word", "--check", "--db", braced, "--select", "SELECT 1 AS a", "--template",
                                          next(SAMPLE.parent.glob("*.dotx")), "-o", "x.docx")
        self.assertIn("ok: the database ODBC;DRIVER={PostgreSQL Unicode}", stdout)

        for password in ("wrong", ""):
            stderr = self.page(server, "SELECT 1 AS a", status=1, ZORKANCA_DB_PASSWORD=password)[1]
            self.assertTrue(stderr.startswith(NO_ACCESS + "zorkanca: cause: 3151 - 08001 (101) "), stderr)
            self.assertEqual("(no password was given: --db-password-file, $ZORKANCA_DB_PASSWORD)" in stderr, password == "")

    def asked(self, server, typed):
        """Runs with a terminal of its own; returns the status and what the terminal showed."""
        pid, master = pty.fork()
        if pid == 0:
            os.chdir(self.folder)
            os.execve(PROGRAM, [str(PROGRAM), "html", "--db", server.string, "--select", "SELECT 1 AS a", "-o", "asked.htm",
                                "--no-open"], self.environment())
        shown = b""
        while b": " not in shown:
            shown += os.read(master, 1024)
        os.write(master, typed)
        try:
            while chunk := os.read(master, 1024):
                shown += chunk
        except OSError:
            pass  # the terminal is gone once the program has ended
        os.close(master)
        return os.waitstatus_to_exitcode(os.waitpid(pid, 0)[1]), shown.decode()

    def test_a_person_is_asked_without_echo(self):
        for server in self.each_server():
            for typed, status in [(server.password, 0), ("wrong", 1)]:
                found, shown = self.asked(server, typed.encode() + b"\n")
                self.assertEqual(found, status, shown)
                self.assertIn("Password of zk: ", shown)
                self.assertNotIn(typed, shown)
            self.assertEqual(self.asked(server, b"\x03")[0], 130)

    def test_the_password_is_nowhere(self):
        for server in self.each_server():
            wrong = "prozradzene"
            for select in ("SELECT 1 AS a", "SELECT neni"):
                for before in ([], ["--json"], ["--events"]):
                    stdout, stderr = self.page(server, select, status=1, before=before, ZORKANCA_DB_PASSWORD=wrong)
                    self.assertNotIn(wrong, stdout + stderr)
        log, _ = self.run_program("log")
        self.assertNotIn(wrong, log)
        # nor among the arguments of the running program
        server = self.server("postgres")
        with subprocess.Popen([PROGRAM, "html", "--db", server.string, "--select", "SELECT pg_sleep(1)", "-o", "slow.htm",
                               "--no-open"], cwd=self.folder, stdout=subprocess.DEVNULL,
                              env=self.environment(ZORKANCA_DB_PASSWORD=server.password)) as it:
            time.sleep(0.5)
            self.assertNotIn(server.password.encode(), pathlib.Path(f"/proc/{it.pid}/cmdline").read_bytes())

    def test_causes_that_a_user_can_act_on(self):
        postgres = self.server("postgres")
        postgres.execute("CREATE TABLE tajna (n integer); REVOKE ALL ON tajna FROM PUBLIC; CREATE USER host PASSWORD 'h';"
                         "CREATE DATABASE stara ENCODING SQL_ASCII LOCALE 'C' TEMPLATE template0;")
        away = "ODBC;DRIVER=PostgreSQL Unicode;SERVER=/tmp/neni;UID=x;"
        guest = postgres.string.replace("UID=zk", "UID=host")
        latin = postgres.string.replace("DATABASE=sklad", "DATABASE=stara")
        rows = [
            (away, "SELECT 1", "3151 - 08001 (101) connection to server on socket \"/tmp/neni/.s.PGSQL.5432\" failed"),
            ("ODBC;DRIVER=Neni;UID=x", "SELECT 1", "Can't open lib 'Neni' : file not found (\"zorkanca doctor\" lists"),
            ("ODBC;DSN=neni", "SELECT 1", "3151 - IM002 (0) "),
            (guest, "SELECT * FROM tajna", "3146 - 42501 (1) ERROR: permission denied for table tajna"),
            (latin, "SELECT convert_from('\\x9e6c7574', 'SQL_ASCII') AS zlut",
             "3146 - 22021 (1) ERROR: invalid byte sequence for encoding \"UTF8\": 0x9e"),
            (postgres.string, "SELECT neni", "3146 - 42703 (1) ERROR: column \"neni\" does not exist"),
            (postgres.string, "SELECT 1 / (cislo - cislo) AS a FROM odberatele", "3146 - 22012 (1) ERROR: division by zero"),
            (postgres.string, "SELECT 2147483647 + cislo AS a FROM odberatele", "3146 - 22003 (1) ERROR: integer out of range"),
            (postgres.string, "DELETE FROM zbozi", "3146 - the statement would change the database: DELETE"),
            (postgres.string, "SELECT 1; SELECT 2", "3146 - more than one statement"),
            (postgres.string, "SELECT cislo FROM odberatele WHERE cislo = :x", "3061 - Too few parameters. Expected 1."),
        ]
        if "mariadb" in self.servers:
            maria = self.servers["mariadb"].string
            rows += [
                (maria, "SELECT neni", "3146 - 42S22 (1054) "),
                (maria, "SELECT 1 INTO OUTFILE '/tmp/zk-never'", "3146 - the statement would change the database: INTO"),
                (maria, "SET GLOBAL max_connections = 5", "3146 - the statement is no query: SET"),
            ]
        for string, select, cause in rows:
            password = "h" if string == guest else postgres.password
            _, stderr = self.html(select, "-o", "never.htm", database=string, status=1, ZORKANCA_DB_PASSWORD=password)
            self.assertIn(cause, stderr, select)
            self.assertFalse((self.folder / "never.htm").exists(), select)
        self.assertFalse(pathlib.Path("/tmp/zk-never").exists())
        stderr = self.html("SELECT 1", "-o", "never.htm", database="ODBC;tajneheslo", status=2)[1]
        self.assertIn("--db: the connection string is written KEY=VALUE;KEY=VALUE", stderr)
        self.assertNotIn("tajneheslo", stderr)
        told = json.loads(self.page(postgres, "SELECT neni", status=1, before=["--json"])[0])
        self.assertEqual((told["error"]["number"], told["error"]["source"]), (3146, "ODBC"))

    def test_without_unixodbc_everything_else_runs(self):
        # A folder of libraries that comes first, with a library of that name that is none.
        broken = self.folder / "broken"
        broken.mkdir()
        (broken / "libodbc.so.2").write_bytes(b"")  # the loader passes over nothing that has the name
        _, stderr = self.html("SELECT 1", "-o", "never.htm", database="ODBC;DSN=x", status=1, LD_LIBRARY_PATH=str(broken))
        self.assertIn("ODBC connections need unixODBC and a driver; on Debian: apt install unixodbc", stderr)
        self.html("SELECT kod FROM zbozi", "-o", "page.htm", LD_LIBRARY_PATH=str(broken))
        (broken / "soffice").write_text("#!/bin/sh\nexit 1\n")  # it takes its time, and it is not meant here
        (broken / "soffice").chmod(0o755)
        doctor = self.output("doctor", LD_LIBRARY_PATH=str(broken), PATH=f"{broken}:{os.environ['PATH']}", status=1)
        self.assertIn("odbc\tmissing\tODBC connections need unixODBC", doctor)

    LONG = "SELECT a.n, b.n AS m FROM generate_series(1, 30000) a(n), generate_series(1, 1000) b(n)"

    def start(self, server, select):
        return subprocess.Popen([PROGRAM, "--quiet", "html", "--db", server.string, "--select", select, "-o", "cut.htm", "--step",
                                 "50", "--no-open"], cwd=self.folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                # a driver that does not answer is left behind, with all that it holds
                                env=self.environment(ZORKANCA_DB_PASSWORD=server.password, ASAN_OPTIONS="detect_leaks=0"))

    def ended(self, process):
        stdout, stderr = process.communicate(timeout=30)
        self.assertEqual([path for path in self.folder.iterdir() if "cut" in path.name], [])
        return process.returncode, stdout.decode() + stderr.decode()

    def interrupt(self, process):
        process.send_signal(signal.SIGINT)
        asked = time.monotonic()
        status, shown = self.ended(process)
        self.assertLess(time.monotonic() - asked, 1, shown)
        self.assertEqual((status, shown), (130, TITLE + "Výstup byl přerušen uživatelem !\n"))

    def test_interruption_also_of_a_silent_server(self):
        server = self.server("postgres")
        for select in ("SELECT pg_sleep(30)", self.LONG):
            process = self.start(server, select)
            time.sleep(1)
            self.interrupt(process)
        process = self.start(server, self.LONG)
        time.sleep(1)
        silent = server.children()
        self.assertTrue(silent)
        for pid in [*silent, server.process()]:
            os.kill(pid, signal.SIGSTOP)
        try:
            time.sleep(0.5)
            self.interrupt(process)
            process = self.start(server, "SELECT 1 AS a")  # not even a connection
            time.sleep(0.5)
            self.interrupt(process)
        finally:
            for pid in [*silent, server.process()]:
                os.kill(pid, signal.SIGCONT)

    def test_a_server_that_goes_away_in_the_middle(self):
        server = self.server("postgres")
        process = self.start(server, self.LONG)
        time.sleep(1)
        for pid in server.children():
            os.kill(pid, signal.SIGTERM)
        status, shown = self.ended(process)
        self.assertEqual(status, 1, shown)
        self.assertRegex(shown, r"3146 - (57P01|08S01|08003|HY000) ")

    @unittest.skipIf("ZORKANCA_SANITIZED" in os.environ, "the sanitizer keeps what was given back")
    def test_nothing_of_a_long_result_is_kept(self):
        for server in self.each_server():
            select = "SELECT repeat('x', 20) AS a, n.n, m.n AS m FROM cisla n, cisla m"
            server.execute("CREATE TABLE cisla (n integer); INSERT INTO cisla SELECT " +
                           ("n FROM generate_series(1, 700) AS s(n)" if server.kind == "postgres" else
                            "seq FROM seq_1_to_700") + ";")
            code = ("import resource, subprocess, sys; subprocess.run(sys.argv[1:], check=True); "
                    "print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)")
            done = subprocess.run([sys.executable, "-c", code, PROGRAM, "--quiet", "html", "--db", server.string, "--select",
                                   select, "-o", "long.htm", "--no-open"], cwd=self.folder, capture_output=True, check=True,
                                  env=self.environment(ZORKANCA_DB_PASSWORD=server.password))
            self.assertLess(int(done.stdout.split()[-1]), 48 * 1024, server.kind)
            with open(self.folder / "long.htm", "rb") as page:
                self.assertEqual(sum(len(re.findall(rb"<TR", line, re.I)) for line in page), 700 * 700 + 1)

    def test_an_access_file(self):
        if subprocess.run(["odbcinst", "-q", "-d", "-n", "MDBTools"], capture_output=True).returncode != 0:
            self.skipTest("odbc-mdbtools is not installed")
        columns = [("kod", access_file.TEXT), ("pocet", access_file.LONG), ("cena", access_file.MONEY),
                   ("vaha", access_file.DOUBLE), ("den", access_file.DATE), ("ano", access_file.BOOLEAN),
                   ("popis", access_file.MEMO)]
        rows = [["A1", 7, 12.5, 0.25, datetime.datetime(2026, 3, 1, 18), True, "Žluťoučký kůň"],
                ["B2", None, None, None, None, False, None]]
        rows += [[f"C{number}", number, 1, 1, datetime.datetime(2026, 1, 1), True, "x"] for number in range(20)]
        access_file.write(self.folder / "stary.mdb", "zbozi", columns, rows)
        database = f"ODBC;DRIVER=MDBTools;DBQ={self.folder}/stary.mdb"
        stderr = self.html("SELECT * FROM zbozi", "-o", "mdb.htm", database=database, before=["--events"])[1]
        page = (self.folder / "mdb.htm").read_text(encoding="cp1250")
        found = [re.findall(r"<TD[^>]*>(.*?)</TD>", row) for row in page.split("<TR")][2:]
        self.assertEqual(found[0], ["A1", "7", "12,50", "0,25", "1.3.2026 18:00:00", "Pravda", "Žluťoučký kůň"])
        self.assertEqual(found[1], ["B2", "&nbsp;", "&nbsp;", "&nbsp;", "&nbsp;", "Nepravda", "&nbsp;"])
        self.assertEqual(len(found), len(rows))
        self.assertNotIn("PercentDone", stderr)  # others may write meanwhile: the number of records is not sure
        self.html("DELETE FROM zbozi", "-o", "never.htm", database=database, status=1)

    def test_shares_of_the_records(self):
        server = self.server("postgres")
        whole = []
        for k in (1, 2, 3):
            self.page(server, "SELECT kod FROM zbozi ORDER BY kod", "--part", f"{k}/3", "--names", "kod")
            whole += re.findall(r">([A-Z0-9]{3,6})<", (self.folder / "page.htm").read_text(encoding="cp1250"))[0:]
        self.page(server, "SELECT kod FROM zbozi ORDER BY kod", "--names", "kod")
        self.assertEqual(sorted(set(whole)), sorted(set(re.findall(r">([A-Z0-9]{3,6})<",
                                                                    (self.folder / "page.htm").read_text(encoding="cp1250")))))


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Exports into Excel."""
import signal
import sqlite3
import subprocess
import time

from command_line import PROGRAM, SAMPLE, CommandLineCase, main


class ExcelTest(CommandLineCase):
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

    def test_interruption_ends_every_phase_soon(self):
        select = "WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c LIMIT 200000) SELECT i AS n, 'text' AS t FROM c"
        command = [PROGRAM, "--progress=always", "excel", "--db", "sklad.db", "--select", select, "--names", "n;t", "--step", "50",
                   "-o", "cut.xlsx", "--no-open"]
        for phase in (b"importing", b"fitting columns", b"saving"):
            process = subprocess.Popen(command, cwd=self.folder, env=self.environment(), stdout=subprocess.PIPE,
                                       stderr=subprocess.PIPE)
            shown = b""
            while phase not in shown:
                piece = process.stderr.read1(4096)
                self.assertTrue(piece, shown.decode())
                shown += piece
            process.send_signal(signal.SIGINT)
            asked = time.monotonic()
            stdout, _ = process.communicate(timeout=10)
            self.assertLess(time.monotonic() - asked, 1)
            self.assertEqual((process.returncode, stdout), (130, b""), phase)
            self.assertFalse((self.folder / "cut.xlsx").exists())

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


if __name__ == "__main__":
    main()

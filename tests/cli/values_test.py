#!/usr/bin/env python3
"""Single values, and arguments that make no sense."""
from command_line import CommandLineCase, main


class ValuesTest(CommandLineCase):
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

    def test_bar_codes_that_cannot_be(self):
        goods = ["--db", "sklad.db", "--select", "SELECT kod, nazev, NULL AS nic FROM zbozi ORDER BY kod LIMIT 2"]
        known = "Code39 Code128B Code_128B_TTF Code_128B_TTF() Code128C Code_128C_TTF"
        for arguments, status, message in [
            (["EAN13;a,trim;o;0", "--value", "1"], 2, f"there is no symbology EAN13; there are {known}"),
            (["code39;a,trim;o;0", "--value", "1"], 2, "did you mean Code39?"),
            (["QR;a,trim;o;0", *goods], 2, known),
            (["Code39", "--value", "1"], 2, "symbology;items;output column;check flag"),
            (["Code39;a;o;0", "--value", "A"], 2, "PARAM has no place for the value"),
            (["Code39;kod,trim;o;0"], 2, "barcode needs --value, or --db"),
            (["Code39;kod,trim;o;0", "--db", "sklad.db"], 2, "--select or --sql-file is required"),
            (["Code39;a,trim;o;0", "--value", "abc"], 1, 'Code39 cannot carry "abc"'),
            (["Code128C;a,trim;o;0", "--value", "12a"], 1, 'Code128C cannot carry "12a"'),
            (["Code128B;a,trim;o;0", "--value", "漢"], 1, 'Code128B cannot carry "漢"'),
            (["Code39;nazev,trim;o;0", *goods], 1, 'record 1: Code39 cannot carry "Kladivo'),
            (["Code39;neni,trim;o;0", *goods], 1, 'The query has no column "neni"'),
        ]:
            stdout, stderr = self.run_program("barcode", *arguments, status=status)
            self.assertEqual(stdout, "")
            self.assertIn(message, stderr, arguments)
        self.assertEqual(self.output("barcode", "Code128B;nic,trim;o;0", *goods), "\n\n", "nothing to carry")
        self.assertEqual(self.output("barcode", "Code39;kod,trim;o;0", *goods, "--part", "2/2"), "*Z01020*\n")


if __name__ == "__main__":
    main()

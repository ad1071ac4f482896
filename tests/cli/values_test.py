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


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""What was typed: misspelt names, values that begin with "-", help, options from a file."""
import unittest

from command_line import CommandLineCase, main


class ArgumentsTest(CommandLineCase):
    def test_misspelt_names_are_told_with_the_nearest(self):
        for arguments, message in [
            (["htm"], "there is no command htm; did you mean html?"),
            (["exel-template"], "did you mean excel-template?"),
            (["wrod"], "did you mean word?"),
            (["show"], "did you mean templates show?"),
            (["xyzzy"], "there is no command xyzzy\n"),
            (["registry", "gte"], "registry has no command gte; did you mean get?"),
            (["html", "--databse", "x"], "html has no option --databse; did you mean --db?"),
            (["html", "--selct=x"], "did you mean --select?"),
            (["html", "-output", "x.htm"], "did you mean --output?"),
            (["html", "-title=x"], "did you mean --title?"),
            (["--quite", "text", "1"], "there is no option --quite; did you mean --quiet?"),
            (["text", "1", "--tpye", "text"], "did you mean --type?"),
            (["word", "--border", "1"], "word has no option --border; it is an option of html\n"),
            (["html", "--db"], "--db needs a value"),
            (["html", "--db", "--select", "x"], "--db needs a value before --select"),
            (["html", "--title", "a", "--title", "b"], "--title may be given only once"),
            (["html", "--no-open=yes"], "--no-open takes no value"),
            (["number", "0", "1", "2"], "number takes no more values: 2"),
            (["log", "today"], "log takes no value: today"),
            (["html", "--db", "a", "--select", "b", "--border", "wide"], "--border: no such number: wide"),
        ]:
            stdout, stderr = self.run_program(*arguments, status=2)
            self.assertEqual(stdout, "", arguments)
            self.assertIn("zorkanca: ", stderr)
            self.assertIn(message, stderr, arguments)
            self.assertRegex(stderr, r"'zorkanca.* --help' tells", arguments)

    def test_values_that_begin_with_a_dash(self):
        for arguments, value in [
            (["number", "0.0", "-5"], "-5,0"), (["text", "-.5"], "-0,5"), (["format", "shoda", "-1"], "U"),
            (["split", "-x;y"], "-x\ny"), (["split", "--", "--help"], "--help"), (["text", "5", "--quiet"], "5"),
            (["text", "--type", "text", "--", "--quiet"], "--quiet"), (["number", "--type=double", "0", "-3"], "-3"),
        ]:
            self.assertEqual(self.output(*arguments), value + "\n", arguments)
        self.html("SELECT 1 AS a", "--names", "a", "--title", "-x", "-o", "dash.htm")
        self.assertIn("<TITLE>-x</TITLE>", (self.folder / "dash.htm").read_text())

    def test_a_group_without_its_command_is_introduced(self):
        for arguments, example, command in [([], "zorkanca word --db", "excel-template"), (["registry"], "registry list", "export"),
                                            (["templates"], "templates add", "supply")]:
            stdout, stderr = self.run_program(*arguments, status=2)
            self.assertEqual(stdout, "")
            self.assertIn("Example:\n  zorkanca ", stderr)
            self.assertIn(example, stderr)
            self.assertIn(f"  {command} ", stderr)

    def test_options_from_a_file(self):
        def text(config, *arguments, before=(), status=0, **environment):
            (self.folder / "c.toml").write_text(config)
            shown = self.run_program("--config", "c.toml", *before, *arguments, status=status, **environment)
            return shown[status > 0].strip()

        number = ["number", "0.0", "1.5"]
        german = '# everywhere\nlocale = "en-US"  # with a point\n'
        self.assertEqual(text(german, *number), "1.5")
        self.assertEqual(text(german, *number, ZORKANCA_LOCALE="de-DE"), "1,5")
        self.assertEqual(text(german, *number, before=["--locale", "cs-CZ"], ZORKANCA_LOCALE="en-US"), "1,5")
        self.assertEqual(text("type = 'text'\n[number]\ntype = \"date\"\n", "text", "1.5"), "1.5")
        self.assertEqual(text("[number]\ntype = \"integer\"\n", *number), "2,0")
        self.assertEqual(text("no = true\nquiet = true\n", *number, before=["--yes"]), "1,5")
        self.assertEqual(text("[registry.set]\ntype = 'number'\n[html]\nborder = 0\n", *number), "1,5")
        page = text("[html]\ndb = 'sklad.db'\nselect = \"SELECT 1 AS a\"\nnames = 'a'\nno-open = true\noutput = 'c.htm'\n", "html")
        self.assertEqual(page, f"{self.folder}/c.htm")
        for config, message in [
            ("lcoale = 'en-US'", "c.toml:1: there is no option lcoale; did you mean locale?"),
            ("\n[nubmer]\ntype = 'text'", "c.toml:3: there is no command nubmer"),
            ("[number]\nborder = 1", "c.toml:2: number has no option border"),
            ("locale = en-US", "c.toml:1: a value is expected"),
            ("locale = 'en-US", "c.toml:1: a text has no end"),
            ("locale 'en-US'", "c.toml:1: = is expected after locale"),
            ("locale = 'en-US' x", "c.toml:1: nothing may follow"),
            ("quiet = 'yes'", "c.toml:1: quiet is true or false"),
            ("locale = ['en-US', 'cs-CZ']", "c.toml:1: locale takes one value"),
            ("[number\n", "c.toml:1: ] is expected"),
            ("type = 'guid'", "--type takes double, single, currency, decimal, integer, long, boolean, date or text, not guid\n"),
        ]:
            self.assertIn(message, text(config, *number, status=2), config)
        self.run_program("--config", "none.toml", *number, status=1)
        (self.folder / "xdg/zorkanca").mkdir(parents=True, exist_ok=True)
        (self.folder / "xdg/zorkanca/config.toml").write_text(german)
        self.assertEqual(self.output(*number, XDG_CONFIG_HOME=str(self.folder / "xdg")), "1.5\n")


if __name__ == "__main__":
    main()

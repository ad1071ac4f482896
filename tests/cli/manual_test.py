#!/usr/bin/env python3
"""What the program tells of itself: help of every command, man page, completion; the examples work."""
import json
import os
import re
import unittest

from command_line import CommandLineCase, main


class ManualTest(CommandLineCase):
    def commands(self, *group):
        """Every command and group as the words that name it."""
        for name in re.findall(r"(?m)^([a-z][^\t\n]*)", self.output("complete", *group, "")):
            own = [*group, name]
            yield own
            if f"Usage: zorkanca {' '.join(own)} COMMAND\n" in self.output(*own, "--help"):
                yield from self.commands(*own)

    def test_help_of_every_command(self):
        commands = list(self.commands())
        self.assertGreater(len(commands), 40)
        for command in [[], *commands]:
            text = self.output(*command, "--help")
            path = " ".join(["zorkanca", *command])
            self.assertRegex(text, r"^Examples:\n(  zorkanca .*\n      .*\n){2}\n", path)
            self.assertEqual(len(re.findall(rf"(?m)^  zorkanca (-.* )?{' '.join(command)}", text)), 2, path)
            self.assertIn(f"\nUsage: {path}", text)
            self.assertEqual(self.output("help", *command), text)
            # Whoever reads of an option reads what holds without it, too.
            options = re.findall(r"(?m)^  ((?:-\w, )?--[a-z].*(?:\n {20,}.*)*)", text)
            for option in options if command else []:
                if re.match(r"(-\w, )?--\S+ +[A-Z0-9a-z|]*[A-Z|]", option):
                    self.assertRegex(option, r"default|without|required", f"{path} {option}")

    def test_completion(self):
        self.run_program("--home", "lists", "--yes", "templates", "add", "a.dot", "--application", "A1", "--list", "Můj seznam")
        for words, expected in [
            (["ht"], ["html"]),
            (["registry", "ex"], ["export"]),
            (["html", "--sel"], ["--select"]),
            (["html", "--qui"], ["--quiet"]),
            (["--locale", "s"], ["sk-SK"]),
            (["html", "--locale=s"], ["--locale=sk-SK"]),
            (["--locale", "=", "s"], ["sk-SK"]),
            (["number", "0", "1", "--type", "c"], ["currency"]),
            (["completion", "b"], ["bash"]),
            (["help", "templates", "sh"], ["show"]),
            (["html", "--db", ""], [":files"]),
            (["--home", ""], [":folders"]),
            (["html", "--title", "-"], []),
            (["text", "--", "-"], []),
            (["--home", "lists", "templates", "show", "--application", ""], ["A1"]),
            (["--home", "lists", "templates", "show", "--application", "A1", "--list", ""], ["Můj seznam"]),
            (["--home=lists", "word", "--application=A1", "--template", "["], ["[Můj seznam]", ":files"]),
        ]:
            lines = self.output("complete", *words).splitlines()
            self.assertEqual([line.split("\t")[0] for line in lines], expected, words)
        for shell in ("bash", "zsh", "fish"):
            self.assertIn(" complete ", self.output("completion", shell))


    def test_doctor(self):
        rows = [line.split("\t") for line in self.output("doctor").splitlines()]
        found = {name: (state, text) for name, state, text in rows}
        self.assertEqual(list(found), ["program", "locale", "config", "home", "log", "work-folder", "templates", "libreoffice", "fonts",
                                       "windows", "opener", "clipboard", "sqlite"])
        self.assertEqual(found["locale"], ("ok", "cs-CZ, ANSI page 1250"))
        self.assertEqual(found["config"][0], "missing")
        self.assertRegex(found["libreoffice"][1], r"^LibreOffice \d.*, /.*/soffice, writes documents and workbooks as PDF$")
        self.assertRegex(found["sqlite"][1], r"^3\.\d+\.\d+$")
        self.assertEqual(list((self.folder / "tmp").glob("*.pdf")) + list((self.folder / "tmp").glob("zorkanca-*.txt")), [])
        shown = json.loads(self.output("doctor", "--json"))
        self.assertEqual([row["name"] for row in shown], list(found))

        # What is missing is no failure; what is there and does not work is.
        bare = self.folder / "bare"
        bare.mkdir()
        (bare / "soffice").write_text("#!/bin/sh\nexit 1\n")
        (bare / "soffice").chmod(0o755)
        stdout, stderr = self.run_program("doctor", PATH=f"{bare}:{os.environ['PATH']}", status=1)
        self.assertIn("libreoffice\tbroken\tLibreOffice could not convert ", stdout)
        self.assertEqual(stderr, "zorkanca: does not work: libreoffice\n")
        self.assertRegex(self.output("doctor", PATH=str(bare), status=1), r"fonts\tmissing\tfonts cannot be listed: install the package fontconfig")


if __name__ == "__main__":
    main()

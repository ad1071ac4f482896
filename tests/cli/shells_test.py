#!/usr/bin/env python3
"""The completion inside real shells, as far as they are installed."""
import os
import pty
import re
import select
import shutil
import subprocess
import sys
import time
import unittest

from command_line import PROGRAM, CommandLineCase, main


def without_control(shown):
    """What a terminal shows, without what places and colours it."""
    return re.sub(r"\x1b\[[0-9;?]*[A-Za-z]|\x1b[=>]|[\x00\x07\x08]", "", shown)


class ShellsTest(CommandLineCase):
    def setUp(self):
        (self.folder / "bin").mkdir(exist_ok=True)
        link = self.folder / "bin/zorkanca"
        if not link.exists():
            link.symlink_to(PROGRAM)
        for shell in ("bash", "zsh", "fish"):
            (self.folder / f"completion.{shell}").write_text(self.output("completion", shell))
        (self.folder / "a b.db").touch()

    def environment_of_shells(self):
        return self.environment(PATH=f"{self.folder}/bin:{os.environ['PATH']}", TERM="vt100", PS1="> ", LC_ALL="C.UTF-8")

    def require(self, shell):
        if shutil.which(shell):
            return
        print(f"SKIPPED: {shell} is not installed; its completion was not tried", file=sys.stderr)
        self.skipTest(f"{shell} is not installed")

    def run_shell(self, *command):
        done = subprocess.run(command, cwd=self.folder, env=self.environment_of_shells(), capture_output=True, text=True, timeout=60)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout.splitlines()

    def test_bash(self):
        for words, expected in [("zorkanca ht", ["html"]), ("zorkanca html --sel", ["--select"]),
                                ("zorkanca templates su", ["supply"]), ("zorkanca html --db a", ["a b.db"])]:
            script = (f"source completion.bash; COMP_WORDS=({words}); COMP_CWORD=$((${{#COMP_WORDS[@]}} - 1)); _zorkanca 2>/dev/null; "
                      "printf '%s\\n' \"${COMPREPLY[@]}\"")
            self.assertEqual(self.run_shell("bash", "-c", script), expected, words)

    def test_fish(self):
        self.require("fish")
        for line, expected in [("zorkanca ht", "html"), ("zorkanca html --sel", "--select"), ("zorkanca templates su", "supply"),
                               ("zorkanca --locale=s", "--locale=sk-SK"), ("zorkanca html --db a", "a b.db")]:
            shown = self.run_shell("fish", "--no-config", "-c", f"source completion.fish; complete -C '{line}'")
            self.assertIn(expected, [each.split("\t")[0].replace("\\ ", " ") for each in shown], line)

    def typed_in_zsh(self, keys, expected):
        """What a zsh on a terminal shows once the keys were typed there."""
        process, terminal = pty.fork()
        if process == 0:
            os.chdir(self.folder)
            os.execvpe("zsh", ["zsh", "-f", "-i"], self.environment_of_shells())
        shown = ""

        def wait_for(text):
            nonlocal shown
            end = time.monotonic() + 30
            while text not in shown and time.monotonic() < end:
                if select.select([terminal], [], [], 0.1)[0]:
                    shown = without_control(shown + os.read(terminal, 4096).decode(errors="replace"))
            self.assertIn(text, shown)

        try:
            wait_for("> ")
            os.write(terminal, b"autoload -Uz compinit && compinit -u -D && source completion.zsh && echo rea''dy\n")
            wait_for("ready\r\n")
            shown = shown.partition("ready\r\n")[2]
            wait_for("> ")
            shown = ""
            os.write(terminal, keys.encode())
            wait_for(expected)
        finally:
            os.kill(process, 9)
            os.waitpid(process, 0)
            os.close(terminal)

    def test_zsh(self):
        self.require("zsh")
        for keys, expected in [("zorkanca htm\t", "zorkanca html "), ("zorkanca html --sel\t", "--select "),
                               ("zorkanca templates supp\t", "templates supply "), ("zorkanca --locale s\t", "--locale sk-SK "),
                               ("zorkanca html --db a\t", "--db a\\ b.db")]:
            with self.subTest(keys):
                self.typed_in_zsh(keys, expected)


if __name__ == "__main__":
    main()

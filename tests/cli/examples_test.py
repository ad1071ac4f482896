#!/usr/bin/env python3
"""Every example of every help, run as it stands there, by a shell."""
import os
import pathlib
import pty
import re
import shutil
import subprocess

from command_line import PROGRAM, SAMPLE, CommandLineCase, main

# What an example needs of the computer beside the files of examples/.
OPENER = "#!/bin/sh\nexit 0\n"
# Dialogs are asked on the terminal: what is typed there.
DIALOGS = {"templates choose": "1\n", "alternative dialog": "3\n"}
# These print one value, which their explanation names.
PRINTS_VALUE = ("format", "number", "date", "text", "names", "barcode \"")


class ExamplesTest(CommandLineCase):
    def setUp(self):
        self.here = self.folder / "prepared"
        if self.here.exists():
            return
        shutil.copytree(SAMPLE.parent, self.here)
        shutil.copy(self.database, self.here)
        (self.here / "bin").mkdir()
        (self.here / "bin/zorkanca").symlink_to(PROGRAM)
        for name in ("xdg-open", "office"):
            (self.here / "bin" / name).write_text(OPENER)
            (self.here / "bin" / name).chmod(0o755)
        for folder in (".local/share/bash-completion/completions", ".config/fish/completions", "srv/sablony"):
            (self.here / folder).mkdir(parents=True)
        (self.here / "hlavicka.txt").write_bytes("kod;nazev;cena;jednotka;ean".encode("cp1250"))
        (self.here / "data.txt").write_bytes("A1;Šroub M8;12,50;ks;123\r\nA2;Matice;3;ks;124\r\n".encode("cp1250"))
        (self.here / "zbozi.txt").write_bytes("kod;nazev;cena\r\nA1;Šroub;12,50\r\nA2;Hřebík;1\r\n".encode("utf-16"))
        for name in ("zbozi.xlsx", "zbozi.ods", "dopis.odt"):
            shutil.copy(self.here / "stav-zasob.xltx", self.here / name)
        self.shell("zorkanca excel --db sklad.db --select 'SELECT kod, cena FROM zbozi' -o zbozi.xlsx")
        for kind in ("Table", "Document"):
            self.shell(f"zorkanca alternative set {kind}EditorAppPath {self.here}/bin/office")
        for name, more in [("stitky.docx", ""), ("faktura.dotx", "--id 5"), ("stav-zasob.xltx", ""), ("stitky.docx", "--list Dopisy"),
                           ("faktura.dotx", "--list Dopisy")]:
            self.shell(f"zorkanca templates add {name} --application SKLAD {more}")
        self.shell(r"zorkanca registry set 'HKLM\SOFTWARE\QRD\Zorix\Instalace' SupplyFolder " + str(self.here / "srv/sablony"))
        (self.here / "srv/sablony/ZorSabl.txt").write_bytes(
            "SKLAD|výchozí|upominka|Upomínka|12|\r\nSKLAD|Dopisy|upominka|Upomínka|12|\r\n".encode("cp1250"))
        self.shell(r"zorkanca registry set 'HKCU\Software\Test' '' x")
        self.shell("zorkanca registry export nastaveni.reg")

    def environment_of(self, folder):
        tmp = folder / "tmp"
        tmp.mkdir(mode=0o700, exist_ok=True)
        return {"PATH": f"{folder}/bin:{os.environ['PATH']}", "HOME": str(folder), "TMPDIR": str(tmp)}

    def shell(self, line, folder=None):
        folder = folder or self.here
        done = subprocess.run(line, shell=True, cwd=folder, env=self.environment_of(folder), capture_output=True, timeout=120)
        shown = done.stdout.decode() + done.stderr.decode()
        self.assertEqual(done.returncode, 0, f"{line}: {shown}")
        return done.stdout.decode()

    def on_a_terminal(self, line, typed, folder):
        master, slave = pty.openpty()
        os.write(master, typed.encode())
        done = subprocess.run(line, shell=True, cwd=folder, env=self.environment_of(folder), stdin=slave, stderr=slave,
                              stdout=subprocess.PIPE, timeout=60)
        os.close(slave)
        os.close(master)
        self.assertEqual(done.returncode, 0, f"{line}: {done.stdout.decode()}")
        return done.stdout.decode()

    def examples(self, *group):
        """Each example of the commands of a group with its explanation."""
        text = self.output(*group, "--help")
        yield from re.findall(r"(?m)^  (zorkanca .*)\n      (.*)$", text.split("\nUsage:")[0])
        for name in re.findall(r"(?m)^  ([a-z][a-z-]*) ", text.partition("\nCommands:\n")[2].partition("\n\n")[0]):
            yield from self.examples(*group, name)

    def run_example(self, line, explanation, folder):
        line = line.replace("/srv", f"{folder}/srv").replace("/tmp/zkouska", f"{folder}/zkouska")
        if not shutil.which("man"):
            line = line.replace("| man -l -", "| cat")
        for dialog, typed in DIALOGS.items():
            if line.startswith(f"zorkanca {dialog}"):
                return self.on_a_terminal(line, typed, folder)
        shown = self.shell(line, folder=folder).replace("\u00a0", " ")
        if line.removeprefix("zorkanca ").startswith(PRINTS_VALUE) and explanation.startswith("prints "):
            self.assertEqual(shown.strip(), explanation.removeprefix("prints "), line)
        return shown

    def test_every_example_works(self):
        examples = dict.fromkeys(self.examples())
        self.assertGreater(len(examples), 80)
        for number, (line, explanation) in enumerate(examples):
            with self.subTest(line):
                folder = pathlib.Path(self.folder) / f"example-{number}"
                shutil.copytree(self.here, folder, symlinks=True)
                shown = self.run_example(line, explanation, folder)
                for made in re.findall(r" -o (\S+)", line):
                    self.assertTrue((folder / made).exists(), f"{line}: {shown}")
                shutil.rmtree(folder)


if __name__ == "__main__":
    main()

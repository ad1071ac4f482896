#!/usr/bin/env python3
"""Template lists."""
import json
import subprocess

from command_line import PROGRAM, CommandLineCase, main


class TemplatesTest(CommandLineCase):
    def templates(self, command, *arguments, kind="word", **options):
        return self.run_program("--home", "tpl", "templates", command, "--application", "A1", "--type", kind, *arguments,
                                **options)

    def listed(self):
        """Position, mark, identifier and file name of each template."""
        return [line.split("\t")[:4] for line in self.templates("show")[0].splitlines()]

    def test_template_lists(self):
        supplied = self.folder / "tpl" / "Sablony" / "A1"
        supplied.mkdir(parents=True)
        (supplied / "faktura.dot").touch()
        (supplied.parent / "ZorSabl.txt").write_bytes("A1|výchozí|faktura|Faktura €|12|\r\nA1|x\r\n".encode("cp1250"))
        shown = self.templates("show", "--json")[0]
        self.assertEqual(json.loads(shown), [{"position": 1, "active": False, "id": 12, "file": "faktura.dot",
                                              "description": "Faktura €", "path": str(supplied), "exists": True}])
        self.assertIn("ZorSabl.txt, řádek 2", self.output("--home", "tpl", "log"))

        for name in ["dopis.dot", "cenik.xlt", "nový.dot"]:
            (self.folder / name).touch()
        self.templates("add", "dopis", "--id", -7, "--before", 1, "--description", 'Dopis\n"a"')
        self.assertIn("Soubor \"dopis.dot\"", self.templates("add", "dopis.dot", status=1)[1])
        self.assertIn("má identifikátor -7", self.templates("add", "chybí.dot", "--id", -7, status=1)[1])
        self.assertIn("Šablona pro MS Word", self.templates("add", "cenik.xlt", status=1)[1])
        self.run_program("--yes", "--home", "tpl", "templates", "add", "--application", "A1", "--type", "word", "cenik.xlt",
                         status=1)  # a workbook becomes no .dot
        self.assertEqual(self.listed(), [["1", "*", "-7", "dopis.dot"], ["2", "", "12", "faktura.dot"]])
        self.templates("activate", 2)
        self.templates("edit", 2, "--file", "nový.dot", "--id", 0)
        self.assertEqual(self.listed(), [["1", "*", "-7", "dopis.dot"], ["2", "", "0", "nový.dot"]])
        self.templates("up", 2)
        self.assertEqual(self.listed(), [["1", "*", "0", "nový.dot"], ["2", "", "-7", "dopis.dot"]])
        self.templates("down", 1)
        self.templates("remove", 1)
        self.templates("supply")
        self.assertEqual(self.listed(), [["1", "*", "0", "nový.dot"], ["2", "", "12", "faktura.dot"]])
        self.assertIn("the list has 2", self.templates("up", 3, status=1)[1])
        self.templates("edit", 1, status=2)
        self.templates("show", "--list", "a\\b", status=1)
        chosen = self.templates("choose", "--admin", "--caption", "Vyberte", status=1)
        self.assertEqual(chosen[0], "")
        self.assertIn("neither a screen nor a terminal to ask on; use --template", chosen[1])
        (self.folder / "no folder").touch()
        self.assertIn("no folder/HKLM.reg: ", self.run_program("--home", "no folder", "templates", "show", "--application",
                                                               "A1", status=1)[1])

    def test_lists_take_all_formats_that_the_engines_read(self):
        for kind, taken, refused, usual in [
            ("word", "dot dotx dotm docx docm doc", "xltx txt odt", "dot"),
            ("excel", "xlt xltx xltm xlsx xlsm xls", "dotx csv ods", "xlt"),
        ]:
            more = ["--list", "formats"]
            for extension in taken.split() + refused.split():
                (self.folder / f"f.{extension}").touch()
                self.templates("add", f"f.{extension}", *more, kind=kind, status=1 if extension in refused.split() else 0)
            (self.folder / f"bare.{usual}").touch()
            self.templates("add", "bare", *more, kind=kind)
            shown = [line.split("\t")[3] for line in self.templates("show", *more, kind=kind)[0].splitlines()]
            self.assertEqual(shown, [f"f.{extension}" for extension in taken.split()] + [f"bare.{usual}"])

    def test_the_library_of_windows_is_loaded_only_for_windows(self):
        linked = subprocess.run(["ldd", PROGRAM], capture_output=True, check=True).stdout.decode()
        self.assertIn("libsqlite3", linked)
        self.assertNotIn("Qt", linked)

    def test_templates_survive_what_somebody_wrote_into_the_registry(self):
        key = r"[HKEY_CURRENT_USER\Software\QRD\Zorix\SABLONY\B2\(Výchozí)"
        (self.folder / "odd.reg").write_text("\n".join([
            "Windows Registry Editor Version 5.00", "", key + r"\a.dot]", '"key"="3"', '"path"=hex(1):41,00,00,00,42,00,00,00',
            key + r"\b.dot]", '"key"=dword:7fffffff', '"path"=dword:1', '"description"="1\t2"',
            key + r"\c/d.dot]", '"key"=dword:80000000']))
        home = ["--home", "odd"]
        self.run_program(*home, "registry", "import", "odd.reg")
        shown = self.output(*home, "templates", "show", "--application", "B2").splitlines()
        self.assertEqual([line.split("\t")[3] for line in shown], ["b.dot", "a.dot"])
        log = self.output(*home, "log")
        for name in ["\"key\"", "\"path\"", "c/d.dot"]:
            self.assertIn(name, log)


if __name__ == "__main__":
    main()

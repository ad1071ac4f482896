#!/usr/bin/env python3
"""The registry."""
from command_line import CommandLineCase, main


class RegistryTest(CommandLineCase):
    def test_registry(self):
        home = ["--home", "home"]
        key = "HKCU\\Software\\Zkouška"
        self.run_program(*home, "registry", "set", key, "Text", "žluť;\"x\"\\")
        self.run_program(*home, "registry", "set", key, "Počet", "-5", "--type", "number")
        self.run_program(*home, "registry", "set", key + "\\Pod", "", "výchozí")
        self.assertEqual(self.output(*home, "registry", "get", key, "text"), "žluť;\"x\"\\\n")
        self.assertEqual(self.output(*home, "registry", "get", key + "\\pod"), "výchozí\n")
        self.assertEqual(self.output(*home, "registry", "list", key),
                         "Pod\\\nText\tstring\tžluť;\"x\"\\\nPočet\tnumber\t-5\n")
        self.run_program(*home, "registry", "get", key, "chybí", status=1)
        self.run_program(*home, "registry", "set", key, "n", "4294967296", "--type", "number", status=2)

        self.assertEqual(self.output(*home, "registry", "export", "all.reg"), f"{self.folder}/all.reg\n")
        self.run_program("--home", "other", "registry", "import", "all.reg")
        self.assertEqual(self.output("--home", "other", "registry", "list", key),
                         self.output(*home, "registry", "list", key))
        self.run_program(*home, "registry", "delete", key)
        self.run_program(*home, "registry", "list", key, status=1)
        (self.folder / "bad.reg").write_text("Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\x]\nnonsense\n")
        self.assertIn("4", self.run_program(*home, "registry", "import", "bad.reg", status=1)[1])


if __name__ == "__main__":
    main()

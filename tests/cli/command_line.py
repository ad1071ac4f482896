"""What the tests of the command line share: the program run as a user would run it, in a folder with the sample database.

A file of tests is started as FILE PROGRAM SAMPLE_SQL.
"""
import os
import pathlib
import pty
import sqlite3
import subprocess
import sys
import tempfile
import threading
import unittest
import zipfile
from xml.etree import ElementTree

PROGRAM = pathlib.Path(sys.argv[1]).resolve()
SAMPLE = pathlib.Path(sys.argv[2]).resolve()


class CommandLineCase(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.holder = tempfile.TemporaryDirectory()
        cls.folder = pathlib.Path(cls.holder.name)
        cls.database = cls.folder / "sklad.db"
        subprocess.run(["sqlite3", cls.database], input=SAMPLE.read_bytes(), check=True)
        with sqlite3.connect(cls.folder / "odd.db") as odd:
            odd.executescript(
                "CREATE TABLE t(a INTEGER, b BLOB, c TEXT, d TEXT);"
                "INSERT INTO t VALUES(1, x'00FF', CAST(x'41FF' AS TEXT), 'a' || char(0) || 'b');")

    @classmethod
    def tearDownClass(cls):
        cls.holder.cleanup()

    def environment(self, **changes):
        clean = {"PATH": os.environ["PATH"], "HOME": str(self.folder), "TMPDIR": str(self.folder / "tmp")}
        if "LSAN_OPTIONS" in os.environ:  # what leaks are not ours
            clean["LSAN_OPTIONS"] = os.environ["LSAN_OPTIONS"]
        (self.folder / "tmp").mkdir(mode=0o700, exist_ok=True)
        return clean | changes

    def run_program(self, *arguments, status=0, stdin="", **changes):
        """Runs it; returns (standard output, standard error)."""
        done = subprocess.run([PROGRAM, *map(str, arguments)], input=stdin.encode(), capture_output=True,
                              cwd=self.folder, env=self.environment(**changes), timeout=60)
        shown = (done.stdout.decode(), done.stderr.decode())
        self.assertEqual(done.returncode, status, f"{arguments}: {shown}")
        return shown

    def on_terminal(self, *arguments, status=0, typed="", **changes):
        """Runs it with a terminal on every side; returns the bytes that the terminal got."""
        master, slave = pty.openpty()
        shown = bytearray()

        def collect():
            try:
                while chunk := os.read(master, 4096):
                    shown.extend(chunk)
            except OSError:
                pass  # the terminal is gone once the program has ended

        reader = threading.Thread(target=collect)
        reader.start()
        os.write(master, typed.encode())
        done = subprocess.run([PROGRAM, *map(str, arguments)], cwd=self.folder, env=self.environment(**changes), stdin=slave,
                              stdout=slave, stderr=slave, timeout=60)
        os.close(slave)
        reader.join(timeout=10)
        os.close(master)
        self.assertEqual(done.returncode, status, f"{arguments}: {shown.decode()}")
        return shown.decode()

    def output(self, *arguments, **options):
        return self.run_program(*arguments, **options)[0]

    def html(self, select, *more, database="sklad.db", status=0, before=(), **options):
        return self.run_program(*before, "html", "--db", database, "--select", select, "--no-open", *more,
                                status=status, **options)

    def data_file(self, text):
        path = self.folder / "data.txt"
        path.write_bytes(text.replace("\n", "\r\n").encode("utf-16"))
        return path

    @staticmethod
    def part(path, name):
        with zipfile.ZipFile(path) as package:
            return package.read(name).decode()

    def document(self, name):
        """A document with a heading and a bookmark on two pages."""
        main = "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml"
        relation = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument"
        with zipfile.ZipFile(self.folder / name, "w") as package:
            package.writestr("[Content_Types].xml", (
                '<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">'
                '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
                f'<Override PartName="/word/document.xml" ContentType="{main}"/></Types>'))
            package.writestr("_rels/.rels", (
                '<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">'
                f'<Relationship Id="r1" Type="{relation}" Target="word/document.xml"/></Relationships>'))
            package.writestr("word/document.xml", (
                '<w:document xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main"><w:body>'
                '<w:p><w:pPr><w:outlineLvl w:val="0"/></w:pPr><w:r><w:t>Nadpis</w:t></w:r></w:p>'
                '<w:p><w:r><w:br w:type="page"/></w:r><w:bookmarkStart w:id="1" w:name="Závěr_1"/>'
                '<w:r><w:t>Text</w:t></w:r><w:bookmarkEnd w:id="1"/></w:p></w:body></w:document>'))

    def running(self, word):
        """How many processes were started with the word among their arguments."""
        count = 0
        for path in pathlib.Path("/proc").glob("[0-9]*/cmdline"):
            try:
                count += word.encode() in path.read_bytes()
            except OSError:
                pass  # it has ended meanwhile
        return count

    def query(self, name, limit=1000):
        return f"SELECT * FROM ({(SAMPLE.parent / name).read_text()}) LIMIT {limit}"

    def left_behind(self):
        return list((self.folder / "tmp").rglob("*.tmp")) + list((self.folder / "tmp").rglob("*.docx"))

    def cells(self, name, sheet=1):
        """Rows of a sheet of a workbook: by column the text, the formula with its "=", or the stored value."""
        main = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"
        path = self.folder / name
        shared = ["".join(item.itertext()) for item in ElementTree.fromstring(self.part(path, "xl/sharedStrings.xml"))]

        def content(cell):
            value, formula, inline = (cell.find(main + tag) for tag in ("v", "f", "is"))
            if formula is not None:
                return "=" + formula.text
            if inline is not None:
                return "".join(inline.itertext())
            if value is not None:
                return shared[int(value.text)] if cell.get("t") == "s" else value.text
            return None

        rows = ElementTree.fromstring(self.part(path, f"xl/worksheets/sheet{sheet}.xml")).iter(main + "row")
        return {int(row.get("r")): {cell.get("r").rstrip("0123456789"): content(cell) for cell in row} for row in rows}


def main():
    unittest.main(argv=sys.argv[:1])

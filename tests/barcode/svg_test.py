#!/usr/bin/env python3
"""Draws bar codes with the program, renders the pictures, and lets zbar, a reader of its own, decode them.

    svg_test.py PROGRAM    (needs rsvg-convert and zbarimg)
"""
import pathlib
import sqlite3
import subprocess
import sys
import tempfile

CODE39 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%"
ASCII = "".join(map(chr, range(32, 127)))
PAIRS = "".join(f"{pair:02d}" for pair in range(100))


def pieces(text, length):
    return [text[start:start + length] for start in range(0, len(text), length)]


def cases():
    """Rows of symbology, check flag, value, and what a reader gets. Together they show each symbol of each set."""
    for text in pieces(CODE39[36:] + CODE39[:36], 11):
        check = CODE39[sum(map(CODE39.index, text)) % 43]
        yield "Code39", 0, text, text
        yield "Code39", 1, text, text + check
    for text in pieces(ASCII[1:] + " .", 16):
        for check in 0, 1:
            yield "Code128B", check, text, text
            yield "Code_128B_TTF", check, text, text
    yield "Code128B", 1, "a _b_ c", "a _b_ c"
    yield "Code_128B_TTF()", 0, "obal 7", "'obal 7~"
    yield "Code_128C_TTF", 0, "A-7", "A-7"
    for text in pieces(PAIRS, 20):
        yield "Code128C", 0, text, text
        yield "Code_128C_TTF", 1, text, text
    yield "Code128C", 0, "123", "0123"
    yield "Code_128C_TTF", 0, " 12345 ", "012345"


class Bench:
    def __init__(self, program, folder):
        self.program = program
        self.folder = folder
        self.failures = 0

    def expect(self, condition, message):
        if not condition:
            self.failures += 1
            print("FAILED:", message)

    def run(self, *arguments):
        command = [self.program, "--home", str(self.folder / "home"), "barcode", *map(str, arguments)]
        return subprocess.run(command, capture_output=True, encoding="utf-8", check=False)

    def decode(self, svg):
        """What zbar reads of an SVG file at its own size; nothing when there is no file."""
        if not svg.exists():
            return ""
        png = svg.with_suffix(".png")
        subprocess.run(["rsvg-convert", "-o", png, svg], check=True)
        command = ["zbarimg", "--quiet", "-Sdisable", "-Scode39.enable", "-Scode128.enable", png]
        result = subprocess.run(command, capture_output=True, encoding="utf-8", check=False)
        return result.stdout.removesuffix("\n")

    def draw_values(self):
        svg = self.folder / "value.svg"
        for symbology, check, value, content in cases():
            row = f"{symbology};F,trim;OUT;{check} of {value!r}"
            result = self.run(f"{symbology};F,trim;OUT;{check}", "--value", value, "--svg", svg)
            self.expect(result.stdout == f"{svg}\n", f"{row}: printed {result.stdout!r} {result.stderr!r}")
            read = self.decode(svg)
            expected = ("CODE-39:" if symbology == "Code39" else "CODE-128:") + content
            self.expect(read == expected, f"{row}: read {read!r}, not {expected!r}")
            svg.unlink(missing_ok=True)

    def draw_records(self):
        path = self.folder / "stock.db"
        with sqlite3.connect(path) as database:
            database.execute("CREATE TABLE stock (code TEXT, price REAL)")
            database.executemany("INSERT INTO stock VALUES (?, ?)", [("A1", 12.5), ("B2", 3), ("", None)])
        database.close()

        def run(items, where, *more):
            select = f"SELECT code, price FROM stock WHERE {where} ORDER BY rowid"
            return self.run(f"Code39;{items};OUT;0", "--db", path, "--select", select, *more)

        texts = run("code,trim|'-'|price,trim", "1")
        self.expect(texts.stdout == "*A1-12.5*\n*B2-3*\n\n", f"texts of records: {texts}")

        folder = self.folder / "pictures"
        drawn = run("code,trim", "code <> ''", "--svg", f"{folder}/")
        files = [folder / "0001.svg", folder / "0002.svg"]
        self.expect(drawn.stdout == "".join(f"{file}\n" for file in files), f"a folder of pictures: {drawn}")
        self.expect([self.decode(file) for file in files] == ["CODE-39:A1", "CODE-39:B2"], "contents of the folder")

        single = self.folder / "single.svg"
        self.expect(run("code,trim", "code = 'B2'", "--svg", single).stdout == f"{single}\n", "one record, one file")
        self.expect(self.decode(single) == "CODE-39:B2", "content of the one file")
        before = single.read_bytes()
        for where, status, message in (
            ("1", 2, "the query has several records; --svg must name a folder"),
            ("0", 1, "the query has no record"),
            ("price IS NULL", 1, "record 1: There is nothing to draw: the bar code is empty"),
        ):
            result = run("code,trim", where, "--svg", single)
            self.expect(result.returncode == status and message in result.stderr, f"{where}: {result}")
            self.expect(result.stdout == "" and single.read_bytes() == before, f"{where}: the file was changed")

    def refuse(self):
        for arguments, status, message in (
            (["Code39;'A'", "--value", ""], 2, "symbology;items;output column;check flag"),
            (["Code39;'a';;0", "--value", "", "--svg", self.folder / "a.svg"], 1, "5 - Code 39 cannot carry"),
            (["Code128B;F,trim;;1", "--value", "~" * 26], 1, "6 - Overflow"),
            (["Code39;'A';;0"], 2, "--value"),
            (["Code39;'A';;0", "--value", "1", "--db", "x", "--select", "x"], 2, "--db"),
        ):
            result = self.run(*arguments)
            self.expect(result.returncode == status and message in result.stderr, f"{arguments}: {result}")


def main():
    with tempfile.TemporaryDirectory() as folder:
        bench = Bench(sys.argv[1], pathlib.Path(folder).resolve())
        bench.draw_values()
        bench.draw_records()
        bench.refuse()
    return 1 if bench.failures else 0


if __name__ == "__main__":
    sys.exit(main())

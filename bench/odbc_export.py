#!/usr/bin/env python3
"""Exports from PostgreSQL: the HTML export beside `psql -H` on the same query, the Word merge beside that from SQLite.

The server is started for it, in a folder of its own, and ended with it.
"""
import os
import pathlib
import sys

import measure
import sample_database

PROJECT = pathlib.Path(__file__).resolve().parent.parent
sys.dont_write_bytecode = True
sys.path.append(str(PROJECT / "tests" / "cli"))
from servers import Server  # noqa: E402  (the tests' own)

SELECT = "SELECT * FROM zasoby"
LETTERS = ("SELECT id AS cislo, nazev, poznamka AS ulice, kod AS psc, nazev AS mesto, id AS ico, datum AS vystavena, "
           "datum AS splatna, cena AS celkem FROM zasoby WHERE id <= 100000 ORDER BY id")
TABLE = """
CREATE TABLE zasoby(id integer, kod varchar(10), nazev varchar(40), mnozstvi double precision, cena numeric(19,4),
                    datum date, poznamka text, aktivni boolean);
INSERT INTO zasoby
SELECT i, 'K' || lpad(i::text, 6, '0'),
       CASE i % 4 WHEN 0 THEN 'Šroub válcový ' WHEN 1 THEN 'Matice křídlová ' WHEN 2 THEN 'Podložka ' ELSE 'Klíč ' END || i,
       i * 1.25, round(i * 3.337, 2), date '2020-01-01' + i % 2000,
       CASE i % 4 WHEN 0 THEN E'balení; "kus"\\r\\ndruhý řádek' WHEN 1 THEN NULL ELSE 'skladem' END, i % 2 = 1
FROM generate_series(1, 1000000) i;
ANALYZE zasoby;
"""


def html(options, server):
    folder = options.folder
    print(measure.heading("psql -H"))
    for rows in (1_000, 100_000, 1_000_000):
        select = f"{SELECT} WHERE id <= {rows}"
        ours = [options.program, "--home", str(folder / "home"), "--quiet", "html", "--db", server.string, "--select", select,
                "-o", str(folder / "ours.htm"), "--no-open"]
        theirs = ["psql", "-H", "-h", server.folder, "-U", "zk", "sklad", "-c", select, "-o", str(folder / "psql.htm")]
        print(measure.row(rows, *measure.side_by_side([(ours, folder / "ours.txt"), (theirs, folder / "psql.txt")],
                                                      options.runs)))


def letters(options, server):
    folder = options.folder
    database = str(sample_database.make(folder, 100_000))
    commands = [([options.program, "--quiet", "word", "--db", source, "--select", LETTERS, "--template",
                  "examples/upominka.dotx", "-o", str(folder / "letters.docx"), "--no-open"], folder / "out.txt")
                for source in (server.string, database)]
    print(measure.heading("SQLite"))
    print(measure.row(100_000, *measure.side_by_side(commands, options.runs)))


def main():
    options = measure.options(__doc__, "build/zorkanca")
    try:
        server = Server("postgres")
    except LookupError as reason:
        return print(f"skipped: {reason}")
    os.environ["ZORKANCA_DB_PASSWORD"] = os.environ["PGPASSWORD"] = server.password
    try:
        server.execute(TABLE)
        html(options, server)
        letters(options, server)
    finally:
        server.stop()


if __name__ == "__main__":
    main()

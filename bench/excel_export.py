#!/usr/bin/env python3
"""The plain Excel export of a query (`zorkanca excel`: query, data file, import, formats, workbook) beside libxlsxwriter in
its constant-memory mode, which gets the same texts from the finished data file and only writes the workbook."""
import subprocess

import measure

COLUMNS = "cislo INTEGER, nazev VARCHAR(40), skupina VARCHAR(20), jednotka CHAR(9), mnozstvi DOUBLE, cena CURRENCY, " \
          "datum DATE, poznamka MEMO"
ROWS = """
CREATE TABLE radky({columns});
WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c WHERE i < {rows})
INSERT INTO radky
SELECT i, printf('Šroub č. %d', i * 7919 % 1000003), printf('Skupina %d', i % 37), 'ks', i % 500 + (i % 100) / 100.0,
       i % 90000 + (i % 100) / 100.0, date('2001-01-01', '+' || (i % 9000) || ' days'),
       CASE WHEN i % 3 = 0 THEN 'dodávka; do týdne' END
FROM c;
"""
SELECT = "SELECT * FROM radky"


def make(folder, rows):
    path = folder / f"radky_{rows}.db"
    if not path.exists():
        unfinished = path.with_suffix(".tmp")
        unfinished.unlink(missing_ok=True)
        statements = ROWS.format(columns=COLUMNS, rows=rows).encode()
        subprocess.run(["sqlite3", str(unfinished)], input=statements, check=True)
        unfinished.rename(path)
    return path


def main():
    options = measure.options(__doc__, "build/zorkanca")
    folder = options.folder
    print(measure.heading("xlsxwriter"))
    for rows in (1_000, 100_000, 1_000_000):
        data = folder / f"radky_{rows}.txt"
        ours = [options.program, "--home", str(folder / "home"), "--quiet", "excel", "--db", str(make(folder, rows)),
                "--select", SELECT]
        subprocess.run([*ours, "--data-file", str(data), "-o", str(folder / "ours.xlsx")], check=True,
                       stdout=subprocess.DEVNULL)
        theirs = ["build/xlsxwriter_rows", str(data), str(folder / "xlsxwriter.xlsx")]
        costs = measure.side_by_side([([*ours, "-o", str(folder / "ours.xlsx")], folder / "ours.txt"),
                                      (theirs, folder / "theirs.txt")], options.runs)
        print(measure.row(rows, *costs))


if __name__ == "__main__":
    main()

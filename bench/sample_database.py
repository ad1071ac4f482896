"""The databases that the benchmarks export: N rows of eight columns, made by sqlite3 itself."""
import pathlib
import subprocess

SCHEMA_AND_ROWS = """
CREATE TABLE zasoby(id INTEGER, kod VARCHAR(10), nazev VARCHAR(40), mnozstvi DOUBLE, cena CURRENCY, datum DATE,
                    poznamka MEMO, aktivni BOOLEAN);
WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c WHERE i < {rows})
INSERT INTO zasoby
SELECT i, printf('K%06d', i),
       CASE i % 4 WHEN 0 THEN 'Šroub válcový ' WHEN 1 THEN 'Matice křídlová ' WHEN 2 THEN 'Podložka ' ELSE 'Klíč ' END || i,
       i * 1.25, round(i * 3.337, 2), date('2020-01-01', '+' || (i % 2000) || ' days'),
       CASE i % 4 WHEN 0 THEN 'balení; "kus"' || char(13, 10) || 'druhý řádek' WHEN 1 THEN NULL ELSE 'skladem' END, i % 2
FROM c;
"""


def make(folder, rows):
    """Path of the database with so many rows; made once."""
    path = pathlib.Path(folder) / f"zasoby_{rows}.db"
    if not path.exists():
        unfinished = path.with_suffix(".tmp")
        unfinished.unlink(missing_ok=True)
        subprocess.run(["sqlite3", str(unfinished)], input=SCHEMA_AND_ROWS.format(rows=rows).encode(), check=True)
        unfinished.rename(path)
    return path

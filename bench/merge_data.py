#!/usr/bin/env python3
"""The data file of a mail merge, two columns of it formatted, beside `sqlite3 -csv -separator ';'` on the same query."""
import argparse
import pathlib

import measure
import sample_database

SELECT = "SELECT * FROM zasoby"
FORMATS = ["", "", "trim", "", "#,##0.00"]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", default="build/bench_merge_data")
    parser.add_argument("--folder", default="build/bench")
    parser.add_argument("--runs", type=int, default=5)
    options = parser.parse_args()
    folder = pathlib.Path(options.folder)
    folder.mkdir(parents=True, exist_ok=True)

    print(measure.heading("sqlite3"))
    for rows in (1_000, 100_000, 1_000_000):
        database = str(sample_database.make(folder, rows))
        ours = [options.program, database, SELECT, str(folder / "ours.tmp"), *FORMATS]
        theirs = ["sqlite3", "-csv", "-separator", ";", database, SELECT]
        costs = measure.side_by_side([(ours, folder / "ours.txt"), (theirs, folder / "sqlite3.csv")], options.runs)
        print(measure.row(rows, *costs))


if __name__ == "__main__":
    main()

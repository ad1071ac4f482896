#!/usr/bin/env python3
"""The data file of a mail merge, two columns of it formatted, beside `sqlite3 -csv -separator ';'` on the same query."""
import measure
import sample_database

SELECT = "SELECT * FROM zasoby"
FORMATS = ["", "", "trim", "", "#,##0.00"]


def main():
    options = measure.options(__doc__, "build/bench_merge_data")
    folder = options.folder
    print(measure.heading("sqlite3"))
    for rows in (1_000, 100_000, 1_000_000):
        database = str(sample_database.make(folder, rows))
        ours = [options.program, database, SELECT, str(folder / "ours.tmp"), *FORMATS]
        theirs = ["sqlite3", "-csv", "-separator", ";", database, SELECT]
        costs = measure.side_by_side([(ours, folder / "ours.txt"), (theirs, folder / "sqlite3.csv")], options.runs)
        print(measure.row(rows, *costs))


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""The HTML export beside `sqlite3 -html` on the same query: time, and memory that must not grow with the rows."""
import measure
import sample_database

SELECT = "SELECT * FROM zasoby"


def main():
    options = measure.options(__doc__, "build/zorkanca")
    folder = options.folder
    print(measure.heading("sqlite3"))
    for rows in (1_000, 100_000, 1_000_000):
        database = str(sample_database.make(folder, rows))
        ours = [options.program, "--home", str(folder / "home"), "--quiet", "html", "--db", database, "--select", SELECT,
                "-o", str(folder / "ours.htm"), "--no-open"]
        theirs = ["sqlite3", "-html", database, SELECT]
        costs = measure.side_by_side([(ours, folder / "ours.txt"), (theirs, folder / "sqlite3.htm")], options.runs)
        print(measure.row(rows, *costs))


if __name__ == "__main__":
    main()

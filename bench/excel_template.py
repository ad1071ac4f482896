#!/usr/bin/env python3
"""A template of one formatted row filled with the rows of a query (`zorkanca excel-template`, all of it) beside openpyxl,
which gets the finished texts and copies the style index of each cell. Then the same with a picture on the row, which is
repeated with it: how the cost grows with the rows."""
import subprocess

import excel_export
import measure

PYTHON = "/usr/bin/python3"  # the one that Debian's openpyxl is for
OPENPYXL = "bench/openpyxl_rows.py"


def main():
    options = measure.options(__doc__, "build/zorkanca")
    folder = options.folder
    plain, with_picture = (str(folder / name) for name in ("row.xlsx", "row_with_picture.xlsx"))
    subprocess.run([PYTHON, OPENPYXL, "template", plain], check=True)
    subprocess.run([PYTHON, OPENPYXL, "template", with_picture, "--picture"], check=True)

    def ours(rows, template):
        return [options.program, "--home", str(folder / "home"), "--quiet", "excel-template",
                "--db", str(excel_export.make(folder, rows)), "--select", excel_export.SELECT,
                "--template", str(folder.resolve() / template), "-o", str(folder / "filled.xlsx")]

    print(measure.heading("openpyxl"))
    for rows in (1_000, 10_000, 100_000):
        data = str(folder / "filled.txt")
        subprocess.run([*ours(rows, "row.xlsx"), "--data-file", data], check=True, stdout=subprocess.DEVNULL)
        theirs = [PYTHON, OPENPYXL, "fill", plain, data, str(folder / "openpyxl.xlsx")]
        costs = measure.side_by_side([(ours(rows, "row.xlsx"), folder / "ours.txt"), (theirs, folder / "theirs.txt")],
                                     options.runs)
        print(measure.row(rows, *costs))

    print("With a picture on the row:")
    for rows in (12_500, 25_000, 50_000, 100_000):
        (cost,) = measure.side_by_side([(ours(rows, "row_with_picture.xlsx"), folder / "ours.txt")], options.runs)
        print(f"{rows:>9}  {cost.wall:8.3f} {cost.cpu:8.3f} {cost.peak_mb:6.1f}")


if __name__ == "__main__":
    main()

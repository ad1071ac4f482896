#!/usr/bin/env python3
"""WdExport end to end beside its data file and its merge alone; WdExportForm by the number of documents.

Forms are saved into a folder in memory where the computer has one: the time of a disk is not ours.
"""
import pathlib
import shutil

import measure
import sample_database

SELECT = ("SELECT id AS cislo, nazev, poznamka AS ulice, kod AS psc, nazev AS mesto, id AS ico, datum AS vystavena, "
          "datum AS splatna, cena AS celkem FROM zasoby")
FORM = ("SELECT id AS cislo, kod, nazev, poznamka AS ulice, nazev AS mesto, id + 10000 AS psc, id + 10000000 AS ico, "
        "kod AS dic, datum AS zalozen, nazev AS email, aktivni AS platce_dph, cena AS sleva FROM zasoby")


def exports(options, database):
    folder = options.folder
    data = str(folder / "export.txt")
    common = ["--template", "examples/upominka.dotx", "--data-file", data, "-o", str(folder / "export.docx")]
    commands = [[options.program, "--quiet", "word", "--db", database, "--select", SELECT, *common],
                ["build/bench_merge_data", database, SELECT, data],
                [options.program, "--quiet", "merge", *common]]
    whole, writing, merge = measure.side_by_side([(each, folder / "out.txt") for each in commands], 3)
    print(f"{'':>10} {'wall s':>8} {'cpu s':>8} {'peak MB':>8}")
    for name, cost in (("WdExport", whole), ("data file", writing), ("merge", merge)):
        print(f"{name:>10} {cost.wall:8.2f} {cost.cpu:8.2f} {cost.peak_mb:8.0f}")
    print(f"WdExport / (data file + merge): wall {whole.wall / (writing.wall + merge.wall):.2f}, "
          f"cpu {whole.cpu / (writing.cpu + merge.cpu):.2f}")


def forms(options, database):
    memory = pathlib.Path("/dev/shm")
    target = (memory if memory.is_dir() else options.folder) / "zorkanca-bench-forms"
    boxes = [argument for column in (6, 7, 8, 9) for argument in ("--one-char", str(column))]
    print(f"{'forms':>10} {'wall s':>8} {'cpu s':>8} {'peak MB':>8} {'a second':>8}")
    for count in (500, 5_000):
        command = [options.program, "--quiet", "form", "--db", database, "--select", f"{FORM} LIMIT {count}", "--template",
                   "examples/registrace.dotx", "--barcode", "Code39;kod,trim;kod;0", *boxes, "-o", f"{target}/"]
        cost, = measure.side_by_side([(command, options.folder / "out.txt")], 1)
        shutil.rmtree(target)
        print(f"{count:>10} {cost.wall:8.2f} {cost.cpu:8.2f} {cost.peak_mb:8.0f} {count / cost.wall:8.0f}")


def main():
    options = measure.options(__doc__, "build/zorkanca")
    database = str(sample_database.make(options.folder, 100_000))
    exports(options, database)
    forms(options, database)


if __name__ == "__main__":
    main()

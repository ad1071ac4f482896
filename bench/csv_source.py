#!/usr/bin/env python3
"""A CSV file as a source beside sqlite3's import of it: loading alone, and all the way to HTML. Ours has typed columns besides."""
import csv
import random

import measure

WORDS = ["Šroub válcový", "Matice křídlová", "Podložka", "Hřebík", "Klíč"]


def make(folder, rows):
    """Path of the file with so many records of texts, some in quotation marks, whole numbers, decimals, dates and yes or no; made once."""
    path = folder / f"zasoby_{rows}.csv"
    if path.exists():
        return str(path)
    chance = random.Random(rows)
    unfinished = path.with_suffix(".tmp")
    with open(unfinished, "w", newline="", encoding="utf-8") as file:
        writer = csv.writer(file)
        writer.writerow(["id", "kod", "nazev", "popis", "pocet", "cena", "datum", "aktivni"])
        for row in range(rows):
            writer.writerow([row + 1, f"{row % 99991:06}", f"{chance.choice(WORDS)} {row % 977}",
                             f'Balení "{row % 50} ks", {chance.choice(WORDS)}', chance.randint(-100, 5000),
                             f"{chance.random() * 10000:.2f}",
                             f"20{chance.randrange(27):02}-{chance.randrange(1, 13):02}-{chance.randrange(1, 29):02}",
                             chance.choice(["Ano", "Ne"])])
    unfinished.rename(path)
    return str(path)


def main():
    options = measure.options(__doc__, "build/zorkanca")
    folder = options.folder
    for what, ours_select, their_select in [("loading", "SELECT count(*) AS n FROM {}", []), ("to HTML", "SELECT * FROM {}", ["SELECT * FROM t"])]:
        print(what)
        print(measure.heading("sqlite3"))
        for rows in (1_000, 100_000, 1_000_000):
            path = make(folder, rows)
            ours = [options.program, "--home", str(folder / "home"), "--quiet", "html", "--db", path, "--select",
                    ours_select.format(f"zasoby_{rows}"), "-o", str(folder / "ours.htm"), "--no-open"]
            theirs = ["sqlite3", "-html", ":memory:", f".import --csv {path} t", *their_select]
            costs = measure.side_by_side([(ours, folder / "ours.txt"), (theirs, folder / "sqlite3.htm")], options.runs)
            print(measure.row(rows, *costs))


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Mail merges: our time and memory by the number of records, and beside a python-docx script that makes the same letters.

Our figures are of the whole process, with the making of the template and the data; the script finds both made.
"""
import measure


def main():
    options = measure.options(__doc__, "build/word_merge_bench")
    folder = options.folder

    def ours(kind, records):
        return [options.program, kind, str(records), str(folder)], folder / "ours.txt"

    print(f"{'merge':>8} {'records':>8} {'wall s':>8} {'cpu s':>8} {'peak MB':>8}")
    for kind, records in [("letters", 5_000), ("letters", 20_000), ("letters", 100_000), ("catalog", 10_000),
                          ("catalog", 100_000)]:
        cost, = measure.side_by_side([ours(kind, records)], 1)
        print(f"{kind:>8} {records:>8} {cost.wall:8.2f} {cost.cpu:8.2f} {cost.peak_mb:8.0f}")

    print(measure.heading("python-docx"))
    for records in (1_000, 10_000):
        script = ["/usr/bin/python3", "bench/python_docx_letters.py", str(folder / "merge_bench.dotx"),
                  str(folder / "merge_bench.txt"), str(folder / "python.docx"), str(records)]
        costs = measure.side_by_side([ours("letters", records), (script, folder / "python.txt")], 1)
        print(measure.row(records, *costs))


if __name__ == "__main__":
    main()

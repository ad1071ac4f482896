#!/usr/bin/env python3
"""Filling a spreadsheet-XML template, a call a cell, beside a Python program that does it in one pass of re.sub.

Both read the same template and the same steps, and must fill in the same values.
"""
import json
import pathlib
import re
import sys

import measure

COLUMNS = 10
MARKER = "<?zrx_xls #GD-C1-c[{:03}]-R1-r[***]-# ?>"
RESUB = pathlib.Path(__file__).with_name("xml_template_resub.py")


def template():
    cells = "".join(f'    <Cell ss:StyleID="text"><Data ss:Type="String">{MARKER.format(column)}</Data></Cell>\n'
                    for column in range(1, COLUMNS + 1))
    return ('<?xml version="1.0" encoding="UTF-8"?>\n'
            '<Workbook xmlns="urn:schemas-microsoft-com:office:spreadsheet"\n'
            ' xmlns:ss="urn:schemas-microsoft-com:office:spreadsheet">\n'
            ' <Styles><Style ss:ID="text"/></Styles>\n'
            ' <?zrx_xls #worksheet_begin# ?>\n'
            ' <Worksheet ss:Name="#worksheet_name#(list)">\n  <Table>\n'
            '   <?zrx_xls #grid_rows_(1)_begin# ?>\n   <Row>\n' + cells + '   </Row>\n'
            '   <?zrx_xls #grid_rows_(1)_end# ?>\n'
            '  </Table>\n </Worksheet>\n <?zrx_xls #worksheet_end# ?>\n</Workbook>\n').replace("\n", "\r\n")


def steps(rows):
    fill = [["SetRowsOfTaggedGrid", 1, rows]]
    fill += [["SetDataIntoTaggedCell", f"hodnota č. {row * column}", 1, 1, column, row]
             for row in range(1, rows + 1) for column in range(1, COLUMNS + 1)]
    return [["AddWorksheet", "Příklad", "list", fill]]


def values(path):
    return re.findall(r"<Data [^>]*>([^<]*)</Data>", path.read_text(encoding="utf-8"))


def main():
    options = measure.options(__doc__, "build/zorkanca")
    folder = options.folder
    source = folder / "list.xml"
    source.write_bytes(template().encode())
    print(measure.heading("re.sub").replace("     rows", "    cells"))
    for cells in (1_000, 10_000, 100_000):
        given = folder / f"steps_{cells}.json"
        given.write_text(json.dumps(steps(cells // COLUMNS), ensure_ascii=False), encoding="utf-8")
        ours = [options.program, "--home", str(folder / "home"), "fill", str(source), str(given), "-o",
                str(folder / "ours.xml")]
        theirs = [sys.executable, str(RESUB), str(source), str(given), str(folder / "resub.xml")]
        costs = measure.side_by_side([(ours, folder / "ours.txt"), (theirs, folder / "resub.txt")], options.runs)
        if values(folder / "ours.xml") != values(folder / "resub.xml"):
            raise SystemExit("the workbooks differ")
        print(measure.row(cells, *costs))


if __name__ == "__main__":
    main()

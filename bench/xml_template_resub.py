#!/usr/bin/env python3
"""Fills the one rows grid of a benchmark's template in one pass of re.sub:  xml_template_resub.py TEMPLATE STEPS OUT"""
import json
import re
import sys

BEGIN, END = "<?zrx_xls #grid_rows_(1)_begin# ?>", "<?zrx_xls #grid_rows_(1)_end# ?>"


def main():
    source, steps, output = sys.argv[1:]
    with open(source, encoding="utf-8", newline="") as file:
        text = file.read()
    with open(steps, encoding="utf-8") as file:
        [[_, name, _, calls]] = json.load(file)
    rows = calls[0][2]
    columns = {}
    for _, value, _, _, column, _ in calls[1:]:
        columns.setdefault(column, []).append(value)
    queues = {column: iter(queue) for column, queue in columns.items()}
    before, rest = text.split(BEGIN)
    body, behind = rest.split(END)
    text = before + body * rows + behind
    text = re.sub(r"<\?zrx_xls #GD-C1-c\[(\d+)\]-R1-r\[\*\*\*\]-# \?>", lambda found: next(queues[int(found[1])]), text)
    text = text.replace("#worksheet_name#(list)", name)
    with open(output, "w", encoding="utf-8", newline="") as file:
        file.write(re.sub(r" *<\?zrx_xls .*? \?>\r\n", "", text))


if __name__ == "__main__":
    main()

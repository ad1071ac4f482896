#!/usr/bin/env python3
"""A formatted row repeated and filled by openpyxl: the style of each pattern cell is copied as an index.

  openpyxl_rows.py template FILE [--picture]    writes the template: one formatted row of ten cells
  openpyxl_rows.py fill TEMPLATE DATA RESULT    fills it with the records of a data file of the export
"""
import copy
import csv
import struct
import sys
import zlib

import openpyxl
from openpyxl.drawing.image import Image
from openpyxl.styles import Alignment, Border, Font, PatternFill, Side

PATTERN = ["{cislo}", "{nazev}", "{skupina}", "{jednotka}", "{mnozstvi;0.00}", "{cena;#,##0.00} Kč", "{datum}",
           "{poznamka;trim}", "{nazev} ({skupina})", "{cena;0}"]


def picture(path):
    """A red square of 16 pixels."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    pixels = b"".join(b"\0" + b"\xc0\x20\x20" * 16 for _ in range(16))
    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", 16, 16, 8, 2, 0, 0, 0)) +
                   chunk(b"IDAT", zlib.compress(pixels)) + chunk(b"IEND", b""))
    return path


def template(path, with_picture):
    book = openpyxl.Workbook()
    sheet = book.active
    line = Side(style="thin")
    for column, text in enumerate(PATTERN, 1):
        cell = sheet.cell(1, column, text)
        cell.font = Font(bold=column % 2 == 0, color="1F3864")
        cell.fill = PatternFill("solid", fgColor="DDEBF7" if column % 3 else "FFF2CC")
        cell.border = Border(bottom=line)
        cell.alignment = Alignment(horizontal="right" if column > 4 else "left")
    sheet.row_dimensions[1].height = 21
    if with_picture:
        sheet.add_image(Image(picture(path + ".png")), "L1")
    book.save(path)


def fill(template_path, data_path, result):
    book = openpyxl.load_workbook(template_path)
    sheet = book.active
    styles = [copy.copy(sheet.cell(1, column)._style) for column in range(1, len(PATTERN) + 1)]
    height = sheet.row_dimensions[1].height
    with open(data_path, encoding="cp1250", newline="") as data:
        for row, texts in enumerate(csv.reader(data, delimiter=";"), 1):
            sheet.row_dimensions[row].height = height
            for column, text in enumerate(texts, 1):
                cell = sheet.cell(row, column)
                cell._style = styles[column - 1]
                if text:
                    cell.value = text
    book.save(result)


if sys.argv[1] == "template":
    template(sys.argv[2], "--picture" in sys.argv)
else:
    fill(*sys.argv[2:])

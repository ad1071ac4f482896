#!/usr/bin/env python3
"""Makes the sample Excel templates beside this file, with Debian's python3-openpyxl and python3-pil:

  /usr/bin/python3 examples/make_workbooks.py

The templates are kept as files, as a user would have them; this script is how they came about.
"""
import io
import pathlib
import zipfile

from openpyxl import Workbook
from openpyxl.drawing.image import Image
from openpyxl.formatting.rule import FormulaRule
from openpyxl.styles import Alignment, Border, Font, PatternFill, Side
from PIL import Image as Canvas
from PIL import ImageDraw

import document_properties

FOLDER = pathlib.Path(__file__).resolve().parent
BLUE, ORANGE, GREY = "1F3864", "C55A11", "808080"


def font(**look):
    return Font(**{"name": "Calibri", "size": 11, **look})


LABEL = font(size=8, color=GREY)
RIGHT = Alignment(horizontal="right")
NOTE = Alignment(horizontal="left", vertical="top", indent=1, wrap_text=True)
LINE = Border(bottom=Side(style="thin", color="BFBFBF"))
FIRM = f"{document_properties.FIRM}, Dlouhá 14, 586 01 Jihlava"


def logo(height):
    """A hammer on a blue disc."""
    canvas = Canvas.new("RGBA", (480, 480), (0, 0, 0, 0))
    draw = ImageDraw.Draw(canvas)
    draw.ellipse((0, 0, 479, 479), fill="#" + BLUE)
    draw.polygon([(205, 190), (275, 190), (265, 420), (215, 420)], fill="#E0B070")
    draw.rectangle((120, 110, 330, 195), fill="white")
    draw.polygon([(330, 110), (400, 152), (330, 195)], fill="white")
    draw.rectangle((95, 95, 135, 210), fill="#D0D0D0")
    picture = io.BytesIO()
    canvas.resize((160, 160)).save(picture, "PNG")
    image = Image(picture)
    image.width = image.height = height
    return image


def put(sheet, address, value, look=None, alignment=None, number_format=None, fill=None):
    cell = sheet[address]
    cell.value = value
    if look:
        cell.font = look
    if alignment:
        cell.alignment = alignment
    if number_format:
        cell.number_format = number_format
    if fill:
        cell.fill = PatternFill("solid", fgColor=fill)


def widths(sheet, **columns):
    for column, width in columns.items():
        sheet.column_dimensions[column].width = width


def summary(sheet):
    sheet.title = "Souhrn"
    widths(sheet, A=14, B=34, C=22)
    for row in range(1, 4):
        sheet.row_dimensions[row].height = 26
    sheet.add_image(logo(96), "A1")
    put(sheet, "B1", "Stav zásob", font(size=22, bold=True, color=BLUE))
    put(sheet, "B2", FIRM, font(color=GREY))
    rows = [("Druhů zboží na skladě", "=COUNTIF(Zásoby!H:H,\">0\")", "0"),
            ("Druhů zboží, které došlo", "=COUNTIF(Zásoby!H:H,0)", "0"),
            ("Hodnota zásob celkem", "=SUM(Zásoby!H:H)", '#,##0.00" Kč"')]
    for row, (label, formula, number_format) in enumerate(rows, 5):
        put(sheet, f"B{row}", label)
        put(sheet, f"C{row}", formula, font(bold=True), RIGHT, number_format)
        for column in "BC":
            sheet[f"{column}{row}"].border = LINE
    for column in "BC":
        sheet[f"{column}7"].font = font(bold=True, size=13, color=ORANGE)


def stock():
    """A card of two rows for each article: labels, values. The value in H is a formula of the template, behind an empty
    column; the first sheet sums it up."""
    book = Workbook()
    summary(book.active)
    sheet = book.create_sheet("Zásoby")
    widths(sheet, A=9, B=36, C=9, D=10, E=11, F=38, G=1.5, H=16)
    for column, label in zip("ABCDEFH", ["kód", "zboží", "jednotka", "zásoba", "cena", "poznámka", "hodnota"]):
        put(sheet, f"{column}1", label, LABEL, Alignment(horizontal="right") if column in "DEH" else None)
    sheet["F1"].alignment = Alignment(horizontal="left", indent=1)
    put(sheet, "A2", "{kod}", font(name="Courier New", size=10))
    put(sheet, "B2", "{nazev}", font(bold=True, color=BLUE))
    put(sheet, "C2", "{jednotka}")
    put(sheet, "D2", "{zasoba;0.00}", None, RIGHT)
    put(sheet, "E2", "{cena;0.00}", None, RIGHT)
    put(sheet, "F2", "{popis;trim}", font(size=8, italic=True), NOTE)
    value = '=IF(D2="",0,_xlfn.NUMBERVALUE(D2,",")*_xlfn.NUMBERVALUE(E2,","))'
    put(sheet, "H2", value, font(bold=True), RIGHT, '#,##0.00" Kč"')
    sheet.row_dimensions[1].height = 12
    sheet.row_dimensions[2].height = 24
    for column in "ABCDEFGH":
        sheet[f"{column}2"].border = LINE
        if column != "F":
            sheet[f"{column}2"].alignment = Alignment(horizontal="right" if column in "DEH" else "left", vertical="top")
    sold_out = PatternFill("solid", bgColor="F8CBAD")
    sheet.conditional_formatting.add("A2:H2", FormulaRule(formula=["$H2=0"], fill=sold_out))
    sheet.oddHeader.left.text = FIRM
    sheet.oddFooter.center.text = "&P / &N"
    sheet.page_setup.orientation = "landscape"
    sheet.page_setup.paperSize = sheet.PAPERSIZE_A4
    sheet.page_setup.fitToHeight = 0
    sheet.sheet_properties.pageSetUpPr.fitToPage = True
    book.active = 1
    book.worksheets[0].sheet_view.tabSelected = False
    return book


def labels():
    """A label of three rows with the logo, as often as the article asks for."""
    book = Workbook()
    sheet = book.active
    sheet.title = "Cenovky"
    widths(sheet, A=48, B=14)
    put(sheet, "A1", "{nazev}", font(size=13, bold=True, color=BLUE), Alignment(vertical="center"))
    put(sheet, "A2", "{cena;#,##0.00} Kč / {jednotka}", font(size=20, bold=True, color=ORANGE))
    put(sheet, "A3", "kód {kod}, EAN {ean}", font(size=8, color=GREY), Alignment(vertical="top"))
    for row, height in ((1, 28), (2, 27), (3, 22)):
        sheet.row_dimensions[row].height = height
    for column in "AB":
        sheet[f"{column}3"].border = Border(bottom=Side(style="dashed", color=GREY))
    sheet.add_image(logo(60), "B1")
    return book


for name, title, book in (("stav-zasob", "Stav zásob", stock()), ("cenovky", "Cenovky", labels())):
    book.template = True
    made = io.BytesIO()
    book.save(made)
    with zipfile.ZipFile(made) as source:
        entries = {entry: source.read(entry) for entry in source.namelist()}
    document_properties.set_properties(entries, title)
    document_properties.write_package(entries, FOLDER / f"{name}.xltx")

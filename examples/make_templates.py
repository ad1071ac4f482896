#!/usr/bin/env python3
"""Makes the sample Word templates beside this file, with Debian's python3-docx and python3-fonttools:  /usr/bin/python3 examples/make_templates.py

The templates are kept as files, as a user would have them; this script is how they came about.
"""
import pathlib

from docx import Document
from docx.enum.table import WD_ROW_HEIGHT_RULE
from docx.enum.text import WD_ALIGN_PARAGRAPH, WD_TAB_ALIGNMENT, WD_TAB_LEADER
from docx.oxml import OxmlElement
from docx.oxml.ns import qn
from docx.shared import Cm, Pt, RGBColor

import code39_font
import document_properties
import make_form
from template_file import save_document, set_widths

FOLDER = pathlib.Path(__file__).resolve().parent
GREY = RGBColor(0x60, 0x60, 0x60)
FIRM = f"{document_properties.FIRM}, Dlouhá 14, 586 01 Jihlava"


def add_field(paragraph, code, shown="", bold=False, size=None, font=None):
    """A field as Word writes it: begin, code, separator, the old result, end, each in a run of its own."""
    def run_with(tag, **attributes):
        run = paragraph.add_run()
        run.bold = bold
        run.font.size = size
        run.font.name = font
        element = OxmlElement(tag)
        for name, value in attributes.items():
            element.set(qn(f"w:{name}"), value)
        run._r.append(element)
        return element

    run_with("w:fldChar", fldCharType="begin")
    instruction = run_with("w:instrText")
    instruction.set(qn("xml:space"), "preserve")
    instruction.text = f" {code} "
    run_with("w:fldChar", fldCharType="separate")
    result = paragraph.add_run(shown)
    result.bold = bold
    result.font.size = size
    result.font.name = font
    run_with("w:fldChar", fldCharType="end")


def add_merge_field(paragraph, name, switches="", bold=False, size=None, font=None):
    add_field(paragraph, f"MERGEFIELD {name} {switches}".rstrip(), f"«{name}»", bold, size, font)


def add_plain(holder, text):
    paragraph = holder.add_paragraph(text)
    paragraph.paragraph_format.space_after = Pt(0)
    return paragraph


def add_line(holder, names):
    """A paragraph for one line of an address; a line of empty fields is dropped by the merge."""
    paragraph = add_plain(holder, "")
    for index, name in enumerate(names.split()):
        if index:
            paragraph.add_run(" ")
        add_merge_field(paragraph, name, bold=name == "nazev")


def new_document(margins=2.0):
    document = Document()
    style = document.styles["Normal"]
    style.font.name = "Liberation Sans"
    style.font.size = Pt(10.5)
    section = document.sections[0]
    section.page_width, section.page_height = Cm(21), Cm(29.7)
    section.left_margin = section.right_margin = section.top_margin = section.bottom_margin = Cm(margins)
    return document


def make_letter():
    document = new_document(2.5)
    header = document.sections[0].header.paragraphs[0]
    header.add_run(FIRM).font.color.rgb = RGBColor(0x40, 0x40, 0x40)
    header.add_run("\t\tFaktura ")  # past the tab stop of the middle
    add_merge_field(header, "cislo")
    footer = document.sections[0].footer.paragraphs[0]
    footer.alignment = WD_ALIGN_PARAGRAPH.CENTER
    footer.add_run("Strana ")
    add_field(footer, "PAGE", "1")

    document.add_paragraph()
    for names in ("nazev", "ulice", "psc mesto"):
        add_line(document, names)
    subject = document.add_paragraph()
    subject.paragraph_format.space_before = Pt(48)
    run = subject.add_run("Upomínka faktury č. ")
    run.bold = True
    run.font.size = Pt(14)
    add_merge_field(subject, "cislo", bold=True, size=Pt(14))
    document.add_paragraph("Dobrý den,")
    body = document.add_paragraph("dovolujeme si Vás upozornit, že faktura vystavená dne ")
    add_merge_field(body, "vystavena", '\\@ "d. MMMM yyyy"')
    body.add_run(" na částku ")
    add_merge_field(body, "celkem", '\\# "# ##0,00 Kč"', bold=True)
    body.add_run(" byla splatná ")
    add_merge_field(body, "splatna", '\\@ "d. MMMM yyyy"')
    body.add_run(" a dosud jsme neobdrželi její úhradu.")
    table = document.add_table(rows=0, cols=2)
    table.style = "Light Grid Accent 1"
    for caption, name, switches in [("Faktura", "cislo", ""), ("Variabilní symbol", "cislo", ""), ("IČO", "ico", ""),
                                    ("K úhradě", "celkem", '\\# "# ##0,00 Kč"')]:
        cells = table.add_row().cells
        cells[0].text = caption
        add_merge_field(cells[1].paragraphs[0], name, switches)
    closing = document.add_paragraph()
    closing.paragraph_format.space_before = Pt(18)
    closing.add_run("Pokud jste již zaplatili, považujte prosím tento dopis za bezpředmětný.")
    document.add_paragraph("S pozdravem")
    document.add_paragraph(FIRM.split(",")[0])
    save_document(document, FOLDER / "upominka.dotx", "Upomínka")


def make_price_list():
    document = new_document()

    def row(*texts, bold=False):
        paragraph = document.add_paragraph()
        paragraph.paragraph_format.space_after = Pt(2)
        stops = paragraph.paragraph_format.tab_stops
        stops.add_tab_stop(Cm(2.5))
        stops.add_tab_stop(Cm(17), WD_TAB_ALIGNMENT.RIGHT, WD_TAB_LEADER.DOTS if not bold else WD_TAB_LEADER.SPACES)
        for index, text in enumerate(texts):
            if index:
                paragraph.add_run("\t")
            if callable(text):
                text(paragraph)
            else:
                paragraph.add_run(text).bold = bold
        return paragraph

    document.add_paragraph("{<h}Ceník zboží", style="Title")
    document.add_paragraph(FIRM)
    row("Kód", "Zboží", "Cena bez DPH{h>}", bold=True)
    row(lambda p: add_merge_field(p, "kod"), lambda p: add_merge_field(p, "nazev"),
        lambda p: add_merge_field(p, "cena", '\\# "# ##0,00 Kč"'))
    closing = document.add_paragraph("{<p}Ceny platí do vyprodání zásob, k cenám připočítáváme DPH.{p>}")
    closing.paragraph_format.space_before = Pt(12)
    save_document(document, FOLDER / "cenik.docx", "Ceník")


def make_labels():
    document = new_document(1.0)
    columns, rows = 3, 8
    table = document.add_table(rows=rows, cols=columns)
    for index, cell in enumerate(cell for row in table.rows for cell in row.cells):
        first = cell.paragraphs[0]
        if index == 0:
            first.add_run("{<S>}")
        else:
            add_field(first, "NEXT")
        for position, line in enumerate((("nazev",), ("ulice",), ("psc", "mesto"))):
            paragraph = first if position == 0 else cell.add_paragraph()
            paragraph.paragraph_format.space_after = Pt(0)
            for number, name in enumerate(line):
                if number:
                    paragraph.add_run(" ")
                add_merge_field(paragraph, name, bold=name == "nazev")
    for row in table.rows:
        row.height = Cm(3.3)
        row.height_rule = WD_ROW_HEIGHT_RULE.EXACTLY
    save_document(document, FOLDER / "stitky.docx", "Štítky s adresami")


def make_invoice():
    """One record is one invoice; its items are lines within one value for each column of the table."""
    document = new_document(2.0)
    head = document.add_table(rows=1, cols=2)
    left, right = head.rows[0].cells
    left.paragraphs[0].add_run(FIRM.split(",")[0]).bold = True
    left.paragraphs[0].paragraph_format.space_after = Pt(0)
    add_plain(left, FIRM.split(", ", 1)[1])
    right.paragraphs[0].alignment = WD_ALIGN_PARAGRAPH.RIGHT
    right.paragraphs[0].add_run("FAKTURA ").font.size = Pt(18)
    add_merge_field(right.paragraphs[0], "cislo", bold=True, size=Pt(18))
    code = right.add_paragraph()
    code.alignment = WD_ALIGN_PARAGRAPH.RIGHT
    add_merge_field(code, "carkod", size=Pt(20), font=code39_font.NAME)

    facts = document.add_table(rows=1, cols=2)
    left, right = facts.rows[0].cells
    left.paragraphs[0].add_run("Odběratel").font.color.rgb = GREY
    for names in ("nazev", "ulice", "psc mesto"):
        add_line(left, names)
    for caption, name in (("IČO: ", "ico"), ("DIČ: ", "dic")):
        paragraph = add_plain(left, "")
        add_merge_field(paragraph, name, f'\\b "{caption}"')
    right.paragraphs[0].add_run("Platební údaje").font.color.rgb = GREY
    for caption, name, switches in [("Datum vystavení", "vystavena", '\\@ "d. M. yyyy"'),
                                    ("Datum splatnosti", "splatna", '\\@ "d. M. yyyy"'),
                                    ("Způsob úhrady", "uhrada", ""), ("Variabilní symbol", "cislo", "")]:
        paragraph = add_plain(right, caption + "\t")
        paragraph.paragraph_format.tab_stops.add_tab_stop(Cm(3.8))
        add_merge_field(paragraph, name, switches, bold=True)
    for cell in (left, right):
        cell.paragraphs[0].paragraph_format.space_before = Pt(18)
        cell.paragraphs[0].paragraph_format.space_after = Pt(3)

    add_plain(document, "").paragraph_format.space_after = Pt(10)
    add_items(document)
    for caption, name, size in [("Základ daně", "zaklad", None), ("DPH", "dph", None), ("Celkem k úhradě", "celkem", Pt(14))]:
        paragraph = add_plain(document, "")
        paragraph.paragraph_format.tab_stops.add_tab_stop(Cm(9))
        paragraph.paragraph_format.tab_stops.add_tab_stop(Cm(16.8), WD_TAB_ALIGNMENT.RIGHT)
        paragraph.paragraph_format.space_before = Pt(4 if size is None else 8)
        run = paragraph.add_run(f"\t{caption}\t")
        run.font.size = size
        add_merge_field(paragraph, name, '\\# "# ##0,00 Kč"', bold=size is not None, size=size)
    note = add_plain(document, "")
    note.paragraph_format.space_before = Pt(24)
    add_merge_field(note, "poznamka", '\\b "Poznámka: "')
    save_document(document, FOLDER / "faktura.dotx", "Faktura")


def add_items(document):
    columns = [("Kód", "polozky_kod", 1.9, False), ("Zboží", "polozky_nazev", 8.4, False), ("Počet", "polozky_pocet", 1.5, True),
               ("Cena", "polozky_cena", 2.5, True), ("Částka Kč", "polozky_castka", 2.7, True)]
    table = document.add_table(rows=2, cols=len(columns))
    table.style = "Light List Accent 1"
    set_widths(table, [width for _, _, width, _ in columns])
    for index, (caption, name, _, right) in enumerate(columns):
        table.rows[0].cells[index].text = caption
        for row in table.rows:
            row.cells[index].paragraphs[0].alignment = WD_ALIGN_PARAGRAPH.RIGHT if right else WD_ALIGN_PARAGRAPH.LEFT
        values = table.rows[1].cells[index].paragraphs[0]
        values.paragraph_format.line_spacing = 1.25
        add_merge_field(values, name, size=Pt(9.5))


if __name__ == "__main__":
    make_letter()
    make_price_list()
    make_labels()
    make_invoice()
    make_form.make()

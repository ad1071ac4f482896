"""Makes registrace.dotx, the sample form: boxes for single characters, a check box, a list, a content control, a bar code."""
import pathlib

from docx import Document
from docx.enum.table import WD_CELL_VERTICAL_ALIGNMENT, WD_ROW_HEIGHT_RULE
from docx.enum.text import WD_ALIGN_PARAGRAPH
from docx.oxml import OxmlElement
from docx.oxml.ns import qn
from docx.shared import Cm, Pt, RGBColor

import code39_font
from template_file import save_document, set_widths

FOLDER = pathlib.Path(__file__).resolve().parent
BOX, GAP, FULL = 0.62, 0.5, 17.0  # cm
GREY, BLUE = RGBColor(0x60, 0x60, 0x60), RGBColor(0x1F, 0x3A, 0x5F)


def element(parent, tag, **attributes):
    child = OxmlElement(tag)
    for name, value in attributes.items():
        child.set(qn(f"w:{name}"), value)
    parent.append(child)
    return child


def add_form_field(paragraph, name, kind="text", font=None, size=Pt(11), longest=None, entries=()):
    """A form field as Word writes it; a text field shows five blanks while it is empty."""
    def run():
        added = paragraph.add_run()
        added.font.size = size
        added.font.name = font
        return added

    begin = element(run()._r, "w:fldChar", fldCharType="begin")
    data = element(begin, "w:ffData")
    element(data, "w:name", val=name)
    element(data, "w:enabled")
    element(data, "w:calcOnExit", val="0")
    if kind == "text":
        text = element(data, "w:textInput")
        if longest:
            element(text, "w:maxLength", val=str(longest))
    elif kind == "check":
        box = element(data, "w:checkBox")
        element(box, "w:sizeAuto")
        element(box, "w:default", val="0")
    else:
        entry_list = element(data, "w:ddList")
        for entry in entries:
            element(entry_list, "w:listEntry", val=entry)
    code = element(run()._r, "w:instrText")
    code.set(qn("xml:space"), "preserve")
    code.text = {"text": " FORMTEXT ", "check": " FORMCHECKBOX ", "list": " FORMDROPDOWN "}[kind]
    element(run()._r, "w:fldChar", fldCharType="separate")
    if kind == "text":
        run().text = "\u2002" * (1 if longest == 1 else 5)
    element(run()._r, "w:fldChar", fldCharType="end")


def add_content_control(paragraph, tag):
    control = element(paragraph._p, "w:sdt")
    properties = element(control, "w:sdtPr")
    element(properties, "w:tag", val=tag)
    element(properties, "w:showingPlcHdr")
    element(properties, "w:text")
    run = element(element(control, "w:sdtContent"), "w:r")
    element(element(run, "w:rPr"), "w:color", val="808080")
    element(run, "w:t").text = "Klepněte sem."


def set_borders(cell, value):
    borders = OxmlElement("w:tcBorders")
    cell._tc.get_or_add_tcPr().insert_element_before(borders, "w:shd", "w:noWrap", "w:tcMar", "w:vAlign")
    for side in ("top", "left", "bottom", "right"):
        element(borders, f"w:{side}", val=value, sz="6", color="404040")


def tight(paragraph, size=None):
    paragraph.paragraph_format.space_after = paragraph.paragraph_format.space_before = Pt(0)
    if size:
        for run in paragraph.runs:
            run.font.size = size
    return paragraph


def add_row(document, *items):
    """A line of the form: captions above, fields below. An item is (caption, number of boxes or width in cm, filler)."""
    widths = []
    for index, (_, size, _) in enumerate(items):
        widths += ([GAP] if index else []) + ([BOX] * size if isinstance(size, int) else [size])
    table = document.add_table(rows=2, cols=len(widths))
    set_widths(table, widths)
    for row in table.rows:
        for cell in row.cells:
            tight(cell.paragraphs[0])
            cell._tc.get_or_add_tcPr().insert_element_before(margins(), "w:vAlign")
    captions, fields = table.rows
    fields.height, fields.height_rule = Cm(0.75), WD_ROW_HEIGHT_RULE.AT_LEAST
    start = 0
    for caption, size, filler in items:
        count = size if isinstance(size, int) else 1
        cell = captions.cells[start].merge(captions.cells[start + count - 1])
        cell.paragraphs[0].add_run(caption).font.color.rgb = GREY
        tight(cell.paragraphs[0], Pt(7.5))
        for number in range(count):
            box = fields.cells[start + number]
            box.vertical_alignment = WD_CELL_VERTICAL_ALIGNMENT.CENTER
            set_borders(box, "single")
            filler(box.paragraphs[0], number + 1)
        start += count + 1
    tight(document.add_paragraph(), None).paragraph_format.line_spacing = Pt(7)


def margins():
    cell_margins = OxmlElement("w:tcMar")
    for side in ("left", "right"):
        element(cell_margins, f"w:{side}", w="45", type="dxa")
    return cell_margins


def text(name, **options):
    return lambda paragraph, _: add_form_field(paragraph, name, **options)


def boxes(name):
    def fill(paragraph, number):
        paragraph.alignment = WD_ALIGN_PARAGRAPH.CENTER
        add_form_field(paragraph, f"{name}_{number}", longest=1)
    return fill


def heading(document, caption):
    paragraph = document.add_paragraph()
    paragraph.paragraph_format.space_before, paragraph.paragraph_format.space_after = Pt(8), Pt(5)
    run = paragraph.add_run(caption)
    run.bold, run.font.size, run.font.color.rgb = True, Pt(11), RGBColor(0xFF, 0xFF, 0xFF)
    shading = element(paragraph._p.get_or_add_pPr(), "w:shd", val="clear", color="auto", fill="1F3A5F")
    paragraph._p.pPr.insert_element_before(shading, "w:spacing")


def make_head(document):
    table = document.add_table(rows=1, cols=2)
    left, right = table.rows[0].cells
    set_widths(table, (10, 7))
    tight(left.paragraphs[0]).add_run("Železářství Na Růžku, Dlouhá 14, 586 01 Jihlava").font.size = Pt(8)
    title = tight(left.add_paragraph())
    run = title.add_run("REGISTRACE ODBĚRATELE")
    run.bold, run.font.size, run.font.color.rgb = True, Pt(18), BLUE
    tight(left.add_paragraph()).add_run("Tiskopis R-12, jedno písmeno do jednoho okénka").font.size = Pt(8)
    code = tight(right.paragraphs[0])
    code.alignment = WD_ALIGN_PARAGRAPH.RIGHT
    add_form_field(code, "kod", font=code39_font.NAME, size=Pt(26))
    number = tight(right.add_paragraph())
    number.alignment = WD_ALIGN_PARAGRAPH.RIGHT
    number.add_run("Evidenční číslo ").font.size = Pt(8)
    add_form_field(number, "cislo", size=Pt(8))


def signature(paragraph, _):
    paragraph.add_run("\n\n")


def make():
    document = Document()
    document.styles["Normal"].font.name = "Liberation Sans"
    section = document.sections[0]
    section.page_width, section.page_height = Cm(21), Cm(29.7)
    section.left_margin = section.right_margin = Cm(2)
    section.top_margin = section.bottom_margin = Cm(1.8)
    make_head(document)
    heading(document, " 1  Odběratel")
    add_row(document, ("Název nebo jméno a příjmení", FULL, text("nazev")))
    add_row(document, ("Ulice a číslo", FULL, text("ulice")))
    add_row(document, ("Obec", FULL - GAP - 5 * BOX, text("mesto")), ("PSČ", 5, boxes("psc")))
    add_row(document, ("IČO", 8, boxes("ico")), ("DIČ", 12, boxes("dic")))
    add_row(document, ("Datum založení (den, měsíc, rok)", 8, boxes("zalozen")),
            ("E-mail", FULL - GAP - 8 * BOX, lambda paragraph, _: add_content_control(paragraph, "email")))
    heading(document, " 2  Obchodní podmínky")
    add_row(document, ("Plátce DPH", 2.6, text("platce_dph", kind="check")),
            ("Úhrada", 7.0, text("uhrada", kind="list", entries=("hotově", "převodem", "na fakturu se splatností 30 dní"))),
            ("Sleva v procentech", FULL - 2 * GAP - 9.6, text("sleva")))
    heading(document, " 3  Poznámka")
    add_row(document, ("Pokyny k dodávkám", FULL, text("poznamka")))
    heading(document, " 4  Podpisy")
    add_row(document, ("Datum", 4.0, signature), ("Razítko a podpis odběratele", (FULL - 4) / 2 - GAP, signature),
            ("Za dodavatele", (FULL - 4) / 2 - GAP, signature))
    settings = document.settings.element
    protection = OxmlElement("w:documentProtection")
    protection.set(qn("w:edit"), "forms")
    protection.set(qn("w:enforcement"), "1")
    settings.insert_element_before(protection, "w:autoFormatOverride", "w:defaultTabStop", "w:characterSpacingControl",
                                   "w:compat", "w:rsids")
    save_document(document, FOLDER / "registrace.dotx", "Registrace odběratele")


if __name__ == "__main__":
    make()

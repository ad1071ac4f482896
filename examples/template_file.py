"""Saves a document of python-docx as a Word document or template, with the fonts that it needs inside."""
import io
import zipfile

from docx.oxml import OxmlElement
from docx.oxml.ns import qn
from docx.shared import Cm

import code39_font
from document_properties import set_properties, write_package

RELATIONSHIPS = "http://schemas.openxmlformats.org/package/2006/relationships"
OFFICE = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"


def with_font(entries):
    """Adds the bar-code font: the part, its place in the font table, its relationship and its content type."""
    table = entries["word/fontTable.xml"].decode()
    end = table.rindex("</w:fonts>")
    font = (f'<w:font w:name="{code39_font.NAME}"><w:charset w:val="00"/><w:pitch w:val="variable"/>'
            f'<w:embedRegular xmlns:r="{OFFICE}" r:id="rId1" w:fontKey="{code39_font.KEY}"/></w:font>')
    entries["word/fontTable.xml"] = (table[:end] + font + table[end:]).encode()
    entries["word/_rels/fontTable.xml.rels"] = (
        f'<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n<Relationships xmlns="{RELATIONSHIPS}">'
        f'<Relationship Id="rId1" Type="{OFFICE}/font" Target="fonts/font1.odttf"/></Relationships>').encode()
    entries["word/fonts/font1.odttf"] = code39_font.stored_bytes()
    types = entries["[Content_Types].xml"].decode()
    end = types.index(">", types.index("<Types")) + 1
    kind = "application/vnd.openxmlformats-officedocument.obfuscatedFont"
    entries["[Content_Types].xml"] = (types[:end] + f'<Default Extension="odttf" ContentType="{kind}"/>' + types[end:]).encode()


def set_widths(table, widths):
    """Widths of the columns in cm: in every cell for Word, in the grid for LibreOffice."""
    table.autofit = False
    indent = OxmlElement("w:tblInd")  # the borders stand on the margin, not the text
    indent.set(qn("w:w"), "108")
    indent.set(qn("w:type"), "dxa")
    table._tbl.tblPr.insert_element_before(indent, "w:tblBorders", "w:shd", "w:tblLayout", "w:tblCellMar", "w:tblLook")
    for column, width in zip(table.columns, widths, strict=True):
        column.width = Cm(width)
        for cell in column.cells:
            cell.width = Cm(width)


def save_document(document, path, title):
    """A template (.dotx) is a document of another content type."""
    made = io.BytesIO()
    document.save(made)
    with zipfile.ZipFile(made) as source:
        entries = {name: source.read(name) for name in source.namelist()}
    set_properties(entries, title)
    if path.suffix == ".dotx":
        entries["[Content_Types].xml"] = entries["[Content_Types].xml"].replace(b"wordprocessingml.document.main+xml",
                                                                                b"wordprocessingml.template.main+xml")
    if code39_font.NAME.encode() in entries["word/document.xml"]:
        with_font(entries)
    write_package(entries, path)

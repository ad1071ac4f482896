#!/usr/bin/env python3
"""The same letters by python-docx, as a script would make them: the template's body is copied once per record into one
document, the copy's merge fields are filled, each copy is a section of its own.

    python_docx_letters.py TEMPLATE.dotx DATA.txt OUTPUT.docx RECORDS      (Debian's python3-docx)
"""
import copy
import csv
import itertools
import pathlib
import sys
import tempfile
import zipfile

import docx
from docx.oxml import OxmlElement
from docx.oxml.ns import qn

FIELD_CHARACTER, FIELD_TYPE, INSTRUCTION = qn("w:fldChar"), qn("w:fldCharType"), qn("w:instrText")


def open_template(path):
    """python-docx opens documents only: the template gets a document's content type first."""
    with tempfile.TemporaryDirectory() as folder:
        plain = pathlib.Path(folder) / "plain.docx"
        with zipfile.ZipFile(path) as source, zipfile.ZipFile(plain, "w") as target:
            for entry in source.namelist():
                data = source.read(entry)
                if entry == "[Content_Types].xml":
                    data = data.replace(b"template.main+xml", b"document.main+xml")
                target.writestr(entry, data)
        return docx.Document(str(plain))


def fill(paragraph, record):
    """Puts the values into the fields of a copied paragraph: the result's run stays, the other runs of a field go."""
    name, in_result = None, False
    for run in list(paragraph):
        mark = run.find(FIELD_CHARACTER)
        kind = mark.get(FIELD_TYPE) if mark is not None else None
        code = run.find(INSTRUCTION)
        if code is not None:
            name = code.text.split()[1]
        if in_result and kind is None:
            run.find(qn("w:t")).text = record.get(name, "")
        elif kind or code is not None:
            paragraph.remove(run)
        in_result = kind == "separate" or (in_result and kind != "end")


def main():
    template, data, output, count = sys.argv[1:]
    document = open_template(template)
    body = document.element.body
    section = body.sectPr
    originals = [element for element in body if element is not section]
    for element in originals:
        body.remove(element)
    with open(data, encoding="utf-16", newline="") as lines:
        records = list(itertools.islice(csv.DictReader(lines, delimiter=";"), int(count)))
    for number, record in enumerate(records):
        for element in originals:
            filled = copy.deepcopy(element)
            fill(filled, record)
            section.addprevious(filled)
        if number + 1 < len(records):
            paragraph, properties = OxmlElement("w:p"), OxmlElement("w:pPr")
            properties.append(copy.deepcopy(section))
            paragraph.append(properties)
            section.addprevious(paragraph)
    document.save(output)


if __name__ == "__main__":
    main()

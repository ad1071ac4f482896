#!/usr/bin/env python3
"""Plants wrong includes into a copy of src/ and expects script/check_layers.py to name each of them."""
import pathlib
import shutil
import subprocess
import sys
import tempfile

PROJECT = pathlib.Path(__file__).resolve().parents[2]

# (file that gets the line, what it includes, what the check says)
PLANTED = [
    ("opc/package.cpp", '"excel/excel_engine.h"', "opc may not include excel"),
    ("word/word_engine.cpp", '"host/registry/file_registry.h"', "word may not include host"),
    ("excel/excel_engine.cpp", '"word/word_engine.h"', "excel may not include word"),
    ("word/text/story_text.cpp", '"word/merge/mail_merge.h"', "word/text may not include word/merge"),
    ("word/xml/word_xml.cpp", '"word/open_document.h"', "word/xml may not include word/"),
    ("excel/grid/cell.cpp", '"excel/tables/style_book.h"', "excel/grid may not include excel/tables"),
    ("excel/display/auto_fit.cpp", '"excel/drawing/drawing_repeats.h"', "excel/display may not include excel/drawing"),
    ("host/system/syslog_event_log.cpp", '"host/registry/file_registry.h"', "host/system may not include host/registry"),
    ("runtime/convert.cpp", '"platform/platform.h"', "runtime may not include platform"),
    ("platform/paths.cpp", '"foundation/folders.h"', "platform may not include foundation"),
    ("foundation/folders.cpp", '"formats/format.h"', "foundation may not include formats"),
    ("formats/format.cpp", '"office/kancel_apl.h"', "formats may not include office"),
    ("barcode/bar_code.cpp", '"formats/format.h"', "barcode may not include formats"),
    ("templates/sablona_office.cpp", '"export/zor_office.h"', "templates may not include export"),
    ("xmltemplate/template_factory.cpp", '"templates/sablona_office.h"', "xmltemplate may not include templates"),
    ("office/kancel_apl.cpp", '"export/zor_office.h"', "office may not include export"),
    ("export/zor_office.cpp", '"files/native_path.h"', "export may not include files"),
    ("textfiles/text_reader.cpp", '"files/native_path.h"', "textfiles may not include files"),
    ("files/native_path.cpp", '"opc/package.h"', "files may not include opc"),
    ("libreoffice/office_profile.cpp", '"word/word_engine.h"', "libreoffice may not include word"),
    ("libreoffice/fields/field_types.cpp", '"libreoffice/conversion_run.h"',
     "libreoffice/fields may not include libreoffice/"),
    ("sqlite/sqlite_types.cpp", '"files/native_path.h"', "sqlite may not include files"),
    ("odbc/odbc_types.cpp", '"sqlite/sqlite_types.h"', "odbc may not include sqlite"),
    ("cli/main.cpp", "<sqlext.h>", "cli may not use <sqlext.h>"),
    ("qt/qt_text.h", '"host/desktop/display.h"', "qt may not include host"),
    ("host/pdf_batch.cpp", '"export/zor_office.h"', "host may not include export"),
    ("cli/main.cpp", '"word/word_engine.h"', "cli may not include word"),
    ("com/server.cpp", '"files/native_path.h"', "com may not include files"),
    ("com/server.cpp", "<windows.h>", "com may use the standard library alone, not <windows.h>"),
    ("win32/system/system_clock.cpp", '"foundation/folders.h"', "win32 may not include foundation"),
    ("win32/files/file_handle.h", '"win32/registry/win32_registry.h"',
     "win32/files may not include win32/registry"),
    ("export/zor_office.cpp", '"win32/system.h"', "export may not include win32"),
    ("export/zor_office.cpp", "<pugixml.hpp>", "export may not use <pugixml.hpp>"),
    ("word/word_engine.cpp", "<sqlite3.h>", "word may not use <sqlite3.h>"),
    ("textfiles/text_writer.cpp", "<unistd.h>", "textfiles may use the standard library alone"),
    ("runtime/text.h", '"runtime/value.h"', "circle of includes: runtime/"),
    ("runtime/convert.cpp", '"text.h"', "is no file below src/"),
]


def check(source):
    run = subprocess.run([sys.executable, PROJECT / "script" / "check_layers.py", source], capture_output=True, text=True)
    return run.returncode, run.stderr


def main():
    failures = []
    with tempfile.TemporaryDirectory() as folder:
        source = pathlib.Path(folder) / "src"
        shutil.copytree(PROJECT / "src", source)
        if check(source) != (0, ""):
            failures.append("the tree as it is does not pass")
        for name, target, expected in PLANTED:
            path = source / name
            clean = path.read_text(encoding="utf-8")
            path.write_text(f"#include {target}\n{clean}", encoding="utf-8")
            code, said = check(source)
            if code != 1 or expected not in said:
                failures.append(f"{name} with {target}: status {code}, {said!r}")
            path.write_text(clean, encoding="utf-8")
        (source / "cellar").mkdir()
        (source / "cellar" / "box.h").write_text("#pragma once\n", encoding="utf-8")
        if "cellar is no layer" not in check(source)[1]:
            failures.append("a folder without a line in the tables is not named")
    print("\n".join(failures) or f"{len(PLANTED) + 2} cases")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())

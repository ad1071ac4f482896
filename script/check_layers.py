#!/usr/bin/env python3
"""Checks the include lines of src/: who may include whom, where outside libraries may appear, no circles.

    check_layers.py [SRC]    SRC: the folder of the layers, src/ of this project without it
"""
import pathlib
import re
import sys

PROJECT = pathlib.Path(__file__).resolve().parent.parent

# Every arrow between layers: a layer may include itself and what stands here.
LOGIC = {"runtime", "platform", "foundation"}
LAYERS = {
    "runtime": set(),
    "platform": {"runtime"},
    "foundation": {"platform", "runtime"},
    "formats": LOGIC,
    "barcode": LOGIC,
    "templates": LOGIC,
    "xmltemplate": LOGIC,
    "office": LOGIC,
    "export": LOGIC | {"formats", "barcode", "templates", "office"},
    "textfiles": {"platform", "runtime"},
    "files": {"textfiles", "platform", "runtime"},
    "opc": {"files", "textfiles", "runtime"},
    "libreoffice": {"files", "opc", "runtime"},
    "word": {"files", "opc", "libreoffice", "platform", "runtime"},
    "excel": {"files", "opc", "libreoffice", "platform", "runtime"},
    "sqlite": {"platform", "runtime"},
    "odbc": {"platform", "runtime"},
    "tabular": {"sqlite", "files", "platform", "runtime"},
    "host": {"files", "textfiles", "opc", "libreoffice", "word", "excel", "platform", "runtime"},
    "qt": {"platform", "runtime"},
    "win32": {"textfiles", "platform", "runtime"},
    "com": LOGIC | {"formats", "barcode", "templates", "xmltemplate", "office", "export", "win32"},
    "cli": {"barcode", "export", "files", "formats", "foundation", "host", "office", "odbc", "platform", "runtime",
            "sqlite", "tabular", "templates", "xmltemplate"},
}

# Every arrow between the folders of a layer that has any; "" is the layer's own.
FOLDERS = {
    "platform": {"": {"word", "excel"}, "word": set(), "excel": set()},
    "libreoffice": {"fields": set(), "": {"fields"}},
    "word": {
        "xml": set(),
        "text": {"xml"},
        "fields": {"text", "xml"},
        "document": {"text", "xml"},
        "forms": {"document", "fields", "text", "xml"},
        "merge": {"document", "fields", "text", "xml"},
        "": {"document", "forms", "merge", "text", "xml"},
    },
    "excel": {
        "grid": set(),
        "tables": {"grid"},
        "text": {"grid"},
        "sheet": {"grid", "tables", "text"},
        "display": {"grid", "sheet", "tables"},
        "drawing": {"grid", "sheet", "tables"},
        "book": {"display", "drawing", "grid", "sheet", "tables"},
        "": {"book", "display", "grid", "sheet", "tables", "text"},
    },
    "host": {
        "console": set(),
        "desktop": {"console"},
        "registry": set(),
        "system": set(),
        "": {"desktop", "registry", "system"},
    },
    "win32": {
        "": set(),
        "automation": {""},
        "database": {"", "automation"},
        "desktop": {"", "files", "forms"},
        "files": {""},
        "forms": {""},
        "office": {"", "automation"},
        "registry": {""},
        "system": {""},
        "computer": {"", "automation", "database", "desktop", "files", "forms", "office", "registry", "system"},
    },
}

# Headers from outside that are not the standard library's, and the layers that may use them.
LIBRARIES = {
    re.compile(r"pugixml\.hpp$"): {"opc", "libreoffice", "word", "excel"},
    re.compile(r"(expat|zlib)\.h$|isa-l/"): {"opc"},
    re.compile(r"sqlite3\.h$"): {"sqlite"},
    re.compile(r"(sql|sqlext|sqlucode)\.h$"): {"odbc"},
    re.compile(r"Q[A-Z]"): {"qt"},
    re.compile(r"(CLI|nlohmann)/"): {"cli"},
    re.compile(r"zorkanca_idl\.h$"): {"com"},  # made of the interface definition
}
SYSTEM = {"files", "opc", "libreoffice", "odbc", "word", "excel", "host", "qt", "cli"}  # may use what POSIX declares
WINDOWS = "win32/system.h"  # the one file that may include what Windows declares
STANDARD = re.compile(r"[a-z_0-9]+$")  # <vector>, <cstdint>: no folder, no extension

INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])([^>"]+)[>"]')


def includes(path):
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        match = INCLUDE.match(line)
        if match:
            yield number, match.group(1) == "<", match.group(2)


def layer_and_folder(name):
    """"word/merge/program.h" -> ("word", "merge")."""
    layer, _, rest = name.partition("/")
    return layer, rest.rpartition("/")[0]


def outside_problem(name, target):
    layer, _ = layer_and_folder(name)
    if name == WINDOWS or STANDARD.match(target):
        return None
    for library, users in LIBRARIES.items():
        if library.match(target):
            return None if layer in users else f"{layer} may not use <{target}>"
    return None if layer in SYSTEM else f"{layer} may use the standard library alone, not <{target}>"


def inside_problem(name, target):
    layer, folder = layer_and_folder(name)
    target_layer, target_folder = layer_and_folder(target)
    if layer != target_layer:
        return None if target_layer in LAYERS[layer] else f"{layer} may not include {target_layer}"
    if folder == target_folder or target_folder in FOLDERS.get(layer, {}).get(folder, set()):
        return None
    return f"{layer}/{folder} may not include {layer}/{target_folder}"


def check_file(source, path, graph):
    name = path.relative_to(source).as_posix()
    layer, _ = layer_and_folder(name)
    if layer not in LAYERS:
        yield f"src/{name}: {layer} is no layer"
        return
    for number, system, target in includes(path):
        if system:
            problem = outside_problem(name, target)
        elif not (source / target).is_file():
            problem = f'"{target}" is no file below src/ (write includes as "layer/file.h")'
        else:
            graph.setdefault(name, []).append(target)
            problem = inside_problem(name, target)
        if problem:
            yield f"src/{name}:{number}: {problem}"


def circles(graph):
    """Circles of files; and, should the tables above ever allow one, of folders."""
    folders = {}
    for name, targets in graph.items():
        here = name.rpartition("/")[0]
        there = {target.rpartition("/")[0] for target in targets} - {here}
        folders.setdefault(here, set()).update(there)
    yield from circles_of({name: sorted(targets) for name, targets in folders.items()})
    yield from circles_of(graph)


def circles_of(graph):
    state = {}
    trail = []

    def visit(name):
        state[name] = "open"
        trail.append(name)
        for target in graph.get(name, []):
            if state.get(target) == "open":
                yield "circle of includes: " + " -> ".join(trail[trail.index(target):] + [target])
            elif target not in state:
                yield from visit(target)
        trail.pop()
        state[name] = "done"

    for name in sorted(graph):
        if name not in state:
            yield from visit(name)


def main():
    source = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else PROJECT / "src").resolve()
    graph = {}
    problems = []
    for path in sorted(source.rglob("*")):
        if path.suffix in (".h", ".cpp"):
            problems += check_file(source, path, graph)
    problems += circles(graph)
    for problem in problems:
        print(problem, file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())

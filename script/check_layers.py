#!/usr/bin/env python3
"""Checks the include lines of src/: which layer may include which, where outside libraries may appear, no circles."""
import pathlib
import re
import sys

SRC = pathlib.Path(__file__).resolve().parent.parent / "src"

# A layer may include itself and what stands here.
BASE = {"runtime", "platform"}
LOGIC = BASE | {"foundation"}
ALLOWED = {
    "runtime": set(),
    "platform": {"runtime"},
    "foundation": BASE,
    "barcode": LOGIC,
    "templates": LOGIC,
    "xmltemplate": LOGIC,
    "office": LOGIC | {"export"},  # the PDF conversion opens its documents as the exports do
    "export": LOGIC | {"barcode", "templates", "xmltemplate", "office"},
    "host": BASE,
    "cli": None,  # a face sees everything
    "com": None,
}
# Layers that may include more than the standard library.
OUTSIDE = {"host", "cli", "com"}
STANDARD = re.compile(r"^[a-z_0-9]+$")  # <vector>, <cstdint>: no folder, no extension

INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])([^>"]+)[>"]')


def includes(path):
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        match = INCLUDE.match(line)
        if match:
            yield number, match.group(1) == "<", match.group(2)


def check_file(path, graph):
    name = path.relative_to(SRC).as_posix()
    layer = name.split("/")[0]
    allowed = ALLOWED.get(layer, set())
    for number, system, target in includes(path):
        place = f"src/{name}:{number}"
        if system:
            if layer not in OUTSIDE and not STANDARD.match(target):
                yield f"{place}: <{target}> is not of the standard library; only host and the faces may use it"
            continue
        if not (SRC / target).is_file():
            yield f'{place}: "{target}" is no file below src/ (write includes as "layer/file.h")'
            continue
        graph.setdefault(name, []).append(target)
        target_layer = target.split("/")[0]
        if allowed is not None and target_layer != layer and target_layer not in allowed:
            yield f"{place}: {layer} may not include {target_layer}"


def circles(graph):
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
    graph = {}
    problems = []
    for path in sorted(SRC.rglob("*")):
        if path.suffix in (".h", ".cpp"):
            problems += check_file(path, graph)
    problems += circles(graph)
    for problem in problems:
        print(problem, file=sys.stderr)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())

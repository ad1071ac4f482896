#!/usr/bin/env python3
"""Looks at a built DLL from outside: which functions it offers, which libraries it needs, that it keeps its size.

    libraries_test.py OBJDUMP DLL [DLL...]
"""
import os
import re
import subprocess
import sys

EXPORTS = ["DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer", "DllUnregisterServer"]
# What every Windows has had since the suite's time.
IMPORTS = {"advapi32", "comdlg32", "gdi32", "kernel32", "msvcrt", "ole32", "oleaut32", "shell32", "user32"}
LARGEST = 2 * 1024 * 1024
FORMATS = {"pei-x86-64", "pei-i386"}


def failures(objdump, dll):
    said = subprocess.run([objdump, "-p", dll], capture_output=True, text=True, check=True).stdout
    if not FORMATS & set(re.findall(r"file format (\S+)", said)):
        yield f"not a DLL: {said[:80]!r}"
    names = said[said.index("[Ordinal/Name Pointer] Table"):]
    exports = re.findall(r"^\s*\[\s*\d+\](?: \+base\[\s*\d+\])?\s+(?:[0-9a-f]+ )?(\w\S*)$", names, re.MULTILINE)
    if exports != EXPORTS:
        yield f"exports {exports}"
    imports = {name.lower().removesuffix(".dll") for name in re.findall(r"DLL Name: (\S+)", said)}
    if imports - IMPORTS:
        yield f"needs {sorted(imports - IMPORTS)}"
    if os.path.getsize(dll) > LARGEST:
        yield f"{os.path.getsize(dll)} bytes"


def main():
    objdump, *dlls = sys.argv[1:]
    found = [f"{dll}: {failure}" for dll in dlls for failure in failures(objdump, dll)]
    print("\n".join(found) or f"{len(dlls)} libraries")
    return 1 if found or not dlls else 0


if __name__ == "__main__":
    sys.exit(main())

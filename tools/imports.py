#!/usr/bin/env python3
"""usage: tools/imports.py --device LIST --platform README --runtime DLL... DLL

Fails on every name that DLL imports and the device does not export (LIST: one a line, DLL, tab, name), unless README
has it in the column "Desktop import" of its table, or the compiler's runtime needs it: that is what the DLL of
--runtime imports, which holds nothing of ours, and whatever comes from the runtime's own DLLs.
"""
import argparse
import pathlib
import re
import sys

import pe

RUNTIME_LIBRARIES = ("libstdc++", "libgcc", "libwinpthread")
COLUMN = "Desktop import"


def device_names(path):
    names = set()
    for line in path.read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            names.add(line.split("\t")[1])
    return names


def stand_ins(path):
    """The names in backquotes in the table's column."""
    names, column = set(), None
    for line in path.read_text(encoding="utf-8").splitlines():
        cells = [cell.strip() for cell in line.strip().strip("|").split("|")]
        if COLUMN in cells:
            column = cells.index(COLUMN)
        elif not line.startswith("|"):
            column = None
        elif column is not None and column < len(cells):
            names.update(re.findall(r"`([^`]+)`", cells[column]))
    return names


def foreign(imports, known):
    return [(library, name) for library, name in imports
            if not library.lower().startswith(RUNTIME_LIBRARIES) and name not in known]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--device", type=pathlib.Path, required=True)
    parser.add_argument("--platform", type=pathlib.Path, required=True)
    parser.add_argument("--runtime", type=pathlib.Path, required=True)
    parser.add_argument("dll", type=pathlib.Path)
    options = parser.parse_args()

    imports = pe.Image(options.dll).imports()
    if not imports:
        print(f"{options.dll.name}: imports nothing at all")
        return 1
    known = device_names(options.device) | stand_ins(options.platform)
    known |= {name for _, name in pe.Image(options.runtime).imports()}
    faults = foreign(imports, known)
    for library, name in faults:
        print(f"{options.dll.name}: {name} of {library} is not on the device")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

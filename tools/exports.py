#!/usr/bin/env python3
"""usage: tools/exports.py [--demangler PROGRAM] [--headers FOLDER] LIST DLL
       tools/exports.py [--demangler PROGRAM] --write LIST DLL32 DLL64

Compares the exported names of DLL with LIST, which has one a line, readable. A name that only one width has (an
integer of a pointer's size reads differently) stands behind "32: " or "64: ". With --write the list is made anew from
the DLLs of both widths; look at what changed before it is kept: applications depend on every line.

With --headers each exported name must stand in a public header just as it is: what does not is private, or was renamed
by a macro of the platform, which a program that is compiled with other settings would not be.
"""
import argparse
import pathlib
import re
import subprocess
import sys

import pe

HEAD = "# What vantor.dll exports; written by tools/exports.py --write. A line that goes breaks applications.\n"


def exported(dll, demangler):
    """The width and the set of readable names."""
    image = pe.Image(dll)
    names = "\n".join(image.exports()) + "\n"
    done = subprocess.run([demangler, "--no-strip-underscore"], input=names, capture_output=True, text=True, check=True)
    return image.width, set(done.stdout.splitlines())


def write(path, dlls, demangler):
    found = dict(exported(dll, demangler) for dll in dlls)
    both = found[32] & found[64]
    lines = sorted(both) + [f"{width}: {name}" for width in (32, 64) for name in sorted(found[width] - both)]
    path.write_text(HEAD + "\n".join(lines) + "\n", encoding="utf-8")


def listed(path, width):
    names = set()
    for line in path.read_text(encoding="utf-8").splitlines():
        if line.startswith((f"{96 - width}: ", "#")):
            continue
        names.add(line.removeprefix(f"{width}: "))
    return names


def not_declared(names, folder):
    """Pairs of exported name and the word of it that no header has."""
    words = set()
    for header in folder.glob("*.h"):
        words.update(re.findall(r"\w+", header.read_text(encoding="utf-8")))
    for name in sorted(names):
        qualified = re.sub(r"\[abi:\w+\]|^(?:vtable|typeinfo|typeinfo name) for ", "", name)
        qualified = re.sub(r"\(.*", "", qualified)
        for word in re.findall(r"\w+", qualified):
            if word not in words:
                yield name, word


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--demangler", default="c++filt")
    parser.add_argument("--headers", type=pathlib.Path)
    parser.add_argument("--write", action="store_true")
    parser.add_argument("list", type=pathlib.Path)
    parser.add_argument("dll", type=pathlib.Path, nargs="+")
    options = parser.parse_args()

    if options.write:
        write(options.list, options.dll, options.demangler)
        return 0
    width, names = exported(options.dll[0], options.demangler)
    known = listed(options.list, width)
    for name in sorted(known - names):
        print(f"no longer exported: {name}")
    for name in sorted(names - known):
        print(f"exported, but not listed: {name}")
    hidden = list(not_declared(names, options.headers)) if options.headers else []
    for name, word in hidden:
        print(f"exported, but no public header has the word {word}: {name}")
    return 0 if names == known and not hidden else 1


if __name__ == "__main__":
    sys.exit(main())

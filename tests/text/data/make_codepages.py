#!/usr/bin/env python3
"""Writes codepages.txt beside this script: what iconv makes of the code pages' bytes.

page N: 16 rows of 16 UTF-16 units, one for each byte of a single-byte page; ---- where iconv knows none.
pairs N: bytes and UTF-16 units of single characters of a multi-byte page, which iconv converts in both directions.
"""
import pathlib
import subprocess

PAGES = {437: "CP437", 850: "CP850", 852: "CP852", 866: "CP866", 20866: "KOI8-R"}
PAGES |= {number: f"CP{number}" for number in range(1250, 1259)}
PAGES |= {28590 + part: f"ISO-8859-{part}" for part in (1, 2, 4, 5, 9, 15)}

# The ends of the lengths of UTF-8, the ends of the surrogates' neighbours, and some letters.
UTF8 = [0x01, 0x41, 0x7F, 0x80, 0xE4, 0x7FF, 0x800, 0x20AC, 0xD7FF, 0xE000, 0xFEFF, 0xFFFD, 0xFFFF,
        0x10000, 0x1F600, 0x10FFFF]


def convert(data, source, target):
    return subprocess.run(["iconv", "-c", "-f", source, "-t", target], input=data, stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, check=False).stdout


def single(name):
    """Every byte on a line of its own: what iconv drops leaves the line empty, and nothing composes across lines."""
    data = b"".join(bytes([byte, 10]) for byte in range(256) if byte != 10)
    lines = convert(data, name, "UTF-16BE").decode("utf-16-be", "surrogatepass").split("\n")[:-1]
    units = [f"{ord(line):04X}" if line else "----" for line in lines]
    units.insert(10, "000A")
    assert len(units) == 256, name
    return [" ".join(units[row:row + 16]) for row in range(0, 256, 16)]


def pair(data, name):
    units = convert(data, name, "UTF-16BE")
    if len(units) not in (2, 4) or (len(units) == 4 and not 0xD8 <= units[0] < 0xDC):
        return None
    return f"{data.hex().upper()} {units.hex().upper()}" if convert(units, "UTF-16BE", name) == data else None


def main():
    lines = ["# Made by make_codepages.py."]
    for number, name in sorted(PAGES.items()):
        lines += [f"page {number}", *single(name)]
    # Half-width letters, and every 61st place of the double-byte rows.
    places = [bytes([byte]) for byte in range(0xA1, 0xE0)]
    rows = [*range(0x81, 0xA0), *range(0xE0, 0xEB)]
    places += [bytes([row, cell]) for row in rows for cell in range(0x40, 0xFD)][::61]
    lines += ["pairs 932", *filter(None, (pair(place, "CP932") for place in places))]
    lines += ["pairs 65001", *(pair(chr(code).encode("utf-8"), "UTF-8") for code in UTF8)]
    pathlib.Path(__file__).with_name("codepages.txt").write_text("\n".join(lines) + "\n", encoding="ascii")


main()

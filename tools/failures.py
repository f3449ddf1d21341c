#!/usr/bin/env python3
"""usage: tools/failures.py [--check] [--root FOLDER]

Reads the failure table off src/ (every `Fail(number, L"Function" ...)` together with the file's tag) and the rows that
the tests hold (`EXPECT_FAILURE(number, L"tag", L"Function" ...)` in tests/**/*.cpp), compares the two and writes
docs/failures.md. With --check nothing is written: a stale docs/failures.md is a fault as well. Faults are listed one a
line, and the exit status is 1.
"""
import argparse
import collections
import pathlib
import re
import sys

Row = collections.namedtuple("Row", "tag number function operation place")

LITERAL = r'L"((?:[^"\\\n]|\\.)*)"'
TOKEN = re.compile(r'//[^\n]*|/\*.*?\*/|R"(?P<d>[^(\s]*)\(.*?\)(?P=d)"|"(?:[^"\\\n]|\\.)*"|\'(?:[^\'\\\n]|\\.)+\'', re.S)
THROWER = re.compile(r'\bCThrower\s+(\w+)\s*\{\s*' + LITERAL + r'\s*\}')
OWN_FAIL = re.compile(r'\bvoid\s+(Fail\w*)\s*\([^)]*\)\s*\{[^}]*?' + LITERAL, re.S)
TEXT_CONSTANT = re.compile(r'\bwchar_t\b[\s*const]*\b(\w+)\s*(?:\[\s*\])?\s*=\s*' + LITERAL)
HEAD = re.compile(r'((?:\w+(?:<[^<>()]*>)?::)*~?(?:operator\s*(?:\(\)|\[\]|[^\s(\w]+|\w+\s*\*?)|\w+))\s*\(')
CONTROL = {"if", "for", "while", "switch", "catch", "try", "do", "else", "return", "case", "default"}


class Unreadable(Exception):
    pass


def without_comments(source):
    """The source with comments blanked out; every character keeps its place."""
    def blank(match):
        text = match.group(0)
        return re.sub(r"[^\n]", " ", text) if text.startswith("/") else text
    return TOKEN.sub(blank, source)


def unescape(literal):
    return re.sub(r"\\(.)", r"\1", literal)


def arguments(source, start):
    """The top-level arguments of the call whose opening parenthesis stands at start."""
    depth, begin, pos, found = 0, start + 1, start, []
    while pos < len(source):
        string = TOKEN.match(source, pos)
        if string and source[pos] in "\"'R":
            pos = string.end()
            continue
        char = source[pos]
        if char in "([{":
            depth += 1
        elif char in ")]}":
            depth -= 1
            if depth == 0:
                found.append(source[begin:pos].strip())
                return found
        elif char == "," and depth == 1:
            found.append(source[begin:pos].strip())
            begin = pos + 1
        pos += 1
    raise Unreadable("a call without an end")


def text_of(argument, source, pos):
    """The text that an argument stands for: a literal, or the constant of that name that was defined last."""
    literal = re.fullmatch(r'(?:' + LITERAL + r'\s*)', argument)
    if literal:
        return unescape(literal.group(1))
    values = [m.group(2) for m in TEXT_CONSTANT.finditer(source, 0, pos) if m.group(1) == argument]
    if not values:
        raise Unreadable(f"'{argument}' is neither a text nor a constant with a text")
    return unescape(values[-1])


def number_of(argument):
    if not re.fullmatch(r"\d+", argument):
        raise Unreadable(f"'{argument}' is no number")
    return int(argument)


def line_at(source, pos):
    return source.count("\n", 0, pos) + 1


def heads_around(source, pos):
    """What stands before each open brace around pos, innermost first, on the lines up to the last statement's end."""
    source = re.sub(r"(?<=[\w>])\{([^{};]*)\}", r"(\1)", source)   # initialisers; as long as before
    opened = []
    scan = 0
    while scan < pos:
        string = TOKEN.match(source, scan)
        if string:
            scan = string.end()
            continue
        if source[scan] == "{":
            opened.append(scan)
        elif source[scan] == "}" and opened:
            opened.pop()
        scan += 1
    for brace in reversed(opened):
        begin = max(source.rfind(mark, 0, brace) for mark in ";{}")
        lines = [line for line in source[begin + 1:brace].splitlines() if not line.lstrip().startswith("#")]
        yield " ".join(" ".join(lines).split())


def operation_at(source, pos):
    """The qualified name of the function around pos, as far as the file tells it."""
    name, classes = "", []
    for head in heads_around(source, pos):
        owner = re.match(r"(?:template\s*<.*?>\s*)?(?:class|struct)\s+(?:[A-Z_]+\s+)?(\w+)", head)
        if owner:
            classes.insert(0, owner.group(1))
            continue
        if name or re.search(r"\[[^\[\]]*\]\s*(?:\([^()]*\))?[\w\s>-]*$", head):   # found already; or a lambda
            continue
        head = re.sub(r"^(?:case\b.*?:|default:|public:|protected:|private:)\s*", "", head)
        first = re.match(r"\w*", head).group(0)
        called = HEAD.search(head)
        if called and first not in CONTROL:
            name = re.sub(r"\s+", " ", called.group(1))
    if not name:
        raise Unreadable("no function around it")
    return "::".join(classes + [name])


def source_rows(root):
    rows, faults = [], []
    for path in sorted((root / "src").rglob("*")):
        if path.suffix not in (".cpp", ".h"):
            continue
        source = without_comments(path.read_text(encoding="utf-8"))
        throwers = {m.group(1): unescape(m.group(2)) for m in THROWER.finditer(source)}
        throwers.update({m.group(1): unescape(m.group(2)) for m in OWN_FAIL.finditer(source)})
        for name, tag in throwers.items():
            for call in re.finditer(r"(?<!void )(?<![\w.>:])" + name + r"\s*\(", source):
                place = f"{path.relative_to(root)}:{line_at(source, call.start())}"
                try:
                    given = arguments(source, call.end() - 1)
                    if len(given) < 2:
                        raise Unreadable("less than two arguments")
                    rows.append(Row(tag, number_of(given[0]), text_of(given[1], source, call.start()),
                                    operation_at(source, call.start()), place))
                except Unreadable as fault:
                    faults.append(f"{place}: cannot be read: {fault}")
    return rows, faults


def test_rows(root):
    rows, faults = [], []
    for path in sorted((root / "tests").rglob("*.cpp")):
        if "support" in path.relative_to(root / "tests").parts:   # these rows try the helper itself
            continue
        source = without_comments(path.read_text(encoding="utf-8"))
        for call in re.finditer(r"\bEXPECT_\w*FAILURE\s*\(", source):
            if "NONFATAL" in call.group(0) or "_FATAL" in call.group(0):   # GoogleTest's own
                continue
            place = f"{path.relative_to(root)}:{line_at(source, call.start())}"
            try:
                given = arguments(source, call.end() - 1)
                if len(given) < 5:
                    raise Unreadable("less than five arguments")
                rows.append(Row(text_of(given[1], source, call.start()), number_of(given[0]),
                                text_of(given[2], source, call.start()), "", place))
            except Unreadable as fault:
                faults.append(f"{place}: cannot be read: {fault}")
    return rows, faults


def compare(thrown, expected):
    """What differs between the throws and the tests' rows, in words."""
    faults = []
    table = {}
    for row in thrown:
        other = table.setdefault((row.tag, row.number), row)
        if (row.function, row.operation) != (other.function, other.operation):
            faults.append(f"{row.place}: {row.tag} {row.number} is {row.function} in {row.operation}, "
                          f"but {other.function} in {other.operation} at {other.place}")
    seen = set()
    for row in expected:
        key = (row.tag, row.number)
        seen.add(key)
        if key not in table:
            faults.append(f"{row.place}: {row.tag} {row.number} is thrown nowhere")
        elif table[key].function != row.function:
            faults.append(f"{row.place}: {row.tag} {row.number} is {table[key].function} at {table[key].place}, "
                          f"not {row.function}")
    for key, row in table.items():
        if key not in seen:
            faults.append(f"{row.place}: {row.tag} {row.number} ({row.function}) is expected by no test")
    return faults


def document(thrown):
    lines = [
        "# Failures",
        "",
        "Written by `tools/failures.py`; change the sources instead. Every exception that the library throws carries a tag, a",
        "number and a function name. The numbers are names of places, not positions in a file: they never change, so a number",
        "in an old report can still be looked up here. `vantor::` is left out of the last column.",
        "",
        "| Tag | Number | Function | Thrown by |",
        "|---|---|---|---|",
    ]
    cells = sorted({(row.tag, row.number, row.function, row.operation) for row in thrown})
    lines += [f"| `{tag}` | {number} | `{function}` | `{operation}` |" for tag, number, function, operation in cells]
    return "\n".join(lines) + "\n"


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--check", action="store_true", help="write nothing; a stale document is a fault")
    parser.add_argument("--root", type=pathlib.Path, default=pathlib.Path(__file__).resolve().parent.parent)
    options = parser.parse_args()

    thrown, faults = source_rows(options.root)
    if not thrown:
        faults.append("src/: no failure found at all")
    expected, unreadable = test_rows(options.root)
    faults += unreadable + compare(thrown, expected)

    target = options.root / "docs" / "failures.md"
    text = document(thrown)
    if options.check:
        if not target.is_file() or target.read_text(encoding="utf-8") != text:
            faults.append("docs/failures.md: stale; run tools/failures.py")
    else:
        target.parent.mkdir(exist_ok=True)
        target.write_text(text, encoding="utf-8")
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

"""Starts the Windows programs that are tested, and reads and writes language files without the library."""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

BIN = pathlib.Path(sys.argv[1]).resolve()
EMULATOR = sys.argv[2:]   # the launcher and the width, or nothing where the programs run by themselves


def run(program, *arguments, folder, locale="C.UTF-8"):
    """The finished process; its output is text with plain line feeds."""
    done = subprocess.run([*EMULATOR, str(program), *arguments], cwd=folder, env={**os.environ, "LC_ALL": locale},
                          stdin=subprocess.DEVNULL, capture_output=True, timeout=120)
    done.stdout, done.stderr = (out.decode("utf-8").replace("\r\n", "\n") for out in (done.stdout, done.stderr))
    return done


def write_table(path, pairs):
    text = "\ufeff" + "".join(f"[{text}]\n" for pair in pairs for text in pair)
    pathlib.Path(path).write_bytes(text.encode("utf-16-le"))


def read_table(path):
    text = pathlib.Path(path).read_bytes().decode("utf-16-le")
    assert text[:1] == "\ufeff", "no byte-order mark"
    lines = re.split(r"\]\n(?=\[|\Z)", text[1:])
    assert lines.pop() == "", "the last line has no end"
    assert len(lines) % 2 == 0 and all(line.startswith("[") for line in lines)
    texts = [line[1:] for line in lines]
    assert texts[::2] == sorted(texts[::2], key=lambda text: text.encode("utf-16-be")), "not in order"
    return dict(zip(texts[::2], texts[1::2]))


class ProgramTest(unittest.TestCase):
    """Each test has a folder of its own, which is the current one of the programs it starts."""

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="vantor-"))
        self.addCleanup(shutil.rmtree, self.folder)

    def install(self, program):
        """Copies a program and the DLLs it needs into the test's folder."""
        for path in [BIN / program, *BIN.glob("*.dll")]:
            shutil.copy(path, self.folder)
        return self.folder / program


def main():
    unittest.main(argv=sys.argv[:1])

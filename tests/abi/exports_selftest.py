"""usage: exports_selftest.py DEMANGLER DLL

What tools/exports.py finds in a small DLL that exports the one function Empty.
"""
import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = pathlib.Path(__file__).resolve().parents[2] / "tools" / "exports.py"
DEMANGLER = DLL = None


class ExportsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.list = pathlib.Path(folder.name, "exports.txt")

    def check(self, text, *options):
        self.list.write_text(text, encoding="utf-8")
        done = subprocess.run([sys.executable, str(TOOL), "--demangler", DEMANGLER, *options, str(self.list), DLL],
                              capture_output=True, text=True, check=False)
        self.assertEqual("", done.stderr)
        return done.returncode, done.stdout

    def test_the_listed_name_passes(self):
        self.assertEqual((0, ""), self.check("# comment\nEmpty\n"))

    def test_a_name_that_is_not_listed_is_found(self):
        self.assertEqual((1, "exported, but not listed: Empty\n"), self.check("# comment\n"))

    def test_a_name_that_went_is_found(self):
        self.assertEqual((1, "no longer exported: Full\n"), self.check("Empty\nFull\n"))

    def test_a_name_of_one_width_counts_in_that_width_only(self):
        statuses = {self.check("32: Empty\n")[0], self.check("64: Empty\n")[0]}
        self.assertEqual({0, 1}, statuses)

    def test_a_name_of_a_public_header_passes(self):
        self.list.with_name("a.h").write_text("int Empty(int);\n", encoding="utf-8")
        self.assertEqual((0, ""), self.check("Empty\n", "--headers", str(self.list.parent)))

    def test_a_name_that_no_public_header_has_is_found(self):
        self.list.with_name("a.h").write_text("int EmptyW(int);\n", encoding="utf-8")
        self.assertEqual((1, "exported, but no public header has the word Empty: Empty\n"),
                         self.check("Empty\n", "--headers", str(self.list.parent)))


if __name__ == "__main__":
    DEMANGLER, DLL = sys.argv[1:3]
    unittest.main(argv=sys.argv[:1])

"""usage: imports_selftest.py EMPTY_DLL FORBIDDEN_DLL

What tools/imports.py finds in two small DLLs: one with nothing in it, one that calls GetMenuItemCount.
"""
import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = pathlib.Path(__file__).resolve().parents[2] / "tools" / "imports.py"
EMPTY = FORBIDDEN = None

DEVICE = "# DLL, tab, name\ncoredll\tGetMenuItemInfoW\n"
PLATFORM = "| Call | Device | Desktop import |\n|---|---|---|\n| `A` | `GetMenuItemCount` | %s |\n"


class ImportsTest(unittest.TestCase):
    def check(self, dll, device=DEVICE, platform=PLATFORM % "`B`"):
        with tempfile.TemporaryDirectory() as folder:
            lists = pathlib.Path(folder, "device.txt"), pathlib.Path(folder, "README.md")
            lists[0].write_text(device, encoding="utf-8")
            lists[1].write_text(platform, encoding="utf-8")
            done = subprocess.run([sys.executable, str(TOOL), "--device", str(lists[0]), "--platform", str(lists[1]),
                                   "--runtime", EMPTY, dll], capture_output=True, text=True, check=False)
            self.assertEqual("", done.stderr)
            return done.returncode, done.stdout

    def test_a_name_that_the_device_lacks_is_found(self):
        status, output = self.check(FORBIDDEN)
        self.assertRegex(output, r"(?i)^\S+: GetMenuItemCount of user32\.dll is not on the device\n$")
        self.assertEqual(1, status)

    def test_a_name_that_the_device_has_passes(self):
        self.assertEqual((0, ""), self.check(FORBIDDEN, device=DEVICE + "coredll\tGetMenuItemCount\n"))

    def test_a_name_in_a_comment_of_the_list_does_not_count(self):
        self.assertEqual(1, self.check(FORBIDDEN, device=DEVICE + "#coredll\tGetMenuItemCount\n")[0])

    def test_a_desktop_import_of_the_table_passes(self):
        self.assertEqual((0, ""), self.check(FORBIDDEN, platform=PLATFORM % "`GetMenuItemCount`, in 64 bit"))

    def test_a_name_in_another_column_of_the_table_does_not_count(self):
        self.assertEqual(1, self.check(FORBIDDEN, platform=PLATFORM % "none")[0])

    def test_what_the_compilers_runtime_needs_passes(self):
        self.assertEqual((0, ""), self.check(EMPTY))


if __name__ == "__main__":
    EMPTY, FORBIDDEN = sys.argv[1:3]
    unittest.main(argv=sys.argv[:1])

"""usage: lng_cli_test.py BIN [EMULATOR...]

The translators' tool as a user starts it, on Wine's own programs. What is in them is told by wrestool, of the icoutils.
"""

import functools
import pathlib
import re
import stat
import struct
import subprocess
import tempfile
import unittest

import program
from program import BIN, EMULATOR, read_table, run, write_table

MODULES = ["system32/notepad.exe", "regedit.exe", "system32/taskmgr.exe", "system32/comdlg32.dll"]
# In the order that texts are looked for: the language of the country, the language, texts of no language.
ENGLISH = (0x409, 0x09, 0)
GERMAN = (0x407, 0x07, 0)
FAILURE = re.compile(r"lng: Win32: \S.*\S \(([\w:]+), (\.\\\w+), line (\d+)\)")
PLACEHOLDER = re.compile(r"%(?:\d+|[-#0-9.]*(?:l|I64)?[sducxXf%])")


def host_path(module):
    if not EMULATOR:
        return pathlib.Path("C:/windows", module)
    root = pathlib.Path(EMULATOR[0]).resolve().parent.parent
    return root / "build" / "prefix" / EMULATOR[1].split("-")[0] / "drive_c" / "windows" / module


def windows_path(module):
    return "C:\\windows\\" + module.replace("/", "\\")


@functools.lru_cache(None)
def resources(module, kind, languages):
    """Number and bytes of each resource of a kind, in the first of the languages that it is there in."""
    def wrestool(*options):
        command = ["wrestool", *options, f"--type={kind}", host_path(module)]
        return subprocess.run(command, capture_output=True, check=True).stdout

    found, blocks = {}, []
    for name, language in re.findall(r"--name=(\d+) --language=(\d+)", wrestool("--list").decode()):
        found.setdefault(name, set()).add(int(language))
    for name, versions in found.items():
        language = next((language for language in languages if language in versions), None)
        if language is not None:
            content = wrestool("--extract", "--raw", f"--name={name}", f"--language={language}")
            blocks.append((int(name), content))
    return blocks


def stored(text):
    """A text as a language file gives it back."""
    return text.replace("\r\n", "\n").replace("\r", "\n")


def string_table(module, languages):
    """The texts as a program can load them: 255 characters of each. Number 0 is none."""
    texts = set()
    for name, block in resources(module, 6, languages):
        pos = 0
        for number in range(16 * name - 16, 16 * name):
            length, = struct.unpack_from("<H", block, pos)
            if number > 0:
                texts.add(block[pos + 2:pos + 2 + 2 * min(length, 255)].decode("utf-16-le"))
            pos += 2 + 2 * length
    return texts - {""}


def menus(module, languages):
    """The texts of all items. Only menus of the older of the two formats are read; the modules have no others."""
    texts = set()
    for _, block in resources(module, 4, languages):
        version, pos = struct.unpack_from("<HH", block)
        assert version == 0, "a menu of the newer format"
        pos += 4
        while pos + 4 <= len(block):
            flags, = struct.unpack_from("<H", block, pos)
            pos += 2 if flags & 0x10 else 4
            text = block[pos:].decode("utf-16-le").partition("\0")[0]
            texts.add(text)
            pos += len(text.encode("utf-16-le")) + 2
    return texts - {""}


class DialogReader:
    """Walks a dialog template of either format."""

    def __init__(self, block):
        self.block, self.pos = block, 0

    def take(self, layout):
        values = struct.unpack_from("<" + layout, self.block, self.pos)
        self.pos += struct.calcsize("<" + layout)
        return values

    def text(self):
        """A text, or the number in its place."""
        if self.block[self.pos:self.pos + 2] == b"\xff\xff":
            return self.take("HH")[1]
        text = self.block[self.pos:len(self.block) & ~1].decode("utf-16-le", "replace").partition("\0")[0]
        self.pos += len(text.encode("utf-16-le")) + 2
        return text

    def texts(self):
        """The title, and what stands on buttons and labels."""
        extended = self.block[:4] == b"\x01\0\xff\xff"
        style, count = self.take("12xLH8x" if extended else "L4xH8x")
        self.text(), self.text()   # menu and class
        yield self.text()
        if style & 0x40:
            self.take("HHBB" if extended else "H")
            self.text()
        for _ in range(count):
            self.pos = (self.pos + 3) & ~3
            self.take("24x" if extended else "18x")
            kind, text = self.text(), self.text()
            if kind in (0x80, 0x82, "Button", "Static") and isinstance(text, str):
                yield text
            data, = self.take("H")   # bytes of the control's own
            self.pos += data


def dialogs(module, languages):
    return {text for _, block in resources(module, 5, languages) for text in DialogReader(block).texts()} - {""}


class LngTest(program.ProgramTest):
    def lng(self, *arguments, locale="C.UTF-8"):
        return run(BIN / "lng.exe", *arguments, folder=self.folder, locale=locale)

    def table(self, name):
        return read_table(self.folder / name)


@functools.lru_cache(None)
def gathered(*modules, locale="C.UTF-8"):
    """What the tool prints and the bytes that it writes."""
    with tempfile.TemporaryDirectory(prefix="vantor-") as folder:
        done = run(BIN / "lng.exe", "gather", *map(windows_path, modules), "-o", "out.lng", folder=folder,
                   locale=locale)
        done.check_returncode()
        return done, pathlib.Path(folder, "out.lng").read_bytes()


class Gather(LngTest):
    def gather(self, *modules, locale="C.UTF-8"):
        """What the tool prints, a row for each module behind the first, and the table that it writes."""
        done, content = gathered(*modules, locale=locale)
        (self.folder / "out.lng").write_bytes(content)
        return done, self.table("out.lng")

    def assert_found(self, texts, table):
        self.assertGreater(len(texts), 10)
        self.assertEqual({stored(text) for text in texts} - set(table), set())

    def test_every_text_of_the_string_tables_is_found(self):
        for module in MODULES:
            with self.subTest(module):
                self.assert_found(string_table(module, ENGLISH), self.gather(module)[1])

    def test_every_text_of_the_menus_is_found(self):
        for module in MODULES[:3]:
            with self.subTest(module):
                self.assert_found(menus(module, ENGLISH), self.gather(module)[1])

    def test_titles_buttons_and_labels_of_the_dialogs_are_found(self):
        for module in MODULES:
            with self.subTest(module):
                # One dialog of regedit holds a window of a class of its own, which nobody else can build.
                self.assert_found(dialogs(module, ENGLISH) - {"Edit Binary"}, self.gather(module)[1])

    def test_texts_are_those_of_the_users_language(self):
        german = string_table(MODULES[0], GERMAN)
        self.assertNotEqual(german, string_table(MODULES[0], ENGLISH))
        self.assert_found(german, self.gather(MODULES[0], locale="de_DE.UTF-8")[1])

    def test_each_text_is_its_own_translation(self):
        for module in MODULES:
            with self.subTest(module):
                table = self.gather(module)[1]
                self.assertEqual([text for text, translation in table.items() if text != translation], [])

    def test_number_of_strings_is_told(self):
        for module in MODULES:
            with self.subTest(module):
                row = self.gather(module)[0].stdout.splitlines()[1].split()
                self.assertEqual(row[:2], [pathlib.Path(module).name, str(len(string_table(module, ENGLISH)))])

    def test_numbers_by_kind_add_up_to_the_texts_of_the_file(self):
        for module in MODULES:
            with self.subTest(module):
                done, table = self.gather(module)
                self.assertEqual(sum(map(int, done.stdout.splitlines()[1].split()[1:4])), len(table))

    def test_several_modules_go_into_one_file(self):
        tables = [self.gather(module)[1] for module in MODULES]
        self.assertEqual(self.gather(*MODULES)[1], {text: text for table in tables for text in table})

    def test_progress_and_results_are_told_apart(self):
        self.assertNotIn("texts in", self.gather(*MODULES)[0].stderr)

    def test_texts_that_a_file_does_not_keep_are_warned_of(self):
        for module in MODULES:
            with self.subTest(module):
                warning = re.search(r"warning: (\d+) texts", self.gather(module)[0].stderr)
                known = sum("\r" in text for text in string_table(module, ENGLISH) | menus(module, ENGLISH))
                self.assertGreaterEqual(int(warning.group(1)) if warning else 0, known)

    def test_file_names_of_any_letters_work(self):
        name = "\u00dcbersetzung \u65e5\u672c.lng"
        write_table(self.folder / name, [("a", "b")])
        done = self.lng("pseudo", name, "-o", "neu " + name)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn("neu " + name, done.stdout)
        self.assertEqual(set(self.table("neu " + name)), {"a"})


class Stats(LngTest):
    def test_numbers_are_those_of_the_file(self):
        write_table(self.folder / "x.lng", [
            ("%d of %d", "%d von %s"), ("Exit", ""), ("Open", "\u00d6ffnen"), ("Save", "Save"),
            ("lines\nof two", "Zwei")])
        done = self.lng("stats", "x.lng")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual([line.rsplit(None, 1) for line in done.stdout.splitlines()[:7]], [
            ["entries", "5"], ["translated", "3"], ["untranslated", "1"], ["empty", "1"], ["characters", "32"],
            ["longest text", "12"], ["placeholders differ in", "1"]])

    def test_texts_with_broken_placeholders_are_listed(self):
        write_table(self.folder / "x.lng", [("%d of %d", "%d von %s"), ("Open", "Auf")])
        self.assertEqual(self.lng("stats", "x.lng").stdout.splitlines()[7:], ["    %d of %d"])


class Pseudo(LngTest):
    def setUp(self):
        super().setUp()
        (self.folder / "x.lng").write_bytes(gathered(*MODULES)[1])
        done = self.lng("pseudo", "x.lng", "-o", "pseudo.lng")
        self.assertEqual(done.returncode, 0, done.stderr)

    def test_sources_stay_and_placeholders_too(self):
        table = self.table("pseudo.lng")
        self.assertEqual(set(table), set(self.table("x.lng")))
        broken = [text for text, pseudo in table.items() if PLACEHOLDER.findall(text) != PLACEHOLDER.findall(pseudo)]
        self.assertEqual(broken, [])

    def test_every_text_with_letters_is_changed(self):
        same = [text for text, pseudo in self.table("pseudo.lng").items() if text == pseudo]
        self.assertEqual([text for text in same if re.search("[a-zA-Z]", PLACEHOLDER.sub("", text).split("\t")[0])], [])

    def test_file_loads_and_nothing_in_it_is_broken(self):
        lines = self.lng("stats", "pseudo.lng").stdout.splitlines()
        self.assertEqual(lines[0].split(), ["entries", str(len(self.table("x.lng")))])
        self.assertEqual(lines[6], "placeholders differ in 0")


class Failures(LngTest):
    OLD = b"what was here before"

    def assert_failure(self, done, about, site):
        """One line that names the file, one with source, message and site."""
        self.assertEqual(done.returncode, 1)
        lines = done.stderr.splitlines()
        self.assertEqual(lines[0], "lng: " + about)
        match = FAILURE.fullmatch(lines[1])
        self.assertIsNotNone(match, lines)
        self.assertEqual(match.groups(), site)

    def test_module_that_is_missing(self):
        done = self.lng("gather", "missing.exe", "-o", "out.lng")
        self.assert_failure(done, "missing.exe", ("LoadLibraryEx", ".\\lng", "1"))

    def test_module_that_is_none(self):
        (self.folder / "notes.txt").write_text("notes")
        done = self.lng("gather", "notes.txt", "-o", "out.lng")
        self.assert_failure(done, "notes.txt", ("LoadLibraryEx", ".\\lng", "1"))

    def test_bad_module_behind_a_good_one_leaves_the_output_as_it_was(self):
        (self.folder / "out.lng").write_bytes(self.OLD)
        self.assertEqual(self.lng("gather", windows_path(MODULES[0]), "missing.exe", "-o", "out.lng").returncode, 1)
        self.assertEqual([path.name for path in self.folder.iterdir()], ["out.lng"])
        self.assertEqual((self.folder / "out.lng").read_bytes(), self.OLD)

    def test_language_file_that_is_missing(self):
        self.assert_failure(self.lng("stats", "missing.lng"), "missing.lng", ("CreateFile", ".\\File", "41"))

    def test_language_file_that_is_a_folder(self):
        (self.folder / "x.lng").mkdir()
        self.assert_failure(self.lng("stats", "x.lng"), "x.lng", ("CreateFile", ".\\File", "41"))

    def test_file_that_is_no_language_file(self):
        (self.folder / "notes.txt").write_text("notes")
        self.assert_failure(self.lng("stats", "notes.txt"), "notes.txt",
                            ("vantor::CLanguageFile::LoadLanguageFile", ".\\Translator", "57"))

    def test_bad_input_leaves_the_output_as_it_was(self):
        (self.folder / "notes.txt").write_text("notes")
        (self.folder / "out.lng").write_bytes(self.OLD)
        self.assertEqual(self.lng("pseudo", "notes.txt", "-o", "out.lng").returncode, 1)
        self.assertEqual((self.folder / "out.lng").read_bytes(), self.OLD)

    def test_output_folder_that_is_missing(self):
        write_table(self.folder / "x.lng", [("a", "b")])
        done = self.lng("pseudo", "x.lng", "-o", "missing\\out.lng")
        self.assert_failure(done, "missing\\out.lng", ("GetTempFileName", ".\\File", "384"))

    def test_output_that_is_a_folder(self):
        write_table(self.folder / "x.lng", [("a", "b")])
        (self.folder / "out.lng").mkdir()
        self.assert_failure(self.lng("pseudo", "x.lng", "-o", "out.lng"), "out.lng", ("MoveFileEx", ".\\lng", "2"))
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()), ["out.lng", "x.lng"])

    @unittest.skipUnless(pathlib.Path("/dev/full").exists(), "the system has no device that is always full")
    def test_device_that_is_full_fails_and_stays_a_device(self):
        write_table(self.folder / "x.lng", [("a", "b")])
        done = self.lng("pseudo", "x.lng", "-o", "Z:\\dev\\full")
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stderr, r"^lng: Z:\\dev\\full\nlng: Win32: .+ \(\w+, \.\\File, line \d+\)\n$")
        self.assertTrue(stat.S_ISCHR(pathlib.Path("/dev/full").stat().st_mode))


class Usage(LngTest):
    def test_wrong_arguments_are_told_from_failures(self):
        for arguments in [(), ("frobnicate",), ("gather",), ("gather", "x.exe"), ("stats",), ("stats", "a", "b"),
                          ("pseudo", "x.lng"), ("--frobnicate",)]:
            with self.subTest(arguments):
                done = self.lng(*arguments)
                self.assertEqual((done.returncode, done.stdout), (2, ""))
                self.assertIn("Run with --help for more information.", done.stderr)

    def test_help_is_no_error(self):
        done = self.lng("--help")
        self.assertEqual(done.returncode, 0)
        for command in ("gather", "stats", "pseudo"):
            self.assertIn(command, done.stdout)


if __name__ == "__main__":
    program.main()

"""usage: sample_cli_test.py BIN [EMULATOR...]

The sample program as a user sees it: with and without a language file beside it, and with a file that is not there.
"""

import program
from program import run, write_table

UNTRANSLATED = """\
Level meter
    &Trace
        &Open...    Ctrl+O
        &Save as...
    &Measurement
        S&tart
        Sto&p
        ----
        &Hold the maximum (checked)
    Settings
        &Centre frequency:
        &Average over the last 16 sweeps
        OK
        Cancel
"""


class Sample(program.ProgramTest):
    def setUp(self):
        super().setUp()
        self.sample = self.install("sample.exe")

    def texts(self):
        done = run(self.sample, folder=self.folder)
        self.assertEqual(done.returncode, 0)
        return done.stdout

    def test_without_a_language_file_texts_are_those_of_the_resources(self):
        self.assertEqual(self.texts(), UNTRANSLATED)

    def test_language_file_translates_what_it_holds_and_nothing_else(self):
        write_table(self.folder / "sample.lng", [
            ("&Average over the last 16 sweeps", "&Mittel der letzten 16 Durchl\u00e4ufe"),
            ("&Hold the maximum", "&Maximum halten"),
            ("&Measurement", "&Messung"),
            ("&Open...\tCtrl+O", "\u00d6&ffnen...\tStrg+O"),
            ("Level meter", "Pegelmesser"),
            ("Open", "never asked for"),
            ("Settings", "Einstellungen")])
        self.assertEqual(self.texts(), """\
Pegelmesser
    &Trace
        \u00d6&ffnen...    Strg+O
        &Save as...
    &Messung
        S&tart
        Sto&p
        ----
        &Maximum halten (checked)
    Einstellungen
        &Centre frequency:
        &Mittel der letzten 16 Durchl\u00e4ufe
        OK
        Cancel
""")

    def test_damaged_language_file_changes_nothing(self):
        (self.folder / "sample.lng").write_bytes("[Settings]\n[Einstellungen]\n".encode("utf-8"))
        self.assertEqual(self.texts(), UNTRANSLATED)

    def test_file_that_is_missing_is_explained_with_all_that_is_known(self):
        done = run(self.sample, "C:\\no such trace.csv", folder=self.folder)
        self.assertEqual(done.returncode, 1)
        lines = done.stdout.splitlines()
        self.assertEqual(lines[0], 'The trace "C:\\no such trace.csv" cannot be opened.')
        known = {line[:11].strip(): line[11:] for line in lines[1:]}
        message = known.pop("message")
        self.assertTrue(message)
        self.assertEqual(known, {"source": "Win32", "for users": message, "function": "CreateFile", "file": ".\\File",
                                 "line": "41", "code": "2"})

    def test_failure_is_explained_in_the_users_language(self):
        write_table(self.folder / "sample.lng", [
            ('The trace "%s" cannot be opened.', 'Die Messkurve "%s" l\u00e4sst sich nicht \u00f6ffnen.'),
            ("Win32", "Betriebssystem")])
        done = run(self.sample, "x.csv", folder=self.folder)
        self.assertEqual(done.stdout.splitlines()[:2],
                         ['Die Messkurve "x.csv" l\u00e4sst sich nicht \u00f6ffnen.', "source     Betriebssystem"])

    def test_file_that_is_there_is_measured(self):
        (self.folder / "trace.csv").write_bytes(b"1;2;3\n")
        done = run(self.sample, "trace.csv", folder=self.folder)
        self.assertEqual((done.returncode, done.stdout), (0, "6 bytes\n"))


if __name__ == "__main__":
    program.main()

"""usage: serial_test.py SUITE PROGRAM EMULATOR WIDTH

Runs one part of port_test on serial ports that are pseudo-terminals: Wine takes a terminal of the system for a port. The
suites: terminal (the peer is this script), names (ports by their COM names), modem_lines, socat (the peer is socat),
pyserial (the peer is that library, at the other end of socat's line).
Exit status 77: this machine lacks what the suite needs.
"""

import importlib.util
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import threading
import tty
import unittest

sys.path.append("/usr/lib/python3/dist-packages")   # Debian's, also for another Python: pyserial is nothing but Python
PROGRAM, EMULATOR, WIDTH = sys.argv[2:5]
SKIPPED = 77


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def run(*tests, port, **environment):
    """The finished test program."""
    return subprocess.run([EMULATOR, WIDTH, PROGRAM, "--gtest_filter=" + ":".join(tests)], stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=240, text=True,
                          env={**os.environ, "VANTOR_CAPTURE": "1", "VANTOR_TEST_PORT": port, **environment})


class Echo:
    """A pseudo-terminal that sends back what it gets."""

    def __init__(self):
        self.master, slave = os.openpty()   # the slave stays open, or the terminal would end with the first port
        tty.setraw(slave)
        self.path = os.ttyname(slave)
        threading.Thread(target=self.serve, daemon=True).start()

    def serve(self):
        while True:
            data = os.read(self.master, 4096)
            while data:
                data = data[os.write(self.master, data):]


class SerialTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="vantor-"))
        self.addCleanup(shutil.rmtree, self.folder)

    def check(self, *tests, port, **environment):
        done = run(*tests, port=port, **environment)
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertRegex(done.stdout, r"\[  PASSED  \] [1-9]", done.stdout)


class Terminal(SerialTest):
    def test_terminal_works_as_a_port(self):
        self.check("Terminal.*", port=windows_path(Echo().path))


class Names(SerialTest):
    """Names that Wine does not manage itself: only those it finds in the registry are its own."""

    def setUp(self):
        super().setUp()
        library = pathlib.Path(EMULATOR).with_name("lib.sh")
        prefix = subprocess.run(["bash", "-c", '. "$1" && wine_for "$2" && echo "$WINEPREFIX"', "-", library,
                                 WIDTH.split("-")[0]], capture_output=True, text=True, check=True).stdout.strip()
        self.name = f"com{100 + os.getpid() % 100}"
        self.link = pathlib.Path(prefix, "dosdevices", self.name)
        run("None.*", port="")   # Wine's server removes such links when it starts
        self.link.unlink(missing_ok=True)
        self.addCleanup(lambda: self.link.unlink(missing_ok=True))

    def test_port_above_com9_is_found_with_its_prefix(self):
        self.link.symlink_to(Echo().path)
        self.check("Terminal.TransmitCommChar*", port="\\\\.\\" + self.name.upper())

    def test_port_that_is_held_cannot_be_opened(self):
        stand_in = self.folder / "port"
        stand_in.touch()
        self.link.symlink_to(stand_in)
        self.check("HeldPort.*", port="\\\\.\\" + self.name.upper())


class ModemLines(SerialTest):
    def test_modem_lines_and_events(self):
        library = self.folder / "modem_lines.so"
        width = ["-m32"] if WIDTH.startswith("x86") else []
        source = pathlib.Path(__file__).with_name("modem_lines.c")
        subprocess.run(["cc", *width, "-O2", "-shared", "-fPIC", "-nostdlib", "-fno-stack-protector", "-o", library,
                        source], check=True)
        self.check("ModemLines.*", port=windows_path(Echo().path), LD_PRELOAD=str(library))


class Socat(SerialTest):
    def start(self, *addresses):
        """Starts socat, and returns its terminals, kept open: they would end with the first port otherwise."""
        peer = subprocess.Popen(["socat", "-d", "-d", *addresses], stderr=subprocess.PIPE, text=True)
        self.addCleanup(peer.wait)
        self.addCleanup(peer.terminate)
        self.addCleanup(peer.stderr.close)
        paths = []
        while len(paths) < sum(address.startswith("PTY") for address in addresses):
            line = peer.stderr.readline()
            self.assertTrue(line, "socat has ended")
            paths += re.findall(r"PTY is (\S+)", line)
        for path in paths:
            self.addCleanup(os.close, os.open(path, os.O_RDWR | os.O_NOCTTY))
        return paths

    def test_terminal_of_socat_works_as_a_port(self):
        path, = self.start("PTY,raw,echo=0", "EXEC:cat")
        self.check("Terminal.WriteAndRead_AMegabyte*", port=windows_path(path))


class PySerial(Socat):
    test_terminal_of_socat_works_as_a_port = None

    def test_port_talks_to_pyserial(self):
        import serial

        here, there = self.start("PTY,raw,echo=0", "PTY,raw,echo=0")
        with serial.Serial(there, 115200, timeout=0.05) as peer:
            ended = threading.Event()
            echo = threading.Thread(target=lambda: self.echo(peer, ended))
            echo.start()
            try:
                self.check("Terminal.WriteAndRead_AMegabyte*", port=windows_path(here))
            finally:
                ended.set()
                echo.join()

    @staticmethod
    def echo(peer, ended):
        while not ended.is_set():
            peer.write(peer.read(max(1, peer.in_waiting)))


SUITES = {"terminal": (Terminal, None), "names": (Names, None), "modem_lines": (ModemLines, "cc"),
          "socat": (Socat, "socat"), "pyserial": (PySerial, "socat")}

if __name__ == "__main__":
    suite, needed = SUITES[sys.argv[1]]
    lacks = needed and not shutil.which(needed)
    if suite is PySerial and not importlib.util.find_spec("serial"):
        lacks, needed = True, "python3-serial"
    if lacks:
        print(f"there is no {needed} on this machine")
        sys.exit(SKIPPED)
    unittest.main(argv=[sys.argv[0], suite.__name__])

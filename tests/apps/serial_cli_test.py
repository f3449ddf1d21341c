"""usage: serial_cli_test.py BIN [EMULATOR...]

Terminal and simulator over a serial line: two pseudo-terminals that are joined, as ports of Wine.
"""

import os
import pathlib
import pty
import select
import threading
import tty
import unittest

import program
from program import EMULATOR
from simulator import PATIENCE, SimulatorTest, transcript

DRIVES = None   # where Wine looks for ports
if EMULATOR:
    _launcher, _width = EMULATOR
    DRIVES = pathlib.Path(_launcher).resolve().parent.parent / "build" / "prefix" / _width.split("-")[0] / "dosdevices"

IDENT = ("ident", ["RXSIM,1.0,0042"])


class Line:
    """Two ends of a serial line, by their device names; what goes through it is kept."""

    def __init__(self):
        self.pairs = [pty.openpty() for _ in range(2)]
        for descriptor in (descriptor for pair in self.pairs for descriptor in pair):
            tty.setraw(descriptor)
        self.ends = [os.ttyname(slave) for _, slave in self.pairs]
        self.stop, self._stopper = os.pipe()
        self._relay = threading.Thread(target=self._run)
        self._relay.start()

    def _run(self):
        masters = [master for master, _ in self.pairs]
        while True:
            ready, _, _ = select.select([*masters, self.stop], [], [])
            if self.stop in ready:
                return
            for source in ready:
                other = masters[1 - masters.index(source)]
                data = os.read(source, 4096)
                while data:
                    data = data[os.write(other, data):]

    def close(self):
        os.write(self._stopper, b"x")
        self._relay.join()
        for descriptor in (*self.pairs[0], *self.pairs[1], self.stop, self._stopper):
            os.close(descriptor)


@unittest.skipIf(DRIVES is None, "the ports are Wine's links to pseudo-terminals")
class Serial(SimulatorTest):
    def setUp(self):
        super().setUp()
        # A server that starts makes the links of its ports anew: it has to run before ours are made.
        self.finished("fieldterm.exe", "--help")
        line = Line()
        self.addCleanup(line.close)
        self.ports = [self.link(end) for end in line.ends]

    def link(self, device):
        """A port for the device, with a number that nobody else uses."""
        for number in range(31, 200):
            path = DRIVES / f"com{number}"
            try:
                path.symlink_to(device)
            except FileExistsError:
                continue
            self.addCleanup(path.unlink, missing_ok=True)
            return f"\\\\.\\COM{number}"
        self.fail("no port is free")

    def serve(self):
        simulator = self.background("rxsim.exe", "--com", self.ports[0])
        line = simulator.line()
        self.assertEqual(line, f"on {self.ports[0]}", line or simulator.complaint.get(timeout=PATIENCE))
        return simulator

    def answers(self, *commands, time="5000"):
        done = self.finished("fieldterm.exe", "--com", self.ports[1], "--timeout", time, *commands)
        self.assertEqual(done.stderr, "")
        return transcript(done.stdout)

    def test_whole_session(self):
        self.serve()
        answers = dict(self.answers("ident", "set points 200", "save NOON.CSV", "read NOON.CSV", "list"))
        readings = answers["read NOON.CSV"]
        self.assertEqual([readings[0].split(";")[0], readings[-1].split(";")[0], len(readings)],
                         ["88000", "108000", 200])
        size = sum(len(reading) + 2 for reading in readings)
        self.assertEqual(answers["list"], [f"NOON.CSV;{size}"])

    def test_watch_prints_readings_in_order(self):
        self.serve()
        answers = dict(self.answers("set interval 1", "sweep start", "watch 12", "sweep stop"))
        self.assertEqual([reading.split()[:2] for reading in answers["watch 12"]],
                         [["L", str(index % 11)] for index in range(12)])

    def test_faults_end_in_failures_and_the_next_command_works(self):
        self.serve()
        for fault, failure in (("silence", "Time-?out"), ("half", "Time-?out"), ("delay 1700", "Time-?out"),
                               ("drop", "Time-?out"),   # a serial line has no connection that could end
                               ("garbage", r"\?#"), ("reply 28", "Dup loop")):
            with self.subTest(fault):
                answers = self.answers(f"fault {fault}", "ident", "ident", time="1500")
                self.assertRegex(answers[1][1][0], f"^! .*{failure}")
                self.assertEqual(answers[2], IDENT)

    def test_nobody_at_the_other_end_is_a_timeout(self):
        self.assertRegex(self.answers("ident", time="1500")[0][1][0], "^! Win32: Time-?out")

    def test_both_lines_share_the_receiver(self):
        self.rxsim("--com", self.ports[0])
        self.answers("save NOON.CSV")
        self.assertRegex(self.fieldterm("list").stdout, r"NOON\.CSV;\d+")

    def test_control_c_ends_the_simulator(self):
        simulator = self.serve()
        self.answers("ident")
        simulator.interrupt()
        self.assertEqual(simulator.wait(), 0)

    def test_control_c_ends_a_wait(self):
        self.serve()
        terminal = self.background("fieldterm.exe", "--com", self.ports[1], "--timeout", "600000", "fault silence",
                                   "ident")
        while terminal.line() != "  done":
            pass
        terminal.interrupt()
        self.assertEqual(terminal.wait(), 1)


if __name__ == "__main__":
    program.main()

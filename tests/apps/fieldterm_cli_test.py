"""usage: fieldterm_cli_test.py BIN [EMULATOR...]

The terminal as a user sees it, against the simulator over TCP: a session, each fault, the log, wrong usage, Ctrl-C.
"""

import re
import socket

import program
from simulator import SimulatorTest, read_log

IDENT = ("ident", ["RXSIM,1.0,0042"])
SHORT = ("--timeout", "1500")   # milliseconds: for answers that never come; ample for those that do


class Session(SimulatorTest):
    def setUp(self):
        super().setUp()
        self.rxsim()

    def test_whole_session(self):
        answers = self.answers("ident", "set points 3", "get points", "list", "save NOON.CSV", "list", "read NOON.CSV",
                               "remove NOON.CSV", "list", "bye")
        readings = answers[6][1]
        self.assertEqual([reading.split(";")[0] for reading in readings], ["88000", "98000", "108000"])
        size = sum(len(reading) + 2 for reading in readings)
        self.assertEqual(answers, [
            IDENT, ("set points 3", ["done"]), ("get points", ["3"]), ("list", ["done"]), ("save NOON.CSV", ["done"]),
            ("list", [f"NOON.CSV;{size}"]), ("read NOON.CSV", readings), ("remove NOON.CSV", ["done"]),
            ("list", ["done"]), ("bye", ["done"])])

    def test_watch_prints_readings_in_order(self):
        answers = dict(self.answers("set interval 1", "sweep start", "watch 12", "sweep stop"))
        readings = answers["watch 12"]
        self.assertEqual([reading.split()[:2] for reading in readings],
                         [["L", str(index % 11)] for index in range(12)])
        self.assertGreaterEqual(int(answers["sweep stop"][0]), 12)

    def test_successful_commands_end_with_0(self):
        self.assertEqual(self.fieldterm("ident").returncode, 0)

    def test_reply_is_shown_in_words_and_ends_with_1(self):
        done = self.fieldterm("set points 5000")
        self.assertIn("! Receiver: Value out of range", done.stdout)
        self.assertEqual(done.returncode, 1)

    def test_failed_command_does_not_stop_the_next(self):
        self.assertEqual(self.answers("nonsense", "ident")[1], IDENT)

    def test_commands_come_from_the_input(self):
        self.assertEqual(self.answers(lines=["ident", "", "get points"]), [IDENT, ("get points", ["11"])])

    def test_watch_without_a_number_is_explained(self):
        done = self.fieldterm("watch many")
        self.assertEqual((done.returncode, done.stdout), (1, "> watch many\n! watch wants a number\n"))

    def test_two_sessions_one_after_the_other(self):
        self.assertEqual(self.answers("save A.CSV"), [("save A.CSV", ["done"])])
        self.assertRegex(self.answers("list")[0][1][0], r"A\.CSV;\d+")


class Faults(SimulatorTest):
    """Each ends in its own failure, and the next command works."""

    def setUp(self):
        super().setUp()
        self.rxsim()

    def failure(self, fault):
        answers = self.answers(*SHORT, f"fault {fault}", "ident", "ident")
        self.assertEqual((answers[0], answers[2]), ((f"fault {fault}", ["done"]), IDENT))
        self.assertEqual((answers[1][0], len(answers[1][1])), ("ident", 1))
        return answers[1][1][0]

    def test_silence_is_a_timeout(self):
        self.assertRegex(self.failure("silence"), "^! Win32: Time-?out")

    def test_half_a_line_is_a_timeout(self):
        self.assertRegex(self.failure("half"), "^! Win32: Time-?out")

    def test_delay_beyond_the_time_is_a_timeout(self):
        self.assertRegex(self.failure("delay 1700"), "^! Win32: Time-?out")

    def test_delay_within_the_time_is_none(self):
        self.assertEqual(self.answers("fault delay 50", "ident")[1], IDENT)

    def test_garbage_is_shown_as_it_came(self):
        self.assertIn("?#", self.failure("garbage"))

    def test_dropped_connection_is_a_lost_one(self):
        self.assertRegex(self.failure("drop"), r"^! Win32: .*\(WSARecv\)$")

    def test_reply_is_shown_in_words(self):
        self.assertRegex(self.failure("reply 34"), "^! Receiver: Memory card is busy ")


class Connection(SimulatorTest):
    def unheard_port(self):
        listener = socket.socket()
        self.addCleanup(listener.close)
        listener.bind(("127.0.0.1", 0))
        self.port = listener.getsockname()[1]
        return listener

    def test_refused_connection_is_explained(self):
        self.unheard_port()
        done = self.fieldterm("ident")
        self.assertRegex(done.stdout, r"^> ident\n! Win32: .*\(WSAConnect\)\n$")
        self.assertEqual(done.returncode, 1)

    def test_nobody_accepts_is_a_timeout(self):
        listener = self.unheard_port()
        listener.listen(0)
        for _ in range(4):   # its queue is full
            waiting = socket.socket()
            self.addCleanup(waiting.close)
            waiting.setblocking(False)
            waiting.connect_ex(("127.0.0.1", self.port))
        self.assertRegex(self.fieldterm(*SHORT, "ident").stdout, r"! Win32: Time-?out.*\(WSAConnect\)")

    def test_side_that_says_nothing_is_a_timeout(self):
        self.unheard_port().listen(1)
        self.assertRegex(self.fieldterm(*SHORT, "ident").stdout, r"! Win32: Time-?out")


class Log(SimulatorTest):
    def test_holds_the_traffic_both_ways(self):
        self.rxsim()
        self.fieldterm("--log", "link.log", "get points", "nonsense")
        records = [record.split("  ") for record in read_log(self.folder / "link.log")]
        traffic = {">": b"", "<": b""}
        for record, text in records:
            data = bytes.fromhex(record[2:])
            self.assertEqual(record[2:], data.hex(" ").upper())
            self.assertEqual(text, re.sub("[\0- ]", "$", data.decode()))
            traffic[record[0]] += data
        self.assertEqual(traffic, {">": b"get points\r\nnonsense\r\n", "<": b"OK 11\r\n{2,,wrong command}\r\n"})

    def test_is_appended_to(self):
        self.rxsim()
        for _ in range(2):
            self.fieldterm("--log", "link.log", "ident")
        self.assertEqual(len(read_log(self.folder / "link.log")), 4)

    def test_name_may_have_letters_of_any_language(self):
        self.rxsim()
        self.fieldterm("--log", "Pr\u00fcfung \u5c71.log", "ident")
        self.assertEqual(len(read_log(self.folder / "Pr\u00fcfung \u5c71.log")), 2)

    def test_that_cannot_be_opened_is_explained(self):
        self.port = 1
        done = self.fieldterm("--log", "no such folder\\link.log", "ident")
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.assertIn("no such folder\\link.log", done.stderr)


class Usage(SimulatorTest):
    def test_wrong_usage_ends_with_2(self):
        for arguments in ([], ["--tcp", "5025"], ["--tcp", "host:port"], ["--tcp", "host:70000"], ["--tcp", ":5"],
                          ["--tcp", "h:1", "--com", "COM1:"], ["--tcp", "h:1", "--timeout", "0"], ["--nonsense"]):
            with self.subTest(arguments):
                done = self.finished("fieldterm.exe", *arguments)
                self.assertEqual((done.returncode, done.stdout), (2, ""))
                self.assertTrue(done.stderr)

    def test_help_names_the_options(self):
        done = self.finished("fieldterm.exe", "--help")
        self.assertEqual(done.returncode, 0)
        for option in "--tcp", "--com", "--baud", "--timeout", "--log":
            self.assertIn(option, done.stdout)


class Cancel(SimulatorTest):
    def test_control_c_ends_a_wait(self):
        self.rxsim()
        terminal = self.background("fieldterm.exe", "--tcp", f"127.0.0.1:{self.port}", "--timeout", "600000",
                                   "fault silence", "ident", "get points")
        while terminal.line() != "  done":
            pass
        terminal.interrupt()
        lines = []
        while (line := terminal.line()) is not None:
            lines.append(line)
        self.assertEqual(lines[0], "> ident")
        self.assertRegex(lines[1], r"^! Win32: .*\(link::CLink\)$")
        self.assertEqual(lines[2:], [])   # what was to follow is given up
        self.assertEqual(terminal.wait(), 1)


if __name__ == "__main__":
    program.main()

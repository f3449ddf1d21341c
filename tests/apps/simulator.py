"""Starts rxsim in the background and fieldterm against it."""

import os
import queue
import re
import signal
import socket
import subprocess
import threading

import program
from program import BIN, EMULATOR

PATIENCE = 60   # seconds; only a failing test waits that long


class Background:
    """A program that runs until it is told to end; its output comes line by line."""

    def __init__(self, name, *arguments, folder):
        # Output at the end only would be too late.
        environment = {**os.environ, "LC_ALL": "C.UTF-8", "VANTOR_CAPTURE": "0"}
        self.process = subprocess.Popen([*EMULATOR, str(BIN / name), *arguments], cwd=folder, env=environment,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.lines = queue.Queue()
        self.complaint = queue.Queue()
        for stream, lines in (self.process.stdout, self.lines), (self.process.stderr, self.complaint):
            threading.Thread(target=self._read, args=(stream, lines), daemon=True).start()

    @staticmethod
    def _read(stream, lines):
        with stream:   # Wine's own processes may hold it open for longer than the program lives
            for line in stream:
                lines.put(line.decode("utf-8").rstrip("\r\n"))
        lines.put(None)

    def line(self):
        """The next line of its output; None when there is no more."""
        return self.lines.get(timeout=PATIENCE)

    def interrupt(self):
        """Ctrl-C, as its console would give it."""
        self.process.send_signal(signal.SIGINT)

    def wait(self):
        return self.process.wait(timeout=PATIENCE)

    def end(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
        self.process.stdin.close()


class SimulatorTest(program.ProgramTest):
    def background(self, name, *arguments):
        started = Background(name, *arguments, folder=self.folder)
        self.addCleanup(started.end)
        return started

    def rxsim(self, *arguments):
        """A simulator that listens; its port is the test's."""
        simulator = self.background("rxsim.exe", "--tcp", "0", *arguments)
        line = simulator.line()
        if line is None:
            self.fail(f"rxsim ended: {simulator.complaint.get(timeout=PATIENCE)}")
        self.port = int(re.fullmatch(r"on port (\d+)", line)[1])
        return simulator

    def fieldterm(self, *arguments, lines=None):
        """The finished process, over the test's port; the commands are arguments or lines."""
        return self.finished("fieldterm.exe", "--tcp", f"127.0.0.1:{self.port}", *arguments, lines=lines)

    def finished(self, name, *arguments, lines=None):
        given = b"" if lines is None else "".join(f"{line}\n" for line in lines).encode("utf-8")
        done = subprocess.run([*EMULATOR, str(BIN / name), *arguments], cwd=self.folder, input=given,
                              env={**os.environ, "LC_ALL": "C.UTF-8"}, capture_output=True, timeout=120)
        done.stdout, done.stderr = (out.decode("utf-8").replace("\r\n", "\n") for out in (done.stdout, done.stderr))
        return done

    def answers(self, *arguments, **keywords):
        """What fieldterm prints for each command: a list of (command, lines)."""
        done = self.fieldterm(*arguments, **keywords)
        self.assertEqual(done.stderr, "")
        return transcript(done.stdout)

    def connect(self):
        return socket.create_connection(("127.0.0.1", self.port), timeout=PATIENCE)


def transcript(text):
    answers = []
    for line in text.splitlines():
        if line.startswith("> "):
            answers.append((line[2:], []))
        else:
            answers[-1][1].append(line.strip())
    return answers


def read_log(path):
    """The texts of the log's records, without their stamps."""
    text = path.read_bytes().decode("utf-16-le")
    assert text[:1] == "\ufeff", "no byte-order mark"
    records = text[1:].split("\r\n")
    assert records.pop() == "", "the last line has no end"
    found = [re.fullmatch(r"\[\d{4}/[A-Z][a-z]+/\d\d, \d\d:\d\d:\d\d\] (.*)", record) for record in records]
    assert all(found), records
    return [match[1] for match in found]

"""usage: peers_test.py PROGRAM EMULATOR...

Runs tcp_client against servers that are not ours, on the loopback address: Python's web server, and socat as an echo.
"""

import os
import pathlib
import random
import re
import shutil
import socket
import subprocess
import sys
import tempfile
import unittest

PROGRAM, *EMULATOR = sys.argv[1:]


def client(*arguments):
    return subprocess.run([*EMULATOR, PROGRAM, *map(str, arguments)], stdin=subprocess.DEVNULL, capture_output=True,
                          timeout=120, env={**os.environ, "VANTOR_CAPTURE": "1"})


class PeerTest(unittest.TestCase):
    def start(self, *command, port, **options):
        """Starts a server, and returns the port that it announces in the words of the pattern."""
        server = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                  text=True, **options)
        self.addCleanup(server.stdout.close)
        self.addCleanup(server.wait)
        self.addCleanup(server.terminate)
        for line in server.stdout:
            found = re.search(port, line)
            if found:
                return int(found[1])
        self.fail(f"{command[0]} has ended")


class WebServer(PeerTest):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="vantor-"))
        self.addCleanup(shutil.rmtree, self.folder)
        self.port = self.start(sys.executable, "-u", "-m", "http.server", "--bind", "127.0.0.1", "0",
                               port=r"port (\d+)", cwd=self.folder)

    def get(self, path):
        done = client(self.port, "get", path)
        self.assertEqual(done.returncode, 0, done.stdout[:500])
        head, _, body = done.stdout.partition(b"\r\n\r\n")
        return head.decode("ascii").split("\r\n")[0].split()[1], body

    def test_files_arrive_as_they_are(self):
        for size in 0, 1, 1499, 1500, 1501, 3_000_000:
            with self.subTest(size=size):
                data = random.Random(size).randbytes(size)
                (self.folder / "trace").write_bytes(data)
                status, body = self.get("/trace")
                self.assertEqual(status, "200")
                self.assertTrue(body == data, f"{len(body)} bytes")

    def test_missing_file_is_reported_by_the_server(self):
        self.assertEqual(self.get("/nothing")[0], "404")


class Echo(PeerTest):
    @unittest.skipUnless(shutil.which("socat"), "there is no socat on this machine")
    def test_what_is_sent_comes_back(self):
        port = self.start("socat", "-d", "-d", "TCP-LISTEN:0,bind=127.0.0.1", "EXEC:cat",
                          port=r"listening on AF=2 127\.0\.0\.1:(\d+)")
        done = client(port, "echo", 5_000_000)
        self.assertEqual((done.returncode, done.stdout), (0, b"5000000\n"))


class Nobody(PeerTest):
    def test_port_that_nobody_listens_on_refuses(self):
        with socket.socket() as bound:
            bound.bind(("127.0.0.1", 0))
            done = client(bound.getsockname()[1], "get", "/")
        self.assertEqual((done.returncode, done.stdout), (1, b"WSAConnect 10061\n"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

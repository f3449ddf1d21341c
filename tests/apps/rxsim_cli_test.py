"""usage: rxsim_cli_test.py BIN [EMULATOR...]

The simulator as a client of any kind sees it, over TCP.
"""

import socket

import program
from simulator import SimulatorTest


class Client:
    def __init__(self, connection):
        self.connection = connection
        self.lines = connection.makefile("rb")

    def ask(self, command):
        self.connection.sendall(command.encode() + b"\r\n")
        return self.line()

    def line(self):
        return self.lines.readline().decode().removesuffix("\r\n")

    def close(self):
        self.lines.close()
        self.connection.close()


class Rxsim(SimulatorTest):
    def client(self):
        client = Client(self.connect())
        self.addCleanup(client.close)
        return client

    def readings(self, *arguments):
        """The first twenty of a sweep."""
        self.rxsim(*arguments)
        client = self.client()
        client.ask("set interval 1")
        client.ask("sweep start")
        return [client.line() for _ in range(20)]

    def test_answers_lines_that_end_with_a_line_feed_alone(self):
        self.rxsim()
        client = self.client()
        client.connection.sendall(b"ident\nget points\n")
        self.assertEqual([client.line(), client.line()], ["OK RXSIM,1.0,0042", "OK 11"])

    def test_answers_end_with_carriage_return_and_line_feed(self):
        self.rxsim()
        with self.connect() as connection:
            connection.sendall(b"ident\r\nbye\r\n")
            received = b""
            while piece := connection.recv(100):
                received += piece
        self.assertEqual(received, b"OK RXSIM,1.0,0042\r\nOK\r\n")

    def test_seed_repeats_the_readings(self):
        self.assertEqual(self.readings("--seed", "7"), self.readings("--seed", "7"))

    def test_other_seed_makes_other_readings(self):
        self.assertNotEqual(self.readings("--seed", "7"), self.readings("--seed", "8"))

    def test_trace_gives_the_levels_of_a_file(self):
        (self.folder / "trace.csv").write_text("frequency;level\n88000;-50.5\n90000,x,-60\n\n-70.1\n")
        levels = [reading.split()[3] for reading in self.readings("--trace", "trace.csv")]
        self.assertEqual(levels[:4], ["-50.5", "-60.0", "-70.1", "-50.5"])

    def test_trace_name_may_have_letters_of_any_language(self):
        (self.folder / "H\u00f6he.csv").write_text("-50\n")
        self.assertEqual(self.readings("--trace", "H\u00f6he.csv")[0], "L 0 88000 -50.0")

    def test_connection_after_connection(self):
        self.rxsim()
        for _ in range(5):
            client = self.client()
            self.assertEqual(client.ask("ident"), "OK RXSIM,1.0,0042")
            client.close()

    def test_client_that_says_nonsense_does_not_end_it(self):
        self.rxsim()
        with self.connect() as connection:
            connection.sendall(b"\0\xff" * 100000)
        self.assertEqual(self.client().ask("ident"), "OK RXSIM,1.0,0042")

    def test_client_that_goes_in_the_middle_of_a_sweep_does_not_end_it(self):
        self.rxsim()
        client = self.client()
        client.ask("set interval 1")
        client.ask("sweep start")
        client.connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, b"\1\0\0\0\0\0\0\0")
        client.close()
        self.assertEqual(self.client().ask("sweep start"), "OK")

    def test_once_ends_after_the_first_connection(self):
        simulator = self.rxsim("--once")
        self.client().ask("bye")
        self.assertEqual(simulator.wait(), 0)

    def test_control_c_ends_it(self):
        simulator = self.rxsim()
        client = self.client()
        client.ask("ident")
        simulator.interrupt()
        self.assertEqual(client.line(), "")   # the connection ends too
        self.assertEqual(simulator.wait(), 0)


class Usage(SimulatorTest):
    def failure(self, *arguments):
        done = self.finished("rxsim.exe", *arguments)
        self.assertTrue(done.stderr)
        return done.returncode, done.stdout

    def test_wrong_usage_ends_with_2(self):
        for arguments in ([], ["--tcp"], ["--tcp", "70000"], ["--com", "COM1:", "--once"], ["--nonsense"]):
            with self.subTest(arguments):
                self.assertEqual(self.failure(*arguments), (2, ""))

    def test_port_in_use_is_explained_and_ends_with_1(self):
        self.rxsim()
        self.assertEqual(self.failure("--tcp", str(self.port)), (1, ""))

    def test_serial_port_that_is_not_there_is_explained_and_ends_with_1(self):
        self.assertEqual(self.failure("--com", "\\\\.\\COM254"), (1, ""))

    def test_trace_that_is_not_there_is_explained_and_ends_with_1(self):
        self.assertEqual(self.failure("--tcp", "0", "--trace", "missing.csv"), (1, ""))

    def test_trace_without_levels_is_explained_and_ends_with_1(self):
        (self.folder / "trace.csv").write_text("frequency;level\n")
        self.assertEqual(self.failure("--tcp", "0", "--trace", "trace.csv"), (1, ""))


if __name__ == "__main__":
    program.main()

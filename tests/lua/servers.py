# SPDX-License-Identifier: LicenseRef-Proprietary
"""Servers of sorel.remote for tests: real shells that listen on a port of 127.0.0.1 which the
system chooses, and raw connections to them."""

import re
import socket
import subprocess
import time
from contextlib import contextmanager

from shell import COMMAND, RECORDING, SECONDS, SOURCE, environment, lines_of

FOUND = {"LUA_PATH": f"{SOURCE}/lua/?.lua"}
REMOTE = "local remote = require 'sorel.remote' "
OFF = ["radioSelect(context1, 2)", "radioSetTxState(context1, 0)"]


def eventually(ask, expected):
    """Asks until the answer is the expected one; an assertion fails when it never is."""
    end = time.monotonic() + SECONDS
    while (answer := ask()) != expected and time.monotonic() < end:
        time.sleep(0.02)
    assert answer == expected


class Server:
    """A shell that serves."""

    def __init__(self, process, folder):
        self.process = process
        self.folder = folder
        self.port = int(self.line(r"listening on [0-9.]+:([0-9]+)"))

    @property
    def lines(self):
        """What it has said, without addresses: the port of the other side is of the system."""
        said = lines_of(self.folder / "said")
        return [re.sub(r"127\.0\.0\.1:[0-9]+", "PEER", line) for line in said]

    def line(self, pattern):
        """The part of a line that matches, waited for."""
        end = time.monotonic() + SECONDS
        while time.monotonic() < end and self.process.poll() is None:
            found = re.search(pattern, "\n".join(lines_of(self.folder / "said")))
            if found:
                return found[1]
            time.sleep(0.02)
        raise AssertionError((self.process.poll(), lines_of(self.folder / "errors")))

    @property
    def calls(self):
        """The driver calls since the radio was opened."""
        return lines_of(self.folder / "log")[1:]

    def connect(self):
        """A raw connection, which has read the greeting."""
        connection = Raw(self.port)
        assert connection.line() == "sorel-remote 1"
        return connection

    def admitted(self):
        """A raw connection that has said hello."""
        connection = self.connect()
        assert connection.ask("hello 1") == "ok"
        return connection


class Raw:
    """A connection without a client."""

    def __init__(self, port, receive_buffer=None):
        self.socket = socket.socket()
        if receive_buffer:
            self.socket.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, receive_buffer)
        self.socket.settimeout(SECONDS)
        self.socket.connect(("127.0.0.1", port))
        self.socket.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self.received = self.socket.makefile("rb")

    def send(self, data):
        """Sends bytes, or a text of Latin-1."""
        self.socket.sendall(data if isinstance(data, bytes) else data.encode("latin-1"))

    def line(self):
        """The next line without its end; None where there is none."""
        try:
            line = self.received.readline()
        except ConnectionError:
            return None
        return line.decode("latin-1").removesuffix("\n") if line else None

    def ask(self, line):
        """The answer to a line."""
        self.send(line + "\n")
        return self.line()

    def close(self):
        """Closes both directions."""
        self.received.close()
        self.socket.close()

    def is_closed(self):
        """Whether the other side has closed; waits for it."""
        return self.line() is None


@contextmanager
def serving(folder, options="", answers="", before="", driver=RECORDING, **more):
    """A server that stands in a folder of its own, with these options, Lua text in a table, after
    what the text before does. Answers are lines for the recording driver, whose file is `answers`
    in the folder."""
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "answers").write_text(answers + "\n")
    variables = FOUND | {"RECORDING_DRIVER_LOG": str(folder / "log"),
                         "RECORDING_DRIVER_ANSWERS": str(folder / "answers")}
    text = f"{before} require('sorel.remote').serve {{ {options} }}"
    with open(folder / "said", "w") as said, open(folder / "errors", "w") as errors:
        process = subprocess.Popen(COMMAND + ["-c", text], cwd=folder, stdin=subprocess.DEVNULL,
                                   stdout=said, stderr=errors,
                                   env=environment(driver, variables | more))
        try:
            yield Server(process, folder)
        finally:
            process.kill()
            process.wait()


def client(port, text):
    """Lua text that connects to a port, the table being `board`, and goes on with that text."""
    return f"{REMOTE} local board = remote.connect {{ port = {port} }} {text}"

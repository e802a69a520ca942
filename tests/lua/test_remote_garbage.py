# SPDX-License-Identifier: LicenseRef-Proprietary
"""Whatever bytes come in, a server of sorel.remote goes on, and calls nothing that was not asked
for. All of it is random, from fixed seeds."""

import random
import re
import threading

import pytest
from servers import FOUND, Raw, client, eventually, serving
from shell import lua

MILLION = 1_000_000

# What the server has in Lua, in KiB, once what is garbage is collected.
MEASURED = ("radioVersion = function() collectgarbage() collectgarbage() "
            "return ('%.0f'):format(collectgarbage('count')) end ")

# The grammar of docs/remote.md.
NUMBER = r"(?:-?[0-9]+(?:\.[0-9]+)?(?:e[+-]?[0-9]+)?|-?inf|-?nan)"
TEXT = r'"(?:[ !#-\[\]-~]|\\["\\]|\\x[0-9A-Fa-f]{2})*"'
ELEMENT = rf"(?:{NUMBER}|{TEXT}|\?)"
VALUE = (rf"(?:nil|true|false|{NUMBER}|{TEXT}|\{{(?:{ELEMENT}(?: {ELEMENT})*)?\}}"
         r"|<function>|<thread>|<userdata>)")
REQUEST = re.compile(rf"hello [0-9]{{1,9}}(?: {TEXT})?|list|ping|close"
                     rf"|call radio[A-Z][A-Za-z0-9]{{0,58}}(?: {VALUE})*")

ANSWER = re.compile(rf"ok(?: {VALUE})*|(?:error|refused) {TEXT}")

REQUESTS = [
    "ping", "list", "hello 1", 'hello 1 "token"', "call radioGetTemperature",
    "call radioSetTxFrequency 2655000000", "call radioSetTxFrequency -2.5e+09",
    'call radioSetRxGain "12\\x00\\"\\\\"', "call radioSetTxPowerRegisters {1 2 -3.5 \"4\" ?}",
    "call radioSetRxGainRegisters {}", "call radioInit nil true false",
    "call radioReset <function>",
    "call radioSpiWrite inf -nan <userdata>", "call radioGetDriverNames", "call radioNothing {}",
    "call radioSetLoopback {nan -inf 1e300}",
]


class Drained(Raw):
    """A connection whose answers are read as they come, and dropped."""

    def __init__(self, port):
        super().__init__(port)
        self.reader = threading.Thread(target=self.drain, daemon=True)
        self.reader.start()

    def drain(self):
        """Reads until the other side closes."""
        while self.line() is not None:
            pass

    def try_to_send(self, data):
        """Whether the bytes could be sent."""
        try:
            self.send(data)
        except OSError:
            return False
        return True


def pieces(chance, data, longest):
    """Data in pieces of random lengths."""
    at = 0
    while at < len(data):
        length = chance.randint(1, longest)
        yield data[at:at + length]
        at += length


def send_all(server, parts, first=b""):
    """Sends what comes, on another connection where the server has closed the one before."""
    connection = None
    for part in parts:
        while connection is None or not connection.try_to_send(part):
            if connection:
                connection.close()
            connection = Drained(server.port)
            connection.try_to_send(first)
    connection.socket.shutdown(1)
    connection.reader.join()
    connection.close()


def memory(server):
    """What the server has in memory, in KiB."""
    raw = server.admitted()
    answer = raw.ask("call radioVersion")
    raw.close()
    eventually(lambda: server.lines[-1], "PEER is gone")
    return int(re.fullmatch('ok "([0-9]+)"', answer)[1])


def assert_unharmed(server, before):
    """The server is there for a client, has called nothing, and is not larger than before."""
    assert server.calls == []
    assert memory(server) < before + 100
    assert lua(client(server.port, "print(board.radioSetTxChannel(3100))"), **FOUND).out == "\n"
    assert server.calls == ["radioSetTxChannel(context1, 3100)"]


@pytest.mark.parametrize("first", [b"hello 1\n", b""], ids=["after-hello", "before-hello"])
def test_a_million_random_bytes_in_random_pieces_do_nothing(first, tmp_path):
    chance = random.Random(20260711)
    with serving(tmp_path, before=MEASURED) as server:
        before = memory(server)
        send_all(server, pieces(chance, chance.randbytes(MILLION), 20000), first)
        assert_unharmed(server, before)


def test_random_bytes_one_by_one_do_nothing(tmp_path):
    chance = random.Random(20260712)
    with serving(tmp_path, before=MEASURED) as server:
        before = memory(server)
        send_all(server, pieces(chance, chance.randbytes(30000), 1), b"hello 1\n")
        assert_unharmed(server, before)


def test_a_million_bytes_without_an_end_of_a_line_do_nothing(tmp_path):
    chance = random.Random(20260713)
    data = chance.randbytes(MILLION).replace(b"\n", b"x")
    with serving(tmp_path, before=MEASURED) as server:
        before = memory(server)
        send_all(server, pieces(chance, data, 20000), b"hello 1\n")
        assert_unharmed(server, before)


def mutated(chance, line):
    """A line with some characters replaced, inserted, removed or moved."""
    characters = list(line)
    for _ in range(chance.randint(1, 3)):
        at = chance.randrange(len(characters) + 1)
        some = chance.choice([chr(chance.randrange(256)), *'"\\{}<> ?-.e09xn'])
        if some in "\r\n":
            some = "\t"
        match chance.randrange(4):
            case 0:
                characters[at:at + 1] = [some]
            case 1:
                characters.insert(at, some)
            case 2:
                del characters[at:at + chance.randint(1, 4)]
            case 3:
                start = chance.randrange(len(characters) + 1)
                characters[at:at] = characters[start:start + chance.randint(1, 8)]
    return "".join(characters)


def test_what_is_refused_is_what_the_grammar_refuses(tmp_path):
    chance = random.Random(20260714)
    lines = REQUESTS + [mutated(chance, chance.choice(REQUESTS)) for _ in range(6000)]
    lines = [line for line in lines if line != "close"]
    with serving(tmp_path, "silence = 1000", before=MEASURED) as server:
        raw = server.admitted()
        sensible = 0
        for number, line in enumerate(lines, 2):
            answer = raw.ask(line)
            pointed = re.match(
                rf'refused "line {number}, column ([0-9]+): .* is expected, got ', answer)
            assert (pointed is None) == (REQUEST.fullmatch(line) is not None), (line, answer)
            assert ANSWER.fullmatch(answer), (line, answer)
            if pointed:
                assert 1 <= int(pointed[1]) <= len(line) + 1
            else:
                sensible += 1
        assert 500 < sensible < 5500
        assert raw.ask("ping") == "ok"

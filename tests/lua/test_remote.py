# SPDX-License-Identifier: LicenseRef-Proprietary
"""Servers and clients of sorel.remote: options, who is admitted, limits, lost connections."""

import re
import signal
import socket
import threading

import pytest
from servers import FOUND, REMOTE, Raw, client, eventually, serving
from shell import SECONDS, SIMULATION, SOURCE, lua, prompt, raised, type_line

TOKEN = "correct horse battery staple"


def refusal(text, **more):
    """What a script raises that has the module, without ports."""
    return re.sub("127.0.0.1:[0-9]+", "PEER", raised(text, **FOUND, **more).out)


def refused_connection(port, options=""):
    """What remote.connect raises."""
    return refusal(f"{REMOTE} remote.connect {{ port = {port}, {options} }}")


@pytest.fixture(name="listener")
def a_listener():
    """A listening socket that is no server of sorel.remote."""
    with socket.create_server(("127.0.0.1", 0)) as listener:
        yield listener


def speaking(listener, *lines):
    """Lets a listener greet its first client with the first line, answer each of its lines by the
    next one, and close."""
    def speak():
        connection, _ = listener.accept()
        with connection, connection.makefile("rb") as stream:
            connection.sendall(lines[0])
            for line in lines[1:]:
                stream.readline()
                connection.sendall(line)
    threading.Thread(target=speak, daemon=True).start()
    return listener.getsockname()[1]


# ---- Options ------------------------------------------------------------------------------------

@pytest.mark.parametrize("options, message", [
    ("{ prot = 4400 }", "prot: there is no such key; did you mean port?"),
    ("{ port = 65536 }", "port: 65536 is above 65535"),
    ("{ port = 1.5 }", "port: 1.5 is not a whole number"),
    ("{ host = 1 }", "host: a text is expected, got a number"),
    ("{ idle = 0 }", "idle: 0 is not above 0"),
    ("{ silence = -1 }", "silence: -1 is not above 0"),
    ("{ connections = 0 }", "connections: 0 is below 1"),
    ("{ connections = 65 }", "connections: 65 is above 64"),
    ("{ deadman = 1 }", "deadman: true or false is expected, got a number"),
    ("{ log = 'file' }", "log: a function is expected, got a text"),
    ("{ token = 'sesame' }",
     "token: it has 6 characters, and 16 are the least; `openssl rand -hex 16` makes one"),
    ("7", "a table is expected, got a number"),
])
def test_a_wrong_option_of_a_server_is_named(options, message):
    for function in ("listen", "serve"):
        assert refusal(f"{REMOTE} remote.{function}({options})") == (
            f'[string "cmdline"]:1: remote.{function}: {message}')


@pytest.mark.parametrize("options, message", [
    ("{}", "port: is missing"),
    ("", "port: is missing"),
    ("{ port = 0 }", "port: 0 is below 1"),
    ("{ port = 4400, timeout = 0 }", "timeout: 0 is not above 0"),
    ("{ port = 4400, tokn = 'x' }", "tokn: there is no such key; did you mean token?"),
])
def test_a_wrong_option_of_a_client_is_named(options, message):
    assert refusal(f"{REMOTE} remote.connect({options})") == (
        f'[string "cmdline"]:1: remote.connect: {message}')


@pytest.mark.parametrize("host", ["0.0.0.0", "*", "192.168.1.1", "128.0.0.1", "127.0.0.256",
                                  "127.0.0.1.example", "board", "127.1", ""])
def test_no_server_listens_elsewhere_without_a_token(host):
    text = f"{REMOTE} socket.tcp = nil remote.listen {{ host = '{host}' }}"  # no socket is made
    assert refusal(text) == (
        '[string "cmdline"]:1: remote.listen: token: is missing; without one a server only listens '
        f"on 127.0.0.1, not on {host}")


@pytest.mark.parametrize("options, host", [
    ("", "127.0.0.1"), ("host = 'localhost'", "127.0.0.1"), ("host = '127.1.2.3'", "127.1.2.3"),
    (f"host = '0.0.0.0', token = '{TOKEN}'", "0.0.0.0"),
])
def test_a_server_listens_where_it_is_told_and_says_where(options, host):
    ran = lua(f"{REMOTE} local server = remote.listen {{ {options} }} "
              "print(server.host, server.port > 0, server:connections()) server:close()", **FOUND)
    assert ran.out == f"{host}\ttrue\t0\n"
    assert ran.calls == []


def test_a_port_that_is_taken_is_an_error(listener):
    port = listener.getsockname()[1]
    assert refusal(f"{REMOTE} remote.listen {{ port = {port} }}") == (
        "remote: cannot listen on PEER: address already in use")


# ---- Who is admitted ----------------------------------------------------------------------------

def test_only_who_has_the_token_is_admitted(tmp_path):
    with serving(tmp_path, f"token = '{TOKEN}'") as server:
        assert refused_connection(server.port) == "remote: PEER: a token is needed"
        for wrong in ("", "x", TOKEN[:-1], TOKEN + "x", TOKEN.upper(), "\\0" * len(TOKEN)):
            assert refused_connection(server.port, f"token = '{wrong}'") == (
                "remote: PEER: the token is wrong")
        ran = lua(f"{REMOTE} print(remote.connect {{ port = {server.port}, token = '{TOKEN}' }}"
                  ".radioVersion())", **FOUND)
        assert ran.out == "recording driver\n"
        assert TOKEN not in (tmp_path / "said").read_text()
        eventually(lambda: server.lines[-1], "PEER is gone")
        assert server.lines[1:] == ["PEER gave a wrong token"] * 6 + [
            "PEER is connected", "PEER is gone"]
        assert server.calls == ["radioVersion(context1)"]


def test_who_gave_a_wrong_token_has_no_other_guess_and_keeps_nobody_waiting(tmp_path):
    with serving(tmp_path, f"token = '{TOKEN}'") as server:
        wrong = server.connect()
        wrong.send(f'hello 1 "guess"\nhello 1 "{TOKEN}"\ncall radioReset\n')
        other = server.connect()
        assert other.ask(f'hello 1 "{TOKEN}"') == "ok"
        assert wrong.line() == 'refused "the token is wrong"'
        assert wrong.is_closed()
        assert server.calls == []


def test_a_server_without_a_token_takes_any(tmp_path):
    with serving(tmp_path) as server:
        assert server.connect().ask('hello 1 "guess"') == "ok"


def test_nothing_is_called_before_hello(tmp_path):
    with serving(tmp_path) as server:
        for request in ("call radioReset", "list", "ping", "close"):
            raw = server.connect()
            assert raw.ask(request) == 'refused "hello is expected first"'
            assert raw.is_closed()
        assert server.calls == []


def test_another_version_is_refused(tmp_path):
    with serving(tmp_path) as server:
        raw = server.connect()
        assert raw.ask("hello 2") == (
            'refused "version 1 of the protocol is spoken here, not 2"')
        assert raw.is_closed()


def test_hello_is_said_once(tmp_path):
    with serving(tmp_path) as server:
        raw = server.admitted()
        assert raw.ask("hello 1") == 'refused "hello was said before"'
        assert raw.ask("ping") == "ok"


def test_no_more_connections_than_allowed_and_room_again_when_one_has_gone(tmp_path):
    with serving(tmp_path, "connections = 2") as server:
        one, two = server.admitted(), server.connect()
        third = Raw(server.port)
        assert third.line() == 'refused "all 2 connections are taken"'
        assert third.is_closed()
        assert refused_connection(server.port) == "remote: PEER: all 2 connections are taken"
        two.close()
        eventually(lambda: Raw(server.port).line(), "sorel-remote 1")
        assert one.ask("ping") == "ok"


# ---- Limits -------------------------------------------------------------------------------------

def test_who_says_nothing_is_dropped(tmp_path):
    with serving(tmp_path, "idle = 0.3") as server:
        silent, endless = server.connect(), server.connect()
        endless.send("hello")  # a line that does not end is none
        for raw in (silent, endless):
            assert raw.line() == 'refused "there was no request for 0.3 s"'
            assert raw.is_closed()


def test_who_has_said_hello_and_nothing_more_is_dropped_and_hears_why(tmp_path):
    with serving(tmp_path, "idle = 2") as server:
        message = refusal(client(server.port, "socket.sleep(4) board.ping()"))
    assert message == "remote: PEER: there was no request for 2 s"


def test_lines_have_a_longest_length(tmp_path):
    with serving(tmp_path) as server:
        raw = server.admitted()
        longest = 'call radioLoadCalibrationFile "' + "x" * (65536 - 33) + '"\n'
        assert len(longest) == 65536
        raw.send(longest)
        assert raw.line() == "ok"
        raw.send("x" * 200000)
        assert raw.line() == 'refused "line 3 has more than 65536 bytes"'
        assert raw.is_closed()
        assert len(server.calls) == 1


def test_a_line_may_end_in_cr_lf_and_come_byte_by_byte(tmp_path):
    with serving(tmp_path) as server:
        raw = server.connect()
        for byte in b"hello 1\r\ncall radioSetRxGain -5\r\n":
            raw.send(bytes([byte]))
        assert [raw.line(), raw.line()] == ["ok", "ok"]
        assert server.calls == ["radioSetRxGain(context1, -5)"]


def test_a_line_may_have_1000_values_and_no_more(tmp_path):
    with serving(tmp_path) as server:
        raw = server.admitted()
        assert raw.ask("call radioReset" + " 1" * 1000) == (
            'error "Error in radioReset expected 0..0 args, got 1000"')
        assert raw.ask("call radioReset" + " 1" * 1001) == (
            'refused "line 3, column 2016: the end after 1000 values is expected, got \' 1\'"')


def test_who_does_not_read_keeps_nobody_waiting_and_is_dropped(tmp_path):
    answer = "x" * 900
    with serving(tmp_path, "idle = 3", answers=f'radioVersion "{answer}"') as server:
        deaf = Raw(server.port, receive_buffer=4096)
        deaf.send("hello 1\n" + "call radioVersion\n" * 20000)  # 18 MB of answers
        other = server.admitted()
        assert other.ask("call radioReset") == "ok"
        other.close()
        deaf.socket.settimeout(2)
        with pytest.raises(OSError):  # it is not read from, and later closed
            for _ in range(60):
                deaf.send(b"call radioVersion\n" * 60000)
        eventually(lambda: server.lines.count("PEER is gone"), 2)
        # Nothing more was called once its answers were not taken.
        assert server.calls.count("radioReset(context1)") == 1
        assert 0 < server.calls.count("radioVersion(context1)") < 20000


def test_who_has_closed_one_direction_gets_all_answers(tmp_path):
    with serving(tmp_path) as server:
        raw = server.connect()
        raw.send("hello 1\n" + "call radioGetRxRtwp\n" * 1000)
        raw.socket.shutdown(socket.SHUT_WR)
        assert [raw.line() for _ in range(1002)] == ["ok"] + ["ok 0"] * 1000 + [None]


def test_a_line_without_an_end_is_not_carried_out(tmp_path):
    with serving(tmp_path) as server:
        raw = server.admitted()
        raw.send("call radioReset")
        raw.socket.shutdown(socket.SHUT_WR)
        assert raw.is_closed()
        assert server.calls == []


def test_a_server_takes_new_connections_for_as_long_as_it_lives(tmp_path):
    with serving(tmp_path) as server:
        for _ in range(300):
            raw = server.admitted()
            raw.send("ping")
            raw.close()
        assert server.admitted().ask("ping") == "ok"


# ---- Connections that fail ----------------------------------------------------------------------

def test_no_server_is_a_refused_connection(listener):
    port = listener.getsockname()[1]
    listener.close()
    assert refused_connection(port) == "remote: PEER: connection refused"


@pytest.mark.parametrize("greeting", [b"SSH-2.0-OpenSSH\r\n", b"sorel-remote x\n", b"\n",
                                      b"\0\xff\n"])
def test_another_server_is_told_apart(listener, greeting):
    message = refused_connection(speaking(listener, greeting))
    assert re.fullmatch("remote: PEER: (it greets like no server of sorel.remote"
                        "|the answer is malformed: .*)", message)


def test_a_server_of_another_version_is_told_apart(listener):
    assert refused_connection(speaking(listener, b"sorel-remote 2\n")) == (
        "remote: PEER: the server speaks version 2 of the protocol, "
        "and only version 1 is spoken here")


@pytest.mark.parametrize("answer", [b"ok {} {} {}\n", b"ok\n", b'ok {"print"} {}\n', b"ok 1 2\n",
                                    b'ok {"radioReset"} {"os" 1}\n', b'ok {} {"RADIO_X"}\n',
                                    b'ok {} {1 2}\n', b'ok {} {"RADIO_X" "1"}\n', b"ok {7} {}\n"])
def test_a_list_of_other_than_functions_and_constants_of_the_radio_is_not_taken(listener, answer):
    port = speaking(listener, b"sorel-remote 1\n", b"ok\n", answer)
    assert refused_connection(port) == "remote: PEER: what the server offers is malformed"


@pytest.mark.parametrize("answer, message", [
    (b"okay\n", "the answer is malformed: column 1: ok, error or refused is expected, got 'okay'"),
    (b"ok 1  2\n", "the answer is malformed: column 6: a value is expected, got ' 2'"),
    (b"error\n",
     "the answer is malformed: column 6: a blank and one text is expected, got the end"),
    (b"x" * 70000, "a line of more than 65536 bytes has come"),
    (b"", "the connection was lost"),
])
def test_an_answer_without_a_sense_ends_the_connection(listener, answer, message):
    port = speaking(listener, b"sorel-remote 1\n", b"ok\n", b'ok {"radioReset"} {}\n', answer)
    ran = lua(client(port, "print(pcall(board.radioReset)) print(pcall(board.radioReset)) "
                     "board.close()"), **FOUND)
    assert re.sub("127.0.0.1:[0-9]+", "PEER", ran.out) == f"false\tremote: PEER: {message}\n" * 2


def test_a_listener_that_says_nothing_is_given_up(listener):
    port = listener.getsockname()[1]
    assert refused_connection(port, "timeout = 0.3") == (
        "remote: PEER: no answer within 0.3 s, so the connection was closed")


def at_prompt(server, options=""):
    """A prompt where `board` is the server's."""
    terminal = prompt(**FOUND)
    assert type_line(terminal, "remote = require 'sorel.remote'") == []
    assert type_line(terminal, "board = remote.connect "
                     f"{{ port = {server.port}, {options} }}") == []
    return terminal


def answer_at(terminal, line):
    """What a line prints, without ports."""
    return [re.sub("127.0.0.1:[0-9]+", "PEER", line) for line in type_line(terminal, line)]


def test_a_server_that_stops_is_given_up_and_a_call_is_not_made_twice(tmp_path):
    with serving(tmp_path) as server:
        terminal = at_prompt(server, "timeout = 2")
        server.process.send_signal(signal.SIGSTOP)
        for _ in range(2):
            assert answer_at(terminal, "board.radioReset()") == [
                'failed to process stdin: "remote: PEER: no answer within 2 s, '
                'so the connection was closed"']
        server.process.send_signal(signal.SIGCONT)
        eventually(lambda: server.lines[-1], "PEER is gone")
        assert server.calls == ["radioReset(context1)"]


def test_a_server_that_dies_is_a_lost_connection(tmp_path):
    with serving(tmp_path) as server:
        terminal = at_prompt(server)
        server.process.kill()
        server.process.wait()
        for line in ("board.radioReset()", "board.ping()"):
            assert answer_at(terminal, line) == [
                'failed to process stdin: "remote: PEER: the connection was lost"']
        assert answer_at(terminal, "board.close()") == []


def test_a_closed_connection_says_so(tmp_path):
    with serving(tmp_path) as server:
        out = lua(client(server.port, "board.close() board.close() print(pcall(board.radioReset))"),
                  **FOUND).out
    assert re.sub("127.0.0.1:[0-9]+", "PEER", out) == (
        "false\tremote: PEER: the connection was closed\n")


def test_it_serves_once_where_it_is_told_to(tmp_path):
    with serving(tmp_path, "once = true") as server:
        Raw(server.port).close()  # no hello, no connection
        one, two = server.admitted(), server.admitted()
        one.close()
        assert two.ask("close") == "ok"
        two.close()
        assert server.process.wait(SECONDS) == 0
        assert server.calls == ["radioClose(context1)"]


def test_one_script_serves_and_does_something_of_its_own(tmp_path):
    text = (f"{REMOTE} local said, steps = {{}}, 0 "
            "local server = remote.listen { log = function(line) said[#said + 1] = line end } "
            "print('listening on 127.0.0.1:' .. server.port) io.stdout:flush() "
            "repeat server:step(0.05) steps = steps + 1 until server:connections() == 2 "
            "server:close() print(#said, steps > 1) os.exit(0) ")
    with serving(tmp_path, before=text) as server:
        one, two = server.admitted(), server.admitted()
        assert (one.is_closed(), two.is_closed()) == (True, True)
        assert server.process.wait(SECONDS) == 0
        assert server.lines[1:] == ["5\ttrue"]


# ---- The page -----------------------------------------------------------------------------------

def test_the_dialogue_of_the_page_takes_place(tmp_path):
    page = (SOURCE / "docs/remote.md").read_text()
    dialogue = re.findall(r"^    ([CS]): (.*)$", page, re.MULTILINE)
    assert len(dialogue) > 20
    with serving(tmp_path, driver=SIMULATION) as server:
        raw = Raw(server.port)
        for side, line in dialogue:
            if side == "C":
                raw.send(line + "\n")
            else:
                assert raw.line() == line
        assert raw.is_closed()


def test_the_page_and_the_reference_tell_the_defaults():
    page = (SOURCE / "docs/remote.md").read_text()
    told = dict(re.findall(r"^\| `([a-z]+)` \| `?([^|`]*?)`? \|", page, re.MULTILINE))
    source = (SOURCE / "lua/sorel/remote.lua").read_text()
    source = source[:source.index("local CONNECT")]
    rules = dict(re.findall(r'\{ "([a-z]+)", [^\n]*default = ([^ ]+) \}', source))
    rules |= dict(re.findall(r'seconds\("([a-z]+)", ([0-9]+)\)', source))
    referred = lua("local serve = require('sorel.reference.remote').entries[1] "
                   "for _, field in ipairs(serve.arguments[1].fields) do "
                   "print(field.name, field.default or 'none') end", **FOUND).out
    referred = dict(line.split("\t") for line in referred.splitlines())
    assert told == referred | {"log": "prints"}
    assert {name: value for name, value in referred.items() if value != "none"} == rules

# SPDX-License-Identifier: LicenseRef-Proprietary
"""The dead man's switch of sorel.remote: whoever switches the transmitter on has to stay."""

import os
import signal
import subprocess
import time
from contextlib import contextmanager

import pytest
from servers import FOUND, OFF, client, eventually, serving
from shell import COMMAND, RECORDING, SECONDS, environment

LONG = "silence = 1000"
ON = "radioSetTxState(context1, 1)"
SWITCHING_ON = {
    "radioSetTxState 1": ON,
    "radioSetTxState 7": "radioSetTxState(context1, 7)",
    'radioSetTxState "1"': ON,
    "radioSetTxStateOfAntenna 1 1": "radioSetTxStateOfAntenna(context1, 1, 1)",
    "radioSpiWrite 16 0": "radioSpiWrite(context1, 16, 0)",
    'radioInitByScript 1 7 7 "up.script"': 'radioInitByScript(context1, 1, 7, 7, "up.script")',
}


@contextmanager
def program(text):
    """A shell that runs Lua text, and is killed at the end."""
    process = subprocess.Popen(COMMAND + ["-c", text], stdin=subprocess.DEVNULL,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                               env=environment(RECORDING, FOUND))
    try:
        yield process
    finally:
        process.kill()
        process.wait()


def off_after(server, *calls):
    """The transmitter goes off after these calls."""
    eventually(lambda: server.calls, list(calls) + OFF)


@pytest.mark.parametrize("number", [signal.SIGKILL, signal.SIGTERM])
def test_a_client_that_is_killed_leaves_the_transmitter_off(number, tmp_path):
    with serving(tmp_path, LONG) as server:
        with program(client(server.port, "board.radioSetTxState(1) socket.sleep(1000)")) as process:
            eventually(lambda: server.calls, [ON])
            process.send_signal(number)
            off_after(server, ON)
        eventually(lambda: server.lines[2:], [
            "PEER is gone",
            "PEER is gone: the transmitter was switched off, all paths are selected"])


def test_a_client_that_only_stops_leaves_the_transmitter_off(tmp_path):
    with serving(tmp_path, "silence = 2") as server:
        text = "board.radioSetTxState(1) while true do socket.sleep(0.1) board.ping() end"
        with program(client(server.port, text)) as process:
            eventually(lambda: server.calls, [ON])
            process.send_signal(signal.SIGSTOP)  # as with the cable pulled, nothing comes or ends
            off_after(server, ON)
            eventually(lambda: server.lines[2:], ["PEER was silent for 2 s: "
                       "the transmitter was switched off, all paths are selected"])


def test_a_client_that_pings_keeps_the_transmitter_on(tmp_path):
    with serving(tmp_path, "silence = 5") as server:
        raw = server.admitted()
        assert raw.ask("call radioSetTxState 1") == "ok"
        end = time.monotonic() + 7
        while time.monotonic() < end:
            time.sleep(0.1)
            assert raw.ask("ping") == "ok"
        assert server.calls == [ON]


@pytest.mark.parametrize("trickle", ["", "?\n", "call", "call radioReset(\n"])
def test_who_is_silent_or_talks_nonsense_is_told_once_and_its_request_is_not_carried_out(
        trickle, tmp_path):
    with serving(tmp_path, "silence = 1") as server:
        raw = server.admitted()
        assert raw.ask("call radioSetTxState 1") == "ok"
        end = time.monotonic() + SECONDS
        while server.calls != [ON] + OFF:
            assert time.monotonic() < end
            time.sleep(0.1)
            raw.send(trickle)
        raw.send("\ncall radioReset\nping\n")
        answers = [raw.line()]
        while answers[-1] != "ok":
            answers.append(raw.line())
        told = [line for line in answers if "silent" in line]
        assert len(told) == 1
        assert told[0].endswith('was silent for 1 s: the transmitter was switched off, '
                                'all paths are selected"')
        assert server.calls == [ON] + OFF


@pytest.mark.parametrize("request_, logged", SWITCHING_ON.items())
def test_what_may_switch_a_transmitter_on_is_undone(request_, logged, tmp_path):
    with serving(tmp_path, LONG) as server:
        raw = server.admitted()
        assert raw.ask("call " + request_) == "ok"
        raw.close()
        off_after(server, logged)


@pytest.mark.parametrize("request_", SWITCHING_ON)
def test_it_counts_as_switched_on_also_when_the_driver_has_refused(request_, tmp_path):
    name = request_.split()[0]
    with serving(tmp_path, LONG, answers=f"{name}#1 1") as server:
        raw = server.admitted()
        assert raw.ask("call " + request_) == f'error "{name}() did not return success"'
        raw.close()
        off_after(server, SWITCHING_ON[request_])


@pytest.mark.parametrize("requests", [
    ["radioReset"],
    ["radioSpiRead 16", "radioGetTemperature", "radioSetTxFrequency 2655000000"],
    ["radioSetTxState 0"],
    ["radioSetTxState 1", "radioSetTxState 0"],
    ["radioSelect 0", "radioSetTxState 1", "radioSetTxState 0"],
    ["radioSelect 0", "radioSetTxState 1", "radioSelect 2", "radioSetTxState 0"],
    ["radioSetTxState 1", "radioInit 1 7 7"],
    ["radioSetTxStateOfAntenna 1 1", "radioSetTxStateOfAntenna 1 0"],
    ["radioSpiWrite 16 0", "radioReset"],
    ["radioSpiWrite 16 0", "radioSelect 2", "radioSetTxState 0"],
])
def test_who_leaves_nothing_on_is_let_go(requests, tmp_path):
    with serving(tmp_path, LONG) as server:
        raw = server.admitted()
        for request in requests:
            assert raw.ask("call " + request).startswith("ok")
        raw.close()
        eventually(lambda: server.lines[-1], "PEER is gone")
        server.admitted()
        assert len(server.calls) == len(requests)


@pytest.mark.parametrize("requests", [
    ["radioSelect 0", "radioSetTxState 1", "radioSelect 1", "radioSetTxState 0"],
    ["radioSetTxState 1", "radioSelect 0", "radioSetTxState 0"],
    ["radioSetTxStateOfAntenna 0 1", "radioSetTxStateOfAntenna 1 0"],
    ["radioSpiWrite 16 0", "radioSetTxState 0"],
])
def test_who_may_leave_something_on_is_not(requests, tmp_path):
    with serving(tmp_path, LONG) as server:
        raw = server.admitted()
        for request in requests:
            assert raw.ask("call " + request) == "ok"
        calls = server.calls
        raw.close()
        off_after(server, *calls)


def test_a_failure_to_switch_off_leaves_it_on(tmp_path):
    with serving(tmp_path, LONG, answers="radioSetTxState#2 1") as server:
        raw = server.admitted()
        assert raw.ask("call radioSetTxState 1") == "ok"
        assert raw.ask("call radioSetTxState 0").startswith("error")
        raw.close()
        off_after(server, ON, "radioSetTxState(context1, 0)")


def test_closing_in_good_order_switches_off_before_it_returns(tmp_path):
    with serving(tmp_path, LONG) as server:
        raw = server.admitted()
        assert raw.ask("call radioSetTxState 1") == "ok"
        assert raw.ask("close") == "ok"
        assert server.calls == [ON] + OFF
        assert raw.is_closed()


def test_who_has_switched_it_on_last_answers_for_it(tmp_path):
    with serving(tmp_path, LONG) as server:
        first, last = server.admitted(), server.admitted()
        assert first.ask("call radioSetTxState 1") == "ok"
        assert last.ask("call radioSetTxState 1") == "ok"
        first.close()
        eventually(lambda: server.lines[-1], "PEER is gone")
        assert last.ask("ping") == "ok"
        assert server.calls == [ON, ON]
        last.close()
        off_after(server, ON, ON)


def test_who_has_switched_on_another_path_is_told_that_it_is_off_too(tmp_path):
    with serving(tmp_path, LONG) as server:
        one, two = server.admitted(), server.admitted()
        assert one.ask("call radioSetTxStateOfAntenna 0 1") == "ok"
        assert two.ask("call radioSetTxStateOfAntenna 1 1") == "ok"
        calls = server.calls
        one.close()
        off_after(server, *calls)
        assert two.ask("call radioGetTemperature").endswith(
            'is gone: the transmitter was switched off, all paths are selected"')
        assert two.ask("call radioGetTemperature") == "ok 0"


@pytest.mark.parametrize("ending", ["x" * 70000, "\n"])
def test_who_is_dismissed_is_not_waited_for(ending, tmp_path):
    with serving(tmp_path, "silence = 1000, idle = 1") as server:
        raw = server.admitted()
        assert raw.ask("call radioSetTxState 1") == "ok"
        raw.send(ending)
        off_after(server, ON)


def test_an_idle_server_sees_to_it_by_itself(tmp_path):
    with serving(tmp_path, "silence = 1") as server:
        raw = server.admitted()
        assert raw.ask("call radioSetTxState 1") == "ok"
        off_after(server, ON)  # nothing at all comes in meanwhile


def test_time_in_the_driver_is_no_silence(tmp_path):
    slow = ("local read = radioGetTemperature "
            "function radioGetTemperature() socket.sleep(6) return read() end ")
    with serving(tmp_path, "silence = 5", before=slow) as server:
        other, raw = server.admitted(), server.admitted()
        assert raw.ask("call radioSetTxState 1") == "ok"
        assert other.ask("call radioGetTemperature") == "ok 0"
        assert raw.ask("ping") == "ok"
        assert server.calls == [ON, "radioGetTemperature(context1)"]


def test_it_can_be_switched_off(tmp_path):
    with serving(tmp_path, "deadman = false, silence = 0.1") as server:
        for ending in ("close", "ping"):
            raw = server.admitted()
            assert raw.ask("call radioSetTxState 1") == "ok"
            time.sleep(0.5)
            assert raw.ask(ending) == "ok"
            raw.close()
        eventually(lambda: server.lines.count("PEER is gone"), 2)
        server.admitted()
        assert server.calls == [ON, ON]


def test_a_radio_that_refuses_to_be_switched_off_is_reset(tmp_path):
    with serving(tmp_path, LONG, answers="radioSetTxState#2 1") as server:
        raw = server.admitted()
        assert raw.ask("call radioSetTxState 1") == "ok"
        raw.close()
        eventually(lambda: server.calls, [ON] + OFF + ["radioReset(context1)"])
        eventually(lambda: server.lines[-1],
                   "PEER is gone: the radio refused to switch the transmitter off and was reset")


def test_a_radio_that_cannot_be_switched_off_is_tried_again_until_it_can(tmp_path):
    with serving(tmp_path, LONG, answers="radioSelect 1\nradioReset 1") as server:
        raw, other = server.admitted(), server.admitted()
        assert raw.ask("call radioSetTxState 1") == "ok"
        assert raw.ask("close").endswith(
            'has closed: the transmitter may still be on: radioReset() did not return success"')
        eventually(lambda: server.calls.count("radioReset(context1)") > 2, True)
        assert other.ask("ping") == "ok"
        (tmp_path / "new").write_text("\n")
        os.replace(tmp_path / "new", tmp_path / "answers")
        eventually(lambda: server.calls[-2:], OFF)
        eventually(lambda: server.lines[-1],
                   "once more: the transmitter was switched off, all paths are selected")


def test_an_error_of_the_server_leaves_the_transmitter_off(tmp_path):
    log = "log = function(line) if line:find 'gone' then error(line) end print(line) io.flush() end"
    with serving(tmp_path, LONG + ", deadman = false, " + log) as server:
        raw = server.admitted()
        assert raw.ask("call radioSetTxState 1") == "ok"
        raw.close()
        assert server.process.wait(SECONDS) == 1
        assert server.calls == [ON] + OFF


def test_a_server_that_is_closed_leaves_the_transmitter_off(tmp_path):
    text = ("local server = require('sorel.remote').listen {} "
            "print('listening on 127.0.0.1:' .. server.port) io.flush() "
            "repeat server:step(1) until server:connections() == 1 server:step(60) "
            "server:close() os.exit(0) ")
    with serving(tmp_path, before=text) as server:
        raw = server.admitted()
        assert raw.ask("call radioSetTxState 1") == "ok"
        assert raw.is_closed()
        assert server.process.wait(SECONDS) == 0
        assert server.calls == [ON] + OFF

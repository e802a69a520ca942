# SPDX-License-Identifier: LicenseRef-Proprietary
"""The module sorel.sweep as a user meets it: files, terminals, failing drivers, exit status."""

import csv
import re
import subprocess
from signal import SIGKILL

import pytest
from shell import (COMMAND, RECORDING, SECONDS, SIMULATION, SOURCE, environment, functions,
                   prompt, run, type_line)

FOUND = {"LUA_PATH": f"{SOURCE}/lua/?.lua"}
INIT = "radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7) "
GAINS = "rx_gain_db = { from = 0, to = 60, step = 20 }, readings = { 'gain', 'temperature' }, "
SLOW = "settle = { seconds = 0.3 }, "


def sweep(options, before="", after="", driver=SIMULATION, **more):
    """Runs a sweep on a radio that is set up, between other Lua text."""
    text = f"sweep = require 'sorel.sweep' {INIT}{before} rows = sweep.run {{ {options} }} {after}"
    return run("-c", text, driver=driver, **FOUND, **more)


def rows(data):
    """The rows of a CSV file's bytes, after a look at its form."""
    assert data.endswith(b"\r\n")
    assert data.count(b"\n") == data.count(b"\r\n")
    return list(csv.DictReader(data.decode().splitlines()))


def test_a_file_has_a_row_for_each_point(tmp_path):
    file = tmp_path / "rows, of a sweep.csv"
    ran = sweep(GAINS + f"csv = '{file}'")
    assert (ran.status, ran.out, ran.err) == (0, "", "")
    found = rows(file.read_bytes())
    assert list(found[0]) == ["rx_gain_db", "gain_db", "temperature_degc", "failed"]
    assert [row["rx_gain_db"] for row in found] == ["0", "20", "40", "60"]
    assert [row["gain_db"] for row in found] == ["0", "20", "40", "60"]
    assert all(25 < float(row["temperature_degc"]) < 35 for row in found)


def test_rows_can_go_to_standard_output():
    ran = sweep(GAINS + "csv = '-'")
    assert (ran.status, ran.err) == (0, "")
    assert [row["gain_db"] for row in rows(ran.out.encode())] == ["0", "20", "40", "60"]


def test_two_runs_leave_the_same_bytes():
    options = GAINS + "average = 8, statistics = true, csv = '-'"
    first = sweep(options)
    assert (first.status, first.out.count("\r\n")) == (0, 5)
    assert sweep(options).out == first.out


def test_readings_that_fail_are_told_and_leave_empty_cells(tmp_path):
    scenario = tmp_path / "scenario.toml"
    scenario.write_text("[[faults]]\nfunction = 'radioGetTemperature'\nfirst = 2\ncalls = 3\n"
                        "result = 'nan'\n")
    ran = sweep(GAINS + "average = 2, csv = '-'", SOREL_SIM_SCENARIO=str(scenario))
    assert ran.err == "sweep.run: 3 of 16 readings failed\n"
    found = rows(ran.out.encode())
    assert [row["failed"] for row in found] == ["1", "2", "0", "0"]
    assert [row["temperature_degc"] == "" for row in found] == [False, True, False, False]


def test_a_driver_that_fails_ends_a_script_with_status_1_and_the_rows_in_the_file(tmp_path):
    file = tmp_path / "rows.csv"
    ran = sweep(GAINS + f"csv = '{file}'", before="radioSetTxState(RADIO_STATE_ENABLE)",
                after="print('not reached')", driver=RECORDING, answers="radioSetRxGain#3 1")
    assert (ran.status, ran.out) == (1, "")
    assert "sweep.run stopped at point 3 of 4, rx_gain_db 40: " in ran.err
    assert f"transmitters off; 2 rows are kept in sweep.last() and {file}" in ran.err
    assert ran.log[-3:] == ["radioSetRxGain(context1, 40)", "radioSelect(context1, 2)",
                            "radioSetTxState(context1, 0)"]
    assert [row["rx_gain_db"] for row in rows(file.read_bytes())] == ["0", "20"]


def test_a_shell_that_is_killed_leaves_whole_rows(tmp_path):
    file = tmp_path / "rows.csv"
    reading = ("{ name = 'own', read = function() "
               "if radioGetRxGainIndB() == 40 then os.execute('kill -9 $PPID') end return 0 end }")
    ran = sweep(f"rx_gain_db = {{ 0, 20, 40 }}, readings = {{ {reading} }}, csv = '{file}'")
    assert ran.status == -SIGKILL
    assert [row["rx_gain_db"] for row in rows(file.read_bytes())] == ["0", "20"]


def test_a_disk_that_gets_full_stops_the_sweep(tmp_path):
    file = tmp_path / "rows.csv"
    text = (f"{INIT} require('sorel.sweep').run {{ rx_gain_db = {{ from = 0, to = 76, step = 1 }}, "
            f"readings = 'gain', csv = '{file}' }}")
    limited = ["sh", "-c", 'trap "" XFSZ; ulimit -f 1; exec "$@"', "sh", *COMMAND, "-c", text]
    done = subprocess.run(limited, env=environment(SIMULATION, FOUND), capture_output=True,
                          text=True, timeout=SECONDS, check=False)
    assert done.returncode == 1
    stopped = re.search(r"at point (\d+) of 77, .*: cannot write (.*): File too large; "
                        r"transmitters off; (\d+) rows are kept", done.stderr)
    assert stopped[2] == str(file)
    assert stopped[1] == stopped[3]
    assert file.stat().st_size == 512


def test_a_transmitter_that_cannot_be_switched_off_is_told():
    ran = sweep(GAINS, driver=RECORDING,
                answers="radioSetRxGain 1\nradioSetTxState 1\nradioReset 1")
    assert ("radioSetRxGain() did not return success; a transmitter may still be on: "
            "radioReset() did not return success; 0 rows are kept") in ran.err


def test_a_file_that_cannot_be_made_leaves_the_board_alone(tmp_path):
    ran = sweep(GAINS + f"csv = '{tmp_path}/no/rows.csv'", driver=RECORDING)
    assert ran.status == 1
    assert f"cannot write {tmp_path}/no/rows.csv: No such file or directory" in ran.err
    assert functions(ran.log) == ["radioOpen", "radioInit"]


def begin(options, *before):
    """Types these lines at a prompt where the modules are loaded and a radio is set up, then that
    of a sweep."""
    terminal = prompt(driver=SIMULATION, **FOUND)
    type_line(terminal, "sweep, measure = require 'sorel.sweep', require 'sorel.measure'")
    for line in (INIT, *before):
        assert type_line(terminal, line) == []
    terminal.sendline(f"rows = sweep.run {{ {options} }}")
    return terminal


def shown(terminal):
    """What appears on a terminal before the next prompt, its lines overwritten where they are."""
    terminal.expect_exact("sorelapp> ")
    return terminal.before


def test_a_terminal_shows_the_progress_in_a_line_that_goes_away():
    text = shown(begin(GAINS + SLOW))
    assert "\n" not in text
    states = [state for state in text.split("\r") if state.strip()]
    assert 1 <= len(states) <= 4
    for state in states:
        assert re.match(r"point [1-4] of 4(, \d+ s left)?: rx_gain_db [0246]0? *$", state), state
    width = max(len(state.rstrip()) for state in states)
    assert text.endswith("\r" + " " * width + "\r")
    assert all(len(state) < 80 for state in text.split("\r"))


def test_a_long_progress_line_is_cut():
    name = "attenuator_of_the_second_receive_antenna_between_the_duplexer_and_the_amplifier"
    text = shown(begin("custom = long, readings = 'temperature', " + SLOW,
                       f"long = {{ name = '{name}', set = function() end, 1, 2, 3 }}"))
    assert name[:40] in text
    assert max(len(state) for state in text.split("\r")) == 79


def test_a_sweep_within_a_quarter_of_a_second_shows_no_progress():
    clock = "now = 0 socket.gettime = function() now = now + 0.04 return now end"
    assert shown(begin(GAINS, clock)) == ""
    assert "point 4 of 4" in shown(begin(GAINS, clock.replace("0.04", "0.08")))


def test_progress_can_be_switched_off():
    assert shown(begin(GAINS + SLOW + "progress = false")) == ""


def test_rows_on_the_terminal_are_not_mixed_with_progress():
    lines = shown(begin(GAINS + SLOW + "csv = '-'")).splitlines()
    assert [line for line in lines if line][0] == "rx_gain_db,gain_db,temperature_degc,failed"
    assert len([line for line in lines if line]) == 5


def test_no_progress_is_written_into_a_file():
    ran = sweep(GAINS + SLOW)
    assert (ran.status, ran.out, ran.err) == (0, "", "")


def test_where_there_is_no_shell_there_is_no_progress():
    assert shown(begin(GAINS + SLOW, "os.execute = function() return 32512 end")) == ""


def test_the_terminal_is_asked_for_once():
    terminal = begin(
        GAINS + SLOW, "asked, execute = 0, os.execute",
        "os.execute = function(command) asked = asked + 1 return execute(command) end")
    assert shown(terminal)
    assert type_line(terminal, "print(asked)") == ["1"]


def test_a_person_at_the_prompt_sees_what_went_wrong_and_goes_on():
    terminal = begin("rx_frequency_hz = { 2565e6, 2575e6 }, readings = 'gain', " + SLOW)
    text = shown(terminal)
    assert text.rpartition("\r ")[2].strip() == (
        'failed to process stdin: "sweep.run stopped at point 2 of 2, rx_frequency_hz 2575000000: '
        "radioSetRxFrequency() did not return success; transmitters off; "
        '1 row is kept in sweep.last()"')
    assert type_line(terminal, "measure.print(sweep.last())") == [
        "rx_frequency_hz  gain_db  failed",
        "     2565000000       76       0",
    ]

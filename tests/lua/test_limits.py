# SPDX-License-Identifier: LicenseRef-Proprietary
"""The module sorel.limits as a test line sees it: report, files, status, and what the board is left
with."""

import csv
import io
import subprocess
import xml.etree.ElementTree as xml
from contextlib import contextmanager
from threading import Timer

import pytest
from shell import (
    COMMAND, RECORDING, SECONDS, SIMULATION, SOURCE, environment, lines_of, prompt, run, type_line,
)

FOUND = {"LUA_PATH": f"{SOURCE}/lua/?.lua"}
OFF = ["radioSelect(context1, 2)", "radioSetTxState(context1, 0)"]
ON = "radioSetTxState(context1, 1)"
REQUIRE = "local limits = require 'sorel.limits'\n"
GOOD = "{ name = 'good', check = function() return true end }"
BAD = "{ name = 'bad', check = function() return false end }"


def script(folder, text, **more):
    """Runs a script with the module, which stands in the folder and is run there."""
    (folder / "test.lua").write_text(REQUIRE + text, encoding="latin-1")
    return run("-b", "test.lua", cwd=folder, **FOUND | more)


@contextmanager
def started(folder, text, **more):
    """A script with the module on its way, between pipes; one that stands still is killed."""
    (folder / "test.lua").write_text(REQUIRE + text)
    with subprocess.Popen(
            [*COMMAND, "-b", "test.lua"], cwd=folder, env=environment(RECORDING, FOUND | more),
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
    ) as process:
        killer = Timer(SECONDS, process.kill)
        killer.start()
        try:
            yield process
        finally:
            killer.cancel()


def limited(folder, steps, keys="", **more):
    """Runs a script of these steps, and of more keys of the table."""
    text = f"limits.exit(limits.run {{ name = 'test', {keys} steps = {{ {steps} }} }})"
    return script(folder, text, **more)


def assert_ended(ran, status, err=""):
    """The process ended with the transmitter off and the radio closed."""
    assert (ran.status, ran.err) == (status, err), ran
    assert ran.log[-3:] == [*OFF, "radioClose(context1)"]


# ---- The report ----------------------------------------------------------------------------------


def test_the_report_is_aligned_with_the_result_first_and_the_sum_last(tmp_path):
    ran = limited(tmp_path, """
        { name = "temperature", measure = radioGetTemperature, low = 0, high = 60, unit = "°C" },
        { name = "tx power", measure = function() return 19.5 end, low = -20.25, unit = "dBm" },
        { name = "platform", measure = radioGetPlatformName, expected = "Talwin" },
        { name = "self-test", check = function() return false, "lamp 3\\nis off" end },
        { name = "bus", check = function() error("no bus", 0) end, critical = true },
        { name = "after", check = function() return true end },
        """.encode().decode("latin-1"), "serial = '0042',", answers="radioGetTemperature 70.5")
    assert ran.out.encode("latin-1").decode() == """\
test, serial 0042
       step              value     low  high  unit
FAIL   temperature        70.5       0    60  °C
       70.5 is above 60
PASS   tx power           19.5  -20.25        dBm
FAIL   platform     recordi...
       "recording driver" is not "Talwin"
FAIL   self-test
       lamp 3
       is off
ERROR  bus
       no bus
SKIP   after
       not run after bus, which is critical
FAIL: 3 of 6 steps failed, 1 error, 1 skipped
"""


def test_the_report_of_checks_has_no_columns_without_use(tmp_path):
    assert limited(tmp_path, GOOD).out == "test\n       step\nPASS   good\nPASS: 1 step passed\n"


@pytest.mark.parametrize(
    "steps, keys, last",
    [
        (f"{GOOD}, {{ name = 'b', measure = function() return 1 end, low = 1 }}", "",
         "PASS: 2 steps passed"),
        (f"{GOOD}, {BAD}", "", "FAIL: 1 of 2 steps failed"),
        ("{ name = 'a', check = error }", "", "FAIL: 1 of 1 step ended in an error"),
        (GOOD, "setup = error,", "FAIL: 1 of 2 steps ended in an error, 1 skipped"),
        (GOOD, "junit = '/nowhere/a', csv = '/nowhere/b',",
         "FAIL: 1 step passed, 2 files not written"),
    ],
)
def test_the_last_line_says_it_all(tmp_path, steps, keys, last):
    assert limited(tmp_path, steps, keys).out.splitlines()[-1] == last


def test_no_line_is_wider_than_80_columns_whatever_is_long(tmp_path):
    ran = limited(tmp_path, """
        { name = ("name "):rep(40), measure = function() return -1.2345678901234e-300 end,
            low = -2147483647.125, high = 2655000000.125, unit = ("unit "):rep(9) },
        { name = ("ü"):rep(200), measure = function() return ("x"):rep(300) end,
            expected = ("y"):rep(300) },
        { name = "long", check = function() error(("/path"):rep(99), 0) end },
        """.encode().decode("latin-1"), "serial = ('0'):rep(200),")
    lines = ran.out.encode("latin-1").decode().splitlines()
    assert max(len(line) for line in lines) == 80
    assert sum(line.count("ü") for line in lines) == 200
    assert "/path" * 99 in "".join(line.strip() for line in lines)
    head = next(line for line in lines if "value" in line)
    values = next(line for line in lines if "e-300" in line)
    assert head.index("high") + len("high") == values.index("2655000000.1") + len("2655000000.1")


def test_what_a_terminal_would_obey_is_shown_instead(tmp_path):
    ran = limited(tmp_path, r"{ name = 'a\27[2Jb\nc\255', check = function() return true end }")
    assert ran.out.splitlines()[2] == r"PASS   a\x1b[2Jb\nc\xff"


def test_a_line_is_written_as_its_step_ends(tmp_path):
    steps = f"{GOOD}, {{ name = 'b', check = function() io.read() return true end }}"
    with started(tmp_path, f"limits.run {{ name = 'test', steps = {{ {steps} }} }}") as process:
        assert [process.stdout.readline() for _ in range(3)][-1] == "PASS   good\n"
        out, _ = process.communicate("\n")
    assert out == "PASS   b\nPASS: 2 steps passed\n"


# ---- Status, and the transmitter -----------------------------------------------------------------


@pytest.mark.parametrize("steps, status", [(GOOD, 0), (f"{BAD}, {GOOD}", 1)])
def test_the_status_tells_whether_all_passed(tmp_path, steps, status):
    ran = limited(tmp_path, steps)
    assert_ended(ran, status)
    assert ran.calls == OFF + OFF  # of the end of the test, and of the process


def test_output_is_written_before_the_process_ends(tmp_path):
    ran = script(tmp_path, "io.write('no end of line') limits.exit(true)")
    assert (ran.status, ran.out) == (0, "no end of line")


def test_exit_ends_a_session_too(tmp_path):
    terminal = prompt(cwd=tmp_path, **FOUND)
    assert type_line(terminal, "limits = require 'sorel.limits'") == []
    (told,) = type_line(terminal, "limits.exit()")
    assert told.endswith("the result of limits.run, true or false, is expected, got nil\"")
    terminal.sendline("limits.exit(false)")
    terminal.wait()
    assert terminal.exitstatus == 1


STUCK = "radioSetTxState 1\nradioReset 1"
MAY_BE_ON = "the transmitter may still be on: radioReset() did not return success\n"


def test_a_transmitter_that_cannot_be_switched_off_is_said_and_the_status_is_1(tmp_path):
    ran = script(tmp_path, "limits.exit(true)", answers=STUCK)
    assert (ran.status, ran.err) == (1, MAY_BE_ON)
    assert ran.calls == [*OFF, "radioReset(context1)"]
    ran = limited(tmp_path, GOOD, answers=STUCK)
    assert (ran.status, ran.err) == (1, MAY_BE_ON)
    assert ran.out.splitlines()[-2:] == [
        "       the transmitter may still be on: radioReset() did not return success",
        "FAIL: 1 of 2 steps ended in an error",
    ]


@pytest.mark.parametrize(
    "error, told",
    [
        ("error('broken', 0)", "broken\n"),
        ("error()", "an error without a message\n"),
        ("error({})", "an error that is a table\n"),
        ("local nothing = nil; nothing()",
         "test.lua:4: attempt to call local 'nothing' (a nil value)\n"),
        ("radioSetTxFrequency()",
         "Error in radioSetTxFrequency expected 1..1 args, got 0\n"),
        ("coroutine.yield()", "attempt to yield across metamethod/C-call boundary\n"),
        ("limits.exit()", "test.lua:4: limits.exit: the result of limits.run, true or false, is "
         "expected, got nil\n"),
        ("limits.run {}", "test.lua:4: limits.run: 2 mistakes:\n  name: is missing\n  steps: is "
         "missing\n"),
    ],
)
def test_the_transmitter_is_off_after_any_error_inside_main(tmp_path, error, told):
    ran = script(tmp_path, f"limits.main(function()\nradioSetTxState(1)\n{error}\nend)")
    assert_ended(ran, 1, told)
    assert ran.log[1] == ON


@pytest.mark.parametrize(
    "result, status, told",
    [
        ("true", 0, ""),
        ("false", 1, ""),
        ("nil", 1, "limits.main: the function is to return the result of limits.run, true or "
         "false; it returned nil\n"),
        ("{}", 1, "limits.main: the function is to return the result of limits.run, true or "
         "false; it returned a table\n"),
    ],
)
def test_main_ends_with_what_its_function_returns(tmp_path, result, status, told):
    ran = script(tmp_path, f"limits.main(function() radioSetTxState(1) return {result} end)")
    assert_ended(ran, status, told)


def test_main_leaves_with_64_where_parameters_are_missing(tmp_path):
    ran = script(tmp_path, "limits.main(function() radioSetTxState(1)\n"
                 "require('sorel.params').read { { 'NOT_THERE' } } end)")
    assert_ended(ran, 64, "NOT_THERE: is missing\n\nusage: NOT_THERE=... sorelapp -b test.lua\n\n"
                 "  NOT_THERE  text; required\n")


def test_a_script_catches_inside_main_what_it_wants(tmp_path):
    ran = script(tmp_path, "limits.main(function() "
                 "return not pcall(require('sorel.params').read, { { 'NOT_THERE' } }) end)")
    assert_ended(ran, 0)


def test_a_script_that_refuses_the_table_leaves_the_transmitter_off(tmp_path):
    ran = script(tmp_path, "radioSetTxState(1)\nlimits.run { name = 'test', steps = {} }")
    assert ran.status == 1
    assert "test.lua:3: limits.run: steps: is empty" in ran.err
    assert ran.log[1:] == [ON, *OFF]


def test_a_script_that_forgets_to_exit_ends_with_0_and_the_transmitter_off(tmp_path):
    ran = script(
        tmp_path, f"radioSetTxState(1) limits.run {{ name = 'test', steps = {{ {BAD} }} }}")
    assert ran.status == 0
    assert ran.calls == [ON, *OFF]


# ---- Output that cannot be written ---------------------------------------------------------------


def on_a_full_disk(folder, **more):
    """Runs the folder's script with its standard output on a full disk."""
    with open("/dev/full", "w", encoding="ascii") as full:
        return subprocess.run(
            [*COMMAND, "-b", "test.lua"], cwd=folder, env=environment(RECORDING, FOUND | more),
            stdout=full, stderr=subprocess.PIPE, text=True, timeout=SECONDS, check=False)


ON_AND_GOOD = "{ name = 'on', check = function() radioSetTxState(1) return true end }"


@pytest.mark.parametrize("key", ["junit", "csv"])
def test_a_file_that_cannot_be_made_is_said_and_the_test_has_not_passed(tmp_path, key):
    ran = limited(tmp_path, ON_AND_GOOD, f"{key} = '/nowhere/file',")
    assert_ended(ran, 1, "cannot write /nowhere/file: No such file or directory\n")
    assert "PASS   on" in ran.out


@pytest.mark.parametrize("key", ["junit", "csv"])
def test_a_full_disk_is_said_and_the_other_file_is_written(tmp_path, key):
    other = "csv" if key == "junit" else "junit"
    ran = limited(tmp_path, ON_AND_GOOD, f"{key} = '/dev/full', {other} = 'other',")
    assert_ended(ran, 1, "cannot write /dev/full: No space left on device\n")
    assert "on" in (tmp_path / "other").read_text()


def test_output_that_is_lost_at_the_end_is_said_and_the_status_is_1(tmp_path):
    (tmp_path / "test.lua").write_text(REQUIRE + "io.write('lost') limits.exit(true)")
    done = on_a_full_disk(tmp_path)
    assert (done.returncode, done.stderr) == (
        1, "cannot write standard output: No space left on device\n")


def test_a_report_that_cannot_be_written_is_said_and_the_rest_is_done(tmp_path):
    steps = f"{ON_AND_GOOD}, {GOOD}"
    text = f"limits.exit(limits.run {{ name = 'test', csv = 'rows.csv', steps = {{ {steps} }} }})"
    (tmp_path / "test.lua").write_text(REQUIRE + text)
    log = tmp_path / "log"
    done = on_a_full_disk(tmp_path, RECORDING_DRIVER_LOG=str(log))
    assert done.returncode == 1
    assert done.stderr.startswith("cannot write standard output: No space left on device\n")
    assert (tmp_path / "rows.csv").read_text().count(",pass,") == 2
    assert lines_of(log)[-6:] == [ON, *OFF, *OFF, "radioClose(context1)"]


def test_a_reader_that_goes_away_does_not_leave_the_transmitter_on(tmp_path):
    wait = "{ name = 'on', check = function() radioSetTxState(1) io.read() return true end }"
    text = f"limits.exit(limits.run {{ name = 'test', steps = {{ {wait}, {GOOD} }} }})"
    log = tmp_path / "log"
    with started(tmp_path, text, RECORDING_DRIVER_LOG=str(log)) as process:
        process.stdout.readline()
        process.stdout.close()
        process.stdin.write("\n")
        process.stdin.close()
        told = process.stderr.read()
    assert (process.returncode, told) == (1, "cannot write standard output: Broken pipe\n")
    assert lines_of(log)[-6:] == [ON, *OFF, *OFF, "radioClose(context1)"]


def test_files_are_begun_afresh_before_the_first_step(tmp_path):
    for name in ("old.xml", "old.csv"):
        (tmp_path / name).write_text("of the board before")
    ran = limited(tmp_path, "{ name = 'die', check = function() os.exit(9) end }",
                  "junit = 'old.xml', csv = 'old.csv',")
    assert ran.status == 9
    assert [(tmp_path / name).read_text() for name in ("old.xml", "old.csv")] == ["", ""]


# ---- JUnit XML and CSV ---------------------------------------------------------------------------

STEPS = r"""
    { name = "good", measure = function() return 28.5 end, low = 0, high = 60, unit = "degC" },
    { name = "bad", measure = function() return "a<b" end, expected = "a]]>b" },
    { name = "broken", check = function() error("no, bus \0 here") end },
    { name = "last", check = function() return false end, critical = true },
    { name = "never", check = error },
"""


def suite_of(file):
    """The test suite in a file of JUnit XML."""
    root = xml.parse(file).getroot()
    assert (root.tag, [child.tag for child in root]) == ("testsuites", ["testsuite"])
    return root[0]


def test_junit_tells_every_step_and_counts_right(tmp_path):
    limited(tmp_path, STEPS, "serial = '0042', junit = 'r.xml',")
    suite = suite_of(tmp_path / "r.xml")
    assert {key: suite.get(key) for key in ("name", "tests", "failures", "errors", "skipped")} == {
        "name": "test", "tests": "5", "failures": "2", "errors": "1", "skipped": "1"}
    assert suite.find("properties/property").attrib == {"name": "serial", "value": "0042"}
    cases = suite.findall("testcase")
    assert [case.get("name") for case in cases] == ["good", "bad", "broken", "last", "never"]
    assert {case.get("classname") for case in cases} == {"test"}
    assert [[child.tag for child in case] for case in cases] == [
        ["system-out"], ["failure", "system-out"], ["error"], ["failure", "system-out"],
        ["skipped"]]
    assert cases[0].find("system-out").text == "value: 28.5 degC\nlow: 0 degC\nhigh: 60 degC"
    assert cases[1].find("system-out").text == "value: a<b\nexpected: a]]>b"
    assert cases[1].find("failure").get("message") == '"a<b" is not "a]]>b"'
    assert cases[2].find("error").get("message") == r"test.lua:5: no, bus \x00 here"
    assert "\ttest.lua:5: in function" in cases[2].find("error").text
    assert cases[4].find("skipped").get("message") == "not run after last, which is critical"


def test_junit_has_the_time_of_each_step_and_of_all(tmp_path):
    limited(tmp_path, "{ name = 'a', check = function() socket.sleep(0.25) return true end }, "
            + GOOD, "junit = 'r.xml',")
    suite = suite_of(tmp_path / "r.xml")
    first, second = (float(case.get("time")) for case in suite.findall("testcase"))
    assert first >= 0.2
    assert 0 <= second
    assert float(suite.get("time")) >= first + second - 0.001
    assert len(suite.get("timestamp")) == len("2026-01-31T23:59:59")


def test_junit_is_well_formed_whatever_bytes_texts_have(tmp_path):
    every = "".join(rf"\{byte:03d}" for byte in range(256))
    odd = (r"]]> <![CDATA[ &amp; \237\160\128 \239\191\190 \192\128 \244\144\128\128 "
           r"\195\188 \240\159\147\161")
    limited(
        tmp_path,
        f"""{{ name = "{every}", measure = function() return "{odd}", "{every}" end,
                expected = "{every}" }},
            {{ name = "{odd}", check = function() error("{odd}", 0) end }},
            {{ name = "c", check = function() return true, "{every}" end }}""",
        f'serial = "{odd}", junit = "r.xml", csv = "r.csv",')
    subprocess.run(["xmllint", "--noout", "r.xml"], cwd=tmp_path, check=True)
    suite = suite_of(tmp_path / "r.xml")
    shown = (r"]]> <![CDATA[ &amp; \xed\xa0\x80 \xef\xbf\xbe \xc0\x80 \xf4\x90\x80\x80 "
             "\N{LATIN SMALL LETTER U WITH DIAERESIS} \N{SATELLITE ANTENNA}")
    assert suite.find("properties/property").get("value") == shown
    name = suite.find("testcase").get("name")
    assert name.startswith(r"\x00\x01\x02\x03\x04\x05\x06\x07\x08" + "\t\n" + r"\x0b\x0c\r\x0e")
    assert name.endswith(r"}~\x7f\x80" + "".join(rf"\x{byte:02x}" for byte in range(129, 256)))
    assert suite.findall("testcase")[1].find("error").get("message") == shown
    data = (tmp_path / "r.csv").read_bytes().decode("latin-1")
    rows = list(csv.reader(io.StringIO(data, newline="")))
    assert rows[1][0] == "".join(map(chr, range(256)))


def test_csv_has_a_row_for_each_step(tmp_path):
    limited(tmp_path, STEPS, "csv = 'r.csv',")
    data = (tmp_path / "r.csv").read_bytes().decode("latin-1")
    assert data.count("\r\n") == 6
    rows = list(csv.DictReader(io.StringIO(data, newline="")))
    assert list(rows[0]) == ["step", "result", "value", "low", "high", "unit", "seconds", "message"]
    for row in rows:
        assert float(row.pop("seconds")) >= 0
    assert [list(row.values()) for row in rows] == [
        ["good", "pass", "28.5", "0", "60", "degC", ""],
        ["bad", "fail", "a<b", "", "", "", '"a<b" is not "a]]>b"'],
        ["broken", "error", "", "", "", "", "test.lua:5: no, bus \0 here"],
        ["last", "fail", "false", "", "", "", ""],
        ["never", "skip", "", "", "", "", "not run after last, which is critical"],
    ]


def test_a_broken_board_is_told_from_a_good_one(tmp_path):
    scenario = tmp_path / "hot.toml"
    scenario.write_text("ambient = 85.0\n")
    step = "{ name = 't', measure = radioGetTemperature, low = 0, high = 60 }"
    assert limited(tmp_path, step, driver=SIMULATION).status == 0
    assert limited(tmp_path, step, driver=SIMULATION, SOREL_SIM_SCENARIO=str(scenario)).status == 1

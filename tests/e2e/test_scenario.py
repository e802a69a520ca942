# SPDX-License-Identifier: LicenseRef-Proprietary
"""Scenario files of the simulated board, through the shell."""

import re

import pytest
from shell import PROMPT, SIMULATION, SOURCE, pipe, prompt, run, type_line

INIT = "radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7)"


@pytest.fixture
def scenario(tmp_path):
    """Writes the scenario file; its path is scenario.path."""

    def write(*lines):
        write.path.write_text("\n".join(lines) + "\n")
        return {"SOREL_SIM_SCENARIO": str(write.path), "driver": SIMULATION}

    write.path = tmp_path / "scenario.toml"
    return write


def test_a_refused_scenario_says_every_mistake_and_no_radio_is_open(scenario):
    ran = run("-c", "print(pcall(radioReset))", **scenario("serial = -1", "powr = 1"))
    assert ran.err == (
        f"{scenario.path}:1:10: serial is -1, not 0..4294967295\n"
        f'{scenario.path}:2:1: unknown key "powr"; the keys are platform, serial, ambient, seed, '
        "clock, lock_time, signals, registers, faults\n"
        "radioOpen() failed\n"
    )
    assert ran.out == "false\tNo radio context, call radioOpen() first\n"


def test_a_file_put_right_is_opened_at_the_prompt(scenario):
    terminal = prompt(**scenario("[registers]", "0x010 = 4294967296"))
    refused = f'{scenario.path}:2:9: "0x010" is 4294967296, not -2147483648..4294967295'
    assert type_line(terminal, "radioOpen()") == [refused, "radioOpen() failed"]
    scenario("[registers]", "0x010 = 4711")
    assert type_line(terminal, "radioOpen()") == []
    assert type_line(terminal, "print(radioSpiRead(0x10))") == ["4711"]
    terminal.sendline("exit")
    terminal.wait()
    assert terminal.exitstatus == 0


def test_a_missing_file_is_named(scenario):
    ran = run("-c", "", driver=SIMULATION, SOREL_SIM_SCENARIO="/no/such/file")
    assert ran.err == "/no/such/file: the file cannot be opened\nradioOpen() failed\n"


def test_a_script_sees_faults(scenario):
    setting = scenario(
        "[[faults]]",
        'function = "radioSpiWrite"',
        "first = 2",
        "calls = 2",
        'status = "RADIO_EIO"',
        "[[faults]]",
        'function = "radioGetTemperature"',
        'result = "nan"',
    )
    ran = run("-c", "for i = 1, 4 do print(pcall(radioSpiWrite, 0x10, i)) end "
              "local t = radioGetTemperature() print(t ~= t)", **setting)
    failed = "false\tradioSpiWrite() did not return success\n"
    assert (ran.out, ran.err) == ("true\n" + 2 * failed + "true\ntrue\n", "")


def test_a_batch_file_ends_at_the_fault(scenario, tmp_path):
    script = tmp_path / "bring-up.lua"
    script.write_text(INIT + "\nradioSetTxFrequency(2655000000)\nprint('tuned')\n")
    ran = run("-b", str(script), **scenario(
        "[[faults]]", 'function = "radioSetTxFrequency"', 'status = "RADIO_EAGAIN"'))
    assert ran.status == 1
    assert "radioSetTxFrequency() did not return success" in ran.err
    assert ran.out == ""


def test_opening_can_fail_later(scenario):
    fault = ("[[faults]]", 'function = "radioOpen"', "first = 2", "calls = 1", 'result = "null"')
    ran = run(stdin="radioOpen()\nradioOpen()\nradioReset()\nexit\n", **scenario(*fault))
    assert (ran.err, ran.out) == ("radioOpen() failed\n", 4 * PROMPT)


def test_texts_and_lists_that_are_null(scenario):
    lines = []
    for name in ("radioGetPlatformName", "radioVersion", "radioGetDriverNames"):
        lines += ["[[faults]]", f'function = "{name}"', 'result = "null"']
    setting = scenario(*lines)
    ran = run("-c", "print(radioGetPlatformName(), radioVersion(), radioGetDriverNames())",
              **setting)
    assert (ran.out, ran.err, ran.status) == ("nil\tnil\tnil\n", "", 0)


def test_the_platform_of_the_scenario_is_the_one_that_is_there(scenario):
    setting = scenario('platform = "merrik"')
    text = (f"print(radioGetPlatformName()) {INIT} radioSelectPlatform(RADIO_PLATFORM_TALWIN) "
            f"print(pcall(function() {INIT} end)) "
            f"radioSelectPlatform(RADIO_PLATFORM_MERRIK) {INIT}")
    ran = run("-c", text, **setting)
    assert (ran.out, ran.err) == (
        "simulated Merrik\nfalse\tradioInit() did not return success\n", "")


def tried(name):
    """Types what the ready scenario of that name says to try; returns what that prints, and what it
    says on standard error."""
    path = SOURCE / "driver/scenarios" / f"{name}.toml"
    lines = re.findall(r"^#(?: Try:|     ) (.*)$", path.read_text(), re.MULTILINE)
    assert lines, path
    ran = pipe(*lines, driver=SIMULATION, SOREL_SIM_SCENARIO=str(path))
    return ran.out.replace(PROMPT, "").splitlines(), ran.err


def test_in_the_busy_band_gain_follows_the_signals():
    printed, err = tried("busy_band")
    gains = [int(line.split()[1]) for line in printed]
    assert err == ""
    assert max(gains) - min(gains) > 30


def test_with_the_failing_synthesiser_no_transmitter_can_be_switched_on():
    assert tried("failing_synthesiser") == (
        4 * ["true"], 'failed to process stdin: "radioSetTxState() did not return success"\n')


def test_on_the_flaky_bus_some_writes_fail():
    (failed,), err = tried("flaky_bus")
    assert err == ""
    assert 20 < int(failed) < 100  # of 1000, with a probability of 0.05


def test_the_hot_board_switches_its_transmitters_off():
    printed, err = tried("hot_board")
    states = [line.split()[1] for line in printed]
    assert err == ""
    assert states[0] == "1" and states[-1] == "0"
    assert states == sorted(states, reverse=True)


def test_in_the_quiet_band_the_receiver_hears_its_own_noise():
    (rtwp,), err = tried("quiet_band")
    assert err == ""
    assert -94 < float(rtwp) < -93  # of two receivers, each at -96.42 dBm

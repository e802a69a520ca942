# SPDX-License-Identifier: LicenseRef-Proprietary
"""Bringing up the simulated board, and what the shell relies on it for."""

import os

import pytest
from catalogue import NO_CONTEXT, status_message
from sessions import replay, sessions_of
from shell import PROMPT, SIMULATION, SOURCE, lua, prompt, run, type_line

BRING_UP = [
    "radioSelectPlatform(RADIO_PLATFORM_TALWIN)",
    "radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7)",
    "radioSetTxFrequency(2655000000)",
    "radioSetRxFrequency(2535000000)",
    "radioSetRxGainMode(RADIO_RX_GAIN_AGC_SLOW)",
    "radioSetTxState(RADIO_STATE_ENABLE)",
]
SETTERS = ["radioSetRxGainRegisters", "radioSetTxPowerRegisters"]


def simulated(text):
    return lua(text, driver=SIMULATION).out


def assert_readings(line):
    """A plausible temperature, received power and gain."""
    temperature, rtwp, gain = (float(word) for word in line.split())
    assert 0 < temperature < 100
    assert -130 < rtwp < -50
    assert 0 <= gain <= 100


def test_a_session_at_the_prompt():
    terminal = prompt(driver=SIMULATION)
    for line in BRING_UP:
        assert type_line(terminal, line) == [], line
    (readings,) = type_line(
        terminal, "print(radioGetTemperature(), radioGetRxRtwpIndBm(), radioGetRxGainIndB())"
    )
    assert_readings(readings)
    assert type_line(
        terminal, "radioSpiWrite(0x10, -1)  print(bit.tohex(radioSpiRead(0x10)))"
    ) == ["ffffffff"]
    assert type_line(terminal, "radioSetTxFrequency(1)") == [
        'failed to process stdin: "radioSetTxFrequency() did not return success"'
    ]
    terminal.sendline("exit")
    terminal.wait()
    assert terminal.exitstatus == 0


@pytest.mark.parametrize("number", range(4))
def test_the_sessions_of_the_readme_print_what_the_readme_says(number, tmp_path):
    (tmp_path / "driver").symlink_to(SOURCE / "driver")
    session = sessions_of("README.md")[number]
    assert replay(session, tmp_path) == session + "\n"


def test_the_readme_has_no_other_session():
    assert len(sessions_of("README.md")) == 4


def test_the_same_session_as_a_batch_file(tmp_path):
    script = tmp_path / "bring-up.lua"
    script.write_text("\n".join(BRING_UP) + "\nprint(radioGetTemperature(), "
                      "radioGetRxRtwpIndBm(), radioGetRxGainIndB())\n")
    ran = run("-b", str(script), driver=SIMULATION)
    assert (ran.err, ran.status) == ("", 0)
    assert_readings(ran.out)


def test_the_version_block_names_the_selected_platform():
    ran = run("-v", driver=SIMULATION)
    name = simulated("io.write(radioGetPlatformName())")
    assert name != ""
    assert f" ({name}) " in ran.out.splitlines()[0]


def test_tuning_before_initialisation_is_refused():
    assert simulated("print(pcall(radioSetTxFrequency, 2655000000))") == (
        f"false\t{status_message('radioSetTxFrequency')}\n"
    )


def test_an_address_written_with_all_bits_reads_back_unsigned():
    assert simulated("radioSpiWrite(0x10, -1) print(('%.0f'):format(radioSpiRead(0x10)))") == (
        "4294967295\n"
    )


@pytest.mark.parametrize("setter", SETTERS)
@pytest.mark.parametrize("change", ["radioClose()", "radioOpen()"])
def test_a_radio_closed_while_a_table_is_read_is_refused(setter, change):
    initialised = " ".join(BRING_UP[:2])
    table = f"setmetatable({{1, nil, 3}}, {{__index = function() {change} return 2 end}})"
    assert simulated(f"{initialised} print(pcall({setter}, {{1, 2, 3}}))") == "true\n"
    assert simulated(f"{initialised} print(pcall({setter}, {table}))") == (
        f"false\t{status_message(setter)}\n"
    )


def test_the_list_of_driver_names_can_be_written_into_and_lives_on(tmp_path):
    data = tmp_path / "board.cal"
    data.write_text('[strings]\nserial = "4711"\n')
    assert simulated(
        f"radioLoadCalibrationFile('{data}') local names = radioGetDriverNames() "
        "print(select('#', radioGetStringFromCalibration('serial', names))) "
        "print(swig_equals(names, radioGetDriverNames()), swig_type(names)) "
        "radioOpen() print(swig_equals(names, radioGetDriverNames()))"
    ) == "0\ntrue\tchar **\ntrue\n"


def test_a_null_name_or_place_for_calibration_data_is_refused():
    for getter in ("radioGetIntegerFromCalibration", "radioGetStringFromCalibration"):
        for name in ("nil", "'serial'"):
            assert simulated(f"print(pcall({getter}, {name}, nil))") == (
                f"false\t{status_message(getter)}\n"
            )


def test_opening_again_gives_a_fresh_radio():
    assert simulated(
        f"{BRING_UP[1]} print((pcall(radioSetRxGain, 10))) radioOpen() "
        "print((pcall(radioSetRxGain, 10))) "
        "radioClose() print(pcall(radioGetTemperature))"
    ) == f"true\nfalse\nfalse\t{NO_CONTEXT}\n"


def test_very_many_radios_can_be_opened_one_after_another():
    assert simulated("for _ = 1, 20000 do radioOpen() end print(pcall(radioReset))") == "true\n"


def test_errors_at_the_prompt_leave_the_board_as_it_was():
    lines = [*BRING_UP, "radioSetTxFrequency('x')", "radioSetRxState(7)", "nonsense",
             "print(radioGetRxGainIndB() > 0)"]
    ran = run(stdin="\n".join(lines) + "\nexit\n", driver=SIMULATION)
    assert ran.err.count("failed to process stdin: ") == 3
    assert ran.out == len(lines) * PROMPT + "true\n" + PROMPT


def test_files_of_any_date_are_read(tmp_path):
    calibration, script = tmp_path / "calibration", tmp_path / "script"
    calibration.write_text("[integers]\nserial = 4711\n")
    script.write_text("write 0x10 5\n")
    for file in (calibration, script):
        os.utime(file, (2**31, 2**31))  # in 2038, beyond the seconds of a signed 32-bit number
    assert simulated(
        f"radioLoadCalibrationFile('{calibration}') "
        "radioInitByScript(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7, "
        f"'{script}') print(radioSpiRead(0x10))"
    ) == "5\n"

# SPDX-License-Identifier: LicenseRef-Proprietary
"""The module sorel.bringup on drivers that fail, and what it prints."""

import pytest
from shell import SIMULATION, SOURCE, functions, lua, prompt, run, type_line

FOUND = {"LUA_PATH": f"{SOURCE}/lua/?.lua"}
OFF = ["radioSelect", "radioSetTxState"]
RESET = [*OFF, "radioReset"]

# A table with something for every step.
CELL = """{{
    platform = "RADIO_PLATFORM_TALWIN", configuration = "RADIO_CONF_MIMO",
    mode = "RADIO_MODE_4GENODEB_FDD_20MHZ", band = "RADIO_BAND_7", script = "{file}",
    calibration_file = "{file}", cpri_rate = "RADIO_CPRI_RATE_4", oscillator_dac = 5,
    rx_gain_registers = {{ 1 }}, tx_power_registers = {{ 1 }}, tx_frequency_hz = 2655e6,
    rx_channel = 20850, loopback = "RADIO_NO_LOOPBACK", rx_gain_mode = "RADIO_RX_GAIN_MGC",
    rx_gain_db = {{ 30, 40 }}, tx_max_power_dbm = {{ 10, 9 }}, rx_state = "RADIO_STATE_ENABLE",
    tx_dc_offsets = {{ {{ in_phase = 1, quadrature = 2 }}, {{ in_phase = 3, quadrature = 4 }} }},
    selected_paths = "RADIO_SELECT_0", tx_state = "RADIO_STATE_ENABLE", settle_s = 0,
}}"""

# The calls that can fail, each the given one of its function, and the step that it is in.
CALLS = [
    ("radioReset#1", "reset the radio"),
    ("radioSelectPlatform#1", "select RADIO_PLATFORM_TALWIN"),
    ("radioInitByScript#1", "set up RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7 "
                            "by the script {file}"),
    ("radioSetTxState#1", "switch off what the script switched on"),
    ("radioLoadCalibrationFile#1", "load the calibration file {file}"),
    ("radioCpriInit#1", "start the CPRI link at RADIO_CPRI_RATE_4"),
    ("radioSetOscillatorDacValue#1", "set the oscillator's DAC to 5"),
    ("radioSetRxGainRegisters#1", "load the gain table"),
    ("radioSetTxPowerRegisters#1", "load the power table"),
    ("radioSetTxFrequency#1", "tune the transmitter to 2655000000 Hz"),
    ("radioSetRxChannel#1", "tune the receiver to channel 20850"),
    ("radioSetLoopback#1", "set RADIO_NO_LOOPBACK"),
    ("radioSetRxGainMode#1", "set the gain mode RADIO_RX_GAIN_MGC"),
    ("radioSelect#1", "set the gain of antenna 1 to 30 dB"),
    ("radioSetRxGain#1", "set the gain of antenna 1 to 30 dB"),
    ("radioSelect#2", "set the gain of antenna 1 to 30 dB"),
    ("radioSetRxGain#2", "set the gain of antenna 2 to 40 dB"),
    ("radioSetTxMaxPowerOfAntenna#1", "limit the power of antenna 1 to 10.0 dBm"),
    ("radioSetTxMaxPowerOfAntenna#2", "limit the power of antenna 2 to 9.0 dBm"),
    ("radioSetTxDcOffset#1", "set the DC offset of antenna 1"),
    ("radioSetTxDcOffset#2", "set the DC offset of antenna 2"),
    ("radioSetRxStateOfAntenna#1", "switch receiver 1 on"),
    ("radioSetRxStateOfAntenna#2", "switch receiver 2 on"),
    ("radioSelect#5", "select RADIO_SELECT_0"),
    ("radioSetTxStateOfAntenna#1", "switch transmitter 1 on"),
    ("radioSetTxStateOfAntenna#2", "switch transmitter 2 on"),
]
STEPS = list(dict.fromkeys(step for _, step in CALLS))


def brought_up(text, answers="", **more):
    """What a script does that has the module."""
    return lua("local bringup = require 'sorel.bringup' " + text, answers=answers, **FOUND, **more)


@pytest.fixture(name="cell")
def fixture_cell(tmp_path):
    file = tmp_path / "file"
    file.write_text("data")
    return CELL.format(file=file), file


@pytest.mark.parametrize(("call", "step"), CALLS, ids=[call for call, _ in CALLS])
def test_the_failing_step_is_named_and_then_the_transmitter_is_switched_off(cell, call, step):
    table, file = cell
    function = call.partition("#")[0]
    ran = brought_up(f"print(select(2, pcall(bringup.run, {table})))", f"{call} 1")
    within = " within 0 s" if function == "radioSetTxStateOfAntenna" else ""
    number = STEPS.index(step) + 1
    assert ran.out == (f"bringup: step {number} of {len(STEPS)}, {step.format(file=file)}: "
                       f"{function}() did not return success{within}\n")
    assert functions(ran.calls)[-3:] == [function, *OFF]


def test_without_a_failure_the_transmitters_go_on_last(cell):
    ran = brought_up(f"bringup.run {cell[0]}")
    commands = [name for name in functions(ran.calls) if "Get" not in name]
    assert commands == ["radioReset", "radioSelectPlatform", *(
        call.partition("#")[0] for call, _ in CALLS[2:14]), "radioSetRxGain", "radioSelect",
        "radioSelect", "radioSetRxGain", "radioSelect",
        *(call.partition("#")[0] for call, _ in CALLS[17:]), "radioVersion"]


def test_a_transmitter_that_cannot_be_switched_off_is_told_of(cell):
    ran = brought_up(f"print(select(2, pcall(bringup.run, {cell[0]})))",
                     "radioSetTxState 1\nradioReset#2 1")
    assert functions(ran.calls)[-4:] == ["radioSetTxState", *RESET]
    assert ran.out.endswith("switched on: radioSetTxState() did not return success; "
                            "the transmitter may still be on: radioReset() did not return success\n")


def test_switching_on_is_tried_again_while_the_driver_refuses(cell):
    answers = "\n".join(f"radioSetTxStateOfAntenna#{call} 4" for call in (1, 2, 4))
    ran = brought_up(f"bringup.run {cell[0].replace('settle_s = 0', 'settle_s = 1')}", answers)
    switched = [call for call in ran.calls if call.startswith("radioSetTxStateOfAntenna")]
    assert [call.split(", ")[1] for call in switched] == ["0", "0", "0", "1", "1"]


def test_switching_on_is_not_tried_for_ever(cell):
    ran = brought_up(
        f"print(select(2, pcall(bringup.run, {cell[0].replace('settle_s = 0', 'settle_s = 0.05')})))",
        "radioSetTxStateOfAntenna 4")
    assert functions(ran.calls).count("radioSetTxStateOfAntenna") == 6
    assert "radioSetTxStateOfAntenna() did not return success within 0.05 s" in ran.out


def test_rtwp_is_read_when_the_receiver_has_settled(cell):
    ran = brought_up(
        f"print(bringup.run({cell[0].replace('settle_s = 0', 'settle_s = 1')}).receivers[1].rtwp_dbm)",
        "radioGetRxRtwpOfAntennaIndBm -70.5\nradioGetRxRtwpOfAntennaIndBm#1 nan\n"
        "radioGetRxRtwpOfAntennaIndBm#2 nan")
    assert ran.out == "-70.5\n"


def test_a_slow_synthesiser_is_waited_for(tmp_path):
    scenario = tmp_path / "slow.toml"
    scenario.write_text("lock_time = 0.002\n")
    ran = brought_up(
        "local state = bringup.run { configuration = 1, mode = 7, band = 7, "
        "tx_max_power_dbm = 10, tx_state = 1, tx_frequency_hz = 2655e6 } "
        "print(radioSpiRead(0x30), radioSpiRead(0x31), state.receivers[1].rtwp_dbm ~= nil)",
        driver=SIMULATION, SOREL_SIM_SCENARIO=str(scenario))
    assert ran.out == "1\t1\ttrue\n"


def test_a_radio_that_does_not_open_is_a_failed_step():
    ran = run("-c", "print(pcall(require('sorel.bringup').run, "
              "{ configuration = 0, mode = 0, band = 1 }))", answers="radioOpen null", **FOUND)
    assert ran.out == "false\tbringup: step 1 of 2, open the radio: radioOpen() opened none\n"


def test_readings_that_fail_are_dashes():
    ran = brought_up("bringup.print(bringup.read())", "\n".join((
        'radioVersion "1.0"', 'radioGetPlatformName "Talwin"', "radioGetPlatformChipCount -2147483648",
        "radioGetRxRtwpOfAntennaIndBm nan", "radioGetRxGainOfAntennaIndB -2147483648",
        "radioGetRxGainOfAntennaIndB#2 -1", "radioGetTemperature nan",
        "radioGetOscillatorDacValue 4294967295", "radioGetOscillatorDacWidth -2147483648")))
    assert ran.out.splitlines() == [
        "platform     Talwin, chips: -",
        "driver       1.0",
        "antenna 1    RTWP - dBm, gain - dB",
        "antenna 2    RTWP - dBm, gain -1 dB",
        "temperature  - degrees Celsius",
        "oscillator   - of 2^-",
    ]


@pytest.mark.parametrize(
    ("more", "lines"),
    [
        ("", ["transmit     middle of the band, off",
              "receive      middle of the band, RADIO_RX_GAIN_MGC"]),
        ("rx_frequency_hz = 2595e6, rx_gain_mode = 2",
         ["transmit     2595000000 Hz, off",
          "receive      2595000000 Hz, RADIO_RX_GAIN_AGC_SLOW"]),
        ("tx_channel = 38000, tx_max_power_dbm = { 10, -3.5 }, tx_state = { 0, 1 }",
         ["transmit     channel 38000, at most 10.0 dBm and -3.5 dBm, off and on",
          "receive      channel 38000, RADIO_RX_GAIN_MGC"]),
        ("script = '/dev/null'",
         ["transmit     as the script says, off", "receive      as the script says"]),
    ])
def test_what_was_set_is_printed_for_both_directions_of_time_division(more, lines):
    ran = brought_up("bringup.print(bringup.run { configuration = 1, band = 38, "
                     f"mode = 'RADIO_MODE_4GENODEB_TDD_20MHZ', {more} }})")
    assert ran.out.splitlines()[2:5] == [
        "set up       RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_TDD_20MHZ, RADIO_BAND_38", *lines]


def test_a_mistake_at_the_prompt_leaves_the_prompt():
    terminal = prompt(driver=SIMULATION, **FOUND)
    type_line(terminal, 'bringup = require "sorel.bringup"')
    assert type_line(terminal, 'bringup.run { configuration = 1, mode = 7, band = "BAND_7" }') == [
        'failed to process stdin: "[string "stdin"]:1: bringup.run: band: '
        'RADIO_BAND has no member BAND_7; did you mean RADIO_BAND_7?"'
    ]

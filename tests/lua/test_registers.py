# SPDX-License-Identifier: LicenseRef-Proprietary
"""The module sorel.registers on boards with faults, and what it prints."""

import pytest
from shell import SIMULATION, SOURCE, lua, prompt, type_line

FOUND = {"LUA_PATH": f"{SOURCE}/lua/?.lua"}
BOARD = """local registers = require "sorel.registers"
local board = registers.map { name = "board", registers = {
    { name = "SCRATCH", address = 0x10, fields = {
        { name = "LEVEL", bits = "31:16", signed = true, unit = "0.1 dBm" },
        { name = "REVISION", bits = "7:0", access = "ro" } } },
    { name = "POWER_1", address = 0x32 },
    { name = "NONE", address = 0x99, access = "ro" },
    { name = "TX_1", address = 0x30, fields = {
        { name = "ON", bits = 0, values = { off = 0, on = 1 } } } },
} }
"""
SET_UP = "radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7) "


def on_board(text, scenario=None, **more):
    """What a script prints that has the module and a map, on the simulated board."""
    if scenario:
        more["SOREL_SIM_SCENARIO"] = str(scenario)
    return lua(BOARD + text, driver=SIMULATION, **FOUND, **more).out


@pytest.fixture(name="scenario")
def fixture_scenario(tmp_path):
    def write(text):
        file = tmp_path / "scenario.toml"
        file.write_text(text)
        return file

    return write


def test_a_dump_is_aligned_with_its_fields_below_each_register():
    assert on_board(SET_UP + "registers.set(0x10, 0xfff60005) board:dump():print()").splitlines() == [
        "0x0010  0xfff60005  SCRATCH",
        "                      LEVEL [31:16]   -10 0.1 dBm",
        "                      REVISION [7:0]  5",
        "0x0032  0x000000f0  POWER_1",
        "0x0099  0xffffffff  NONE              all ones, as where there is no register",
        "0x0030  0x00000000  TX_1",
        "                      ON [0]          0 off",
    ]


def test_differences_name_the_fields_that_changed():
    assert on_board(
        SET_UP + "local before = board:dump() "
        'board:write { ["SCRATCH.LEVEL"] = -10, POWER_1 = 100, ["TX_1.ON"] = "on" } '
        "registers.compare(before, board:dump()):print() "
        "registers.print(registers.compare(before, before))"
    ).splitlines() == [
        "0x0010  0x00000000 -> 0xfff60000  SCRATCH",
        "                                    LEVEL [31:16]  0 -> -10 0.1 dBm",
        "0x0032  0x000000f0 -> 0x00000064  POWER_1",
        "0x0030  0x00000000 -> 0x00000001  TX_1",
        "                                    ON [0]         0 off -> 1 on",
        "no differences",
    ]


def test_a_register_that_only_one_dump_has_is_a_dash():
    assert on_board(
        'registers.compare(board:dump "NONE", board:dump "SCRATCH"):print()'
    ).splitlines() == [
        "0x0099  0xffffffff -> -  NONE",
        "0x0010  - -> 0x00000000  SCRATCH",
    ]


def test_only_dumps_and_differences_are_printed():
    assert on_board("print(select(2, pcall(registers.print, board)))").endswith(
        "registers.print: a dump, or what registers.compare() returned, is expected\n")


def test_a_dump_can_be_saved_to_standard_output():
    assert on_board('board:dump("SCRATCH"):save("-")') == (
        "# registers of board\n0x0010 0x00000000 SCRATCH\nend\n")


def test_a_full_disk_is_told():
    assert on_board("print(pcall(registers.save, board:dump(), '/dev/full'))") == (
        "false\tcannot write /dev/full: No space left on device\n")


def test_a_register_that_does_not_take_its_value_fails_the_restoring_and_the_transmitter_is_off(
        scenario):
    """The register that limits the power is stuck; the transmitter was on in what is restored."""
    assert on_board(
        SET_UP + "radioSetTxMaxPower(100) radioSetTxState(RADIO_STATE_ENABLE) "
        "local dump = board:dump() radioSetTxState(RADIO_STATE_DISABLE) radioSetTxMaxPower(0) "
        "print(select(2, pcall(board.restore, board, dump))) print(board:read 'TX_1.ON')",
        scenario("[[faults]]\nfunction = 'radioSpiWrite'\nstuck = 0x32\nvalue = 0\n"),
    ).splitlines() == [
        "registers.restore: what is read is not what was written:",
        "  POWER_1 (0x0032): 0x00000064 was written, 0x00000000 is read",
        "0\toff",
    ]


def test_a_field_that_can_only_be_read_need_not_be_restored(scenario):
    assert on_board(
        "local dump = board:dump 'SCRATCH' dump[1].value = 0x00050077 "
        "print(board:restore(dump), registers.get(0x10))",
        scenario("[[faults]]\nfunction = 'radioSpiWrite'\nstuck = 0x10\nvalue = 0x00050001\n"),
    ) == f"1\t{0x00050001}\n"


def test_a_read_that_fails_is_not_written_back(scenario):
    """Of a bus that nobody drives all bits are read as 1: they would be written."""
    assert on_board(
        "registers.set(0x10, 0x77) board:write('SCRATCH.LEVEL', 1) registers.set(0x10, 2, 15, 8) "
        "print(bit.tohex(registers.get(0x10)))",
        scenario("".join(
            f"[[faults]]\nfunction = 'radioSpiRead'\nfirst = {call}\ncalls = 1\nresult = 0xffffffff\n"
            for call in (1, 3))),
    ) == "00010277\n"


def test_fields_are_set_at_the_prompt(tmp_path):
    (tmp_path / "board.lua").write_text(BOARD + "return board\n")
    terminal = prompt(driver=SIMULATION, cwd=tmp_path, **FOUND)
    type_line(terminal, 'board = dofile "board.lua"')
    assert type_line(terminal, 'board:write("SCRATCH.LEVEL", -10) board:dump("SCRATCH"):print()') == [
        "0x0010  0xfff60000  SCRATCH",
        "                      LEVEL [31:16]   -10 0.1 dBm",
        "                      REVISION [7:0]  0",
    ]
    assert type_line(terminal, 'board:write("SCRATCH.LEVEL", 40000)') == [
        'failed to process stdin: "[string "stdin"]:1: registers.write: SCRATCH.LEVEL: '
        '40000 does not fit, -32768 to 32767 do"'
    ]

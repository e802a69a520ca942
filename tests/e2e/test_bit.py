# SPDX-License-Identifier: LicenseRef-Proprietary
"""The global bit, for register arithmetic."""

import pytest
from shell import lua, raised

NAMES = "tobit bnot band bor bxor lshift rshift arshift rol ror bswap tohex"


def test_it_has_twelve_functions():
    ran = lua("for name, value in pairs(bit) do print(name, type(value)) end")
    assert sorted(ran.out.splitlines()) == sorted(f"{name}\tfunction" for name in NAMES.split())


@pytest.mark.parametrize(
    "expression, value",
    [
        ("tobit(0xffffffff)", "-1"),
        ("tobit(2^32 + 5)", "5"),
        ("bnot(0)", "-1"),
        ("band(0xff, 0x3c, 0x0f)", "12"),
        ("bor(1, 2, 8)", "11"),
        ("bxor(3, 1)", "2"),
        ("lshift(1, 31)", "-2147483648"),
        ("rshift(-1, 28)", "15"),
        ("arshift(-16, 2)", "-4"),
        ("rol(1, 33)", "2"),
        ("ror(1, 1)", "-2147483648"),
        ("bswap(0x11223344)", "1144201745"),
        ("tohex(-1)", "ffffffff"),
        ("tohex(255, 4)", "00ff"),
        ("tohex(171, -2)", "AB"),
        ("tohex(171, -9)", "000000AB"),
        ("tohex(171, -2^31)", "000000AB"),
        ("tohex(171, 2^31)", "000000AB"),
        ("tohex(171, '-2147483648')", "000000AB"),
        ("tohex(171, 2^32 + 2)", "ab"),
    ],
)
def test_numbers_are_of_32_bits(expression, value):
    assert lua(f"print(bit.{expression})").out == value + "\n"


@pytest.mark.parametrize(
    "call, message",
    [
        ("tohex()", "bad argument #1 to 'tohex' (number expected, got no value)"),
        ("tohex(1, {})", "bad argument #2 to 'tohex' (number expected, got table)"),
    ],
)
def test_a_wrong_argument_is_named(call, message):
    assert raised(f"bit.{call}").out.endswith(message)


def test_a_register_word_keeps_its_bits_on_the_way_to_the_driver_and_back():
    ran = lua("radioSpiWrite(0x10, bit.tobit(0xdeadbeef)) print(bit.tohex(radioSpiRead(0x10)))",
              answers="radioSpiRead 3735928559")
    assert ran.out == "deadbeef\n"
    assert ran.calls[0] == "radioSpiWrite(context1, 16, -559038737)"


def test_requiring_bit_gives_the_same_table():
    assert lua("print(require 'bit' == bit)").out == "true\n"

# SPDX-License-Identifier: LicenseRef-Proprietary
"""Which number reaches the driver, for each kind of argument and at every boundary."""

import pytest
from catalogue import NEGATIVE
from shell import lua, raised

UINT32_MAX = 4294967295
INT32_MAX, INT32_MIN = 2147483647, -2147483648
REFUSED = None  # a negative number where the driver takes an unsigned one

# A Lua value -> what arrives as uint32_t, uint16_t, int16_t and as a signed 32-bit number, which
# enumerations and the value of radioSpiWrite() are.
NUMBERS = {
    "0": (0, 0, 0, 0),
    "-0": (0, 0, 0, 0),
    "0/-1": (0, 0, 0, 0),
    "0.5": (0, 0, 0, 0),
    "1": (1, 1, 1, 1),
    "7.9": (7, 7, 7, 7),
    "-0.5": (REFUSED, REFUSED, 0, 0),
    "-1": (REFUSED, REFUSED, -1, -1),
    "-3.7": (REFUSED, REFUSED, -3, -3),
    "-7.9": (REFUSED, REFUSED, -7, -7),
    "32767": (32767, 32767, 32767, 32767),
    "32768": (32768, 32768, -32768, 32768),
    "-32768": (REFUSED, REFUSED, -32768, -32768),
    "-32769": (REFUSED, REFUSED, 32767, -32769),
    "40000": (40000, 40000, -25536, 40000),
    "65535": (65535, 65535, -1, 65535),
    "65535.9": (65535, 65535, -1, 65535),
    "65536": (65536, 0, 0, 65536),
    "70000": (70000, 4464, 4464, 70000),
    "-70000": (REFUSED, REFUSED, -4464, -70000),
    "2140000000": (2140000000, 52992, -12544, 2140000000),
    "2^31 - 1": (INT32_MAX, 65535, -1, INT32_MAX),
    "2^31 - 0.5": (INT32_MAX, 65535, -1, INT32_MAX),
    "2^31": (2147483648, 0, -1, INT32_MAX),
    "2^31 + 0.5": (2147483648, 0, -1, INT32_MAX),
    "-2^31 + 0.5": (REFUSED, REFUSED, 1, -2147483647),
    "-2^31": (REFUSED, REFUSED, 0, INT32_MIN),
    "-2^31 - 0.5": (REFUSED, REFUSED, 0, INT32_MIN),
    "-2^31 - 1": (REFUSED, REFUSED, 0, INT32_MIN),
    "2^32 - 1": (UINT32_MAX, 65535, -1, INT32_MAX),
    "2^32 - 0.5": (UINT32_MAX, 65535, -1, INT32_MAX),
    "2^32": (UINT32_MAX, 65535, -1, INT32_MAX),
    "2^32 + 70000": (UINT32_MAX, 65535, -1, INT32_MAX),
    "1e10": (UINT32_MAX, 65535, -1, INT32_MAX),
    "-1e10": (REFUSED, REFUSED, 0, INT32_MIN),
    "2^63": (UINT32_MAX, 65535, -1, INT32_MAX),
    "2^64": (UINT32_MAX, 65535, -1, INT32_MAX),
    "-2^63": (REFUSED, REFUSED, 0, INT32_MIN),
    "1e300": (UINT32_MAX, 65535, -1, INT32_MAX),
    "1/0": (UINT32_MAX, 65535, -1, INT32_MAX),
    "-1/0": (REFUSED, REFUSED, 0, INT32_MIN),
    "0/0": (REFUSED, REFUSED, 0, 0),
    "-(0/0)": (REFUSED, REFUSED, 0, 0),
    "'2140000000'": (2140000000, 52992, -12544, 2140000000),
    "' 12 '": (12, 12, 12, 12),
    "'\\t12\\n'": (12, 12, 12, 12),
    "'0x10'": (16, 16, 16, 16),
    "'0X1f'": (31, 31, 31, 31),
    "'0x1p4'": (16, 16, 16, 16),
    "'1e3'": (1000, 1000, 1000, 1000),
    "'+5'": (5, 5, 5, 5),
    "'7.9'": (7, 7, 7, 7),
    "'.5'": (0, 0, 0, 0),
    "'-3.7'": (REFUSED, REFUSED, -3, -3),
    "'-0'": (0, 0, 0, 0),
    "'4294967296'": (UINT32_MAX, 65535, -1, INT32_MAX),
    "'inf'": (UINT32_MAX, 65535, -1, INT32_MAX),
    "'-inf'": (REFUSED, REFUSED, 0, INT32_MIN),
    "'nan'": (REFUSED, REFUSED, 0, 0),
}


@pytest.mark.parametrize("value", NUMBERS)
def test_what_a_number_arrives_as(value):
    as_uint32, as_uint16, as_int16, as_int32 = NUMBERS[value]
    ran = lua(
        f"local value = {value} "
        "pcall(radioSetTxFrequency, value) pcall(radioSetTxChannel, value) "
        "radioSetRxGain(value) radioSetRxState(value) radioSpiWrite(0, value)"
    )
    expected = [
        f"radioSetRxGain(context1, {as_int16})",
        f"radioSetRxState(context1, {as_int32})",
        f"radioSpiWrite(context1, 0, {as_int32})",
    ]
    if as_uint32 is not REFUSED:
        expected.insert(0, f"radioSetTxFrequency(context1, {as_uint32})")
        expected.insert(1, f"radioSetTxChannel(context1, {as_uint16})")
    assert ran.calls == expected


@pytest.mark.parametrize(
    "value", [value for value, (unsigned, *_) in NUMBERS.items() if unsigned is REFUSED]
)
def test_a_number_that_no_unsigned_parameter_takes(value):
    ran = raised(f"radioSetTxFrequency({value})")
    assert (ran.out, ran.calls) == (NEGATIVE, [])
    ran = raised(f"radioSetTxChannel({value})")
    assert (ran.out, ran.calls) == (NEGATIVE, [])


NO_NUMBERS = ["''", "' '", "'x'", "'12a'", "'1 2'", "'0x'", "'--1'", "'1e'", "'1,5'", "'0x1g'"]


@pytest.mark.parametrize("value", NO_NUMBERS)
def test_a_string_that_is_no_number_is_refused(value):
    ran = raised(f"radioSetTxFrequency({value})")
    expected = "Error in radioSetTxFrequency (arg 1), expected 'uint32_t' got 'string'"
    assert (ran.out, ran.calls) == (expected, [])


@pytest.mark.parametrize(
    "value",
    [*NO_NUMBERS, "nil", "true", "false", "{}", "print", "RadioHooks()", "newproxy()",
     "coroutine.create(function() end)"],
)
def test_what_is_no_number_is_written_to_a_register_as_0(value):
    ran = lua(f"radioSpiWrite(16, {value})")
    assert ran.calls == ["radioSpiWrite(context1, 16, 0)"]


@pytest.mark.parametrize("value, word", [("-1", -1), ("4294967295", INT32_MAX), ("'12'", 12)])
def test_a_register_word_is_written_as_a_signed_number(value, word):
    assert lua(f"radioSpiWrite(0xffffffff, {value})").calls == [
        f"radioSpiWrite(context1, 4294967295, {word})"
    ]


@pytest.mark.parametrize(
    "value, text",
    [
        ("nil", "null"),
        ("''", '""'),
        ("'a name'", '"a name"'),
        ("12", '"12"'),
        ("-0.5", '"-0.5"'),
        ("1e15", '"1e+15"'),
        ("2^53", '"9.007199254741e+15"'),
        ("0.1", '"0.1"'),
        ("1/0", '"inf"'),
        (r"'a\0b'", '"a"'),
        (r"'tab\tline\nquote\"back\\'", r'"tab\x09line\nquote\"back\\"'),
        (r"'\195\169\255'", r'"\xc3\xa9\xff"'),
        ("('x'):rep(1000)", '"' + 1000 * "x" + '"'),
    ],
)
def test_what_a_text_arrives_as(value, text):
    ran = lua(f"radioLoadCalibrationFile({value}) radioInitByScript(0, 0, 1, {value}) "
              f"radioGetIntegerFromCalibration({value}, nil) "
              f"radioGetStringFromCalibration({value}, nil)")
    assert ran.calls == [
        f"radioLoadCalibrationFile(context1, {text})",
        f"radioInitByScript(context1, 0, 0, 1, {text})",
        f"radioGetIntegerFromCalibration(context1, {text}, null)",
        f"radioGetStringFromCalibration(context1, {text}, null)",
    ]

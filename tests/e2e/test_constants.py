# SPDX-License-Identifier: LicenseRef-Proprietary
"""The driver's constants, as scripts write them."""

import pytest
from enumerations import ENUMERATIONS
from shell import lua


@pytest.mark.parametrize("enumeration", ENUMERATIONS)
@pytest.mark.parametrize("table", ["radio", "_G"])
def test_each_member_is_a_number_of_the_drivers_value(enumeration, table):
    members = ENUMERATIONS[enumeration]
    ran = lua(" ".join(f"print({table}.{name}, type({table}.{name}))" for name in members))
    assert ran.out.splitlines() == [f"{value}\tnumber" for value in members.values()]


def test_there_are_118_constants_and_no_other_field_named_like_one():
    ran = lua("for name in pairs(radio) do if name:find('^RADIO_') then print(name) end end")
    names = [name for members in ENUMERATIONS.values() for name in members]
    assert len(names) == 118
    assert sorted(ran.out.splitlines()) == sorted(names)


def test_every_number_in_radio_is_a_constant():
    ran = lua(
        "for name, value in pairs(radio) do "
        "    if type(value) ~= 'function' then print(name:match('^RADIO_'), type(value)) end "
        "end"
    )
    assert ran.out == 118 * "RADIO_\tnumber\n"


def test_there_is_no_constant_for_a_band_that_does_not_exist():
    ran = lua(
        "for band = 0, 300 do "
        "    if radio['RADIO_BAND_' .. band] then io.write(band, ' ') end "
        "end"
    )
    existing = [*range(1, 26), *range(33, 44), *range(252, 256)]
    assert ran.out.split() == [str(band) for band in existing]


def test_the_first_antenna_has_the_number_0():
    assert lua("print(RADIO_TX_ANTENNA_1, RADIO_RX_ANTENNA_1)").out == "0\t0\n"


def test_a_constant_goes_to_the_driver_as_its_value():
    assert lua("radioInit(RADIO_CONF_NULL, RADIO_MODE_INVALID, RADIO_BAND_255)").calls == [
        "radioInit(context1, -1, 18, 255)"
    ]

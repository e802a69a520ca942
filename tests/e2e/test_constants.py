# SPDX-License-Identifier: LicenseRef-Proprietary
"""The driver's constants, as scripts write them."""

import pytest
from shell import lua


def numbered(prefix, *words, first=0):
    """Members that count up from first."""
    return {prefix + word: first + place for place, word in enumerate(words)}


ENUMERATIONS = {
    "RadioReturn": numbered(
        "RADIO_E", "SUCCESS", "IO", "NOTSUP", "INVAL", "AGAIN", "ERROR"
    ),
    "RadioDebug": numbered("RADIO_DEBUG_", "NONE", "ERROR", "WARN", "INFO", "DEBUG", "TRACE"),
    "RadioConf": numbered("RADIO_CONF_", "SISO", "MIMO", "COUNT")
    | {"RADIO_CONF_INVALID": 2, "RADIO_CONF_NULL": -1},
    "RadioMode": numbered(
        "RADIO_MODE_",
        "3GNODEB",
        "2GUERX",
        "3GUERX",
        "4GENODEB_FDD_3MHZ",
        "4GENODEB_FDD_5MHZ",
        "4GENODEB_FDD_10MHZ",
        "4GENODEB_FDD_15MHZ",
        "4GENODEB_FDD_20MHZ",
        "4GENODEB_TDD_5MHZ",
        "4GENODEB_TDD_10MHZ",
        "4GENODEB_TDD_20MHZ",
        "4GUERX_FDD_5MHZ",
        "4GUERX_FDD_10MHZ",
        "4GUERX_FDD_20MHZ",
        "4GUERX_TDD_5MHZ",
        "4GUERX_TDD_10MHZ",
        "4GUERX_TDD_20MHZ",
        "TD_SCDMA_NODEB",
        "COUNT",
    )
    | {"RADIO_MODE_INVALID": 18, "RADIO_MODE_NULL": -1},
    "RadioBand": {f"RADIO_BAND_{band}": band for band in range(1, 26)}
    | {f"RADIO_BAND_{band}": band for band in range(33, 44)}
    | numbered("RADIO_BAND_GSM_", "850", "900", "900E", "1800", "1900", first=44)
    | {f"RADIO_BAND_{band}": band for band in range(252, 256)}
    | {"RADIO_BAND_COUNT": 256, "RADIO_BAND_INVALID": 256, "RADIO_BAND_NULL": -1},
    "RadioState": numbered("RADIO_STATE_", "DISABLE", "ENABLE"),
    "RadioRxGainMode": numbered(
        "RADIO_RX_GAIN_", "MGC", "AGC_FAST", "AGC_SLOW", "AGC_SLOW_HYBRID"
    ),
    "RadioTxAntenna": numbered("RADIO_TX_ANTENNA_", "1", "2"),
    "RadioRxAntenna": numbered("RADIO_RX_ANTENNA_", "1", "2"),
    "RadioSelectIndex": numbered("RADIO_SELECT_", "0", "1", "ALL"),
    "RadioPlatformSelectIndex": numbered(
        "RADIO_PLATFORM_", "DEFAULT", "TALWIN", "MERRIK", "OSTRAV", "BELLAN", "COUNT"
    )
    | {"RADIO_PLATFORM_NULL": -1},
    "RadioLoopback": numbered(
        "RADIO_", "NO_LOOPBACK", "TX_TO_RX_LOOPBACK", "RX_TO_TX_LOOPBACK"
    ),
    "RadioCpriRate": {f"RADIO_CPRI_RATE_{rate}": rate for rate in (1, 2, 4, 5, 8, 10)},
    "RadioInterfaceMode": numbered("RADIO_INTERFACE_", "JESD_CMOS", "JESD_LVDS", "CPRI"),
}


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

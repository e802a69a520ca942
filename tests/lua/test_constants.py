# SPDX-License-Identifier: LicenseRef-Proprietary
"""The module sorel.constants: the driver's constants in groups."""

import pytest
from enumerations import ENUMERATIONS
from shell import SOURCE, lua, raised

GROUPS = dict(
    zip(
        ("RADIO_RETURN", "RADIO_DEBUG", "RADIO_CONF", "RADIO_MODE", "RADIO_BAND", "RADIO_STATE",
         "RADIO_RX_GAIN", "RADIO_TX_ANTENNA", "RADIO_RX_ANTENNA", "RADIO_SELECT",
         "RADIO_PLATFORM", "RADIO_LOOPBACK", "RADIO_CPRI_RATE", "RADIO_INTERFACE"),
        ENUMERATIONS.values(),
        strict=True,
    )
)
REQUIRE = "local constants = require 'sorel.constants' "
FOUND = {"LUA_PATH": f"{SOURCE}/lua/?.lua"}


def constants(text):
    """What a script prints that has the module."""
    return lua(REQUIRE + text, **FOUND).out.splitlines()


def refusal(text):
    """What is raised in a script that has the module."""
    return raised(REQUIRE + text, **FOUND).out


def test_the_groups_are_the_enumerations_in_their_order():
    assert constants("print(table.concat(constants.groups(), ' '))") == [" ".join(GROUPS)]


@pytest.mark.parametrize("group", GROUPS)
def test_a_group_has_the_members_of_its_enumeration_in_the_order_of_their_values(group):
    members = GROUPS[group]
    ordered = sorted(members, key=lambda name: (members[name], name))
    assert constants(f"print(unpack(constants.members('{group}')))") == ["\t".join(ordered)]


@pytest.mark.parametrize("group", GROUPS)
def test_each_name_has_its_value(group):
    members = GROUPS[group]
    asked = "".join(f"print(constants.value('{group}', '{name}')) " for name in members)
    assert constants(asked) == [str(value) for value in members.values()]


@pytest.mark.parametrize("group", GROUPS)
def test_each_value_has_its_name_and_is_a_value(group):
    values = sorted(set(GROUPS[group].values()))
    first = {
        value: min(name for name in GROUPS[group] if GROUPS[group][name] == value)
        for value in values
    }
    asked = "".join(f"print(constants.name('{group}', {value})) "
                    f"print(constants.value('{group}', {value})) " for value in values)
    assert constants(asked) == [str(answer) for value in values for answer in (first[value], value)]


@pytest.mark.parametrize(
    "member, message",
    [
        ("'RADIO_BND_7'", "RADIO_BAND has no member RADIO_BND_7; did you mean RADIO_BAND_7?"),
        ("'radio_band_38'", "RADIO_BAND has no member radio_band_38; did you mean RADIO_BAND_38?"),
        ("'gsm_900e'", "RADIO_BAND has no member gsm_900e; did you mean RADIO_BAND_GSM_900E?"),
        ("26", "RADIO_BAND has no member of value 26; did you mean RADIO_BAND_25?"),
        ("1e9", "RADIO_BAND has no member of value 1000000000; did you mean RADIO_BAND_255?"),
        ("7.4", "RADIO_BAND has no member of value 7.4; did you mean RADIO_BAND_7?"),
        ("nil", "RADIO_BAND has no member nil"),
    ],
)
def test_what_is_no_member_has_no_value_and_the_nearest_one_is_named(member, message):
    assert constants(f"print(constants.value('RADIO_BAND', {member}))") == [f"nil\t{message}"]


def test_a_value_without_a_name_has_none_and_the_nearest_one_is_named():
    assert constants("print(constants.name('RADIO_STATE', 2))") == [
        "nil\tRADIO_STATE has no member of value 2; did you mean RADIO_STATE_ENABLE?"
    ]


def test_what_the_driver_refuses_is_never_suggested():
    assert constants(
        "print(constants.name('RADIO_MODE', 19)) print(constants.value('RADIO_CONF', -2)) "
        "print(constants.value('RADIO_MODE', 'RADIO_MODE_COUNTS'))"
    ) == [
        "nil\tRADIO_MODE has no member of value 19; did you mean RADIO_MODE_TD_SCDMA_NODEB?",
        "nil\tRADIO_CONF has no member of value -2; did you mean RADIO_CONF_SISO?",
        "nil\tRADIO_MODE has no member RADIO_MODE_COUNTS; did you mean RADIO_MODE_2GUERX?",
    ]


def test_not_a_number_has_no_name_and_none_is_near():
    (printed,) = constants("print(constants.name('RADIO_STATE', 0 / 0))")
    assert printed.endswith("nan")


@pytest.mark.parametrize("function", ["name", "value", "members"])
def test_an_unknown_group_is_an_error_where_it_is_asked_for(function):
    message = refusal(f"\n\nconstants.{function}('RADIO_BAD', 7)")
    assert message.endswith(":3: there is no group of constants RADIO_BAD; did you mean RADIO_BAND?")


def test_values_are_those_of_the_module_radio_at_the_time():
    assert constants("radio.RADIO_BAND_7 = 70 print(constants.name('RADIO_BAND', 70))") == [
        "RADIO_BAND_7"
    ]


def test_what_a_script_does_with_a_list_stays_its_own():
    assert constants(
        "constants.groups()[1] = nil constants.members('RADIO_STATE')[1] = nil "
        "print(#constants.groups(), #constants.members('RADIO_STATE'))"
    ) == ["14\t2"]


def test_the_module_makes_no_globals_and_changes_none():
    assert lua(
        "local before = {} for name, value in pairs(_G) do before[name] = value end "
        "local constants = require 'sorel.constants' "
        "constants.value('RADIO_BAND', 'x') constants.name('RADIO_BAND', 0.5) "
        "for name, value in pairs(_G) do if before[name] ~= value then print(name) end end "
        "for name, value in pairs(before) do if _G[name] ~= value then print(name) end end",
        **FOUND,
    ).out == ""

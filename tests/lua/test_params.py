# SPDX-License-Identifier: LicenseRef-Proprietary
"""The module sorel.params: parameters from the environment."""

import pytest
from shell import SOURCE, lua, prompt, raised, run, type_line

FOUND = {"LUA_PATH": f"{SOURCE}/lua/?.lua"}
READ = "local values = require('sorel.params').read "


def read(parameters, show, **variables):
    """What a script prints of the values."""
    return lua(f"{READ} {{ {parameters} }} print({show})", **FOUND, **variables).out.rstrip("\n")


def mistakes(parameters, **variables):
    """What is wrong with the environment, a list of lines."""
    text = raised(f"{READ} {{ {parameters} }}", **FOUND, **variables).out
    told, _, usage = text.partition("\n\nusage: ")
    assert usage
    return told.splitlines()


def refusal(parameters):
    """What is wrong with the list of parameters, without the place of the call."""
    text = raised(f"{READ} {parameters}", **FOUND).out
    place, _, told = text.partition(": params.read: ")
    assert place == '[string "cmdline"]:1'
    return told


@pytest.mark.parametrize(
    "rule, text, value",
    [
        ("", "0042", "0042"),
        ("", " a b ", " a b "),
        ("pattern = '^%d+$'", "0042", "0042"),
        ("type = 'number'", "0042", "42"),
        ("type = 'number'", "-1.5e3", "-1500"),
        ("type = 'number'", ".5", "0.5"),
        ("type = 'number'", "0x1F", "31"),
        ("type = 'number'", "-0xfFfFfFfF", "-4294967295"),
        ("type = 'number', integer = true, least = 1, most = 3", "1", "1"),
        ("type = 'number', integer = true, least = 1, most = 3", "3", "3"),
        ("type = 'boolean'", "Yes", "true"),
        ("type = 'boolean'", "0", "false"),
        ("group = 'RADIO_BAND'", "RADIO_BAND_GSM_900E", "46"),
        ("group = 'RADIO_BAND'", "7", "7"),
        ("choices = { 'fast', 'slow' }", "slow", "slow"),
        ("type = 'number', choices = { 1, 2.5 }", "2.50", "2.5"),
        ("type = 'file'", "/dev/null", "/dev/null"),
    ],
)
def test_a_variable_is_what_its_parameter_says(rule, text, value):
    kinds = {"type = 'number'": "number", "group": "number", "type = 'boolean'": "boolean"}
    kind = next((kinds[word] for word in kinds if word in rule), "string")
    shown = read(f"{{ 'A', {rule} }}", "values.A, type(values.A)", A=text)
    assert shown == f"{value}\t{kind}"


@pytest.mark.parametrize(
    "rule, text, message",
    [
        ("pattern = '^%d+$'", "00x2", '"00x2" does not match the pattern ^%d+$'),
        ("pattern = '[a'", "a", "pattern [a: malformed pattern (missing ']')"),
        ("pattern = '^%d+$', secret = true", "hunter2", "does not match the pattern ^%d+$"),
        ("type = 'number'", "1,5", '"1,5" is no number'),
        ("type = 'number'", " 1", '" 1" is no number'),
        ("type = 'number'", "inf", '"inf" is no number'),
        ("type = 'number'", "nan", '"nan" is no number'),
        ("type = 'number'", "0x", '"0x" is no number'),
        ("type = 'number'", "1.2.3", '"1.2.3" is no number'),
        ("type = 'number'", ".", '"." is no number'),
        ("type = 'number'", "1e", '"1e" is no number'),
        ("type = 'number'", "1e999", "1e999 is too large"),
        ("type = 'number', integer = true", "1.5", "1.5 is not a whole number"),
        ("type = 'number', least = 1", "0", "0 is below 1"),
        ("type = 'number', most = 3", "3.5", "3.5 is above 3"),
        ("type = 'boolean'", "maybe", '"maybe" is none of: yes, no, true, false, on, off, 1, 0'),
        ("group = 'RADIO_BAND'", "RADIO_BND_7",
         "RADIO_BAND has no member RADIO_BND_7; did you mean RADIO_BAND_7?"),
        ("group = 'RADIO_BAND'", "26",
         "RADIO_BAND has no member of value 26; did you mean RADIO_BAND_25?"),
        ("group = 'RADIO_CONF'", "2",
         "2, which is RADIO_CONF_COUNT, cannot be chosen; there are RADIO_CONF_SISO to "
         "RADIO_CONF_MIMO"),
        ("choices = { 'fast', 'slow' }", "slwo",
         "slwo is none of: fast, slow; did you mean slow?"),
        ("type = 'file'", "/nowhere/a", "/nowhere/a: No such file or directory"),
        ("type = 'file'", "/", "/: Is a directory"),
        ("type = 'file', default = '/nowhere/b'", "", "/nowhere/b: No such file or directory"),
        ("", "", "is empty"),
    ],
)
def test_what_it_is_not_is_refused(rule, text, message):
    assert mistakes(f"{{ 'A', {rule} }}", A=text) == [f"A: {message}"]


def test_what_an_unprintable_variable_holds_is_shown_in_print():
    assert mistakes("{ 'A', type = 'number' }", A="\x1b[2J") == [r'A: "\x1b[2J" is no number']


def test_every_mistake_is_told_in_the_order_of_the_parameters():
    assert mistakes("{ 'B', type = 'number' }, { 'A' }, { 'C', default = 'c' }", B="x") == [
        'B: "x" is no number', "A: is missing"]


@pytest.mark.parametrize("given", [{}, {"A": ""}])
def test_what_is_missing_or_empty_has_its_default_or_is_nil(given):
    assert read("{ 'A', type = 'number', default = 16 }", "values.A", **given) == "16"
    assert read("{ 'A', type = 'boolean', default = false }", "values.A", **given) == "false"
    group = "{ 'A', group = 'RADIO_BAND', default = 'RADIO_BAND_7' }"
    assert read(group, "values.A", **given) == "7"
    assert read("{ 'A', optional = true }", "values.A", **given) == "nil"


def test_a_value_of_a_name_that_is_no_parameter_is_an_error():
    text = f"{READ} {{ {{ 'SERIAL', optional = true }} }} print(values.SERAIL)"
    message = raised(text, **FOUND).out
    assert message == '[string "cmdline"]:1: there is no parameter SERAIL; did you mean SERIAL?'


def test_every_mistake_in_the_list_is_told_where_it_is_given():
    assert refusal("""{
        { 'A', type = 'strnig', patern = 'x' },
        { 'A-B' }, 'C', { 'A' },
        { 'D', group = 'RADIO_BND', type = 'number', default = 1 },
        { 'E', pattern = 1, least = 1, optional = true, default = 'e' },
        { 'F', type = 'number', least = 2, most = 1 },
        { 'G', type = 'number', most = 9, default = 10 },
        { 'H', choices = { 'a', 1 } }, { 'I', type = 'boolean', choices = { 'a' } },
        { 'J', choices = {} }, { 'K', type = 'boolean', default = 'yes' },
        { 'L', group = 'RADIO_STATE', default = 2 }, { 'M', type = 'number', secret = true },
        { 'N', group = 'RADIO_BAND', type = 'number' }, { 'O', choices = { 'a' }, pattern = 'a' },
    }""").splitlines() == [
        "19 mistakes:",
        "  parameters[1] (A).type: strnig is none of: string, number, boolean, file; "
        "did you mean string?",
        "  parameters[1] (A).patern: there is no such key; did you mean pattern?",
        "  parameters[2]: the name of an environment variable is expected first: letters, digits, "
        "_",
        '  parameters[3]: { "NAME", ... } is expected, got a string',
        "  parameters[4] (A): parameters[1] has the same name",
        "  parameters[5] (D).group: there is no group of constants RADIO_BND; "
        "did you mean RADIO_BAND?",
        "  parameters[6] (E).pattern: a text is expected, got a number",
        "  parameters[6] (E).least: goes with the type number alone",
        "  parameters[6] (E).optional: excludes default",
        "  parameters[7] (F).least: is above most",
        "  parameters[8] (G).default: 10 is above 9",
        "  parameters[9] (H).choices[2]: a text is expected, got a number",
        "  parameters[10] (I).choices: goes with the types string and number alone",
        "  parameters[11] (J).choices: is empty",
        "  parameters[12] (K).default: true or false is expected, got a text",
        "  parameters[13] (L).default: RADIO_STATE has no member of value 2; "
        "did you mean RADIO_STATE_ENABLE?",
        "  parameters[14] (M).secret: goes with the type string alone",
        "  parameters[15] (N).type: excludes group",
        "  parameters[16] (O).pattern: excludes choices",
    ]


@pytest.mark.parametrize(
    "parameters, message",
    [
        ("nil", "a list of parameters is expected, got nil"),
        ("{}", "parameters: is empty"),
        ("{ { 'A' }, nil, { 'B' } }", "parameters[2]: is missing, though there are later ones"),
        ("{ A = { 'A' } }", "parameters.A: a list has no such key"),
    ],
)
def test_parameters_are_a_list(parameters, message):
    assert refusal(f"({parameters})") == message


SCRIPT = f"""radioSetTxState(1)
{READ} {{
    {{ "SERIAL", pattern = "^%d+$", text = "serial number of the board" }},
    {{ "BAND", group = "RADIO_BAND", default = "RADIO_BAND_7", text = "operating band" }},
    {{ "AVERAGE", type = "number", integer = true, least = 1, most = 100, default = 16,
        text = "how many readings the mean of received power is taken from, which takes time" }},
    {{ "MIN", type = "number", least = -1.5, optional = true }},
    {{ "KEY", secret = true, default = "hunter2" }},
    {{ "CALIBRATION", type = "file", text = ("word "):rep(40) .. ("long"):rep(30) }},
    {{ "QUICK", type = "boolean", default = false }},
    {{ "MODE", choices = {{ "fast", "slow" }}, default = "slow" }},
}}
"""
USAGE = """\
SERIAL: is missing
CALIBRATION: is missing

usage: SERIAL=... CALIBRATION=... sorelapp -b test.lua

  SERIAL       text that matches ^%d+$; required
               serial number of the board
  BAND         RADIO_BAND_..., or its value; default RADIO_BAND_7
               operating band
  AVERAGE      whole number, 1 to 100; default 16
               how many readings the mean of received power is taken from, which
               takes time
  MIN          number, -1.5 or more; may be missing
  KEY          text; has a default
  CALIBRATION  file to read; required
               word word word word word word word word word word word word word
               word word word word word word word word word word word word word
               word word word word word word word word word word word word word
               word
               longlonglonglonglonglonglonglonglonglonglonglonglonglonglonglongl
               onglonglonglonglonglonglonglonglonglonglonglonglonglong
  QUICK        yes or no; default no
  MODE         one of: fast, slow; default slow
"""


def script(folder, text):
    """Runs a script that stands in the folder, and is run there."""
    (folder / "test.lua").write_text(text)
    return run("-b", "test.lua", cwd=folder, **FOUND)


def test_a_script_ends_with_a_usage_text_the_status_64_and_the_transmitter_off(tmp_path):
    ran = script(tmp_path, SCRIPT)
    assert (ran.status, ran.out, ran.err) == (64, "", USAGE)
    assert ran.calls == ["radioSetTxState(context1, 1)", "radioSelect(context1, 2)",
                         "radioSetTxState(context1, 0)"]


@pytest.mark.parametrize("text", [
    "return require('sorel.params').read { { 'SERIAL' } }",
    "local function main() local _ = require('sorel.params').read { { 'SERIAL' } } end "
    "return main()",
])
def test_one_that_cannot_be_told_from_a_prompt_fails_with_the_transmitter_off(text):
    ran = run("-c", "radioSetTxState(RADIO_STATE_ENABLE) " + text, **FOUND)
    assert (ran.status, ran.out) == (1, "")
    assert "SERIAL: is missing\n" in ran.err and "usage: SERIAL=... " in ran.err
    assert ran.log[1:] == ["radioSetTxState(context1, 1)", "radioSelect(context1, 2)",
                           "radioSetTxState(context1, 0)"]


def test_so_does_a_command(tmp_path):
    ran = run("-c", f"{READ} {{ {{ 'NOT_THERE' }} }}", cwd=tmp_path, **FOUND)
    assert (ran.status, ran.err) == (
        64, "NOT_THERE: is missing\n\nusage: NOT_THERE=... sorelapp -b SCRIPT\n\n"
        "  NOT_THERE  text; required\n")


@pytest.mark.parametrize(
    "text",
    [
        "print(select(2, pcall(function() %s end)))",
        "print(select(2, xpcall(function() %s end, function(message) return message end)))",
        "require 'sorel.params' local try = pcall pcall = nil "
        "print(select(2, try(function() %s end)))",
        "print(select(2, coroutine.resume(coroutine.create(loadstring [[%s]]))))",
    ],
)
def test_a_script_that_catches_errors_lives_on(tmp_path, text):
    ran = script(tmp_path, text % f"{READ} {{ {{ 'NOT_THERE' }} }}" + " print('on')")
    assert (ran.status, ran.err, ran.calls) == (0, "", [])
    lines = ran.out.splitlines()
    assert (lines[0], lines[-1]) == ("NOT_THERE: is missing", "on")


def test_a_session_lives_on(tmp_path):
    (tmp_path / "test.lua").write_text(READ + "{ { 'NOT_THERE' } }")
    terminal = prompt(cwd=tmp_path, **FOUND)
    told = ["failed to process stdin: \"NOT_THERE: is missing", "",
            "usage: NOT_THERE=... sorelapp -b %s", "", "  NOT_THERE  text; required\""]
    for line, name in (('dofile "test.lua"', "test.lua"), (READ + '{ { "NOT_THERE" } }', "SCRIPT"),
                       ('return require("sorel.params").read { { "NOT_THERE" } }', "SCRIPT")):
        assert type_line(terminal, line) == "\n".join(told).replace("%s", name).split("\n")
    assert type_line(terminal, "print(1)") == ["1"]
    terminal.sendline("exit")
    terminal.wait()
    assert terminal.exitstatus == 0


def test_the_module_makes_no_globals_and_changes_none():
    assert lua(
        "local before = {} for name, value in pairs(_G) do before[name] = value end "
        "require('sorel.params').read { { 'A', default = '' } } "
        "for name, value in pairs(_G) do if before[name] ~= value then print(name) end end",
        **FOUND,
    ).out == ""

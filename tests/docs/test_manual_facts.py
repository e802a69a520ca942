# SPDX-License-Identifier: LicenseRef-Proprietary
"""What the manual page says, held against the program and the drivers."""

import os
import re
from signal import SIGABRT, SIGSEGV

import pytest
from manual import examples, listed, section, text
from options import options
from sessions import bash_with_shell, replay
from shell import (COMMAND, EXECUTABLE, FORWARDING, PROMPT, SIMULATION, SOURCE, assert_aborted, lua,
                   pipe, raised, run)

USAGE_STATUS = 64


def test_the_options_are_those_that_the_program_lists_and_take_what_it_says():
    spellings = ", ".join(listed("OPTIONS")).split(", ")
    assert {
        option: taken or None for option, _, taken in
        (re.sub("[ =]", " ", spelling).partition(" ") for spelling in spellings)
    } == options()


def test_no_other_option_is_named():
    own = text().replace(section("EXAMPLES"), "")
    assert set(re.findall(r"(?<![\w-])(?:--\w+|-[A-Za-z?](?!\w))", own)) == set(options())


def test_the_order_of_the_options_decides_as_the_table_says(tmp_path):
    script = tmp_path / "script"
    script.write_text("print('script')")
    words = {"FILE": str(script), "COMMAND": "print('command')"}
    outcomes = {
        "the script": ("script\n", 0),
        "the script, then the prompt": ("script\n" + PROMPT, 0),
        "the command": ("command\n", 0),
        "refused": ("", USAGE_STATUS),
    }
    rows = re.findall(r"^ +(-.*?) {2,}(\S.*)$", section("Order of the options"), re.MULTILINE)
    assert {outcome for _, outcome in rows} == set(outcomes)
    for arguments, outcome in rows:
        ran = run(*(words.get(word, word) for word in arguments.split()), stdin="exit\n")
        assert (ran.out, ran.status) == outcomes[outcome], arguments


def test_the_words_of_the_prompt():
    leaving, helping = listed("THE PROMPT")
    assert leaving.split(", ") == ["exit", "quit", "exit()", "quit()"]
    for word in leaving.split(", "):
        ran = run(stdin=f"{word}\nprint('read')\n")
        assert (ran.out, ran.err, ran.status) == (PROMPT, "", 0)
    assert pipe(f"function {helping}() print('called') end", helping).out == (
        2 * PROMPT + "called\n" + PROMPT
    )


def test_a_line_is_as_long_as_it_says_and_a_longer_one_aborts_as_it_says():
    limits = section("Limits of the line reader")
    lengths = re.search(r"at most (\d+) bytes before its newline, or (\d+) before a zero", limits)
    report = "sorelapp: app/sorelapp:262: " + re.search("cmdGetLine: Assertion .*", limits)[0]
    for length, end in zip(map(int, lengths.groups()), "\n\0"):
        ran = run(stdin="-".ljust(length, "-") + end + "exit\n")
        assert (ran.err, ran.status) == ("", 0)
        assert_aborted(run(stdin="-".ljust(length + 1, "-") + end + "exit\n"), report)
    assert_aborted(run(), report)


def test_messages_are_those_of_the_program():
    assert pipe("error('message', 0)").err.strip() in section("THE PROMPT")
    assert "(null)" in section("THE PROMPT") and "(null)" in pipe("error({})").err
    assert run("-c", "error('message', 0)").err.strip() in section("EXIT STATUS")
    assert run("-c", "", answers="radioOpen null").err.strip() in section("DESCRIPTION")
    refused = raised("radioReset()", answers="radioReset 1").out
    assert refused.replace("radioReset", "name") in section("ARGUMENTS AND ERRORS")
    assert lua("io.write(swig_type(io.stdout))").out in section("GLOBALS")


def status_told_by_bash(folder, key):
    """What bash says of a shell that a key has ended at its prompt."""
    terminal = bash_with_shell(folder)
    terminal.sendline("sorelapp")
    terminal.expect_exact(PROMPT)
    terminal.sendcontrol(key)
    terminal.expect_exact("\n$ ")
    terminal.sendline("echo status $?")
    terminal.expect(r"\nstatus (\d+)")
    return int(terminal.match[1])


def test_each_exit_status_comes_about_as_it_says(tmp_path):
    (tmp_path / "libsorel.so.1").write_text("no library")
    assert [int(status) for status in listed("EXIT STATUS")] == [
        run("-c", "").status,
        run("-c", "error()").status,
        run("no option").status,
        run("-V", driver=tmp_path).status,
        status_told_by_bash(tmp_path, "c"),
        status_told_by_bash(tmp_path, "d"),
    ]


def test_the_variables_of_the_drivers_are_those_that_they_read():
    libraries = [folder / "libsorel.so.1" for folder in (SIMULATION, FORWARDING)]
    read = {
        name.decode()
        for library in libraries
        for name in re.findall(rb"SOREL_[A-Z_]+", library.read_bytes())
    }
    assert set(re.findall(r"SOREL_[A-Z_]+", text())) == read


def test_the_variables_of_the_simulated_board_are_those_of_its_own_documentation():
    rows = re.findall(r"^\| (`SOREL_.*?) \|", (SOURCE / "driver/README.md").read_text(), re.M)
    documented = set(re.findall(r"`(\w+)`", " ".join(rows)))
    assert len(documented) == 4
    assert documented == set(re.findall(r"SOREL_SIM_\w+", " ".join(listed("ENVIRONMENT"))))


def test_no_other_variables_are_named():
    others = set(re.findall(r"\b[A-Z]+_[A-Z_]+\b", text()))
    assert {name for name in others if not name.startswith(("SOREL_", "RADIO_"))} == {
        "LD_LIBRARY_PATH", "LUA_PATH", "LUA_CPATH", "LUA_INIT"
    }


def test_the_levels_of_debug_messages_are_those_of_the_driver():
    ran = run("-c", "", driver=SIMULATION, SOREL_SIM_LOG="/dev/null", SOREL_SIM_LOG_LEVEL="?")
    levels = re.search(r"no level; (.*) are\.", ran.err)[1]
    assert f"Which messages: {levels.replace(' and ', ' or ')}." in section("ENVIRONMENT")


def test_the_fields_of_radio_are_as_many_as_it_says():
    told = re.search(r"(\d+) fields: (\d+) driver functions, (\d+) constants", section("GLOBALS"))
    counts = lua(
        "local all, numbers, functions = 0, 0, 0 "
        "for name, value in pairs(radio) do "
        "    all = all + 1 "
        "    if type(value) == 'number' then numbers = numbers + 1 end "
        "    if type(value) == 'function' and name ~= 'RadioHooks' then functions = functions + 1 end "
        "end "
        "print(all, functions, numbers)"
    )
    assert list(told.groups()) == counts.out.split()


# What the manual of Lua 5.1 has, and what it once had, and has still.
STANDARD = """_G _VERSION assert collectgarbage dofile error getfenv getmetatable ipairs load loadfile
    loadstring module next pairs pcall print rawequal rawget rawset require select setfenv setmetatable
    tonumber tostring type unpack xpcall coroutine debug io math os package string table
    gcinfo newproxy""".split()


def test_the_globals_are_all_that_the_shell_adds_to_lua():
    present = lua("for name in pairs(_G) do print(name) end").out.split()
    copied = lua("for _, of in ipairs {radio, radioNative} do "
                 "    for name in pairs(of) do print(name) end "
                 "end").out.split()
    told = {tag.partition("(")[0] for tag in listed("GLOBALS")} - {"RadioHooks"}
    assert told == set(present) - set(copied) - set(STANDARD)
    assert lua("for name in pairs(radioNative) do print(name) end").out.split() == [
        name for name in ("radioOpen", "radioClose") if f"{name}() " in section("GLOBALS")
    ]


def test_all_names_of_the_driver_exist():
    named = sorted(set(re.findall(r"\b(?:radio[A-Z]|RADIO_|Radio)\w+", text())))
    assert len(named) > 20
    ran = lua(" ".join(f"assert({name} ~= nil, '{name}')" for name in named))
    assert ran.status == 0


def test_integers_of_a_32_bit_board_are_what_it_says():
    is_32_bit = EXECUTABLE.read_bytes()[4] == 1
    caveats = section("CAVEATS")
    call, result = re.search(r"(string\.format\(.*?\)) gives (\d+) there", caveats).groups()
    assert result == str(2**31 - 1)
    assert lua(f"io.write({call})").out == (result if is_32_bit else "2655000000")
    assert "%.0f" in caveats and lua("print(2655000000, ('%.0f'):format(2655000000))").out == (
        "2655000000\t2655000000\n"
    )


FAULTS = {
    "string.find": "pattern_recursion",
    "unpack": "unpack_overflow",
    "compiled code": "malformed_code",
}


@pytest.mark.skipif(len(COMMAND) > 1, reason="an emulator has a stack and signals of its own")
@pytest.mark.skipif("CHECKER_REPORTS" in os.environ, reason="a checker reports these mistakes")
@pytest.mark.parametrize("named, file", FAULTS.items())
def test_mistakes_of_luas_own_end_the_shell_as_it_says(named, file):
    assert named in section("CAVEATS")
    ran = run("-b", str(SOURCE / "fuzz" / "stock_lua_faults" / f"{file}.lua"))
    assert ran.status in (-SIGSEGV, -SIGABRT)
    assert "radioClose" not in "".join(ran.log)


def test_the_examples_print_what_they_show(tmp_path):
    sessions = 0
    for block in examples():
        if block.startswith("-- "):
            (tmp_path / block.split()[1]).write_text(block)
        else:
            sessions += 1
            assert replay(block, tmp_path).expandtabs() == block
    assert sessions == 5

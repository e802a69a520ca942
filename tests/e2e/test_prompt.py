# SPDX-License-Identifier: LicenseRef-Proprietary
"""The interactive loop: its words, and every other line as a chunk of Lua."""

import pytest
from shell import PROMPT, pipe, run

FAILED = 'failed to process stdin: "{}"\n'


@pytest.mark.parametrize("word", ["exit", "quit", "exit()", "quit()"])
def test_a_word_that_ends_the_loop(word):
    ran = run(stdin=f"{word}\nprint('read')\n")
    assert (ran.out, ran.err, ran.status, ran.calls) == (PROMPT, "", 0, [])


@pytest.mark.parametrize(
    "line",
    [" exit", "exit ", "EXIT", "Quit", "exit;", " exit()", "exit ()", "QUIT()", "exit(1)",
     "e", "q", "exi", "qui", "exits", "quits", "exit(", "quit()()"],
)
def test_a_line_that_resembles_an_exit_word_is_run_as_lua_and_fails(line):
    ran = pipe(line, "print('still here')")
    assert ran.err.startswith('failed to process stdin: "[string "stdin"]:')
    assert ran.out == PROMPT + PROMPT + "still here\n" + PROMPT


def test_an_exit_word_is_not_overridden_by_a_function_of_that_name():
    ran = run(stdin="exit = function() print('mine') end\nexit()\nprint('read')\n")
    assert ran.out == PROMPT + PROMPT


def test_help_fails_while_nobody_has_defined_it():
    ran = pipe("help", "print('still here')")
    assert ran.err == FAILED.format(
        "[string \"stdin\"]:1: attempt to call global 'help' (a nil value)"
    )
    assert ran.out == PROMPT + PROMPT + "still here\n" + PROMPT


def test_help_calls_the_function_of_that_name():
    ran = pipe("function help(...) print('help', select('#', ...)) end", "help", "help()")
    assert ran.out == PROMPT + PROMPT + "help\t0\n" + PROMPT + "help\t0\n" + PROMPT
    assert ran.err == ""


@pytest.mark.parametrize("line", [" help", "help ", "HELP", "h", "hel", "helps"])
def test_a_line_that_resembles_help_is_run_as_lua_and_fails(line):
    ran = pipe("function help() print('help') end", line)
    assert ran.err.startswith('failed to process stdin: "[string "stdin"]:')
    assert "help\n" not in ran.out


def test_an_empty_line_only_shows_the_prompt_again():
    ran = pipe("", "")
    assert (ran.out, ran.err) == (3 * PROMPT, "")


def test_a_blank_line_is_an_empty_chunk():
    ran = pipe("  ", "\t", "-- remark")
    assert (ran.out, ran.err) == (4 * PROMPT, "")


def test_what_a_line_prints_stands_after_its_prompt():
    assert pipe("print(1)").out == PROMPT + "1\n" + PROMPT


def test_an_expression_is_no_statement():
    ran = pipe("1+1")
    assert ran.err == FAILED.format("[string \"stdin\"]:1: unexpected symbol near '1'")
    assert ran.out == 2 * PROMPT


def test_a_returned_value_is_not_printed():
    ran = pipe("return 5")
    assert (ran.out, ran.err) == (2 * PROMPT, "")


def test_an_equals_sign_does_not_print_an_expression():
    assert pipe("=5").err == FAILED.format("[string \"stdin\"]:1: unexpected symbol near '='")


def test_a_statement_cannot_continue_on_the_next_line():
    ran = pipe("for i = 1, 2 do", "print(i) end")
    assert ran.err.count('failed to process stdin: "[string "stdin"]:') == 2


def test_globals_survive_a_line_and_locals_do_not():
    ran = pipe("g = 1 local l = 2 print(g, l)", "print(g, l)")
    assert ran.out == PROMPT + "1\t2\n" + PROMPT + "1\tnil\n" + PROMPT


def test_a_line_that_fails_while_running_keeps_what_it_did_and_the_radio():
    ran = pipe("x = 1 error('broken')", "print(x)", "radioReset()")
    assert ran.err == FAILED.format('[string "stdin"]:1: broken')
    assert ran.out == PROMPT + PROMPT + "1\n" + PROMPT + PROMPT
    assert ran.calls == ["radioReset(context1)"]


def test_a_driver_message_is_shown_without_a_position():
    ran = pipe("radioSetTxFrequency(-1)", "radioReset(1)")
    assert ran.err == (
        FAILED.format("number must not be negative")
        + FAILED.format("Error in radioReset expected 0..0 args, got 1")
    )


@pytest.mark.parametrize(
    "value, shown",
    [
        ("{}", "(null)"),
        ("nil", "(null)"),
        ("true", "(null)"),
        ("print", "(null)"),
        ("5", "5"),
        ("2.5", "2.5"),
        ("-1e300 / 3", "-3.3333333333333e+299"),
        ("2^53", "9.007199254741e+15"),
        ("1/0", "inf"),
        ("''", ""),
        ("'100%s %d'", "100%s %d"),
        ("setmetatable({}, {__tostring = function() return 'text' end})", "(null)"),
    ],
)
def test_an_error_value_is_shown_if_it_is_a_text_or_a_number(value, shown):
    assert pipe(f"error({value}, 0)").err == FAILED.format(shown)


def test_showing_a_number_does_not_set_off_finalisers_that_fail():
    ran = pipe(
        "for _ = 1, 9 do getmetatable(newproxy(true)).__gc = function() error('late') end end",
        "collectgarbage('setstepmul', 1e6) collectgarbage('restart') error(5, 0)",
        "print('still here')",
    )
    assert FAILED.format("5") in ran.err
    assert "PANIC" not in ran.err


def test_an_error_value_is_not_dropped():
    ran = pipe(
        "e = {} weak = setmetatable({e}, {__mode = 'v'})",
        "local kept = e; e = nil; error(kept)",
        "collectgarbage() collectgarbage() print(weak[1] ~= nil)",
    )
    assert "true\n" in ran.out


def test_very_many_failing_lines_do_no_harm():
    ran = pipe(*(500 * ["error('broken')"]), "print('still here')")
    assert ran.err == 500 * FAILED.format('[string "stdin"]:1: broken')
    assert ran.out.endswith(PROMPT + "still here\n" + PROMPT)

# SPDX-License-Identifier: LicenseRef-Proprietary
"""The line reader: its bound, zero bytes, the end of input."""

from signal import SIGABRT, SIGINT

import pexpect
import pytest
from shell import PROMPT, assert_aborted, pipe, prompt, run, type_line

BOUND = "sorelapp: app/sorelapp:262: cmdGetLine: Assertion `read - input < inLen' failed."
LONGEST = 198  # characters of a line, its newline not counted


def line_of(length, start="print('long')"):
    """A line of that many characters that runs start."""
    return start + " --" + (length - len(start) - 3) * "x"


def assert_out_of_bounds(ran):
    """Ended by the bound, with nothing closed."""
    assert_aborted(ran, BOUND)
    assert not [line for line in ran.log if line.startswith("radioClose")]


def test_a_line_of_198_characters_is_run():
    assert len(line_of(LONGEST)) == 198
    ran = pipe(line_of(LONGEST))
    assert (ran.out, ran.err) == (PROMPT + "long\n" + PROMPT, "")


def test_a_line_of_199_characters_aborts():
    ran = run(stdin=line_of(199, "radioReset()") + "\nexit\n")
    assert_out_of_bounds(ran)
    assert ran.log == ["radioOpen() = context1"]


@pytest.mark.parametrize("length", [200, 201, 5000])
def test_a_longer_line_aborts(length):
    assert_out_of_bounds(run(stdin=line_of(length) + "\nexit\n"))


def test_every_line_has_the_whole_buffer():
    ran = pipe(line_of(LONGEST), line_of(LONGEST), line_of(LONGEST))
    assert ran.out == 3 * (PROMPT + "long\n") + PROMPT


@pytest.mark.parametrize("text", ["", "radioReset()\n", "\n"])
def test_the_end_of_input_aborts(text):
    ran = run(stdin=text)
    assert_out_of_bounds(ran)
    assert ran.log[1:] == (["radioReset(context1)"] if "radio" in text else [])


@pytest.mark.parametrize("text", ["radioReset()", "radioSetRxGain(1)\nradioReset()"])
def test_a_last_line_without_newline_never_runs(text):
    ran = run(stdin=text)
    assert_out_of_bounds(ran)
    assert "radioReset(context1)" not in ran.log


@pytest.mark.parametrize("word", ["exit", "quit"])
def test_an_exit_word_without_newline_aborts_at_the_end_of_input(word):
    assert_out_of_bounds(run(stdin=word))


def test_the_abort_loses_what_was_printed_into_a_pipe():
    ran = run(stdin="print('lost')\n")
    assert_out_of_bounds(ran)
    assert ran.out == ""


def test_what_a_script_flushed_before_the_abort_is_seen():
    ran = run(stdin="io.write('kept') io.flush()\n")
    assert_out_of_bounds(ran)
    assert ran.out == PROMPT + "kept"


def test_a_zero_byte_ends_a_line_and_the_rest_is_the_next():
    ran = pipe("print(1)\0print(2)")
    assert (ran.out, ran.err) == (PROMPT + "1\n" + PROMPT + "2\n" + PROMPT, "")


def test_a_zero_byte_alone_is_an_empty_chunk():
    ran = pipe("\0\0")
    assert (ran.out, ran.err) == (4 * PROMPT, "")


@pytest.mark.parametrize("word", ["exit", "help"])
def test_a_word_ended_by_a_zero_byte_is_run_as_lua(word):
    ran = pipe("function help() print('called') end", word + "\0")
    assert ran.err.startswith('failed to process stdin: "[string "stdin"]:1: ')
    assert "called" not in ran.out


def test_a_zero_byte_may_stand_in_the_last_place_of_the_buffer():
    ran = pipe(line_of(199) + "\0")
    assert ran.out == PROMPT + "long\n" + 2 * PROMPT


def test_other_bytes_are_taken_as_they_are():
    ran = pipe("print('\xe9\xff\x01\x7f\t')")
    assert ran.out == PROMPT + "\xe9\xff\x01\x7f\t\n" + PROMPT


def test_a_byte_255_is_not_the_end_of_input():
    ran = pipe("\xff", "print('still here')")
    assert ran.err.startswith('failed to process stdin: "[string "stdin"]:1: ')
    assert "still here\n" in ran.out


def test_a_carriage_return_is_part_of_an_exit_word():
    assert pipe("exit\r").err.startswith('failed to process stdin: "[string "stdin"]:')


def test_control_d_at_the_prompt_aborts():
    terminal = prompt()
    assert type_line(terminal, "print('seen')") == ["seen"]
    terminal.sendeof()
    terminal.expect_exact(BOUND)
    terminal.expect(pexpect.EOF)
    terminal.close()
    assert terminal.signalstatus == SIGABRT


@pytest.mark.parametrize("word", ["exit", "quit", "exit()", "quit()"])
def test_an_exit_word_on_a_terminal_ends_with_status_0(word):
    terminal = prompt()
    terminal.sendline(word)
    terminal.expect(pexpect.EOF)
    terminal.close()
    assert (terminal.before, terminal.exitstatus) == ("", 0)


@pytest.mark.parametrize("line", [None, "io.write('running') io.flush() while true do end"])
def test_ctrl_c_ends_the_shell_by_its_signal_and_leaves_the_radio_open(line, tmp_path):
    log = tmp_path / "log"
    terminal = prompt(RECORDING_DRIVER_LOG=str(log))
    if line:
        terminal.sendline(line)
        terminal.expect_exact("running")
    terminal.sendintr()
    terminal.expect(pexpect.EOF)
    terminal.close()
    assert (terminal.exitstatus, terminal.signalstatus) == (None, SIGINT)
    assert log.read_text() == "radioOpen() = context1\n"

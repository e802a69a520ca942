# SPDX-License-Identifier: LicenseRef-Proprietary
"""Standard input and output, which the prompt shares with what its lines run, buffers and all."""

import subprocess

import pytest
from shell import COMMAND, PROMPT, RECORDING, SECONDS, environment, pipe, prompt, run, type_line

FIRST = 'failed to process stdin: "first"\n'
SECOND = 'failed to process stdin: "second"\n'


def merged(script, *lines):
    """What arrives on a pipe that is standard output and standard error at once: what waits in the
    buffer of standard output comes after error lines that are younger."""
    done = subprocess.run(
        [*COMMAND, "-b", script, "-i"],
        input="".join(line + "\n" for line in lines),
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        env=environment(RECORDING, {}),
        timeout=SECONDS,
        check=True,
        text=True,
    )
    return done.stdout


@pytest.mark.parametrize(
    "setting, expected",
    [
        ("", FIRST + SECOND + 2 * PROMPT + "1\n" + 2 * PROMPT),
        ("io.stdout:setvbuf('full')", FIRST + SECOND + 2 * PROMPT + "1\n" + 2 * PROMPT),
        ("io.stdout:setvbuf('line')", FIRST + 2 * PROMPT + "1\n" + SECOND + 2 * PROMPT),
        ("io.stdout:setvbuf('no')", PROMPT + FIRST + PROMPT + "1\n" + PROMPT + SECOND + PROMPT),
    ],
)
def test_the_prompt_waits_in_the_buffer_that_scripts_print_into(setting, expected, tmp_path):
    script = tmp_path / "setting.lua"
    script.write_text(setting)
    assert merged(script, "error('first', 0)", "print(1)", "error('second', 0)", "exit") == expected


def test_a_prompt_that_the_buffer_has_no_room_for_is_neither_lost_nor_doubled():
    ran = pipe("io.stdout:setvbuf('full', 16)", *(20 * ["io.write('x')"]))
    assert ran.out == PROMPT + 20 * (PROMPT + "x") + PROMPT


def test_on_a_terminal_each_prompt_is_shown_before_a_line_is_typed():
    terminal = prompt()
    assert type_line(terminal, "io.write('no newline ')") == ["no newline "]
    assert type_line(terminal, "") == []


def test_on_a_terminal_the_prompt_is_held_back_if_a_script_has_output_held_back():
    terminal = prompt()
    terminal.sendline("io.stdout:setvbuf('full')")
    terminal.sendline("error('first', 0)")
    terminal.expect_exact(FIRST.replace("\n", "\r\n"))
    assert terminal.before == ""
    terminal.sendline("io.write('flushed') io.flush()")
    terminal.expect_exact("flushed")
    assert terminal.before == 2 * PROMPT


def test_a_line_may_read_the_lines_after_it():
    ran = pipe("print(io.read())", "taken", "print(io.read(3))", "newprint('rest')")
    assert ran.out == PROMPT + "taken\n" + PROMPT + "new\n" + PROMPT + "rest\n" + PROMPT


def test_a_line_may_read_what_is_behind_the_zero_byte_that_ended_it():
    ran = pipe("print(io.read())\0taken", "print('rest')")
    assert ran.out == PROMPT + "taken\n" + PROMPT + "rest\n" + PROMPT


def test_a_line_may_read_all_that_follows():
    ran = run(stdin="io.write(io.read('*a')) os.exit(0)\nfirst\nexit\nno newline")
    assert (ran.out, ran.status) == (PROMPT + "first\nexit\nno newline", 0)


def test_a_line_typed_to_a_script_is_not_run():
    terminal = prompt()
    terminal.sendline("print(io.read())")
    assert type_line(terminal, "print('run')") == ["print('run')"]


def test_without_a_buffer_nothing_is_read_ahead(tmp_path):
    script = tmp_path / "unbuffered.lua"
    script.write_text("io.stdin:setvbuf('no')")
    ran = pipe("os.execute('read line; echo \"child: $line\"')", "taken", "print('rest')",
               arguments=("-b", str(script), "-i"))
    assert ran.out == "child: taken\n" + 2 * PROMPT + "rest\n" + PROMPT


def test_what_was_pushed_back_is_read_as_part_of_the_next_line():
    ran = pipe("print(io.read('*n'))", "42print('rest')")
    assert ran.out == PROMPT + "42\n" + PROMPT + "rest\n" + PROMPT

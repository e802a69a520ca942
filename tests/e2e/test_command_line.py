# SPDX-License-Identifier: LicenseRef-Proprietary
"""Which options are taken, in which order, and what runs then."""

import pytest
from options import options
from shell import PROMPT, VERSION, preloading, run

USAGE_STATUS = 64
COMMAND = "print('command')"


@pytest.fixture(name="files")
def script_files(tmp_path):
    """Two batch files, which print their names: F and G."""
    for name in ("F", "G"):
        (tmp_path / name).write_text(f"print('{name}')\n")
    return tmp_path


def place(arguments, files):
    """The arguments with the script files' paths for F and G, and a command for X and Y."""
    words = {"F": str(files / "F"), "G": str(files / "G"), "X": "print('X')", "Y": "print('Y')"}
    return [words.get(argument, argument) for argument in arguments.split()]


@pytest.mark.parametrize(
    "arguments, printed",
    [
        ("", PROMPT),
        ("-i", PROMPT),
        ("--interactive", PROMPT),
        ("-i -i", PROMPT),
        ("-c X", "X\n"),
        ("--command X", "X\n"),
        ("-i -c X", "X\n"),
        ("-c X -c Y", "Y\n"),
        ("-c X -i -c Y", "Y\n"),
        ("-b F", "F\n"),
        ("--batch F", "F\n"),
        ("-i -b F", "F\n"),
        ("-b F -b G", "G\n"),
        ("-b F -i", "F\n" + PROMPT),
        ("-b F -i -i", "F\n" + PROMPT),
        ("-b F -i -b G", "G\n"),
    ],
)
def test_the_last_options_decide_what_runs(arguments, printed, files):
    ran = run(*place(arguments, files), stdin="exit\n")
    assert (ran.out, ran.err, ran.status) == (printed, "", 0)


@pytest.mark.parametrize(
    "arguments",
    [
        "-c X -i",
        "-b F -c X",
        "-c X -b F",
        "-b F -c X -i",
        "-i -b F -c X",
        "-i -c X -i",
        "-v -c X -i",
        "-v -b F -c X",
    ],
)
def test_contradicting_options_are_answered_with_the_usage(arguments, files):
    ran = run(*place(arguments, files), stdin="exit\n")
    assert (ran.out, ran.status, ran.log) == ("", USAGE_STATUS, [])
    assert ran.err.startswith("Usage: sorelapp [OPTION...]\n")


@pytest.mark.parametrize(
    "arguments",
    ["foo", "-i foo", "-b F foo", "-c X foo", "-v foo", "-- foo", "-c", "-b", "-x", "--nonsense"],
)
def test_what_is_no_option_is_rejected_before_anything_is_opened(arguments, files):
    ran = run(*place(arguments, files), stdin="exit\n")
    assert (ran.out, ran.status, ran.log) == ("", USAGE_STATUS, [])
    assert "sorelapp --help" in ran.err


def test_an_argument_that_the_parser_has_taken_is_answered_with_the_usage():
    """The C library's never takes one: it is told before that there is none."""
    ran = run("-v", "-i", **preloading("counted_argument.so"))
    assert (ran.out, ran.status, ran.log) == ("", USAGE_STATUS, [])
    assert ran.err.startswith("Usage: sorelapp [OPTION...]\n")


@pytest.mark.parametrize("arguments", [["-c" + COMMAND], ["--command=" + COMMAND]])
def test_a_command_may_be_joined_to_its_option(arguments):
    assert run(*arguments).out == "command\n"


def test_a_batch_file_may_be_joined_to_its_option(files):
    assert run(f"-b{files / 'F'}").out == "F\n"
    assert run(f"--batch={files / 'F'}").out == "F\n"


def test_letters_of_several_options_may_be_joined(files):
    assert run("-ib", str(files / "F")).out == "F\n"
    assert run("-ic" + COMMAND).out == "command\n"


def test_a_long_option_may_be_cut_to_its_first_letter(files):
    values = {"FILE": [str(files / "F")], "COMMAND": [COMMAND], None: []}
    long = {option: taken for option, taken in options().items() if option.startswith("--")}
    assert len(long) == 6
    for option, taken in long.items():
        whole, cut = (run(word, *values[taken], stdin="exit\n") for word in (option, option[:3]))
        assert (cut.out, cut.err, cut.status) == (whole.out, "", 0), option


@pytest.mark.parametrize("option", ["-V", "-?", "--help", "--usage"])
def test_what_follows_an_option_that_answers_at_once_is_not_looked_at(option):
    ran = run(option, "-x", "foo", "-b")
    assert (ran.out, ran.err, ran.status) == (run(option).out, "", 0)


def test_a_batch_file_gets_no_arguments(files):
    (files / "F").write_text("print(arg, select('#', ...))")
    assert run("-b", "F", cwd=files).out == "nil\t0\n"


def test_a_dash_is_a_file_and_standard_input_has_a_path(files):
    assert run("-b", "-", cwd=files, stdin="print('read')").status == 1
    (files / "F").rename(files / "-")
    assert run("-b", "-", cwd=files, stdin="print('read')").out == "F\n"
    assert run("-b", "/dev/stdin", stdin="print('read')").out == "read\n"


def test_an_empty_command_runs_and_no_prompt_is_shown():
    ran = run("-c", "", stdin="print('read')\nexit\n")
    assert (ran.out, ran.err, ran.status) == ("", "", 0)


def test_capital_v_prints_the_name_and_version_only():
    ran = run("-V")
    assert (ran.out, ran.err, ran.status, ran.log) == (f"libsorel {VERSION}\n", "", 0, [])


def test_help_tells_of_every_option_and_opens_nothing():
    ran = run("--help")
    assert (ran.err, ran.status, ran.log) == ("", 0, [])
    lines = [" ".join(line.split()) for line in ran.out.splitlines()]
    assert lines[0] == "Usage: sorelapp [OPTION...]"
    assert lines[1] == "sorelapp -- Lua wrapper for libsorel"
    assert [line for line in lines if line.startswith("-")] == [
        "-b, --batch=FILE Process a script file",
        "-c, --command=COMMAND Run a single command",
        "-i, --interactive Run in interactive mode",
        "-?, --help Give this help list",
        "--usage Give a short usage message",
        "-v, --version Print program version and license",
        "-V, --version Print program version",
    ]


def test_help_ends_with_an_address_for_bug_reports():
    last = run("--help").out.splitlines()[-1]
    assert last.startswith("Report bugs to ") and "@" in last


def test_usage_is_short_and_opens_nothing():
    ran = run("--usage")
    assert (ran.err, ran.status, ran.log) == ("", 0, [])
    assert ran.out.startswith("Usage: sorelapp [")

# SPDX-License-Identifier: LicenseRef-Proprietary
"""What TAB makes of a command line, in bash on a terminal. The completion is the installed one, which
the package bash-completion loads by the name of the command."""

import os
import re

import pytest
from installation import install
from options import options
from sessions import BASH_PROMPT, bash
from shell import run

SETTINGS = r"""
bind 'set show-all-if-ambiguous on' 'set completion-query-items 0'
bind 'set page-completions off' 'set completion-display-width 0'
bind -x '"\C-xs": echo "[line:$READLINE_LINE]"; READLINE_LINE='
. /usr/share/bash-completion/bash_completion
"""
SHOW = "\x18s"  # the keys that show the line and empty it

FILES = ["bring-up.lua", "first file.lua", "first:file.lua", "notes", "readings.txt",
         "scripts/check.lua", "scripts/data.csv", "empty folder/"]
SCRIPTS = ["bring-up.lua", "empty folder/", "first file.lua", "first:file.lua", "scripts/"]

ALL = [option + ("=" if option.startswith("--") and taken else "")
       for option, taken in options().items()]
LONG = [option for option in ALL if option.startswith("--")]
INPUT = ["-b", "--batch=", "-c", "--command="]
PROMPT = ["-i", "--interactive"]
ANSWERS = set(ALL) - set(INPUT) - set(PROMPT)  # those that print something and leave


@pytest.fixture(name="terminal", scope="module")
def terminal_with_completion(tmp_path_factory):
    """A bash among the FILES."""
    shared = install(tmp_path_factory.mktemp("prefix"), "--component", "sorelapp")
    folder = tmp_path_factory.mktemp("files")
    for file in FILES:
        (folder / file).parent.mkdir(exist_ok=True)
        if file.endswith("/"):
            (folder / file).mkdir()
        else:
            (folder / file).touch()
    settings = shared / "settings"
    settings.write_text(SETTINGS)
    terminal = bash(folder, {
        "PATH": os.environ["PATH"],
        "HOME": str(shared),
        "LC_ALL": "C.UTF-8",
        "XDG_DATA_DIRS": f"{shared}:/usr/share",
        "BASH_COMPLETION_COMPAT_DIR": "/nonexistent",
    })
    terminal.delaybeforesend = None
    terminal.expect_exact(BASH_PROMPT)
    terminal.sendline(f". '{settings}'")
    terminal.expect_exact("\n" + BASH_PROMPT)
    return terminal


def press_tab(terminal, typed):
    """Types the start of a line and TAB. Returns what the line is then, and what is offered."""
    terminal.send(typed + "\t" + SHOW)
    terminal.expect(r"\[line:(.*)\]\s+" + re.escape(BASH_PROMPT))
    below = (row.strip() for row in terminal.before.split("\r\n")[1:])
    return (terminal.match[1],
            [row for row in below if row and not row.startswith(BASH_PROMPT)])


@pytest.mark.parametrize(
    "typed, completed",
    [
        ("--b", "--batch="),
        ("--com", "--command="),
        ("--i", "--interactive "),
        ("--vers", "--version "),
        ("-?", "-? "),
        ("-b br", "-b bring-up.lua "),
        ("-b ./br", "-b ./bring-up.lua "),
        ("--batch br", "--batch bring-up.lua "),
        ("--batch=br", "--batch=bring-up.lua "),
        ("--ba=br", "--ba=bring-up.lua "),
        ("-ib br", "-ib bring-up.lua "),
        ("-i -b br", "-i -b bring-up.lua "),
        ("-i --batch=br", "-i --batch=bring-up.lua "),
        (r"-b first\ ", r"-b first\ file.lua "),
        ('-b "first ', '-b "first file.lua" '),
        (r"--batch=first\ ", r"--batch=first\ file.lua "),
        ('--batch="first ', '--batch="first file.lua" '),
        ("-b first:", "-b first:file.lua "),
        (r"-b first\:", r"-b first\:file.lua "),
        ("-b scr", "-b scripts/"),
        ("-b emp", r"-b empty\ folder/"),
        ("-b scripts/", "-b scripts/check.lua "),
        # No script begins so, nor a folder.
        ("-b no", "-b notes "),
        ("-b scripts/d", "-b scripts/data.csv "),
        ("--batch=rea", "--batch=readings.txt "),
    ],
)
def test_what_can_only_be_one_is_completed(typed, completed, terminal):
    assert press_tab(terminal, "sorelapp " + typed) == ("sorelapp " + completed, [])


@pytest.mark.parametrize(
    "typed, begun, offered",
    [
        ("", "-", ALL),
        ("-", "-", ALL),
        ("--", "--", LONG),
        ("-b ", "-b ", SCRIPTS),
        ("--batch=", "--batch=", SCRIPTS),
        ("-b fi", "-b first", ["first file.lua", "first:file.lua"]),
        ("-i ", "-i -", INPUT),
        ("--interactive ", "--interactive -", INPUT),
        ("-b bring-up.lua ", "-b bring-up.lua -", PROMPT),
        ("-bbring-up.lua ", "-bbring-up.lua -", PROMPT),
        ("-b first:file.lua ", "-b first:file.lua -", PROMPT),
        ("--batch=bring-up.lua ", "--batch=bring-up.lua -", PROMPT),
        ("--batch 'first file.lua' ", "--batch 'first file.lua' -", PROMPT),
        ("-ibbring-up.lua ", "-ibbring-up.lua -", PROMPT),
        ("-i -b bring-up.lua ", "-i -b bring-up.lua -", PROMPT),
    ],
)
def test_what_can_be_several_is_offered(typed, begun, offered, terminal):
    line, offers = press_tab(terminal, "sorelapp " + typed)
    assert (line, sorted(offers)) == ("sorelapp " + begun, sorted(offered))


@pytest.mark.parametrize(
    "typed",
    [
        "br",
        "--nonsense",
        "-b none",
        "-c ",
        "-c br",
        "--command ",
        "--command br",
        "--command=",
        "--command=br",
        "-i br",
        "-i --i",
        "-c 'print(1)' ",
        "-c 'print(1)' -",
        "--command='print(1)' -",
        "-i -c x -",
        "-b bring-up.lua br",
        "-b bring-up.lua --c",
        "-b bring-up.lua --command=br",
        "-b bring-up.lua --batch=br",
        "-b bring-up.lua -i ",
        "-c x --batch=br",
        "-- ",
        *(f"{option} " for option in sorted(ANSWERS)),
        "-v -b ",
        "-c x -b ",
    ],
)
def test_where_nothing_makes_sense_nothing_is_offered(typed, terminal):
    assert press_tab(terminal, "sorelapp " + typed) == ("sorelapp " + typed, [])


def test_the_program_may_be_called_by_its_path(terminal):
    assert press_tab(terminal, "build/release/app/sorelapp --i")[0].endswith(" --interactive ")


@pytest.mark.parametrize("script", ["sorelapp-edit", "sorelapp-guard"])
def test_the_scripts_that_run_the_shell_take_its_options(script, terminal):
    assert press_tab(terminal, script + " -b br")[0] == script + " -b bring-up.lua "


@pytest.mark.parametrize("words", ["", "-i", "-b FILE", "-i -b FILE", "-c COMMAND", "-v"])
def test_what_is_offered_is_accepted_and_what_is_not_is_refused_or_changes_nothing(
        words, terminal, tmp_path):
    script = tmp_path / "script"
    script.write_text("print('script')")

    def ran_with(option=""):
        taken = {"-b": "FILE", "-c": "COMMAND", "--batch=": "FILE", "--command=": "COMMAND"}
        line = f"{words} {option}{'' if option.endswith('=') else ' '}{taken.get(option, '')}"
        values = {"FILE": str(script), "COMMAND": "print('command')"}
        return run(*(re.sub(r"\b(FILE|COMMAND)$", lambda name: values[name[0]], word)
                     for word in line.split()), stdin="exit\n")

    _, offers = press_tab(terminal, f"sorelapp {words} -")
    for option in ALL:
        ran = ran_with(option)
        if option in offers:
            assert (ran.status, ran.err) == (0, ""), option
        elif option not in ANSWERS:
            assert ran.status == 64 or ran.out == ran_with().out, option

# SPDX-License-Identifier: LicenseRef-Proprietary
"""Sessions as documents show them: what a person types after the prompts of bash and of the shell,
and what the terminal shows then."""

import io
import re
import shlex
import textwrap

import pexpect
from shell import COMMAND, PROMPT, SECONDS, SIMULATION, SOURCE, environment

BASH_PROMPT = "$ "
TYPED = re.compile(rf"^({re.escape(BASH_PROMPT)}|{re.escape(PROMPT)})(.*)$", re.MULTILINE)


def sessions_of(document):
    """The sessions that a document of Markdown shows, given by its path in the source tree. Each
    begins at a prompt of bash; empty lines belong to it as long as indented lines follow."""
    sessions = []
    inside = False
    for block in (SOURCE / document).read_text().split("\n\n"):
        begins = block.startswith("    " + BASH_PROMPT)
        inside = begins or (inside and block.startswith("    "))
        if begins:
            sessions.append(block)
        elif inside:
            sessions[-1] += "\n\n" + block
    return [textwrap.dedent(session).rstrip("\n") for session in sessions]


def bash(folder, variables):
    """Starts a bash on a terminal that is too wide to break a line. It reads no settings of the
    person who runs the test."""
    return pexpect.spawn(
        "bash",
        ["--norc", "--noprofile"],
        cwd=folder,
        env=variables | {"PS1": BASH_PROMPT, "TERM": "dumb", "INPUTRC": "/dev/null"},
        encoding="utf-8",
        dimensions=(24, 1000),
        timeout=SECONDS,
    )


def make_program(file, *lines):
    """A program that runs these lines of sh, then the shell with the arguments that remain."""
    file.write_text("\n".join(["#!/bin/sh", *lines, f'exec {shlex.join(COMMAND)} "$@"', ""]))
    file.chmod(0o755)


def bash_with_shell(folder):
    """A bash that stands in the folder, where `sorelapp` and `./dev run` start the shell on the
    simulated board."""
    make_program(folder / "sorelapp")
    make_program(folder / "dev", "shift", f"export LUA_PATH={shlex.quote(f'{SOURCE}/lua/?.lua;;')}")
    variables = environment(SIMULATION, {})
    return bash(folder, variables | {"PATH": f"{folder}:{variables['PATH']}"})


def replay(session, folder):
    """Types what a session shows as typed into a bash_with_shell(). Returns what the terminal then
    shows, which is to be the session again."""
    terminal = bash_with_shell(folder)
    terminal.logfile_read = shown = io.StringIO()
    for prompt, line in TYPED.findall(session):
        terminal.expect("(^|\n)" + re.escape(prompt))
        terminal.sendline(line)
    terminal.expect_exact("\n" + BASH_PROMPT)
    return shown.getvalue().replace("\r\n", "\n").removesuffix(BASH_PROMPT)

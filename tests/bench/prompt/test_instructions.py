# SPDX-License-Identifier: LicenseRef-Proprietary
"""The instructions of a line at the prompt, beside those in the least that runs lines as Lua.

Environment: TREE, the description of the build tree
"""

import json
import os
import subprocess
from pathlib import Path

import pytest
from instructions import ENVIRONMENT
from lines import LEAVE, good_lines, instructions_of, shell
from sections.prompt import COUNTED, counted, instructions_per_line

TREE = json.loads(Path(os.environ["TREE"]).read_text(encoding="utf-8"))
LINES = good_lines(2 * COUNTED)
PROMPT = "sorelapp> "
LIMIT = 1.025  # 1.014 with GCC 12 and Lua 5.1.5; 1.033 with a prompt that is formatted


@pytest.fixture(scope="module", name="figures")
def count():
    return counted(TREE, LINES)


def run(command, lines, **variables):
    return subprocess.run(command, input="".join(lines), env=ENVIRONMENT | variables,
                          capture_output=True, text=True, check=True)


def test_a_line_costs_hardly_more_than_in_the_minimal_loop(figures):
    ours, others = figures
    assert ours / others <= LIMIT


def test_a_dearer_line_would_be_seen(figures, tmp_path):
    script = tmp_path / "hook.lua"
    script.write_text("debug.sethook(function() end, 'l')")
    command, variables = shell(TREE)
    dearer = instructions_per_line([*command, "-b", script, "-i"], LEAVE, LINES, **variables)
    assert dearer / figures[1] > LIMIT


def test_the_same_lines_are_counted_alike_again():
    command, variables = shell(TREE)
    first, second = (instructions_of(command, [*LINES[:100], LEAVE], **variables)
                     for _ in range(2))
    assert first == second


def test_both_run_the_same_lines_and_none_fails():
    command, variables = shell(TREE)
    ours = run(command, [*LINES, LEAVE], **variables)
    others = run([TREE["minimal_loop"]], LINES)
    assert ours.stdout.replace(PROMPT, "") == others.stdout
    assert ours.stdout.count(PROMPT) == len(LINES) + 1
    assert ours.stderr == others.stderr == ""


def test_the_minimal_loop_ends_at_a_line_that_fails():
    with pytest.raises(subprocess.CalledProcessError):
        run([TREE["minimal_loop"]], ["error('broken')\n", "x = 1\n"])

# SPDX-License-Identifier: LicenseRef-Proprietary
"""How many instructions a start takes, beside the interpreter's.

Environment: TREE, the description of the build tree
"""

import json
import os
from pathlib import Path

import pytest
from instructions import of_program
from sections.start import GOALS, TRIVIAL
from starting import installed, interpreter, shell, standing_on

TREE = json.loads(Path(os.environ["TREE"]).read_text(encoding="utf-8"))
GOAL = GOALS[TRIVIAL, "instructions"]

# What the shell does at its start, once more.
ANOTHER_COPY = "for k,v in pairs(radio) do _G[k] = v end"


@pytest.fixture(name="ratio")
def ratio_of_a_text(tmp_path, monkeypatch):
    """The instructions of the shell running a text, to those of the interpreter that runs none."""
    monkeypatch.chdir(tmp_path)
    program = standing_on(TREE["trivial_driver"], installed(TREE, tmp_path), tmp_path, "t")
    others = of_program(interpreter(TREE))
    return lambda text: of_program(shell(program, text)) / others


def test_a_start_keeps_to_its_goal(ratio):
    assert 0.5 < ratio("") <= GOAL


def test_a_slower_start_would_be_seen(ratio):
    assert ratio(ANOTHER_COPY) > GOAL


def test_the_same_start_takes_the_same_number(ratio):
    assert ratio("") == pytest.approx(ratio(""), rel=0.001)

# SPDX-License-Identifier: LicenseRef-Proprietary
"""What bench/size says of figures and goals, and its status.

Environment: TREE, the description of the build tree
"""

import json
import os
import subprocess
import sys
from dataclasses import replace
from pathlib import Path

import figures
import pytest
from figures import Figures, Memory, described
from goals import missed

PROGRAM = Path(figures.__file__).parent
GOOD = Figures(
    executable=102_399,
    simulated_board=2_000_000,
    needed=["libsorel.so.1", "libc.so.6"],
    loaded=["ld-linux-armhf.so.3", "libc.so.6", "libdl.so.2", "libm.so.6", "libsorel.so.1"],
    shell=Memory(1150, 200),
    shell_on_board=Memory(2000, 300),
    interpreter=Memory(1000, 200),
    interpreter_prompt=Memory(1500, 300),
)


@pytest.fixture(name="tree")
def a_copy_of_the_description():
    return described(os.environ["TREE"])


def size(tree, folder, *arguments):
    description = folder / "tree.json"
    description.write_text(json.dumps(tree))
    return subprocess.run(
        [sys.executable, PROGRAM, "--times", "1", *arguments, f"here={description}"],
        capture_output=True, text=True, check=False,
    )


def test_figures_at_their_limits_miss_no_goal():
    assert not list(missed("here", GOOD))


@pytest.mark.parametrize("change, words", [
    ({"executable": 102_400}, "the stripped executable has 102,400 bytes"),
    ({"needed": ["libstdc++.so.6"]}, "the shell needs libstdc++.so.6"),
    ({"loaded": ["libgcc_s.so.1"]}, "the shell loads libgcc_s.so.1"),
    ({"loaded": ["liblua5.1-c++.so.0.0.0"]}, "the shell loads liblua5.1-c++.so.0.0.0"),
    ({"shell": Memory(1151, 200)}, "the shell has 1.151 times the resident memory"),
])
def test_a_missed_goal_is_named(change, words):
    (miss,) = missed("here", replace(GOOD, **change))
    assert miss.startswith(f"here: {words}")


def test_the_stock_interpreter_in_the_shells_place_misses_every_goal_with_status_1(tree, tmp_path):
    ran = size(tree | {"executable": tree["interpreter"]}, tmp_path)
    assert ran.returncode == 1
    for words in ("the stripped executable has ", "the shell needs libreadline.so",
                  "the shell loads libtinfo.so", "the shell has 1."):
        assert f"size: goal missed: here: {words}" in ran.stderr
    assert "libreadline.so" in ran.stdout


def test_a_program_that_does_not_come_to_its_prompt_is_named_with_status_2(tree, tmp_path):
    ran = size(tree | {"executable": "/no/program"}, tmp_path)
    assert (ran.stdout, ran.returncode) == ("", 2)
    assert ran.stderr.startswith("size: no prompt from ")
    assert "/no/program" in ran.stderr


def test_the_figures_are_written_down_for_a_record(tree, tmp_path):
    record = tmp_path / "record.json"
    ran = size(tree, tmp_path, "--json", record)
    here = json.loads(record.read_text())["here"]
    assert here["shell"]["resident"] > here["shell"]["own"] > 0
    assert f"{here['executable']:,} B" in ran.stdout

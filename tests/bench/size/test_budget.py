# SPDX-License-Identifier: LicenseRef-Proprietary
"""The goals of bench/size, on the executable of this tree.

Environment: TREE, the description of the build tree
"""

import os

from figures import described, loaded_libraries, measured, others, programs
from goals import missed
from waiting import measure

TREE = described(os.environ["TREE"])


def loaded(program):
    command, driver = programs(TREE)[program]
    return loaded_libraries(measure(command, TREE["emulator"], LD_LIBRARY_PATH=str(driver)))


def test_no_goal_is_missed():
    figures = measured(TREE, times=3)
    assert "libsorel.so.1" in figures.needed
    assert {"libsorel.so.1", "libm.so.6"} < set(figures.loaded)
    assert not list(missed("this tree", figures))


def test_the_simulated_board_loads_no_other_library_either():
    libraries = loaded("shell_on_board")
    assert "libsorel.so.1" in libraries
    assert not others(libraries)


def test_another_library_would_be_seen():
    assert [name.partition(".")[0] for name in others(loaded("interpreter_prompt"))] == [
        "libreadline", "libtinfo",
    ]

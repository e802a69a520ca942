# SPDX-License-Identifier: LicenseRef-Proprietary
"""A test that passes though what it runs is at fault: test_checkers.py has it run watched. FAULT is
Lua text with a mistake for the checker."""

import os

from shell import run


def test_of_a_script_that_fails():
    assert run("-c", os.environ["FAULT"] + " error('as expected')").status != 0

# SPDX-License-Identifier: LicenseRef-Proprietary
"""The driver on which the shell by itself is measured.

Environment: that of the end-to-end tests (../e2e/shell.py), and
    TRIVIAL_DRIVER_DIR    folder of the trivial driver's libsorel.so.1
"""

import os

from catalogue import FLOAT, FUNCTIONS, INT32, NAMES, STRING, UNSIGNED, call
from shell import lua

NUMBERS, MISSING = (FLOAT, INT32, UNSIGNED), (STRING, NAMES)


def test_every_call_succeeds_and_every_reading_is_zero_or_missing():
    text = "\n".join(f"print({call(function)})" for function in FUNCTIONS)
    ran = lua(text, driver=os.environ["TRIVIAL_DRIVER_DIR"])
    expected = ["0" if function.result in NUMBERS else "nil" if function.result in MISSING else ""
                for function in FUNCTIONS]
    assert ran.out.splitlines() == expected

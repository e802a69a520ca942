# SPDX-License-Identifier: LicenseRef-Proprietary
"""The options as the program itself lists them."""

import re

from shell import run


def options():
    """What `--help` lists: each option, short or long, with the name of what it takes, or None."""
    rows = re.findall(r"^ +(?:(-\S), )?(--\w+)(?:=(\w+))? ", run("--help").out, re.MULTILINE)
    return {
        option: taken or None
        for short, long, taken in rows
        for option in (short, long)
        if option
    }

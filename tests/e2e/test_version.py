# SPDX-License-Identifier: LicenseRef-Proprietary
"""The version and licence block."""

import re

import pytest
from shell import VERSION, run

RULE = "    " + 79 * "="

# Line number -> the line. Lines 1 and 7 to 9 name versions too and are looked at by themselves.
FIXED = {
    2: "Proprietary and Confidential Information.",
    3: "This library is not to be copied or distributed without the express permission of its maker.",
    4: "sorelapp is linked to Lua, BitOp, and LuaSocket. These open source packages are",
    5: "licensed under MIT:",
    6: RULE,
    10: "    ",
    11: "    Permission is hereby granted, free of charge, to any person obtaining a copy",
    12: '    of this software and associated documentation files (the "Software"), to deal',
    13: "    in the Software without restriction, including without limitation the rights",
    14: "    to use, copy, modify, merge, publish, distribute, sublicense, and/or sell",
    15: "    copies of the Software, and to permit persons to whom the Software is",
    16: "    furnished to do so, subject to the following conditions:",
    17: "    ",
    18: "    The above copyright notice and this permission notice shall be included in",
    19: "    all copies or substantial portions of the Software.",
    20: "    ",
    21: '    THE SOFTWARE IS PROVIDED "AS IS", WITHOUT WARRANTY OF ANY KIND, EXPRESS OR',
    22: "    IMPLIED, INCLUDING BUT NOT LIMITED TO THE WARRANTIES OF MERCHANTABILITY,",
    23: "    FITNESS FOR A PARTICULAR PURPOSE AND NONINFRINGEMENT.  IN NO EVENT SHALL THE",
    24: "    AUTHORS OR COPYRIGHT HOLDERS BE LIABLE FOR ANY CLAIM, DAMAGES OR OTHER",
    25: "    LIABILITY, WHETHER IN AN ACTION OF CONTRACT, TORT OR OTHERWISE, ARISING FROM,",
    26: "    OUT OF OR IN CONNECTION WITH THE SOFTWARE OR THE USE OR OTHER DEALINGS IN",
    27: "    THE SOFTWARE.",
    28: RULE,
}


def version_block(*arguments, **more):
    ran = run(*(arguments or ("-v",)), **more)
    assert (ran.err, ran.status) == ("", 0)
    assert ran.out.endswith("\n")
    return ran.out[:-1].split("\n")


def test_the_block_has_28_lines():
    assert len(version_block()) == 28


@pytest.mark.parametrize("number", FIXED)
def test_a_line_of_the_block(number):
    assert version_block()[number - 1] == FIXED[number]


def test_the_first_line_names_library_version_platform_and_copyright():
    first = version_block(answers='radioGetPlatformName "Some (board)"')[0]
    assert first == f"libsorel v{VERSION} (Some (board)) Copyright (C) 2026 the makers of sorelapp"


# Versions are those of the packages that the shell was built with.
@pytest.mark.parametrize("number, line", [
    (7, r"    Lua 5\.1\.\d+: Copyright \(C\) 1994-2012 Lua\.org, PUC-Rio\."),
    (8, r"    Lua BitOp 1\.[\d.]+: Copyright \(C\) 2008-2012 Mike Pall\."),
    (9, r"    LuaSocket [23]\.[\w.~-]+: Copyright \(C\) 2004-2022 Diego Nehab\."),
])
def test_the_copyright_lines_of_the_open_source_packages(number, line):
    assert re.fullmatch(line, version_block()[number - 1])


def test_the_platform_is_asked_for_without_opening_the_radio():
    assert run("-v").log == ["radioGetPlatformName(null)"]


@pytest.mark.parametrize(
    "arguments",
    [
        ["--version"],
        ["-v", "-i"],
        ["-i", "-v"],
        ["-v", "-c", "print('ran')"],
        ["-c", "print('ran')", "-v"],
        ["-v", "-b", "no such file"],
        ["-b", "no such file", "-i", "-v"],
    ],
)
def test_with_any_valid_options_only_the_block_is_printed(arguments):
    ran = run(*arguments, stdin="print('read')\nexit\n")
    assert ran.out.split("\n")[:-1] == version_block()
    assert (ran.err, ran.status, ran.log) == ("", 0, ["radioGetPlatformName(null)"])

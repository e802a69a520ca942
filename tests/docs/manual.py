# SPDX-License-Identifier: LicenseRef-Proprietary
"""The manual pages of the build tree, as their reader sees them; where no other is named, that of
the shell."""

import os
import re
import subprocess
import textwrap
from functools import cache

from installation import BUILD

PAGES = sorted((BUILD / "docs").glob("*.1"))
PAGE = BUILD / "docs/sorelapp.1"
UNBROKEN = 1000  # a width at which a paragraph is a line


def output(*command, **variables):
    """What a program prints that must succeed in silence."""
    plain = {"PATH": os.environ["PATH"], "HOME": "/nonexistent", "LC_ALL": "C.UTF-8"}
    done = subprocess.run(
        command, capture_output=True, encoding="utf-8", env=plain | variables, check=False
    )
    assert (done.stderr, done.returncode) == ("", 0), done
    return done.stdout


@cache
def formatted(width, *options, page=PAGE):
    """The page by man, at that width."""
    return output("man", *options, "--encoding=UTF-8", "--local-file", page, MANWIDTH=str(width))


def text():
    """The page, each paragraph on a line."""
    return formatted(UNBROKEN, "--no-hyphenation", "--no-justification")


def section(title):
    """The text of a section, with its subsections, or of a subsection."""
    found = re.search(rf"^( *){title}\n(.*?)(?=^\1\S|\Z)", text(), re.MULTILINE | re.DOTALL)
    assert found, f"there is no section {title}"
    return found[2]


def listed(title):
    """What the lists of a section tell of, in their order."""
    tag = r"^ {5}(\S{1,6}(?= {2,}\S)|\S.*(?=\n {13}\S))"
    return re.findall(tag, section(title), re.MULTILINE)


def examples():
    """The blocks of the section with examples, each as a text."""
    blocks = textwrap.dedent(section("EXAMPLES")).strip().split("\n\n")
    return [block + "\n" for block in blocks if not block.endswith((".", ":"))]

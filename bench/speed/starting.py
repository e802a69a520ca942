# SPDX-License-Identifier: LicenseRef-Proprietary
"""The programs whose starts are compared. All of them run the empty text.

The shell is the one that is installed: that of a build tree looks for libraries in more places. In
the place of an installed driver, which is found with the other libraries, stands one that is loaded
ahead of them all; it takes no longer.
"""

import subprocess
from dataclasses import dataclass, field
from pathlib import Path


@dataclass(frozen=True)
class Start:
    command: list
    variables: dict = field(default_factory=dict)  # of the environment


def installed(tree, folder):
    """The shell of a tree, installed into a folder."""
    subprocess.run(
        [tree["cmake"], "--install", tree["folder"], "--component", "sorelapp", "--prefix", folder],
        stdout=subprocess.DEVNULL, check=True,
    )
    return str(Path(folder, "bin", "sorelapp"))


def on(driver, program, text=""):
    return Start([program, "-c", text], {"LD_PRELOAD": driver})


def interpreter(tree):
    return Start([tree["interpreter"], "-e", ""])

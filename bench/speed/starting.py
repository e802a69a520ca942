# SPDX-License-Identifier: LicenseRef-Proprietary
"""The programs whose starts are compared, in a folder in which they are to run.

The shell is the one that is installed: that of a build tree looks for libraries in more places. An
installed driver is found at once, like all libraries. Here, where it is not installed, programs
name it by a path: LD_LIBRARY_PATH would have the loader try a dozen folders for the first library.
"""

import shutil
import subprocess
from pathlib import Path

DRIVER = b"\0libsorel.so.1\0"


def installed(tree, folder):
    """The shell of a tree, installed into a folder."""
    subprocess.run(
        [tree["cmake"], "--install", tree["folder"], "--component", "sorelapp", "--prefix", folder],
        stdout=subprocess.DEVNULL, check=True,
    )
    return Path(folder, "bin", "sorelapp")


def standing_on(driver, program, folder, letter):
    """A copy of a program that finds the driver in the folder. The letter names both, so that the
    driver's path is as long as its name."""
    path = f"\0{letter}/libsorel.so\0".encode()
    before, name, after = Path(program).read_bytes().partition(DRIVER)
    assert name and DRIVER not in after and len(path) == len(DRIVER)
    copy = Path(folder, letter, "program")
    copy.parent.mkdir()
    copy.write_bytes(before + path + after)
    copy.chmod(0o755)
    shutil.copy(driver, copy.parent / "libsorel.so")
    return str(copy)


def shell(program, text=""):
    return [program, "-c", text]


def interpreter(tree):
    return [tree["interpreter"], "-e", ""]

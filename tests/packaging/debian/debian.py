# SPDX-License-Identifier: LicenseRef-Proprietary
"""The packages under test, and tools to look at them."""

import os
import subprocess
from pathlib import Path

SOURCE = Path(os.environ["SORELAPP_SOURCE_DIR"])
FOLDER = SOURCE / "build/packages"
VERSION = (SOURCE / "VERSION").read_text().strip()

TRIPLETS = {"amd64": "x86_64-linux-gnu", "armhf": "arm-linux-gnueabihf"}
PACKAGES = ("sorelapp", "libsorel-sim1", "libsorel-dev")
LIBRARY = "libsorel.so.1"
MANUAL_PAGE = "usr/share/man/man1/sorelapp.1.gz"
COMPLETION = "usr/share/bash-completion/completions/sorelapp"


def run(*command, **more):
    """The finished command, whether it failed or not; its output and errors are together."""
    usual = {"stdin": subprocess.DEVNULL, "stderr": subprocess.STDOUT}
    return subprocess.run(
        command, stdout=subprocess.PIPE, text=True, check=False, **usual | more
    )


def output(*command, **more):
    """What a command prints that must succeed."""
    done = run(*command, **more)
    assert done.returncode == 0, done.stdout
    return done.stdout


def file_of(package, architecture):
    return FOLDER / f"{package}_{VERSION}_{architecture}.deb"


def field(package, architecture, name):
    """A field of the package's control file, empty if it is not there."""
    return output("dpkg-deb", "--field", file_of(package, architecture), name).strip()


def names(dependencies):
    """The packages that a field names, without their versions."""
    return {entry.split()[0] for entry in dependencies.split(",")}


def unpack(package, architecture, folder):
    output("dpkg-deb", "--extract", file_of(package, architecture), folder)

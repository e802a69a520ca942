# SPDX-License-Identifier: LicenseRef-Proprietary
"""What executables and libraries say of themselves."""

import re
import subprocess


def dynamic_section(file):
    """Entries of a file's dynamic section as (tag, value)."""
    listing = subprocess.run(
        ["readelf", "--dynamic", "--wide", str(file)], capture_output=True, text=True, check=True
    ).stdout
    return re.findall(r"\((\w+)\) +.*?\[(.*)\]", listing)


def values(file, tag):
    return [value for name, value in dynamic_section(file) if name == tag]


def undefined_symbols(file):
    """The names that a file takes from others at run time, without their versions."""
    listing = subprocess.run(
        ["nm", "--dynamic", "--undefined-only", "--format=posix", str(file)],
        capture_output=True, text=True, check=True,
    ).stdout
    return {line.split()[0].partition("@")[0] for line in listing.splitlines()}

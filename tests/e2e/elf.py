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

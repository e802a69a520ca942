# SPDX-License-Identifier: LicenseRef-Proprietary
"""The machine that measures."""

import os
import platform
import re
import subprocess
from pathlib import Path

PACKAGES = ("g++", "libc6", "liblua5.1-0", "lua5.1")


def processor():
    found = re.search(r"^model name\s*:\s*(.+)$", Path("/proc/cpuinfo").read_text(), re.M)
    return found[1] if found else platform.machine()


def version(package):
    return subprocess.run(["dpkg-query", "-W", "-f", "${Version}", package],
                          capture_output=True, text=True, check=False).stdout


def described():
    return {
        "processor": processor(),
        "cores": len(os.sched_getaffinity(0)),
        "system": platform.freedesktop_os_release()["PRETTY_NAME"],
        "packages": {package: version(package) for package in PACKAGES},
    }

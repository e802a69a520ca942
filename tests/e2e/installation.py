# SPDX-License-Identifier: LicenseRef-Proprietary
"""What is installed.

Environment:
    SORELAPP_BUILD_DIR  the build tree
"""

import os
import subprocess
from pathlib import Path

BUILD = Path(os.environ["SORELAPP_BUILD_DIR"])


def install(prefix, *options):
    """Installs all, or what options of cmake's installation say, and returns the folder of what
    machines can share."""
    subprocess.run(
        ["cmake", "--install", BUILD, "--prefix", prefix, *options],
        stdout=subprocess.DEVNULL, check=True,
    )
    return prefix / "share"

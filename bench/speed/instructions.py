# SPDX-License-Identifier: LicenseRef-Proprietary
"""How many instructions a program executes. The same program, input and environment give the same
number again, whatever else the machine does meanwhile."""

import os
import re
import subprocess
import tempfile
from pathlib import Path

# Nothing of the caller's, so that the length of its variables does not count.
ENVIRONMENT = {"PATH": os.environ["PATH"], "LC_ALL": "C"}


def of_program(command, input=None, **variables):
    """Those of a whole run, by callgrind: this machine's programs only."""
    with tempfile.TemporaryDirectory() as folder:
        profile = Path(folder) / "profile"
        subprocess.run(
            ["valgrind", "-q", "--tool=callgrind", f"--callgrind-out-file={profile}", *command],
            env=ENVIRONMENT | variables, input=input, stdout=subprocess.DEVNULL, check=True,
        )
        return int(re.search(r"^(?:summary|totals): (\d+)", profile.read_text(), re.M)[1])

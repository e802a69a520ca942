# SPDX-License-Identifier: LicenseRef-Proprietary
"""Runs ./dev. Environment: SORELAPP_SOURCE_DIR, the root of the source tree."""

import os
import subprocess
from pathlib import Path

ROOT = Path(os.environ["SORELAPP_SOURCE_DIR"])
DEV = ROOT / "dev"


def dev(*arguments, program=DEV, stdin="", **more):
    return subprocess.run(
        [program, *arguments], input=stdin, capture_output=True, text=True, check=False, **more
    )


def standing_in(folder, **programs):
    """An environment in which these programs, as shell texts, stand in for those of the machine."""
    for name, text in programs.items():
        program = folder / name.replace("_", "-")
        program.write_text("#!/bin/sh\n" + text + "\n")
        program.chmod(0o755)
    return os.environ | {"PATH": f"{folder}:{os.environ['PATH']}"}

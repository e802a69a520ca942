# SPDX-License-Identifier: LicenseRef-Proprietary
"""Several processes on the recording driver, one after the other: what a program calls that starts
the shell itself."""

import time

from shell import RECORDING, SECONDS, environment, lines_of

SWITCHED_OFF = ["radioOpen() = context1", "radioReset(context1)", "radioClose(context1)"]


class Recorded:
    """The variables of such a program, and the calls of all processes, in order."""

    def __init__(self, folder, programs, answers="", **more):
        """The program finds others in the folder `programs` first."""
        self.file = folder / "log"
        told = folder / "answers"
        told.write_text(answers + "\n")
        self.variables = environment(RECORDING, {
            "RECORDING_DRIVER_LOG": str(self.file),
            "RECORDING_DRIVER_ANSWERS": str(told),
            "HOME": str(folder),
        })
        del self.variables["SORELAPP"]  # of these tests, and of sorelapp-guard
        self.variables["PATH"] = f"{programs}:{self.variables['PATH']}"
        self.variables |= more

    @property
    def log(self):
        return lines_of(self.file)

    def expect(self, calls):
        """Waits until those are all calls, where no process is left to wait for."""
        last = time.monotonic() + SECONDS
        while self.log != calls and time.monotonic() < last:
            time.sleep(0.05)
        assert self.log == calls

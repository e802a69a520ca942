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


def between(marker, command, emulator=(), input=None, **variables):
    """Those from each call of that function of the program to the next one, as a list: by callgrind
    for this machine's programs, under qemu for another's."""
    count = between_emulated if emulator else between_here
    return count(marker, [*emulator, *command], input, variables)


def between_here(marker, command, input, variables):
    with tempfile.TemporaryDirectory() as folder:
        profile = Path(folder) / "profile"
        subprocess.run(
            ["valgrind", "-q", "--tool=callgrind", f"--callgrind-out-file={profile}",
             "--combine-dumps=yes", f"--dump-before={marker}", *command],
            env=ENVIRONMENT | variables, input=input, text=True, check=True,
        )
        counts = re.findall(r"^totals: (\d+)", profile.read_text(encoding="utf-8"), re.M)
    # What comes before the first call and after the last one does not count.
    return [int(count) for count in counts[1:-1]]


def between_emulated(marker, command, input, variables):
    """Run one by one, each instruction is a line of qemu's log, which ends with the name of the
    program's function that it is in. The log is read as it is written: it would fill a disk."""
    emulator, *arguments = command
    with tempfile.TemporaryDirectory() as folder:
        log = Path(folder) / "log"
        os.mkfifo(log)
        with tempfile.TemporaryFile("w+") as file:
            file.write(input or "")
            file.seek(0)
            process = subprocess.Popen(
                [emulator, "-singlestep", "-d", "exec,nochain", "-D", log, *arguments],
                env=ENVIRONMENT | variables, stdin=file,
            )
            with log.open("rb") as lines:
                counts = counts_of_log(lines, f" {marker}\n".encode())
            if process.wait() != 0:
                raise subprocess.CalledProcessError(process.returncode, command)
    return counts


def counts_of_log(lines, ending):
    counts = [0]
    in_marker = False
    for line in lines:
        if not line.endswith(ending):
            in_marker = False
            counts[-1] += line.startswith(b"Trace ")
        elif not in_marker:
            in_marker = True
            counts.append(0)
    return counts[1:-1]

# SPDX-License-Identifier: LicenseRef-Proprietary
"""A running shell, and what it holds while it waits for its next line."""

import os
import re
import subprocess
import threading
from dataclasses import dataclass
from pathlib import Path

# Nothing of the caller's. The lines end up on a pipe, which is written to when it is flushed.
ENVIRONMENT = {"PATH": os.environ["PATH"], "LC_ALL": "C"}

# Lua text that says how much of its own memory is in use, all garbage collected.
MARK = "collectgarbage() collectgarbage() print('mark', collectgarbage('count') * 1024) io.flush()"


@dataclass(frozen=True)
class Sample:
    """What a process holds, and what it took so far."""

    resident: int  # bytes in memory
    heap: int  # bytes of data that it may write to, in memory or not
    lua: int  # bytes that Lua has in use
    files: int  # open file descriptors
    seconds: float  # of the processor
    failures: int  # lines on standard error


class Shell:
    """The shell of a tree on a driver, with pipes for what it reads and prints."""

    def __init__(self, tree, driver, *arguments):
        self.failures = 0
        self.process = subprocess.Popen(
            [tree["executable"], *arguments],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
            env=ENVIRONMENT | {"LD_LIBRARY_PATH": str(Path(driver).parent)},
        )
        self.errors = threading.Thread(target=self.count_errors)
        self.errors.start()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        self.errors.join()
        for pipe in (self.process.stdin, self.process.stdout, self.process.stderr):
            pipe.close()

    def count_errors(self):
        for _ in self.process.stderr:
            self.failures += 1

    def send(self, text):
        self.process.stdin.write(text.encode())
        self.process.stdin.flush()

    def send_and_sample(self, lines):
        """Sends lines, the last of which prints the mark, and waits for that."""
        writer = threading.Thread(target=self.send, args=("".join(lines),))
        writer.start()
        sample = self.sample()
        writer.join()
        return sample

    def sample(self):
        """Waits for the mark."""
        for line in self.process.stdout:
            if found := re.search(rb"mark\t(\d+)", line):
                return self.now(int(found[1]))
        raise RuntimeError(f"the shell has ended with status {self.process.wait()}")

    def now(self, lua):
        folder = Path(f"/proc/{self.process.pid}")
        status = (folder / "status").read_text(encoding="utf-8")
        nanoseconds, *_ = (folder / "schedstat").read_text(encoding="utf-8").split()
        return Sample(
            resident=int(re.search(r"VmRSS:\s+(\d+)", status)[1]) * 1024,
            heap=int(re.search(r"VmData:\s+(\d+)", status)[1]) * 1024,
            lua=lua,
            files=len(list((folder / "fd").iterdir())),
            seconds=int(nanoseconds) / 1e9,
            failures=self.failures,
        )

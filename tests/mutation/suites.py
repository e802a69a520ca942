# SPDX-License-Identifier: LicenseRef-Proprietary
"""The tests that a mutation is tried on: programs of unit tests, and files of end-to-end tests. One
after the other until one fails."""

import re
import resource
import signal
import subprocess
import tempfile

MEGABYTE = 1 << 20
# Of the processor, before a process is taken for endless; none takes half of that.
PROGRAM_SECONDS = 6
FILES_SECONDS = 60
# Of the wall, before it is taken for waiting without end. A busy machine is given a second chance,
# twice as long, so that its slowness is not put down to the mutation.
CHANCES = (300, 600)


ENDLESS = "does not end"


class Hopeless(Exception):
    """A suite fails without any mutation."""


def limit(seconds):
    """In the process to be, and in what it starts. A shell in the background has its programs
    ignore some signals, which tests of the terminal send."""
    for name in (signal.SIGINT, signal.SIGQUIT, signal.SIGHUP):
        signal.signal(name, signal.SIG_DFL)
    resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds + 5))
    resource.setrlimit(resource.RLIMIT_AS, (4096 * MEGABYTE, 4096 * MEGABYTE))
    resource.setrlimit(resource.RLIMIT_FSIZE, (64 * MEGABYTE, 64 * MEGABYTE))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run(command, folder, variables, seconds):
    """The status and the output; a status of ENDLESS for what has not ended after two chances."""
    for chance in CHANCES:
        with tempfile.TemporaryFile() as output:
            try:
                status = subprocess.run(command, cwd=folder, env=variables,
                                        stdin=subprocess.DEVNULL, stdout=output,
                                        stderr=subprocess.STDOUT, timeout=chance,
                                        preexec_fn=lambda: limit(seconds), check=False).returncode
            except subprocess.TimeoutExpired:
                status = ENDLESS
            output.seek(0)
            text = output.read(4 * MEGABYTE).decode(errors="replace")
        if status != ENDLESS:
            break
    return status, text


def first(pattern, text, otherwise):
    found = re.search(pattern, text, re.MULTILINE)
    return found[1] if found else otherwise


class Program:
    """A program of unit tests. Some tests need a process of their own, as ctest gives all."""

    def __init__(self, name, tests, apart, skipped):
        """apart: the names of those tests, or True for all."""
        self.name = name
        self.target = name
        command, self.folder, self.variables = next(iter(tests.values()))
        self.program = command[0]
        names = [first(r"--gtest_filter=(\S+)", " ".join(command), "")
                 for command, _, _ in tests.values()]
        missing = {*skipped, *(() if apart is True else apart)} - set(names)
        if missing:
            raise Hopeless(f"{name} has no test {missing}")
        self.apart = names if apart is True else list(apart)
        self.not_together = [*self.apart, *skipped]
        self.together = len(names) > len(self.not_together)

    def failing(self):
        """The name of a test that fails; None where all pass."""
        filters = [f"-{':'.join(self.not_together)}"] if self.together else []
        for tests in filters + self.apart:
            if failing := self.failing_of([f"--gtest_filter={tests}"]):
                return failing
        return None

    def failing_of(self, arguments):
        status, output = run(
            [self.program, "--gtest_fail_fast", "--gtest_brief=0", "--gtest_color=no", *arguments],
            self.folder, self.variables, PROGRAM_SECONDS)
        if status == 0:
            return None
        running = re.findall(r"^\[ RUN      \] (\S+)", output, re.MULTILINE)
        test = first(r"^\[  FAILED  \] (\S+?),?(?: |$)", output, running[-1] if running else "?")
        return f"{self.name}: {test}" + ("" if status == 1 else f" (status {status})")


class Files:
    """End-to-end tests, several files in one run."""

    target = "sorelapp"

    def __init__(self, names, tests):
        self.name = "end to end"
        commands = [tests[name] for name in names]
        command, self.folder, self.variables = commands[0]
        self.command = [*command[:-1], "-x", "--tb=no", "-rf", *(each[0][-1] for each in commands)]

    def failing(self):
        status, output = run(self.command, self.folder, self.variables, FILES_SECONDS)
        if status == 0:
            return None
        return first(r"^(?:FAILED|ERROR) (?:\S*/)?(test_\S+)", output, f"end to end ({status})")

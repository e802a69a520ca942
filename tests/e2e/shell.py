# SPDX-License-Identifier: LicenseRef-Proprietary
"""The verbs of the end-to-end tests: run, pipe, lua, raised, prompt.

Each starts the real executable anew. Where nothing else is said it stands on the recording driver
(../recording_driver/README.md), so every test can ask which calls reached the driver.

Environment:
    SORELAPP              the executable; may be a command line (an emulator, its options, the path)
    SOREL_SIMULATION_DIR  folder of the simulated board's libsorel.so.1
    SOREL_FORWARDING_DIR  folder of the libsorel.so.1 that traces calls in front of another driver
    SOREL_TRACED          set: every run is traced, which must change nothing else: the simulated
                          board's calls by itself, the recording driver's by the library in front
    RECORDING_DRIVER_DIR  folder of the recording driver's libsorel.so.1
    ODD_DRIVER_DIR        folder of the drivers of ../odd_drivers/
    PRELOAD_DIR           folder of the libraries made from preload/
    SORELAPP_SOURCE_DIR   root of the source tree
"""

import os
import resource
import shlex
import subprocess
import tempfile
from dataclasses import dataclass
from pathlib import Path
from signal import SIGABRT

import pexpect

COMMAND = shlex.split(os.environ["SORELAPP"])
EXECUTABLE = Path(COMMAND[-1])
SIMULATION = Path(os.environ["SOREL_SIMULATION_DIR"])
FORWARDING = Path(os.environ["SOREL_FORWARDING_DIR"])
RECORDING = Path(os.environ["RECORDING_DRIVER_DIR"])
ODD_DRIVERS = Path(os.environ["ODD_DRIVER_DIR"])
PRELOAD = Path(os.environ["PRELOAD_DIR"])
SOURCE = Path(os.environ["SORELAPP_SOURCE_DIR"])
VERSION = (SOURCE / "VERSION").read_text().strip()

TRACED = "SOREL_TRACED" in os.environ
EMULATED = Path(COMMAND[0]).name.startswith("qemu")
VALGRIND = COMMAND[0] == "valgrind"

PROMPT = "sorelapp> "
SECONDS = 60  # longer than any test takes, emulated or not

# Tests of an abort leave no core file behind.
resource.setrlimit(resource.RLIMIT_CORE, (0, resource.getrlimit(resource.RLIMIT_CORE)[1]))


@dataclass
class Ran:
    """What one run of the executable left behind."""

    out: str
    err: str
    status: int  # negative: the number of the signal that ended it
    log: list  # every driver call, in order

    @property
    def calls(self):
        """The driver calls without the opening at start-up and the closing at the exit."""
        assert self.log[0].startswith("radioOpen() = context"), self.log
        assert self.log[-1].startswith("radioClose(context"), self.log
        return self.log[1:-1]


def lines_of(file):
    """The lines of a file that need not exist. Only a newline ends one."""
    text = file.read_text(encoding="latin-1") if file.exists() else ""
    return text.removesuffix("\n").split("\n") if text else []


def functions(calls):
    """The functions that lines of a trace without times, or of the recording driver's log, name."""
    return [line.partition("(")[0] for line in calls]


def assert_aborted(ran, assertion):
    """The run ended by that assertion's report. An emulator may add lines of its own."""
    assert ran.status == -SIGABRT, ran
    assert assertion in ran.err.splitlines()


def in_front_of(driver):
    """The variables that put the tracing library in front of a driver, given by its folder."""
    return {
        "LD_LIBRARY_PATH": str(FORWARDING),
        "SOREL_TRACE_DRIVER": str(Path(driver, "libsorel.so.1")),
    }


def loading(driver):
    """The variables that load a driver, given by its folder."""
    if TRACED and driver == RECORDING:
        return in_front_of(driver)
    return {"LD_LIBRARY_PATH": str(driver)}


def environment(driver, more):
    """The environment of a run; driver is the folder of a libsorel.so.1, None the linked one."""
    unwanted = ("LUA_PATH", "LUA_CPATH", "LUA_INIT", "LD_LIBRARY_PATH",
                "SOREL_SIM_SCENARIO", "SOREL_SIM_TRACE",
                "SOREL_SIM_LOG", "SOREL_SIM_LOG_LEVEL", "SOREL_TRACE_DRIVER")
    result = {name: value for name, value in os.environ.items() if name not in unwanted}
    result["LC_ALL"] = "C"
    if TRACED:
        result["SOREL_SIM_TRACE"] = os.devnull
    if driver is not None:
        result |= loading(driver)
    return result | more


def preloading(library, driver=RECORDING):
    """The variables that load a library of preload/ ahead of all others. It is found by its folder
    on the library path, since blanks, which that folder may have, end a name in LD_PRELOAD. An
    emulator is told of it in a variable of its own, since it is no program of the kind that could
    load the library."""
    loaded = loading(driver)
    path = loaded | {"LD_LIBRARY_PATH": f"{loaded['LD_LIBRARY_PATH']}:{PRELOAD}"}
    if EMULATED:
        return path | {"QEMU_SET_ENV": f"LD_PRELOAD={library}"}
    # The address sanitizer, too, would be first. Such a library hands on to it.
    sanitizer = f"{os.environ.get('ASAN_OPTIONS', '')}:verify_asan_link_order=0"
    suppressions = f"suppressions='{SOURCE}/tests/e2e/preload/loader.supp':print_suppressions=0"
    return path | {"LD_PRELOAD": library, "ASAN_OPTIONS": sanitizer, "LSAN_OPTIONS": suppressions}


def run(*arguments, stdin="", answers="", driver=RECORDING, cwd=None, **more):
    """Runs the executable with these arguments; answers are lines for the recording driver, more
    are environment variables. Bytes are characters of Latin-1, each standing for itself."""
    with tempfile.TemporaryDirectory() as folder:
        log = Path(folder, "log")
        told = Path(folder, "answers")
        trace = Path(folder, "trace")
        log.touch()
        told.write_text(answers + "\n", encoding="latin-1")
        variables = {"RECORDING_DRIVER_LOG": str(log), "RECORDING_DRIVER_ANSWERS": str(told)}
        if TRACED:
            variables["SOREL_SIM_TRACE"] = str(trace)
        done = subprocess.run(
            COMMAND + list(arguments),
            input=stdin.encode("latin-1"),
            capture_output=True,
            cwd=cwd,
            env=environment(driver, variables | more),
            timeout=SECONDS,
            check=False,
        )
        ran = Ran(
            out=done.stdout.decode("latin-1"),
            err=done.stderr.decode("latin-1"),
            status=done.returncode,
            log=log.read_text(encoding="latin-1").splitlines(),
        )
        if TRACED and driver == RECORDING:
            assert functions(lines_of(trace)) == functions(ran.log)
        return ran


def pipe(*lines, arguments=(), **more):
    """Pipes these lines into the interactive loop, then the word that ends it."""
    ran = run(*arguments, stdin="".join(line + "\n" for line in lines) + "exit\n", **more)
    assert ran.status == 0, ran
    return ran


def lua(text, **more):
    """Runs Lua text that must succeed in silence but for what it prints."""
    ran = run("-c", text, **more)
    assert (ran.status, ran.err) == (0, ""), ran
    return ran


def raised(text, **more):
    """Runs Lua text that must raise a text; out is then that text, whole."""
    return lua(
        "local succeeded, message = pcall(function() " + text + " end) "
        "assert(not succeeded, 'nothing was raised') "
        "assert(type(message) == 'string', type(message)) "
        "io.write(message)",
        **more,
    )


def prompt(*arguments, driver=RECORDING, cwd=None, **more):
    """Starts the executable on a terminal and waits for its prompt. It echoes nothing."""
    terminal = pexpect.spawn(
        "/usr/bin/env",  # pexpect would split a lone command at its blanks
        COMMAND + list(arguments),
        cwd=cwd,
        env=environment(driver, {"TERM": "dumb"} | more),
        encoding="latin-1",
        echo=False,
        timeout=SECONDS,
    )
    terminal.expect_exact(PROMPT)
    return terminal


def type_line(terminal, line):
    """Types a line at the prompt; returns the lines that appear before the next prompt."""
    terminal.sendline(line)
    terminal.expect_exact(PROMPT)
    return terminal.before.splitlines()


def assert_broken(text, line, function, assertion):
    """Lua text that breaks an invariant of the binding ends the process."""
    ran = run("-c", text)
    assert_aborted(ran, f"sorelapp: radio_wrap:{line}: {function}: Assertion `{assertion}' failed.")

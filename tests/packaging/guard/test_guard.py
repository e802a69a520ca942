# SPDX-License-Identifier: LicenseRef-Proprietary
"""sorelapp-guard: what the shell does under it is what it does alone, and after any end but a
normal one the transmitter is switched off. All on two systems: Debian, and a board that has busybox
for a shell and for tools."""

import os
import re
import shlex
import shutil
import signal
import subprocess
import time

import pexpect
import pytest
from recorded import SWITCHED_OFF, Recorded
from sessions import BASH_PROMPT, bash, make_program
from shell import COMMAND, PROMPT, SECONDS, SOURCE, VALGRIND

GUARD = SOURCE / "packaging/guard/sorelapp-guard"
SHELLS = {"debian": ["dash"], "busybox": ["busybox", "sh"]}
OFF = "the transmitter is off"
NOT_OFF = "the transmitter may still be on: it could not be switched off"
OPENED, CLOSED = "radioOpen() = context1", "radioClose(context1)"
WAITING = "print('ready') io.flush() while true do end"


@pytest.fixture(name="system", params=SHELLS)
def system_with_the_guard(request, tmp_path):
    return System(tmp_path, request.param)


@pytest.fixture(name="debian")
def debian_with_the_guard(tmp_path):
    return System(tmp_path, "debian")


class System:
    """A system where the guard finds the shell on PATH; calls are recorded."""

    def __init__(self, folder, name):
        self.name = name
        self.folder = folder
        self.programs = folder / "bin"
        self.programs.mkdir()
        make_program(self.programs / "sorelapp")
        if name == "busybox":
            for tool in ("env", "timeout"):
                (self.programs / tool).symlink_to(shutil.which("busybox"))
        self.command = [*SHELLS[name], str(GUARD)]
        self.recorded = Recorded(folder, self.programs)

    def set(self, answers="", **more):
        self.recorded = Recorded(self.folder, self.programs, answers, **more)

    def run(self, *arguments, stdin=""):
        """The guard without a terminal."""
        return subprocess.run(
            self.command + list(arguments), input=stdin, capture_output=True, text=True,
            env=self.recorded.variables, timeout=SECONDS, check=False, start_new_session=True,
        )

    def start(self, *arguments):
        """The guard without a terminal, running what says that it is ready."""
        process = subprocess.Popen(
            self.command + list(arguments), stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            stderr=subprocess.PIPE, text=True, env=self.recorded.variables, start_new_session=True,
        )
        assert process.stdout.readline() == "ready\n"
        return process

    def prompt(self, *arguments):
        """The guard on a terminal, with the shell at its prompt."""
        terminal = pexpect.spawn(
            "/usr/bin/env", self.command + list(arguments), encoding="utf-8", echo=False,
            env=self.recorded.variables | {"TERM": "dumb"}, timeout=SECONDS,
        )
        terminal.expect_exact(PROMPT)
        return terminal


def end_of(terminal):
    """The status of what has ended on the terminal, negative for a signal, and its last line."""
    terminal.expect(pexpect.EOF)
    terminal.close()
    status = terminal.exitstatus if terminal.signalstatus is None else -terminal.signalstatus
    return status, (terminal.before.splitlines() or [""])[-1]


def assert_off(system, said, how, before=(OPENED,)):
    """The shell has called this, then the transmitter was switched off."""
    assert said.splitlines()[-1] == f"sorelapp-guard: sorelapp {how}; {OFF}"
    assert system.recorded.log == [*before, *SWITCHED_OFF]


# ---- Normal ends ----

@pytest.mark.parametrize("arguments, stdin, printed", [
    (["-c", "print('one  blank', ...)"], "", "one  blank\n"),
    (["-c", "print(io.read('*a'))"], "typed", "typed\n"),
    ([], "print(1)\nexit\n", f"{PROMPT}1\n{PROMPT}"),
])
def test_after_a_normal_end_nothing_is_said_or_called(system, arguments, stdin, printed):
    ran = system.run(*arguments, stdin=stdin)
    assert (ran.stdout, ran.stderr, ran.returncode) == (printed, "", 0)
    assert system.recorded.log == [OPENED, CLOSED]


def test_the_prompt_is_that_of_the_shell(system):
    terminal = system.prompt()
    terminal.sendline("print('a' .. 'b')")
    terminal.expect_exact("ab\r\n" + PROMPT)
    terminal.sendline("exit")
    assert end_of(terminal) == (0, "")
    assert system.recorded.log == [OPENED, CLOSED]


# ---- Other ends ----

@pytest.mark.parametrize("arguments, stdin, status, how", [
    (["-c", "error()"], "", 1, "ended with status 1"),
    (["-b", "/nonexistent"], "", 1, "ended with status 1"),
    (["-c", "os.exit(3)"], "", 3, "ended with status 3"),
    (["-c", "os.exit(200)"], "", 200, "ended with status 200"),
    ([], "print(1)\n", 134, "was ended by SIGABRT"),
    ([], "-" * 199 + "\n", 134, "was ended by SIGABRT"),
    (["-c", "os.execute('kill -KILL $PPID')"], "", 137, "was ended by SIGKILL"),
])
def test_after_any_other_end_the_transmitter_is_switched_off(
        system, arguments, stdin, status, how):
    ran = system.run(*arguments, stdin=stdin)
    assert ran.returncode == status
    assert_off(system, ran.stderr, how)


def test_a_refused_command_line_is_no_normal_end(system):
    ran = system.run("--nonsense")
    assert ran.returncode == 64
    assert_off(system, ran.stderr, "ended with status 64", before=())


def test_the_shell_has_ended_before_the_transmitter_is_switched_off(system):
    program = system.programs / "sorelapp"
    log = shlex.quote(str(system.recorded.file))
    program.write_text(f"#!/bin/sh\necho begins >>{log}\n{shlex.join(COMMAND)} \"$@\"\n"
                       f"status=$?\necho ends >>{log}\nexit $status\n")
    assert system.run("-c", "error()").returncode == 1
    assert system.recorded.log == ["begins", OPENED, "ends", "begins", *SWITCHED_OFF, "ends"]


def test_output_and_errors_of_the_shell_come_first(system):
    ran = system.run("-c", "print('printed') error('failed', 0)")
    assert ran.stdout == "printed\n"
    assert re.fullmatch(r"PANIC: .*failed.*\nsorelapp-guard: .*\n", ran.stderr)


# ---- The transmitter that is not switched off ----

def test_a_driver_that_refuses_is_told_of_and_the_radio_closed(system):
    system.set(answers="radioReset 3")
    ran = system.run("-c", "os.exit(7)")
    assert ran.returncode == 7
    refused, last = ran.stderr.splitlines()
    assert "radioReset() did not return success" in refused
    assert last == f"sorelapp-guard: sorelapp ended with status 7; {NOT_OFF}"
    assert system.recorded.log == [OPENED, *SWITCHED_OFF]


def test_a_radio_that_does_not_open_is_told_of(system):
    system.set(answers="radioOpen null")
    ran = system.run("-c", "os.exit(7)")
    assert ran.returncode == 7
    assert "radioOpen() failed" in ran.stderr
    assert ran.stderr.endswith(NOT_OFF + "\n")


def test_a_driver_that_does_not_answer_is_waited_for_only_so_long(system):
    system.set(SORELAPP_GUARD_OFF="while true do end", SORELAPP_GUARD_SECONDS="1")
    ran = system.run("-c", "os.exit(7)")
    assert ran.returncode == 7
    assert ran.stderr == ("sorelapp-guard: sorelapp ended with status 7; the transmitter may still "
                          "be on: the driver has not answered within 1 s\n")


def test_a_system_without_env_and_timeout_will_do(system):
    system.recorded.variables["PATH"] = str(system.programs)
    for tool in ("env", "timeout"):
        (system.programs / tool).unlink(missing_ok=True)
    make = (system.programs / "sorelapp").read_text()
    emulator = shutil.which(COMMAND[0])
    (system.programs / "sorelapp").write_text(make.replace(COMMAND[0], shlex.quote(emulator), 1))
    system.command[0] = shutil.which(system.command[0])
    ran = system.run("-c", "os.exit(7)")
    assert_off(system, ran.stderr, "ended with status 7")


# ---- What can be set ----

def test_another_text_can_switch_the_transmitter_off_such_as_that_of_the_manual_page(debian):
    page = (SOURCE / "docs/sorelapp-guard.1.in").read_text()
    text = re.search(r"SORELAPP_GUARD_OFF='(.*?)'", page, re.DOTALL)[1]
    debian.set(SORELAPP_GUARD_OFF=text)
    ran = debian.run("-c", "error()")
    assert ran.stderr.endswith(OFF + "\n")
    assert debian.recorded.log[1:] == [
        OPENED, "radioSelectPlatform(1)", CLOSED, "radioOpen() = context2",
        "radioReset(context2)", "radioClose(context2)",
    ]


def test_another_shell_can_be_named(debian, tmp_path):
    make_program(tmp_path / "another shell", "echo another")
    debian.set(SORELAPP=str(tmp_path / "another shell"))
    ran = debian.run("-c", "")
    assert (ran.stdout, ran.returncode) == ("another\n", 0)


def test_without_a_shell_nothing_is_run(system):
    system.set(SORELAPP="/nonexistent/sorelapp")
    ran = system.run("-c", "")
    assert ran.returncode == 127
    assert ran.stderr == "sorelapp-guard: there is no program /nonexistent/sorelapp\n"
    assert system.recorded.log == []


@pytest.mark.parametrize("seconds", ["1 min", "0", "-1", "1.5"])
def test_a_time_that_is_no_number_is_refused_before_anything_is_run(seconds, system):
    system.set(SORELAPP_GUARD_SECONDS=seconds)
    ran = system.run("-c", "")
    assert ran.returncode == 64
    assert ran.stderr == (
        f"sorelapp-guard: SORELAPP_GUARD_SECONDS is no whole number from 1 on: {seconds}\n")
    assert system.recorded.log == []


def test_the_manual_page_tells_of_all_that_can_be_set():
    page = (SOURCE / "docs/sorelapp-guard.1.in").read_text()
    read = set(re.findall(r"\$\{(SORELAPP\w*)", GUARD.read_text()))
    assert set(re.findall(r"^\.It Ev (\w+)", page, re.MULTILINE)) == read
    assert len(read) == 3


# ---- Keys ----

KEYS = [
    ("c", -signal.SIGINT, "SIGINT"),
    pytest.param("\\", 128 + signal.SIGQUIT, "SIGQUIT", marks=pytest.mark.skipif(
        VALGRIND, reason="valgrind reports signals of the terminal's that dump core")),
    ("d", 134, "SIGABRT"),
]


@pytest.mark.parametrize("key, status, name", KEYS)
def test_keys_that_end_the_shell_at_its_prompt(system, key, status, name):
    terminal = system.prompt()
    terminal.sendcontrol(key)
    ended, last = end_of(terminal)
    assert ended == status
    assert_off(system, last, f"was ended by {name}")


def test_ctrl_c_ends_a_line_that_runs(system):
    terminal = system.prompt()
    terminal.sendline(WAITING)
    terminal.expect_exact("ready\r\n")
    terminal.sendcontrol("c")
    ended, last = end_of(terminal)
    assert ended == -signal.SIGINT
    assert_off(system, last, "was ended by SIGINT")


def test_ctrl_c_ends_a_loop_of_the_callers(debian):
    terminal = bash(debian.folder, debian.recorded.variables)
    terminal.sendline(f"for i in 1 2; do {shlex.join(debian.command)}; done; echo status $?")
    terminal.expect_exact(PROMPT)
    terminal.sendcontrol("c")
    terminal.expect_exact(OFF)
    terminal.expect_exact("\n" + BASH_PROMPT)
    assert PROMPT not in terminal.before
    assert debian.recorded.log == [OPENED, *SWITCHED_OFF]


PROGRAM = "os.execute('echo ready; exec sleep 600') print('back')"


def test_ctrl_c_is_for_a_program_that_the_shell_runs(debian):
    terminal = debian.prompt()
    terminal.sendline(PROGRAM)
    terminal.expect_exact("ready\r\n")
    terminal.sendcontrol("c")
    terminal.expect_exact("back\r\n" + PROMPT)
    terminal.sendline("exit")
    assert end_of(terminal) == (0, "")
    assert debian.recorded.log == [OPENED, CLOSED]


def test_where_env_cannot_give_the_keys_back_ctrl_c_ends_the_shell_then_too(tmp_path):
    system = System(tmp_path, "busybox")
    terminal = system.prompt()
    terminal.sendline(PROGRAM.replace("echo", "echo $$; echo"))
    terminal.expect(r"(\d+)\r\nready\r\n")
    program = int(terminal.match[1])
    terminal.sendcontrol("c")
    ended, last = end_of(terminal)
    os.kill(program, signal.SIGTERM)  # which the key has not reached
    assert ended == -signal.SIGINT
    assert_off(system, last, "was ended by SIGINT")


@pytest.mark.skipif(VALGRIND, reason="valgrind lets a read fail that the terminal has stopped")
def test_ctrl_z_stops_and_fg_goes_on(system):
    terminal = bash(system.folder, system.recorded.variables)
    terminal.expect_exact(BASH_PROMPT)
    terminal.sendline(shlex.join(system.command))
    terminal.expect_exact(PROMPT)
    terminal.sendcontrol("z")
    terminal.expect_exact("Stopped")
    terminal.expect_exact(BASH_PROMPT)
    terminal.sendline("fg")
    terminal.sendline("print('a' .. 'b')")
    terminal.expect_exact("ab\r\n" + PROMPT)
    terminal.sendline("exit")
    terminal.expect_exact(BASH_PROMPT)
    terminal.sendline("echo status $?")
    terminal.expect_exact("\nstatus 0\r\n")
    assert system.recorded.log == [OPENED, CLOSED]


# ---- Signals ----

@pytest.mark.parametrize("name", ["SIGTERM", "SIGHUP"])
def test_a_signal_to_the_guard_ends_the_shell_at_its_prompt(system, name):
    terminal = system.prompt()
    terminal.kill(signal.Signals[name])
    ended, last = end_of(terminal)
    assert ended == 128 + signal.Signals[name]
    assert_off(system, last, f"was ended by {name}")


@pytest.mark.parametrize("name, status", [
    ("SIGTERM", 143), ("SIGHUP", 129), ("SIGQUIT", 131), ("SIGINT", -signal.SIGINT),
])
def test_a_signal_to_the_guard_ends_a_command_without_a_terminal(system, name, status):
    process = system.start("-c", WAITING)
    process.send_signal(signal.Signals[name])
    _, said = process.communicate(timeout=SECONDS)
    assert process.returncode == status
    assert_off(system, said, f"was ended by {name}")


def test_when_the_connection_is_lost_the_transmitter_is_switched_off(system):
    terminal = system.prompt()
    terminal.ptyproc.fileobj.close()  # the other end of the terminal, where ssh would be
    system.recorded.expect([OPENED, *SWITCHED_OFF])
    terminal.wait()


def wait_for(file):
    end = time.monotonic() + SECONDS
    while not file.exists():
        assert time.monotonic() < end, file
        time.sleep(0.02)


def slow_to_switch_off(system):
    """Lets switching off wait; a file that is there when it has begun, and one that ends it."""
    started = system.folder / "started"
    go_on = system.folder / "go on"
    system.set(SORELAPP_GUARD_OFF=(
        f"io.open('{started}', 'w'):close() repeat until io.open('{go_on}') radioReset()"))
    return started, go_on


def test_ctrl_z_does_not_stop_the_guard_while_it_switches_off(system):
    started, go_on = slow_to_switch_off(system)
    terminal = bash(system.folder, system.recorded.variables)
    terminal.sendline(shlex.join(system.command))
    terminal.expect_exact(PROMPT)
    terminal.sendcontrol("c")
    wait_for(started)
    terminal.sendcontrol("z")
    time.sleep(0.5)  # a stop shows by then; on a slower machine there is only less to see
    go_on.touch()
    assert terminal.expect_exact([OFF, "Stopped"]) == 0


def test_nothing_ends_the_guard_while_it_switches_off(system):
    started, go_on = slow_to_switch_off(system)
    terminal = system.prompt()
    terminal.sendcontrol("c")
    wait_for(started)
    for key in "c\\c":
        terminal.sendcontrol(key)
    for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
        terminal.kill(number)
    go_on.touch()
    ended, last = end_of(terminal)
    assert ended == -signal.SIGINT
    assert_off(system, last, "was ended by SIGINT")


def test_without_anybody_to_tell_the_transmitter_is_switched_off(system):
    process = system.start("-c", "print('ready') io.flush() io.read() error()")
    process.stderr.close()
    process.communicate("\n", timeout=SECONDS)
    assert process.returncode == 1
    assert system.recorded.log == [OPENED, *SWITCHED_OFF]

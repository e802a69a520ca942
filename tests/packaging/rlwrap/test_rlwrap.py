# SPDX-License-Identifier: LicenseRef-Proprietary
"""sorelapp-edit, installed: the prompt under rlwrap on a terminal, and what reaches the shell of
what is typed. The terminal is so wide that no line is broken."""

import re
import signal
import stat
import subprocess

import pexpect
import pytest
from installation import install
from recorded import SWITCHED_OFF, Recorded
from sessions import BASH_PROMPT, bash, make_program
from shell import PROMPT, SECONDS, SOURCE

README = (SOURCE / "packaging/rlwrap/README.md").read_text()
OPENED, CLOSED = "radioOpen() = context1", "radioClose(context1)"
RESET = "radioReset(context1)"
LONGEST = 198
CONTROL = r"(?:\x1b\[[?\d;]*[A-Za-z])*"  # what the terminal does, and does not show
UP, PASTE, PASTED = "\x1b[A", "\x1b[200~", "\x1b[201~"
ABORTED = 128 + signal.SIGABRT


@pytest.fixture(name="prefix", scope="module")
def installed_prefix(tmp_path_factory):
    """The installation; its shell may need an emulator."""
    shared = install(tmp_path_factory.mktemp("a prefix"), "--component", "sorelapp")
    program = shared.parent / "bin/sorelapp"
    program.unlink()
    make_program(program)
    return shared.parent


@pytest.fixture(name="terminal")
def terminal_at_the_prompt(prefix, tmp_path):
    return Terminal(prefix, tmp_path)


class Terminal:
    """A terminal with sorelapp-edit, of a person whose home is the folder."""

    def __init__(self, prefix, folder):
        self.recorded = recorded(prefix, folder)
        self.process = pexpect.spawn(
            "/usr/bin/env", ["sorelapp-edit"], env=self.recorded.variables,
            encoding="utf-8", dimensions=(24, 1000), timeout=SECONDS,
        )
        self.process.delaybeforesend = None
        # rlwrap has the keys of the shell's terminal from the first line on.
        self.enter("print('rea' .. 'dy')")
        self.expect("ready")

    def type(self, keys):
        self.process.send(keys)

    def enter(self, line):
        self.type(line + "\r")

    def expect_line(self, line):
        """That a line appears, whole."""
        self.process.expect(rf"\n{CONTROL}{re.escape(line)}{CONTROL}\r+\n")

    def expect(self, line):
        """That a line appears, whole, and then the prompt."""
        self.expect_line(line)
        self.process.expect_exact(PROMPT)

    def leave(self, keys="exit\r"):
        """The status after these keys, negative for a signal, and the calls of the session."""
        self.type(keys)
        self.process.expect(pexpect.EOF)
        self.process.close()
        if self.process.signalstatus is not None:
            return -self.process.signalstatus, self.recorded.log
        return self.process.exitstatus, self.recorded.log


def recorded(prefix, folder):
    return Recorded(folder, prefix / "bin", TERM="xterm", LC_ALL="C.UTF-8",
                    LUA_PATH=f"{prefix}/share/lua/5.1/?.lua;;")


# ---- The line ----

def rlwraps(command, folder, prefix):
    """What rlwrap is called with by a command: INPUTRC and the arguments."""
    folder.mkdir()
    fake = folder / "rlwrap"
    fake.write_text('#!/bin/sh\nprintf "%s\\0" "$INPUTRC" "$@"\n')
    fake.chmod(0o755)
    variables = recorded(prefix, folder).variables
    variables["PATH"] = f"{folder}:{variables['PATH']}"
    done = subprocess.run(["sh", "-c", command], capture_output=True, text=True, env=variables,
                          check=True)
    return done.stdout.split("\0")[:-1]


def test_the_line_of_the_documentation_is_what_the_command_runs(prefix, tmp_path):
    line = re.search(r"^    (INPUTRC=(?:.*\\\n)*.*)\n", README, re.MULTILINE)[1]
    there = str(prefix / "share/sorelapp")
    shown = [word.replace("/usr/share/sorelapp", there)
             for word in rlwraps(line, tmp_path / "shown", prefix)]
    run = rlwraps("sorelapp-edit", tmp_path / "run", prefix)
    assert run == shown
    assert len(run) > 10


def test_arguments_are_the_shells(prefix, tmp_path):
    assert rlwraps("sorelapp-edit -b 'a file' -i", tmp_path / "run", prefix)[-4:] == [
        "sorelapp-guard", "-b", "a file", "-i"]


def test_without_rlwrap_it_says_so(prefix, tmp_path):
    variables = recorded(prefix, tmp_path).variables | {"PATH": str(tmp_path)}
    for tool in ("readlink", "dirname"):
        (tmp_path / tool).symlink_to(f"/usr/bin/{tool}")
    done = subprocess.run([prefix / "bin/sorelapp-edit"], capture_output=True, text=True,
                          env=variables, check=False)
    assert done.returncode == 127
    assert done.stderr == "sorelapp-edit: there is no program rlwrap; sorelapp-guard does without\n"


# ---- History and completion ----

def test_the_arrow_key_brings_the_last_line_back(terminal):
    terminal.enter("print('a' .. 'b')")
    terminal.expect("ab")
    terminal.enter(UP)
    terminal.expect("ab")


def test_the_history_lasts_and_only_its_owner_may_read_it(prefix, tmp_path):
    first = Terminal(prefix, tmp_path)
    first.enter("print('a' .. 'b')")
    first.expect("ab")
    assert first.leave()[0] == 0
    assert stat.S_IMODE((tmp_path / ".sorelapp_history").stat().st_mode) == 0o600
    second = Terminal(prefix, tmp_path)
    second.enter(UP + UP + UP)  # past the line that each session begins with, and exit
    second.expect("ab")


def test_ctrl_o_keeps_a_line_out_of_the_history(terminal, tmp_path):
    terminal.type("print('se' .. 'cret')\x0f")
    terminal.expect("secret")
    assert terminal.leave()[0] == 0
    history = (tmp_path / ".sorelapp_history").read_text()
    assert "rea" in history and "cret" not in history


@pytest.mark.parametrize("typed, printed", [
    ("print(radioGetTemp\t == radioGetTemperature)", "true"),
    ("print(RADIO_BAND_NU\t)", "-1"),
    ("print(bit.bn\t(0))", "-1"),
    ("print((bit.bsw\t(1)))", "16777216"),
    ("print(type(require 'sorel.cons\t))", "table"),  # the quote is closed too
    ("print(#{radioGetTemp\t})", "1"),
    ("print(-bit.bn\t(0))", "1"),
])
def test_tab_completes(typed, printed, terminal):
    terminal.enter(typed)
    terminal.expect(printed)


def test_tab_offers_what_there_is(terminal):
    terminal.type("print(bit.b\t\t")
    terminal.process.expect(r"\n.*bit\.band +.*bit\.bor +.*\n")
    terminal.enter("and(6, 3))")
    terminal.expect("2")


# ---- What is not sent ----

def too_long(length):
    return f"has {length} bytes, and a line takes {LONGEST}"


@pytest.mark.parametrize("padding, unit", [("-", 1), ("é", 2), ("€", 3)])
def test_a_line_of_the_longest_length_is_run_and_a_longer_one_refused(padding, unit, terminal):
    start = "radioReset() print('a' .. 'b')--"
    count = (LONGEST - len(start)) // unit
    longest = start + "-" * (LONGEST - len(start) - count * unit) + padding * count
    terminal.enter(longest)
    terminal.expect("ab")
    terminal.enter(longest + "-")
    terminal.expect(f"not sent: the line {too_long(LONGEST + 1)}")
    assert terminal.leave() == (0, [OPENED, RESET, CLOSED])


def test_a_refused_line_can_be_shortened_and_sent(terminal):
    shown, length = re.search(r"^    (not sent: .* (\d+) bytes.*)$", README, re.MULTILINE).groups()
    terminal.enter("print('a' .. 'b')--".ljust(int(length), "-"))
    terminal.expect(shown)
    terminal.enter(UP + "\x7f" * (int(length) - LONGEST))
    terminal.expect("ab")


@pytest.mark.parametrize("character, name", [("\x1b", "^["), ("\x04", "^D"), ("\x7f", "^?")])
def test_a_control_character_is_refused(character, name, terminal):
    terminal.enter("radioReset() --\x16" + character)  # after Ctrl-V a key is a character
    terminal.expect(f"not sent: the line has the control character {name}")
    assert terminal.leave() == (0, [OPENED, CLOSED])


# ---- Pasted text ----

def test_pasted_lines_are_run_one_by_one(terminal):
    terminal.enter(f"{PASTE}print('a' .. 'b')\nprint('c' .. 'd'){PASTED}")
    terminal.expect_line("ab")
    terminal.expect("cd")


def test_a_pasted_tab_completes_nothing(terminal):
    terminal.enter(f"{PASTE}print(('radioGetTemp\t'):byte(-1)){PASTED}")
    terminal.expect("9")


@pytest.mark.parametrize("second, fault", [
    ("--" + "-" * LONGEST, too_long(LONGEST + 2)),
    ("--\x15", "has the control character ^U"),
])
def test_of_pasted_lines_none_is_sent_where_one_is_refused(second, fault, terminal):
    terminal.enter(f"{PASTE}radioReset()\n{second}\nradioReset(){PASTED}")
    terminal.expect(f"not sent: line 2 {fault}")
    assert terminal.leave() == (0, [OPENED, CLOSED])


def test_lines_from_a_terminal_that_does_not_mark_pasted_text_are_run_one_by_one(terminal):
    terminal.enter("print('a' .. 'b')\rprint('c' .. 'd')")
    terminal.process.expect(r"\bab\r+\n")
    terminal.process.expect(r"\bcd\r+\n")


# ---- While a line runs ----

def busy(terminal, file):
    """The shell is busy until there is that file."""
    terminal.enter(f"print('bu' .. 'sy') io.flush() repeat until io.open('{file}')")
    terminal.expect_line("busy")


def test_what_is_typed_while_a_line_runs_is_run_or_refused_as_ever(terminal, tmp_path):
    busy(terminal, tmp_path / "go on")
    terminal.enter("-" * (LONGEST + 1))
    terminal.process.expect_exact(f"not sent: the line {too_long(LONGEST + 1)}")
    terminal.enter("print('a' .. 'b')")
    (tmp_path / "go on").touch()
    terminal.process.expect(r"\bab\r+\n")
    assert terminal.leave() == (0, [OPENED, CLOSED])


def test_a_program_that_the_line_runs_reads_lines_too(terminal):
    terminal.enter("print('got ' .. io.read())")
    terminal.enter("this")
    terminal.expect("got this")


# ---- Ctrl-D ----

def test_ctrl_d_on_an_empty_line_closes_the_radio_and_leaves(terminal):
    assert terminal.leave("\x04") == (0, [OPENED, CLOSED])


@pytest.mark.parametrize("keys", [
    "Xprint('a' .. 'b')\x01\x04",
    "prXint('a' .. 'b')\x01\x06\x06\x04",
    "ÀÉprint('a' .. 'b')\x01\x04\x04",
    "print('a' .. 'b')\x04\x04",
])
def test_ctrl_d_elsewhere_deletes_the_character_under_the_cursor(keys, terminal):
    terminal.enter(keys)
    terminal.expect("ab")


def test_ctrl_d_on_a_line_that_it_has_emptied_leaves(terminal):
    assert terminal.leave("ab\x01\x04\x04\x04") == (0, [OPENED, CLOSED])


@pytest.mark.parametrize("keys", ["\x04", "\x1b\x04", "abc\x1b0\x04\x04\x04\x04"])
def test_ctrl_d_is_the_same_with_the_keys_of_vi(keys, prefix, tmp_path):
    (tmp_path / ".inputrc").write_text("set editing-mode vi\n")
    assert Terminal(prefix, tmp_path).leave(keys) == (0, [OPENED, CLOSED])


def test_ctrl_d_while_a_line_runs_leaves_after_it(terminal, tmp_path):
    busy(terminal, tmp_path / "go on")
    terminal.type("\x04")
    terminal.process.expect_exact("exit")
    (tmp_path / "go on").touch()
    assert terminal.leave("") == (0, [OPENED, CLOSED])


def test_ctrl_d_before_there_is_a_prompt_does_no_harm(prefix, tmp_path):
    terminal = pexpect.spawn("/usr/bin/env", ["sorelapp-edit"], encoding="utf-8", timeout=SECONDS,
                             env=recorded(prefix, tmp_path).variables)
    terminal.delaybeforesend = None
    while terminal.expect([PROMPT, pexpect.EOF, pexpect.TIMEOUT], timeout=0.01) == 2:
        terminal.send("\x04")
    terminal.send("\rexit\r")
    terminal.expect(pexpect.EOF)
    terminal.close()
    assert terminal.exitstatus == 0


def test_the_terminal_is_left_as_it_was(prefix, tmp_path):
    terminal = bash(tmp_path, recorded(prefix, tmp_path).variables)
    terminal.expect_exact(BASH_PROMPT)
    terminal.sendline("stty -g >before; sorelapp-edit; stty -g >after; echo status $?")
    terminal.expect_exact(PROMPT)
    terminal.send("exit\r")
    terminal.expect_exact("\nstatus 0")
    assert (tmp_path / "after").read_text() == (tmp_path / "before").read_text()


# ---- With the guard ----

@pytest.mark.parametrize("key, status", [("\x03", -signal.SIGINT), ("\x1c", 128 + signal.SIGQUIT)])
def test_after_keys_that_end_the_shell_the_transmitter_is_switched_off(key, status, terminal):
    assert terminal.leave(key) == (status, [OPENED, *SWITCHED_OFF])
    assert "the transmitter is off" in terminal.process.before


def test_ctrl_c_is_for_a_program_that_the_shell_runs(terminal):
    terminal.enter("os.execute([[echo rea''dy; exec sleep 600]]) print('back')")
    terminal.expect_line("ready")
    terminal.type("\x03")
    terminal.process.expect(r"\bback\r+\n")
    assert terminal.leave() == (0, [OPENED, CLOSED])


@pytest.mark.parametrize("name", ["SIGTERM", "SIGHUP", "SIGKILL"])
def test_when_rlwrap_is_ended_the_transmitter_is_switched_off(name, terminal):
    terminal.process.kill(signal.Signals[name])
    terminal.recorded.expect([OPENED, *SWITCHED_OFF])
    terminal.process.close()


def test_ctrl_z_stops_and_fg_goes_on(prefix, tmp_path):
    terminal = bash(tmp_path, recorded(prefix, tmp_path).variables)
    terminal.expect_exact(BASH_PROMPT)
    terminal.sendline("sorelapp-edit")
    terminal.expect_exact(PROMPT)
    terminal.send("print('rea' .. 'dy')\r")
    terminal.expect(r"\nready\r+\n")
    terminal.expect_exact(PROMPT)
    terminal.send("\x1a")
    terminal.expect_exact("Stopped")
    terminal.expect_exact(BASH_PROMPT)
    terminal.sendline("fg")
    terminal.expect_exact(PROMPT)
    terminal.send("print('a' .. 'b')\r")
    terminal.expect(r"\nab\r+\n")
    terminal.expect_exact(PROMPT)
    terminal.send("\x04")
    terminal.expect_exact(BASH_PROMPT)
    terminal.sendline("echo status $?")
    terminal.expect_exact("\nstatus 0")


# ---- Without a terminal ----

@pytest.mark.parametrize("stdin, status", [("print(1)\nexit\n", 0), ("print(1)\n", ABORTED)])
def test_input_that_is_piped_in_is_as_it_is_without_rlwrap(stdin, status, prefix, tmp_path):
    def ran(command):
        folder = tmp_path / f"home for {command}"
        folder.mkdir()
        recording = recorded(prefix, folder)
        done = subprocess.run([prefix / "bin" / command], input=stdin, capture_output=True,
                              text=True, env=recording.variables, check=False)
        return done.returncode, done.stdout, done.stderr, recording.log
    edited = ran("sorelapp-edit")
    assert edited == ran("sorelapp-guard")
    assert edited[0] == status

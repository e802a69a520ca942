# SPDX-License-Identifier: LicenseRef-Proprietary
"""What was built, and what runs, is guarded against misuse of its memory.

Environment, besides that of shell.py:
    FLAWED_DIR                  the folder of the program with each flaw
    COMPILE_COMMANDS            how each file of the tree is compiled
    FORTIFIED                   1 where the tree is optimised, by a compiler whose files show it
    HAS_STACK_CLASH_PROTECTION  1 where the compiler has that for the machine
"""

import json
import os
import re
import subprocess
from pathlib import Path

import pytest
from hardening import missing_in_file, writable_code
from shell import COMMAND, EXECUTABLE, FORWARDING, SIMULATION, lua, prompt, type_line

FLAWED = Path(os.environ["FLAWED_DIR"])
FORTIFIED = os.environ["FORTIFIED"] == "1"
HAS_STACK_CLASH_PROTECTION = os.environ["HAS_STACK_CLASH_PROTECTION"] == "1"

PRINT_MAPS = "for line in io.lines('/proc/self/maps') do print(line) end"

FLAWS = {
    "fixed_address": "an address that is not fixed",
    "lazy_binding": "all symbols bound at the start",
    "writable_tables": "tables that are read-only after the start",
    "executable_stack": "a stack that is not executable",
    "writable_code": "no segment that is writable and executable",
    "unguarded_stack": "a guarded stack",
}


def memory_of(program):
    """What a program of FLAWED has in memory, which it prints."""
    return subprocess.run([*COMMAND[:-1], FLAWED / program],
                          capture_output=True, text=True, check=True).stdout


@pytest.mark.parametrize("file", [
    EXECUTABLE, SIMULATION / "libsorel.so.1", FORWARDING / "libsorel.so.1",
], ids=["executable", "simulated board", "forwarding library"])
def test_what_was_built_lacks_nothing(file):
    assert missing_in_file(file, FORTIFIED) == []


def test_a_running_script_has_no_memory_both_writable_and_executable():
    assert writable_code(lua(PRINT_MAPS, driver=SIMULATION).out) == []


def test_the_prompt_has_no_memory_both_writable_and_executable():
    terminal = prompt(driver=SIMULATION)
    assert writable_code("\n".join(type_line(terminal, PRINT_MAPS))) == []
    type_line(terminal, "radioOpen()")
    assert writable_code("\n".join(type_line(terminal, PRINT_MAPS))) == []
    terminal.sendline("exit")
    terminal.wait()


def test_all_code_of_the_product_is_compiled_with_what_cannot_be_read_off_it():
    expected = {"-fstack-protector-strong"}
    if HAS_STACK_CLASH_PROTECTION:
        expected.add("-fstack-clash-protection")
    if FORTIFIED:
        expected.add("-D_FORTIFY_SOURCE=2")
    commands = json.loads(Path(os.environ["COMPILE_COMMANDS"]).read_text(encoding="utf-8"))
    product = [one["command"].split() for one in commands
               if re.search(r" -o (app|binding|driver)/", one["command"])]
    assert len(product) > 60
    for command in product:
        assert expected <= set(command), command


def test_the_program_without_a_flaw_lacks_nothing():
    assert missing_in_file(FLAWED / "no_flaw", FORTIFIED) == []
    assert writable_code(memory_of("no_flaw")) == []


@pytest.mark.parametrize("program, missing", FLAWS.items())
def test_a_flaw_would_be_seen(program, missing):
    assert missing_in_file(FLAWED / program, FORTIFIED) == [missing]


@pytest.mark.skipif(not FORTIFIED, reason="files of clang, and those not optimised, do not show it")
def test_code_that_is_not_fortified_would_be_seen():
    assert missing_in_file(FLAWED / "unfortified", True) == ["fortified calls of the C library"]


@pytest.mark.parametrize("program", ["executable_stack", "writable_code"])
def test_memory_both_writable_and_executable_would_be_seen(program):
    assert writable_code(memory_of(program)) != []

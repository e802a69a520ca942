# SPDX-License-Identifier: LicenseRef-Proprietary
"""How the executable finds the driver, and what it needs."""

import subprocess

import pytest
from catalogue import FUNCTIONS
from elf import values
from shell import EXECUTABLE, ODD_DRIVERS, RECORDING, SIMULATION, lua, run

VERSION_OF_DRIVER = "io.write(radioVersion())"


def test_the_executable_needs_the_driver_by_its_soname():
    assert "libsorel.so.1" in values(EXECUTABLE, "NEEDED")


def test_the_executable_does_not_need_the_cpp_library():
    assert [name for name in values(EXECUTABLE, "NEEDED") if "stdc++" in name] == []


def test_the_executables_own_search_path_yields_to_ld_library_path():
    assert values(EXECUTABLE, "RPATH") == []
    assert values(EXECUTABLE, "RUNPATH") != []


def test_the_executable_finds_its_own_driver():
    ran = run("-c", VERSION_OF_DRIVER, driver=None)
    assert (ran.err, ran.status) == ("", 0)
    assert ran.out not in ("", "recording driver")


def test_the_driver_is_replaced_without_a_rebuild():
    assert lua(VERSION_OF_DRIVER, driver=RECORDING).out == "recording driver"
    assert lua(VERSION_OF_DRIVER, driver=SIMULATION).out not in ("", "recording driver")


@pytest.mark.parametrize("arguments", [["-c", ""], [], ["-v"]], ids=["command", "prompt", "version"])
def test_a_driver_that_lacks_a_function_ends_the_shell_at_its_start(arguments):
    ran = run(*arguments, stdin="exit\n", driver=ODD_DRIVERS / "driver_without_reset")
    assert "undefined symbol: radioReset" in ran.err
    assert (ran.out, ran.log) == ("", [])
    assert ran.status > 0


def test_both_drivers_have_the_drivers_soname_and_functions():
    names = {function.name for function in FUNCTIONS} | {"radioOpen", "radioClose"}
    for folder in (RECORDING, SIMULATION):
        library = folder / "libsorel.so.1"
        assert values(library, "SONAME") == ["libsorel.so.1"]
        listing = subprocess.run(
            ["nm", "--dynamic", "--defined-only", "--format=posix", str(library)],
            capture_output=True, text=True, check=True,
        ).stdout
        exported = {line.split()[0].partition("@")[0] for line in listing.splitlines()}
        assert exported == names

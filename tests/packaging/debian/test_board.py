# SPDX-License-Identifier: LicenseRef-Proprietary
"""The armhf packages: what apt would install with them on a board, and the shell in them, run by
qemu on the libraries that the board would have."""

import re

import pytest
from debian import PACKAGES, SOURCE, TRIPLETS, file_of, output, run, unpack

SYSROOT = SOURCE / "build/sysroot/armhf"
PLATFORM = "print(radioGetPlatformName())"


def simulate(*packages):
    """apt on an armhf system with no package installed, and the mirror's in reach."""
    files = [file_of(package, "armhf") for package in packages]
    tool = SOURCE / "cmake/toolchains/debian-sysroot"
    return run(tool, "armhf", "apt-get", "--simulate", "--no-install-recommends", "install", *files)


def test_all_dependencies_are_to_be_had_for_the_board():
    done = simulate(*PACKAGES)
    assert done.returncode == 0, done.stdout
    installed = set(re.findall(r"^Inst ([^ :]+)", done.stdout, re.MULTILINE))
    assert {*PACKAGES, "libc6", "liblua5.1-0", "lua-bitop", "lua-socket"} <= installed


def test_without_a_driver_in_reach_the_shell_is_not_installed():
    done = simulate("sorelapp")
    assert done.returncode != 0
    assert "sorelapp : Depends: libsorel1 but it is not installable" in done.stdout


@pytest.fixture(name="shell", scope="module")
def unpacked_shell(tmp_path_factory):
    """Runs the shell of the packages with these arguments."""
    folder = tmp_path_factory.mktemp("board")
    for package in PACKAGES:
        unpack(package, "armhf", folder)
    usr = folder / "usr"
    command = (
        "qemu-arm", "-L", SYSROOT,
        "-E", f"LD_LIBRARY_PATH={usr / 'lib' / TRIPLETS['armhf']}",
        "-E", f"LUA_PATH={usr}/share/lua/5.1/?.lua;;",
        usr / "bin/sorelapp",
    )
    return lambda *arguments, **more: output(*command, *arguments, **more)


def test_the_shell_runs_one_command(shell):
    assert shell("-c", PLATFORM) == "simulated board\n"


def test_the_shell_runs_a_script(shell, tmp_path):
    script = tmp_path / "script.lua"
    script.write_text(f"{PLATFORM} print(bit.tohex(255), socket.gettime() > 0)")
    assert shell("-b", script) == "simulated board\n000000ff\ttrue\n"


def test_the_shell_prompts(shell):
    printed = shell(stdin=None, input=f"{PLATFORM}\nexit\n")
    assert printed == "sorelapp> simulated board\nsorelapp> "


def test_a_script_finds_the_lua_modules(shell):
    script = "print(require('sorel.constants').name('RADIO_BAND', 7))"
    assert shell("-c", script) == "RADIO_BAND_7\n"

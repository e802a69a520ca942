# SPDX-License-Identifier: LicenseRef-Proprietary
"""./dev board, with the recording driver as the driver of a board."""

import os
import shutil
import subprocess
from pathlib import Path

import pytest

from dev_command import ROOT, dev, standing_in
from shell import COMMAND, EXECUTABLE, RECORDING

LIBRARY = RECORDING / "libsorel.so"
PLATFORM = ("-c", "io.write(radioGetPlatformName())")


def board(library, header=ROOT / "include", **more):
    return dev("board", library, header, **more)


@pytest.fixture(name="driver", scope="module")
def fixture_driver(tmp_path_factory):
    """The folder of a vendor's driver: library and header."""
    folder = tmp_path_factory.mktemp("a vendor")
    shutil.copy(LIBRARY, folder / "libsorel.so")
    (folder / "libsorel.so.1").symlink_to("libsorel.so")
    shutil.copy(ROOT / "include/sorel.h", folder)
    return folder


def run(executable, **more):
    """What a shell prints, run as the one under test is: by an emulator, if it needs one."""
    variables = {name: value for name, value in os.environ.items() if name != "LD_LIBRARY_PATH"}
    return subprocess.run([*COMMAND[:-1], executable, *PLATFORM], capture_output=True, text=True,
                          env=variables | more, check=True).stdout


def test_the_shell_that_it_names_runs_on_the_driver(driver):
    done = board("libsorel.so", ".", cwd=driver)
    assert done.returncode == 0, done.stderr
    executable = done.stderr.splitlines()[-1].partition("the shell is ")[2].partition(";")[0]
    assert run(executable) == "recording driver"
    assert Path(executable).parent.parent.name == ("board-arm" if COMMAND[:-1] else "board")


def test_what_belongs_on_the_board_is_in_a_folder_that_knows_no_other(driver):
    done = board(driver / "libsorel.so", driver)
    installed = ROOT / done.stderr.splitlines()[-1].rpartition(" in ")[2]
    assert (installed / "share/man/man1/sorelapp.1").exists()
    assert not list(installed.rglob("sorel.h"))
    executable = installed / "bin/sorelapp"
    assert run(executable, LD_LIBRARY_PATH=str(driver)) == "recording driver"
    assert str(driver).encode() not in executable.read_bytes()
    assert executable.stat().st_size < EXECUTABLE.stat().st_size


def test_a_driver_that_is_refused_is_not_taken_for_the_one_before(driver, tmp_path):
    assert board(driver / "libsorel.so", driver).returncode == 0
    other = tmp_path / "libsorel.so"
    other.write_bytes(b"\x7fELF")
    done = board(other)
    assert done.returncode == 1
    assert "libsorel.so is no ELF file; the driver's shared library" in " ".join(done.stderr.split())
    shutil.copy(LIBRARY, other)
    assert board(other).returncode == 0


def test_a_library_for_arm_is_built_for_with_the_compiler_for_arm(tmp_path):
    library = tmp_path / "libsorel.so"
    library.write_bytes(b"\x7fELF\1\1\1" + bytes(9) + b"\3\0\x28\0" + bytes(44))
    env = standing_in(
        tmp_path, id="echo 0", apt_get="exit 1",
        dpkg_query="shift 3; printf 'installed %s\\n' \"$@\" | grep -v -- -arm-linux-gnueabihf",
    )
    done = board(library, env=env)
    assert done.returncode == 1
    assert done.stderr.endswith("apt-get install g++-arm-linux-gnueabihf\n")


@pytest.mark.parametrize("arguments, message", [
    ((), "board takes the driver's libsorel.so and the folder of its sorel.h"),
    (("libsorel.so",), "board takes the driver's libsorel.so and the folder of its sorel.h"),
    (("none/libsorel.so", "."), "there is no file 'none/libsorel.so'"),
    ((".", "."), "there is no file '.'"),
    (("libsorel.so", "none"), "there is no folder 'none'"),
    (("libsorel.so", "sorel.h"), "there is no folder 'sorel.h'"),
])
def test_what_is_missing_is_named(driver, arguments, message):
    done = dev("board", *arguments, cwd=driver)
    assert (done.stderr, done.returncode) == (f"dev: {message}\n", 1)

# SPDX-License-Identifier: LicenseRef-Proprietary
"""The amd64 packages on a Debian 12 made afresh: installed by apt, used, replaced, removed.

All tests share one system, and each state of it is a fixture, in the order of the tests.
"""

import shutil

import pexpect
import pytest
from debian import (
    COMPLETION, FOLDER, LIBRARY, MANUAL_PAGE, SOURCE, TRIPLETS, VERSION,
    file_of, output,
)
from fresh_debian import CannotBeMade, fresh_debian

LIBRARIES = f"/usr/lib/{TRIPLETS['amd64']}"
PLATFORM = "print(radioGetPlatformName())"


def make_vendor_package(content, package):
    """libsorel1 as the maker of a board would package a driver."""
    (content / "DEBIAN").mkdir()
    (content / "DEBIAN/control").write_text(
        "Package: libsorel1\nVersion: 7.0\nArchitecture: amd64\nDepends: libc6\n"
        "Maintainer: a board's maker <nobody@board.invalid>\nDescription: a board's driver\n"
    )
    (content / "DEBIAN/triggers").write_text("activate-noawait ldconfig\n")
    libraries = content / LIBRARIES.lstrip("/")
    libraries.mkdir(parents=True)
    output(
        "gcc", "-shared", "-fPIC", f"-Wl,-soname,{LIBRARY}", f"-I{SOURCE}/include",
        *SOURCE.glob("tests/recording_driver/*.c"), "-o", libraries / LIBRARY,
    )
    output("dpkg-deb", "--root-owner-group", "--build", content, package)


def make_repository(folder):
    """Our packages, for apt to find like those of the mirror."""
    for file in FOLDER.glob("*_amd64.deb"):
        shutil.copy(file, folder)
    (folder / "Packages").write_text(output("dpkg-scanpackages", ".", cwd=folder, stderr=None))


@pytest.fixture(name="fresh", scope="module")
def fresh_system(tmp_path_factory):
    """Nothing of ours is installed yet."""
    repository = tmp_path_factory.mktemp("repository")
    make_repository(repository)
    make_vendor_package(tmp_path_factory.mktemp("vendor"), repository / "libsorel1.deb")
    try:
        with fresh_debian(tmp_path_factory.mktemp("system")) as system:
            shutil.copytree(repository, system.root / "packages")
            (system.root / "etc/apt/sources.list.d/packages.list").write_text(
                "deb [trusted=yes] file:/packages ./\n"
            )
            system.apt("update")
            yield system
    except CannotBeMade as reason:
        # What it takes, not every machine that makes packages has: root, mounts, a mirror.
        pytest.skip(f"no fresh Debian 12: {reason}")


@pytest.fixture(name="files_before", scope="module")
def files_of_the_fresh_system(fresh):
    return fresh.files()


@pytest.fixture(name="system", scope="module")
def system_with_the_shell(fresh, files_before):
    """The shell and what its package brings."""
    fresh.apt("install", "sorelapp")
    return fresh


def test_the_shell_brings_the_simulated_board_where_there_is_no_other_driver(system):
    assert {"sorelapp", "libsorel-sim1"} <= system.installed()


def test_every_library_is_found(system):
    for program in ("/usr/bin/sorelapp", f"{LIBRARIES}/{LIBRARY}"):
        found = system.output("ldd", program)
        assert "libc.so.6 => " in found
        assert "not found" not in found


def test_the_shell_runs_one_command(system):
    assert system.output("sorelapp", "-c", PLATFORM) == "simulated board\n"


def test_the_shell_runs_a_script(system):
    script = f"{PLATFORM} print(bit.tohex(255), socket.gettime() > 0)"
    (system.root / "tmp/script.lua").write_text(script)
    printed = system.output("sorelapp", "-b", "/tmp/script.lua")
    assert printed == "simulated board\n000000ff\ttrue\n"


def test_the_shell_prompts_on_a_terminal(system):
    command, *arguments = (*system.chroot, "sorelapp")
    terminal = pexpect.spawn(
        command, arguments, env=system.environment, encoding="utf-8", echo=False, timeout=60
    )
    terminal.expect_exact("sorelapp> ")
    terminal.sendline(PLATFORM)
    terminal.expect_exact("simulated board\r\nsorelapp> ")
    terminal.sendline("exit")
    terminal.expect(pexpect.EOF)
    terminal.close()
    assert terminal.exitstatus == 0


def test_the_shell_prompts_for_lines_that_are_piped_in(system):
    printed = system.output("sorelapp", stdin=None, input=f"{PLATFORM}\nexit\n")
    assert printed == "sorelapp> simulated board\nsorelapp> "


def test_a_script_finds_the_lua_modules(system):
    script = "print(require('sorel.constants').name('RADIO_BAND', 7))"
    assert system.output("sorelapp", "-c", script) == "RADIO_BAND_7\n"


def test_the_manual_page_is_there(system):
    assert " SORELAPP 1" in system.output("zcat", f"/{MANUAL_PAGE}")


def test_the_completion_is_one_that_bash_takes(system):
    script = f"source /{COMPLETION} && complete -p sorelapp"
    assert system.output("bash", "-c", script).endswith(" sorelapp\n")


def test_the_guard_runs_the_shell_and_switches_the_transmitter_off(system):
    ran = system.run("sorelapp-guard", "-c", f"{PLATFORM} error()")
    assert ran.returncode == 1
    assert "simulated board\n" in ran.stdout  # the panic message is in between
    assert ran.stdout.endswith("sorelapp ended with status 1; the transmitter is off\n")


def test_without_rlwrap_the_program_that_needs_it_says_so(system):
    refused = system.run("sorelapp-edit", "-c", PLATFORM)
    assert (refused.returncode, "no program rlwrap" in refused.stdout) == (127, True)


def test_a_ready_scenario_is_there(system):
    scenario = {"SOREL_SIM_SCENARIO": "/usr/share/libsorel-sim/scenarios/hot_board.toml"}
    script = "print(radioGetTemperature() > 50)"
    assert system.output("sorelapp", "-c", script, environment=scenario) == "true\n"


def test_the_tracing_library_stands_in_front_of_the_driver(system):
    traced = {
        "LD_LIBRARY_PATH": f"{LIBRARIES}/sorelapp-trace",
        "SOREL_TRACE_DRIVER": f"{LIBRARIES}/{LIBRARY}",
    }
    printed = system.output("sorelapp", "-c", PLATFORM, environment=traced)
    assert 'radioGetPlatformName() = "simulated board"\n' in printed


def test_dpkg_does_not_put_a_boards_driver_beside_the_simulated_board(system):
    refused = system.run("dpkg", "-i", "/packages/libsorel1.deb")
    assert refused.returncode != 0
    assert "libsorel-sim1 conflicts with libsorel1" in refused.stdout
    assert "libsorel1" not in system.installed()


@pytest.fixture(name="board", scope="module")
def system_with_a_boards_driver(system):
    """The package of the board's maker, installed where the simulated board was."""
    system.apt("install", "/packages/libsorel1.deb")
    return system


def test_a_boards_driver_takes_the_simulated_boards_place(board):
    installed = board.installed()
    assert {"sorelapp", "libsorel1"} <= installed
    assert "libsorel-sim1" not in installed


def test_the_shell_runs_on_the_boards_driver_as_it_is(board):
    assert board.output("sorelapp", "-c", PLATFORM) == "recording driver\n"


def test_dpkg_does_not_put_the_simulated_board_beside_a_boards_driver(board):
    refused = board.run("dpkg", "-i", f"/packages/{file_of('libsorel-sim1', 'amd64').name}")
    assert refused.returncode != 0
    assert "libsorel1" in board.installed()
    assert board.output("sorelapp", "-c", PLATFORM) == "recording driver\n"


def test_what_programs_are_built_with_is_installed_beside_a_boards_driver(board):
    board.apt("install", "libsorel-dev")
    assert "libsorel-sim1" not in board.installed()
    link = board.output("readlink", "-e", f"{LIBRARIES}/libsorel.so")
    assert link == f"{LIBRARIES}/{LIBRARY}\n"
    assert "#define SOREL_H" in board.output("cat", "/usr/include/sorel.h")


def test_the_shell_installed_after_a_boards_driver_does_not_bring_the_simulated_board(board):
    board.apt("purge", "sorelapp")
    board.apt("install", "sorelapp")
    installed = board.installed()
    assert {"sorelapp", "libsorel1"} <= installed
    assert "libsorel-sim1" not in installed


def test_the_version_is_that_of_the_package(board):
    version = board.output("dpkg-query", "-W", "-f", "${Version}", "sorelapp")
    assert version == VERSION
    assert f"v{version} " in board.output("sorelapp", "--version")


def test_nothing_is_left_of_packages_that_are_removed(board, files_before):
    board.apt("purge", "--auto-remove", "sorelapp", "libsorel1", "libsorel-dev")
    assert board.files() ^ files_before == set()


def test_without_packages_the_shell_and_a_driver_run_from_usr_local(board):
    board.apt("install", "liblua5.1-0", "lua-bitop", "lua-socket")
    output("cmake", "--install", SOURCE / "build/package-amd64", "--component", "sorelapp",
           "--prefix", board.root / "usr/local")
    board.output("dpkg-deb", "-x", "/packages/libsorel1.deb", "/tmp/driver")
    board.output("cp", f"/tmp/driver{LIBRARIES}/{LIBRARY}", "/usr/local/lib")
    board.output("ldconfig")
    script = f"{PLATFORM} print(require('sorel.constants').value('RADIO_BAND', 'RADIO_BAND_7'))"
    assert board.output("sorelapp", "-c", script) == "recording driver\n7\n"

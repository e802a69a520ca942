# SPDX-License-Identifier: LicenseRef-Proprietary
"""An installation under a prefix, and what it takes to use it.

Environment, besides that of installation.py and shell.py, whose executable is the installed one:
    INSTALL_PREFIX   where to install; its name has a blank
    INSTALL_LIBDIR   the folder of libraries there
    C_COMPILER       the build tree's C compiler
    C_FLAGS          what the build tree compiles all of C with
    TOOLCHAIN_FILE   its toolchain file, or nothing
"""

import os
import re
import shutil
import subprocess
from pathlib import Path

import pytest
from elf import values
from installation import install
from shell import COMMAND, EXECUTABLE, SOURCE, VERSION, lua

PREFIX = Path(os.environ["INSTALL_PREFIX"])
LIBRARIES = PREFIX / os.environ["INSTALL_LIBDIR"]
SHARED = PREFIX / "share"
TOOLCHAIN = os.environ["TOOLCHAIN_FILE"]
EXAMPLE = SOURCE / "examples/temperature"
MODULES = {"LUA_PATH": f"{SHARED}/lua/5.1/?.lua;;"}


def output(*command, **more):
    done = subprocess.run(command, capture_output=True, text=True, check=False, **more)
    assert done.returncode == 0, done.stdout + done.stderr
    return done.stdout


@pytest.fixture(scope="module", autouse=True)
def installed():
    """Afresh: cmake removes nothing that an earlier run left."""
    shutil.rmtree(PREFIX, ignore_errors=True)
    install(PREFIX)


def assert_runs(example, **more):
    """The program built from the example reads the temperature of the simulated board."""
    printed = output(*COMMAND[:-1], example, **more)
    assert re.fullmatch(r"simulated board: [0-9]+\.[0-9]{2} degC\n", printed)


def test_the_shell_runs_on_the_installed_board_once_that_is_on_the_library_path():
    assert lua("print(radioGetPlatformName())", driver=LIBRARIES).out == "simulated board\n"


def test_lua_modules_are_found_once_they_are_on_luas_path():
    script = "print(require('sorel.constants').value('RADIO_BAND', 'RADIO_BAND_7'))"
    assert lua(script, driver=LIBRARIES, **MODULES).out == "7\n"


def test_the_installed_programs_have_no_search_path():
    for file in (EXECUTABLE, LIBRARIES / "libsorel.so.1"):
        assert values(file, "RPATH") + values(file, "RUNPATH") == []


def test_ready_scenarios_are_installed_for_use():
    scenario = SHARED / "libsorel-sim/scenarios/hot_board.toml"
    script = "print(radioGetTemperature() > 50)"
    assert lua(script, driver=LIBRARIES, SOREL_SIM_SCENARIO=str(scenario)).out == "true\n"


def test_the_tracing_library_stands_in_front_of_the_installed_driver():
    ran = lua(
        "radioGetTemperature()",
        driver=LIBRARIES / "sorelapp-trace",
        SOREL_TRACE_DRIVER=str(LIBRARIES / "libsorel.so.1"),
        SOREL_SIM_TRACE="/dev/stdout",
    )
    assert "radioGetTemperature() = " in ran.out


def test_the_links_of_the_boards_installed_documentation_lead_to_something():
    documents = SHARED / "doc/libsorel-sim1"
    links = re.findall(r"\]\(([^)#]+)\)", (documents / "README.md").read_text())
    assert len(links) >= 3
    assert [link for link in links if not (documents / link).exists()] == []


def configure(source, tree, *options):
    """Runs CMake on a project that looks for the package where it is installed."""
    if TOOLCHAIN:  # which has CMake look for packages in the sysroot only
        options += (f"-DCMAKE_TOOLCHAIN_FILE={TOOLCHAIN}", f"-Dsorel_DIR={LIBRARIES}/cmake/sorel")
    else:
        options += (f"-DCMAKE_PREFIX_PATH={PREFIX}",)
    return subprocess.run(
        ["cmake", "-G", "Ninja", "-S", source, "-B", tree, *options],
        capture_output=True, text=True, check=False,
    )


def test_a_project_finds_the_driver_with_find_package(tmp_path):
    done = configure(EXAMPLE, tmp_path, f"-DCMAKE_C_COMPILER={os.environ['C_COMPILER']}")
    assert done.returncode == 0, done.stderr
    output("cmake", "--build", tmp_path)
    assert_runs(tmp_path / "temperature")


def test_a_program_is_compiled_with_what_pkg_config_says(tmp_path):
    line = re.search(r"or by: cc (.*) \*/", (EXAMPLE / "temperature.c").read_text())[1]
    flags = output(
        "pkg-config", *re.search(r"\$\(pkg-config (.*)\)", line)[1].split(),
        env=os.environ | {"PKG_CONFIG_PATH": f"{LIBRARIES}/pkgconfig"},
    )
    # As make does: what pkg-config says becomes part of the line, whose quoting it knows.
    line = re.sub(r"\$\(.*\)", lambda _: flags.strip(), line)
    line = line.replace("temperature.c", f"'{EXAMPLE}/temperature.c'")
    output("sh", "-c", f"{os.environ['C_COMPILER']} {os.environ['C_FLAGS']} {line}", cwd=tmp_path)
    assert_runs(tmp_path / "temperature", env=os.environ | {"LD_LIBRARY_PATH": str(LIBRARIES)})


def test_a_project_that_needs_another_version_is_told_of_this_one(tmp_path):
    (tmp_path / "CMakeLists.txt").write_text(
        "cmake_minimum_required(VERSION 3.16)\n"
        "project(newer LANGUAGES NONE)\n"
        "find_package(sorel 99 REQUIRED)\n"
    )
    done = configure(tmp_path, tmp_path / "tree")
    assert done.returncode != 0
    assert f"sorelConfig.cmake, version: {VERSION}" in done.stderr

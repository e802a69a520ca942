# SPDX-License-Identifier: LicenseRef-Proprietary
"""What is said at configure time of a driver that the shell cannot be built for.

All cases configure one tree, in which nothing may be left of the case before.

Environment:
    CONFIGURE             the command that configures this source tree, but for -B and the driver
    DRIVER                a driver that the shell can be built for: a libsorel.so.1
    VERSIONED_DRIVER      one that is stripped, and whose functions have versions
    DRIVER_WITHOUT_RESET  one that lacks radioReset() alone
    LACKING_DRIVER        one that has radioOpen() and radioClose() alone, and no SONAME
    SELF_CALLING_DRIVER   one that has all functions, and no SONAME
    SORELAPP_SOURCE_DIR   root of the source tree
"""

import os
import shlex
import shutil
import subprocess
from pathlib import Path

import pytest

CONFIGURE = shlex.split(os.environ["CONFIGURE"])
DRIVER = Path(os.environ["DRIVER"])
VERSIONED_DRIVER = Path(os.environ["VERSIONED_DRIVER"])
DRIVER_WITHOUT_RESET = Path(os.environ["DRIVER_WITHOUT_RESET"])
LACKING_DRIVER = Path(os.environ["LACKING_DRIVER"])
SELF_CALLING_DRIVER = Path(os.environ["SELF_CALLING_DRIVER"])
HEADER = Path(os.environ["SORELAPP_SOURCE_DIR"], "include", "sorel.h").read_text()

LIBRARY = DRIVER.read_bytes()
ORDER = "little" if LIBRARY[5] == 1 else "big"
MACHINE = int.from_bytes(LIBRARY[18:20], ORDER)
BITS = 32 * LIBRARY[4]
ENDIAN = "" if ORDER == "little" else ", big-endian"
ARM = 40
TARGET = {
    ARM: "ARM, 32 bit, hard-float",
    62: "x86-64, 64 bit",
    183: "AArch64, 64 bit",
    22: "IBM Z, 64 bit, big-endian",
}[MACHINE]


def number(value, size=2):
    return value.to_bytes(size, ORDER)


def patched(changes):
    """The driver with other bytes at some places."""
    result = bytearray(LIBRARY)
    for place, content in changes.items():
        result[place:place + len(content)] = content
    return bytes(result)


# Where an ELF header has them; the flags in one of 32 bits.
WIDTH, BYTE_ORDER, TYPE, ELF_MACHINE, FLAGS = 4, 5, 16, 18, 36

OTHER_WIDTH = {WIDTH: bytes([3 - LIBRARY[WIDTH]])}
OTHER_ORDER = {BYTE_ORDER: bytes([3 - LIBRARY[BYTE_ORDER]]), TYPE: number(3)[::-1]}
SOFT_FLOAT_ARM = {WIDTH: b"\1\1", TYPE: b"\3\0", ELF_MACHINE: b"\x28\0", FLAGS: b"\0\2\0\5"}


@pytest.fixture(name="configure", scope="module")
def configure_fixture(tmp_path_factory):
    """Configures the tree for a driver; returns whether that succeeded, and what was said."""
    tree = tmp_path_factory.mktemp("tree")

    def configure(library="", folder=""):
        driver = [f"-DSOREL_LIBRARY={library}", f"-DSOREL_INCLUDE_DIR={folder}"]
        done = subprocess.run([*CONFIGURE, "-B", tree, *driver],
                              capture_output=True, text=True, check=False)
        return done.returncode == 0, done.stderr

    configure.tree = tree
    return configure


def words(said):
    """Without the line breaks that CMake sets, and without the places in CMake's files."""
    return " ".join(said.partition("Call Stack")[0].split())


def assert_refused(result, message):
    succeeded, said = result
    assert not succeeded
    assert message in words(said)
    assert len(said.splitlines()) <= 16, said


def given(folder, content, name="libsorel.so"):
    (folder / name).write_bytes(content)
    return folder / name


NO_LIBRARIES = [
    ("an empty file", b""),
    ("a text file", b"INPUT(libsorel.so.1)\n"),
    ("a static library", b"!<arch>\nradio.o/        0           0     0     644     0         `\n"),
    ("an object file", patched({TYPE: number(1)})),
    ("an executable", patched({TYPE: number(2)})),
    ("no ELF file", patched({TYPE: number(0xfe00)})),
    ("no ELF file", LIBRARY[:51]),
    ("no ELF file", b"MZ" + LIBRARY[2:]),
]


@pytest.mark.parametrize("kind, content", NO_LIBRARIES, ids=[kind for kind, _ in NO_LIBRARIES])
def test_what_is_no_shared_library(configure, tmp_path, kind, content):
    library = given(tmp_path, content)
    assert_refused(configure(library),
                   f"SOREL_LIBRARY: {library} is {kind}; the driver's shared library is needed")


def test_a_folder_is_no_library(configure, tmp_path):
    assert_refused(configure(tmp_path), f"SOREL_LIBRARY: {tmp_path} is a folder;")


def test_a_library_that_does_not_exist(configure, tmp_path):
    library = tmp_path / "nowhere" / "libsorel.so"
    assert_refused(configure(library), f"SOREL_LIBRARY: there is no file {library}")


@pytest.mark.parametrize("content, target", [
    (patched({ELF_MACHINE: number(243)}), f"RISC-V, {BITS} bit{ENDIAN}"),
    (patched({ELF_MACHINE: number(12345)}), f"machine 12345, {BITS} bit{ENDIAN}"),
    (patched(OTHER_WIDTH | {ELF_MACHINE: number(8)}), f"MIPS, {96 - BITS} bit{ENDIAN}"),
    (patched(OTHER_ORDER | {ELF_MACHINE: number(21)[::-1]}),
     f"PowerPC, {BITS} bit" + ("" if ENDIAN else ", big-endian")),
    (patched(SOFT_FLOAT_ARM), "ARM, 32 bit, soft-float"),
], ids=["known", "unknown", "other_width", "other_byte_order", "soft_float"])
def test_a_library_for_another_machine(configure, tmp_path, content, target):
    library = given(tmp_path, content)
    assert_refused(configure(library),
                   f"SOREL_LIBRARY: {library} is for {target}; this build is for {TARGET}")


# The first makes a library for another machine in a cross build, the second on a PC.
COMPILERS = ["gcc"], ["gcc", "-m32"], ["arm-linux-gnueabihf-gcc"]


def real_library_for_another_machine(folder):
    source, library = folder / "empty.c", folder / "libsorel.so"
    source.touch()
    for compiler in COMPILERS:
        if shutil.which(compiler[0]):
            command = [*compiler, "-shared", "-nostdlib", "-o", library, source]
            made = subprocess.run(command, capture_output=True, check=False).returncode == 0
            if made and library.read_bytes()[:20] != LIBRARY[:20]:
                return library
    return None


def test_a_real_library_for_another_machine(configure, tmp_path):
    library = real_library_for_another_machine(tmp_path)
    if library is None:  # not on a PC with x86-64, nor in a cross build
        pytest.skip("no compiler here makes a library for another machine")
    result = configure(library)
    assert_refused(result, f"SOREL_LIBRARY: {library} is for ")
    assert_refused(result, f"; this build is for {TARGET}")


# Elsewhere the flags mean something else, so there is no such library.
@pytest.mark.skipif(MACHINE != ARM, reason="only ARM has two ways to pass floating-point numbers")
def test_a_library_that_does_not_say_how_it_passes_floating_point_numbers(configure, tmp_path):
    library = given(tmp_path, patched({FLAGS: b"\0\0\0\5"}))
    assert configure(library)[0]


def test_a_library_that_lacks_a_function(configure):
    assert_refused(configure(DRIVER_WITHOUT_RESET),
                   f"SOREL_LIBRARY: {DRIVER_WITHOUT_RESET} lacks radioReset")


def test_all_functions_that_a_library_lacks_are_named(configure, tmp_path):
    library = given(tmp_path, LACKING_DRIVER.read_bytes())
    _, said = configure(library)
    lacking = words(said).partition(f"{library} lacks ")[2].split(", ")
    assert len(lacking) == len(set(lacking)) == 44
    assert {"radioSelectPlatform", "radioGetRxRtwp", "radioGetRxRtwpIndBm"} <= set(lacking)
    assert not {"radioOpen", "radioClose"} & set(lacking)


def test_a_library_that_the_linker_refuses(configure, tmp_path):
    library = given(tmp_path, LIBRARY[:len(LIBRARY) // 2])
    assert_refused(configure(library),
                   f"SOREL_LIBRARY: the shell cannot be linked with {library}: ")


def test_a_library_without_soname_and_of_an_odd_name(configure, tmp_path):
    library = given(tmp_path, LACKING_DRIVER.read_bytes(), "driver.so")
    assert_refused(configure(library), f"SOREL_LIBRARY: {library} has no SONAME;")


@pytest.mark.parametrize("driver", [DRIVER, VERSIONED_DRIVER], ids=["plain", "versioned"])
def test_a_driver_that_the_shell_can_be_built_for(configure, driver):
    assert configure(driver) == (True, "")


def test_a_library_of_another_soname_is_warned_of(configure, tmp_path):
    library = given(tmp_path, LIBRARY.replace(b"libsorel.so.1\0", b"libsorel.so.9\0"))
    succeeded, said = configure(library)
    assert succeeded
    assert f"{library} is libsorel.so.9 at run time; the shell will look for that" in words(said)


def test_a_library_without_soname_is_known_by_its_files_name(configure, tmp_path):
    library = given(tmp_path, SELF_CALLING_DRIVER.read_bytes())
    succeeded, said = configure(library)
    assert succeeded
    assert f"{library} is libsorel.so at run time; the shell will look for that" in words(said)


@pytest.mark.parametrize("change, message", [
    (("#ifndef SOREL_H", "#error made for PowerPC\n#ifndef SOREL_H"), "made for PowerPC"),
    (("#endif\n\n#undef", "#endif\nstatic_assert(sizeof(void *) == 2, \"16-bit only\");\n#undef"),
     "16-bit only"),
    (("#include <stdio.h>", "#include <stdio.h>\n#include \"not_there.h\""), "not_there.h"),
    (("RadioHooks", "RadioMemory"), "RadioHooks"),
    (("RadioReturn radioReset(", "RadioReturn radioRestart("), "radioReset"),
    (("RadioReturn radio", "RadioReturn vendorRadio"), "and more"),
], ids=["error", "static_assertion", "include", "type", "function", "many_functions"])
def test_a_header_that_the_shell_does_not_compile_with(configure, tmp_path, change, message):
    changed = HEADER.replace(*change)
    assert changed != HEADER
    (tmp_path / "sorel.h").write_text(changed)
    result = configure(folder=tmp_path)
    assert_refused(
        result, f"SOREL_INCLUDE_DIR: the shell cannot be compiled with {tmp_path}/sorel.h: ")
    assert_refused(result, message)


def test_a_header_for_c_alone(configure, tmp_path):
    changed = HEADER.replace('extern "C" {', "").replace("#ifdef __cplusplus\n}\n#endif", "")
    assert changed.count("extern") == 0
    (tmp_path / "sorel.h").write_text(changed)
    assert_refused(configure(DRIVER, tmp_path),
                   f'SOREL_INCLUDE_DIR: {tmp_path}/sorel.h lacks the extern "C" that C++ needs')


def test_a_folder_without_the_header(configure, tmp_path):
    assert_refused(configure(folder=tmp_path),
                   f"SOREL_INCLUDE_DIR: there is no sorel.h in {tmp_path}")


def test_a_file_that_is_put_right_is_accepted_and_one_that_is_spoilt_is_not(configure, tmp_path):
    folder = tmp_path / "a folder"
    folder.mkdir()
    header = folder / "sorel.h"
    for library, text, accepted in [(b"", HEADER, False), (LIBRARY, "#error", False),
                                    (LIBRARY, HEADER, True), (LIBRARY, "#error", False),
                                    (b"", HEADER, False), (LIBRARY, HEADER, True)]:
        header.write_text(text)
        assert configure(given(folder, library), folder)[0] == accepted


def test_a_build_looks_at_a_changed_file_again(configure, tmp_path):
    library = given(tmp_path, LIBRARY)
    assert configure(library)[0]
    given(tmp_path, patched({ELF_MACHINE: number(243)}))
    done = subprocess.run(["cmake", "--build", configure.tree, "--target", "build.ninja"],
                          capture_output=True, text=True, check=False)
    assert done.returncode != 0
    assert f"{library} is for RISC-V" in words(done.stdout + done.stderr)

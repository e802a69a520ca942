# SPDX-License-Identifier: LicenseRef-Proprietary
"""What is in the packages, and what they say of themselves."""

import filecmp
import re
import tempfile
from pathlib import Path

import pytest
from debian import (
    COMPLETION, FOLDER, LIBRARY, MANUAL_PAGE, PACKAGES, SOURCE, TRIPLETS,
    field, file_of, names, output, unpack,
)
from elf import values
from hardening import missing_in_file

# Where the libraries that programs may need come from.
PACKAGE_OF = {
    "libc.so.6": "libc6",
    "libm.so.6": "libc6",
    "ld-linux-x86-64.so.2": "libc6",
    "ld-linux-armhf.so.3": "libc6",
    "liblua5.1.so.0": "liblua5.1-0",
    "liblua5.1-bitop.so.0": "lua-bitop",
    "liblua5.1-socket.so.2": "lua-socket",
    LIBRARY: "libsorel1",
}
MACHINES = {"amd64": "Advanced Micro Devices X86-64", "armhf": "ARM"}

SCRIPTS = ("sorelapp-edit", "sorelapp-guard")

each_package = pytest.mark.parametrize("package", PACKAGES)
each_architecture = pytest.mark.parametrize("architecture", TRIPLETS)


def programs(package, triplet):
    """The executables and libraries that a package is to have."""
    return {
        "sorelapp": {"usr/bin/sorelapp", f"usr/lib/{triplet}/sorelapp-trace/{LIBRARY}"},
        "libsorel-sim1": {f"usr/lib/{triplet}/{LIBRARY}"},
        "libsorel-dev": set(),
    }[package]


def relative(folder, pattern):
    return {str(path.relative_to(folder)) for path in folder.glob(pattern)}


def expected(package, triplet):
    """All files that a package is to have."""
    documents = f"usr/share/doc/{package}"
    own = {
        "sorelapp": {
            *(f"usr/bin/{script}" for script in SCRIPTS),
            MANUAL_PAGE,
            *(f"usr/share/man/man1/{script}.1.gz" for script in SCRIPTS),
            COMPLETION,
            *(f"{COMPLETION.removesuffix('sorelapp')}{script}" for script in SCRIPTS),
            *(f"usr/share/sorelapp/rlwrap/{file}"
              for file in ("README.md", "filter.pl", "inputrc", "sorelapp.words")),
            f"{documents}/README.md",
            *(f"{documents}/{file}" for file in relative(SOURCE / "docs", "*.md")),
            *(f"{documents}/{file}" for file in relative(SOURCE / "docs", "performance/*.png")),
            *(f"usr/share/lua/5.1/{file}" for file in relative(SOURCE / "lua", "**/*.lua")),
            "usr/share/sorelapp/editor/README.md",
            *(f"usr/share/sorelapp/editor/{file}"
              for file in relative(SOURCE / "packaging/editor", "**/*.lua")),
        },
        "libsorel-sim1": {
            f"{documents}/README.md",
            f"{documents}/pictures/gain_modes.png",
            f"{documents}/calibration",
            f"{documents}/scenarios",
            "usr/share/libsorel-sim/calibration/example.toml",
            *(f"usr/share/libsorel-sim/{file}"
              for file in relative(SOURCE / "driver", "scenarios/*.toml")),
            f"usr/share/lintian/overrides/{package}",
        },
        "libsorel-dev": {
            "usr/include/sorel.h",
            f"usr/lib/{triplet}/libsorel.so",
            f"usr/lib/{triplet}/pkgconfig/sorel.pc",
            *(f"usr/lib/{triplet}/cmake/sorel/sorelConfig{part}.cmake"
              for part in ("", "-release", "Version")),
            *(f"{documents}/examples/{file}"
              for file in relative(SOURCE / "examples", "temperature/*")),
        },
    }
    return own[package] | programs(package, triplet) | {
        f"{documents}/changelog.gz", f"{documents}/copyright"
    }


@pytest.fixture(name="unpacked")
def unpacked_package(package, architecture, tmp_path):
    unpack(package, architecture, tmp_path)
    return tmp_path


def test_there_are_three_packages_for_each_architecture():
    assert {file.name for file in FOLDER.iterdir()} == {
        file_of(package, architecture).name for package in PACKAGES for architecture in TRIPLETS
    }


@each_package
@each_architecture
def test_a_package_has_its_files_and_no_others(package, architecture, unpacked):
    found = {
        str(path.relative_to(unpacked)) for path in unpacked.rglob("*")
        if path.is_symlink() or not path.is_dir()
    }
    assert found == expected(package, TRIPLETS[architecture])


@each_package
@each_architecture
def test_all_files_are_roots_and_nobody_elses_to_write(package, architecture):
    for line in output("dpkg-deb", "--contents", file_of(package, architecture)).splitlines():
        mode, owner, *_, name = line.partition(" -> ")[0].split()
        assert owner == "root/root", line
        if mode.startswith("l"):
            continue
        runs = name.endswith("/") or name.startswith("./usr/bin/")
        assert mode[1:] == ("rwxr-xr-x" if runs else "rw-r--r--"), line


@each_package
@each_architecture
def test_the_checksums_are_those_of_the_files(package, architecture, unpacked):
    sums = output("dpkg-deb", "--info", file_of(package, architecture), "md5sums")
    files = [path for path in unpacked.rglob("*") if path.is_file() and not path.is_symlink()]
    assert len(sums.splitlines()) >= len(files)
    output("md5sum", "--check", "--strict", "--quiet", cwd=unpacked, stdin=None, input=sums)


@each_package
@each_architecture
def test_programs_are_of_the_architecture_and_stripped(package, architecture, unpacked):
    for program in programs(package, TRIPLETS[architecture]):
        described = output("readelf", "--file-header", "--section-headers", unpacked / program)
        assert re.search(r"Machine: +(.*)", described)[1] == MACHINES[architecture]
        assert ".text" in described
        assert ".symtab" not in described and ".debug" not in described


@each_package
@each_architecture
def test_no_program_has_a_search_path_of_where_it_was_built(package, architecture, unpacked):
    for program in programs(package, TRIPLETS[architecture]):
        assert values(unpacked / program, "RUNPATH") + values(unpacked / program, "RPATH") == []


@each_package
@each_architecture
def test_programs_are_hardened(package, architecture, unpacked):
    for program in programs(package, TRIPLETS[architecture]):
        assert missing_in_file(unpacked / program, fortified=True) == []


@pytest.mark.parametrize("package", ("sorelapp", "libsorel-sim1"))
@each_architecture
def test_a_package_depends_on_those_of_the_libraries_that_its_programs_need(
    package, architecture, unpacked
):
    needed = {
        library for program in programs(package, TRIPLETS[architecture])
        for library in values(unpacked / program, "NEEDED")
    }
    assert names(field(package, architecture, "Depends")) == {
        PACKAGE_OF[library] for library in needed
    }


@pytest.mark.parametrize("package", ("sorelapp", "libsorel-sim1"))
@each_architecture
def test_a_package_depends_on_a_c_library_that_has_what_its_programs_use(
    package, architecture, unpacked
):
    required = re.search(r"libc6 \(>= ([0-9.]+)\)", field(package, architecture, "Depends"))[1]
    used = {
        tuple(map(int, version.split(".")))
        for program in programs(package, TRIPLETS[architecture])
        for version in re.findall(
            r"GLIBC_([0-9.]+)", output("readelf", "--version-info", "--wide", unpacked / program)
        )
    }
    assert max(used) <= tuple(map(int, required.split(".")))


@each_architecture
def test_what_edits_lines_is_suggested_and_not_brought(architecture):
    assert field("sorelapp", architecture, "Suggests") == "rlwrap"
    assert field("sorelapp", architecture, "Recommends") == ""


@each_architecture
def test_the_simulated_board_stands_in_for_the_drivers_package(architecture):
    assert field("libsorel-sim1", architecture, "Provides") == "libsorel1"
    assert field("libsorel-sim1", architecture, "Conflicts") == "libsorel1"
    # With Replaces, dpkg would take a board's driver away to make room for the simulation.
    assert field("libsorel-sim1", architecture, "Replaces") == ""


@each_architecture
def test_programs_built_against_the_driver_will_depend_on_its_package(architecture):
    shlibs = output("dpkg-deb", "--info", file_of("libsorel-sim1", architecture), "shlibs")
    assert shlibs == "libsorel 1 libsorel1\n"
    assert field("libsorel-dev", architecture, "Depends") == "libsorel1"


@each_architecture
def test_the_loader_is_told_of_the_library_and_nothing_else_runs_at_installation(architecture):
    listed = output("dpkg-deb", "--info", file_of("libsorel-sim1", architecture))
    assert {"triggers"} == set(re.findall(r"triggers|preinst|postinst|prerm|postrm", listed))
    triggers = output("dpkg-deb", "--info", file_of("libsorel-sim1", architecture), "triggers")
    assert triggers == "activate-noawait ldconfig\n"


@pytest.fixture(name="again", scope="module")
def packages_made_again():
    """The packages, made once more on another kind of file system, by someone whose files nobody
    else may read."""
    with tempfile.TemporaryDirectory(dir="/dev/shm") as folder:
        for architecture in TRIPLETS:
            output(
                "sh", "-c", 'umask 077 && "$@"', "sh",
                SOURCE / "packaging/debian/make-packages",
                SOURCE / f"build/package-{architecture}", folder,
            )
        yield Path(folder)


@each_package
@each_architecture
def test_packaging_again_gives_the_same_bytes(package, architecture, again):
    file = file_of(package, architecture)
    assert filecmp.cmp(file, again / file.name, shallow=False)

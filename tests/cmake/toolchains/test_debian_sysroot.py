# SPDX-License-Identifier: LicenseRef-Proprietary
"""debian-sysroot, and ./dev arm before it builds, in a copy of the tree that holds just these.

The tools of apt are stand-ins, so that no test needs a mirror; but where there is none, apt is real.
Environment: SORELAPP_SOURCE_DIR, the root of the source tree.
"""

import os
import re
import shutil
import signal
import subprocess
from pathlib import Path

import pytest

ROOT = Path(os.environ["SORELAPP_SOURCE_DIR"])
SCRIPT = "cmake/toolchains/debian-sysroot"
PACKAGES = re.search(r"^packages=\((.*?)\)", (ROOT / SCRIPT).read_text(), re.S | re.M)[1].split()
NOBODY_LISTENS = "http://127.0.0.1:1/debian"

# What apt-get does, by the commands it is given.
MIRROR = f"""release=$(. /etc/os-release; echo "$VERSION_CODENAME")
    echo "'{NOBODY_LISTENS}/dists/$release-updates/InRelease' name 0"
    echo "'{NOBODY_LISTENS}/dists/$release/InRelease' name 0"
"""
DOWNLOAD = "cp $PACKAGES/*.deb ."


@pytest.fixture(name="packages", scope="module")
def fixture_packages(tmp_path_factory):
    """A folder of packages by those names, of one folder each."""
    made = tmp_path_factory.mktemp("packages")
    for name in PACKAGES:
        content = made / "content"
        (content / "DEBIAN").mkdir(parents=True)
        (content / "usr/share" / name).mkdir(parents=True)
        (content / "DEBIAN/control").write_text(
            f"Package: {name}\nVersion: 1\nArchitecture: armhf\nMaintainer: nobody\n"
            "Description: none\n")
        subprocess.run(["dpkg-deb", "--build", content, made / f"{name}_1_armhf.deb"],
                       stdout=subprocess.DEVNULL, check=True)
        shutil.rmtree(content)
    return made


class Tree:
    """A copy of the tree, and stand-ins on the path in front of the machine's programs."""

    def __init__(self, folder, packages):
        self.root = folder / "a tree"
        self.programs = folder / "programs"
        self.sysroot = self.root / "build/sysroot/armhf"
        self.programs.mkdir()
        for name in ("dev", SCRIPT):
            (self.root / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / name, self.root / name)
        shutil.copytree(ROOT / "scripts", self.root / "scripts")
        self.environment = os.environ | {
            "PATH": f"{self.programs}:{os.environ['PATH']}",
            "PACKAGES": str(packages),
        }

    def stand_in(self, name, text):
        program = self.programs / name
        program.write_text("#!/bin/sh\n" + text + "\n")
        program.chmod(0o755)

    def apt_get(self, update=":", download=DOWNLOAD):
        self.stand_in("apt-get", f"""case "$*" in
            *print-uris*) {MIRROR} ;;
            *update) {update} ;;
            *download*) {download} ;;
            esac""")

    def known(self, packages):
        self.stand_in("apt-cache", "\n".join(f"echo 'Package: {name}'" for name in packages))

    def run(self, program, *arguments):
        return subprocess.run([self.root / program, *arguments], env=self.environment, check=False,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True,
                              start_new_session=True)

    def make(self):
        return self.run(SCRIPT, "armhf")

    def assert_made(self):
        done = self.make()
        assert done.returncode == 0, done.stderr
        assert {path.name for path in (self.sysroot / "usr/share").iterdir()} == set(PACKAGES)

    def assert_refused(self, *texts):
        done = self.make()
        last = done.stderr.splitlines()[-1]
        assert done.returncode == 1 and last.startswith("debian-sysroot: "), done.stderr
        assert all(text in last for text in texts), last
        assert list(self.sysroot.parent.iterdir()) == []


@pytest.fixture(name="tree")
def fixture_tree(tmp_path, packages):
    tree = Tree(tmp_path, packages)
    tree.apt_get()
    tree.known(PACKAGES)
    return tree


def test_all_packages_are_unpacked(tree):
    tree.assert_made()
    assert list(tree.sysroot.rglob("*.deb")) == []


def test_a_sysroot_that_is_there_is_left_alone(tree):
    tree.assert_made()
    tree.apt_get(update="exit 1")
    tree.assert_made()


def test_a_sysroot_of_other_packages_is_made_anew(tree):
    tree.assert_made()
    (tree.sysroot / "contents").write_text("armhf libc6\n")
    (tree.sysroot / "usr/share/old").mkdir()
    tree.assert_made()


def test_apts_tools_run_on_the_lists_of_the_sysroot(tree):
    tree.assert_made()
    (tree.programs / "apt-get").unlink()
    done = tree.run(SCRIPT, "armhf", "apt-get", "--print-uris", "update")
    assert done.stdout.startswith(f"'{NOBODY_LISTENS}/dists/"), done
    done = tree.run(SCRIPT, "armhf", "apt-config", "dump", "APT::Architecture")
    assert done.stdout == 'APT::Architecture "armhf";\n', done


def test_without_a_network_it_says_so(tree):
    tree.apt_get(update='exec /usr/bin/apt-get -o Acquire::http::Proxy=DIRECT "$@"')
    tree.assert_refused("cannot read the lists of packages for armhf",
                        f"once {NOBODY_LISTENS} can be reached, try again")


def test_packages_that_the_mirror_lacks_are_named(tree):
    tree.known(set(PACKAGES) - {"lua-bitop-dev", "libc6"})
    tree.assert_refused("has no package for armhf named: libc6 lua-bitop-dev;")


def test_packages_that_cannot_be_downloaded_are_named(tree):
    tree.apt_get(download=DOWNLOAD + "; rm lua5.1_*.deb libc6_*.deb; exit 100")
    tree.assert_refused("cannot download for armhf: libc6 lua5.1;", "try again")


def test_a_package_that_cannot_be_unpacked_is_named(tree):
    tree.apt_get(download=DOWNLOAD + "; echo broken >lua-bitop_1_armhf.deb")
    tree.assert_refused("cannot unpack lua-bitop_1_armhf.deb")


@pytest.mark.parametrize("number", [signal.SIGINT, signal.SIGTERM, signal.SIGKILL])
def test_what_an_interrupted_run_leaves_does_not_harm_the_next(tree, number):
    half = "mkdir -p ../../../../usr/share/half;"
    tree.apt_get(download=DOWNLOAD + f"; {half} kill -{number.value} 0; exit 1")
    assert tree.make().returncode != 0
    assert not tree.sysroot.exists()
    tree.apt_get()
    tree.assert_made()


def test_dev_arm_without_a_network_says_what_to_do(tree):
    tree.stand_in("dpkg-query", 'shift 3; for package; do echo "installed $package"; done')
    tree.apt_get(update="echo 'Could not resolve the host'; exit 100")
    done = tree.run("dev", "arm")
    assert done.returncode == 1
    assert "Could not resolve the host" in done.stderr
    assert "can be reached, try again\n" in done.stderr
    assert done.stderr.endswith("dev: there are no libraries of armhf to build with\n")


def test_dev_arm_names_the_compiler_that_is_missing(tree):
    tree.stand_in("dpkg-query", 'shift 3; for package; do echo "installed $package"; done |'
                                "grep -v g++-arm-linux-gnueabihf")
    tree.stand_in("id", "echo 0")
    tree.stand_in("apt-get", "exit 100")
    done = tree.run("dev", "arm")
    assert done.returncode == 1
    assert done.stderr.endswith("apt-get install g++-arm-linux-gnueabihf\n")

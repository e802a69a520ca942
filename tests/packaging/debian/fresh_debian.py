# SPDX-License-Identifier: LicenseRef-Proprietary
"""A Debian 12 made afresh, in memory, that ends with the test run, however that ends."""

import os
import shutil
import subprocess
import urllib.error
import urllib.request
from contextlib import contextmanager
from pathlib import Path

from debian import SOURCE, output, run

SECONDS = 300  # longer than any command takes there


class CannotBeMade(Exception):
    """Why there can be no such system here."""


class System:
    """The system; root is where its files are seen from outside."""

    def __init__(self, holder, folder):
        self.root = Path(f"/proc/{holder}/root{folder}")
        self.enter = ("nsenter", f"--mount=/proc/{holder}/ns/mnt")
        self.chroot = (*self.enter, "chroot", str(folder))
        self.environment = {
            name: value for name, value in os.environ.items() if name.lower().endswith("_proxy")
        } | {
            "PATH": "/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin",
            "LC_ALL": "C.UTF-8",
            "TERM": "dumb",
            "DEBIAN_FRONTEND": "noninteractive",
        }

    def run(self, *command, environment=(), **more):
        return run(
            *self.chroot, *command,
            env=self.environment | dict(environment), timeout=SECONDS, **more,
        )

    def output(self, *command, **more):
        done = self.run(*command, **more)
        assert done.returncode == 0, done.stdout
        return done.stdout

    def apt(self, *arguments):
        return self.output("apt-get", "-q", "-y", "--no-install-recommends", *arguments)

    def installed(self):
        """The names of the packages that are installed."""
        query = ("dpkg-query", "-W", "-f", "${db:Status-Abbrev}${Package}\\n")
        return {line[3:] for line in self.output(*query).splitlines() if line.startswith("ii ")}

    def files(self):
        """All of /usr and /etc, where packages put what is theirs."""
        return set(self.output("find", "/usr", "/etc").splitlines())


def mirror():
    """The mirror and the release of Debian that the sysroot of the board is from."""
    sources = SOURCE / "build/sysroot/armhf/etc/apt/sources.list"
    _, _, site, release, _ = sources.read_text().split()
    return site, release


def check_that_it_can_be_made():
    if os.getuid() != 0:
        raise CannotBeMade("only root can make a system")
    if not shutil.which("debootstrap"):
        raise CannotBeMade("there is no debootstrap")
    site, release = mirror()
    try:
        urllib.request.urlopen(f"{site}/dists/{release}/Release", timeout=30).close()
    except (urllib.error.URLError, TimeoutError) as error:
        raise CannotBeMade(f"the mirror {site} cannot be reached: {error}") from error


@contextmanager
def fresh_debian(folder):
    """A fresh system in a folder, or CannotBeMade. A process holds the mount namespace that the
    folder is mounted in, and ends with its input: nothing of it is left, not even after a kill."""
    check_that_it_can_be_made()
    with subprocess.Popen(
        ["unshare", "--mount", "sh", "-c", 'mount -t tmpfs fresh "$1" && echo && exec cat', "sh",
         folder],
        stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
    ) as holder:
        said = holder.stdout.readline().strip()
        if said:
            raise CannotBeMade(f"nothing can be mounted: {said}")
        system = System(holder.pid, folder)
        site, release = mirror()
        output(*system.enter, "debootstrap", "--variant=minbase", release, folder, site)
        yield system

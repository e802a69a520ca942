# SPDX-License-Identifier: LicenseRef-Proprietary
"""A copy of the source tree with a build tree of its own, in which mutations are tried."""

import json
import os
import re
import subprocess
from pathlib import Path


class Failed(Exception):
    """A build failed; the text says how."""


def files_of(root):
    """What git knows of, or would."""
    listed = subprocess.run(
        ["git", "-C", root, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        stdout=subprocess.PIPE, check=True).stdout.decode().split("\0")
    return sorted({name for name in listed if name and (root / name).is_file()})


def write_if_changed(path, content, mode):
    if not path.exists() or path.read_bytes() != content:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
        path.chmod(mode)


class Tree:
    def __init__(self, root, folder):
        self.root = root
        self.source = folder / "source"
        self.build_folder = folder / "build"
        self.mutated = None

    def update(self):
        """Brings the copy to the state of the tree; what has not changed is not built again."""
        wanted = files_of(self.root)
        for name in wanted:
            original = self.root / name
            write_if_changed(self.source / name, original.read_bytes(), original.stat().st_mode)
        gone = {str(path.relative_to(self.source)) for path in self.source.rglob("*")
                if path.is_file()} - set(wanted)
        for name in gone:
            (self.source / name).unlink()

    def configure(self):
        """Unoptimised: that compiles fastest."""
        self.run("cmake", "-G", "Ninja", "-S", self.source, "-B", self.build_folder,
                 "-DBUILD_TESTING=ON", "-DCMAKE_BUILD_TYPE=", "-DCMAKE_CXX_FLAGS=-O0 -w",
                 "-DCMAKE_C_FLAGS=-O0 -w")

    def build(self, *targets):
        self.run("ninja", "-C", self.build_folder, "-j", "1", *targets)

    @staticmethod
    def run(*command):
        done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                              errors="replace", check=False)
        if done.returncode != 0:
            raise Failed(done.stdout)

    def mutate(self, mutation):
        """Puts a mutation into the place of the one before."""
        if self.mutated and (mutation is None or self.mutated != mutation.file):
            (self.source / self.mutated).write_bytes((self.root / self.mutated).read_bytes())
        if mutation:
            (self.source / mutation.file).write_text(mutation.text)
        self.mutated = mutation and mutation.file

    def tests(self):
        """The tests that ctest knows: their commands, folders and variables by their names."""
        shown = subprocess.run(["ctest", "--show-only=json-v1"], cwd=self.build_folder,
                               stdout=subprocess.PIPE, check=True).stdout
        found = {}
        for test in json.loads(shown)["tests"]:
            properties = {entry["name"]: entry["value"] for entry in test["properties"]}
            variables = dict(entry.split("=", 1) for entry in properties.get("ENVIRONMENT", []))
            if "command" in test:
                found[test["name"]] = (test["command"], properties["WORKING_DIRECTORY"],
                                       os.environ | variables)
        return found


def does_not_compile(output):
    """Whether what failed is the mutation, and not the machine."""
    machine = r"No space left|Killed signal|out of memory"
    return "FAILED: " in output and not re.search(machine, output)


def folder_of(root):
    return Path(root, "build", "mutate")

# SPDX-License-Identifier: LicenseRef-Proprietary
"""What came of each mutation, kept in a file so that a run that is stopped goes on where it was."""

import hashlib
import json
from dataclasses import asdict, dataclass

from tree import files_of

# What the outcome of a mutation depends on.
LOOKED_AT = ("CMakeLists.txt", "VERSION", "app/", "binding/", "cmake/", "driver/", "include/",
             "tests/")
NOT_LOOKED_AT = ("tests/mutation/", "tests/lua/", "tests/docs/", "tests/dev/", "tests/bench/",
                 "tests/packaging/")

KILLED, SURVIVED, DOES_NOT_COMPILE = "killed", "survived", "does not compile"


def state_of(root):
    """A digest of the tree as it is without a mutation."""
    digest = hashlib.sha256()
    for name in files_of(root):
        if name.startswith(LOOKED_AT) and not name.startswith(NOT_LOOKED_AT):
            digest.update(f"{name}\0".encode() + (root / name).read_bytes() + b"\0")
    return digest.hexdigest()


@dataclass
class Result:
    key: str  # of the mutation
    state: str  # of the tree
    outcome: str
    test: str  # that failed; empty for other outcomes


class Results:
    def __init__(self, path, state, trusts_kills):
        """trusts_kills: a mutation that tests once caught is taken for caught, whatever has been
        added to the tests since."""
        self.path = path
        self.state = state
        self.known = {}
        if path.exists():
            for line in path.read_text().splitlines():
                result = Result(**json.loads(line))
                if result.state == state or (trusts_kills and result.outcome != SURVIVED):
                    self.known[result.key] = result
                elif trusts_kills:
                    self.known.pop(result.key, None)

    def of(self, mutation):
        return self.known.get(mutation.key)

    def are_checked(self):
        """Whether the tests are known to pass without any mutation."""
        return "" in self.known

    def set_checked(self):
        self.write(Result("", self.state, "passed", ""))

    def add(self, mutation, outcome, test):
        result = Result(mutation.key, self.state, outcome, test)
        self.write(result)
        return result

    def write(self, result):
        self.known[result.key] = result
        with self.path.open("a") as file:
            file.write(json.dumps(asdict(result)) + "\n")

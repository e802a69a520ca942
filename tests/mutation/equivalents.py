# SPDX-License-Identifier: LicenseRef-Proprietary
"""The mutations that change nothing which anyone could see, with their arguments: equivalent.toml.
An entry names a mutation by what it does to which line, so that it goes stale when the line
changes. Where a file has the same line several times, it can name the line before."""

import tomllib


class Stale(Exception):
    """An entry is of no mutation, or of several."""


def read(path, mutations):
    """The arguments by the keys of the mutations."""
    arguments = {}
    for entry in tomllib.loads(path.read_text()).get("equivalent", []):
        found = [mutation for mutation in mutations
                 if (mutation.file, mutation.operator, mutation.before, mutation.after)
                 == (entry["file"], entry["operator"], entry["before"], entry["after"])
                 and entry.get("behind", mutation.behind) == mutation.behind]
        if len(found) != entry.get("times", 1):
            raise Stale(f"{path.name}: there are {len(found)} mutations of {entry['file']}: "
                        f"{entry['operator']}: {entry['before']}  ->  {entry['after']}")
        if not entry["why"].strip():
            raise Stale(f"{path.name}: no argument for {found[0]}")
        arguments |= {mutation.key: entry["why"] for mutation in found}
    return arguments

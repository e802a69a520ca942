# SPDX-License-Identifier: LicenseRef-Proprietary
"""The part of the documentation that a run of the benchmarks writes."""

import re

from table import table

BEGIN = "<!-- measured: ./dev bench --page docs/performance.md writes this -->"
END = "<!-- end of measured -->"


def block(results):
    machine = results.machine
    versions = ", ".join(f"{name} {version}" for name, version in machine["packages"].items())
    return (f"{BEGIN}\n\nMeasured on: {machine['processor']}, {machine['cores']} cores, "
            f"{machine['system']}; {versions}.\n\n```text\n{table(results)}\n```\n\n{END}")


def with_table(page, results):
    """The text of the page with the results in the place of those before."""
    pattern = re.escape(BEGIN) + ".*" + re.escape(END)
    text, count = re.subn(pattern, lambda _: block(results), page, flags=re.S)
    if count != 1:
        raise ValueError("the page has no place for the table")
    return text

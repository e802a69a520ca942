# SPDX-License-Identifier: LicenseRef-Proprietary
"""What is aimed at, and what of that is missed."""

from figures import others

EXECUTABLE = 100 * 1024  # bytes; the stripped executable stays below
RATIO = 1.15  # the shell's resident memory has at most so many times the interpreter's


def ratio(figures):
    return figures.shell.resident / figures.interpreter.resident


def missed(machine, figures):
    """Sentences, one for each goal that the figures of a machine miss."""
    if figures.executable >= EXECUTABLE:
        yield (f"{machine}: the stripped executable has {figures.executable:,} bytes, "
               f"and is to have less than {EXECUTABLE:,}")
    for verb, libraries in (("needs", figures.needed), ("loads", figures.loaded)):
        for library in others(libraries):
            yield f"{machine}: the shell {verb} {library}, and is to do without"
    if ratio(figures) > RATIO:
        yield (f"{machine}: the shell has {ratio(figures):.3f} times the resident memory of the "
               f"interpreter, and is to have at most {RATIO} times")

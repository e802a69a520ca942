# SPDX-License-Identifier: LicenseRef-Proprietary
"""What a section measures: the shell beside something else, in one run."""

from dataclasses import dataclass


@dataclass(frozen=True)
class Comparison:
    """Two figures of one thing, both in the same unit; less is better."""

    section: str  # the name of the module in sections/
    what: str  # "radioSetTxFrequency", "10 elements, ten-digit integers"
    unit: str  # "instructions", "ns", "ms", "KiB"; those of "instructions" repeat exactly
    ours: float
    others: float
    beside: str  # what others is the figure of: "the same by hand", "lua5.1"
    goal: float | None = None  # what ours / others is to be at most; None: it is only shown
    size: int | None = None  # of what is measured at several sizes: elements, lines

    @property
    def ratio(self):
        return self.ours / self.others

    @property
    def missed(self):
        return self.goal is not None and self.ratio > self.goal

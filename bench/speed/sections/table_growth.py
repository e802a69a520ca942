# SPDX-License-Identifier: LicenseRef-Proprietary
"""What an element of a register table takes in tables of all sizes."""

import measured_tables as tables
from comparison import Comparison

FIRST, *SIZES = 100, 1000, 10_000, 100_000, 1_000_000


def measured(tree):
    if tree["emulator"]:
        return
    for kind in (tables.TEN_DIGITS, tables.DECIMALS, tables.BYTES):
        times = tables.times(tree, f"^{tables.OURS}/{kind}/100+/")
        for size in SIZES:
            yield Comparison(
                section="table_growth", what=f"one of {size:,}, {kind}", unit="ns",
                ours=times[tables.OURS, kind, size] / size,
                others=times[tables.OURS, kind, FIRST] / FIRST,
                beside=f"one of {FIRST}", goal=1.25, size=size,
            )

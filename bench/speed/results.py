# SPDX-License-Identifier: LicenseRef-Proprietary
"""What one run has measured, and its form as JSON."""

import dataclasses
import json
from pathlib import Path

from comparison import Comparison


@dataclasses.dataclass
class Results:
    machine: dict  # that has measured; see machine.py
    comparisons: list  # of pairs: the name of the tree's machine, Comparison

    def add(self, machine, comparisons):
        self.comparisons.extend((machine, comparison) for comparison in comparisons)

    def of(self, section):
        return [(machine, one) for machine, one in self.comparisons if one.section == section]

    def missed(self):
        return [(machine, one) for machine, one in self.comparisons if one.missed]

    def write(self, file):
        records = [{"machine": machine, **dataclasses.asdict(one)}
                   for machine, one in self.comparisons]
        text = json.dumps({"measured_on": self.machine, "comparisons": records}, indent=1)
        Path(file).write_text(text + "\n", encoding="utf-8")


def read(file):
    data = json.loads(Path(file).read_text(encoding="utf-8"))
    results = Results(data["measured_on"], [])
    for record in data["comparisons"]:
        results.add(record.pop("machine"), [Comparison(**record)])
    return results

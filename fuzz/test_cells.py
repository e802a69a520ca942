# SPDX-License-Identifier: LicenseRef-Proprietary
"""What a fuzz target says of its cells, and when it fails."""

import os
import re
import shlex
import subprocess
from pathlib import Path

TARGET = shlex.split(os.environ["SORELAPP"])  # the program of the target types
CORPUS = Path(os.environ["SORELAPP_SOURCE_DIR"]) / "fuzz/types/corpus"


def run(*inputs, **variables):
    return subprocess.run([*TARGET, *map(str, inputs)], env=os.environ | variables,
                          capture_output=True, text=True, errors="replace", check=False)


def summary(done):
    cells, empty = re.search(r"^cells: (\d+), (\d+) empty$", done.stdout, re.MULTILINE).groups()
    return int(cells), int(empty)


def test_the_corpus_fills_every_cell():
    done = run(CORPUS)
    assert done.returncode == 0
    assert summary(done)[1] == 0
    assert "EMPTY" not in done.stdout


def test_empty_cells_are_shown_counted_and_fail():
    done = run(CORPUS / "radio_types")
    assert done.returncode == 1
    cells, empty = summary(done)
    assert 0 < empty < cells
    assert done.stdout.count("EMPTY") == empty


def test_without_an_input_all_cells_are_empty(tmp_path):
    done = run(tmp_path)
    assert done.returncode == 1
    cells, empty = summary(done)
    assert empty == cells > 0


def test_processes_can_count_together(tmp_path):
    counts = str(tmp_path / "counts")
    inputs = sorted(CORPUS.iterdir())
    for path in inputs[:-1]:
        run(path, FUZZ_CELLS=counts)
    done = run(inputs[-1], FUZZ_CELLS=counts)
    assert (done.returncode, summary(done)[1]) == (0, 0)

# SPDX-License-Identifier: LicenseRef-Proprietary
"""docs/performance.md shows what docs/performance/measured.json has."""

import os
import re
from pathlib import Path

import pytest
import results
from page import BEGIN, END, with_table
from table import SECTIONS

DOCS = Path(os.environ["SORELAPP_SOURCE_DIR"]) / "docs"
PAGE = (DOCS / "performance.md").read_text(encoding="utf-8")
MEASURED = results.read(DOCS / "performance/measured.json")


def test_the_table_is_that_of_the_figures():
    assert with_table(PAGE, MEASURED) == PAGE


def test_all_sections_have_been_measured():
    assert all(MEASURED.of(section) for section in SECTIONS)


def test_the_pictures_are_there():
    shown = re.findall(r"\]\((performance/\w+\.png)\)", PAGE)
    assert sorted(shown) == [f"performance/{name}.png" for name in ("calls", "growth", "others")]
    assert all((DOCS / picture).is_file() for picture in shown)


def test_each_goal_that_is_missed_is_explained():
    explanation = PAGE.partition(END)[2]
    assert [one.what for _, one in MEASURED.missed() if one.what not in explanation] == []


def test_a_page_without_a_place_for_the_table_is_refused():
    with pytest.raises(ValueError):
        with_table(PAGE.replace(BEGIN, ""), MEASURED)

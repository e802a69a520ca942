# SPDX-License-Identifier: LicenseRef-Proprietary
"""What ./dev bench cannot do is refused before anything is measured."""

import os
import subprocess
import sys
from pathlib import Path

import pytest

PROGRAM = Path(os.environ["SORELAPP_SOURCE_DIR"]) / "bench/speed"


@pytest.fixture(name="refused")
def refusal(tmp_path):
    def words(*arguments):
        """What is said; there is nothing that could be measured."""
        ran = subprocess.run(
            [sys.executable, "-B", PROGRAM, "--tree", "none=none.json", "--folder", "out",
             *arguments],
            cwd=tmp_path, capture_output=True, text=True, check=False,
        )
        assert (ran.returncode, ran.stdout) == (2, "")
        assert not (tmp_path / "out").exists()
        return ran.stderr
    return words


def test_an_unknown_section_is_named_with_those_that_there_are(refused):
    assert ("./dev bench: error: there is no section 'starts'; there are calls, tables, start, "
            "prompt, table_growth, line_growth\n") in refused("calls", "starts")


def test_a_page_that_does_not_exist(refused):
    assert "No such file" in refused("--page", "none.md")


def test_a_page_without_a_place_for_the_table(refused, tmp_path):
    (tmp_path / "page.md").write_text("# A page\n")
    assert "page.md: the page has no place for the table" in refused("--page", "page.md")


def test_a_page_whose_pictures_have_no_folder(refused, tmp_path):
    (tmp_path / "page").write_text("# A page\n")
    assert "page: the pictures need a folder of another name" in refused("--page", "page")


def test_a_page_of_some_sections_only(refused):
    assert "the page shows all sections" in refused("calls", "--page", "page.md")

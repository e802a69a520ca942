# SPDX-License-Identifier: LicenseRef-Proprietary
"""How what has been measured is told: as a table, as JSON and in pictures."""

import pictures
import pytest
import results
from comparison import Comparison
from results import Results
from table import table

PNG = b"\x89PNG\r\n\x1a\n"


def call(what, ours, others, goal=1.0):
    return Comparison("calls", what, "instructions", ours, others, "by hand", goal)


@pytest.fixture(name="measured")
def measured_results():
    measured = Results({"processor": "a processor"}, [])
    measured.add("amd64", [
        call("radioReset", 225, 250),
        Comparison("tables", "10 elements", "ns", 150, 3000, "through text", 1 / 12),
        Comparison("prompt", "1,000,000 lines", "s", 2.4, 2.0, "a minimal loop", 1.15),
        Comparison("prompt", "an empty line", "ns", 3, 2, "a minimal loop"),
        Comparison("table_growth", "one of 1,000", "ns", 8, 8, "one of 100", 1.25, 1000),
        Comparison("line_growth", "one of 10,000", "ns", 9, 8, "one of 1,000", 1.25, 10000),
    ])
    measured.add("armhf", [call("radioReset", 330, 300)])
    return measured


def line_of(text, what):
    lines = [line for line in text.splitlines() if line.startswith(what)]
    assert len(lines) == 1, lines
    return lines[0].split()


def test_the_table_has_the_machines_side_by_side_with_figures_ratio_and_goal(measured):
    assert line_of(table(measured), "radioReset") == [
        "radioReset", "instructions", "225", "250", "0.900", "330", "300", "1.100", "1.000",
        "missed", "on", "armhf",
    ]


def test_the_table_names_what_is_compared_with(measured):
    assert "Register tables, beside through text" in table(measured)


def test_without_a_goal_there_is_none_in_the_table(measured):
    assert line_of(table(measured), "an empty line")[3:] == ["ns", "3", "2", "1.500"]


def test_goals_that_are_missed_are_counted_and_named(measured):
    assert table(measured).splitlines()[-3:] == [
        "4 of 6 goals are met.",
        "Missed: Prompt, 1,000,000 lines, s, on amd64: 1.200, and is to be at most 1.150.",
        "Missed: Calls of the driver, radioReset, instructions, on armhf: 1.100, and is to be at "
        "most 1.000.",
    ]


def test_a_figure_at_the_goal_meets_it():
    assert not call("f", 89, 100, goal=0.89).missed
    assert call("f", 90, 100, goal=0.89).missed


def test_json_gives_back_what_was_measured(measured, tmp_path):
    measured.write(tmp_path / "measured.json")
    assert results.read(tmp_path / "measured.json") == measured


def test_pictures_show_calls_the_rest_and_growth(measured, tmp_path):
    drawn = pictures.draw(measured, tmp_path)
    assert [file.name for file in drawn] == ["calls.png", "others.png", "growth.png"]
    assert all(file.read_bytes().startswith(PNG) for file in drawn)


def test_another_figure_makes_another_picture(measured, tmp_path):
    [before] = pictures.draw(Results({}, measured.of("calls")), tmp_path)
    first = before.read_bytes()
    measured.comparisons = [("amd64", call("radioReset", 200, 250))]
    [after] = pictures.draw(measured, tmp_path)
    assert after.read_bytes() != first


def test_of_what_was_not_measured_there_is_no_picture(tmp_path):
    assert not pictures.draw(Results({}, []), tmp_path)

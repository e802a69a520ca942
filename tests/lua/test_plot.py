# SPDX-License-Identifier: LicenseRef-Proprietary
"""measure.plot: gnuplot draws what a sweep has read, whatever the files are called."""

import shlex
import subprocess

import pytest
from png_file import picture
from shell import SIMULATION, SOURCE, run

FOUND = {"LUA_PATH": f"{SOURCE}/lua/?.lua"}
BLUE, ORANGE, GREEN = (0, 0x72, 0xB2), (0xD5, 0x5E, 0), (0, 0x9E, 0x73)
PREPARE = (
    "local sweep, measure = require 'sorel.sweep', require 'sorel.measure' "
    "radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7) "
)
# A parabola: -100 dBm at both ends and -75 dBm in the middle.
PARABOLA = (
    "local v local curve = { name = 'curve', unit = 'dBm', "
    "read = function() return -75 - (v - 5) ^ 2 end } "
    "local axis = { name = 'step', set = function(value) v = value end, "
    "from = 0, to = 10, step = 1 } "
)
SWEPT = PARABOLA + "local rows = sweep.run { custom = axis, readings = { curve } }"


def plot(text, folder, name="plot", options="nil", stand=None):
    """Draws the rows that Lua text makes; stands in a folder and returns the picture."""
    ran = run("-c", f"{PREPARE}{text} io.write(measure.plot(rows, ..., {options}))".replace(
        "...", lua_text(name)), driver=SIMULATION, cwd=folder, **FOUND)
    assert (ran.status, ran.err) == (0, "")
    command = ran.out.encode("latin-1").decode()
    if stand is not None:
        program, script = shlex.split(command)
        command = shlex.join([program, str(folder / script)])
    done = subprocess.run(command, shell=True, cwd=stand or folder, capture_output=True, text=True,
                          check=False)
    assert (done.returncode, done.stdout, done.stderr) == (0, "", "")
    assert sorted(file.name for file in folder.iterdir() if file.is_file()) == sorted(
        name + ending for ending in (".csv", ".gnuplot", ".png"))
    return picture(folder / (name + ".png"))


def lua_text(text):
    """A text as Lua writes it, byte by byte."""
    return "'" + "".join(f"\\{byte:03}" for byte in text.encode()) + "'"


def places(drawing, colour):
    """Where a picture has a colour: a list of columns and rows."""
    width, _, pixels = drawing
    return [(at % width, at // width) for at, pixel in enumerate(pixels) if pixel == colour]


def test_a_curve_is_drawn_as_it_was_read(tmp_path):
    drawing = plot(SWEPT, tmp_path)
    assert drawing[:2] == (1000, 500)
    curve = places(drawing, BLUE)
    left, right = min(curve), max(curve)
    top = min(curve, key=lambda place: place[1])
    # It rises from the left to the middle and falls to the right.
    assert top[0] == pytest.approx((left[0] + right[0]) / 2, abs=10)
    assert left[1] == pytest.approx(right[1], abs=10)
    assert left[1] - top[1] > 200
    assert right[0] - left[0] > 700


@pytest.mark.parametrize("name", ["it's a \"plot\"", "-1", "|true", "<data", "$HOME `date`",
                                  "a\\nb", "größe", "line\nbreak", "100%"])
def test_files_may_be_called_anything(name, tmp_path):
    drawing = plot(SWEPT, tmp_path, name)
    assert len(places(drawing, BLUE)) > 500


def test_the_script_runs_from_any_folder(tmp_path):
    there, here = tmp_path / "the results", tmp_path / "elsewhere"
    there.mkdir()
    here.mkdir()
    plot(SWEPT, there, stand=here)
    assert not list(here.iterdir())


def test_each_unit_has_a_panel_and_each_outer_value_a_curve(tmp_path):
    drawing = plot(
        "local rows = sweep.run { rx_frequency_hz = { 2515e6, 2535e6, 2555e6 }, "
        "inner = { rx_gain_db = { from = 0, to = 70, step = 10 } }, "
        "readings = { { name = 'level', unit = 'dBm', read = function() "
        "return -radioGetRxGainIndB() - radioSpiRead(0x21) / 1e6 end }, 'gain' } }", tmp_path)
    width, height, _ = drawing
    assert (width, height) == (1000, 900)
    for colour in (BLUE, ORANGE, GREEN):
        upper = [place for place in places(drawing, colour) if place[1] < height / 2]
        assert len(upper) > 400, colour
    # The gains are the same on each channel, so the last curve covers the others.
    gains = [place for place in places(drawing, GREEN) if place[1] > height / 2 and place[0] < 720]
    assert min(gains)[1] - max(gains)[1] > 250


def test_columns_can_be_chosen_and_a_title_be_given(tmp_path):
    drawing = plot(
        "local rows = sweep.run { rx_gain_db = { 0, 76 }, readings = { 'gain', 'rtwp' } }",
        tmp_path, options="{ title = \"it's {/*3 a} title\", columns = { 'gain_db' } }")
    assert drawing[:2] == (1000, 500)
    assert "it''s {/*3 a} title" in (tmp_path / "plot.gnuplot").read_text()


def test_readings_that_failed_leave_a_gap(tmp_path):
    drawing = plot(
        PARABOLA + "local good = curve.read curve.read = function() "
        "return (v == 5 or v == 6) and 0 / 0 or good() end io.stderr = io.tmpfile() "
        "local rows = sweep.run { custom = axis, readings = { curve } }", tmp_path)
    columns = {place[0] for place in places(drawing, BLUE)}
    gap = set(range(min(columns), max(columns))) - columns
    assert len(gap) > 200


@pytest.mark.parametrize("points, value", [("1", "5"), ("1, 2, 3", "-90"), ("0, 1", "0")])
def test_one_point_and_equal_values_are_drawn(points, value, tmp_path):
    drawing = plot(
        f"local rows = sweep.run {{ custom = {{ name = 'step', set = function() end, {points} }}, "
        f"readings = {{ {{ name = 'level', read = function() return {value} end }} }} }}", tmp_path)
    assert len(places(drawing, BLUE)) > 5


def test_rows_of_a_sweep_that_was_stopped_are_drawn(tmp_path):
    drawing = plot(
        PARABOLA + "axis.set = function(value) v = value assert(v < 5) end "
        "assert(not pcall(sweep.run, { custom = axis, readings = { curve } })) "
        "local rows = sweep.last()", tmp_path)
    curve = places(drawing, BLUE)
    assert min(curve)[1] - max(curve)[1] > 200


def test_an_ending_of_the_file_is_taken_off(tmp_path):
    for ending in ("csv", "gnuplot", "png"):
        ran = run("-c", PREPARE + "io.write(measure.plot(sweep.run { rx_gain_db = { 1 }, "
                  f"readings = 'gain' }}, 'a.b.{ending}'))",
                  driver=SIMULATION, cwd=tmp_path, **FOUND)
        assert (ran.status, ran.out) == (0, "gnuplot a.b.gnuplot")
    assert sorted(file.name for file in tmp_path.iterdir()) == ["a.b.csv", "a.b.gnuplot"]

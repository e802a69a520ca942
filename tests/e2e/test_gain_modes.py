# SPDX-License-Identifier: LicenseRef-Proprietary
"""RTWP and gain over the input level in the four gain modes, measured by driver/pictures: that they
are what driver/README.md says, that they can be drawn, and that the picture there shows them."""

import csv
import math
import subprocess

import pytest
from png_file import picture
from shell import SIMULATION, SOURCE, run

PICTURES = SOURCE / "driver" / "pictures"

# Of the default platform and of LTE 20 MHz; powers in dBm, gains in dB.
THERMAL_NOISE = -101.42  # kTB in 18 MHz at 290 K
NOISE_FIGURE = 5.0  # at the highest gain, and
NOISE_FIGURE_PER_DB = 0.25  # more for each dB below it
HIGHEST_GAIN = 76
LOWEST_GAIN = 0
FULL_SCALE = 0.0  # at the converter
# Of 12 bits, the part that falls into the 18 of 30.72 MHz.
QUANTISATION = FULL_SCALE - 10 * math.log10(1.5 * 4096**2) + 10 * math.log10(18 / 30.72)

MANUAL_GAIN = 40
MODES = ["manual", "fast", "slow", "hybrid"]

# What warming up by 6 degrees adds to the noise figure, and what clipping takes from a mean.
TOLERANCE = 0.1


def measure():
    ran = run(
        "-b",
        str(PICTURES / "gain_modes.lua"),
        driver=SIMULATION,
        SOREL_SIM_SCENARIO=str(PICTURES / "gain_modes.toml"),
    )
    assert (ran.status, ran.err) == (0, "")
    return ran.out


def rows(text):
    return [
        {column: float(number) for column, number in row.items()}
        for row in csv.DictReader(text.splitlines())
    ]


@pytest.fixture(scope="module", name="measured")
def fixture_measured():
    return rows(measure())


def columns(measured, mode):
    """Input levels, powers and gains in that mode."""
    return [
        [row[column] for row in measured]
        for column in ("input_dBm", f"{mode}_RTWP_dBm", f"{mode}_gain_dB")
    ]


def total(*powers):
    return 10 * math.log10(sum(10 ** (power / 10) for power in powers))


def floor(gain):
    noise_figure = NOISE_FIGURE + NOISE_FIGURE_PER_DB * (HIGHEST_GAIN - gain)
    return total(THERMAL_NOISE + noise_figure, QUANTISATION - gain)


def saturation(gain):
    return FULL_SCALE - gain


def slope(xs, ys):
    """Of the straight line through these points, by least squares."""
    x_mean, y_mean = sum(xs) / len(xs), sum(ys) / len(ys)
    above = sum((x - x_mean) * (y - y_mean) for x, y in zip(xs, ys))
    return above / sum((x - x_mean) ** 2 for x in xs)


def test_the_levels_reach_from_below_the_noise_to_beyond_full_scale(measured):
    assert [row["input_dBm"] for row in measured] == [-120 + 2.5 * i for i in range(53)]


@pytest.mark.parametrize("mode", MODES)
def test_rtwp_is_the_input_and_the_noise_at_that_gain_up_to_saturation(measured, mode):
    for level, power, gain in zip(*columns(measured, mode)):
        expected = min(total(level, floor(gain)), saturation(gain))
        assert power == pytest.approx(expected, abs=TOLERANCE), level


@pytest.mark.parametrize("mode, most", [("manual", -42.5), ("fast", -2.5), ("slow", -2.5)])
def test_in_the_linear_range_rtwp_rises_with_the_input(measured, mode, most):
    levels, powers, _ = columns(measured, mode)
    linear = [(x, y) for x, y in zip(levels, powers) if -70 <= x <= most]
    assert len(linear) >= 12
    assert slope(*zip(*linear)) == pytest.approx(1, abs=0.02)


def test_manual_gain_has_the_floor_and_the_saturation_of_that_gain(measured):
    levels, powers, gains = columns(measured, "manual")
    assert set(gains) == {MANUAL_GAIN}
    assert powers[0] == pytest.approx(-101.42 + 5 + 9, abs=TOLERANCE)
    saturated = [power for level, power in zip(levels, powers) if level >= -37.5]
    assert saturated == pytest.approx([-40] * len(saturated), abs=TOLERANCE)


@pytest.mark.parametrize("mode", ["fast", "slow"])
def test_automatic_gain_falls_as_the_level_rises(measured, mode):
    _, _, gains = columns(measured, mode)
    assert all(later <= earlier for earlier, later in zip(gains, gains[1:]))
    assert gains[0] > 60
    assert gains[-1] == LOWEST_GAIN


def test_hybrid_gain_is_held_after_its_trigger(measured):
    _, _, gains = columns(measured, "hybrid")
    assert set(gains) == {HIGHEST_GAIN}


def test_fast_gain_is_lower_than_slow_gain(measured):
    _, _, fast = columns(measured, "fast")
    _, _, slow = columns(measured, "slow")
    lower = [a < b for a, b in zip(fast, slow) if b > LOWEST_GAIN]
    assert len(lower) > 30
    assert all(lower)
    assert all(a == LOWEST_GAIN for a, b in zip(fast, slow) if b == LOWEST_GAIN)


def test_the_data_of_the_picture_are_what_is_measured_now(measured):
    shown = rows((PICTURES / "gain_modes.csv").read_text())
    assert len(shown) == len(measured)
    for old, new in zip(shown, measured):
        # Another C library may round the last place differently.
        assert old == pytest.approx(new, abs=0.011), "./dev picture draws it anew"


@pytest.fixture(scope="module", name="drawn")
def fixture_drawn(tmp_path_factory):
    """What the committed data look like when drawn now: width, height and pixels."""
    path = tmp_path_factory.mktemp("drawn") / "gain_modes.png"
    done = subprocess.run(
        ["gnuplot", "-e", f"data = 'gain_modes.csv'; picture = '{path}'", "gain_modes.gnuplot"],
        cwd=PICTURES, capture_output=True, text=True, check=False,
    )
    assert (done.returncode, done.stderr) == (0, "")
    return picture(path)


def test_the_curve_of_each_mode_is_drawn_in_its_colour(drawn):
    width, height, pixels = drawn
    assert len(pixels) == width * height
    assert 0.5 < pixels.count((255, 255, 255)) / len(pixels) < 0.99
    for colour in [(0xB0, 0xB0, 0xB0), (0, 0x72, 0xB2), (0xD5, 0x5E, 0), (0, 0x9E, 0x73)]:
        assert pixels.count(colour) > 1000, colour


def test_the_picture_in_the_tree_is_that_drawing(drawn):
    width, height, pixels = drawn
    there = picture(PICTURES / "gain_modes.png")
    assert there[:2] == (width, height)
    differing = sum(a != b for a, b in zip(pixels, there[2]))
    # Another version of the font may put a few dots elsewhere.
    assert differing < 200, "./dev picture draws it anew"

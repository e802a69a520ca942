# SPDX-License-Identifier: LicenseRef-Proprietary
"""Figures that a radio engineer knows by heart come out of the shell on the simulated board."""

import pytest
from shell import SIMULATION, lua

NOISE_FIGURE = 5.0  # dB: of the default platform at its highest gain and 25 degC
READINGS = 1000

# Mode, band, thermal noise at 290 K in the occupied bandwidth (dBm), that bandwidth (Hz) and the time
# that a reading averages over (s).
NOISE = [
    ("RADIO_MODE_2GUERX", "RADIO_BAND_GSM_900", -120.96, 200e3, 15e-3 / 26),
    ("RADIO_MODE_TD_SCDMA_NODEB", "RADIO_BAND_34", -112.90, 1.28e6, 1e-4),
    ("RADIO_MODE_3GNODEB", "RADIO_BAND_1", -108.13, 3.84e6, 1e-4),
    ("RADIO_MODE_4GENODEB_FDD_3MHZ", "RADIO_BAND_7", -109.66, 2.7e6, 1e-4),
    ("RADIO_MODE_4GENODEB_FDD_5MHZ", "RADIO_BAND_7", -107.44, 4.5e6, 1e-4),
    ("RADIO_MODE_4GENODEB_FDD_10MHZ", "RADIO_BAND_7", -104.43, 9e6, 1e-4),
    ("RADIO_MODE_4GENODEB_FDD_15MHZ", "RADIO_BAND_7", -102.67, 13.5e6, 1e-4),
    ("RADIO_MODE_4GENODEB_FDD_20MHZ", "RADIO_BAND_7", -101.42, 18e6, 1e-4),
]

# Mode, band, transmit channel and frequency (Hz), receive channel and frequency.
CHANNELS = [
    ("RADIO_MODE_4GENODEB_FDD_20MHZ", "RADIO_BAND_7", 2850, 2630000000, 20850, 2510000000),
    ("RADIO_MODE_4GENODEB_FDD_20MHZ", "RADIO_BAND_7", 3449, 2689900000, 21449, 2569900000),
    ("RADIO_MODE_4GUERX_FDD_20MHZ", "RADIO_BAND_7", 20850, 2510000000, 2850, 2630000000),
    ("RADIO_MODE_4GENODEB_TDD_20MHZ", "RADIO_BAND_38", 38000, 2595000000, 38000, 2595000000),
    ("RADIO_MODE_3GNODEB", "RADIO_BAND_1", 10700, 2140000000, 9750, 1950000000),
    ("RADIO_MODE_3GNODEB", "RADIO_BAND_3", 1337, 1842400000, 1112, 1747400000),
    ("RADIO_MODE_2GUERX", "RADIO_BAND_GSM_900E", 975, 880200000, 975, 925200000),
    ("RADIO_MODE_2GUERX", "RADIO_BAND_GSM_1800", 512, 1710200000, 512, 1805200000),
    ("RADIO_MODE_TD_SCDMA_NODEB", "RADIO_BAND_34", 10054, 2010800000, 10054, 2010800000),
]


def simulated(text, **more):
    return lua(text, driver=SIMULATION, **more).out


@pytest.fixture(name="cold")
def cold_fixture(tmp_path):
    """A scenario in which the chip stays below 25 degC, where the noise figure is the table's."""
    scenario = tmp_path / "cold.toml"
    scenario.write_text("ambient = -20\n")
    return {"SOREL_SIM_SCENARIO": str(scenario)}


@pytest.mark.parametrize("mode, band, noise, bandwidth, time", NOISE)
def test_an_idle_channel_reads_thermal_noise_and_the_noise_figure(
    mode, band, noise, bandwidth, time, cold
):
    printed = simulated(
        f"radioInit(RADIO_CONF_SISO, {mode}, {band}) for _ = 1, {READINGS} do "
        "print(radioGetRxRtwpIndBm()) end", **cold)
    readings = [float(line) for line in printed.splitlines()]
    assert len(readings) == READINGS
    mean = sum(readings) / READINGS
    spread = (sum((reading - mean) ** 2 for reading in readings) / READINGS) ** 0.5
    assert mean == pytest.approx(noise + NOISE_FIGURE, abs=0.05)
    assert spread == pytest.approx(4.34 / (bandwidth * time) ** 0.5, rel=0.1)


@pytest.mark.parametrize("mode, band, tx_channel, tx, rx_channel, rx", CHANNELS)
def test_a_channel_leaves_its_frequency_in_the_register(mode, band, tx_channel, tx, rx_channel, rx):
    assert simulated(
        f"radioInit(RADIO_CONF_SISO, {mode}, {band}) "
        f"radioSetTxChannel({tx_channel}) radioSetRxChannel({rx_channel}) "
        "print(('%.0f %.0f'):format(radioSpiRead(0x20), radioSpiRead(0x21)))"
    ) == f"{tx} {rx}\n"


def test_a_step_of_30_dB_is_followed_as_the_gain_mode_has_it(tmp_path):
    scenario = tmp_path / "step.toml"
    scenario.write_text("[[signals]]\nfrequency = 2535000000\nbandwidth = 18000000\n"
                        "power = -66.4\nstart = 0.1\n")
    calls = {}
    for mode in ("MGC", "AGC_FAST", "AGC_SLOW", "AGC_SLOW_HYBRID"):
        calls[mode] = int(simulated(
            "radioInit(RADIO_CONF_SISO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7) "
            f"radioSetRxGainMode(RADIO_RX_GAIN_{mode}) "
            "for _ = 1, 997 do radioGetTemperature() end "  # to 0.1 s, with the two calls above
            "local last, settled = radioGetRxGainIndB(), 0 "
            "for call = 1, 1000 do local gain = radioGetRxGainIndB() "
            "if gain ~= last then last, settled = gain, call end end print(settled)",
            SOREL_SIM_SCENARIO=str(scenario)))
    assert calls["MGC"] == calls["AGC_SLOW_HYBRID"] == 0
    assert 0 < calls["AGC_FAST"] < 10  # of 0.1 ms
    assert calls["AGC_SLOW"] > 100

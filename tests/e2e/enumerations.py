# SPDX-License-Identifier: LicenseRef-Proprietary
"""The enumerations of sorel.h with their members, as scripts see them."""


def numbered(prefix, *words, first=0):
    """Members that count up from first."""
    return {prefix + word: first + place for place, word in enumerate(words)}


ENUMERATIONS = {
    "RadioReturn": numbered(
        "RADIO_E", "SUCCESS", "IO", "NOTSUP", "INVAL", "AGAIN", "ERROR"
    ),
    "RadioDebug": numbered("RADIO_DEBUG_", "NONE", "ERROR", "WARN", "INFO", "DEBUG", "TRACE"),
    "RadioConf": numbered("RADIO_CONF_", "SISO", "MIMO", "COUNT")
    | {"RADIO_CONF_INVALID": 2, "RADIO_CONF_NULL": -1},
    "RadioMode": numbered(
        "RADIO_MODE_",
        "3GNODEB",
        "2GUERX",
        "3GUERX",
        "4GENODEB_FDD_3MHZ",
        "4GENODEB_FDD_5MHZ",
        "4GENODEB_FDD_10MHZ",
        "4GENODEB_FDD_15MHZ",
        "4GENODEB_FDD_20MHZ",
        "4GENODEB_TDD_5MHZ",
        "4GENODEB_TDD_10MHZ",
        "4GENODEB_TDD_20MHZ",
        "4GUERX_FDD_5MHZ",
        "4GUERX_FDD_10MHZ",
        "4GUERX_FDD_20MHZ",
        "4GUERX_TDD_5MHZ",
        "4GUERX_TDD_10MHZ",
        "4GUERX_TDD_20MHZ",
        "TD_SCDMA_NODEB",
        "COUNT",
    )
    | {"RADIO_MODE_INVALID": 18, "RADIO_MODE_NULL": -1},
    "RadioBand": {f"RADIO_BAND_{band}": band for band in range(1, 26)}
    | {f"RADIO_BAND_{band}": band for band in range(33, 44)}
    | numbered("RADIO_BAND_GSM_", "850", "900", "900E", "1800", "1900", first=44)
    | {f"RADIO_BAND_{band}": band for band in range(252, 256)}
    | {"RADIO_BAND_COUNT": 256, "RADIO_BAND_INVALID": 256, "RADIO_BAND_NULL": -1},
    "RadioState": numbered("RADIO_STATE_", "DISABLE", "ENABLE"),
    "RadioRxGainMode": numbered(
        "RADIO_RX_GAIN_", "MGC", "AGC_FAST", "AGC_SLOW", "AGC_SLOW_HYBRID"
    ),
    "RadioTxAntenna": numbered("RADIO_TX_ANTENNA_", "1", "2"),
    "RadioRxAntenna": numbered("RADIO_RX_ANTENNA_", "1", "2"),
    "RadioSelectIndex": numbered("RADIO_SELECT_", "0", "1", "ALL"),
    "RadioPlatformSelectIndex": numbered(
        "RADIO_PLATFORM_", "DEFAULT", "TALWIN", "MERRIK", "OSTRAV", "BELLAN", "COUNT"
    )
    | {"RADIO_PLATFORM_NULL": -1},
    "RadioLoopback": numbered(
        "RADIO_", "NO_LOOPBACK", "TX_TO_RX_LOOPBACK", "RX_TO_TX_LOOPBACK"
    ),
    "RadioCpriRate": {f"RADIO_CPRI_RATE_{rate}": rate for rate in (1, 2, 4, 5, 8, 10)},
    "RadioInterfaceMode": numbered("RADIO_INTERFACE_", "JESD_CMOS", "JESD_LVDS", "CPRI"),
}

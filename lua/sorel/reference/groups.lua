-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The groups of constants, for the subject "constants": what each is, and what each member means.
-- Values are those of the module `radio`, and are not told here.

local NUMBER_OF = "how many there are; the driver refuses it"
local NONE = "none; the driver refuses it"
local NO_VALUE = "no value; the driver refuses it"

local function paired(uplink, downlink)
    return ("uplink %s, downlink %s MHz"):format(uplink, downlink)
end

local function unpaired(both)
    return ("TDD, %s MHz"):format(both)
end

local RESERVED = "not a band of the 3GPP tables"

return {
    {
        name = "RADIO_RETURN", type = "RadioReturn",
        text = "Status of a call. Scripts never get one: what is not RADIO_ESUCCESS is raised as "
            .. '"NAME() did not return success".',
        members = {
            RADIO_ESUCCESS = "done",
            RADIO_EIO = "the hardware did not answer",
            RADIO_ENOTSUP = "not supported by the platform, or by the mode it is set up for",
            RADIO_EINVAL = "an argument is out of range or names no member, or the radio is closed",
            RADIO_EAGAIN = "busy; the same call may succeed later",
            RADIO_EERROR = "not possible in the present state, mostly before radioInit",
        },
    },
    {
        name = "RADIO_DEBUG", type = "RadioDebug",
        text = "Verbosity of the driver's messages; each level includes those before it.",
        members = {
            RADIO_DEBUG_NONE = "no messages",
            RADIO_DEBUG_ERROR = "why a call failed",
            RADIO_DEBUG_WARN = "what succeeded but looks wrong",
            RADIO_DEBUG_INFO = "what changes the radio's state",
            RADIO_DEBUG_DEBUG = "what the driver works out",
            RADIO_DEBUG_TRACE = "every call",
        },
    },
    {
        name = "RADIO_CONF", type = "RadioConf",
        text = "Antenna configuration.",
        members = {
            RADIO_CONF_SISO = "one transmit and one receive antenna: the first of each",
            RADIO_CONF_MIMO = "two transmit and two receive antennas",
            RADIO_CONF_COUNT = NUMBER_OF,
            RADIO_CONF_INVALID = NONE,
            RADIO_CONF_NULL = NO_VALUE,
        },
    },
    {
        name = "RADIO_MODE", type = "RadioMode",
        text = "Air-interface mode. NODEB: base station, transmits the downlink and receives the "
            .. "uplink. UERX: terminal receiver, the other way round.",
        members = {
            RADIO_MODE_3GNODEB = "base station, UTRA FDD",
            RADIO_MODE_2GUERX = "terminal, GSM",
            RADIO_MODE_3GUERX = "terminal, UTRA FDD",
            RADIO_MODE_4GENODEB_FDD_3MHZ = "base station, LTE FDD, 3 MHz wide",
            RADIO_MODE_4GENODEB_FDD_5MHZ = "base station, LTE FDD, 5 MHz wide",
            RADIO_MODE_4GENODEB_FDD_10MHZ = "base station, LTE FDD, 10 MHz wide",
            RADIO_MODE_4GENODEB_FDD_15MHZ = "base station, LTE FDD, 15 MHz wide",
            RADIO_MODE_4GENODEB_FDD_20MHZ = "base station, LTE FDD, 20 MHz wide",
            RADIO_MODE_4GENODEB_TDD_5MHZ = "base station, LTE TDD, 5 MHz wide",
            RADIO_MODE_4GENODEB_TDD_10MHZ = "base station, LTE TDD, 10 MHz wide",
            RADIO_MODE_4GENODEB_TDD_20MHZ = "base station, LTE TDD, 20 MHz wide",
            RADIO_MODE_4GUERX_FDD_5MHZ = "terminal, LTE FDD, 5 MHz wide",
            RADIO_MODE_4GUERX_FDD_10MHZ = "terminal, LTE FDD, 10 MHz wide",
            RADIO_MODE_4GUERX_FDD_20MHZ = "terminal, LTE FDD, 20 MHz wide",
            RADIO_MODE_4GUERX_TDD_5MHZ = "terminal, LTE TDD, 5 MHz wide",
            RADIO_MODE_4GUERX_TDD_10MHZ = "terminal, LTE TDD, 10 MHz wide",
            RADIO_MODE_4GUERX_TDD_20MHZ = "terminal, LTE TDD, 20 MHz wide",
            RADIO_MODE_TD_SCDMA_NODEB = "base station, UTRA TDD, 1.28 Mchip/s",
            RADIO_MODE_COUNT = NUMBER_OF,
            RADIO_MODE_INVALID = NONE,
            RADIO_MODE_NULL = NO_VALUE,
        },
    },
    {
        name = "RADIO_BAND", type = "RadioBand",
        text = "Operating band: 1 to 43 by 3GPP TS 36.101 table 5.5-1, GSM by TS 45.005 section 2. "
            .. "A base station transmits the downlink and receives the uplink.",
        members = {
            RADIO_BAND_1 = paired("1920-1980", "2110-2170"),
            RADIO_BAND_2 = paired("1850-1910", "1930-1990"),
            RADIO_BAND_3 = paired("1710-1785", "1805-1880"),
            RADIO_BAND_4 = paired("1710-1755", "2110-2155"),
            RADIO_BAND_5 = paired("824-849", "869-894"),
            RADIO_BAND_6 = paired("830-840", "875-885"),
            RADIO_BAND_7 = paired("2500-2570", "2620-2690"),
            RADIO_BAND_8 = paired("880-915", "925-960"),
            RADIO_BAND_9 = paired("1749.9-1784.9", "1844.9-1879.9"),
            RADIO_BAND_10 = paired("1710-1770", "2110-2170"),
            RADIO_BAND_11 = paired("1427.9-1447.9", "1475.9-1495.9"),
            RADIO_BAND_12 = paired("699-716", "729-746"),
            RADIO_BAND_13 = paired("777-787", "746-756"),
            RADIO_BAND_14 = paired("788-798", "758-768"),
            RADIO_BAND_15 = "reserved in the 3GPP tables",
            RADIO_BAND_16 = "reserved in the 3GPP tables",
            RADIO_BAND_17 = paired("704-716", "734-746"),
            RADIO_BAND_18 = paired("815-830", "860-875"),
            RADIO_BAND_19 = paired("830-845", "875-890"),
            RADIO_BAND_20 = paired("832-862", "791-821"),
            RADIO_BAND_21 = paired("1447.9-1462.9", "1495.9-1510.9"),
            RADIO_BAND_22 = paired("3410-3490", "3510-3590"),
            RADIO_BAND_23 = paired("2000-2020", "2180-2200"),
            RADIO_BAND_24 = paired("1626.5-1660.5", "1525-1559"),
            RADIO_BAND_25 = paired("1850-1915", "1930-1995"),
            RADIO_BAND_33 = unpaired("1900-1920"),
            RADIO_BAND_34 = unpaired("2010-2025"),
            RADIO_BAND_35 = unpaired("1850-1910"),
            RADIO_BAND_36 = unpaired("1930-1990"),
            RADIO_BAND_37 = unpaired("1910-1930"),
            RADIO_BAND_38 = unpaired("2570-2620"),
            RADIO_BAND_39 = unpaired("1880-1920"),
            RADIO_BAND_40 = unpaired("2300-2400"),
            RADIO_BAND_41 = unpaired("2496-2690"),
            RADIO_BAND_42 = unpaired("3400-3600"),
            RADIO_BAND_43 = unpaired("3600-3800"),
            RADIO_BAND_GSM_850 = paired("824-849", "869-894"),
            RADIO_BAND_GSM_900 = "P-GSM, " .. paired("890-915", "935-960"),
            RADIO_BAND_GSM_900E = "E-GSM, " .. paired("880-915", "925-960"),
            RADIO_BAND_GSM_1800 = "DCS, " .. paired("1710-1785", "1805-1880"),
            RADIO_BAND_GSM_1900 = "PCS, " .. paired("1850-1910", "1930-1990"),
            RADIO_BAND_252 = RESERVED,
            RADIO_BAND_253 = RESERVED,
            RADIO_BAND_254 = RESERVED,
            RADIO_BAND_255 = RESERVED,
            RADIO_BAND_COUNT = "one past the highest; the driver refuses it",
            RADIO_BAND_INVALID = NONE,
            RADIO_BAND_NULL = NO_VALUE,
        },
    },
    {
        name = "RADIO_STATE", type = "RadioState",
        text = "Whether a transmitter or receiver is switched on.",
        members = { RADIO_STATE_DISABLE = "off", RADIO_STATE_ENABLE = "on" },
    },
    {
        name = "RADIO_RX_GAIN", type = "RadioRxGainMode",
        text = "Who sets the receiver's gain.",
        members = {
            RADIO_RX_GAIN_MGC = "manual: radioSetRxGain",
            RADIO_RX_GAIN_AGC_FAST = "automatic, fast attack",
            RADIO_RX_GAIN_AGC_SLOW = "automatic, slow attack",
            RADIO_RX_GAIN_AGC_SLOW_HYBRID = "automatic, slow attack, when triggered",
        },
    },
    {
        name = "RADIO_TX_ANTENNA", type = "RadioTxAntenna",
        text = "Transmit antenna.",
        members = { RADIO_TX_ANTENNA_1 = "the first", RADIO_TX_ANTENNA_2 = "the second" },
    },
    {
        name = "RADIO_RX_ANTENNA", type = "RadioRxAntenna",
        text = "Receive antenna.",
        members = { RADIO_RX_ANTENNA_1 = "the first", RADIO_RX_ANTENNA_2 = "the second" },
    },
    {
        name = "RADIO_SELECT", type = "RadioSelectIndex",
        text = "Paths of the front end: a path is a transmit and a receive antenna with what lies "
            .. "behind them.",
        members = {
            RADIO_SELECT_0 = "path 0: the first antennas",
            RADIO_SELECT_1 = "path 1: the second antennas",
            RADIO_SELECT_ALL = "both",
        },
    },
    {
        name = "RADIO_PLATFORM", type = "RadioPlatformSelectIndex",
        text = "Hardware platform.",
        members = {
            RADIO_PLATFORM_DEFAULT = "the driver's choice",
            RADIO_PLATFORM_TALWIN = "Talwin",
            RADIO_PLATFORM_MERRIK = "Merrik",
            RADIO_PLATFORM_OSTRAV = "Ostrav",
            RADIO_PLATFORM_BELLAN = "Bellan",
            RADIO_PLATFORM_COUNT = NUMBER_OF,
            RADIO_PLATFORM_NULL = NO_VALUE,
        },
    },
    {
        name = "RADIO_LOOPBACK", type = "RadioLoopback",
        text = "Digital loopback inside the front end.",
        members = {
            RADIO_NO_LOOPBACK = "none",
            RADIO_TX_TO_RX_LOOPBACK = "what is transmitted is received",
            RADIO_RX_TO_TX_LOOPBACK = "what is received is transmitted",
        },
    },
    {
        name = "RADIO_CPRI_RATE", type = "RadioCpriRate",
        text = "CPRI line-rate option, by its number in the CPRI specification V7.0 section 4.2.1.",
        members = {
            RADIO_CPRI_RATE_1 = "614.4 Mbit/s",
            RADIO_CPRI_RATE_2 = "1228.8 Mbit/s",
            RADIO_CPRI_RATE_4 = "3072.0 Mbit/s",
            RADIO_CPRI_RATE_5 = "4915.2 Mbit/s",
            RADIO_CPRI_RATE_8 = "10137.6 Mbit/s",
            RADIO_CPRI_RATE_10 = "24330.24 Mbit/s",
        },
    },
    {
        name = "RADIO_INTERFACE", type = "RadioInterfaceMode",
        text = "Digital data interface between the front end and the baseband. No function takes "
            .. "it.",
        members = {
            RADIO_INTERFACE_JESD_CMOS = "JESD207, CMOS levels",
            RADIO_INTERFACE_JESD_LVDS = "JESD207, LVDS levels",
            RADIO_INTERFACE_CPRI = "CPRI",
        },
    },
}

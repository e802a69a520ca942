-- SPDX-License-Identifier: LicenseRef-Proprietary
--- What the functions of the transmit and the receive path have in common; no subject itself.
return {
    BEFORE_INIT = "RADIO_EERROR: before radioInit",
    NO_PATH = "RADIO_ENOTSUP: the second path, which the platform or the configuration lacks",
    STATE = { name = "state", type = "RadioState", text = "on or off" },
    CHANNEL = { name = "channel", type = "uint16_t",
        text = "by the mode its EARFCN (3GPP TS 36.101 section 5.7.3), UARFCN (TS 25.101 section "
            .. "5.4.4) or ARFCN (TS 45.005 section 2)" },
}

-- SPDX-License-Identifier: LicenseRef-Proprietary
return {
    name = "first session",
    title = "select, set up, tune, measure, switch on and off: what to type",
    text = "A line is a chunk of Lua of its own: a local ends with it, and a value is shown with "
        .. "print. A transmitter radiates: connect or terminate it before. On the simulated board:",
    session = [[
sorelapp> radioSelectPlatform(RADIO_PLATFORM_TALWIN)
sorelapp> radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_5MHZ, RADIO_BAND_7)
sorelapp> radioSetTxFrequency(2655e6) radioSetRxFrequency(2535e6)
sorelapp> print(radioGetTemperature())
28.1875
sorelapp> print(radioGetRxRtwpIndBm(), radioGetRxGainIndB())
-98.65625	72
sorelapp> radioSetTxMaxPower(-100)
sorelapp> radioSetTxState(RADIO_STATE_ENABLE)
sorelapp> radioSetTxState(RADIO_STATE_DISABLE)
sorelapp> radioSetTxFrequency(2400e6)
failed to process stdin: "radioSetTxFrequency() did not return success"
sorelapp> exit]],
    after = "2400 MHz is not in band 7, so the driver refused it; nothing has changed. Frequencies "
        .. 'are in Hz, powers here in 0.1 dBm, gains in dB. Next: help "radioInit", '
        .. 'help "RADIO_BAND", help "debug" to see why a call is refused, and help "bringup" to do '
        .. "all of it by one table.",
    entries = {},
}

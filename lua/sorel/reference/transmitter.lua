-- SPDX-License-Identifier: LicenseRef-Proprietary
return {
    name = "transmitter",
    module = "sorel.transmitter",
    title = "the transmitter switched off, whatever has gone wrong before",
    entries = {
        {
            name = "transmitter.off",
            text = "Switches the transmitters of all paths off, which are then the selected ones. "
                .. "Where the driver refuses that, resets the radio, which is then switched off "
                .. "and not initialised. Raises nothing.",
            results = {
                { name = "off", type = "boolean",
                    text = "true when off, also where no radio is open; false: a transmitter may "
                        .. "still be on" },
                { name = "how", type = "string", optional = true,
                    text = [["reset" where the radio was reset; after false what the driver ]]
                        .. "said" },
            },
            example = "print(transmitter.off())",
        },
        {
            name = "transmitter.guarded",
            text = "Calls a function. If it raises an error, the transmitters go off before that "
                .. "is raised again.",
            arguments = {
                { name = "action", type = "function", text = "what to call" },
                { name = "...", type = "any", optional = true, text = "its arguments" },
            },
            results = { { name = "...", type = "any", text = "the function's" } },
            errors = {
                "the function's error as it is; where the transmitters could not be switched off, "
                    .. "a text that says so with it",
            },
            example = "transmitter.guarded(function()\n"
                .. "    radioSetTxState(RADIO_STATE_ENABLE)\n"
                .. "    print(radioGetRxRtwpIndBm())\n"
                .. "    radioSetTxState(RADIO_STATE_DISABLE)\n"
                .. "end)",
        },
    },
}

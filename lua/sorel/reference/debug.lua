-- SPDX-License-Identifier: LicenseRef-Proprietary
return {
    name = "debug",
    title = "the driver's messages: why a call was refused",
    text = "The driver says nothing until it is told to; then its messages are on standard error. "
        .. 'These two functions that set something raise no "did not return success".',
    entries = {
        {
            name = "radioSetDebugLevel",
            text = "Sets the verbosity of the driver's messages. What the driver answers is "
                .. "ignored.",
            arguments = { { name = "level", type = "RadioDebug",
                text = "what to say; each level includes those before it" } },
            example = "radioSetDebugLevel(RADIO_DEBUG_ERROR)\nradioSetDebugLevel(RADIO_DEBUG_NONE)",
        },
        {
            name = "radioGetDebugLevel",
            text = "Verbosity of the driver's messages. RADIO_DEBUG_NONE after radioOpen, unless "
                .. "the driver's own settings ask for messages.",
            results = { { name = "level", type = "int32_t",
                text = "a value of RADIO_DEBUG; -2147483648: failed" } },
            example = "print(radioGetDebugLevel() == RADIO_DEBUG_NONE)",
        },
        {
            name = "radioSetDebugFile",
            text = "Sends the driver's messages to a file given by a native pointer, or with nil "
                .. "where they go after radioOpen. Files of Lua's io are not taken, and no "
                .. "function of the shell makes such a pointer. What the driver answers is "
                .. "ignored.",
            arguments = { { name = "file", type = "FILE *", text = "where to; nil: as at first" } },
            example = "radioSetDebugFile(nil)",
        },
    },
}

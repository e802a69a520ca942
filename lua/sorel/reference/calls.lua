-- SPDX-License-Identifier: LicenseRef-Proprietary
return {
    name = "calls",
    title = "what the driver's functions take, return and raise",
    text = "A driver function takes exactly its arguments. All are checked before the driver is "
        .. "called; a call that is refused has not reached it.",
    points = {
        "uint32_t, uint16_t, int16_t: a number, or a string that Lua reads as one. Fractions are "
            .. "cut. Unsigned ones refuse negative numbers: \"number must not be negative\". What "
            .. "is too large for 32 bits becomes the largest that is not; 16-bit arguments then "
            .. "keep their low 16 bits.",
        "RadioBand and the like: a number, by its constant such as RADIO_BAND_7. Whether it names "
            .. "a member is for the driver to judge.",
        "char const *: a string or nil. Names that end in * otherwise: a pointer object or nil.",
        "Words in the tables of radioSetRxGainRegisters and radioSetTxPowerRegisters are read as "
            .. "decimal text: fractions are cut, -1 is 0xffffffff, a string in hexadecimal is 0, "
            .. "and of a number that Lua prints with an exponent only the first digit is left: "
            .. "1e15 is 1.",
        "\"Error in NAME expected 1..1 args, got 2\": another number of arguments. \"Error in NAME "
            .. "(arg 1), expected 'uint32_t' got 'string'\": another type.",
        "\"No radio context, call radioOpen() first\": no radio is open.",
        "\"NAME() did not return success\": the driver refused. Why, in words, it says after "
            .. "radioSetDebugLevel(RADIO_DEBUG_ERROR). The help of each function tells for which "
            .. "status; every one can be RADIO_EIO, the hardware did not answer, and RADIO_EAGAIN, "
            .. "busy.",
        "Readings raise nothing when they fail: they give nan, or -2147483648 where they are "
            .. "integers; see readings.",
    },
    entries = {},
}

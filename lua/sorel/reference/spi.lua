-- SPDX-License-Identifier: LicenseRef-Proprietary
return {
    name = "spi",
    title = "registers over SPI, and the reference oscillator",
    text = "The addresses and what is in the registers are the chip's. Print words with "
        .. "bit.tohex. sorel.registers knows registers and their fields by name.",
    entries = {
        {
            name = "radioSpiRead",
            text = "Reads a register of the radio chip. Needs no radioInit.",
            arguments = { { name = "address", type = "uint32_t", text = "of the register" } },
            results = {
                { name = "word", type = "uint32_t",
                    text = "32 bits; 4294967295 (0xffffffff) also where there is no register: a "
                        .. "bus that nobody drives" },
            },
            example = "print(bit.tohex(radioSpiRead(0x10)))",
        },
        {
            name = "radioSpiWrite",
            text = "Writes a register of the radio chip. Needs no radioInit.",
            arguments = {
                { name = "address", type = "uint32_t", text = "of the register" },
                { name = "value", type = "int32_t", unchecked = true,
                    text = "32 bits as a signed number: -1, or bit.tobit(0xffffffff), for all "
                        .. "ones; what is no number writes 0, what is too large 0x7fffffff" },
            },
            errors = {
                "RADIO_EINVAL: there is no register, or it does not take that value",
                "RADIO_EERROR: where the register is a setting, as the function for it",
                "RADIO_ENOTSUP: it can only be read; the second antenna, where it is missing",
                "RADIO_EAGAIN: where the register is a setting, as the function for it",
            },
            example = "radioSpiWrite(0x10, bit.tobit(0xdeadbeef))",
        },
        {
            name = "radioSetOscillatorDacValue",
            text = "Sets the DAC that tunes the reference oscillator. Needs no radioInit.",
            arguments = {
                { name = "value", type = "uint16_t", unit = "steps of the DAC",
                    text = "0 to 2^radioGetOscillatorDacWidth() - 1" },
            },
            errors = { "RADIO_EINVAL: a value beyond the DAC's width" },
            example = "radioSetOscillatorDacValue(radioGetOscillatorDacValue() + 1)",
        },
        {
            name = "radioGetOscillatorDacValue",
            text = "Value of the DAC that tunes the reference oscillator.",
            results = { { name = "value", type = "uint32_t", unit = "steps of the DAC",
                text = "4294967295: failed" } },
            example = "print(radioGetOscillatorDacValue())",
        },
        {
            name = "radioGetOscillatorDacWidth",
            text = "Width of the DAC that tunes the reference oscillator.",
            results = { { name = "width", type = "int32_t", unit = "bits",
                text = "-2147483648: failed" } },
            example = "print(radioGetOscillatorDacWidth())",
        },
    },
}

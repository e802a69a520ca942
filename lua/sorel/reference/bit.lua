-- SPDX-License-Identifier: LicenseRef-Proprietary
local A_NUMBER = "an argument that is no number"

local function number(name, text)
    return { name = name, type = "number", text = text }
end

local WORD = { number("word", "a signed number of 32 bits") }
local VALUE = number("value", "any number; only its lowest 32 bits count")
local COUNT = number("count", "of places; only its lowest 5 bits count")

local function all(name, text, example)
    return {
        name = "bit." .. name, text = text,
        arguments = { VALUE, { name = "...", type = "number", optional = true,
            text = "more of them" } },
        results = WORD, errors = { A_NUMBER }, example = example,
    }
end

local function shift(name, text, example)
    return {
        name = "bit." .. name, text = text, arguments = { VALUE, COUNT }, results = WORD,
        errors = { A_NUMBER }, example = example,
    }
end

local function one(name, text, example)
    return {
        name = "bit." .. name, text = text, arguments = { VALUE }, results = WORD,
        errors = { A_NUMBER }, example = example,
    }
end

return {
    name = "bit",
    title = "register arithmetic: bits of 32-bit words (Lua BitOp)",
    text = "Results are signed: 0xffffffff is -1, as radioSpiWrite takes it. Print them with "
        .. 'bit.tohex. Fractions are rounded to a neighbouring integer.',
    entries = {
        one("tobit", "A number as a signed one of 32 bits.",
            "print(bit.tobit(0xffffffff))  --> -1"),
        {
            name = "bit.tohex",
            text = "A number in hexadecimal.",
            arguments = {
                VALUE,
                { name = "digits", type = "number", optional = true, default = "8",
                    text = "how many of the lowest digits; negative: in capital letters" },
            },
            results = { { name = "text", type = "string", text = "without 0x" } },
            errors = { A_NUMBER },
            example = "print(bit.tohex(-1), bit.tohex(171, -2))  --> ffffffff AB",
        },
        one("bnot", "Every bit the other way.", "print(bit.bnot(0))  --> -1"),
        all("band", "The bits that are set in all.", "print(bit.band(0xff, 0x3c, 0x0f))  --> 12"),
        all("bor", "The bits that are set in at least one.", "print(bit.bor(1, 2, 8))  --> 11"),
        all("bxor", "The bits that are set in an odd number of them.",
            "print(bit.bxor(3, 1))  --> 2"),
        shift("lshift", "Shifted to the left, zeros from the right.",
            "print(bit.lshift(1, 31))  --> -2147483648"),
        shift("rshift", "Shifted to the right, zeros from the left.",
            "print(bit.rshift(-1, 28))  --> 15"),
        shift("arshift", "Shifted to the right, the sign from the left.",
            "print(bit.arshift(-16, 2))  --> -4"),
        shift("rol", "Rotated to the left.", "print(bit.rol(1, 33))  --> 2"),
        shift("ror", "Rotated to the right.", "print(bit.ror(1, 1))  --> -2147483648"),
        one("bswap", "The four bytes in the other order.",
            "print(bit.tohex(bit.bswap(0x11223344)))  --> 44332211"),
    },
}

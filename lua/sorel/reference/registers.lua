-- SPDX-License-Identifier: LicenseRef-Proprietary

local fields = {
    { name = "name", type = "string", text = "letters, digits and _" },
    { name = "bits", type = "string",
        text = [["31:16", the higher bit first, or one bit, also as a number; no two fields ]]
            .. [[share one]] },
    { name = "access", type = "string", optional = true, default = "rw",
        text = [["rw", or "ro" for one that can only be read]] },
    { name = "signed", type = "boolean", optional = true, default = "false",
        text = "whether the number is two's complement" },
    { name = "unit", type = "string", optional = true, text = "of the number, to be shown" },
    { name = "values", type = "table", optional = true,
        text = "numbers by name: { off = 0, on = 1 }" },
    { name = "text", type = "string", optional = true, text = "what it is for" },
}

local description_registers = {
    { name = "name", type = "string", text = "letters, digits and _" },
    { name = "address", type = "uint32_t", text = "of the register" },
    { name = "access", type = "string", optional = true, default = "rw",
        text = [["rw"; "ro" for one that can only be read; "w1c" for one in which writing a 1 ]]
            .. [[clears]] },
    { name = "reset", type = "uint32_t", optional = true, text = "its word after a reset" },
    { name = "volatile", type = "boolean", optional = true, default = "false",
        text = "whether it may read otherwise than written; restoring then does not read it back" },
    { name = "fields", type = "table", optional = true, text = "a list of "
        .. "fields", fields = fields },
    { name = "text", type = "string", optional = true, text = "what it is for" },
}

local description = {
    { name = "name", type = "string", text = "of the board or chip, in one line" },
    { name = "registers", type = "table", fields = description_registers,
        text = "a list of registers, in the order in which they are dumped, written and restored; "
            .. "put last what switches a transmitter on" },
    { name = "text", type = "string", optional = true, text = "what it describes" },
}

local map = { name = "map", type = "table", text = "a map" }
local high = { name = "high", type = "number", optional = true,
    text = "the highest bit, 0 to 31; without it the whole register" }
local low = { name = "low", type = "number", optional = true, default = "high",
    text = "the lowest bit" }
local address = { name = "address", type = "uint32_t", text = "of the register" }

local function dump(text)
    return { name = "dump", type = "table", text = text }
end

return {
    name = "registers",
    module = "sorel.registers",
    title = "the chip's registers, by address and by the names of a map",
    text = "Words are unsigned, 0 to 4294967295. A map and a dump have the functions that take "
        .. "them "
        .. [[first as methods: board:read("TX_1.ON"), dump:print(). ]]
        .. "0xffffffff is also what is read where there is no register, or when a read failed; "
        .. "before "
        .. "such a word is changed and written back, it is read again. A file of a dump is text: "
        .. "an "
        .. "address, a word and a name in each line (0x0010 0xdeadbeef SCRATCH), comments after #, "
        .. "and the line end at the end.",
    prepare = [[
board = registers.map { name = "simulated board", registers = {
    { name = "SCRATCH", address = 0x10, reset = 0 },
    { name = "TX_1", address = 0x32, fields = {
        { name = "LIMIT", bits = "31:0", signed = true, unit = "0.1 dBm" },
    } },
} }
before = board:dump()
before:save("good.txt")]],
    entries = {
        {
            name = "registers.get",
            text = "Reads a register, or bits of it.",
            arguments = { address, high, low },
            results = { { name = "value", type = "uint32_t", text = "the word, or the bits' "
                .. "number" } },
            errors = { "registers.get: ARGUMENT: what is wrong with it" },
            example = "print(bit.tohex(registers.get(0x10)), registers.get(0x10, 7, 4))",
        },
        {
            name = "registers.set",
            text = "Writes a register, or bits of it: the others are then read first, and stay.",
            arguments = {
                address,
                { name = "value", type = "uint32_t", text = "the word, or a number that fits" },
                high, low,
            },
            errors = {
                "registers.set: ARGUMENT: what is wrong with it",
                "radioSpiWrite() did not return success",
            },
            example = "registers.set(0x10, 0xdeadbeef) registers.set(0x10, 5, 7, 4)",
        },
        {
            name = "registers.map",
            text = "Makes a map of a description, a plain table.",
            arguments = {
                { name = "description", type = "table", text = "of the registers",
                    fields = description },
            },
            results = { map },
            errors = {
                "every mistake in the description, with its place: registers[3] "
                    .. "(SCRATCH).fields[1] "
                    .. "(LEVEL).bits: 33 is beyond bit 31",
            },
            example = 'registers.map { name = "b", registers = { { name = "A", address = 16 } } }',
        },
        {
            name = "registers.read",
            text = "Reads a register or field by its name.",
            arguments = {
                map,
                { name = "name", type = "string", text = "REGISTER or REGISTER.FIELD" },
            },
            results = {
                { name = "value", type = "number", text = "its number" },
                { name = "meaning", type = "string", optional = true,
                    text = "the number's name, where the field has one for it" },
            },
            errors = { "a name that is none, with the nearest one" },
            example = 'print(board:read "TX_1.LIMIT")',
        },
        {
            name = "registers.write",
            text = "Writes registers or fields: one by name and value, or all in a table from "
                .. "names to "
                .. "values, in the order of the map. The fields of a register are written at "
                .. "once; what "
                .. "of it is not named is read first and stays, or is 0 where writing a 1 "
                .. "clears. All is "
                .. "checked before the first is written.",
            arguments = {
                map,
                { name = "what", type = "any",
                    text = "REGISTER or REGISTER.FIELD, or a table of names and values" },
                { name = "value", type = "any", optional = true,
                    text = "a number that fits, or one of the names that the field has for "
                        .. "numbers" },
            },
            errors = {
                "every mistake, with its name",
                "registers.write: REGISTER (ADDRESS): the driver's message. If registers were "
                    .. "written "
                    .. "before it, the transmitters are off",
            },
            example = [[board:write { ["TX_1.LIMIT"] = -100, SCRATCH = 7 }]],
        },
        {
            name = "registers.dump",
            text = "Reads registers, each once.",
            arguments = {
                map,
                { name = "names", type = "any", optional = true,
                    text = "a register's name, or a list of them; without it all of the map" },
            },
            results = { dump "a list of { address = N, value = N, name = TEXT }" },
            errors = { "a name that is none, with the nearest one" },
            example = "before = board:dump() board:dump('TX_1'):print()",
        },
        {
            name = "registers.dump_range",
            text = "Reads the registers from one address to another, 65536 at most.",
            arguments = {
                { name = "first", type = "uint32_t", text = "address" },
                { name = "last", type = "uint32_t", text = "address" },
            },
            results = { dump "likewise, without names" },
            errors = { "registers.dump_range: last: 0 to 65535 above first is expected" },
            example = "registers.dump_range(0x20, 0x27):print()",
        },
        {
            name = "registers.reset_values",
            text = "What the map says that the registers hold after a reset.",
            arguments = { map },
            results = { dump "of the registers whose `reset` the map tells" },
            example = "registers.compare(board:reset_values(), board:dump()):print()",
        },
        {
            name = "registers.compare",
            text = "What differs between two dumps, and in which fields.",
            arguments = {
                { name = "before", type = "table", text = "a dump" },
                { name = "after", type = "table", text = "a dump" },
            },
            results = {
                { name = "differences", type = "table",
                    text = "a list of { address = N, name = TEXT, before = N, after = N, fields = "
                        .. "LIST }, a word nil where that dump lacks it; LIST of { name = TEXT, "
                        .. "before "
                        .. "= N, after = N }" },
            },
            errors = { "registers.compare: ARGUMENT: a dump is expected" },
            example = "registers.compare(before, board:dump()):print()",
        },
        {
            name = "registers.print",
            text = "Prints a dump with the fields of each register, or differences.",
            arguments = {
                { name = "what", type = "table", text = "a dump, or what registers.compare "
                    .. "returned" },
            },
            errors = { "registers.print: a dump, or what registers.compare() returned, is "
                .. "expected" },
            example = "board:dump():print()",
        },
        {
            name = "registers.save",
            text = "Writes a dump to a file.",
            arguments = {
                dump "a dump",
                { name = "path", type = "string", text = [[of the file; "-" is standard output]] },
            },
            errors = { "cannot write PATH: why" },
            example = 'board:dump():save("good.txt")',
        },
        {
            name = "registers.load",
            text = "Reads a dump from a file, which is data and never run.",
            arguments = {
                { name = "path", type = "string", text = "of the file" },
                { name = "map", type = "table", optional = true,
                    text = "a map that the registers have to be in, under the same names" },
            },
            results = { dump "a dump" },
            errors = { "cannot read PATH: why", "every mistake in the file: PATH:LINE: what it "
                .. "is" },
            example = 'good = registers.load("good.txt", board)',
        },
        {
            name = "registers.restore",
            text = [[Writes those registers of a dump that are "rw" in the map, in its order, ]]
                .. [[and reads ]]
                .. "them back: the fields that can be written, the whole word where there are no "
                .. "fields. After a failure at the board the transmitters are off.",
            arguments = { map, dump "a dump, all of whose registers are in the map" },
            results = { { name = "count", type = "number", text = "how many were written" } },
            errors = {
                "registers that the map lacks, before any is written",
                "registers.restore: REGISTER (ADDRESS): the driver's message",
                "registers.restore: what is read is not what was written: each of those registers",
            },
            example = 'print(board:restore(registers.load("good.txt", board)))',
        },
    },
}

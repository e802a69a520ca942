-- SPDX-License-Identifier: LicenseRef-Proprietary
local kit = require "kit"
local registers = require "sorel.registers"
local check = kit.check

local MOST = 4294967295

-- Some registers of the simulated board; the transmitter comes last.
local board = registers.map {
    name = "simulated board",
    registers = {
        { name = "ID", address = 0x00, access = "ro", reset = 0x534f5200 },
        { name = "EVENTS", address = 0x05, access = "w1c", fields = {
            { name = "TX_LOCK", bits = 0 },
            { name = "RX_LOCK", bits = 1 },
        } },
        { name = "SCRATCH", address = 0x10, reset = 0, fields = {
            { name = "TOP", bits = 31 },
            { name = "MODE", bits = "30:28", values = { idle = 0, run = 5 } },
            { name = "LEVEL", bits = "27:16", signed = true, unit = "0.1 dBm" },
            { name = "REVISION", bits = "7:0", access = "ro" },
        } },
        { name = "OSCILLATOR", address = 0x11, reset = 32768 },
        { name = "GAIN_1", address = 0x42, volatile = true },
        { name = "TX_1", address = 0x30, reset = 0, fields = {
            { name = "ON", bits = 0, values = { off = 0, on = 1 } },
        } },
    },
}

-- What an action does to the board.
local function calls(action, ...)
    return (kit.calls(action, ...))
end

-- What is raised, without the place.
local function message_of(action, ...)
    return (kit.raised(action, ...):gsub("^[^ ]*%.lua:%d+: ", ""))
end

local function write(what, value)
    board:write(what, value)
end

TestLists = {}

function TestLists.test_a_gap_in_a_list_of_names_is_told()
    check.assertStrContains(message_of(board.dump, board, { "ID", nil, "TX_1" }),
        "registers.dump: names[2]: is missing, though there are later ones")
    check.assertStrContains(message_of(board.dump, board, { n = "ID" }), "names.n: a list has no such key")
end

function TestLists.test_a_dump_that_a_script_has_spoilt_reaches_neither_board_nor_file()
    radioOpen()
    for value, message in pairs {
        [-1] = "-1 is below 0", [2 ^ 33] = "8589934592 is above 4294967295",
        x = "a number is expected, got a text", [1.5] = "1.5 is not a whole number",
    } do
        local dump = board:dump "SCRATCH"
        dump[1].value = value
        for _, action in ipairs { function() board:restore(dump) end, function() dump:save("-") end } do
            local raised
            check.assertEquals(calls(function() raised = kit.raised(action) end), {})
            check.assertStrContains(raised, ("dump[1].value: %s"):format(message))
        end
    end
end

TestWords = {}

function TestWords.setUp()
    radioOpen()
end

function TestWords.test_words_have_no_sign_on_either_way()
    for _, word in ipairs { 0, 1, 0x7fffffff, 0x80000000, 0x80000001, 0xdeadbeef, MOST } do
        registers.set(0x10, word)
        check.assertEquals(registers.get(0x10), word)
    end
    check.assertEquals(calls(registers.set, 0x10, 0xdeadbeef),
        { "radioSpiWrite(0x10, 0xdeadbeef) = RADIO_ESUCCESS" })
end

function TestWords.test_bits_are_read_and_the_others_stay_when_they_are_written()
    registers.set(0x10, 0xdeadbeef)
    for _, row in ipairs { { 1, 31 }, { 0xd, 31, 28 }, { 0xef, 7, 0 }, { 0xdeadbeef, 31, 0 }, { 0, 4 } }
    do
        check.assertEquals(registers.get(0x10, row[2], row[3]), row[1])
    end
    check.assertEquals(calls(registers.set, 0x10, 2, 31, 28), {
        "radioSpiRead(0x10) = 0xdeadbeef",
        "radioSpiWrite(0x10, 0x2eadbeef) = RADIO_ESUCCESS",
    })
    registers.set(0x10, 1, 31)
    registers.set(0x10, 0, 0)
    check.assertEquals(registers.get(0x10), 0xaeadbeee)
    registers.set(0x10, MOST, 31, 0)
    check.assertEquals(registers.get(0x10), MOST)
end

function TestWords.test_every_field_of_every_width_is_set_alone()
    for low = 0, 31 do
        for high = low, 31 do
            for _, rest in ipairs { 0, MOST } do
                registers.set(0x10, rest)
                local number = rest == 0 and 2 ^ (high - low + 1) - 1 or 0
                registers.set(0x10, number, high, low)
                local mask = (2 ^ (high - low + 1) - 1) * 2 ^ low
                check.assertEquals(registers.get(0x10), rest == 0 and mask or MOST - mask)
                check.assertEquals(registers.get(0x10, high, low), number)
            end
        end
    end
end

function TestWords.test_all_ones_are_read_again_before_they_are_written_back()
    registers.set(0x10, MOST)
    check.assertEquals(calls(registers.set, 0x10, 0, 0), {
        "radioSpiRead(0x10) = 0xffffffff",
        "radioSpiRead(0x10) = 0xffffffff",
        "radioSpiWrite(0x10, 0xfffffffe) = RADIO_ESUCCESS",
    })
end

function TestWords.test_what_does_not_fit_is_refused_before_the_board_is_touched()
    local function refusal(...)
        local arguments = { ... }
        local message
        check.assertEquals(calls(function()
            message = message_of(function() registers.set(unpack(arguments)) end)
        end), {})
        return message
    end
    check.assertEquals(refusal(0x10, -1), "registers.set: value: -1 is below 0; without a sign "
        .. "it is 4294967295")
    check.assertEquals(refusal(0x10, MOST + 1), "registers.set: value: 4294967296 is above "
        .. "4294967295")
    check.assertEquals(refusal(0x10, 0.5), "registers.set: value: 0.5 is not a whole number")
    check.assertEquals(refusal(0x10, "1"), "registers.set: value: a number is expected, got a text")
    check.assertEquals(refusal(-5e9, 1), "registers.set: address: -5000000000 is below 0")
    check.assertEquals(refusal(0x10, 16, 3, 0), "registers.set: value: 16 does not fit, 0 to 15 do")
    check.assertEquals(refusal(0x10, 1, 0, 3), "registers.set: bits: the higher one comes first")
    check.assertEquals(refusal(0x10, 1, 32), "registers.set: bits: 32 is above 31")
    check.assertEquals(refusal(0x10, 1, nil, 3), "registers.set: bits: a number is expected, got "
        .. "a text")
end

TestMap = {}

local function map_mistakes(description)
    return message_of(function() registers.map(description) end)
end

function TestMap.test_every_mistake_is_told_with_its_place()
    check.assertEquals(map_mistakes { name = "bad", registers = {
        { name = "A B", address = -1, fields = {
            { name = "F", bits = "4:7" }, { name = "G", bits = 33 }, 5,
            { name = "H", bits = "7..4" } } },
        { name = "T", address = 5, reset = 2 ^ 32, fields = {
            { name = "F", bits = "7:4", values = { on = 16, off = 1, none = 1, [3] = 3 } },
            { name = "F", bits = "4", sined = true },
            { nam = "K" } } },
        { name = "T", address = 5, access = "rx", fields = { first = {} } },
    } }, [[registers.map: bad: 20 mistakes:
  registers[1] (A B).name: "A B" is no name of letters, digits and _
  registers[1] (A B).address: -1 is below 0
  registers[1] (A B).fields[1] (F).bits: 4:7 begins with the lower bit; write "7:4"
  registers[1] (A B).fields[2] (G).bits: 33 is beyond bit 31
  registers[1] (A B).fields[3]: a table is expected, got a number
  registers[1] (A B).fields[4] (H).bits: 7..4 names no bits; they are named as 31 or "31:16"
  registers[2] (T).reset: 4294967296 is above 4294967295
  registers[2] (T).fields[1] (F).values.3: a name is expected for each value
  registers[2] (T).fields[1] (F).values.off: none is 1 too
  registers[2] (T).fields[1] (F).values.on: 16 is above 15
  registers[2] (T).fields[2] (F).sined: there is no such key; did you mean signed?
  registers[2] (T).fields[2] (F).bits: overlap those of fields[1] (F)
  registers[2] (T).fields[2] (F).name: F is that of fields[1] (F) too
  registers[2] (T).fields[3].name: is missing
  registers[2] (T).fields[3].bits: is missing
  registers[2] (T).fields[3].nam: there is no such key; did you mean name?
  registers[3] (T).access: rx is none of: rw, ro, w1c; did you mean rw?
  registers[3] (T).name: T is that of registers[2] (T) too
  registers[3] (T).address: 0x0005 is that of registers[2] (T) too
  registers[3] (T).fields: a list is expected]])
end

function TestMap.test_a_description_without_registers_is_refused()
    check.assertEquals(map_mistakes(nil), "registers.map: a table is expected, got nil")
    check.assertEquals(map_mistakes { name = "x" }, "registers.map: x: registers: is missing")
    check.assertEquals(map_mistakes { name = "x", registers = {} },
        "registers.map: x: registers: there are none")
    check.assertEquals(map_mistakes { name = "x", registers = { A = {} } },
        "registers.map: x: registers: a list is expected")
    check.assertEquals(map_mistakes { name = "x\ny", registers = { { name = "A", address = 0 } } },
        "registers.map: x\ny: name: one line of text is expected")
end

function TestMap.test_a_map_is_its_own_and_not_the_description()
    local values = { low = 0 }
    local description = { name = "x", registers = {
        { name = "A", address = 0x10, fields = { { name = "F", bits = 0, values = values } } } } }
    local map = registers.map(description)
    values.low, description.registers[1] = "no number", nil
    check.assertEquals(calls(map.write, map, "A.F", "low"), {
        "radioSpiRead(0x10) = 0xffffffff",
        "radioSpiRead(0x10) = 0xffffffff",
        "radioSpiWrite(0x10, 0xfffffffe) = RADIO_ESUCCESS",
    })
end

function TestMap.setUp()
    radioOpen()
    registers.set(0x10, MOST)
end

TestRead = {}

function TestRead.test_registers_and_fields_are_read_by_name()
    radioOpen()
    registers.set(0x10, 0xd0ff00ee)
    check.assertEquals(board:read "SCRATCH", 0xd0ff00ee)
    check.assertEquals({ board:read "SCRATCH.MODE" }, { 5, "run" })
    check.assertEquals({ board:read "SCRATCH.LEVEL" }, { 0xff })
    check.assertEquals(board:read "SCRATCH.TOP", 1)
    check.assertEquals(calls(board.read, board, "SCRATCH.TOP"), { "radioSpiRead(0x10) = "
        .. "0xd0ff00ee" })
    registers.set(0x10, 0x0ff60000)
    check.assertEquals(board:read "SCRATCH.LEVEL", -10)
end

function TestRead.test_a_name_that_is_none_is_told_with_the_nearest()
    local function refusal(name)
        return message_of(function() board:read(name) end)
    end
    check.assertEquals(refusal "SCRACH", "registers.read: simulated board has no register "
        .. "SCRACH; did you mean SCRATCH?")
    check.assertEquals(refusal "SCRATCH.MOD", "registers.read: SCRATCH has no field MOD; did you "
        .. "mean MODE?")
    check.assertEquals(refusal "SCRATCH.", "registers.read: SCRATCH has no field ")
    check.assertEquals(refusal(16), "registers.read: a name, REGISTER or REGISTER.FIELD, is "
        .. "expected")
end

function TestRead.test_a_map_that_is_none_is_refused_where_it_is_called()
    check.assertStrMatches(kit.raised(function() board.read("SCRATCH") end),
        ".*test_registers.lua:%d+: registers.read: a map that registers.map%(%) returned is "
            .. "expected, "
            .. "as in map:read%(...%)")
end

TestWrite = {}

function TestWrite.setUp()
    kit.fresh_radio()
    registers.set(0x10, 0x00000077)
end

function TestWrite.test_the_fields_of_a_register_are_written_at_once_and_the_others_stay()
    check.assertEquals(calls(write, {
        ["SCRATCH.TOP"] = 1, ["SCRATCH.MODE"] = "run", ["SCRATCH.LEVEL"] = -1 }), {
        "radioSpiRead(0x10) = 0x77",
        "radioSpiWrite(0x10, 0xdfff0077) = RADIO_ESUCCESS",
    })
end

function TestWrite.test_registers_are_written_in_the_order_of_the_map()
    check.assertEquals(calls(write, { ["TX_1.ON"] = "on", GAIN_1 = 30, OSCILLATOR = 5 }), {
        "radioSpiWrite(0x11, 0x5) = RADIO_ESUCCESS",
        "radioSpiWrite(0x42, 0x1e) = RADIO_ESUCCESS",
        "radioSpiRead(0x30) = 0x0",
        "radioSpiWrite(0x30, 0x1) = RADIO_ESUCCESS",
    })
end

function TestWrite.test_where_a_1_clears_only_the_named_fields_are_cleared()
    check.assertEquals(calls(write, "EVENTS.RX_LOCK", 1),
        { "radioSpiWrite(0x5, 0x2) = RADIO_ESUCCESS" })
end

function TestWrite.test_a_register_is_written_whole_without_being_read()
    check.assertEquals(calls(write, "SCRATCH", 0x80000000),
        { "radioSpiWrite(0x10, 0x80000000) = RADIO_ESUCCESS" })
    local halves = registers.map { name = "halves", registers = {
        { name = "A", address = 0x10, fields = {
            { name = "HIGH", bits = "31:16" }, { name = "LOW", bits = "15:0" } } } } }
    check.assertEquals(calls(halves.write, halves, { ["A.HIGH"] = 1, ["A.LOW"] = 2 }),
        { "radioSpiWrite(0x10, 0x10002) = RADIO_ESUCCESS" })
end

function TestWrite.test_every_mistake_is_told_before_the_board_is_touched()
    local message
    check.assertEquals(calls(function()
        message = message_of(function()
            board:write { ["SCRATCH.LEVEL"] = 2048, ["SCRATCH.MODE"] = "rum", ["SCRATCH.TOP"] = 2,
                ["TX_1.ON"] = 0.5, ["SCRATCH.REVISION"] = 1, ID = 1, SCRETCH = 1, OSCILLATOR = -1,
                GAIN_1 = "5", [7] = 1, EVENTS = 1, ["EVENTS.TX_LOCK"] = true }
        end)
    end), {})
    check.assertEquals(message, [[registers.write: 11 mistakes:
  7: a name, REGISTER or REGISTER.FIELD, is expected
  EVENTS.TX_LOCK: a number is expected, got true
  GAIN_1: a number is expected, got a text
  ID: can only be read
  OSCILLATOR: -1 is below 0; without a sign it is 4294967295
  SCRATCH.LEVEL: 2048 does not fit, -2048 to 2047 do
  SCRATCH.MODE: rum is none of: idle, run; did you mean run?
  SCRATCH.REVISION: can only be read
  SCRATCH.TOP: 2 does not fit, 0 to 1 do
  SCRETCH: simulated board has no register SCRETCH; did you mean SCRATCH?
  TX_1.ON: 0.5 is not a whole number]])
end

function TestWrite.test_a_register_and_its_field_at_once_are_refused()
    check.assertEquals(message_of(write, { SCRATCH = 1, ["SCRATCH.TOP"] = 1 }),
        "registers.write: SCRATCH.TOP: the register is given whole and by its fields")
end

function TestWrite.test_a_value_or_table_is_needed()
    check.assertEquals(message_of(write, "SCRATCH"), "registers.write: SCRATCH: is without a value")
    check.assertEquals(message_of(write, 5),
        "registers.write: a name, or a table of names and values, is expected")
end

function TestWrite.test_a_first_write_that_fails_leaves_all_as_it_is()
    local message
    check.assertEquals(calls(function() message = message_of(write, "OSCILLATOR", 65536) end),
        { "radioSpiWrite(0x11, 0x10000) = RADIO_EINVAL" })
    check.assertEquals(message,
        "registers.write: OSCILLATOR (0x0011): radioSpiWrite() did not return success")
end

function TestWrite.test_after_a_later_write_that_fails_the_transmitter_is_off()
    local map = registers.map { name = "x", registers = {
        { name = "TX_1", address = 0x30 }, { name = "NONE", address = 0x99 } } }
    local message
    local done = calls(function()
        message = message_of(function() map:write { TX_1 = 1, NONE = 0 } end)
    end)
    check.assertEquals(message, "registers.write: NONE (0x0099): radioSpiWrite() did not return "
        .. "success")
    check.assertEquals({ unpack(done, 3) }, {
        "radioSelect(RADIO_SELECT_ALL) = RADIO_ESUCCESS",
        "radioSetTxState(RADIO_STATE_DISABLE) = RADIO_ESUCCESS",
    })
    check.assertEquals(registers.get(0x30), 0)
end

TestDump = {}

function TestDump.setUp()
    kit.fresh_radio()
end

function TestDump.test_each_register_is_read_once_in_the_order_of_the_map()
    local done, dump = kit.calls(board.dump, board)
    check.assertEquals(#done, 6)
    check.assertEquals({ dump[1].name, dump[1].address, dump[1].value }, { "ID", 0, 0x534f5200 })
    check.assertEquals({ #dump, dump[6].name }, { 6, "TX_1" })
end

function TestDump.test_single_registers_are_dumped_by_name()
    check.assertEquals(#calls(board.dump, board, "SCRATCH"), 1)
    local dump = board:dump { "TX_1", "ID" }
    check.assertEquals({ #dump, dump[1].name, dump[2].name }, { 2, "TX_1", "ID" })
    check.assertEquals(message_of(function() board:dump "TX" end),
        "registers.dump: simulated board has no register TX; did you mean ID?")
    check.assertEquals(message_of(function() board:dump "TX_1.ON" end),
        "registers.dump: TX_1.ON: a register is expected")
end

function TestDump.test_a_range_is_dumped_without_names()
    local done, dump = kit.calls(registers.dump_range, 0x0f, 0x11)
    check.assertEquals(done,
        { "radioSpiRead(0xf) = 0xffffffff", "radioSpiRead(0x10) = 0x0", "radioSpiRead(0x11) = "
            .. "0x8000" })
    check.assertEquals({ dump[1].value, dump[3].value, dump[3].name }, { MOST, 32768 })
    check.assertEquals(#registers.dump_range(MOST, MOST), 1)
    for _, range in ipairs { { 5, 4 }, { 0, 65536 } } do
        check.assertEquals(message_of(function() registers.dump_range(unpack(range)) end),
            "registers.dump_range: last: 0 to 65535 above first is expected")
    end
end

TestCompare = {}

function TestCompare.test_changed_fields_are_told_with_both_numbers()
    kit.fresh_radio()
    local before = board:dump()
    board:write { ["SCRATCH.LEVEL"] = -5, ["SCRATCH.MODE"] = "run" }
    local differences = registers.compare(before, board:dump())
    check.assertEquals(#differences, 1)
    local one = differences[1]
    check.assertEquals({ one.name, one.address, one.before, one.after },
        { "SCRATCH", 0x10, 0, 0x5ffb0000 })
    local fields = {}
    for place, field in ipairs(one.fields) do
        fields[place] = { field.name, field.before, field.after }
    end
    check.assertEquals(fields, { { "MODE", 0, 5 }, { "LEVEL", 0, -5 } })
end

function TestCompare.test_what_one_of_them_lacks_is_a_difference()
    kit.fresh_radio()
    local differences = registers.compare(board:dump { "ID", "TX_1" },
        board:dump { "TX_1", "OSCILLATOR" })
    check.assertEquals({ differences[1].name, differences[1].before, differences[1].after },
        { "ID", 0x534f5200 })
    check.assertEquals({ differences[2].name, differences[2].before, differences[2].after },
        { "OSCILLATOR", nil, 32768 })
    check.assertEquals({ #differences, #differences[1].fields }, { 2, 0 })
end

function TestCompare.test_the_board_s_state_compares_with_the_reset_values_of_the_map()
    kit.fresh_radio()
    check.assertEquals(#registers.compare(board:reset_values(), board:dump {
        "ID", "SCRATCH", "OSCILLATOR", "TX_1" }), 0)
    registers.set(0x11, 1)
    local differences = registers.compare(board:reset_values(), board:dump {
        "ID", "SCRATCH", "OSCILLATOR", "TX_1" })
    check.assertEquals({ #differences, differences[1].name }, { 1, "OSCILLATOR" })
end

function TestCompare.test_only_dumps_are_compared()
    check.assertEquals(message_of(function() registers.compare(board:dump(), {}) end),
        "registers.compare: after: a dump is expected")
end

TestFiles = {}

function TestFiles.setUp()
    kit.fresh_radio()
end

function TestFiles.test_what_is_saved_is_loaded_again()
    registers.set(0x10, 0xdeadbeef)
    local path = os.tmpname()
    local dump = board:dump { "ID", "SCRATCH" }
    dump:save(path)
    check.assertEquals(kit.content(path), "# registers of simulated board\n"
        .. "0x0000 0x534f5200 ID\n0x0010 0xdeadbeef SCRATCH\nend\n")
    check.assertEquals(#registers.compare(dump, registers.load(path, board)), 0)
    registers.dump_range(MOST - 1, MOST):save(path)
    check.assertEquals(kit.content(path), "# registers 0xfffffffe to 0xffffffff\n"
        .. "0xfffffffe 0xffffffff\n0xffffffff 0xffffffff\nend\n")
    check.assertEquals(registers.load(path)[2].address, MOST)
    os.remove(path)
end

function TestFiles.test_a_person_may_write_comments_blanks_and_other_line_ends()
    local path = kit.file("\r\n  0x10\t0xA # ten\r\n# nothing\r\n\tend  \r\n# end\n")
    local dump = registers.load(path, board)
    check.assertEquals({ #dump, dump[1].address, dump[1].value, dump[1].name },
        { 1, 16, 10, "SCRATCH" })
    os.remove(path)
end

function TestFiles.test_each_malformed_line_is_told_with_file_and_line()
    local path = kit.file("0x10 0x1\n16 0x1\n0x11 1\n0x11\n0x11 0x1 A B\n0x11 0x123456789\n0x10 "
        .. "0x2\n"
        .. "os.exit() 0x0\nend\nend\n")
    check.assertEquals(message_of(registers.load, path), (([[registers.load: 8 mistakes:
  FILE:2: 16 is no address such as 0x0010
  FILE:3: 1 is no word such as 0x0010
  FILE:4: an address, a word and perhaps a name are expected
  FILE:5: an address, a word and perhaps a name are expected
  FILE:6: 0x123456789 is no word such as 0x0010
  FILE:7: 0x0010 is in line 1 already
  FILE:8: os.exit() is no address such as 0x0010
  FILE:10: nothing is expected after the line end]]):gsub("FILE", path)))
    os.remove(path)
end

function TestFiles.test_a_file_that_was_cut_off_is_refused_wherever_that_was()
    local whole = "# registers\n0x0000 0x534f5200 ID\n0x0010 0xdeadbeef SCRATCH\nend\n"
    for size = 0, #whole - 2 do
        local path = kit.file(whole:sub(1, size))
        check.assertStrContains(message_of(registers.load, path),
            path .. ": there is no line end; the file may be cut off")
        os.remove(path)
    end
end

function TestFiles.test_a_file_that_does_not_agree_with_the_map_is_refused()
    local path = kit.file("0x10 0x1 SCRETCH\n0x12 0x1\nend\n")
    check.assertEquals(message_of(registers.load, path, board), (([[registers.load: 2 mistakes:
  FILE:1: the register at 0x0010 is SCRATCH in simulated board, not SCRETCH
  FILE:2: simulated board has no register at 0x0012]]):gsub("FILE", path)))
    os.remove(path)
end

function TestFiles.test_a_path_that_is_none_is_told_with_how_to_call()
    check.assertEquals(message_of(function() board:load("good.txt") end),
        "registers.load: path: a text is expected, as in registers.load(path, map)")
    check.assertEquals(message_of(function() board:dump():save() end),
        "registers.save: path: a text is expected, as in registers.save(dump, path)")
end

function TestFiles.test_a_file_that_cannot_be_read_or_written_is_named()
    check.assertEquals(message_of(registers.load, "/nowhere/x"),
        "cannot read /nowhere/x: No such file or directory")
    check.assertEquals(message_of(registers.load, "/"), "cannot read /: Is a directory")
    check.assertEquals(message_of(registers.save, board:dump(), "/nowhere/x"),
        "cannot write /nowhere/x: No such file or directory")
end

TestRestore = {}

function TestRestore.setUp()
    kit.fresh_radio()
end

function TestRestore.test_what_can_be_written_is_in_the_order_of_the_map_and_read_back()
    registers.set(0x10, 0x9fff0000)
    local dump = board:dump()
    registers.set(0x10, 0)
    local done, count = kit.calls(board.restore, board, dump)
    check.assertEquals(done, {
        "radioSpiWrite(0x10, 0x9fff0000) = RADIO_ESUCCESS",
        "radioSpiWrite(0x11, 0x8000) = RADIO_ESUCCESS",
        "radioSpiWrite(0x42, 0x4c) = RADIO_ESUCCESS",
        "radioSpiWrite(0x30, 0x0) = RADIO_ESUCCESS",
        "radioSpiRead(0x10) = 0x9fff0000",
        "radioSpiRead(0x11) = 0x8000",
        "radioSpiRead(0x30) = 0x0",
    })
    check.assertEquals(count, 4)
end

function TestRestore.test_a_dump_of_another_map_is_refused_before_the_board_is_touched()
    local other = registers.map {
        name = "other", registers = { { name = "SCRETCH", address = 0x10 } } }
    local dump = registers.dump_range(0x11, 0x12)
    local message, second
    check.assertEquals(calls(function()
        message = message_of(function() board:restore(dump) end)
        second = message_of(function() other:restore(board:reset_values()) end)
    end), {})
    check.assertEquals(message, "registers.restore: simulated board has no register at 0x0012")
    check.assertStrContains(second, "the register at 0x0010 is SCRETCH in other, not SCRATCH")
end

function TestRestore.test_after_a_write_that_fails_the_transmitter_is_off()
    local dump = board:dump()
    dump[5].value = 1000
    registers.set(0x30, 1)
    local message
    local done = calls(function() message = message_of(board.restore, board, dump) end)
    check.assertEquals(message,
        "registers.restore: GAIN_1 (0x0042): radioSpiWrite() did not return success")
    check.assertEquals({ unpack(done, #done - 1) }, {
        "radioSelect(RADIO_SELECT_ALL) = RADIO_ESUCCESS",
        "radioSetTxState(RADIO_STATE_DISABLE) = RADIO_ESUCCESS",
    })
    check.assertEquals(registers.get(0x30), 0)
end

function TestRestore.test_no_global_is_made_or_changed()
    check.assertEquals(kit.globals_changed(function()
        local dump = board:dump()
        board:write("SCRATCH.TOP", 1)
        board:restore(dump)
        registers.compare(dump, registers.dump_range(0, 3))
    end), {})
end

kit.run()

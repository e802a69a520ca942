-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Some registers of the simulated board, by name: a setting is kept in a file and put back.
local registers = require "sorel.registers"

local board = registers.map {
    name = "simulated board",
    registers = {
        { name = "ID", address = 0x000, access = "ro" },
        { name = "LOCK", address = 0x023, access = "ro", fields = {
            { name = "TX", bits = 0 },
            { name = "RX", bits = 1 },
        } },
        { name = "LOOPBACK", address = 0x022, reset = 0, fields = {
            { name = "WAY", bits = "1:0", values = { none = 0, tx_to_rx = 1, rx_to_tx = 2 } },
        } },
        { name = "TX_1_OFFSET", address = 0x034, reset = 0, fields = {
            { name = "IN_PHASE", bits = "15:0", signed = true, unit = "steps" },
            { name = "QUADRATURE", bits = "31:16", signed = true, unit = "steps" },
        } },
    },
}

radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7)
board:write { ["TX_1_OFFSET.IN_PHASE"] = -20, ["TX_1_OFFSET.QUADRATURE"] = 7 }
local good = board:dump()
good:print()
good:save("good.txt")

print "a loopback and another offset:"
board:write { ["LOOPBACK.WAY"] = "tx_to_rx", ["TX_1_OFFSET.QUADRATURE"] = -1 }
registers.compare(good, board:dump()):print()

print("restored: " .. board:restore(registers.load("good.txt", board)))
registers.compare(good, board:dump()):print()

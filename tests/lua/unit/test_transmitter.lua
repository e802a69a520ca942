-- SPDX-License-Identifier: LicenseRef-Proprietary
local kit = require "kit"
local transmitter = require "sorel.transmitter"
local check = kit.check

local OFF = {
    "radioSelect(RADIO_SELECT_ALL) = RADIO_ESUCCESS",
    "radioSetTxState(RADIO_STATE_DISABLE) = RADIO_ESUCCESS",
}

TestOff = {}

function TestOff.test_all_paths_are_switched_off()
    kit.fresh_radio()
    radioSelect(RADIO_SELECT_1)
    local calls, off, how = kit.calls(transmitter.off)
    check.assertEquals(calls, OFF)
    check.assertEquals({ off, how }, { true })
end

function TestOff.test_with_one_antenna_there_is_one_to_switch_off()
    radioOpen()
    radioInit(RADIO_CONF_SISO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7)
    local calls = kit.calls(transmitter.off)
    check.assertEquals(calls, OFF)
end

function TestOff.test_a_radio_that_refuses_is_reset()
    radioOpen()
    local calls, off, how = kit.calls(transmitter.off)
    check.assertEquals(calls, {
        "radioSelect(RADIO_SELECT_ALL) = RADIO_ESUCCESS",
        "radioSetTxState(RADIO_STATE_DISABLE) = RADIO_EERROR",
        "radioReset() = RADIO_ESUCCESS",
    })
    check.assertEquals({ off, how }, { true, "reset" })
end

function TestOff.test_without_an_open_radio_nothing_is_on()
    radioOpen()
    radioClose()
    local calls, off, how = kit.calls(transmitter.off)
    check.assertEquals(calls, {})
    check.assertEquals({ off, how }, { true })
    radioOpen()
end

TestGuarded = {}

function TestGuarded.test_what_succeeds_gives_its_results_and_changes_nothing()
    kit.fresh_radio()
    local calls, one, none, three = kit.calls(transmitter.guarded, function(...) return ... end, 1, nil, 3)
    check.assertEquals(calls, {})
    check.assertEquals({ one, none, three }, { 1, nil, 3 })
end

function TestGuarded.test_an_error_is_raised_after_the_transmitters_went_off()
    kit.fresh_radio()
    local reason = {}
    local message
    local calls = kit.calls(function()
        message = kit.raised(transmitter.guarded, error, reason)
    end)
    check.assertEquals(calls, OFF)
    check.assertIs(message, reason)
end

kit.run()

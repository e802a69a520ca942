-- SPDX-License-Identifier: LicenseRef-Proprietary
-- A server and a raw client in one script, which steps from one to the other.
local kit = require "kit"
local answers = require "sorel.remote.answers"
local clock = require "sorel.remote.clock"
local remote = require "sorel.remote"
local check = kit.check

local OFF = {
    "radioSelect(RADIO_SELECT_ALL) = RADIO_ESUCCESS",
    "radioSetTxState(RADIO_STATE_DISABLE) = RADIO_ESUCCESS",
}

-- A server, and a connection to it that has said hello.
local function admitted(options)
    local server = remote.listen(options)
    local client = socket.tcp()
    assert(client:connect(server.host, server.port))
    client:settimeout(60)
    local function ask(line)
        assert(client:send(line .. "\n"))
        server:step(60)
        return client:receive()
    end
    server:step(60)
    check.assertEquals(client:receive(), "sorel-remote 1")
    check.assertEquals(ask "hello 1", "ok")
    return server, client, ask
end

TestServer = {}

function TestServer.test_each_request_is_one_driver_call()
    kit.fresh_radio()
    local server, client, ask = admitted()
    local calls, answer = kit.calls(ask, "call radioSetTxFrequency 2655000000")
    check.assertEquals(calls, { "radioSetTxFrequency(2655000000) = RADIO_ESUCCESS" })
    check.assertEquals(answer, "ok")
    calls, answer = kit.calls(ask, "call radioSetTxFrequency 2655000000 7")
    check.assertEquals(calls, {})
    check.assertEquals(answer, [[error "Error in radioSetTxFrequency expected 1..1 args, got 2"]])
    client:close()
    server:close()
end

function TestServer.test_a_connection_that_ends_switches_off_what_it_has_switched_on()
    kit.fresh_radio()
    local server, client, ask = admitted()
    check.assertEquals(ask "call radioSetTxState 1", "ok")
    client:close()
    check.assertEquals((kit.calls(server.step, server, 60)), OFF)
    check.assertEquals(server:connections(), 0)
    server:close()
end

function TestServer.test_a_server_that_is_closed_switches_off_what_a_client_has_switched_on()
    kit.fresh_radio()
    local server, client, ask = admitted()
    check.assertEquals(ask "call radioSetTxState 1", "ok")
    check.assertEquals((kit.calls(server.close, server)), OFF)
    client:close()
end

function TestServer.test_a_step_waits_no_longer_than_it_may()
    local waits = {}
    local select = socket.select
    local function noted(reading, writing, seconds)
        waits[#waits + 1] = seconds
        return select(reading, writing, 0)
    end
    local server = remote.listen()
    for _, seconds in ipairs { 0, 0.01, 7 } do
        kit.with(socket, "select", noted, server.step, server, seconds)
    end
    check.assertEquals(waits, { 0, 0.01, 7 })
    server:close()
    check.assertEquals(server:connections(), 0)
end

function TestServer.test_no_global_is_made_or_changed()
    check.assertEquals(kit.globals_changed(function()
        local server, client, ask = admitted { idle = 1 }
        ask "call radioGetTemperature"
        ask "list"
        ask "nonsense"
        ask "close"
        client:close()
        server:close()
        pcall(remote.connect, { port = server.port })
    end), {})
end

TestToken = {}

function TestToken.test_only_the_same_text_is_the_same()
    check.assertTrue(answers.same("sesame", "sesame"))
    for _, other in ipairs { "", "s", "sesam", "sesame ", "Sesame", "sesamd", "sesamesesame" } do
        check.assertFalse(answers.same(other, "sesame"))
        if other ~= "" then check.assertFalse(answers.same("sesame", other)) end
    end
end

function TestServer.test_an_error_of_the_log_at_the_end_leaves_the_transmitter_off()
    kit.fresh_radio()
    local full = false
    local server, client, ask = admitted { log = function()
        if full then error("disk full", 0) end
    end }
    check.assertEquals(ask "call radioSetTxState 1", "ok")
    full = true
    local calls = kit.calls(function()
        check.assertEquals(kit.raised(server.close, server), "disk full")
    end)
    check.assertEquals(calls, OFF)
    client:close()
end

function TestServer.test_a_step_takes_a_number()
    local server = remote.listen()
    check.assertStrMatches(kit.raised(function() server:step() end),
        ".*test_remote_server.lua:%d+: server:step: seconds: a number is expected")
    server:close()
end

TestClock = {}

function TestClock.test_it_goes_on_and_not_back()
    local before = clock.now()
    repeat
        local now = clock.now()
        check.assertTrue(now >= before)
    until now > before
end

function TestClock.test_the_time_of_day_does_not_count()
    local up = tonumber(kit.content("/proc/uptime"):match("%S+"))
    check.assertAlmostEquals(clock.now(), up, 60)
    local before = clock.now()
    local now = kit.with(socket, "gettime", function() return 0 end, clock.now)
    check.assertTrue(now >= before and now < before + 3600)
end

kit.run()

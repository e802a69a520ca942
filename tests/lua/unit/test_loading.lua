-- SPDX-License-Identifier: LicenseRef-Proprietary
-- What loading the modules does, which are in no state yet but for what the tests stand on.
local kit = require "kit"
local check = kit.check

local loaded = {}
local calls, changed = kit.calls(kit.globals_changed, function()
    local reference = require "sorel.reference"
    for _, name in ipairs(reference.subjects()) do
        local module = reference.subject(name).module
        if module and module ~= "sorel.help" then
            require(module)
            loaded[#loaded + 1] = module
        end
    end
end)

TestLoading = {}

function TestLoading.test_it_makes_no_globals()
    check.assertTrue(#loaded >= 9)
    check.assertEquals(changed, {})
end

function TestLoading.test_it_does_nothing_to_the_board()
    check.assertEquals(calls, {})
end

kit.run()

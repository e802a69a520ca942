-- SPDX-License-Identifier: LicenseRef-Proprietary
--- The keys of a table in an order that does not change from run to run, as that of pairs() may.

local keys = {}

--- All keys of a table as a list, in the order of their texts.
function keys.sorted(values)
    local list = {}
    for key in pairs(values) do list[#list + 1] = key end
    table.sort(list, function(one, other) return tostring(one) < tostring(other) end)
    return list
end

return keys

-- SPDX-License-Identifier: LicenseRef-Proprietary
--- Which members of an enumeration can be chosen, by their names.

local members = {}

local endings = { "_COUNT$", "_INVALID$", "_NULL$" }

--- Whether the member of that name is one to choose: not the number of members, nor what stands for
-- none of them, which the driver refuses.
function members.can_be_chosen(name)
    for _, ending in ipairs(endings) do
        if name:find(ending) then return false end
    end
    return true
end

return members

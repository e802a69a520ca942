-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Of compiled code not everything is checked when it is loaded, by load, loadstring, loadfile, dofile
-- or require. Here a name has no text at all.
local code = string.dump(function() return _G end)
local sizeOfLength = code:byte(9)
loadstring((code:gsub("\4\3%z+_G%z", "\4" .. ("\0"):rep(sizeOfLength))))()

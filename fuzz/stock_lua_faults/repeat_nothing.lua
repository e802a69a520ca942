-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Nothing is appended very often. Each call takes seconds, and no hook or Lua code runs meanwhile.
for _ = 1, 1000 do
    string.rep("", 2 ^ 31 - 1)
end

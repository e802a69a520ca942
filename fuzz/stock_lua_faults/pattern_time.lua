-- SPDX-License-Identifier: LicenseRef-Proprietary
-- All ways to match the repetitions are tried: the time grows with the power of their number.
string.find(string.rep("a", 100), string.rep("a-", 20) .. "b")

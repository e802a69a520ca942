-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Matching calls itself for each item of a pattern, without a bound: the stack of C overflows.
string.find(string.rep("x", 1000000), string.rep("x?", 1000000))

-- SPDX-License-Identifier: LicenseRef-Proprietary
-- The number of values does not fit into an int, and no room is made for them.
unpack({}, 0, 2 ^ 31 - 1)

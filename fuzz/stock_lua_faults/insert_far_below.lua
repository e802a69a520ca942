-- SPDX-License-Identifier: LicenseRef-Proprietary
-- The elements are moved one by one, down to a position that is very far below the first.
table.insert({ 1, 2, 3 }, -2 ^ 31, 0)

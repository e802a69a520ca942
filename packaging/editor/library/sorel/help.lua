---@meta sorel.help
-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Made by ./dev reference; what is changed here is lost.

return help

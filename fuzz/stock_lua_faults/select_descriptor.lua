-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Of LuaSocket: the number that an object's getfd() gives is used beyond the set of descriptors.
require("socket.core").select({ { getfd = function() return 1e308 end } }, nil, 0)

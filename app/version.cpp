// SPDX-License-Identifier: LicenseRef-Proprietary
#include "app/version.h"

#include <cstdio>
#include <lua.hpp>
#include <sorel.h>

namespace
{

// clang-format off

constexpr char rule[] = "    ===============================================================================";
constexpr char lua[] = "    " LUA_RELEASE ": Copyright (C) 1994-2012 Lua.org, PUC-Rio.";
constexpr char luaBitOp[] = "    Lua BitOp " LUABITOP_VERSION ": Copyright (C) 2008-2012 Mike Pall.";
constexpr char luaSocket[] = "    LuaSocket " LUASOCKET_VERSION ": Copyright (C) 2004-2022 Diego Nehab.";

const char *const lines[] = {
    "Proprietary and Confidential Information.",
    "This library is not to be copied or distributed without the express permission of its maker.",
    "sorelapp is linked to Lua, BitOp, and LuaSocket. These open source packages are",
    "licensed under MIT:",
    rule,
    lua,
    luaBitOp,
    luaSocket,
    "    ",
    "    Permission is hereby granted, free of charge, to any person obtaining a copy",
    "    of this software and associated documentation files (the \"Software\"), to deal",
    "    in the Software without restriction, including without limitation the rights",
    "    to use, copy, modify, merge, publish, distribute, sublicense, and/or sell",
    "    copies of the Software, and to permit persons to whom the Software is",
    "    furnished to do so, subject to the following conditions:",
    "    ",
    "    The above copyright notice and this permission notice shall be included in",
    "    all copies or substantial portions of the Software.",
    "    ",
    "    THE SOFTWARE IS PROVIDED \"AS IS\", WITHOUT WARRANTY OF ANY KIND, EXPRESS OR",
    "    IMPLIED, INCLUDING BUT NOT LIMITED TO THE WARRANTIES OF MERCHANTABILITY,",
    "    FITNESS FOR A PARTICULAR PURPOSE AND NONINFRINGEMENT.  IN NO EVENT SHALL THE",
    "    AUTHORS OR COPYRIGHT HOLDERS BE LIABLE FOR ANY CLAIM, DAMAGES OR OTHER",
    "    LIABILITY, WHETHER IN AN ACTION OF CONTRACT, TORT OR OTHERWISE, ARISING FROM,",
    "    OUT OF OR IN CONNECTION WITH THE SOFTWARE OR THE USE OR OTHER DEALINGS IN",
    "    THE SOFTWARE.",
    rule,
};

// clang-format on

} // namespace

void printVersion()
{
    std::printf("libsorel v" SORELAPP_VERSION " (%s) Copyright (C) 2026 the makers of sorelapp\n",
                radioGetPlatformName(nullptr));
    for (const char *const line : lines) {
        std::puts(line);
    }
}

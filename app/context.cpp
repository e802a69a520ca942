// SPDX-License-Identifier: LicenseRef-Proprietary
#include "app/context.h"

#include <cstdio>
#include <lua.hpp>

namespace
{

int nativeRadioOpen(lua_State *)
{
    appRadioClose();
    appRadioOpen();
    return 0;
}

int nativeRadioClose(lua_State *L)
{
    if (appContext == nullptr) {
        lua_pushstring(L, noRadioContext);
        return lua_error(L);
    }
    appRadioClose();
    return 0;
}

const luaL_Reg radioNative[] = {
    {"radioOpen", nativeRadioOpen},
    {"radioClose", nativeRadioClose},
    {nullptr, nullptr},
};

const luaL_Reg radioInternal[] = {
    {nullptr, nullptr},
};

} // namespace

RadioContext *appContext = nullptr;

void appRadioOpen()
{
    if (appContext != nullptr) {
        return;
    }
    appContext = radioOpen();
    if (appContext == nullptr) {
        std::fputs("radioOpen() failed\n", stderr);
    }
}

void appRadioClose()
{
    if (appContext != nullptr) {
        radioClose(appContext);
    }
    appContext = nullptr;
}

void registerRadioNative(lua_State *L)
{
    luaL_register(L, "radioNative", radioNative);
}

void registerRadioInternal(lua_State *L)
{
    luaL_register(L, "radioInternal", radioInternal);
}

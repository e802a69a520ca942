// SPDX-License-Identifier: LicenseRef-Proprietary
// A native structure with everything that a class can have, and what its functions were called
// with.
#pragma once

#include "binding/runtime/class_table.h"
#include "binding/runtime/module_table.h"
#include "binding/runtime/pointer_objects.h"
#include "tests/binding/support/type_table.h"

#include <vector>

struct Gadget {
    double size = 1;
};

namespace gadget
{

inline TypeRecord type = makeType("_p_Gadget", "struct Gadget *|Gadget *");
inline TypeRecord *slot = &type;
inline std::vector<void *> destroyed;
inline std::vector<int> argumentCounts; // of every call of a function below

inline Gadget *self(lua_State *L)
{
    argumentCounts.push_back(lua_gettop(L));
    return static_cast<Gadget *>(static_cast<PointerObject *>(lua_touserdata(L, 1))->ptr);
}

inline int construct(lua_State *L)
{
    SWIG_Lua_PushPointer(L, new Gadget, &type, 1);
    return 1;
}

inline void destroy(void *gadget)
{
    destroyed.push_back(gadget);
    delete static_cast<Gadget *>(gadget);
}

inline int getSize(lua_State *L)
{
    lua_pushnumber(L, self(L)->size);
    return 1;
}

inline int setSize(lua_State *L)
{
    self(L)->size = lua_tonumber(L, 2);
    return 0;
}

inline int getKind(lua_State *L)
{
    self(L);
    lua_pushstring(L, "gadget");
    return 1;
}

inline int grow(lua_State *L)
{
    self(L)->size += lua_tonumber(L, 2);
    return 0;
}

inline int toText(lua_State *L)
{
    lua_pushfstring(L, "a gadget of %d", static_cast<int>(self(L)->size));
    return 1;
}

inline int getItem(lua_State *L)
{
    self(L);
    lua_pushstring(L, "item ");
    lua_pushvalue(L, 2);
    lua_concat(L, 2);
    lua_pushstring(L, "another");
    return 2;
}

inline std::string lastItemSet;

inline int setItem(lua_State *L)
{
    self(L);
    lastItemSet = lua_tostring(L, 2) + std::string("=") + lua_tostring(L, 3);
    return 0;
}

inline MethodEntry methods[] = {
    {"grow", grow},
    {"__tostring", toText},
    {nullptr, nullptr},
};

inline MethodEntry methodsWithItems[] = {
    {"grow", grow},
    {"__getitem", getItem},
    {"__setitem", setItem},
    {nullptr, nullptr},
};

inline AttributeEntry attributes[] = {
    {"size", getSize, setSize},
    {"kind", getKind, nullptr},
    {nullptr, nullptr, nullptr},
};

inline ClassRecord *noBases[] = {nullptr};
inline const char *noBaseNames[] = {nullptr};

inline ClassRecord plainClass() // one that binds nothing
{
    static MethodEntry noMethods[] = {{nullptr, nullptr}};
    static AttributeEntry noAttributes[] = {{nullptr, nullptr, nullptr}};
    return {"Plain", &slot, nullptr, nullptr, noMethods, noAttributes, noBases, noBaseNames};
}

inline ClassRecord gadgetClass()
{
    return {"Gadget", &slot, construct, destroy, methods, attributes, noBases, noBaseNames};
}

} // namespace gadget

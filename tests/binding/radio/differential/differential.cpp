// SPDX-License-Identifier: LicenseRef-Proprietary
#include "tests/binding/radio/differential/differential.h"

#include "app/context.h"
#include "bench/yardstick/yardstick.h"
#include "binding/radio/catalogue.h"
#include "binding/radio_wrap.h"
#include "binding/runtime/pointer_objects.h"
#include "tests/binding/radio/differential/any_values.h"

#include <cstring>
#include <ostream>

lua_CFunction inShell(const char *name)
{
    const CommandEntry *entry = radioCommands;
    while (std::strcmp(entry->name, name) != 0) {
        ++entry;
    }
    return entry->function;
}

lua_CFunction byHand(const char *name)
{
    for (const luaL_Reg *const list :
         {platformByHand, transmitByHand, receiveByHand, chipByHand, pointersByHand}) {
        for (const luaL_Reg *entry = list; entry->name != nullptr; ++entry) {
            if (std::strcmp(entry->name, name) == 0) {
                return entry->func;
            }
        }
    }
    return nullptr;
}

std::ostream &operator<<(std::ostream &out, const Outcome &outcome)
{
    out << (outcome.failed ? "error" : "result");
    for (const std::string &result : outcome.results) {
        out << " [" << result << "]";
    }
    out << "; " << outcome.driver.count << " driver calls";
    if (outcome.driver.count > 0) {
        out << ": " << outcome.driver.function << std::hex;
        for (const std::uint64_t argument : outcome.driver.arguments) {
            out << " " << argument;
        }
        out << std::dec << " '" << outcome.driver.text << "'";
    }
    return out;
}

namespace
{

// All that can be told of a value: its type, and every bit of it.
std::string described(lua_State *L, int index)
{
    std::string description = luaL_typename(L, index);
    if (lua_type(L, index) == LUA_TNUMBER) {
        const lua_Number number = lua_tonumber(L, index);
        description.append(reinterpret_cast<const char *>(&number), sizeof number);
    } else if (lua_type(L, index) == LUA_TSTRING) {
        description.append(lua_tostring(L, index), lua_objlen(L, index));
    } else if (const PointerObject *const object = SWIG_Lua_ToPointerObject(L, index)) {
        for (const auto field : {reinterpret_cast<std::uintptr_t>(object->type),
                                 reinterpret_cast<std::uintptr_t>(object->ptr),
                                 static_cast<std::uintptr_t>(object->own)}) {
            description += ' ';
            description += std::to_string(field);
        }
    }
    return description;
}

} // namespace

Differential::Differential()
{
    radioModuleOpen(L);
}

Differential::~Differential()
{
    appContext = nullptr;
    answers = {};
}

Outcome Differential::call(lua_CFunction function, int arguments)
{
    const int base = lua_gettop(L);
    lua_pushcfunction(L, function);
    for (int i = 1; i <= arguments; ++i) {
        lua_pushvalue(L, base - arguments + i);
    }
    driverCalls = {};
    Outcome outcome;
    outcome.failed = lua_pcall(L, arguments, LUA_MULTRET, 0) != 0;
    outcome.driver = driverCalls;
    for (int i = base + 1; i <= lua_gettop(L); ++i) {
        outcome.results.push_back(described(L, i));
    }
    lua_settop(L, base);
    return outcome;
}

int Differential::differences(const Function &function, lua_CFunction ours, lua_CFunction theirs,
                              int calls, unsigned seed)
{
    RadioContext contexts[2];
    AnyValues values(L, seed);
    int different = 0;
    for (int i = 0; i < calls; ++i) {
        appContext = values.once(8) ? nullptr : &contexts[values.once(2) ? 1 : 0];
        answers = values.answers();
        const int arguments = values.pushArguments(function.kinds);
        const Outcome expected = call(theirs, arguments);
        const Outcome outcome = call(ours, arguments);
        if (outcome != expected && ++different == 1) {
            first << function.name << ", call " << i << ": " << outcome
                  << "\nand not: " << expected;
        }
        ++seen[expected.failed ? expected.results.at(0) : "success"];
        lua_settop(L, 0);
    }
    return different;
}

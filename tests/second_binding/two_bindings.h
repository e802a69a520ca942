// SPDX-License-Identifier: LicenseRef-Proprietary
// A Lua state into which both bindings can be opened, in any order.
#pragma once

#include "binding/radio/types.h"
#include "binding/radio_wrap.h"
#include "binding/runtime/pointer_objects.h"
#include "binding/runtime/registry.h"
#include "tests/binding/support/lua_test.h"
#include "tests/binding/support/type_table.h"

#include <dlfcn.h>

class TwoBindings : public LuaTest
{
protected:
    TwoBindings()
    {
        EXPECT_EQ(radioModule.next, nullptr) << "another test has run in this process before";
    }

    void openRadio()
    {
        radioModuleOpen(L);
        EXPECT_EQ(lua_gettop(L), 0);
    }

    // The library stays loaded when the state is closed.
    void openSecond(const char *options = "")
    {
        void *const library = dlopen(SECOND_BINDING, RTLD_NOW);
        ASSERT_NE(library, nullptr) << dlerror();
        lua_pushcclosure(
            L, reinterpret_cast<lua_CFunction>(dlsym(library, "luaopen_second_binding")), 0);
        lua_pushstring(L, options);
        if (lua_pcall(L, 1, 0, 0) != 0) {
            ADD_FAILURE() << popText();
        }
    }

    // The modules of the list from its head.
    std::vector<const ModuleRecord *> modules()
    {
        std::vector<const ModuleRecord *> list;
        const ModuleRecord *const head = SWIG_Lua_GetModuleRecord(L);
        const ModuleRecord *module = head;
        do {
            list.push_back(module);
            module = module->next;
        } while (module != head && list.size() < 10);
        return list;
    }

    // The other binding's module.
    const ModuleRecord *secondModule()
    {
        for (const ModuleRecord *const module : modules()) {
            if (module != &radioModule) {
                return module;
            }
        }
        return nullptr;
    }

    // The other binding's own record of that name, used or not; null when it has none.
    const TypeRecord *secondRecord(const char *name)
    {
        const ModuleRecord *const module = secondModule();
        for (std::size_t i = 0; i < module->size; ++i) {
            if (std::strcmp(module->typeInitial[i]->name, name) == 0) {
                return module->typeInitial[i];
            }
        }
        return nullptr;
    }

    // The record of the object that a Lua expression gives.
    const TypeRecord *typeOf(const std::string &expression)
    {
        run("_OBJECT = " + expression);
        lua_getglobal(L, "_OBJECT");
        const auto *const object = static_cast<PointerObject *>(lua_touserdata(L, -1));
        lua_pop(L, 1);
        return object != nullptr ? object->type : nullptr;
    }

    // Whether one of our types accepts the object that a Lua expression gives.
    bool weAccept(TypePosition type, const std::string &expression)
    {
        run("_OBJECT = " + expression);
        lua_getglobal(L, "_OBJECT");
        void *pointer = nullptr;
        const int result = SWIG_Lua_ConvertPtr(L, -1, &pointer, radioTypes[type]);
        lua_pop(L, 1);
        return result == 0 && pointer != nullptr;
    }

    // The number behind an object, converted by our binding.
    int ourValue(const std::string &expression)
    {
        run("_OBJECT = " + expression);
        lua_getglobal(L, "_OBJECT");
        void *pointer = nullptr;
        const int result = SWIG_Lua_ConvertPtr(L, -1, &pointer, radioTypes[intType]);
        lua_pop(L, 1);
        return result == 0 ? *static_cast<int *>(pointer) : -1;
    }
};

// Records of the other binding for every type that it can share.
inline constexpr char everySharedType[] =
    "_p_FILE _p_RadioHooks _p_f_p_void__void _p_f_size_t__p_void _p_int _p_p_char";

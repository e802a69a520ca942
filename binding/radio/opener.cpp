// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/radio/catalogue.h"
#include "binding/radio/constants.h"
#include "binding/radio/types.h"
#include "binding/radio_wrap.h"
#include "binding/runtime/class_table.h"
#include "binding/runtime/pointer_objects.h"

namespace
{

const AttributeEntry variables[] = {
    {nullptr, nullptr, nullptr},
};

// Lua text that is run once the module is complete.
constexpr char moduleCode[] = "";

// Calls use for the class of every type that has one.
template <class Use>
void forEachClass(Use use)
{
    for (TypeRecord *const *type = radioTypes; *type != nullptr; ++type) {
        if ((*type)->clientData != nullptr) {
            use(static_cast<ClassRecord *>((*type)->clientData));
        }
    }
}

// How many fields radio has: functions, constants, and a constructor for each of the classes.
int countFields()
{
    int count = 0;
    for (const CommandEntry *entry = radioCommands; entry->name != nullptr; ++entry) {
        ++count;
    }
    for (const ConstantEntry *entry = radioConstants; entry->kind != endOfConstants; ++entry) {
        ++count;
    }
    forEachClass([&count](const ClassRecord *) { ++count; });
    return count;
}

} // namespace

int radioModuleOpen(lua_State *L)
{
    lua_pushvalue(L, LUA_GLOBALSINDEX);
    initialiseRadioTypes(L);

    SWIG_Lua_AddFunction(L, "swig_type", SWIG_Lua_type);
    SWIG_Lua_AddFunction(L, "swig_equals", SWIG_Lua_equal);

    SWIG_Lua_module_begin(L, "radio", countFields());
    SWIG_Lua_AddCommands(L, radioCommands);
    SWIG_Lua_AddVariables(L, variables);
    forEachClass([L](ClassRecord *classRecord) { SWIG_Lua_ResolveBases(L, classRecord); });
    forEachClass([L](ClassRecord *classRecord) { SWIG_Lua_RegisterClass(L, classRecord); });
    SWIG_Lua_AddConstants(L, radioConstants);
    SWIG_Lua_RunModuleCode(L, moduleCode);

    lua_pop(L, 2);
    return 1;
}

// SPDX-License-Identifier: LicenseRef-Proprietary
// The two attributes hold function pointers. Messages about the number of arguments, and about an
// argument that is no userdata, name the attribute; those about a userdata of another type name the
// accessor.
#include "binding/radio/hooks.h"

#include "binding/radio/fixed_string.h"
#include "binding/radio/pointer_arguments.h"

#include <cstdlib>
#include <sorel.h>
#include <type_traits>
#include <utility>

namespace
{

int construct(lua_State *L)
{
    checkArgumentCount(L, "RadioHooks::RadioHooks", 0);
    PointerObject *const object = SWIG_Lua_NewPointerObj(L, radioTypes[hooksType]);
    object->ptr = std::calloc(1, sizeof(RadioHooks));
    if (object->ptr == nullptr) {
        lua_pushnil(L);
    } else {
        object->own = 1;
    }
    return 1;
}

void destroy(void *hooks)
{
    std::free(hooks);
}

RadioHooks *toHooks(lua_State *L, const char *accessor)
{
    return static_cast<RadioHooks *>(toNativePointer(L, accessor, 1, 1, hooksType));
}

// The accessors of an attribute: the member of the record and the type of its pointer object.
template <FixedString attribute, auto RadioHooks::*member, TypePosition type>
struct Accessors {
    using Function = std::remove_reference_t<decltype(std::declval<RadioHooks>().*member)>;

    static int get(lua_State *L)
    {
        static constexpr auto accessor =
            FixedString("RadioHooks_") + attribute + FixedString("_get");
        checkArgumentCount(L, attribute.text, 1);
        checkUserdataOrNil(L, attribute.text, 1, "RadioHooks *");
        const RadioHooks *const hooks = toHooks(L, accessor.text);
        // A script can call this function by hand, with nil.
        void *const value = hooks != nullptr ? reinterpret_cast<void *>(hooks->*member) : nullptr;
        SWIG_Lua_PushPointer(L, value, radioTypes[type], 0);
        return 1;
    }

    template <FixedString functionType>
    static int set(lua_State *L)
    {
        static constexpr auto accessor =
            FixedString("RadioHooks_") + attribute + FixedString("_set");
        checkArgumentCount(L, attribute.text, 2);
        checkUserdataOrNil(L, attribute.text, 1, "RadioHooks *");
        checkUserdataOrNil(L, attribute.text, 2, functionType.text);
        RadioHooks *const hooks = toHooks(L, accessor.text);
        void *const value = toNativePointer(L, accessor.text, 2, 2, type);
        if (hooks != nullptr) {
            hooks->*member = reinterpret_cast<Function>(value);
        }
        return 0;
    }
};

using Malloc = Accessors<"malloc", &RadioHooks::malloc, mallocFunctionType>;
using Free = Accessors<"free", &RadioHooks::free, freeFunctionType>;

MethodEntry methods[] = {
    {nullptr, nullptr},
};

AttributeEntry attributes[] = {
    {"malloc", Malloc::get, Malloc::set<"void *(*)(size_t)">},
    {"free", Free::get, Free::set<"void (*)(void *)">},
    {nullptr, nullptr, nullptr},
};

ClassRecord *bases[] = {nullptr};
const char *baseNames[] = {nullptr};

} // namespace

constinit ClassRecord hooksClass = {
    "RadioHooks", &radioTypes[hooksType], construct, destroy, methods, attributes, bases, baseNames,
};

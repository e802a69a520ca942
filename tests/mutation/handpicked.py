# SPDX-License-Identifier: LicenseRef-Proprietary
"""Mutations that no rule over single lines finds: two checks in the other order, and saturating
conversions that become plain casts. Each names the file, what is done, the text and what replaces
it; the text has to be there exactly once."""

from operators import Mutation, one_line

ORDER = "order of checks swapped"
CAST = "saturation replaced by a cast"

CHANGES = [
    ("binding/radio/numbers.h", CAST,
     "return value >= endOfUnsigned32 ? UINT32_MAX : static_cast<std::uint32_t>(value);",
     "return static_cast<std::uint32_t>(static_cast<std::int64_t>(value));"),
    ("binding/radio/numbers.h", CAST,
     "    if (value >= endOfSigned32) {\n        return INT32_MAX;\n    }\n", ""),
    ("binding/radio/numbers.h", CAST,
     "    if (value < -endOfSigned32) {\n        return INT32_MIN;\n    }\n", ""),
    ("binding/radio/numbers.h", CAST,
     "return value == value ? static_cast<std::int32_t>(value) : 0;",
     "return static_cast<std::int32_t>(value);"),
    ("binding/radio/numbers.h", "wrong end of the range", "return INT32_MAX;", "return INT32_MIN;"),
    ("binding/radio/numbers.h", "wrong end of the range", "return INT32_MIN;", "return INT32_MAX;"),
    ("binding/radio/numbers.h", "rounds instead of truncating",
     "return value == value ? static_cast<std::int32_t>(value) : 0;",
     "return value == value"
     " ? static_cast<std::int32_t>(value < 0 ? value - 0.5 : value + 0.5) : 0;"),
    ("binding/radio/numbers.cpp", "saturates a little too low", "return UINT32_MAX;",
     "return UINT32_MAX - 1;"),
    ("binding/radio/numbers.cpp", CAST,
     "        if (magnitude > UINT32_MAX / 10 || 10 * magnitude > UINT32_MAX - digit) {\n"
     "            return UINT32_MAX;\n        }\n", ""),
    ("binding/radio/register_word.cpp", "saturates a little too low", "return UINT32_MAX;",
     "return UINT32_MAX - 1;"),
    ("binding/radio/register_word.h", "prints with fewer digits",
     "fraction <= 0.9999", "fraction <= 0.99999999999999"),
    ("binding/radio/arguments.h", CAST, """            if (number >= endOfUnsigned32) [[unlikely]] {
                return false;
            }
""", ""),
    ("binding/radio/arguments.h", CAST, """            if (number >= endOfSigned32) [[unlikely]] {
                return false;
            }
""", ""),
    ("binding/radio/arguments.h", "sign test of not-a-number dropped",
     "if (!(number >= 0)) { // so", "if (number < 0) { // so"),
    ("binding/radio/wrapper.h", ORDER,
     "        const Values values = checkAndConvert(L, positions);\n"
     "        return callDriverWith(L, context, values, positions);",
     "        checkContext(L, context);\n"
     "        const Values values = checkAndConvert(L, positions);\n"
     "        return callDriverWith(L, context, values, positions);"),
    ("binding/radio/wrapper.h", ORDER,
     "        checkArgumentCount(L, name.text, static_cast<int>(count));\n"
     "        const Values values = checkAndConvert(L, positions);\n",
     "        const Values values = checkAndConvert(L, positions);\n"
     "        checkArgumentCount(L, name.text, static_cast<int>(count));\n"),
    ("binding/radio/wrapper.h", ORDER, "(checkType<i>(L), ...);",
     "(checkType<sizeof...(i) - 1 - i>(L), ...);"),
    ("binding/radio/wrapper.h", "context read later",
     "return callDriverWith(L, runsLua ? contextAtEntry : appContext, values, positions);",
     "return callDriverWith(L, appContext, values, positions);"),
    ("binding/radio/wrapper.h", "context read later",
     "        RadioContext *const context = appContext;\n"
     "        checkArgumentCount(L, name.text, static_cast<int>(count));\n"
     "        const Values values = checkAndConvert(L, positions);\n",
     "        checkArgumentCount(L, name.text, static_cast<int>(count));\n"
     "        const Values values = checkAndConvert(L, positions);\n"
     "        RadioContext *const context = appContext;\n"),
    ("binding/radio/wrapper.h", "quick way taken always",
     "return ((!Kind<i>::runsLua || i + 1 == count) && ...);", "return true;"),
    ("binding/radio/native_pointers.cpp", ORDER,
     "    if (!TextArgument::accepts(L, 1)) {\n"
     "        raiseArgumentType(L, name.text, 1, TextArgument::typeName, 1);\n    }\n"
     "    raiseArgumentType(L, name.text, 2, outName, 2);\n",
     "    if (!isUserdataOrNil(L, 2)) {\n"
     "        raiseArgumentType(L, name.text, 2, outName, 2);\n    }\n"
     "    raiseArgumentType(L, name.text, 1, TextArgument::typeName, 1);\n"),
    ("binding/radio/native_pointers.cpp", ORDER,
     "    void *const out = toNativePointer(L, name.text, 2, 3, outType);\n",
     "    checkContext(L, context);\n"
     "    void *const out = toNativePointer(L, name.text, 2, 3, outType);\n"),
    ("binding/radio/native_pointers.cpp", ORDER,
     '    checkArgumentCount(L, "radioGetDriverNames", 0);\n',
     '    checkContext(L, context);\n    checkArgumentCount(L, "radioGetDriverNames", 0);\n'),
    ("binding/radio/native_pointers.cpp", ORDER,
     "    void *const file = toNativePointer(L, name, 1, 2, fileType);\n",
     "    checkContext(L, context);\n"
     "    void *const file = toNativePointer(L, name, 1, 2, fileType);\n"),
    ("binding/radio/native_pointers.cpp", ORDER,
     '    checkArgumentCount(L, name, 1);\n    checkUserdataOrNil(L, name, 1, "FILE *");\n',
     '    checkUserdataOrNil(L, name, 1, "FILE *");\n    checkArgumentCount(L, name, 1);\n'),
    ("binding/radio/hooks.cpp", ORDER,
     '        checkArgumentCount(L, attribute.text, 1);\n'
     '        checkUserdataOrNil(L, attribute.text, 1, "RadioHooks *");\n',
     '        checkUserdataOrNil(L, attribute.text, 1, "RadioHooks *");\n'
     '        checkArgumentCount(L, attribute.text, 1);\n'),
    ("binding/radio/hooks.cpp", ORDER,
     '        checkUserdataOrNil(L, attribute.text, 1, "RadioHooks *");\n'
     '        checkUserdataOrNil(L, attribute.text, 2, functionType.text);\n',
     '        checkUserdataOrNil(L, attribute.text, 2, functionType.text);\n'
     '        checkUserdataOrNil(L, attribute.text, 1, "RadioHooks *");\n'),
    ("binding/radio/hooks.cpp", ORDER,
     "        RadioHooks *const hooks = toHooks(L, accessor.text);\n"
     "        void *const value = toNativePointer(L, accessor.text, 2, 2, type);\n",
     "        void *const value = toNativePointer(L, accessor.text, 2, 2, type);\n"
     "        RadioHooks *const hooks = toHooks(L, accessor.text);\n"),
    ("binding/radio/register_tables.cpp", ORDER,
     "    checkArgumentCount(L, name.text, 1);\n    if (!lua_istable(L, 1)) {\n"
     '        raiseMessage(L, "Data values must be a table");\n    }\n',
     "    if (!lua_istable(L, 1)) {\n"
     '        raiseMessage(L, "Data values must be a table");\n    }\n'
     "    checkArgumentCount(L, name.text, 1);\n"),
    ("binding/radio/register_tables.cpp", "context read later",
     "    RadioContext *const context = appContext;\n", "#define context appContext\n"),
    ("binding/radio/opener.cpp", ORDER,
     "    SWIG_Lua_AddCommands(L, radioCommands);\n    SWIG_Lua_AddVariables(L, variables);\n",
     "    SWIG_Lua_AddVariables(L, variables);\n    SWIG_Lua_AddCommands(L, radioCommands);\n"),
    ("binding/runtime/class_table.cpp", "inherited after its own",
     "pushDetailTable(L, \".fn\", 1179, \"SWIG_Lua_add_class_details\");",
     "pushDetailTable(L, \".fn\", 1179, \"SWIG_Lua_add_class_details\");\n"
     "    for (std::size_t i = 0; classRecord->baseNames[i] != nullptr; ++i) {\n"
     "        if (classRecord->bases[i] != nullptr) {\n"
     "            lua_pushvalue(L, -2);\n"
     "            SWIG_Lua_add_class_details(L, classRecord->bases[i]);\n"
     "            lua_pop(L, 1);\n        }\n    }"),
    ("app/context.cpp", ORDER, "    appRadioClose();\n    appRadioOpen();\n",
     "    appRadioOpen();\n    appRadioClose();\n"),
    ("app/scripts.cpp", "order of copies swapped",
     '    copyToGlobals(L, "radio");\n    copyToGlobals(L, "radioNative");\n',
     '    copyToGlobals(L, "radioNative");\n    copyToGlobals(L, "radio");\n'),
    ("app/opening.cpp", "order of start-up changed",
     "    copyRadioToGlobals(L);\n    openBitLibrary(L);\n",
     "    openBitLibrary(L);\n    copyRadioToGlobals(L);\n"),
    ("app/opening.cpp", "order of start-up changed",
     "    registerRadioNative(L);\n    copyRadioToGlobals(L);\n",
     "    copyRadioToGlobals(L);\n    registerRadioNative(L);\n"),
    ("app/sorelapp.cpp", "order of the exit changed",
     "    appRadioClose();\n    keepLoadedLibraries(appLuaState);\n    lua_close(appLuaState);\n",
     "    keepLoadedLibraries(appLuaState);\n    lua_close(appLuaState);\n    appRadioClose();\n"),
    ("app/interactive.cpp", ORDER,
     "        ++count;\n        assertThat(count < lineSize, \"read - input < inLen\", "
     "\"app/sorelapp\", 262, \"cmdGetLine\");\n        if (byte == '\\n') {\n"
     "            input[count] = '\\0';\n            return input;\n        }\n",
     "        ++count;\n        if (byte == '\\n') {\n"
     "            input[count] = '\\0';\n            return input;\n        }\n"
     "        assertThat(count < lineSize, \"read - input < inLen\", "
     "\"app/sorelapp\", 262, \"cmdGetLine\");\n"),
]


class Missing(Exception):
    """A text to be changed is not in its file exactly once."""


def mutations(file, text):
    for changed_file, operator, before, after in CHANGES:
        if changed_file != file:
            continue
        if text.count(before) != 1:
            raise Missing(f"handpicked.py: {file} has {text.count(before)} times: {before}")
        position = text.index(before)
        yield Mutation(file, text.count("\n", 0, position) + 1, operator, one_line(before),
                       one_line(after), text.replace(before, after))

// SPDX-License-Identifier: LicenseRef-Proprietary
// The type registry: bindings join, types and casts are looked up, client data are handed on, and
// after each step all records are as the model has them. tables.h tells what an input is.
//
// SWIG_ShareClientData is not among them: it acts once in a process.
#include "binding/runtime/types.h"
#include "binding/runtime/pointer_objects.h"
#include "binding/runtime/registry.h"
#include "fuzz/cells.h"
#include "fuzz/ending.h"
#include "fuzz/target.h"
#include "fuzz/types/model.h"

#include <algorithm>
#include <cstring>

namespace
{

lua_State *L;

Cells *lookups;
enum Lookup : std::size_t { mangled, either };
enum LookupKind : std::size_t {
    foundByName,
    foundByText,
    notFound,
    emptyName,
    nullName,
    noTypes,
    unsorted,
    nullText,
    alternatives,
    oddBlanks,
    oddBytes,
    severalBindings,
    partOfList,
    lookupKinds
};

Cells *castCells;
enum CastUse : std::size_t { byRecord, byName, conversion, handingOn };
enum CastKind : std::size_t {
    first,
    further,
    none,
    noCasts,
    plainCast,
    converter,
    allocating,
    castKinds
};

Cells *joins;
enum Join : std::size_t {
    alone,
    joined,
    again,
    ownTypes,
    othersTypes,
    dataCopied,
    castRedirected,
    castLinked,
    castDropped,
    noTypesAtAll
};

Cells *names;

void check(bool holds, const char *what)
{
    if (!holds) {
        failTarget(what);
    }
}

// One input, and what has been made of it.
class Run
{
public:
    explicit Run(std::string_view input) : tables_(input), model_(tables_)
    {
    }

    void run()
    {
        if (tables_.types.empty()) {
            return;
        }
        SWIG_Lua_SetModuleRecord(L, nullptr);
        compare();
        for (const Operation &operation : tables_.operations) {
            perform(operation.letter, operation.text);
            compare();
        }
        lua_settop(L, 0);
    }

private:
    void perform(char letter, const std::string &text)
    {
        if (text.empty()) {
            return;
        }
        switch (letter) {
        case 'I':
            initialise(tables_.binding(text[0]));
            break;
        case 'F':
        case 'E':
            if (text.size() >= 2 && !model_.list.empty()) {
                find(letter == 'F' ? either : mangled, inList(text[0]), inList(text[1]),
                     text.substr(2));
            }
            break;
        case 'N':
            typeName(tables_.type(text[0]).record);
            break;
        case 'B':
            findCastByName(tables_.type(text[0]).record, text.substr(1).c_str());
            break;
        case 'S':
            setData(tables_.type(text[0]).record, clientData(text.size() > 1 ? text[1] : '0'));
            break;
        case 'K':
        case 'P':
            if (text.size() >= 2) {
                findCast(letter == 'P', tables_.type(text[0]).record, tables_.type(text[1]).record);
            }
            break;
        default:
            break;
        }
    }

    // Searches begin and end with bindings that have joined the list.
    ModuleRecord *inList(char character) const
    {
        const auto position = static_cast<unsigned char>(character - '0') % model_.list.size();
        return const_cast<ModuleRecord *>(model_.list[position]);
    }

    void initialise(Binding &binding)
    {
        if (tables_.linked) {
            return;
        }
        const Model::Joined happened = model_.initialise(binding);
        SWIG_InitTypes(L, &binding.record, binding.typeInitial.data(), binding.castInitial.data());
        const bool met[] = {happened.alone,      !happened.alone && !happened.again,
                            happened.again,      happened.own,
                            happened.others,     happened.copied,
                            happened.redirected, happened.linked,
                            happened.dropped,    binding.typeInitial.empty()};
        for (std::size_t column = 0; column < std::size(met); ++column) {
            if (met[column]) {
                joins->count(0, column);
            }
        }
    }

    void find(Lookup lookup, ModuleRecord *start, ModuleRecord *end, const std::string &name)
    {
        const std::string text = name.c_str(); // up to a zero byte
        const TypeRecord *const byName = model_.findMangled(start, end, text);
        const TypeRecord *const expected =
            lookup == mangled ? byName : model_.find(start, end, text);
        const TypeRecord *const found = lookup == mangled
                                            ? SWIG_FindMangledType(start, end, text.c_str())
                                            : SWIG_FindType(start, end, text.c_str());
        check(found == expected, "another type is found");
        countLookup(lookup, start, end, text, byName != nullptr, expected);
    }

    void countLookup(Lookup lookup, const ModuleRecord *start, const ModuleRecord *end,
                     const std::string &name, bool byName, const TypeRecord *found)
    {
        bool met[lookupKinds] = {};
        met[foundByName] = byName;
        met[foundByText] = found != nullptr && !byName;
        met[notFound] = found == nullptr;
        met[emptyName] = name.empty();
        met[oddBytes] = std::any_of(name.begin(), name.end(),
                                    [](char byte) { return byte < ' ' || byte > '~'; });
        met[severalBindings] = model_.list.size() > 1;
        met[partOfList] = start != end;
        met[alternatives] = met[foundByText] && std::strchr(found->str, '|') != nullptr;
        met[oddBlanks] = met[foundByText] && name.find(' ') != std::string::npos &&
                         std::strstr(found->str, name.c_str()) == nullptr;
        const std::vector<const TypeRecord *> &table = model_.types[start];
        met[noTypes] = table.empty();
        met[unsorted] = !model_.isOrderly(start);
        for (const TypeRecord *const type : table) {
            met[nullName] = met[nullName] || type->name == nullptr;
            met[nullText] = met[nullText] || type->str == nullptr;
        }
        for (std::size_t kind = 0; kind < lookupKinds; ++kind) {
            if (met[kind]) {
                lookups->count(lookup, kind);
            }
        }
    }

    void countCast(CastUse use, const Model::Casts &before, const CastRecord *found)
    {
        if (before.empty()) {
            castCells->count(use, noCasts);
        } else if (found == nullptr) {
            castCells->count(use, none);
        } else {
            castCells->count(use, found == before.front() ? first : further);
        }
        if (found != nullptr) {
            castCells->count(use, found->converter == nullptr          ? plainCast
                                  : found->converter == convertPlainly ? converter
                                                                       : allocating);
        }
    }

    void findCast(bool converts, TypeRecord &to, TypeRecord &given)
    {
        const Model::Casts before = model_.casts[&to];
        const CastRecord *const expected = model_.findCast(&to, &given);
        if (converts) {
            convert(to, given, expected);
        } else {
            check(SWIG_FindCast(&to, &given) == expected, "another cast is found");
        }
        countCast(converts ? conversion : byRecord, before, expected);
    }

    void convert(TypeRecord &to, TypeRecord &given, const CastRecord *cast)
    {
        char block[2];
        pushObject(given, block);
        void *result = nullptr;
        int status = 0;
        const Ending ending =
            runToItsEnd([&] { status = SWIG_Lua_ConvertPtr(L, -1, &result, &to); });
        lua_settop(L, 0);
        if (cast != nullptr && cast->converter == convertAllocating) {
            check(ending.way == Ending::asserted &&
                      ending.assertion == "radio_wrap:1319: SWIG_Lua_ConvertPtr: !newmemory",
                  "no assertion, or another one");
            return;
        }
        check(ending.way == Ending::returned, "the conversion does not return");
        check(status == (cast != nullptr ? 0 : -1), "another status");
        if (cast != nullptr) {
            check(result == (cast->converter != nullptr ? block + 1 : block), "another pointer");
        }
    }

    void findCastByName(TypeRecord &to, const std::string &name)
    {
        const Model::Casts before = model_.casts[&to];
        for (const CastRecord *const cast : before) {
            if (model_.from[cast]->name == nullptr) {
                return; // casts are from types with a name
            }
        }
        const CastRecord *const expected = model_.findCastByName(&to, name);
        check(SWIG_FindCastByName(&to, name.c_str()) == expected, "another cast is found");
        countCast(byName, before, expected);
    }

    void setData(TypeRecord &type, void *value)
    {
        const Model::Casts &casts = model_.casts[&type];
        model_.setData(&type, value);
        SWIG_SetClientData(&type, value);
        if (casts.empty()) {
            castCells->count(handingOn, noCasts);
        }
        for (const CastRecord *const cast : casts) {
            countCast(handingOn, casts, cast);
        }
        if (value == nullptr) {
            castCells->count(handingOn, none);
        }
    }

    static void pushObject(TypeRecord &type, void *pointer)
    {
        auto *const object =
            static_cast<PointerObject *>(lua_newuserdata(L, sizeof(PointerObject)));
        *object = {&type, 0, pointer};
    }

    static void typeName(TypeRecord &type)
    {
        char block = 0;
        pushObject(type, &block);
        const std::string expected = type.str != nullptr ? type.str : "userdata (unknown type)";
        check(SWIG_Lua_TypeName(L, -1) == expected, "another name of the type");
        lua_settop(L, 0);
        names->count(0, type.str == nullptr ? 0 : *type.str == '\0' ? 1 : 2);
    }

    void compare()
    {
        for (const Type &type : tables_.types) {
            check(type.record.clientData == model_.data[&type.record], "other client data");
            const CastRecord *previous = nullptr;
            const CastRecord *cast = type.record.cast;
            for (const CastRecord *const expected : model_.casts[&type.record]) {
                check(cast == expected && cast->prev == previous, "another list of casts");
                check(cast->type == model_.from[cast], "a cast from another type");
                previous = cast;
                cast = cast->next;
            }
            check(cast == nullptr, "a longer list of casts");
        }
        for (std::size_t i = 0; i < model_.list.size(); ++i) {
            const ModuleRecord &module = *model_.list[i];
            check(module.next == model_.list[(i + 1) % model_.list.size()], "another list");
            const std::vector<const TypeRecord *> &types = model_.types[&module];
            check(module.size == types.size() &&
                      std::equal(types.begin(), types.end(), module.types) &&
                      module.types[module.size] == nullptr,
                  "other types");
        }
        if (!tables_.linked) {
            check(SWIG_Lua_GetModuleRecord(L) ==
                      (model_.list.empty() ? nullptr : model_.list.front()),
                  "another head");
        }
    }

    Tables tables_;
    Model model_;
};

} // namespace

void prepareTarget()
{
    L = luaL_newstate();
    lookups = new Cells("lookup", {"SWIG_FindMangledType", "SWIG_FindType"},
                        {"by name", "by text", "not found", "empty", "null name", "no types",
                         "unsorted", "null str", "with |", "blanks", "bytes", "bindings", "part"});
    for (const LookupKind kind : {foundByText, alternatives, oddBlanks}) {
        lookups->leaveOut(mangled, kind);
    }
    castCells = new Cells(
        "cast",
        {"SWIG_FindCast", "SWIG_FindCastByName", "SWIG_Lua_ConvertPtr", "SWIG_SetClientData"},
        {"first", "further", "none", "no casts", "plain", "converter", "allocating"});
    joins = new Cells("join", {"SWIG_InitTypes"},
                      {"alone", "joined", "again", "own", "others'", "data", "redirected", "linked",
                       "dropped", "no types"});
    names = new Cells("name", {"SWIG_Lua_TypeName"}, {"null", "empty", "text"});
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Run(std::string_view(reinterpret_cast<const char *>(data), size)).run();
    return 0;
}

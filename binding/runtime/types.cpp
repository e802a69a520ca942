// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/runtime/types.h"

#include <cstring>

namespace
{

TypeRecord *findInModule(const ModuleRecord *module, const char *name)
{
    if (module->size == 0) {
        return nullptr;
    }
    std::size_t lower = 0;
    std::size_t upper = module->size - 1;
    while (lower <= upper) {
        const std::size_t middle = lower + (upper - lower) / 2;
        TypeRecord *const type = module->types[middle];
        if (type->name == nullptr) {
            return nullptr;
        }
        const int order = std::strcmp(name, type->name);
        if (order == 0) {
            return type;
        }
        if (order > 0) {
            lower = middle + 1;
        } else if (middle == 0) {
            return nullptr;
        } else {
            upper = middle - 1;
        }
    }
    return nullptr;
}

struct Characters {
    const char *next;
    const char *end;

    void skipBlanks()
    {
        while (next != end && *next == ' ') {
            ++next;
        }
    }
};

bool equalButForBlanks(Characters left, Characters right)
{
    while (left.next != left.end && right.next != right.end) {
        left.skipBlanks();
        right.skipBlanks();
        if (left.next == left.end || right.next == right.end) {
            break;
        }
        if (*left.next != *right.next) {
            return false;
        }
        ++left.next;
        ++right.next;
    }
    return left.end - left.next == right.end - right.next;
}

bool hasAlternative(const char *alternatives, const char *name)
{
    const Characters wanted{name, name + std::strlen(name)};
    const char *begin = alternatives;
    while (*begin != '\0') {
        const char *const end = begin + std::strcspn(begin, "|");
        if (equalButForBlanks({begin, end}, wanted)) {
            return true;
        }
        begin = *end == '|' ? end + 1 : end;
    }
    return false;
}

TypeRecord *findByAlternative(const ModuleRecord *module, const char *name)
{
    for (std::size_t i = 0; i < module->size; ++i) {
        TypeRecord *const type = module->types[i];
        if (type->str != nullptr && hasAlternative(type->str, name)) {
            return type;
        }
    }
    return nullptr;
}

template <class Find>
TypeRecord *findInModules(ModuleRecord *start, const ModuleRecord *end, Find findIn)
{
    ModuleRecord *module = start;
    do {
        if (TypeRecord *const type = findIn(module)) {
            return type;
        }
        module = module->next;
    } while (module != end);
    return nullptr;
}

void moveToFront(TypeRecord *type, CastRecord *cast)
{
    if (cast == type->cast) {
        return;
    }
    cast->prev->next = cast->next;
    if (cast->next != nullptr) {
        cast->next->prev = cast->prev;
    }
    cast->prev = nullptr;
    SWIG_LinkCast(type, cast);
}

template <class Matches>
CastRecord *findCast(TypeRecord *expected, Matches matches)
{
    for (CastRecord *cast = expected->cast; cast != nullptr; cast = cast->next) {
        if (matches(cast->type)) {
            moveToFront(expected, cast);
            return cast;
        }
    }
    return nullptr;
}

} // namespace

TypeRecord *SWIG_FindMangledType(ModuleRecord *start, ModuleRecord *end, const char *name)
{
    return findInModules(start, end,
                         [name](const ModuleRecord *module) { return findInModule(module, name); });
}

TypeRecord *SWIG_FindType(ModuleRecord *start, ModuleRecord *end, const char *name)
{
    if (TypeRecord *const type = SWIG_FindMangledType(start, end, name)) {
        return type;
    }
    return findInModules(
        start, end, [name](const ModuleRecord *module) { return findByAlternative(module, name); });
}

CastRecord *SWIG_FindCast(TypeRecord *expected, const TypeRecord *given)
{
    return findCast(expected, [given](const TypeRecord *type) { return type == given; });
}

CastRecord *SWIG_FindCastByName(TypeRecord *expected, const char *name)
{
    return findCast(expected,
                    [name](const TypeRecord *type) { return std::strcmp(type->name, name) == 0; });
}

void SWIG_LinkCast(TypeRecord *type, CastRecord *cast)
{
    if (type->cast != nullptr) {
        type->cast->prev = cast;
    }
    cast->next = type->cast;
    type->cast = cast;
}

void SWIG_SetClientData(TypeRecord *type, void *clientData)
{
    type->clientData = clientData;
    if (clientData == nullptr) {
        return; // handing nothing on changes nothing, and a type's cast to itself would never end
    }
    for (CastRecord *cast = type->cast; cast != nullptr; cast = cast->next) {
        if (cast->converter == nullptr && cast->type->clientData == nullptr) {
            SWIG_SetClientData(cast->type, clientData);
        }
    }
}

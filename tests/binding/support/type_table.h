// SPDX-License-Identifier: LicenseRef-Proprietary
// Type records, cast lists and modules made up for a test.
#pragma once

#include "binding/runtime/records.h"
#include "binding/runtime/types.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <initializer_list>
#include <string>
#include <vector>

inline TypeRecord makeType(const char *name, const char *str = nullptr, void *clientData = nullptr)
{
    return {name, str, nullptr, nullptr, clientData, 0};
}

inline CastRecord makeCast(TypeRecord *type, PointerConverter converter = nullptr)
{
    return {type, converter, nullptr, nullptr};
}

// A module whose types array is filled, as if it were initialised, and which is a list by itself.
class Module
{
public:
    Module(std::initializer_list<TypeRecord *> types) : slots(types)
    {
        record.size = slots.size();
        slots.push_back(nullptr);
        record.types = slots.data();
        record.next = &record;
    }

    Module(const Module &) = delete;
    Module &operator=(const Module &) = delete;

    // Makes modules a circular list in this order.
    static void link(std::initializer_list<Module *> modules)
    {
        Module *const *const list = modules.begin();
        for (std::size_t i = 0; i < modules.size(); ++i) {
            list[i]->record.next = &list[(i + 1) % modules.size()]->record;
        }
    }

    ModuleRecord record{};

private:
    std::vector<TypeRecord *> slots;
};

// The mangled names of a cast list from its head, after checking the links in both directions.
inline std::vector<std::string> castNames(const TypeRecord &type)
{
    std::vector<std::string> names;
    const CastRecord *before = nullptr;
    for (const CastRecord *cast = type.cast; cast != nullptr; cast = cast->next) {
        names.emplace_back(cast->prev == before ? cast->type->name : "(its prev is wrong)");
        before = cast;
    }
    return names;
}

using Names = std::vector<std::string>;

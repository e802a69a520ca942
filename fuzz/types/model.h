// SPDX-License-Identifier: LicenseRef-Proprietary
// What the records hold and what lookups find, worked out with other means than the runtime's:
// lists of casts are arrays, names for people are compared without their blanks.
#pragma once

#include "fuzz/types/tables.h"

#include <map>

class Model
{
public:
    explicit Model(Tables &tables);

    using Casts = std::vector<const CastRecord *>;

    // The bindings of the list, from its head on.
    std::vector<const ModuleRecord *> list;

    std::map<const ModuleRecord *, std::vector<const TypeRecord *>> types;
    std::map<const TypeRecord *, Casts> casts; // the head of the list first
    std::map<const CastRecord *, const TypeRecord *> from;
    std::map<const TypeRecord *, const void *> data;

    const TypeRecord *findMangled(const ModuleRecord *start, const ModuleRecord *end,
                                  const std::string &name) const;
    const TypeRecord *find(const ModuleRecord *start, const ModuleRecord *end,
                           const std::string &name) const;

    // The cast from a type to another; moved to the front where it is found.
    const CastRecord *findCast(const TypeRecord *to, const TypeRecord *given);
    const CastRecord *findCastByName(const TypeRecord *to, const std::string &name);

    void setData(const TypeRecord *type, const void *value);

    // What has happened, for the tables of cells.
    struct Joined {
        bool again = false, alone = false;
        bool own = false, others = false, copied = false, redirected = false, linked = false,
             dropped = false;
    };
    Joined initialise(const Binding &binding);

    // Whether the table is sorted, without two of one name and without a null.
    bool isOrderly(const ModuleRecord *module) const;

private:
    std::vector<const ModuleRecord *> visited(const ModuleRecord *start,
                                              const ModuleRecord *end) const;
    const TypeRecord *findIn(const ModuleRecord *module, const std::string &name) const;
    const CastRecord *moveToFront(const TypeRecord *to, std::size_t position);
};

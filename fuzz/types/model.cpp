// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fuzz/types/model.h"

#include <algorithm>

namespace
{

std::string withoutBlanks(std::string text)
{
    text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
    return text;
}

bool endsInBlank(const std::string &text)
{
    return !text.empty() && text.back() == ' ';
}

bool equal(const std::string &left, const std::string &right)
{
    return withoutBlanks(left) == withoutBlanks(right) && endsInBlank(left) == endsInBlank(right);
}

bool matches(const char *str, const std::string &name)
{
    if (str == nullptr) {
        return false;
    }
    std::string rest = str;
    while (!rest.empty()) {
        const std::size_t bar = std::min(rest.find('|'), rest.size());
        if (equal(rest.substr(0, bar), name)) {
            return true;
        }
        rest.erase(0, bar + 1);
    }
    return false;
}

} // namespace

Model::Model(Tables &tables)
{
    for (const Type &type : tables.types) {
        data[&type.record] = type.record.clientData;
        casts[&type.record];
        for (const CastRecord &cast : type.casts) {
            from[&cast] = cast.type;
        }
        if (tables.linked) {
            for (std::size_t i = type.from.size(); i > 0; --i) {
                casts[&type.record].push_back(&type.casts[i - 1]);
            }
        }
    }
    for (const Binding &binding : tables.bindings) {
        types[&binding.record];
        if (tables.linked) {
            list.push_back(&binding.record);
            types[&binding.record].assign(binding.typeInitial.begin(), binding.typeInitial.end());
        }
    }
}

std::vector<const ModuleRecord *> Model::visited(const ModuleRecord *start,
                                                 const ModuleRecord *end) const
{
    std::vector<const ModuleRecord *> order = list;
    std::rotate(order.begin(), std::find(order.begin(), order.end(), start), order.end());
    order.erase(std::find(order.begin() + 1, order.end(), end), order.end());
    return order;
}

bool Model::isOrderly(const ModuleRecord *module) const
{
    const std::vector<const TypeRecord *> &table = types.at(module);
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (table[i]->name == nullptr ||
            (i > 0 && std::string(table[i - 1]->name) >= table[i]->name)) {
            return false;
        }
    }
    return true;
}

const TypeRecord *Model::findIn(const ModuleRecord *module, const std::string &name) const
{
    const std::vector<const TypeRecord *> &table = types.at(module);
    if (isOrderly(module)) {
        const auto found = std::find_if(table.begin(), table.end(),
                                        [&](const TypeRecord *type) { return name == type->name; });
        return found == table.end() ? nullptr : *found;
    }
    // Of any other table only the way of the search says what is found.
    long long lower = 0;
    long long upper = static_cast<long long>(table.size()) - 1;
    while (lower <= upper) {
        const long long middle = (lower + upper) / 2;
        const TypeRecord *const type = table[static_cast<std::size_t>(middle)];
        if (type->name == nullptr) {
            return nullptr;
        }
        const int order = name.compare(type->name);
        if (order == 0) {
            return type;
        }
        lower = order > 0 ? middle + 1 : lower;
        upper = order < 0 ? middle - 1 : upper;
    }
    return nullptr;
}

const TypeRecord *Model::findMangled(const ModuleRecord *start, const ModuleRecord *end,
                                     const std::string &name) const
{
    for (const ModuleRecord *const module : visited(start, end)) {
        if (const TypeRecord *const type = findIn(module, name)) {
            return type;
        }
    }
    return nullptr;
}

const TypeRecord *Model::find(const ModuleRecord *start, const ModuleRecord *end,
                              const std::string &name) const
{
    if (const TypeRecord *const type = findMangled(start, end, name)) {
        return type;
    }
    for (const ModuleRecord *const module : visited(start, end)) {
        for (const TypeRecord *const type : types.at(module)) {
            if (matches(type->str, name)) {
                return type;
            }
        }
    }
    return nullptr;
}

const CastRecord *Model::moveToFront(const TypeRecord *to, std::size_t position)
{
    Casts &ofType = casts[to];
    const auto found = ofType.begin() + static_cast<std::ptrdiff_t>(position);
    std::rotate(ofType.begin(), found, found + 1);
    return ofType.front();
}

const CastRecord *Model::findCast(const TypeRecord *to, const TypeRecord *given)
{
    for (std::size_t i = 0; i < casts[to].size(); ++i) {
        if (from[casts[to][i]] == given) {
            return moveToFront(to, i);
        }
    }
    return nullptr;
}

const CastRecord *Model::findCastByName(const TypeRecord *to, const std::string &name)
{
    for (std::size_t i = 0; i < casts[to].size(); ++i) {
        if (from[casts[to][i]]->name == name) {
            return moveToFront(to, i);
        }
    }
    return nullptr;
}

void Model::setData(const TypeRecord *type, const void *value)
{
    std::vector<const TypeRecord *> given = {type};
    data[type] = value;
    while (value != nullptr && !given.empty()) {
        const TypeRecord *const giver = given.back();
        given.pop_back();
        for (const CastRecord *const cast : casts[giver]) {
            if (cast->converter == nullptr && data[from[cast]] == nullptr) {
                data[from[cast]] = value;
                given.push_back(from[cast]);
            }
        }
    }
}

Model::Joined Model::initialise(const Binding &binding)
{
    Joined joined;
    const ModuleRecord *const module = &binding.record;
    if (std::find(list.begin(), list.end(), module) != list.end()) {
        joined.again = true;
        return joined;
    }
    list.insert(list.empty() ? list.end() : list.begin() + 1, module);
    joined.alone = list.size() == 1;
    const auto inOthers = [&](const char *name) -> const TypeRecord * {
        if (joined.alone) {
            return nullptr;
        }
        const auto next = std::find(list.begin(), list.end(), module) + 1;
        return findMangled(next == list.end() ? list.front() : *next, module, name);
    };
    std::vector<const TypeRecord *> table;
    for (std::size_t i = 0; i < binding.typeInitial.size(); ++i) {
        const TypeRecord *const own = binding.typeInitial[i];
        const TypeRecord *const others = inOthers(own->name);
        const TypeRecord *const chosen = others != nullptr ? others : own;
        (others != nullptr ? joined.others : joined.own) = true;
        if (others != nullptr && data[own] != nullptr) {
            data[others] = data[own];
            joined.copied = true;
        }
        for (const CastRecord *cast = binding.castInitial[i]; from[cast] != nullptr; ++cast) {
            const TypeRecord *const known = inOthers(from[cast]->name);
            if (known != nullptr && chosen != own && findCastByName(chosen, known->name)) {
                joined.dropped = true;
                continue;
            }
            if (known != nullptr && chosen == own) {
                from[cast] = known;
                joined.redirected = true;
            }
            casts[chosen].insert(casts[chosen].begin(), cast);
            joined.linked = true;
        }
        table.push_back(chosen);
    }
    types[module] = table;
    return joined;
}

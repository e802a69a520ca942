// SPDX-License-Identifier: LicenseRef-Proprietary
// Calibration data: integers and texts by name, from a TOML file.
#include "calibration.h"

#include "files.h"
#include "parse_toml.h"

#include <string_view>
#include <utility>

namespace sorel
{

namespace
{

Outcome notToml(const toml::parse_error &error)
{
    const toml::source_position place = error.source().begin;
    return refused(RADIO_EINVAL, place ? "not a TOML file" : tooManyDots, place.line);
}

Outcome refusedAt(const toml::node &node, const char *cause)
{
    return refused(RADIO_EINVAL, cause, node.source().begin.line);
}

Outcome add(Calibration &calibration, const std::string &name, const toml::value<int64_t> &value)
{
    if (*value < INT32_MIN || *value > INT32_MAX)
        return refusedAt(value, "an integer does not fit into 32 bits");
    calibration.integers[name] = static_cast<int32_t>(*value);
    return done();
}

Outcome add(Calibration &calibration, const std::string &name,
            const toml::value<std::string> &value)
{
    if (value->find('\0') != std::string::npos)
        return refusedAt(value, "a text contains a zero byte");
    calibration.strings[name] = *value;
    return done();
}

// Reads a table whose values are all of one kind.
template <class Value>
Outcome readTable(Calibration &calibration, const toml::table &table)
{
    for (const auto &[key, node] : table) {
        const toml::value<Value> *const value = node.template as<Value>();
        if (!value)
            return refusedAt(node, "a value is not of its table's kind");
        if (const Outcome outcome = add(calibration, std::string(key.str()), *value);
            isRefused(outcome))
            return outcome;
    }
    return done();
}

Outcome readTables(Calibration &calibration, const toml::table &file)
{
    if (file.empty())
        return refused(RADIO_EINVAL, "the file holds neither [integers] nor [strings]");
    for (const auto &[key, node] : file) {
        const toml::table *const table = node.as_table();
        const bool isIntegers = key.str() == "integers";
        if (!table || (!isIntegers && key.str() != "strings"))
            return refusedAt(node, "neither the table [integers] nor [strings]");
        const Outcome outcome = isIntegers ? readTable<int64_t>(calibration, *table)
                                           : readTable<std::string>(calibration, *table);
        if (isRefused(outcome))
            return outcome;
    }
    return done();
}

constexpr Outcome nullPointer = refused(RADIO_EINVAL, "a null pointer");

template <class Map>
auto find(Map &map, const char *name)
{
    return map.find(std::string_view(name));
}

} // namespace

Outcome loadCalibration(Calibration &calibration, const char *path)
{
    if (!path)
        return nullPointer;
    std::string text;
    if (const Outcome outcome = readFile(path, text); isRefused(outcome))
        return outcome;
    const toml::parse_result file = parseToml(text);
    if (!file)
        return notToml(file.error());
    Calibration loaded;
    if (const Outcome outcome = readTables(loaded, file.table()); isRefused(outcome))
        return outcome;
    calibration = std::move(loaded);
    return done();
}

Outcome findInteger(Calibration &calibration, const char *name, int32_t *value)
{
    if (!name || !value)
        return nullPointer;
    const auto found = find(calibration.integers, name);
    if (found == calibration.integers.end())
        return refused(RADIO_EINVAL, "no integer of that name");
    *value = found->second;
    return done();
}

Outcome findString(Calibration &calibration, const char *name, const char **value)
{
    if (!name || !value)
        return nullPointer;
    const auto found = find(calibration.strings, name);
    if (found == calibration.strings.end())
        return refused(RADIO_EINVAL, "no text of that name");
    *value = found->second.c_str();
    return done();
}

} // namespace sorel

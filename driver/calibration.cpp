// SPDX-License-Identifier: LicenseRef-Proprietary
// Calibration data: integers and texts by name, and corrections of the measurements, from a TOML
// file.
#include "calibration.h"

#include "board.h"
#include "files.h"
#include "toml_keys.h"
#include "trace/names.h"

#include <utility>

namespace sorel
{

namespace
{

constexpr int64_t largestCorrection = 20; // dB

// What a file holds.
struct File {
    RadioPlatformSelectIndex platform; // that it is for, at first the board's
    uint32_t serial;
    Calibration data;
    decltype(FrontEnd::corrections) corrections;
};

// ---- [integers] and [strings] ----

const toml::table *tableIn(const Item &item, const char *expected)
{
    const toml::table *const table = item.value.as_table();
    if (!table)
        noteKind(item, expected);
    return table;
}

void integers(const Item &item, File &file)
{
    if (const toml::table *const table = tableIn(item, "a table, [integers]"))
        for (const auto &[key, node] : *table) {
            const std::string name(key.str());
            const Item value = {item.reading, name.c_str(), "", node};
            if (const std::optional<int64_t> integer = integerIn(value, INT32_MIN, INT32_MAX))
                file.data.integers[name] = static_cast<int32_t>(*integer);
        }
}

void strings(const Item &item, File &file)
{
    if (const toml::table *const table = tableIn(item, "a table, [strings]"))
        for (const auto &[key, node] : *table) {
            const std::string name(key.str());
            const Item value = {item.reading, name.c_str(), "", node};
            const std::optional<std::string> text = textIn(value, "a text");
            if (text && text->find('\0') != std::string::npos)
                note(value, "contains a zero byte");
            else if (text)
                file.data.strings[name] = *text;
        }
}

// ---- [[bands]] ----

struct BandCorrection {
    RadioBand band = RADIO_BAND_NULL; // until one of the platform's has been read
    Correction correction = {};
};

void band(const Item &item, BandCorrection &target)
{
    const std::optional<std::string> name = textIn(item, "the name of a RadioBand");
    if (!name)
        return;
    RadioBand value = RADIO_BAND_NULL;
    const bool isKnown = valueOf(*name, value) && value != RADIO_BAND_NULL;
    if (isKnown && hasBand(*item.reading.platform, value))
        target.band = value;
    else
        note(item, "is " + quoted(*name) + ", not a band of the platform");
}

// One number for all paths, or a list with one for each.
template <auto member>
void decibels(const Item &item, BandCorrection &target)
{
    const toml::array *const list = item.value.as_array();
    const auto paths = static_cast<std::size_t>(item.reading.platform->antennas);
    if (list && list->size() != paths)
        return note(item, "has not one number for each path");
    for (std::size_t path = 0; path < paths; ++path) {
        const toml::node &node = list ? *list->get(path) : item.value;
        const std::optional<double> value = numberIn({item.reading, item.name, item.unit, node},
                                                     -largestCorrection, largestCorrection);
        if (!value)
            return;
        (target.correction.*member)[path] = *value;
    }
}

// clang-format off

const Key<BandCorrection> bandKeys[] = {
    {"band",     band,                           "",   true},
    {"rx_gain",  decibels<&Correction::rxGain>,  "dB"},
    {"tx_power", decibels<&Correction::txPower>, "dB"},
};

// clang-format on

void bands(const Item &item, File &file)
{
    const toml::array *const list = item.value.as_array();
    if (!list)
        return noteKind(item, "a list of tables, [[bands]]");
    for (const toml::node &node : *list) {
        const Item element = {item.reading, item.name, "", node};
        const toml::table *const table = tableIn(element, "a list of tables, [[bands]]");
        BandCorrection target;
        if (!table)
            continue;
        readKeys(item.reading, *table, " in [[bands]]", bandKeys, target);
        if (target.band != RADIO_BAND_NULL)
            file.corrections[static_cast<std::size_t>(target.band)] = target.correction;
    }
}

// ---- The file ----

// clang-format off

const Key<File> fileKeys[] = {
    {"platform", choice<&File::platform, platformChoices>},
    {"serial",   integer<&File::serial, 0, UINT32_MAX>},
    {"integers", integers},
    {"strings",  strings},
    {"bands",    bands},
};

// clang-format on

Outcome refusedFor(Calibration &calibration, const std::vector<Mistake> &mistakes)
{
    calibration.refusal = mistakes.front().text;
    if (mistakes.size() > 1)
        calibration.refusal += ", and " + std::to_string(mistakes.size() - 1) + " more";
    return refused(RADIO_EINVAL, calibration.refusal.c_str(), mistakes.front().line);
}

// Reads a text that is for that board.
Outcome read(const std::string &text, Board &board, File &file)
{
    const toml::parse_result parsed = parseToml(text);
    if (!parsed)
        return refusedFor(board.calibration, {syntaxMistake(parsed.error())});
    if (parsed.table().empty())
        return refused(RADIO_EINVAL, "the file holds nothing");
    Reading reading = {board.frontEnd.platform, {}};
    readKeys(reading, parsed.table(), "", fileKeys, file);
    sortByPlace(reading.mistakes);
    return reading.mistakes.empty() ? done() : refusedFor(board.calibration, reading.mistakes);
}

// Refuses what a getter cannot do without.
Outcome checkPointers(const void *name, const void *place)
{
    if (!name)
        return refused(RADIO_EINVAL, "the name is a null pointer");
    return place ? done() : refused(RADIO_EINVAL, "the place for the value is a null pointer");
}

template <class Map>
auto find(Map &map, const char *name)
{
    return map.find(std::string_view(name));
}

} // namespace

Outcome loadCalibration(Board &board, const char *path)
{
    if (!path)
        return refused(RADIO_EINVAL, "the path is a null pointer");
    std::string text;
    if (const Outcome outcome = readFile(path, text); isRefused(outcome))
        return outcome;
    FrontEnd &frontEnd = board.frontEnd;
    File file = {frontEnd.platform->platform, frontEnd.scenario->serial, {}, {}};
    if (const Outcome outcome = read(text, board, file); isRefused(outcome))
        return outcome;
    if (file.platform != frontEnd.platform->platform)
        return refused(RADIO_EINVAL, "the file is for another platform");
    if (file.serial != frontEnd.scenario->serial)
        return refused(RADIO_EINVAL, "the file is for a board of another serial number");
    board.calibration = std::move(file.data);
    frontEnd.corrections = file.corrections;
    return done();
}

Outcome findInteger(const Calibration &calibration, const char *name, int32_t *value)
{
    if (const Outcome outcome = checkPointers(name, value); isRefused(outcome))
        return outcome;
    const auto found = find(calibration.integers, name);
    if (found == calibration.integers.end())
        return refused(RADIO_EINVAL, "no integer of that name");
    *value = found->second;
    return done();
}

Outcome findString(const Calibration &calibration, const char *name, const char **value)
{
    if (const Outcome outcome = checkPointers(name, value); isRefused(outcome))
        return outcome;
    const auto found = find(calibration.strings, name);
    if (found == calibration.strings.end())
        return refused(RADIO_EINVAL, "no text of that name");
    *value = found->second.c_str();
    return done();
}

} // namespace sorel

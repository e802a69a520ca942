// SPDX-License-Identifier: LicenseRef-Proprietary
// Calibration files: an input is the file. Either radioLoadCalibrationFile refuses it, says why,
// and leaves what was loaded before; or what it holds is there.
#include "driver/toml.h"
#include "fuzz/board.h"
#include "fuzz/cells.h"
#include "fuzz/ending.h"
#include "fuzz/streams.h"
#include "fuzz/target.h"

#include <cstdlib>
#include <cstring>

namespace
{

Cells *keyCells;
enum Key : std::size_t {
    platform,
    serial,
    integers,
    strings,
    bands,
    anInteger,
    aString,
    band,
    rxGain,
    txPower,
    unknown,
    keyCount
};
const std::vector<std::string> keyNames = {
    "platform",   "serial",     "integers",      "strings",        "bands",          "of integers",
    "of strings", "bands.band", "bands.rx_gain", "bands.tx_power", "an unknown key",
};
enum Column : std::size_t {
    integerValue,
    floatValue,
    text,
    boolean,
    date,
    list,
    table,
    taken,
    refused
};

Cells *ends;
enum End : std::size_t { isTaken, noToml, otherMistake };

void check(bool holds, const char *what)
{
    if (!holds) {
        failTarget(what);
    }
}

Column kindOf(const toml::node &node)
{
    switch (node.type()) {
    case toml::node_type::integer:
        return integerValue;
    case toml::node_type::floating_point:
        return floatValue;
    case toml::node_type::string:
        return text;
    case toml::node_type::boolean:
        return boolean;
    case toml::node_type::array:
        return list;
    case toml::node_type::table:
        return table;
    default:
        return date;
    }
}

Key keyOf(std::string_view name, Key first, Key last)
{
    for (std::size_t key = first; key <= last; ++key) {
        const std::string &known = keyNames[key];
        if (name == known || "bands." + std::string(name) == known) {
            return static_cast<Key>(key);
        }
    }
    return unknown;
}

void countKeys(const toml::table &file, bool isLoaded)
{
    const auto count = [&](Key key, const toml::node &value) {
        keyCells->count(key, kindOf(value));
        keyCells->count(key, isLoaded ? taken : refused);
    };
    for (const auto &[name, value] : file) {
        const Key key = keyOf(name.str(), platform, bands);
        count(key, value);
        if (const toml::table *const values = value.as_table()) {
            for (const auto &[entry, content] : *values) {
                if (key == integers || key == strings) {
                    count(key == integers ? anInteger : aString, content);
                }
            }
        }
        if (const toml::array *const elements = value.as_array(); elements && key == bands) {
            for (const toml::node &element : *elements) {
                if (const toml::table *const correction = element.as_table()) {
                    for (const auto &[entry, content] : *correction) {
                        count(keyOf(entry.str(), band, txPower), content);
                    }
                }
            }
        }
    }
}

// Of an integer; one beyond is refused.
constexpr std::int64_t lowestInteger = -2147483648;
constexpr std::int64_t highestInteger = 2147483647;

// Whether what the driver's documentation has a file refused for is there; of the bands only the
// kinds of value are judged.
bool hasMistake(const toml::table &file)
{
    bool mistake = file.empty();
    for (const auto &[name, value] : file) {
        const Column kind = kindOf(value);
        switch (keyOf(name.str(), platform, bands)) {
        case platform:
            mistake = mistake || value.value_or(std::string()) != "default";
            break;
        case serial:
            mistake = mistake || kind != integerValue || **value.as_integer() != 1;
            break;
        case integers:
        case strings:
            mistake = mistake || kind != table;
            break;
        case bands:
            mistake = mistake || kind != list;
            break;
        default:
            mistake = true;
        }
    }
    if (const toml::table *const values = file["integers"].as_table()) {
        for (const auto &[name, value] : *values) {
            mistake = mistake || kindOf(value) != integerValue ||
                      **value.as_integer() < lowestInteger || **value.as_integer() > highestInteger;
        }
    }
    if (const toml::table *const values = file["strings"].as_table()) {
        for (const auto &[name, value] : *values) {
            mistake = mistake || kindOf(value) != text ||
                      (**value.as_string()).find('\0') != std::string::npos;
        }
    }
    return mistake;
}

// What the board says of what it has loaded.
void checkLoaded(RadioContext *context, const toml::table &file)
{
    if (const toml::table *const values = file["integers"].as_table()) {
        for (const auto &[name, value] : *values) {
            const std::string key(name.str());
            std::int32_t number = 0;
            const bool found =
                key.find('\0') != std::string::npos ||
                (radioGetIntegerFromCalibration(context, key.c_str(), &number) == RADIO_ESUCCESS &&
                 number == **value.as_integer());
            check(found, "another integer");
        }
    }
    if (const toml::table *const values = file["strings"].as_table()) {
        for (const auto &[name, value] : *values) {
            const std::string key(name.str());
            const char *string = nullptr;
            const bool found =
                key.find('\0') != std::string::npos ||
                (radioGetStringFromCalibration(context, key.c_str(), &string) == RADIO_ESUCCESS &&
                 **value.as_string() == string);
            check(found, "another text");
        }
    }
}

void checkAsBefore(RadioContext *context)
{
    std::int32_t number = 0;
    const char *string = nullptr;
    check(radioGetIntegerFromCalibration(context, "before", &number) == RADIO_ESUCCESS &&
              number == 4711,
          "the integers before are gone");
    check(radioGetStringFromCalibration(context, "before", &string) == RADIO_ESUCCESS &&
              std::strcmp(string, "text") == 0,
          "the texts before are gone");
}

} // namespace

void prepareTarget()
{
    unsetenv("SOREL_SIM_SCENARIO");
    unsetenv("SOREL_SIM_TRACE");
    unsetenv("SOREL_SIM_LOG");
    unsetenv("SOREL_SIM_LOG_LEVEL");
    keyCells = new Cells(
        "key", keyNames,
        {"integer", "float", "text", "boolean", "date", "list", "table", "taken", "refused"});
    keyCells->leaveOut(unknown, taken);
    ends = new Cells("end", {"of a file"}, {"taken", "no TOML", "mistake"});
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string input(data, data + size);
    const toml::parse_result file = toml::parse(input);
    radioSelectPlatform(RADIO_PLATFORM_DEFAULT); // calls of the input before have selected another
    beginStreams("");
    RadioContext *const context = radioOpen();
    radioInit(context, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7);
    check(radioLoadCalibrationFile(context, inputFile("integers.before = 4711\n"
                                                      "strings.before = \"text\"\n")) ==
              RADIO_ESUCCESS,
          "the first file is refused");
    radioSetDebugLevel(context, RADIO_DEBUG_ERROR);
    takeWritten();
    const RadioReturn status = radioLoadCalibrationFile(context, inputFile(input));
    const std::string complaint = takeWritten().err;
    radioSetDebugLevel(context, RADIO_DEBUG_NONE);
    if (status == RADIO_ESUCCESS) {
        check(complaint.empty(), "a complaint of a file that is taken");
        check(file && !hasMistake(file.table()), "a file that has to be refused");
        checkLoaded(context, file.table());
    } else {
        check(status == RADIO_EINVAL, "another status");
        check(complaint.rfind("libsorel: error: radioLoadCalibrationFile(", 0) == 0,
              "no complaint of a file that is refused");
        check(!file || hasMistake(file.table()) || file.table().contains("bands"),
              "a file that must not be refused");
        checkAsBefore(context);
    }
    // The corrections are part of what is measured.
    callFunctions(context, seedOf(input), 20);
    radioClose(context);
    endStreams();
    ends->count(0, status == RADIO_ESUCCESS ? isTaken : file ? otherMistake : noToml);
    if (file) {
        countKeys(file.table(), status == RADIO_ESUCCESS);
    }
    return 0;
}

// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fuzz/scenario/rules.h"

#include "driver/toml.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace
{

using Names = std::set<std::string>;

// What a value has to be. Numbers are of a range; texts of a list, where there is one.
struct Rule {
    std::string where; // "", "signals." or "faults."
    std::string key;
    std::set<ValueKind> kinds;
    double lowest = 0;
    double highest = 0;
    Names names = {};
    bool required = false;
};

constexpr double mostInteger = 9223372036854775807.0;
constexpr double most32 = 4294967295.0;

const std::vector<Rule> rules = {
    {"", "platform", {text}, 0, 0, {"default", "talwin", "merrik", "ostrav", "bellan"}},
    {"", "serial", {integerValue}, 0, most32},
    {"", "ambient", {integerValue, floatValue}, -55, 125},
    {"", "seed", {integerValue}, 0, mostInteger},
    {"", "clock", {text}, 0, 0, {"calls", "wall"}},
    {"", "lock_time", {integerValue, floatValue}, 0, 10},
    {"", "signals", {list}},
    {"", "registers", {table}},
    {"", "faults", {list}},
    {"signals.", "frequency", {integerValue}, 1, most32, {}, true},
    {"signals.", "bandwidth", {integerValue}, 0, most32},
    {"signals.", "power", {integerValue, floatValue}, -200, 30, {}, true},
    {"signals.", "antenna", {integerValue}, 1, 2},
    {"signals.", "start", {integerValue, floatValue}, 0, 1e9},
    {"signals.", "end", {integerValue, floatValue}, 0, 1e9},
    {"faults.", "function", {text}},
    {"faults.", "first", {integerValue}, 1, mostInteger},
    {"faults.", "calls", {integerValue}, 1, mostInteger},
    {"faults.", "probability", {integerValue, floatValue}, 0, 1},
    {"faults.",
     "status",
     {text},
     0,
     0,
     {"RADIO_EIO", "RADIO_ENOTSUP", "RADIO_EINVAL", "RADIO_EAGAIN", "RADIO_EERROR"}},
    {"faults.", "result", {text, integerValue}},
    {"faults.", "stuck", {integerValue}, 0, most32},
    {"faults.", "value", {integerValue}, -2147483648.0, most32},
    {"faults.", "synthesiser", {text}, 0, 0, {"transmit", "receive", "both"}},
    {"faults.", "temperature", {integerValue, floatValue}, -55, 200},
};

constexpr std::size_t mostElements = 64;

ValueKind kindOf(const toml::node &node)
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
        return instant;
    }
}

class Judge
{
public:
    Judgement judge(const toml::table &file)
    {
        judgement_.isToml = true;
        judgeTable("", file);
        judgeElements("signals", file);
        judgeElements("faults", file);
        if (const toml::table *const registers = file["registers"].as_table()) {
            for (const auto &[key, value] : *registers) {
                judgement_.keys.push_back({rules.size() + 1, kindOf(value)});
                refuseUnless(kindOf(value) == integerValue);
            }
        }
        judgement_.followsRealTime = file["clock"].value_or(std::string()) == "wall";
        // What the platform and the functions allow is not judged.
        judgement_.mustBeTaken = !judgement_.mustBeRefused && !unclear_ &&
                                 !file.contains("registers") && !file.contains("faults");
        return judgement_;
    }

private:
    void refuseUnless(bool condition)
    {
        judgement_.mustBeRefused = judgement_.mustBeRefused || !condition;
    }

    void judgeTable(const std::string &where, const toml::table &values)
    {
        for (const auto &[key, value] : values) {
            const std::string_view name = key.str();
            const auto rule = std::find_if(rules.begin(), rules.end(), [&](const Rule &candidate) {
                return candidate.where == where && candidate.key == name;
            });
            judgement_.keys.push_back(
                {static_cast<std::size_t>(rule - rules.begin()), kindOf(value)});
            refuseUnless(rule != rules.end());
            if (rule != rules.end()) {
                judgeValue(*rule, value);
            }
        }
        for (const Rule &rule : rules) {
            refuseUnless(rule.where != where || !rule.required || values.contains(rule.key));
        }
    }

    void judgeValue(const Rule &rule, const toml::node &value)
    {
        const ValueKind kind = kindOf(value);
        if (!rule.kinds.contains(kind)) {
            refuseUnless(false);
        } else if (kind == text && !rule.names.empty()) {
            refuseUnless(rule.names.contains(**value.as_string()));
        } else if (kind == floatValue || (kind == integerValue && rule.key != "result")) {
            // Not a number is in no range. Of the integers that no double holds none is near a
            // limit but that of the type.
            const double number = kind == floatValue ? **value.as_floating_point()
                                                     : static_cast<double>(**value.as_integer());
            refuseUnless(number >= rule.lowest && number <= rule.highest);
        }
    }

    void judgeElements(const std::string &name, const toml::table &file)
    {
        const toml::array *const elements = file[name].as_array();
        if (elements == nullptr) {
            return;
        }
        refuseUnless(elements->size() <= mostElements);
        for (const toml::node &element : *elements) {
            refuseUnless(element.is_table());
            if (const toml::table *const values = element.as_table()) {
                judgeTable(name + ".", *values);
                judgeTimes(*values);
            }
        }
    }

    // In billionths; what is about that near is not judged.
    void judgeTimes(const toml::table &signal)
    {
        const auto end = signal["end"].value<double>(); // none of an integer that no double holds
        const double start = signal["start"].value<double>().value_or(0);
        if (end && *end < start) {
            refuseUnless(false);
        } else if (end && !(*end > start + 1e-6)) {
            unclear_ = true;
        }
    }

    Judgement judgement_;
    bool unclear_ = false;
};

} // namespace

std::vector<std::string> keyRows()
{
    std::vector<std::string> rows;
    for (const Rule &rule : rules) {
        rows.push_back(rule.where + rule.key);
    }
    rows.emplace_back("an unknown key");
    rows.emplace_back("an address");
    return rows;
}

std::size_t unknownKeyRow()
{
    return rules.size();
}

Judgement judge(const std::string &scenario)
{
    const toml::parse_result file = toml::parse(scenario);
    return file ? Judge().judge(file.table()) : Judgement();
}

// SPDX-License-Identifier: LicenseRef-Proprietary
// The scenario of the process: that of the file which SOREL_SIM_SCENARIO names.
#include "scenario_file.h"

#include "faults.h"
#include "files.h"
#include "scenario_reading.h"
#include "trace/destination.h"

#include <cstdio>
#include <string_view>
#include <utility>

namespace sorel
{

namespace
{

constexpr std::size_t mostReported = 100;

struct Loaded {
    std::string text;         // of the file
    const Platform *selected; // for which it has been found right
    std::shared_ptr<const Scenario> scenario;
};

Loaded loaded;              // no scenario: nothing has been loaded
std::vector<Mistake> found; // and not reported yet

// Null where there is none.
const char *pathOfScenario()
{
    return setting("SOREL_SIM_SCENARIO");
}

// How many bytes the control character has that text begins with: one of ASCII, or U+0080 to U+009F
// in UTF-8. 0: it begins with none.
std::size_t controlLength(std::string_view text)
{
    const auto byte = static_cast<unsigned char>(text[0]);
    if (byte < 0x20 || byte == 0x7f)
        return 1;
    return byte == 0xc2 && text.size() > 1 && (text[1] & 0xe0) == 0x80 ? 2 : 0;
}

// Prints text, but nothing in it that a terminal would obey.
void put(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t length = controlLength(text);
        if (length == 0)
            std::fputc(text[0], stderr);
        for (const char character : text.substr(0, length))
            std::fprintf(stderr, "\\x%02x", static_cast<unsigned char>(character));
        text.remove_prefix(length == 0 ? 1 : length);
    }
}

void replace(Loaded other)
{
    loaded = std::move(other);
    startFaults(loaded.scenario);
}

// Null where path names no scenario file, with the mistakes.
std::shared_ptr<const Scenario> read(const char *path, const Platform &selected,
                                     std::vector<Mistake> &mistakes)
{
    std::string text;
    if (const Outcome outcome = readFile(path, text); isRefused(outcome)) {
        mistakes.push_back({0, 0, outcome.cause});
        return nullptr;
    }
    const bool isSame = loaded.scenario && text == loaded.text;
    if (isSame && &selected == loaded.selected)
        return loaded.scenario;
    const auto scenario = std::make_shared<Scenario>();
    mistakes = readScenario(text, selected, *scenario);
    if (!mistakes.empty())
        return nullptr;
    if (isSame) // on another platform: the faults go on
        loaded.selected = &selected;
    else
        replace({std::move(text), &selected, scenario});
    return loaded.scenario;
}

} // namespace

std::shared_ptr<const Scenario> loadScenario(const Platform &selected)
{
    found.clear();
    const char *const path = pathOfScenario();
    if (!path) {
        replace({});
        return std::make_shared<const Scenario>();
    }
    auto scenario = read(path, selected, found);
    if (!scenario)
        replace({});
    return scenario;
}

void reportScenario()
{
    const char *const path = pathOfScenario();
    for (std::size_t i = 0; path && i < found.size() && i < mostReported; ++i) {
        const Mistake &mistake = found[i];
        put(path);
        if (mistake.line != 0)
            std::fprintf(stderr, ":%u:%u", mistake.line, mistake.column);
        std::fputs(": ", stderr);
        put(mistake.text);
        std::fputc('\n', stderr);
    }
    if (path && found.size() > mostReported) {
        put(path);
        std::fprintf(stderr, ": %zu more mistakes\n", found.size() - mostReported);
    }
    found.clear();
}

const Scenario &presentScenario()
{
    static const Scenario none;
    return loaded.scenario ? *loaded.scenario : none;
}

} // namespace sorel

// SPDX-License-Identifier: LicenseRef-Proprietary
// Initialisation scripts: register writes, one a line.
#include "script.h"

#include "files.h"
#include "registers.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <vector>

namespace sorel
{

namespace
{

struct RegisterWrite {
    uint32_t address;
    uint32_t value;
    unsigned line;
};

// Takes the first word off text; empty at its end.
std::string_view takeWord(std::string_view &text)
{
    constexpr std::string_view blanks = " \t\r";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    const std::string_view word = text.substr(0, text.find_first_of(blanks));
    text.remove_prefix(word.size());
    return word;
}

// Decimal, or hexadecimal after 0x; a decimal number may be negative. True if word is a number of
// 32 bits, signed or unsigned, and nothing else.
bool parseNumber(std::string_view word, uint32_t &number)
{
    const bool isHexadecimal = word.starts_with("0x") || word.starts_with("0X");
    if (isHexadecimal)
        word.remove_prefix(2);
    int64_t parsed = 0;
    const char *const end = word.data() + word.size();
    const auto result = std::from_chars(word.data(), end, parsed, isHexadecimal ? 16 : 10);
    if (result.ec != std::errc() || result.ptr != end)
        return false;
    if (parsed < (isHexadecimal ? 0 : INT32_MIN) || parsed > UINT32_MAX)
        return false;
    number = static_cast<uint32_t>(parsed);
    return true;
}

// One line without its comment.
Outcome parseLine(std::string_view line, unsigned number, std::vector<RegisterWrite> &writes)
{
    const std::string_view command = takeWord(line);
    if (command.empty())
        return done();
    if (command != "write")
        return refused(RADIO_EINVAL, "not a command", number);
    RegisterWrite write = {0, 0, number};
    if (!parseNumber(takeWord(line), write.address) || !parseNumber(takeWord(line), write.value))
        return refused(RADIO_EINVAL, "not a 32-bit number", number);
    if (!takeWord(line).empty())
        return refused(RADIO_EINVAL, "more than an address and a value", number);
    writes.push_back(write);
    return done();
}

Outcome parse(std::string_view text, std::vector<RegisterWrite> &writes)
{
    for (unsigned number = 1; !text.empty(); ++number) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        const Outcome outcome = parseLine(line.substr(0, line.find('#')), number, writes);
        if (isRefused(outcome))
            return outcome;
    }
    return done();
}

} // namespace

Outcome setUpByScript(FrontEnd &frontEnd, const Platform &platform, RadioConf configuration,
                      RadioMode mode, RadioBand band, const char *path)
{
    if (!path)
        return refused(RADIO_EINVAL, "a null pointer");
    std::string text;
    if (const Outcome outcome = readFile(path, text); isRefused(outcome))
        return outcome;
    std::vector<RegisterWrite> writes;
    if (const Outcome outcome = parse(text, writes); isRefused(outcome))
        return outcome;

    FrontEnd changed = frontEnd;
    const Outcome setup = setUp(changed, platform, configuration, mode, band);
    if (isRefused(setup))
        return setup;
    for (const RegisterWrite &write : writes) {
        const Outcome outcome = writeRegister(changed, write.address, write.value);
        if (isRefused(outcome))
            return refused(outcome.status, outcome.cause, write.line);
    }
    frontEnd = changed;
    return setup;
}

} // namespace sorel

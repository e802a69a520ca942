// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fuzz/script/model.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace
{

// Each number of a script is at most that long before it is beyond every range.
constexpr std::size_t mostDigits = 24;

std::vector<std::string> wordsOf(std::string line)
{
    line.erase(std::min(line.find('#'), line.size()));
    std::vector<std::string> words(1);
    for (const char byte : line) {
        if (byte == ' ' || byte == '\t' || byte == '\r') {
            words.emplace_back();
        } else {
            words.back() += byte;
        }
    }
    std::erase(words, "");
    return words;
}

bool consistsOf(const std::string &text, const char *digits)
{
    return !text.empty() && text.find_first_not_of(digits) == std::string::npos;
}

std::optional<Mistake> readNumber(const std::string &word, std::uint32_t &number)
{
    const bool hexadecimal =
        word.size() > 2 && word[0] == '0' && (word[1] == 'x' || word[1] == 'X');
    const bool negative = word[0] == '-';
    std::string digits = word.substr(hexadecimal ? 2 : negative ? 1 : 0);
    if (!consistsOf(digits, hexadecimal ? "0123456789abcdefABCDEF" : "0123456789")) {
        return noNumber;
    }
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 1));
    if (digits.size() > mostDigits) {
        return beyondRange;
    }
    long double value = 0; // holds what has so many digits nearly enough
    for (const char digit : digits) {
        const int worth = digit <= '9' ? digit - '0' : (digit | 0x20) - 'a' + 10;
        value = value * (hexadecimal ? 16 : 10) + worth;
    }
    if (value > (negative ? 2147483648.0L : 4294967295.0L)) {
        return beyondRange;
    }
    const auto magnitude = static_cast<std::uint32_t>(value);
    number = negative ? 0U - magnitude : magnitude;
    return {};
}

class Reader
{
public:
    std::optional<Mistake> readLine(const std::vector<std::string> &words)
    {
        if (words[0] == "write") {
            return readAccess(words, write, 3);
        }
        if (words[0] == "check") {
            return readAccess(words, words.size() > 3 ? checkBits : check, 4);
        }
        return words[0] == "delay" ? readDelay(words) : noCommand;
    }

    std::vector<Step> steps;

private:
    std::optional<Mistake> readAccess(const std::vector<std::string> &words, Command command,
                                      std::size_t most)
    {
        Step step = {command};
        std::uint32_t *const numbers[] = {&step.address, &step.value, &step.mask};
        for (std::size_t i = 1; i < words.size() && i < most; ++i) {
            if (const auto mistake = readNumber(words[i], *numbers[i - 1])) {
                return mistake;
            }
        }
        if (words.size() < 3) {
            return missingWord;
        }
        steps.push_back(step);
        return words.size() > most ? std::optional(tooManyWords) : std::nullopt;
    }

    std::optional<Mistake> readDelay(const std::vector<std::string> &words)
    {
        static const std::map<std::string, std::uint64_t> units = {
            {"us", 1}, {"ms", 1000}, {"s", 1000000}};
        std::uint32_t count = 0;
        if (words.size() < 2) {
            return missingWord;
        }
        if (const auto mistake = readNumber(words[1], count)) {
            return mistake;
        }
        if (words.size() < 3) {
            return missingWord;
        }
        const auto unit = units.find(words[2]);
        if (unit == units.end()) {
            return noUnit;
        }
        delays_ += count * unit->second;
        if (delays_ > 10000000) {
            return tooLong;
        }
        steps.push_back({delay});
        return words.size() > 3 ? std::optional(tooManyWords) : std::nullopt;
    }

    std::uint64_t delays_ = 0; // in us
};

} // namespace

Script readScript(const std::string &text)
{
    Reader reader;
    Script script;
    std::istringstream lines(text);
    for (std::string line; !script.mistake && std::getline(lines, line);) {
        const std::vector<std::string> words = wordsOf(line);
        if (!words.empty()) {
            script.mistake = reader.readLine(words);
        }
    }
    script.steps = reader.steps;
    return script;
}

// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fuzz/prompt/model.h"

#include <algorithm>

namespace
{

constexpr std::size_t longestLine = 199; // with its newline

LineKind kindOf(const std::string &line, bool zero)
{
    const std::vector<std::string> words = {"\n", "exit\n", "quit\n", "exit()\n", "quit()\n"};
    const auto word = std::find(words.begin(), words.end(), line);
    if (word != words.end()) {
        return static_cast<LineKind>(word - words.begin());
    }
    if (line == "help\n") {
        return help;
    }
    std::string letters;
    for (const char byte : line) {
        if (byte >= 'a' && byte <= 'z') {
            letters += byte;
        } else if (byte >= 'A' && byte <= 'Z') {
            letters += static_cast<char>(byte - 'A' + 'a');
        }
    }
    if (line.size() < 10 && (letters == "exit" || letters == "quit")) {
        return nearlyExit;
    }
    if (zero) {
        return zeroByte;
    }
    if (line.size() == longestLine) {
        return longest;
    }
    const auto isHigh = [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; };
    const auto isControl = [](char byte) {
        return static_cast<unsigned char>(byte) < ' ' && byte != '\n';
    };
    if (std::any_of(line.begin(), line.end(), isHigh)) {
        return highBytes;
    }
    return std::any_of(line.begin(), line.end(), isControl) ? controlBytes : otherLine;
}

} // namespace

Session sessionOf(std::string_view input)
{
    Session session;
    while (!input.empty()) {
        const std::size_t ending = input.find_first_of(std::string_view("\n\0", 2));
        if (ending == std::string_view::npos) {
            break; // filled up with the end of the input
        }
        const bool zero = input[ending] == '\0';
        const std::string line(input.substr(0, ending + (zero ? 0 : 1)));
        if (line.size() > longestLine) {
            session.end = SessionEnd::longLine;
            return session;
        }
        input.remove_prefix(ending + 1);
        const LineKind kind = kindOf(line, zero);
        const bool word = kind >= exitLine && kind <= quitCallLine;
        const bool runs = !word && kind != emptyLine;
        session.lines.push_back({kind, !runs ? "" : kind == help ? "help()" : line});
        if (word) {
            session.end = SessionEnd::word;
            return session;
        }
    }
    session.end = input.size() >= longestLine + 1 ? SessionEnd::longLine : SessionEnd::endOfInput;
    return session;
}

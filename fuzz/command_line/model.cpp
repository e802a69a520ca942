// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fuzz/command_line/model.h"

#include <cstdlib>

namespace
{

enum class Takes { nothing, value, perhapsValue };

struct LongOption {
    std::string name;
    char key; // of the short option; a capital where there is none
    Takes takes;
    Spelling whole, wholeEquals, shortened, shortenedEquals;
};

const LongOption longOptions[] = {
    {"batch", 'b', Takes::value, longBatch, equalsBatch, shortenedBatch, shortenedEqualsBatch},
    {"command", 'c', Takes::value, longCommand, equalsCommand, shortenedCommand,
     shortenedEqualsCommand},
    {"interactive", 'i', Takes::nothing, longInteractive, valueForNone, shortenedInteractive,
     valueForNone},
    {"version", 'v', Takes::nothing, longVersion, valueForNone, shortenedVersion, valueForNone},
    {"help", '?', Takes::nothing, longHelp, valueForNone, shortenedHelp, valueForNone},
    {"usage", 'U', Takes::nothing, longUsage, valueForNone, shortenedUsage, valueForNone},
    {"program-name", 'P', Takes::value, programName, programName, programName, programName},
    {"HANG", 'H', Takes::perhapsValue, hang, hang, hang, hang},
};

class Reader
{
public:
    explicit Reader(const std::vector<std::string> &arguments) : arguments_(arguments)
    {
    }

    Expected read()
    {
        while (!done_ && next_ < arguments_.size()) {
            readArgument(arguments_[next_++]);
        }
        if (!done_ && (positionals_ > 0 || !consistent())) {
            finish(rejected);
        }
        return expected_;
    }

private:
    bool consistent() const
    {
        if (!expected_.command) {
            return true;
        }
        return !expected_.interactive && !expected_.batchFile;
    }

    void finish(Outcome outcome)
    {
        expected_.outcome = outcome;
        done_ = true;
    }

    void meet(Spelling spelling, std::optional<std::string> value = {})
    {
        expected_.met.push_back({spelling, std::move(value)});
    }

    void readArgument(const std::string &argument)
    {
        if (argument == "--") {
            meet(endOfOptions);
            for (; next_ < arguments_.size(); ++next_) {
                meet(positional, arguments_[next_]);
                ++positionals_;
            }
        } else if (argument.substr(0, 2) == "--") {
            readLong(argument.substr(2));
        } else if (argument.size() > 1 && argument[0] == '-') {
            readShort(argument.substr(1));
        } else {
            meet(argument == "-" ? single : positional, argument);
            ++positionals_; // judged once all options have been taken
        }
    }

    void readLong(const std::string &text)
    {
        const std::size_t equals = text.find('=');
        const std::string name = text.substr(0, equals);
        std::optional<std::string> value;
        if (equals != std::string::npos) {
            value = text.substr(equals + 1);
        }
        if (name.empty()) { // any would do
            meet(nameless, value);
            finish(rejected);
            return;
        }
        for (const LongOption &option : longOptions) {
            if (option.name.compare(0, name.size(), name) == 0) {
                takeLong(option, name == option.name, value);
                return;
            }
        }
        meet(unknownLong, value);
        finish(rejected);
    }

    void takeLong(const LongOption &option, bool whole, std::optional<std::string> value)
    {
        const bool equals = value.has_value();
        if (option.takes == Takes::nothing && equals) {
            meet(valueForNone, value);
            finish(rejected);
            return;
        }
        if (option.takes == Takes::value && !equals) {
            if (next_ == arguments_.size()) {
                meet(missingValue);
                finish(rejected);
                return;
            }
            value = arguments_[next_++];
        }
        meet(whole ? (equals ? option.wholeEquals : option.whole)
                   : (equals ? option.shortenedEquals : option.shortened),
             value);
        act(option.key, value);
    }

    void readShort(const std::string &letters)
    {
        for (std::size_t i = 0; i < letters.size() && !done_; ++i) {
            const char letter = letters[i];
            if (letter == 'b' || letter == 'c') {
                takeValue(letter, letters.substr(i + 1));
                return;
            }
            takeLetter(letter);
        }
    }

    void takeValue(char letter, const std::string &rest)
    {
        if (!rest.empty()) {
            meet(letter == 'b' ? joinedBatch : joinedCommand, rest);
            act(letter, rest);
        } else if (next_ < arguments_.size()) {
            meet(letter == 'b' ? shortBatch : shortCommand, arguments_[next_]);
            act(letter, arguments_[next_++]);
        } else {
            meet(missingValue);
            finish(rejected);
        }
    }

    void takeLetter(char letter)
    {
        switch (letter) {
        case 'i':
            meet(shortInteractive);
            break;
        case 'v':
            meet(shortVersion);
            break;
        case '?':
            meet(shortHelp);
            break;
        case 'V':
            meet(shortLibraryVersion);
            break;
        default:
            expected_.leftOut = expected_.leftOut || letter == '\xff';
            meet(unknownShort);
            finish(rejected);
            return;
        }
        act(letter, {});
    }

    void act(char key, const std::optional<std::string> &value)
    {
        switch (key) {
        case 'b':
            expected_.batchFile = value;
            expected_.interactive = false;
            break;
        case 'c':
            expected_.command = value;
            expected_.interactive = false;
            break;
        case 'i':
            expected_.interactive = true;
            break;
        case 'v':
            expected_.version = true;
            break;
        case 'H':
            expected_.leftOut = expected_.leftOut || !value || std::atoi(value->c_str()) > 0;
            break;
        case 'P':
            break;
        default:
            finish(answered);
        }
    }

    const std::vector<std::string> &arguments_;
    std::size_t next_ = 0;
    std::size_t positionals_ = 0;
    bool done_ = false;
    Expected expected_;
};

} // namespace

Expected expectedOf(const std::vector<std::string> &arguments)
{
    return Reader(arguments).read();
}

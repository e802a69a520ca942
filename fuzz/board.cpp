// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fuzz/board.h"

#include "fuzz/cells.h"
#include "fuzz/ending.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <random>
#include <sys/mman.h>
#include <type_traits>
#include <unistd.h>

namespace
{

Cells *functionCells; // null where the target has none
enum FunctionOutcome : std::size_t { succeeds, isRefused, reads };

const std::vector<std::string> functionNames = {
#define FUNCTION(name) #name,
#include "driver/functions.inc"
#undef FUNCTION
};

class Arguments
{
public:
    explicit Arguments(std::uint32_t seed) : engine_(seed)
    {
    }

    std::uint32_t number()
    {
        return static_cast<std::uint32_t>(engine_());
    }

    std::uint32_t word()
    {
        static constexpr std::uint32_t boundaries[] = {
            0,          1,          2,          3,          4,         5,     7,     8,     10,
            16,         18,         30,         0x10,       0x11,      0x23,  0x24,  0x25,  0x30,
            0x32,       0x40,       0x42,       0x44,       0x46,      76,    77,    240,   255,
            256,        257,        300,        2850,       20850,     32767, 32768, 65535, 65536,
            0x7fffffff, 0x80000000, 0xffffffff, 2535000000, 2655000000};
        const std::uint32_t choice = number() % 8;
        if (choice == 0) {
            return number();
        }
        return choice < 3 ? number() % 4 : boundaries[number() % std::size(boundaries)];
    }

    template <class Value>
    Value any()
    {
        if constexpr (std::is_same_v<Value, RadioContext *>) {
            return number() % 16 == 0 ? nullptr : context;
        } else if constexpr (std::is_same_v<Value, const char *>) {
            static constexpr const char *texts[] = {"", "crystal", "site", "/dev/null", "/"};
            return number() % 10 == 0 ? nullptr : texts[number() % std::size(texts)];
        } else if constexpr (std::is_same_v<Value, const std::uint32_t *>) {
            // As many as a table may have and some more; of longer ones none may be read.
            static constexpr std::array<std::uint32_t, 300> words = {1, 2, 3, 100};
            return number() % 10 == 0 ? nullptr : words.data();
        } else if constexpr (std::is_same_v<Value, FILE *>) {
            return nullptr;
        } else if constexpr (std::is_pointer_v<Value>) {
            static std::remove_pointer_t<Value> out;
            return number() % 10 == 0 ? nullptr : &out;
        } else if (number() % 3 == 0) {
            return static_cast<Value>(likely<Value>());
        } else {
            return static_cast<Value>(word());
        }
    }

    RadioContext *context = nullptr;

private:
    // What a board may well take: frequencies, channels, members of enumerations.
    template <class Value>
    std::uint32_t likely()
    {
        if constexpr (std::is_same_v<Value, std::uint32_t>) {
            return number() % 2 == 0 ? 2655000000U : number() % 2 == 0 ? 2535000000U : 0x10U;
        } else if constexpr (std::is_same_v<Value, std::uint16_t>) {
            return number() % 2 == 0 ? 2850 : 20850;
        } else {
            return number() % 3;
        }
    }

    std::mt19937 engine_;
};

void note(std::string &answers, RadioReturn status)
{
    if (status < RADIO_ESUCCESS || status > RADIO_EERROR) {
        failTarget("a status that is none");
    }
    answers += static_cast<char>('0' + status);
}

void note(std::string &answers, float reading)
{
    if (std::isinf(reading)) {
        failTarget("an infinite reading");
    }
    answers += std::isnan(reading) ? "nan" : std::to_string(reading);
}

void note(std::string &answers, std::int64_t reading)
{
    answers += std::to_string(reading);
}

void note(std::string &answers, const char *text)
{
    answers += text != nullptr ? text : "null";
}

void note(std::string &answers, char **list)
{
    answers += list != nullptr ? "list" : "null";
}

void count(std::size_t row, FunctionOutcome outcome)
{
    if (functionCells != nullptr) {
        functionCells->count(row, outcome);
    }
}

template <class Result, class... Parameters>
void call(std::size_t row, Result (*function)(Parameters...), Arguments &arguments,
          std::string &answers)
{
    // In braces, so that they are made in this order on every machine.
    const std::tuple<Parameters...> values = {arguments.any<Parameters>()...};
    const Result result = std::apply(function, values);
    answers += ' ';
    if constexpr (std::is_same_v<Result, RadioReturn>) {
        note(answers, result);
        count(row, result == RADIO_ESUCCESS ? succeeds : isRefused);
    } else {
        if constexpr (std::is_integral_v<Result>) {
            note(answers, static_cast<std::int64_t>(result));
        } else {
            note(answers, result);
        }
        count(row, reads);
    }
}

// Those that open and close are the target's.
void call(std::size_t, RadioContext *(*)(), Arguments &, std::string &)
{
}

void callNumber(std::size_t row, Arguments &arguments, std::string &answers)
{
    const std::string &name = functionNames[row];
    const bool rare = name == "radioReset" && arguments.number() % 8 != 0;
    if (name == "radioClose" || rare) {
        return;
    }
    // Every other one is right, for the other calls to get further.
    if (name == "radioInit" && arguments.number() % 2 == 0) {
        radioSelectPlatform(RADIO_PLATFORM_DEFAULT);
        const RadioReturn status = radioInit(arguments.context, RADIO_CONF_MIMO,
                                             RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7);
        note(answers, status);
        count(row, status == RADIO_ESUCCESS ? succeeds : isRefused);
        return;
    }
    std::size_t number = 0;
#define FUNCTION(name)                                                                             \
    if (number++ == row) {                                                                         \
        call(row, name, arguments, answers);                                                       \
    }
#include "driver/functions.inc"
#undef FUNCTION
}

template <class Result, class... Parameters>
constexpr bool hasStatus(Result (*)(Parameters...))
{
    return std::is_same_v<Result, RadioReturn>;
}

} // namespace

const char *inputFile(std::string_view content)
{
    static const int file = memfd_create("input", MFD_CLOEXEC);
    static const std::string path = "/proc/self/fd/" + std::to_string(file);
    if (ftruncate(file, 0) != 0 ||
        pwrite(file, content.data(), content.size(), 0) != static_cast<ssize_t>(content.size())) {
        failTarget("there is no file");
    }
    return path.c_str();
}

std::uint32_t seedOf(std::string_view input)
{
    std::uint32_t seed = 2166136261U; // FNV-1a
    for (const char byte : input) {
        seed = (seed ^ static_cast<unsigned char>(byte)) * std::uint64_t{16777619} & 0xffffffffU;
    }
    return seed;
}

void prepareFunctionCells()
{
    functionCells = new Cells("function", functionNames, {"succeeds", "refused", "reads"});
    std::size_t row = 0;
    const auto leaveOut = [&](const std::string &name, bool status) {
        const bool ours = name == "radioOpen" || name == "radioClose";
        for (const FunctionOutcome outcome : {succeeds, isRefused, reads}) {
            if (ours || status == (outcome == reads)) {
                functionCells->leaveOut(row, outcome);
            }
        }
        ++row;
    };
#define FUNCTION(name) leaveOut(#name, hasStatus(name));
#include "driver/functions.inc"
#undef FUNCTION
    for (std::size_t i = 0; i < functionNames.size(); ++i) {
        if (functionNames[i] == "radioInitByScript" ||
            functionNames[i] == "radioLoadCalibrationFile" ||
            functionNames[i] == "radioGetIntegerFromCalibration" ||
            functionNames[i] == "radioGetStringFromCalibration") {
            functionCells->leaveOut(i, succeeds); // no file is at hand
        }
    }
}

std::string callFunctions(RadioContext *context, std::uint32_t seed, int count)
{
    Arguments arguments(seed);
    arguments.context = context;
    std::string answers;
    for (int i = 0; i < count; ++i) {
        callNumber(arguments.number() % functionNames.size(), arguments, answers);
    }
    return answers;
}

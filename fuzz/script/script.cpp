// SPDX-License-Identifier: LicenseRef-Proprietary
// Initialisation scripts: an input is the script. One that does not parse is refused; one that
// writes to the scratch register only, and checks it, ends as the model has it; any other one
// succeeds, or changes nothing.
#include "fuzz/board.h"
#include "fuzz/cells.h"
#include "fuzz/ending.h"
#include "fuzz/script/model.h"
#include "fuzz/streams.h"
#include "fuzz/target.h"

#include <cstdlib>

namespace
{

constexpr std::uint32_t scratch = 0x10;
constexpr std::uint32_t setUp = 0x01;
constexpr std::uint32_t before = 0x12345678; // in the scratch register

Cells *commandCells;
enum Column : std::size_t { succeeds, invalid, failedCheck, notSupported, tryAgain };
Cells *mistakeCells;

void require(bool holds, const char *what)
{
    if (!holds) {
        failTarget(what);
    }
}

// The status of a script that touches the scratch register only, and what it leaves there.
struct Scratch {
    RadioReturn status = RADIO_ESUCCESS;
    std::uint32_t value = before;
};

std::optional<Scratch> runOnScratch(const Script &script)
{
    Scratch run;
    for (const Step &step : script.steps) {
        if (step.command == delay) {
            continue;
        }
        if (step.address != scratch) {
            return {};
        }
        if (step.command == write) {
            run.value = step.value;
        } else if (((run.value ^ step.value) & step.mask) != 0) {
            run.status = RADIO_EERROR;
            return run;
        }
    }
    return run;
}

Column columnOf(RadioReturn status)
{
    switch (status) {
    case RADIO_ESUCCESS:
        return succeeds;
    case RADIO_EINVAL:
        return invalid;
    case RADIO_EERROR:
        return failedCheck;
    case RADIO_ENOTSUP:
        return notSupported;
    case RADIO_EAGAIN:
        return tryAgain;
    default:
        failTarget("a status that no script has");
    }
}

void checkStatus(const Script &script, RadioReturn status, const std::string &complaint)
{
    const std::optional<Scratch> expected = runOnScratch(script);
    if (script.mistake) {
        require(status == RADIO_EINVAL, "a script that does not parse is not refused");
    } else if (expected) {
        require(status == expected->status, "another status");
    }
    require(complaint.empty() == (status == RADIO_ESUCCESS), "no complaint, or one without need");
    require(status == RADIO_ESUCCESS || complaint.find(" (line ") != std::string::npos,
            "no line is named");
}

} // namespace

void prepareTarget()
{
    unsetenv("SOREL_SIM_SCENARIO");
    unsetenv("SOREL_SIM_TRACE");
    unsetenv("SOREL_SIM_LOG");
    unsetenv("SOREL_SIM_LOG_LEVEL");
    commandCells = new Cells("command", {"write", "check", "check of bits", "delay"},
                             {"succeeds", "invalid", "fails", "read-only", "no lock"});
    mistakeCells = new Cells(
        "mistake", {"of a line"},
        {"no command", "too short", "no number", "range", "no unit", "over 10 s", "too many"});
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string input(data, data + size);
    const Script script = readScript(input);
    radioSelectPlatform(RADIO_PLATFORM_DEFAULT);
    beginStreams("");
    RadioContext *const context = radioOpen();
    radioSpiWrite(context, scratch, static_cast<std::int32_t>(before));
    radioSetDebugLevel(context, RADIO_DEBUG_ERROR);
    takeWritten();
    const RadioReturn status = radioInitByScript(
        context, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7, inputFile(input));
    const std::string complaint = takeWritten().err;
    radioSetDebugLevel(context, RADIO_DEBUG_NONE);
    checkStatus(script, status, complaint);
    if (status == RADIO_ESUCCESS) {
        require((radioSpiRead(context, setUp) & 1) == 1, "not set up");
        if (const std::optional<Scratch> expected = runOnScratch(script)) {
            require(radioSpiRead(context, scratch) == expected->value, "another value is written");
        }
    } else {
        require(radioSpiRead(context, setUp) == 0 && radioSpiRead(context, scratch) == before,
                "a refused script changes something");
    }
    callFunctions(context, seedOf(input), 20);
    radioClose(context);
    endStreams();
    for (const Step &step : script.steps) {
        commandCells->count(step.command, columnOf(status));
    }
    if (script.mistake) {
        mistakeCells->count(0, *script.mistake);
    }
    return 0;
}

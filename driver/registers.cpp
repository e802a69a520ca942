// SPDX-License-Identifier: LicenseRef-Proprietary
// The SPI register file: one row a register, or a row of registers of one kind.
#include "registers.h"

#include "enumerations.h"
#include "measurement.h"
#include "oscillator.h"
#include "receiver.h"
#include "synthesiser.h"
#include "transmitter.h"
#include "tuning.h"

namespace sorel
{

namespace
{

// index: which register of the row, counted from 0; where there is one a path, the path.
using Read = uint32_t (*)(FrontEnd &frontEnd, uint32_t index);
using Write = Outcome (*)(FrontEnd &frontEnd, uint32_t index, uint32_t value);

// Which platforms have the registers of a row.
enum class On {
    Every,
    EachPath, // every platform, one register for each of its antennas
    WithCpri,
};

struct Row {
    uint32_t first; // address
    uint32_t count; // registers in the row, at consecutive addresses
    On platforms;
    Read read;
    Write write; // null: read-only
};

constexpr Outcome notAValue = refused(RADIO_EINVAL, "the register cannot hold that value");

// Registers carry the 32 bits of a signed value.
uint32_t wordOf(int32_t value)
{
    return static_cast<uint32_t>(value);
}

bool fitsInt16(uint32_t value)
{
    const auto number = static_cast<int32_t>(value);
    return number >= INT16_MIN && number <= INT16_MAX;
}

int16_t int16Of(uint32_t word)
{
    return static_cast<int16_t>(word & 0xffff);
}

// ---- Identity and state ----

uint32_t readIdentity(FrontEnd &frontEnd, uint32_t)
{
    constexpr uint32_t family = 0x534f5200;
    return family | wordOf(frontEnd.platform->platform);
}

uint32_t readSetup(FrontEnd &frontEnd, uint32_t)
{
    const Setup &setup = frontEnd.setup;
    if (!setup.mode)
        return 0;
    return 1 | wordOf(setup.configuration) << 8 | wordOf(setup.mode->mode) << 16 |
           wordOf(setup.band) << 24;
}

uint32_t readLink(FrontEnd &frontEnd, uint32_t)
{
    return wordOf(frontEnd.cpriRate);
}

uint32_t readTemperature(FrontEnd &frontEnd, uint32_t)
{
    return wordOf(temperatureReading(frontEnd));
}

uint32_t readSelected(FrontEnd &frontEnd, uint32_t)
{
    return wordOf(frontEnd.selected);
}

uint32_t readEvents(FrontEnd &frontEnd, uint32_t)
{
    return frontEnd.events;
}

// Each bit that is written as one is cleared.
Outcome clearEvents(FrontEnd &frontEnd, uint32_t, uint32_t value)
{
    frontEnd.events &= ~value;
    return done();
}

uint32_t readSerial(FrontEnd &frontEnd, uint32_t)
{
    return frontEnd.scenario->serial;
}

uint32_t readInterfaces(FrontEnd &frontEnd, uint32_t)
{
    return frontEnd.platform->interfaces;
}

uint32_t readScratch(FrontEnd &frontEnd, uint32_t)
{
    return frontEnd.scratch;
}

Outcome writeScratch(FrontEnd &frontEnd, uint32_t, uint32_t value)
{
    frontEnd.scratch = value;
    return done();
}

uint32_t readDac(FrontEnd &frontEnd, uint32_t)
{
    return frontEnd.oscillatorDac;
}

Outcome writeDac(FrontEnd &frontEnd, uint32_t, uint32_t value)
{
    return value <= UINT16_MAX ? setOscillatorDac(frontEnd, static_cast<uint16_t>(value))
                               : notAValue;
}

// ---- Synthesisers ----

uint32_t readTxFrequency(FrontEnd &frontEnd, uint32_t)
{
    return actualFrequency(frontEnd, frontEnd.setup.txSynthesiser);
}

uint32_t readRxFrequency(FrontEnd &frontEnd, uint32_t)
{
    return actualFrequency(frontEnd, frontEnd.setup.rxSynthesiser);
}

uint32_t readLocks(FrontEnd &frontEnd, uint32_t)
{
    if (!frontEnd.setup.mode)
        return 0;
    return (isTxLocked(frontEnd) ? 1U : 0U) | (isRxLocked(frontEnd) ? 2U : 0U);
}

uint32_t readTxInteger(FrontEnd &frontEnd, uint32_t)
{
    return frontEnd.setup.txSynthesiser.integerWord;
}

uint32_t readRxInteger(FrontEnd &frontEnd, uint32_t)
{
    return frontEnd.setup.rxSynthesiser.integerWord;
}

uint32_t readTxFraction(FrontEnd &frontEnd, uint32_t)
{
    return fractionWord(*frontEnd.platform, frontEnd.setup.txSynthesiser);
}

uint32_t readRxFraction(FrontEnd &frontEnd, uint32_t)
{
    return fractionWord(*frontEnd.platform, frontEnd.setup.rxSynthesiser);
}

// An integer word waits for its fraction.
Outcome writeInteger(const FrontEnd &frontEnd, Synthesiser &synthesiser, uint32_t value)
{
    if (const Outcome outcome = requireSetup(frontEnd); isRefused(outcome))
        return outcome;
    synthesiser.integerWord = value;
    return done();
}

Outcome writeTxInteger(FrontEnd &frontEnd, uint32_t, uint32_t value)
{
    return writeInteger(frontEnd, frontEnd.setup.txSynthesiser, value);
}

Outcome writeRxInteger(FrontEnd &frontEnd, uint32_t, uint32_t value)
{
    return writeInteger(frontEnd, frontEnd.setup.rxSynthesiser, value);
}

Outcome writeTxFraction(FrontEnd &frontEnd, uint32_t, uint32_t value)
{
    return tuneTransmittersByWords(frontEnd, frontEnd.setup.txSynthesiser.integerWord, value);
}

Outcome writeRxFraction(FrontEnd &frontEnd, uint32_t, uint32_t value)
{
    return tuneReceiversByWords(frontEnd, frontEnd.setup.rxSynthesiser.integerWord, value);
}

uint32_t readLoopback(FrontEnd &frontEnd, uint32_t)
{
    return wordOf(frontEnd.setup.loopback);
}

Outcome writeLoopback(FrontEnd &frontEnd, uint32_t, uint32_t value)
{
    const auto loopback = static_cast<RadioLoopback>(value);
    return isMember(loopback) ? setLoopback(frontEnd, loopback) : notAValue;
}

// ---- Transmitters ----

uint32_t readTxState(FrontEnd &frontEnd, uint32_t path)
{
    return wordOf(frontEnd.setup.transmitters[path].state);
}

Outcome writeTxState(FrontEnd &frontEnd, uint32_t path, uint32_t value)
{
    const auto state = static_cast<RadioState>(value);
    return isMember(state) ? switchTransmitter(frontEnd, static_cast<RadioTxAntenna>(path), state)
                           : notAValue;
}

uint32_t readTxMaxPower(FrontEnd &frontEnd, uint32_t path)
{
    return wordOf(frontEnd.setup.transmitters[path].maxPower);
}

Outcome writeTxMaxPower(FrontEnd &frontEnd, uint32_t path, uint32_t value)
{
    return fitsInt16(value)
               ? limitTransmitter(frontEnd, static_cast<RadioTxAntenna>(path), int16Of(value))
               : notAValue;
}

uint32_t readTxDcOffset(FrontEnd &frontEnd, uint32_t path)
{
    const Transmitter &transmitter = frontEnd.setup.transmitters[path];
    return (wordOf(transmitter.inPhaseOffset) & 0xffff) | wordOf(transmitter.quadratureOffset)
                                                              << 16;
}

Outcome writeTxDcOffset(FrontEnd &frontEnd, uint32_t path, uint32_t value)
{
    return setTransmitterOffset(frontEnd, static_cast<RadioTxAntenna>(path), int16Of(value),
                                int16Of(value >> 16));
}

uint32_t readTxPower(FrontEnd &frontEnd, uint32_t path)
{
    int32_t power = INT32_MIN;
    measureTransmitter(frontEnd, static_cast<int>(path), power);
    return wordOf(power);
}

uint32_t readTxLeakage(FrontEnd &frontEnd, uint32_t path)
{
    const bool exists = !isRefused(requirePath(frontEnd, static_cast<int>(path)));
    return wordOf(exists ? carrierLeakage(frontEnd, static_cast<int>(path)) : INT32_MIN);
}

// ---- Receivers ----

uint32_t readRxState(FrontEnd &frontEnd, uint32_t path)
{
    return wordOf(frontEnd.setup.receivers[path].state);
}

Outcome writeRxState(FrontEnd &frontEnd, uint32_t path, uint32_t value)
{
    const auto state = static_cast<RadioState>(value);
    return isMember(state) ? switchReceiver(frontEnd, static_cast<RadioRxAntenna>(path), state)
                           : notAValue;
}

uint32_t readRxGain(FrontEnd &frontEnd, uint32_t path)
{
    const bool exists = !isRefused(requirePath(frontEnd, static_cast<int>(path)));
    return wordOf(exists ? presentGain(frontEnd, static_cast<int>(path)) : INT32_MIN);
}

Outcome writeRxGain(FrontEnd &frontEnd, uint32_t path, uint32_t value)
{
    return fitsInt16(value)
               ? setGainOfReceiver(frontEnd, static_cast<RadioRxAntenna>(path), int16Of(value))
               : notAValue;
}

uint32_t readRxGainMode(FrontEnd &frontEnd, uint32_t path)
{
    return wordOf(frontEnd.setup.receivers[path].gainMode);
}

Outcome writeRxGainMode(FrontEnd &frontEnd, uint32_t path, uint32_t value)
{
    const auto mode = static_cast<RadioRxGainMode>(value);
    return isMember(mode) ? setGainModeOfReceiver(frontEnd, static_cast<RadioRxAntenna>(path), mode)
                          : notAValue;
}

uint32_t readRxRtwp(FrontEnd &frontEnd, uint32_t path)
{
    int32_t power = INT32_MIN;
    measureReceiver(frontEnd, static_cast<RadioRxAntenna>(path), power);
    return wordOf(power);
}

uint32_t readRxStep(FrontEnd &frontEnd, uint32_t path)
{
    return wordOf(frontEnd.setup.receivers[path].step);
}

// ---- Tables ----

uint32_t readGainTable(FrontEnd &frontEnd, uint32_t index)
{
    return frontEnd.setup.gainTable.words[index];
}

uint32_t readGainTableCount(FrontEnd &frontEnd, uint32_t)
{
    return frontEnd.setup.gainTable.count;
}

uint32_t readPowerTable(FrontEnd &frontEnd, uint32_t index)
{
    return frontEnd.setup.powerTable.words[index];
}

uint32_t readPowerTableCount(FrontEnd &frontEnd, uint32_t)
{
    return frontEnd.setup.powerTable.count;
}

// ---- The map ----

// clang-format off

const Row rows[] = {
    {0x000, 1,             On::Every,    readIdentity,        nullptr},
    {0x001, 1,             On::Every,    readSetup,           nullptr},
    {0x002, 1,             On::WithCpri, readLink,            nullptr},
    {0x003, 1,             On::Every,    readTemperature,     nullptr},
    {0x004, 1,             On::Every,    readSelected,        nullptr},
    {0x005, 1,             On::Every,    readEvents,          clearEvents},
    {0x006, 1,             On::Every,    readSerial,          nullptr},
    {0x007, 1,             On::Every,    readInterfaces,      nullptr},
    {0x010, 1,             On::Every,    readScratch,         writeScratch},
    {0x011, 1,             On::Every,    readDac,             writeDac},
    {0x020, 1,             On::Every,    readTxFrequency,     nullptr},
    {0x021, 1,             On::Every,    readRxFrequency,     nullptr},
    {0x022, 1,             On::Every,    readLoopback,        writeLoopback},
    {0x023, 1,             On::Every,    readLocks,           nullptr},
    {0x024, 1,             On::Every,    readTxInteger,       writeTxInteger},
    {0x025, 1,             On::Every,    readTxFraction,      writeTxFraction},
    {0x026, 1,             On::Every,    readRxInteger,       writeRxInteger},
    {0x027, 1,             On::Every,    readRxFraction,      writeRxFraction},
    {0x030, 2,             On::EachPath, readTxState,         writeTxState},
    {0x032, 2,             On::EachPath, readTxMaxPower,      writeTxMaxPower},
    {0x034, 2,             On::EachPath, readTxDcOffset,      writeTxDcOffset},
    {0x036, 2,             On::EachPath, readTxPower,         nullptr},
    {0x038, 2,             On::EachPath, readTxLeakage,       nullptr},
    {0x040, 2,             On::EachPath, readRxState,         writeRxState},
    {0x042, 2,             On::EachPath, readRxGain,          writeRxGain},
    {0x044, 2,             On::EachPath, readRxGainMode,      writeRxGainMode},
    {0x046, 2,             On::EachPath, readRxRtwp,          nullptr},
    {0x048, 2,             On::EachPath, readRxStep,          nullptr},
    {0x0fe, 1,             On::Every,    readGainTableCount,  nullptr},
    {0x0ff, 1,             On::Every,    readPowerTableCount, nullptr},
    {0x100, tableCapacity, On::Every,    readGainTable,       nullptr},
    {0x200, tableCapacity, On::Every,    readPowerTable,      nullptr},
};

// clang-format on

uint32_t countOn(const Platform &platform, const Row &row)
{
    switch (row.platforms) {
    case On::Every:
        break;
    case On::EachPath:
        return static_cast<uint32_t>(platform.antennas);
    case On::WithCpri:
        return platform.cpriRates != 0 ? row.count : 0;
    }
    return row.count;
}

const Row *rowAt(const Platform &platform, uint32_t address)
{
    for (const Row &row : rows)
        if (address >= row.first && address - row.first < countOn(platform, row))
            return &row;
    return nullptr;
}

constexpr const char *nothingThere = "the platform has no register at that address";
constexpr const char *readOnly = "the register is read-only";
constexpr Outcome noRegister = refused(RADIO_EINVAL, nothingThere);

} // namespace

Outcome readRegister(FrontEnd &frontEnd, uint32_t address, uint32_t &value)
{
    const Row *const row = rowAt(*frontEnd.platform, address);
    if (!row)
        return noRegister;
    const StuckRegister *const stuck = stuckAt(frontEnd.conditions, address);
    value = stuck ? stuck->value : row->read(frontEnd, address - row->first);
    return done();
}

Outcome writeRegister(FrontEnd &frontEnd, uint32_t address, uint32_t value)
{
    const Row *const row = rowAt(*frontEnd.platform, address);
    if (!row)
        return noRegister;
    if (!row->write)
        return refused(RADIO_ENOTSUP, readOnly);
    if (stuckAt(frontEnd.conditions, address))
        return done();
    return row->write(frontEnd, address - row->first, value);
}

const char *whyNotWritable(const Platform &platform, uint32_t address)
{
    const Row *const row = rowAt(platform, address);
    if (!row)
        return nothingThere;
    return row->write ? nullptr : readOnly;
}

} // namespace sorel

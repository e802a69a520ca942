// SPDX-License-Identifier: LicenseRef-Proprietary
// The SPI register file: one row a register, or a row of registers of one kind.
#include "registers.h"

#include "enumerations.h"
#include "measurement.h"
#include "oscillator.h"
#include "receiver.h"
#include "transmitter.h"

namespace sorel
{

namespace
{

// index: which register of the row, counted from 0; where there is one a path, the path.
using Read = uint32_t (*)(const FrontEnd &frontEnd, uint32_t index);
using Write = Outcome (*)(FrontEnd &frontEnd, uint32_t index, uint32_t value);

struct Row {
    uint32_t first; // address
    uint32_t count; // registers in the row, at consecutive addresses
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

uint32_t readIdentity(const FrontEnd &frontEnd, uint32_t)
{
    constexpr uint32_t family = 0x534f5200;
    return family | wordOf(frontEnd.platform->platform);
}

uint32_t readSetup(const FrontEnd &frontEnd, uint32_t)
{
    const Setup &setup = frontEnd.setup;
    if (!setup.mode)
        return 0;
    return 1 | wordOf(setup.configuration) << 8 | wordOf(setup.mode->mode) << 16 |
           wordOf(setup.band) << 24;
}

uint32_t readLink(const FrontEnd &frontEnd, uint32_t)
{
    return wordOf(frontEnd.cpriRate);
}

uint32_t readTemperature(const FrontEnd &frontEnd, uint32_t)
{
    return wordOf(temperatureReading(frontEnd));
}

uint32_t readSelected(const FrontEnd &frontEnd, uint32_t)
{
    return wordOf(frontEnd.selected);
}

uint32_t readScratch(const FrontEnd &frontEnd, uint32_t)
{
    return frontEnd.scratch;
}

Outcome writeScratch(FrontEnd &frontEnd, uint32_t, uint32_t value)
{
    frontEnd.scratch = value;
    return done();
}

uint32_t readDac(const FrontEnd &frontEnd, uint32_t)
{
    return frontEnd.oscillatorDac;
}

Outcome writeDac(FrontEnd &frontEnd, uint32_t, uint32_t value)
{
    return value <= UINT16_MAX ? setOscillatorDac(frontEnd, static_cast<uint16_t>(value))
                               : notAValue;
}

uint32_t readTxFrequency(const FrontEnd &frontEnd, uint32_t)
{
    return frontEnd.setup.txFrequency;
}

uint32_t readRxFrequency(const FrontEnd &frontEnd, uint32_t)
{
    return frontEnd.setup.rxFrequency;
}

uint32_t readLoopback(const FrontEnd &frontEnd, uint32_t)
{
    return wordOf(frontEnd.setup.loopback);
}

Outcome writeLoopback(FrontEnd &frontEnd, uint32_t, uint32_t value)
{
    const auto loopback = static_cast<RadioLoopback>(value);
    return isMember(loopback) ? setLoopback(frontEnd, loopback) : notAValue;
}

// ---- Transmitters ----

uint32_t readTxState(const FrontEnd &frontEnd, uint32_t path)
{
    return wordOf(frontEnd.setup.transmitters[path].state);
}

Outcome writeTxState(FrontEnd &frontEnd, uint32_t path, uint32_t value)
{
    const auto state = static_cast<RadioState>(value);
    return isMember(state) ? switchTransmitter(frontEnd, static_cast<RadioTxAntenna>(path), state)
                           : notAValue;
}

uint32_t readTxMaxPower(const FrontEnd &frontEnd, uint32_t path)
{
    return wordOf(frontEnd.setup.transmitters[path].maxPower);
}

Outcome writeTxMaxPower(FrontEnd &frontEnd, uint32_t path, uint32_t value)
{
    return fitsInt16(value)
               ? limitTransmitter(frontEnd, static_cast<RadioTxAntenna>(path), int16Of(value))
               : notAValue;
}

uint32_t readTxDcOffset(const FrontEnd &frontEnd, uint32_t path)
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

// ---- Receivers ----

uint32_t readRxState(const FrontEnd &frontEnd, uint32_t path)
{
    return wordOf(frontEnd.setup.receivers[path].state);
}

Outcome writeRxState(FrontEnd &frontEnd, uint32_t path, uint32_t value)
{
    const auto state = static_cast<RadioState>(value);
    return isMember(state) ? switchReceiver(frontEnd, static_cast<RadioRxAntenna>(path), state)
                           : notAValue;
}

uint32_t readRxGain(const FrontEnd &frontEnd, uint32_t path)
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

uint32_t readRxGainMode(const FrontEnd &frontEnd, uint32_t path)
{
    return wordOf(frontEnd.setup.receivers[path].gainMode);
}

Outcome writeRxGainMode(FrontEnd &frontEnd, uint32_t path, uint32_t value)
{
    const auto mode = static_cast<RadioRxGainMode>(value);
    return isMember(mode) ? setGainModeOfReceiver(frontEnd, static_cast<RadioRxAntenna>(path), mode)
                          : notAValue;
}

uint32_t readRxRtwp(const FrontEnd &frontEnd, uint32_t path)
{
    int32_t power = INT32_MIN;
    measureReceiver(frontEnd, static_cast<RadioRxAntenna>(path), power);
    return wordOf(power);
}

// ---- Tables ----

uint32_t readGainTable(const FrontEnd &frontEnd, uint32_t index)
{
    return frontEnd.setup.gainTable.words[index];
}

uint32_t readGainTableCount(const FrontEnd &frontEnd, uint32_t)
{
    return frontEnd.setup.gainTable.count;
}

uint32_t readPowerTable(const FrontEnd &frontEnd, uint32_t index)
{
    return frontEnd.setup.powerTable.words[index];
}

uint32_t readPowerTableCount(const FrontEnd &frontEnd, uint32_t)
{
    return frontEnd.setup.powerTable.count;
}

// ---- The map ----

// clang-format off

const Row rows[] = {
    {0x000, 1,             readIdentity,        nullptr},
    {0x001, 1,             readSetup,           nullptr},
    {0x002, 1,             readLink,            nullptr},
    {0x003, 1,             readTemperature,     nullptr},
    {0x004, 1,             readSelected,        nullptr},
    {0x010, 1,             readScratch,         writeScratch},
    {0x011, 1,             readDac,             writeDac},
    {0x020, 1,             readTxFrequency,     nullptr},
    {0x021, 1,             readRxFrequency,     nullptr},
    {0x022, 1,             readLoopback,        writeLoopback},
    {0x030, 2,             readTxState,         writeTxState},
    {0x032, 2,             readTxMaxPower,      writeTxMaxPower},
    {0x034, 2,             readTxDcOffset,      writeTxDcOffset},
    {0x040, 2,             readRxState,         writeRxState},
    {0x042, 2,             readRxGain,          writeRxGain},
    {0x044, 2,             readRxGainMode,      writeRxGainMode},
    {0x046, 2,             readRxRtwp,          nullptr},
    {0x0fe, 1,             readGainTableCount,  nullptr},
    {0x0ff, 1,             readPowerTableCount, nullptr},
    {0x100, tableCapacity, readGainTable,       nullptr},
    {0x200, tableCapacity, readPowerTable,      nullptr},
};

// clang-format on

const Row *rowAt(uint32_t address)
{
    for (const Row &row : rows)
        if (address >= row.first && address - row.first < row.count)
            return &row;
    return nullptr;
}

constexpr const char *nothingThere = "there is no register at that address";
constexpr const char *readOnly = "the register is read-only";
constexpr Outcome noRegister = refused(RADIO_EINVAL, nothingThere);

} // namespace

Outcome readRegister(const FrontEnd &frontEnd, uint32_t address, uint32_t &value)
{
    const Row *const row = rowAt(address);
    if (!row)
        return noRegister;
    value = row->read(frontEnd, address - row->first);
    return done();
}

Outcome writeRegister(FrontEnd &frontEnd, uint32_t address, uint32_t value)
{
    const Row *const row = rowAt(address);
    if (!row)
        return noRegister;
    if (!row->write)
        return refused(RADIO_ENOTSUP, readOnly);
    return row->write(frontEnd, address - row->first, value);
}

const char *whyNotWritable(const Platform &, uint32_t address)
{
    const Row *const row = rowAt(address);
    if (!row)
        return nothingThere;
    return row->write ? nullptr : readOnly;
}

} // namespace sorel

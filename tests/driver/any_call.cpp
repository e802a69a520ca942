// SPDX-License-Identifier: LicenseRef-Proprietary
// Calls of every function with any arguments, valid and invalid, from a seed.
#include "any_call.h"

#include <array>

namespace sorel_tests
{

uint32_t AnyCallTest::anyWord()
{
    static const auto boundaries = std::to_array<int64_t>(
        {0,          1,    2,     3,          4,          5,           7,          8,
         10,         16,   17,    18,         25,         38,          45,         255,
         256,        257,  -1,    -2,         32767,      32768,       -32768,     65535,
         65536,      2850, 20850, 2147483647, 2147483648, -2147483648, 4294967295, 2655000000,
         2535000000, 76,   77,    240,        0x05,       0x10,        0x11,       0x22,
         0x24,       0x25, 0x26,  0x27,       0x30,       0x31,        0x32,       0x34,
         0x40,       0x42, 0x43,  0x44,       66,         15000000});
    const uint32_t choice = randomNumber();
    if (choice % 4 == 0)
        return randomNumber();
    if (choice % 4 == 1)
        return choice / 4 % 4;
    const int64_t value = boundaries[choice / 4 % boundaries.size()];
    return static_cast<uint32_t>(value & 0xffffffff);
}

const char *AnyCallTest::anyText()
{
    static const std::string loop(3000, 'x');
    const std::array<const char *, 7> texts = {nullptr,
                                               "",
                                               "serial",
                                               "site",
                                               SOREL_DATA_DIR "/good.toml",
                                               SOREL_DATA_DIR "/good.script",
                                               loop.c_str()};
    return texts[randomNumber() % texts.size()];
}

const uint32_t *AnyCallTest::anyWords(uint32_t &count)
{
    static const std::array<uint32_t, 300> words = {1, 2, 3};
    count = any<uint32_t>();
    return count <= words.size() && count % 2 == 0 ? words.data() : nullptr;
}

RadioContext *AnyCallTest::anyContext()
{
    const uint32_t choice = randomNumber() % 100;
    if (choice == 0)
        return nullptr;
    if (choice == 1)
        return reinterpret_cast<RadioContext *>(uintptr_t{any<uint32_t>()});
    return choice == 2 && closed ? closed : context;
}

RadioReturn AnyCallTest::call(int function, RadioContext *c)
{
    uint32_t count = 0;
    int32_t integer = 0;
    const char *text = nullptr;
    const uint32_t *words = nullptr;
    const RadioReturn done = RADIO_ESUCCESS;
    switch (function) {
    case 0:
        return radioSelectPlatform(any<RadioPlatformSelectIndex>());
    case 1: // closed now and then only, for the states to grow
        if (randomNumber() % 8 != 0)
            return done;
        closed = context;
        EXPECT_EQ(radioClose(context), RADIO_ESUCCESS);
        context = radioOpen();
        EXPECT_NE(context, nullptr);
        return done;
    case 2:
        return radioClose(closed);
    case 3:
        return radioSelect(c, any<RadioSelectIndex>());
    case 4: // every other one a right one, for the other calls to get further
        if (randomNumber() % 2 == 0) {
            radioSelectPlatform(RADIO_PLATFORM_DEFAULT);
            return radioInit(c, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7);
        }
        return radioInit(c, any<RadioConf>(), any<RadioMode>(), any<RadioBand>());
    case 5:
        return radioInitByScript(c, any<RadioConf>(), RADIO_MODE_4GENODEB_FDD_20MHZ,
                                 randomNumber() % 2 ? RADIO_BAND_7 : any<RadioBand>(), anyText());
    case 6:
        return radioCpriInit(c, any<RadioCpriRate>());
    case 7:
        return randomNumber() % 8 == 0 ? radioReset(c) : done;
    case 8:
        return radioLoadCalibrationFile(c, anyText());
    case 9:
        return radioGetIntegerFromCalibration(c, anyText(),
                                              randomNumber() % 4 ? &integer : nullptr);
    case 10:
        return radioGetStringFromCalibration(c, anyText(), randomNumber() % 4 ? &text : nullptr);
    case 11:
        return radioGetPlatformChipCount(c), done;
    case 12:
        return radioGetPlatformName(c), done;
    case 13:
        return radioVersion(c), done;
    case 14:
        return radioGetDriverNames(c), done;
    case 15:
        return radioSetTxFrequency(c, any<uint32_t>());
    case 16:
        return radioSetTxChannel(c, any<uint16_t>());
    case 17:
        return radioSetTxState(c, any<RadioState>());
    case 18:
        return radioSetTxStateOfAntenna(c, any<RadioTxAntenna>(), any<RadioState>());
    case 19:
        return radioSetTxMaxPower(c, any<int16_t>());
    case 20:
        return radioSetTxMaxPowerOfAntenna(c, any<RadioTxAntenna>(), any<int16_t>());
    case 21:
        return radioSetTxDcOffset(c, any<RadioTxAntenna>(), any<int16_t>(), any<int16_t>());
    case 22:
        words = anyWords(count);
        return radioSetTxPowerRegisters(c, words, count);
    case 23:
        return radioSetRxFrequency(c, any<uint32_t>());
    case 24:
        return radioSetRxChannel(c, any<uint16_t>());
    case 25:
        return radioSetRxState(c, any<RadioState>());
    case 26:
        return radioSetRxStateOfAntenna(c, any<RadioRxAntenna>(), any<RadioState>());
    case 27:
        return radioSetRxGain(c, any<int16_t>());
    case 28:
        return radioSetRxGainMode(c, any<RadioRxGainMode>());
    case 29:
        words = anyWords(count);
        return radioSetRxGainRegisters(c, words, count);
    case 30:
        return radioSetLoopback(c, any<RadioLoopback>());
    case 31:
        return radioGetTemperature(c), done;
    case 32:
        return radioGetRxRtwp(c), done;
    case 33:
        return radioGetRxRtwpIndBm(c), done;
    case 34:
        return radioGetRxRtwpOfAntenna(c, any<RadioRxAntenna>()), done;
    case 35:
        return radioGetRxRtwpOfAntennaIndBm(c, any<RadioRxAntenna>()), done;
    case 36:
        return radioGetRxGainIndB(c), done;
    case 37:
        return radioGetRxGainOfAntennaIndB(c, any<RadioRxAntenna>()), done;
    case 38:
        return radioSpiRead(c, any<uint32_t>()), done;
    case 39:
        return radioSpiWrite(c, any<uint32_t>(), any<int32_t>());
    case 40:
        return radioSetOscillatorDacValue(c, any<uint16_t>());
    case 41:
        return radioGetOscillatorDacValue(c), done;
    case 42:
        return radioGetOscillatorDacWidth(c), done;
    case 43:
        return radioGetDebugLevel(c), done;
    case 44: // no messages on the terminal
        return radioSetDebugLevel(nullptr, any<RadioDebug>());
    default:
        return radioSetDebugFile(c, nullptr);
    }
}

} // namespace sorel_tests

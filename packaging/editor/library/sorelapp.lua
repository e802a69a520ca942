---@meta _
-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Made by ./dev reference; what is changed here is lost.

---Selects the hardware platform of this process. The selection holds for what radioOpen opens
---later, and for the open radio from its next radioInit or radioInitByScript on.
---
---Errors:
---* "radioSelectPlatform() did not return success" for
---  * RADIO_EINVAL: no such platform
---
---```lua
---radioSelectPlatform(RADIO_PLATFORM_TALWIN)
---```
---@param platform RadioPlatformSelectIndex which hardware
function radioSelectPlatform(platform) end

---Opens the radio of the selected platform; one that is open is closed first. The shell has done so
---when it starts. Takes no arguments and ignores any. A radio that cannot be opened raises nothing:
---standard error says so, and functions that need it raise "No radio context, call radioOpen()
---first".
---
---```lua
---radioOpen()
---```
function radioOpen() end

---Closes the radio and switches its transmitters off. Takes no arguments and ignores any.
---
---Errors:
---* "No radio context, call radioOpen() first": there is no open radio
---
---```lua
---radioClose()
---radioOpen()
---```
function radioClose() end

---Selects the paths that functions without an antenna apply to, where they say so, from the next
---call on. RADIO_SELECT_ALL after radioOpen and radioReset. Needs no radioInit.
---
---Errors:
---* "radioSelect() did not return success" for
---  * RADIO_EINVAL: no such selection
---  * RADIO_ENOTSUP: the second path, which the platform or the configuration lacks
---
---```lua
---radioSelect(RADIO_SELECT_0)
---print(radioGetRxRtwpIndBm())
---```
---@param paths RadioSelectIndex which paths
function radioSelect(paths) end

---Sets the radio up for an antenna configuration, a mode and a band. Afterwards the receivers are
---on and the transmitters off, both tuned to the middle of the band; the receivers are in manual
---gain mode at the highest gain, the transmitters limited to the highest power, without offsets,
---loopback or tables. The selected paths stay. Another platform than before starts with fresh
---registers and oscillator, and without a CPRI link.
---
---Errors:
---* "radioInit() did not return success" for
---  * RADIO_EINVAL: no such configuration, mode or band
---  * RADIO_EERROR: the CPRI link that radioCpriInit has started is too slow for it
---  * RADIO_ENOTSUP: the platform lacks the antennas, mode or band, or the band is not one of the mode's
---
---```lua
---radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7)
---```
---@param configuration RadioConf the antennas
---@param mode RadioMode the air interface
---@param band RadioBand the operating band
function radioInit(configuration, mode, band) end

---As radioInit, then runs an initialisation script. The form of the script is the driver's.
---
---Errors:
---* "radioInitByScript() did not return success" for
---  * RADIO_EINVAL: as for radioInit; nil, or a file that cannot be read or does not parse, with nothing done; or a write of the script
---  * RADIO_EERROR: as for radioInit; or a check or a write of the script
---  * RADIO_ENOTSUP: as for radioInit; or a write of the script
---  * RADIO_EAGAIN: a write of the script
---
---```lua
---radioInitByScript(RADIO_CONF_SISO, RADIO_MODE_3GNODEB, RADIO_BAND_1,
---    "cell.txt")
---```
---@param configuration RadioConf the antennas
---@param mode RadioMode the air interface
---@param band RadioBand the operating band
---@param script string the path of the script's file
function radioInitByScript(configuration, mode, band, script) end

---Starts the CPRI link at a line rate. Until radioReset or another platform it limits what
---radioInit may set up. Needs no radioInit.
---
---Errors:
---* "radioCpriInit() did not return success" for
---  * RADIO_EINVAL: no such rate
---  * RADIO_EERROR: the rate is too low for what is set up
---  * RADIO_ENOTSUP: the platform lacks CPRI or that rate
---
---```lua
---radioCpriInit(RADIO_CPRI_RATE_5)
---```
---@param rate RadioCpriRate the line rate
function radioCpriInit(rate) end

---Puts the hardware into the state after radioOpen: switched off, not initialised, all paths
---selected. The platform, the calibration data and the debug settings are kept.
---
---Errors:
---* "radioReset() did not return success" for
---  * RADIO_EIO: the hardware did not answer
---
---```lua
---radioReset()
---```
function radioReset() end

---Loads calibration data in place of what was loaded before. Needs no radioInit. The form of the
---file is the driver's.
---
---Errors:
---* "radioLoadCalibrationFile() did not return success" for
---  * RADIO_EINVAL: nil, or a file that cannot be read or holds no calibration data; what was loaded before is kept
---
---```lua
---radioLoadCalibrationFile("/etc/board/calibration.toml")
---```
---@param path string the path of the file
function radioLoadCalibrationFile(path) end

---Looks an integer of the calibration data up by name and stores it through a native pointer. No
---function of the shell makes such a pointer; a C library loaded into Lua may.
---
---Errors:
---* "radioGetIntegerFromCalibration() did not return success" for
---  * RADIO_EINVAL: nil, or no integer of that name
---
---```lua
---print(pcall(radioGetIntegerFromCalibration, "crystal", nil))
---```
---@param name string the integer's name
---@param value userdata? where to store it
function radioGetIntegerFromCalibration(name, value) end

---Looks a text of the calibration data up by name and stores a pointer to it through a native
---pointer. The text is valid until other data are loaded or the radio is closed. Of the shell's
---functions only radioGetDriverNames gives a pointer that is taken, and what it points to is then
---overwritten.
---
---Errors:
---* "radioGetStringFromCalibration() did not return success" for
---  * RADIO_EINVAL: nil, or no text of that name
---
---```lua
---print(pcall(radioGetStringFromCalibration, "site", nil))
---```
---@param name string the text's name
---@param value userdata? where to store the pointer
function radioGetStringFromCalibration(name, value) end

---Number of radio chips of the platform.
---
---```lua
---print(radioGetPlatformChipCount())
---```
---@return integer count the number; -2147483648: failed
function radioGetPlatformChipCount() end

---Name of the open radio's platform.
---
---```lua
---print(radioGetPlatformName())
---```
---@return string name the name; nil: failed
function radioGetPlatformName() end

---Version of the driver.
---
---```lua
---print(radioVersion())
---```
---@return string version such as 1.1
function radioVersion() end

---Names of the drivers in the library, as a native pointer: Lua cannot read them.
---
---```lua
---print(swig_type(radioGetDriverNames()))  --> char **
---```
---@return userdata names a pointer object; nil: none
function radioGetDriverNames() end

---Tunes the transmitters. In a TDD mode the receivers follow.
---
---Errors:
---* "radioSetTxFrequency() did not return success" for
---  * RADIO_EINVAL: a frequency outside the band
---  * RADIO_EERROR: before radioInit
---
---```lua
---radioSetTxFrequency(2655e6)
---```
---@param frequency integer Hz; the carrier's, within the transmit range of the band
function radioSetTxFrequency(frequency) end

---Tunes the transmitters to a channel of the band. In a TDD mode the receivers follow.
---
---Errors:
---* "radioSetTxChannel() did not return success" for
---  * RADIO_EINVAL: no channel of the band
---  * RADIO_EERROR: before radioInit
---
---```lua
---radioSetTxChannel(3100)  -- the downlink EARFCN of 2655 MHz
---```
---@param channel integer by the mode its EARFCN (3GPP TS 36.101 section 5.7.3), UARFCN (TS 25.101 section 5.4.4) or ARFCN (TS 45.005 section 2)
function radioSetTxChannel(channel) end

---Switches the transmitters of the selected paths.
---
---Errors:
---* "radioSetTxState() did not return success" for
---  * RADIO_EINVAL: no such state
---  * RADIO_EERROR: before radioInit; switching on while the chip is too hot
---  * RADIO_ENOTSUP: the second path, which the platform or the configuration lacks
---  * RADIO_EAGAIN: switching on while the synthesiser has not settled on its frequency
---
---```lua
---radioSetTxState(RADIO_STATE_ENABLE)
---radioSetTxState(RADIO_STATE_DISABLE)
---```
---@param state RadioState on or off
function radioSetTxState(state) end

---Switches one transmitter.
---
---Errors:
---* "radioSetTxStateOfAntenna() did not return success" for
---  * RADIO_EINVAL: no such antenna or state
---  * RADIO_EERROR: before radioInit; switching on while the chip is too hot
---  * RADIO_ENOTSUP: the second antenna, which the platform or the configuration lacks
---  * RADIO_EAGAIN: switching on while the synthesiser has not settled on its frequency
---
---```lua
---radioSetTxStateOfAntenna(RADIO_TX_ANTENNA_2, RADIO_STATE_DISABLE)
---```
---@param antenna RadioTxAntenna which transmitter
---@param state RadioState on or off
function radioSetTxStateOfAntenna(antenna, state) end

---Limits the output power of the selected paths.
---
---Errors:
---* "radioSetTxMaxPower() did not return success" for
---  * RADIO_EINVAL: a power beyond the platform's range or below the lowest of the loaded table
---  * RADIO_EERROR: before radioInit
---  * RADIO_ENOTSUP: the second path, which the platform or the configuration lacks
---
---```lua
---radioSetTxMaxPower(-100)  -- -10 dBm
---```
---@param power integer 0.1 dBm; the highest, within the platform's range: 200 is 20 dBm
function radioSetTxMaxPower(power) end

---Limits the output power of one transmitter.
---
---Errors:
---* "radioSetTxMaxPowerOfAntenna() did not return success" for
---  * RADIO_EINVAL: no such antenna; a power beyond the platform's range or below the lowest of the loaded table
---  * RADIO_EERROR: before radioInit
---  * RADIO_ENOTSUP: the second antenna, which the platform or the configuration lacks
---
---```lua
---radioSetTxMaxPowerOfAntenna(RADIO_TX_ANTENNA_1, 200)  -- 20 dBm
---```
---@param antenna RadioTxAntenna which transmitter
---@param power integer 0.1 dBm; the highest, within the platform's range: 200 is 20 dBm
function radioSetTxMaxPowerOfAntenna(antenna, power) end

---Sets the DC offset that one transmitter adds against carrier leakage.
---
---Errors:
---* "radioSetTxDcOffset() did not return success" for
---  * RADIO_EINVAL: no such antenna; an offset beyond the converter's range
---  * RADIO_EERROR: before radioInit
---  * RADIO_ENOTSUP: the second antenna, which the platform or the configuration lacks
---
---```lua
---radioSetTxDcOffset(RADIO_TX_ANTENNA_1, -3, 12)
---```
---@param antenna RadioTxAntenna which transmitter
---@param inPhase integer steps of the transmit converter; within its signed range
---@param quadrature integer steps of the transmit converter; within its signed range
function radioSetTxDcOffset(antenna, inPhase, quadrature) end

---Loads the transmit power table, from which the output powers are chosen.
---
---Errors:
---* "Data values must be a table"; "Expected integer values in data"
---* "radioSetTxPowerRegisters() did not return success" for
---  * RADIO_EINVAL: more words than the table holds, or words that the platform does not take
---  * RADIO_EERROR: before radioInit
---
---```lua
---radioSetTxPowerRegisters { 0, 100, 200 }
---radioSetTxPowerRegisters {}
---```
---@param registers table a list of 32-bit words in the platform's form, read as decimal text (see calls); on the simulated board powers in 0.1 dBm, rising
function radioSetTxPowerRegisters(registers) end

---Tunes the receivers. In a TDD mode the transmitters follow.
---
---Errors:
---* "radioSetRxFrequency() did not return success" for
---  * RADIO_EINVAL: a frequency outside the band
---  * RADIO_EERROR: before radioInit
---
---```lua
---radioSetRxFrequency(2535e6)
---```
---@param frequency integer Hz; the carrier's, within the receive range of the band
function radioSetRxFrequency(frequency) end

---Tunes the receivers to a channel of the band. In a TDD mode the transmitters follow.
---
---Errors:
---* "radioSetRxChannel() did not return success" for
---  * RADIO_EINVAL: no channel of the band
---  * RADIO_EERROR: before radioInit
---
---```lua
---radioSetRxChannel(21100)  -- the uplink EARFCN of 2535 MHz
---```
---@param channel integer by the mode its EARFCN (3GPP TS 36.101 section 5.7.3), UARFCN (TS 25.101 section 5.4.4) or ARFCN (TS 45.005 section 2)
function radioSetRxChannel(channel) end

---Switches the receivers of the selected paths.
---
---Errors:
---* "radioSetRxState() did not return success" for
---  * RADIO_EINVAL: no such state
---  * RADIO_EERROR: before radioInit
---  * RADIO_ENOTSUP: the second path, which the platform or the configuration lacks
---
---```lua
---radioSetRxState(RADIO_STATE_ENABLE)
---```
---@param state RadioState on or off
function radioSetRxState(state) end

---Switches one receiver.
---
---Errors:
---* "radioSetRxStateOfAntenna() did not return success" for
---  * RADIO_EINVAL: no such antenna or state
---  * RADIO_EERROR: before radioInit
---  * RADIO_ENOTSUP: the second antenna, which the platform or the configuration lacks
---
---```lua
---radioSetRxStateOfAntenna(RADIO_RX_ANTENNA_2, RADIO_STATE_DISABLE)
---```
---@param antenna RadioRxAntenna which receiver
---@param state RadioState on or off
function radioSetRxStateOfAntenna(antenna, state) end

---Sets the gain of the selected paths' receivers to the highest gain step that is not above it.
---
---Errors:
---* "radioSetRxGain() did not return success" for
---  * RADIO_EINVAL: a gain beyond the platform's range or below the lowest of the loaded table
---  * RADIO_EERROR: before radioInit; the gain mode is not RADIO_RX_GAIN_MGC
---  * RADIO_ENOTSUP: the second path, which the platform or the configuration lacks
---
---```lua
---radioSetRxGainMode(RADIO_RX_GAIN_MGC)
---radioSetRxGain(40)
---```
---@param gain integer dB; within the platform's range
function radioSetRxGain(gain) end

---Says who sets the gain of the selected paths' receivers. RADIO_RX_GAIN_MGC, by hand, after
---radioInit.
---
---Errors:
---* "radioSetRxGainMode() did not return success" for
---  * RADIO_EINVAL: no such gain mode
---  * RADIO_EERROR: before radioInit
---  * RADIO_ENOTSUP: the second path, which the platform or the configuration lacks
---
---```lua
---radioSetRxGainMode(RADIO_RX_GAIN_AGC_SLOW)
---```
---@param mode RadioRxGainMode who sets it
function radioSetRxGainMode(mode) end

---Loads the receive gain table, the gain steps.
---
---Errors:
---* "Data values must be a table"; "Expected integer values in data"
---* "radioSetRxGainRegisters() did not return success" for
---  * RADIO_EINVAL: more words than the table holds, or words that the platform does not take
---  * RADIO_EERROR: before radioInit
---
---```lua
---radioSetRxGainRegisters { 0, 120, 240, 360 }
---radioSetRxGainRegisters {}
---```
---@param registers table a list of 32-bit words in the platform's form, read as decimal text (see calls); on the simulated board gains in 0.1 dB, rising
function radioSetRxGainRegisters(registers) end

---Sets the digital loopback. RADIO_NO_LOOPBACK after radioInit.
---
---Errors:
---* "radioSetLoopback() did not return success" for
---  * RADIO_EINVAL: no such loopback
---  * RADIO_EERROR: before radioInit
---
---```lua
---radioSetLoopback(RADIO_TX_TO_RX_LOOPBACK)
---radioSetLoopback(RADIO_NO_LOOPBACK)
---```
---@param loopback RadioLoopback which way
function radioSetLoopback(loopback) end

---Temperature of the radio chip. Needs no radioInit.
---
---```lua
---print(radioGetTemperature())
---```
---@return number temperature degrees Celsius; nan: failed
function radioGetTemperature() end

---Received total wideband power (RTWP) at the antenna connector, over the selected paths together.
---
---```lua
---print(radioGetRxRtwp() / 10)
---```
---@return integer rtwp 0.1 dBm; the power; -2147483648: failed
function radioGetRxRtwp() end

---Received total wideband power (RTWP) at the antenna connector, over the selected paths together.
---
---```lua
---print(radioGetRxRtwpIndBm())
---```
---@return number rtwp dBm; the power; nan: failed
function radioGetRxRtwpIndBm() end

---Received total wideband power (RTWP) of one receive antenna.
---
---```lua
---print(radioGetRxRtwpOfAntenna(RADIO_RX_ANTENNA_1) / 10)
---```
---@param antenna RadioRxAntenna which receiver
---@return integer rtwp 0.1 dBm; the power; -2147483648: failed
function radioGetRxRtwpOfAntenna(antenna) end

---Received total wideband power (RTWP) of one receive antenna.
---
---```lua
---print(radioGetRxRtwpOfAntennaIndBm(RADIO_RX_ANTENNA_2))
---```
---@param antenna RadioRxAntenna which receiver
---@return number rtwp dBm; the power; nan: failed
function radioGetRxRtwpOfAntennaIndBm(antenna) end

---Present receiver gain of the first of the selected paths.
---
---```lua
---print(radioGetRxGainIndB())
---```
---@return integer gain dB; -2147483648: failed
function radioGetRxGainIndB() end

---Present receiver gain of one receive antenna.
---
---```lua
---print(radioGetRxGainOfAntennaIndB(RADIO_RX_ANTENNA_2))
---```
---@param antenna RadioRxAntenna which receiver
---@return integer gain dB; -2147483648: failed
function radioGetRxGainOfAntennaIndB(antenna) end

---Reads a register of the radio chip. Needs no radioInit.
---
---```lua
---print(bit.tohex(radioSpiRead(0x10)))
---```
---@param address integer of the register
---@return integer word 32 bits; 4294967295 (0xffffffff) also where there is no register: a bus that nobody drives
function radioSpiRead(address) end

---Writes a register of the radio chip. Needs no radioInit.
---
---Errors:
---* "radioSpiWrite() did not return success" for
---  * RADIO_EINVAL: there is no register, or it does not take that value
---  * RADIO_EERROR: where the register is a setting, as the function for it
---  * RADIO_ENOTSUP: it can only be read; the second antenna, where it is missing
---  * RADIO_EAGAIN: where the register is a setting, as the function for it
---
---```lua
---radioSpiWrite(0x10, bit.tobit(0xdeadbeef))
---```
---@param address integer of the register
---@param value integer 32 bits as a signed number: -1, or bit.tobit(0xffffffff), for all ones; what is no number writes 0, what is too large 0x7fffffff
function radioSpiWrite(address, value) end

---Sets the DAC that tunes the reference oscillator. Needs no radioInit.
---
---Errors:
---* "radioSetOscillatorDacValue() did not return success" for
---  * RADIO_EINVAL: a value beyond the DAC's width
---
---```lua
---radioSetOscillatorDacValue(radioGetOscillatorDacValue() + 1)
---```
---@param value integer steps of the DAC; 0 to 2^radioGetOscillatorDacWidth() - 1
function radioSetOscillatorDacValue(value) end

---Value of the DAC that tunes the reference oscillator.
---
---```lua
---print(radioGetOscillatorDacValue())
---```
---@return integer value steps of the DAC; 4294967295: failed
function radioGetOscillatorDacValue() end

---Width of the DAC that tunes the reference oscillator.
---
---```lua
---print(radioGetOscillatorDacWidth())
---```
---@return integer width bits; -2147483648: failed
function radioGetOscillatorDacWidth() end

---Sets the verbosity of the driver's messages. What the driver answers is ignored.
---
---```lua
---radioSetDebugLevel(RADIO_DEBUG_ERROR)
---radioSetDebugLevel(RADIO_DEBUG_NONE)
---```
---@param level RadioDebug what to say; each level includes those before it
function radioSetDebugLevel(level) end

---Verbosity of the driver's messages. RADIO_DEBUG_NONE after radioOpen, unless the driver's own
---settings ask for messages.
---
---```lua
---print(radioGetDebugLevel() == RADIO_DEBUG_NONE)
---```
---@return integer level a value of RADIO_DEBUG; -2147483648: failed
function radioGetDebugLevel() end

---Sends the driver's messages to a file given by a native pointer, or with nil where they go after
---radioOpen. Files of Lua's io are not taken, and no function of the shell makes such a pointer.
---What the driver answers is ignored.
---
---```lua
---radioSetDebugFile(nil)
---```
---@param file userdata? where to; nil: as at first
function radioSetDebugFile(file) end

---Status of a call. Scripts never get one: what is not RADIO_ESUCCESS is raised as "NAME() did not
---return success".
---@alias RadioReturn integer

---done
---@type RadioReturn
RADIO_ESUCCESS = 0

---the hardware did not answer
---@type RadioReturn
RADIO_EIO = 1

---not supported by the platform, or by the mode it is set up for
---@type RadioReturn
RADIO_ENOTSUP = 2

---an argument is out of range or names no member, or the radio is closed
---@type RadioReturn
RADIO_EINVAL = 3

---busy; the same call may succeed later
---@type RadioReturn
RADIO_EAGAIN = 4

---not possible in the present state, mostly before radioInit
---@type RadioReturn
RADIO_EERROR = 5

---Verbosity of the driver's messages; each level includes those before it.
---@alias RadioDebug integer

---no messages
---@type RadioDebug
RADIO_DEBUG_NONE = 0

---why a call failed
---@type RadioDebug
RADIO_DEBUG_ERROR = 1

---what succeeded but looks wrong
---@type RadioDebug
RADIO_DEBUG_WARN = 2

---what changes the radio's state
---@type RadioDebug
RADIO_DEBUG_INFO = 3

---what the driver works out
---@type RadioDebug
RADIO_DEBUG_DEBUG = 4

---every call
---@type RadioDebug
RADIO_DEBUG_TRACE = 5

---Antenna configuration.
---@alias RadioConf integer

---no value; the driver refuses it
---@type RadioConf
RADIO_CONF_NULL = -1

---one transmit and one receive antenna: the first of each
---@type RadioConf
RADIO_CONF_SISO = 0

---two transmit and two receive antennas
---@type RadioConf
RADIO_CONF_MIMO = 1

---how many there are; the driver refuses it
---@type RadioConf
RADIO_CONF_COUNT = 2

---none; the driver refuses it
---@type RadioConf
RADIO_CONF_INVALID = 2

---Air-interface mode. NODEB: base station, transmits the downlink and receives the uplink. UERX:
---terminal receiver, the other way round.
---@alias RadioMode integer

---no value; the driver refuses it
---@type RadioMode
RADIO_MODE_NULL = -1

---base station, UTRA FDD
---@type RadioMode
RADIO_MODE_3GNODEB = 0

---terminal, GSM
---@type RadioMode
RADIO_MODE_2GUERX = 1

---terminal, UTRA FDD
---@type RadioMode
RADIO_MODE_3GUERX = 2

---base station, LTE FDD, 3 MHz wide
---@type RadioMode
RADIO_MODE_4GENODEB_FDD_3MHZ = 3

---base station, LTE FDD, 5 MHz wide
---@type RadioMode
RADIO_MODE_4GENODEB_FDD_5MHZ = 4

---base station, LTE FDD, 10 MHz wide
---@type RadioMode
RADIO_MODE_4GENODEB_FDD_10MHZ = 5

---base station, LTE FDD, 15 MHz wide
---@type RadioMode
RADIO_MODE_4GENODEB_FDD_15MHZ = 6

---base station, LTE FDD, 20 MHz wide
---@type RadioMode
RADIO_MODE_4GENODEB_FDD_20MHZ = 7

---base station, LTE TDD, 5 MHz wide
---@type RadioMode
RADIO_MODE_4GENODEB_TDD_5MHZ = 8

---base station, LTE TDD, 10 MHz wide
---@type RadioMode
RADIO_MODE_4GENODEB_TDD_10MHZ = 9

---base station, LTE TDD, 20 MHz wide
---@type RadioMode
RADIO_MODE_4GENODEB_TDD_20MHZ = 10

---terminal, LTE FDD, 5 MHz wide
---@type RadioMode
RADIO_MODE_4GUERX_FDD_5MHZ = 11

---terminal, LTE FDD, 10 MHz wide
---@type RadioMode
RADIO_MODE_4GUERX_FDD_10MHZ = 12

---terminal, LTE FDD, 20 MHz wide
---@type RadioMode
RADIO_MODE_4GUERX_FDD_20MHZ = 13

---terminal, LTE TDD, 5 MHz wide
---@type RadioMode
RADIO_MODE_4GUERX_TDD_5MHZ = 14

---terminal, LTE TDD, 10 MHz wide
---@type RadioMode
RADIO_MODE_4GUERX_TDD_10MHZ = 15

---terminal, LTE TDD, 20 MHz wide
---@type RadioMode
RADIO_MODE_4GUERX_TDD_20MHZ = 16

---base station, UTRA TDD, 1.28 Mchip/s
---@type RadioMode
RADIO_MODE_TD_SCDMA_NODEB = 17

---how many there are; the driver refuses it
---@type RadioMode
RADIO_MODE_COUNT = 18

---none; the driver refuses it
---@type RadioMode
RADIO_MODE_INVALID = 18

---Operating band: 1 to 43 by 3GPP TS 36.101 table 5.5-1, GSM by TS 45.005 section 2. A base station
---transmits the downlink and receives the uplink.
---@alias RadioBand integer

---no value; the driver refuses it
---@type RadioBand
RADIO_BAND_NULL = -1

---uplink 1920-1980, downlink 2110-2170 MHz
---@type RadioBand
RADIO_BAND_1 = 1

---uplink 1850-1910, downlink 1930-1990 MHz
---@type RadioBand
RADIO_BAND_2 = 2

---uplink 1710-1785, downlink 1805-1880 MHz
---@type RadioBand
RADIO_BAND_3 = 3

---uplink 1710-1755, downlink 2110-2155 MHz
---@type RadioBand
RADIO_BAND_4 = 4

---uplink 824-849, downlink 869-894 MHz
---@type RadioBand
RADIO_BAND_5 = 5

---uplink 830-840, downlink 875-885 MHz
---@type RadioBand
RADIO_BAND_6 = 6

---uplink 2500-2570, downlink 2620-2690 MHz
---@type RadioBand
RADIO_BAND_7 = 7

---uplink 880-915, downlink 925-960 MHz
---@type RadioBand
RADIO_BAND_8 = 8

---uplink 1749.9-1784.9, downlink 1844.9-1879.9 MHz
---@type RadioBand
RADIO_BAND_9 = 9

---uplink 1710-1770, downlink 2110-2170 MHz
---@type RadioBand
RADIO_BAND_10 = 10

---uplink 1427.9-1447.9, downlink 1475.9-1495.9 MHz
---@type RadioBand
RADIO_BAND_11 = 11

---uplink 699-716, downlink 729-746 MHz
---@type RadioBand
RADIO_BAND_12 = 12

---uplink 777-787, downlink 746-756 MHz
---@type RadioBand
RADIO_BAND_13 = 13

---uplink 788-798, downlink 758-768 MHz
---@type RadioBand
RADIO_BAND_14 = 14

---reserved in the 3GPP tables
---@type RadioBand
RADIO_BAND_15 = 15

---reserved in the 3GPP tables
---@type RadioBand
RADIO_BAND_16 = 16

---uplink 704-716, downlink 734-746 MHz
---@type RadioBand
RADIO_BAND_17 = 17

---uplink 815-830, downlink 860-875 MHz
---@type RadioBand
RADIO_BAND_18 = 18

---uplink 830-845, downlink 875-890 MHz
---@type RadioBand
RADIO_BAND_19 = 19

---uplink 832-862, downlink 791-821 MHz
---@type RadioBand
RADIO_BAND_20 = 20

---uplink 1447.9-1462.9, downlink 1495.9-1510.9 MHz
---@type RadioBand
RADIO_BAND_21 = 21

---uplink 3410-3490, downlink 3510-3590 MHz
---@type RadioBand
RADIO_BAND_22 = 22

---uplink 2000-2020, downlink 2180-2200 MHz
---@type RadioBand
RADIO_BAND_23 = 23

---uplink 1626.5-1660.5, downlink 1525-1559 MHz
---@type RadioBand
RADIO_BAND_24 = 24

---uplink 1850-1915, downlink 1930-1995 MHz
---@type RadioBand
RADIO_BAND_25 = 25

---TDD, 1900-1920 MHz
---@type RadioBand
RADIO_BAND_33 = 33

---TDD, 2010-2025 MHz
---@type RadioBand
RADIO_BAND_34 = 34

---TDD, 1850-1910 MHz
---@type RadioBand
RADIO_BAND_35 = 35

---TDD, 1930-1990 MHz
---@type RadioBand
RADIO_BAND_36 = 36

---TDD, 1910-1930 MHz
---@type RadioBand
RADIO_BAND_37 = 37

---TDD, 2570-2620 MHz
---@type RadioBand
RADIO_BAND_38 = 38

---TDD, 1880-1920 MHz
---@type RadioBand
RADIO_BAND_39 = 39

---TDD, 2300-2400 MHz
---@type RadioBand
RADIO_BAND_40 = 40

---TDD, 2496-2690 MHz
---@type RadioBand
RADIO_BAND_41 = 41

---TDD, 3400-3600 MHz
---@type RadioBand
RADIO_BAND_42 = 42

---TDD, 3600-3800 MHz
---@type RadioBand
RADIO_BAND_43 = 43

---uplink 824-849, downlink 869-894 MHz
---@type RadioBand
RADIO_BAND_GSM_850 = 44

---P-GSM, uplink 890-915, downlink 935-960 MHz
---@type RadioBand
RADIO_BAND_GSM_900 = 45

---E-GSM, uplink 880-915, downlink 925-960 MHz
---@type RadioBand
RADIO_BAND_GSM_900E = 46

---DCS, uplink 1710-1785, downlink 1805-1880 MHz
---@type RadioBand
RADIO_BAND_GSM_1800 = 47

---PCS, uplink 1850-1910, downlink 1930-1990 MHz
---@type RadioBand
RADIO_BAND_GSM_1900 = 48

---not a band of the 3GPP tables
---@type RadioBand
RADIO_BAND_252 = 252

---not a band of the 3GPP tables
---@type RadioBand
RADIO_BAND_253 = 253

---not a band of the 3GPP tables
---@type RadioBand
RADIO_BAND_254 = 254

---not a band of the 3GPP tables
---@type RadioBand
RADIO_BAND_255 = 255

---one past the highest; the driver refuses it
---@type RadioBand
RADIO_BAND_COUNT = 256

---none; the driver refuses it
---@type RadioBand
RADIO_BAND_INVALID = 256

---Whether a transmitter or receiver is switched on.
---@alias RadioState integer

---off
---@type RadioState
RADIO_STATE_DISABLE = 0

---on
---@type RadioState
RADIO_STATE_ENABLE = 1

---Who sets the receiver's gain.
---@alias RadioRxGainMode integer

---manual: radioSetRxGain
---@type RadioRxGainMode
RADIO_RX_GAIN_MGC = 0

---automatic, fast attack
---@type RadioRxGainMode
RADIO_RX_GAIN_AGC_FAST = 1

---automatic, slow attack
---@type RadioRxGainMode
RADIO_RX_GAIN_AGC_SLOW = 2

---automatic, slow attack, when triggered
---@type RadioRxGainMode
RADIO_RX_GAIN_AGC_SLOW_HYBRID = 3

---Transmit antenna.
---@alias RadioTxAntenna integer

---the first
---@type RadioTxAntenna
RADIO_TX_ANTENNA_1 = 0

---the second
---@type RadioTxAntenna
RADIO_TX_ANTENNA_2 = 1

---Receive antenna.
---@alias RadioRxAntenna integer

---the first
---@type RadioRxAntenna
RADIO_RX_ANTENNA_1 = 0

---the second
---@type RadioRxAntenna
RADIO_RX_ANTENNA_2 = 1

---Paths of the front end: a path is a transmit and a receive antenna with what lies behind them.
---@alias RadioSelectIndex integer

---path 0: the first antennas
---@type RadioSelectIndex
RADIO_SELECT_0 = 0

---path 1: the second antennas
---@type RadioSelectIndex
RADIO_SELECT_1 = 1

---both
---@type RadioSelectIndex
RADIO_SELECT_ALL = 2

---Hardware platform.
---@alias RadioPlatformSelectIndex integer

---no value; the driver refuses it
---@type RadioPlatformSelectIndex
RADIO_PLATFORM_NULL = -1

---the driver's choice
---@type RadioPlatformSelectIndex
RADIO_PLATFORM_DEFAULT = 0

---Talwin
---@type RadioPlatformSelectIndex
RADIO_PLATFORM_TALWIN = 1

---Merrik
---@type RadioPlatformSelectIndex
RADIO_PLATFORM_MERRIK = 2

---Ostrav
---@type RadioPlatformSelectIndex
RADIO_PLATFORM_OSTRAV = 3

---Bellan
---@type RadioPlatformSelectIndex
RADIO_PLATFORM_BELLAN = 4

---how many there are; the driver refuses it
---@type RadioPlatformSelectIndex
RADIO_PLATFORM_COUNT = 5

---Digital loopback inside the front end.
---@alias RadioLoopback integer

---none
---@type RadioLoopback
RADIO_NO_LOOPBACK = 0

---what is transmitted is received
---@type RadioLoopback
RADIO_TX_TO_RX_LOOPBACK = 1

---what is received is transmitted
---@type RadioLoopback
RADIO_RX_TO_TX_LOOPBACK = 2

---CPRI line-rate option, by its number in the CPRI specification V7.0 section 4.2.1.
---@alias RadioCpriRate integer

---614.4 Mbit/s
---@type RadioCpriRate
RADIO_CPRI_RATE_1 = 1

---1228.8 Mbit/s
---@type RadioCpriRate
RADIO_CPRI_RATE_2 = 2

---3072.0 Mbit/s
---@type RadioCpriRate
RADIO_CPRI_RATE_4 = 4

---4915.2 Mbit/s
---@type RadioCpriRate
RADIO_CPRI_RATE_5 = 5

---10137.6 Mbit/s
---@type RadioCpriRate
RADIO_CPRI_RATE_8 = 8

---24330.24 Mbit/s
---@type RadioCpriRate
RADIO_CPRI_RATE_10 = 10

---Digital data interface between the front end and the baseband. No function takes it.
---@alias RadioInterfaceMode integer

---JESD207, CMOS levels
---@type RadioInterfaceMode
RADIO_INTERFACE_JESD_CMOS = 0

---JESD207, LVDS levels
---@type RadioInterfaceMode
RADIO_INTERFACE_JESD_LVDS = 1

---CPRI
---@type RadioInterfaceMode
RADIO_INTERFACE_CPRI = 2

---The driver's functions and constants, and RadioHooks. At its start the shell has made a global of
---each.
---
---```lua
---print(radio.radioInit == radioInit)  --> true
---```
radio = {}

---radioOpen and radioClose, of which the shell has made globals too.
---
---```lua
---print(radioNative.radioOpen == radioOpen)  --> true
---```
radioNative = {}

---Empty.
---
---```lua
---print(next(radioInternal))  --> nil
---```
radioInternal = {}

---@class sorel.RadioHooks.hooks
---@field malloc? userdata a pointer object of type void *(*)(size_t), or nil
---@field free? userdata a pointer object of type void (*)(void *), or nil

---Makes a record of two memory functions. No function of the driver takes one.
---
---Errors:
---* a field given anything but nil or a pointer object of its type
---
---```lua
---local hooks = RadioHooks()
---print(hooks.malloc, hooks.free)  --> nil nil
---```
---@return sorel.RadioHooks.hooks hooks the record, with the fields
function RadioHooks() end

---What the type of a value is called in messages: Lua's name of it, or the type that a pointer
---object points to.
---
---```lua
---print(swig_type(7), swig_type(radioGetDriverNames()))  --> number char **
---```
---@param value any the value
---@return string name the name
function swig_type(value) end

---Whether two pointer objects point to the same place.
---
---```lua
---print(swig_equals(radioGetDriverNames(), radioGetDriverNames()))  --> true
---```
---@param one userdata a pointer object
---@param other userdata another one
---@return boolean? equal nothing at all where one of the two is no userdata
function swig_equals(one, other) end

---Register arithmetic: bits of 32-bit words (Lua BitOp). Results are signed: 0xffffffff is -1, as
---radioSpiWrite takes it. Print them with bit.tohex. Fractions are rounded to a neighbouring
---integer.
bit = {}

---A number as a signed one of 32 bits.
---
---Errors:
---* an argument that is no number
---
---```lua
---print(bit.tobit(0xffffffff))  --> -1
---```
---@param value number any number; only its lowest 32 bits count
---@return number word a signed number of 32 bits
function bit.tobit(value) end

---A number in hexadecimal.
---
---Errors:
---* an argument that is no number
---
---```lua
---print(bit.tohex(-1), bit.tohex(171, -2))  --> ffffffff AB
---```
---@param value number any number; only its lowest 32 bits count
---@param digits? number default 8; how many of the lowest digits; negative: in capital letters
---@return string text without 0x
function bit.tohex(value, digits) end

---Every bit the other way.
---
---Errors:
---* an argument that is no number
---
---```lua
---print(bit.bnot(0))  --> -1
---```
---@param value number any number; only its lowest 32 bits count
---@return number word a signed number of 32 bits
function bit.bnot(value) end

---The bits that are set in all.
---
---Errors:
---* an argument that is no number
---
---```lua
---print(bit.band(0xff, 0x3c, 0x0f))  --> 12
---```
---@param value number any number; only its lowest 32 bits count
---@param ... number more of them
---@return number word a signed number of 32 bits
function bit.band(value, ...) end

---The bits that are set in at least one.
---
---Errors:
---* an argument that is no number
---
---```lua
---print(bit.bor(1, 2, 8))  --> 11
---```
---@param value number any number; only its lowest 32 bits count
---@param ... number more of them
---@return number word a signed number of 32 bits
function bit.bor(value, ...) end

---The bits that are set in an odd number of them.
---
---Errors:
---* an argument that is no number
---
---```lua
---print(bit.bxor(3, 1))  --> 2
---```
---@param value number any number; only its lowest 32 bits count
---@param ... number more of them
---@return number word a signed number of 32 bits
function bit.bxor(value, ...) end

---Shifted to the left, zeros from the right.
---
---Errors:
---* an argument that is no number
---
---```lua
---print(bit.lshift(1, 31))  --> -2147483648
---```
---@param value number any number; only its lowest 32 bits count
---@param count number of places; only its lowest 5 bits count
---@return number word a signed number of 32 bits
function bit.lshift(value, count) end

---Shifted to the right, zeros from the left.
---
---Errors:
---* an argument that is no number
---
---```lua
---print(bit.rshift(-1, 28))  --> 15
---```
---@param value number any number; only its lowest 32 bits count
---@param count number of places; only its lowest 5 bits count
---@return number word a signed number of 32 bits
function bit.rshift(value, count) end

---Shifted to the right, the sign from the left.
---
---Errors:
---* an argument that is no number
---
---```lua
---print(bit.arshift(-16, 2))  --> -4
---```
---@param value number any number; only its lowest 32 bits count
---@param count number of places; only its lowest 5 bits count
---@return number word a signed number of 32 bits
function bit.arshift(value, count) end

---Rotated to the left.
---
---Errors:
---* an argument that is no number
---
---```lua
---print(bit.rol(1, 33))  --> 2
---```
---@param value number any number; only its lowest 32 bits count
---@param count number of places; only its lowest 5 bits count
---@return number word a signed number of 32 bits
function bit.rol(value, count) end

---Rotated to the right.
---
---Errors:
---* an argument that is no number
---
---```lua
---print(bit.ror(1, 1))  --> -2147483648
---```
---@param value number any number; only its lowest 32 bits count
---@param count number of places; only its lowest 5 bits count
---@return number word a signed number of 32 bits
function bit.ror(value, count) end

---The four bytes in the other order.
---
---Errors:
---* an argument that is no number
---
---```lua
---print(bit.tohex(bit.bswap(0x11223344)))  --> 44332211
---```
---@param value number any number; only its lowest 32 bits count
---@return number word a signed number of 32 bits
function bit.bswap(value) end

---TCP, UDP, names of hosts, waiting (the core of LuaSocket 2.0.2). What fails raises nothing:
---functions return nil and a message, and assert makes an error of that. Methods are called with a
---colon. Without settimeout they wait for ever.
socket = {}

---The functions that look names and addresses up.
---
---```lua
---print(socket.dns.gethostname())
---```
socket.dns = {}

---Makes a TCP socket for IPv4: what is then bound and listens is a server, what is connected a
---client.
---
---```lua
---local client = assert(socket.tcp())
---client:settimeout(5)
---```
---@return sorel.tcp socket nil: failed
---@return string? message after nil, what is wrong
function socket.tcp() end

---Makes a UDP socket for IPv4.
---
---```lua
---local radio_log = assert(socket.udp())
---```
---@return sorel.udp socket nil: failed
---@return string? message after nil, what is wrong
function socket.udp() end

---The same as socket.tcp. Not in LuaSocket 2.0.2.
---
---```lua
---print(socket.tcp4())
---```
---@return sorel.tcp socket nil: failed
---@return string? message after nil, what is wrong
function socket.tcp4() end

---The same as socket.udp. Not in LuaSocket 2.0.2.
---
---```lua
---print(socket.udp4())
---```
---@return sorel.udp socket nil: failed
---@return string? message after nil, what is wrong
function socket.udp4() end

---Makes a TCP socket for IPv6. Not in LuaSocket 2.0.2.
---
---```lua
---print(socket.tcp6())
---```
---@return sorel.tcp socket nil: failed
---@return string? message after nil, what is wrong
function socket.tcp6() end

---Makes a UDP socket for IPv6. Not in LuaSocket 2.0.2.
---
---```lua
---print(socket.udp6())
---```
---@return sorel.udp socket nil: failed
---@return string? message after nil, what is wrong
function socket.udp6() end

---Makes a TCP socket and connects it. Not in LuaSocket 2.0.2.
---
---```lua
---print(socket.connect(server:getsockname()))
---```
---@param host string a name or an address
---@param port number the port
---@param local_host? string the own address
---@param local_port? number the own port
---@param family? string "inet" or "inet6"
---@return sorel.tcp socket nil: failed
---@return string? message after nil, what is wrong
function socket.connect(host, port, local_host, local_port, family) end

---Waits until sockets can be read from or written to.
---
---```lua
---local readable = socket.select({ client }, nil, 0.1)
---print(#readable)  --> 0
---```
---@param readers? table a list of sockets to read from, or nil
---@param writers? table a list of sockets to write to, or nil
---@param timeout? number s; how long at most; without it for ever
---@return table readable a list of those that can be read from, with the sockets as keys too
---@return table writable likewise those that can be written to
---@return string? message "timeout" when none can
function socket.select(readers, writers, timeout) end

---Waits. The radio's controls go on meanwhile.
---
---Errors:
---* an argument that is no number
---
---```lua
---socket.sleep(0.01)
---```
---@param time number s; how long
function socket.sleep(time) end

---The time of the machine's clock, with fractions.
---
---```lua
---local start = socket.gettime()
---print(socket.gettime() - start)
---```
---@return number time s; since 1970
function socket.gettime() end

---Makes a function that hands its arguments on, unless the first is nil or false: then it calls the
---finaliser and raises the second, for socket.protect to catch.
---
---```lua
---local try = socket.newtry(function() client:close() end)
---print(try(7))  --> 7
---```
---@param finaliser? function what tidies up
---@return function try that function
function socket.newtry(finaliser) end

---Makes a function that calls another, and returns nil and the message where that raises what a
---function of socket.newtry raises, or any table.
---
---```lua
---local ask = socket.protect(function() error { "no answer" } end)
---print(ask())  --> nil no answer
---```
---@param action function what to call
---@return function protected that function
function socket.protect(action) end

---Drops the first of its arguments.
---
---Errors:
---* a count that is no number
---
---```lua
---print(socket.skip(1, "dropped", "kept"))  --> kept
---```
---@param count number how many of those that follow
---@param ... any what to drop from
---@return any ... the rest
function socket.skip(count, ...) end

---Does what is to be done before the library is unloaded. On Linux nothing.
---
---```lua
---socket.__unload()
---```
function socket.__unload() end

---The IPv4 address of a host.
---
---```lua
---print((socket.dns.toip("127.0.0.1")))
---```
---@param host string a name or an address
---@return string address nil: failed
---@return any? details a table with the lists alias and ip, and name; after nil the message
function socket.dns.toip(host) end

---The name of a host.
---
---```lua
---print((socket.dns.tohostname("127.0.0.1")))
---```
---@param host string a name or an address
---@return string name nil: failed
---@return any? details a table with the lists alias and ip, and name; after nil the message
function socket.dns.tohostname(host) end

---The name of this machine.
---
---```lua
---print(socket.dns.gethostname())
---```
---@return string name the name
function socket.dns.gethostname() end

---The addresses of a host. Not in LuaSocket 2.0.2.
---
---```lua
---print(socket.dns.getaddrinfo("127.0.0.1")[1].addr)  --> 127.0.0.1
---```
---@param host string a name or an address
---@return table addresses a list of tables with family and addr; nil: failed
---@return string? message after nil
function socket.dns.getaddrinfo(host) end

---The names of an address and of the service at a port. Not in LuaSocket 2.0.2.
---
---```lua
---print(socket.dns.getnameinfo("127.0.0.1", "80"))
---```
---@param host string a name or an address
---@param port? string a number or a service
---@return table names a list; nil: failed
---@return string? service the service; after nil the message
function socket.dns.getnameinfo(host, port) end

---The interface that scripts are promised: LuaSocket 2.0.2. What is linked is named by sorelapp -v.
---
---```lua
---print(socket._VERSION)  --> LuaSocket 2.0.2
---```
---@type string
socket._VERSION = ""

---How many sockets socket.select takes. Not in LuaSocket 2.0.2.
---
---```lua
---print(socket._SETSIZE)
---```
---@type number
socket._SETSIZE = 0

---How many bytes udp:receive reads at most when it is not told. Not in LuaSocket 2.0.2.
---
---```lua
---print(socket._DATAGRAMSIZE)
---```
---@type number
socket._DATAGRAMSIZE = 0

---What getfd gives of a closed socket. Not in LuaSocket 2.0.2.
---
---```lua
---print(socket._SOCKETINVALID)
---```
---@type number
socket._SOCKETINVALID = 0

---@class sorel.tcp
local tcp = {}

---Connects to a server; the socket is a client then.
---
---```lua
---local other = assert(socket.tcp())
---assert(other:connect(server:getsockname()))
---```
---@param host string a name or an address
---@param port number the port
---@return number done 1; nil: failed
---@return string? message after nil, what is wrong
function tcp:connect(host, port) end

---Gives the socket an own address and port.
---
---```lua
---local other = assert(socket.tcp())
---assert(other:bind("127.0.0.1", 0))
---```
---@param host string an own address; "*" for all of them
---@param port number the port; 0 for a free one
---@return number done 1; nil: failed
---@return string? message after nil, what is wrong
function tcp:bind(host, port) end

---Lets clients connect to a bound socket; it is a server then.
---
---```lua
---local other = assert(socket.tcp())
---assert(other:bind("127.0.0.1", 0))
---assert(other:listen(1))
---```
---@param backlog? number default 32; how many may wait for accept
---@return number done 1; nil: failed
---@return string? message after nil, what is wrong
function tcp:listen(backlog) end

---Waits for a client to connect to the server.
---
---```lua
---local peer = assert(server:accept())
---```
---@return sorel.tcp client the connection to it; nil: failed
---@return string? message after nil, what is wrong
function tcp:accept() end

---Sends bytes.
---
---```lua
---assert(client:send("rtwp?\n"))
---```
---@param data string the bytes
---@param first? number default 1; from which on
---@param last? number default the last; up to which
---@return number last which was sent last; nil: failed
---@return string? message after nil, what is wrong
---@return number? sent after a message, which was sent last
function tcp:send(data, first, last) end

---Receives bytes.
---
---```lua
---local peer = assert(server:accept())
---peer:send("-92.3\n")
---print((client:receive()))  --> -92.3
---```
---@param pattern? any default "*l"; "*l": a line, without its end; "*a": all until the other side closes; a number: that many bytes
---@param prefix? string what to put in front
---@return string data the bytes; nil: failed
---@return string? message after nil, what is wrong
---@return string? part after a message, what had come
function tcp:receive(pattern, prefix) end

---Ends a direction of a connection, or both.
---
---Errors:
---* a mode that there is not
---
---```lua
---client:shutdown("send")
---```
---@param mode? string default "both"; "send", "receive" or "both"
---@return number done 1
function tcp:shutdown(mode) end

---The other end of a connection.
---
---```lua
---print(client:getpeername())
---```
---@return string address the address; nil: failed
---@return number port its port; after nil the message
---@return string family "inet" or "inet6"; not in LuaSocket 2.0.2
function tcp:getpeername() end

---The same as connect.
---
---```lua
---local other = assert(socket.tcp())
---assert(other:setpeername(server:getsockname()))
---```
---@param host string a name or an address
---@param port number the port
---@return number done 1; nil: failed
---@return string? message after nil, what is wrong
function tcp:setpeername(host, port) end

---The same as bind.
---
---```lua
---local other = assert(socket.tcp())
---assert(other:setsockname("*", 0))
---```
---@param host string an own address; "*" for all of them
---@param port number the port; 0 for a free one
---@return number done 1; nil: failed
---@return string? message after nil, what is wrong
function tcp:setsockname(host, port) end

---How much has gone through a connection.
---
---```lua
---print(client:getstats())
---```
---@return number received bytes; received
---@return number sent bytes; sent
---@return number age s; how old the socket is
function tcp:getstats() end

---Lets getstats count from other values on.
---
---```lua
---client:setstats()
---```
---@param received? number bytes; default 0; received
---@param sent? number bytes; default 0; sent
---@param age? number s; default 0; how old the socket is
---@return number done 1
function tcp:setstats(received, sent, age) end

---Closes the socket.
---
---```lua
---client:close()
---```
---@return number done 1; nil: failed
---@return string? message after nil, what is wrong
function tcp:close() end

---Says how long a method may wait.
---
---Errors:
---* a mode that there is not
---
---```lua
---client:settimeout(5)
---```
---@param time? number s; 0: not at all; nil or negative: for ever
---@param mode? string default "b"; "b": for each wait of a call; "t": for the call in all
---@return number done 1; nil: failed
---@return string? message after nil, what is wrong
function tcp:settimeout(time, mode) end

---How long a method may wait. Not in LuaSocket 2.0.2.
---
---```lua
---print(client:gettimeout())
---```
---@return number time s; in mode b; -1: for ever
---@return number total s; in mode t; -1: for ever
function tcp:gettimeout() end

---Sets an option: keepalive, linger, reuseaddr, tcp-nodelay and others.
---
---Errors:
---* an option that there is not
---
---```lua
---client:setoption("reuseaddr", true)
---```
---@param option string its name
---@param value? any mostly true or false
---@return number done 1; nil: failed
---@return string? message after nil, what is wrong
function tcp:setoption(option, value) end

---The value of an option. Not in LuaSocket 2.0.2.
---
---Errors:
---* an option that there is not
---
---```lua
---print(client:getoption("reuseaddr"))
---```
---@param option string its name
---@return any value nil: failed
---@return string? message after nil, what is wrong
function tcp:getoption(option) end

---The own end.
---
---```lua
---print(client:getsockname())
---```
---@return string address the address; nil: failed
---@return number port its port; after nil the message
---@return string family "inet" or "inet6"; not in LuaSocket 2.0.2
function tcp:getsockname() end

---The family of addresses. Not in LuaSocket 2.0.2.
---
---```lua
---print(client:getfamily())
---```
---@return string family "inet4" or "inet6"
function tcp:getfamily() end

---The number of the file that the socket is to the system.
---
---```lua
---print(client:getfd())
---```
---@return number fd -1: closed
function tcp:getfd() end

---Takes another file of the system for the socket.
---
---```lua
---client:setfd(client:getfd())
---```
---@param fd number the number of the file
function tcp:setfd(fd) end

---Whether data that have been received wait in the socket, which socket.select knows.
---
---```lua
---print(client:dirty())
---```
---@return boolean dirty true: they wait
function tcp:dirty() end

---The kind of the socket, such as tcp{client}.
---
---```lua
---print(client.class)
---```
---@type string
tcp.class = ""

---@class sorel.udp
local udp = {}

---Gives the socket an own address and port.
---
---```lua
---local other = assert(socket.udp())
---assert(other:setsockname("*", 0))
---```
---@param host string an own address; "*" for all of them
---@param port number the port; 0 for a free one
---@return number done 1; nil: failed
---@return string? message after nil, what is wrong
function udp:setsockname(host, port) end

---Sends a datagram from a socket that is not connected.
---
---```lua
---assert(sender:sendto("rtwp?", receiver:getsockname()))
---```
---@param data string its bytes
---@param host string a name or an address
---@param port number the port
---@return number done 1; nil: failed
---@return string? message after nil, what is wrong
function udp:sendto(data, host, port) end

---Receives a datagram and where it came from, with a socket that is not connected.
---
---```lua
---print(receiver:receivefrom())
---```
---@param size? number bytes; how much of it at most
---@return string data its bytes; nil: failed
---@return string address the sender's; after nil the message
---@return number? port the sender's
function udp:receivefrom(size) end

---Connects the socket: it sends to one place only, and receives from there only. With "*" in place
---of the host it is not connected any more.
---
---```lua
---assert(sender:setpeername(receiver:getsockname()))
---assert(sender:send("rtwp?"))
---assert(sender:setpeername("*"))
---```
---@param host string a name or an address
---@param port? number the port
---@return number done 1; nil: failed
---@return string? message after nil, what is wrong
function udp:setpeername(host, port) end

---Sends a datagram from a connected socket.
---
---```lua
---assert(sender:setpeername(receiver:getsockname()))
---assert(sender:send("rtwp?"))
---```
---@param data string its bytes
---@return number done 1; nil: failed
---@return string? message after nil, what is wrong
function udp:send(data) end

---Receives a datagram.
---
---```lua
---print((receiver:receive()))  --> rtwp?
---```
---@param size? number bytes; how much of it at most
---@return string data its bytes; nil: failed
---@return string? message after nil, what is wrong
function udp:receive(size) end

---The other end of a connected socket.
---
---```lua
---assert(sender:setpeername(receiver:getsockname()))
---print(sender:getpeername())
---```
---@return string address the address; nil: failed
---@return number port its port; after nil the message
---@return string family "inet" or "inet6"; not in LuaSocket 2.0.2
function udp:getpeername() end

---Closes the socket.
---
---```lua
---receiver:close()
---```
---@return number done 1; nil: failed
---@return string? message after nil, what is wrong
function udp:close() end

---Says how long a method may wait.
---
---Errors:
---* a mode that there is not
---
---```lua
---receiver:settimeout(5)
---```
---@param time? number s; 0: not at all; nil or negative: for ever
---@param mode? string default "b"; "b": for each wait of a call; "t": for the call in all
---@return number done 1; nil: failed
---@return string? message after nil, what is wrong
function udp:settimeout(time, mode) end

---How long a method may wait. Not in LuaSocket 2.0.2.
---
---```lua
---print(receiver:gettimeout())
---```
---@return number time s; in mode b; -1: for ever
---@return number total s; in mode t; -1: for ever
function udp:gettimeout() end

---Sets an option: broadcast, dontroute, reuseaddr, ip-multicast-loop and others.
---
---Errors:
---* an option that there is not
---
---```lua
---receiver:setoption("reuseaddr", true)
---```
---@param option string its name
---@param value? any mostly true or false
---@return number done 1; nil: failed
---@return string? message after nil, what is wrong
function udp:setoption(option, value) end

---The value of an option. Not in LuaSocket 2.0.2.
---
---Errors:
---* an option that there is not
---
---```lua
---print(receiver:getoption("reuseaddr"))
---```
---@param option string its name
---@return any value nil: failed
---@return string? message after nil, what is wrong
function udp:getoption(option) end

---The own end.
---
---```lua
---print(receiver:getsockname())
---```
---@return string address the address; nil: failed
---@return number port its port; after nil the message
---@return string family "inet" or "inet6"; not in LuaSocket 2.0.2
function udp:getsockname() end

---The family of addresses. Not in LuaSocket 2.0.2.
---
---```lua
---print(receiver:getfamily())
---```
---@return string family "inet4" or "inet6"
function udp:getfamily() end

---The number of the file that the socket is to the system.
---
---```lua
---print(receiver:getfd())
---```
---@return number fd -1: closed
function udp:getfd() end

---Takes another file of the system for the socket.
---
---```lua
---receiver:setfd(receiver:getfd())
---```
---@param fd number the number of the file
function udp:setfd(fd) end

---Whether data that have been received wait in the socket, which socket.select knows.
---
---```lua
---print(receiver:dirty())
---```
---@return boolean dirty true: they wait
function udp:dirty() end

---The kind of the socket, such as udp{connected}.
---
---```lua
---print(receiver.class)
---```
---@type string
udp.class = ""

---Prints help. Case makes no difference. A misspelt name suggests the nearest.
---
---```lua
---help "RADIO_STATE"
---help(radioSetRxGain)
---help "rtwp antenna"
---```
---@param subject? any nothing: an overview; a name of a subject, function, constant or group; a word or several: whatever mentions them all; or a function or table itself
function help(subject) end

radio.RADIO_BAND_1 = RADIO_BAND_1
radio.RADIO_BAND_10 = RADIO_BAND_10
radio.RADIO_BAND_11 = RADIO_BAND_11
radio.RADIO_BAND_12 = RADIO_BAND_12
radio.RADIO_BAND_13 = RADIO_BAND_13
radio.RADIO_BAND_14 = RADIO_BAND_14
radio.RADIO_BAND_15 = RADIO_BAND_15
radio.RADIO_BAND_16 = RADIO_BAND_16
radio.RADIO_BAND_17 = RADIO_BAND_17
radio.RADIO_BAND_18 = RADIO_BAND_18
radio.RADIO_BAND_19 = RADIO_BAND_19
radio.RADIO_BAND_2 = RADIO_BAND_2
radio.RADIO_BAND_20 = RADIO_BAND_20
radio.RADIO_BAND_21 = RADIO_BAND_21
radio.RADIO_BAND_22 = RADIO_BAND_22
radio.RADIO_BAND_23 = RADIO_BAND_23
radio.RADIO_BAND_24 = RADIO_BAND_24
radio.RADIO_BAND_25 = RADIO_BAND_25
radio.RADIO_BAND_252 = RADIO_BAND_252
radio.RADIO_BAND_253 = RADIO_BAND_253
radio.RADIO_BAND_254 = RADIO_BAND_254
radio.RADIO_BAND_255 = RADIO_BAND_255
radio.RADIO_BAND_3 = RADIO_BAND_3
radio.RADIO_BAND_33 = RADIO_BAND_33
radio.RADIO_BAND_34 = RADIO_BAND_34
radio.RADIO_BAND_35 = RADIO_BAND_35
radio.RADIO_BAND_36 = RADIO_BAND_36
radio.RADIO_BAND_37 = RADIO_BAND_37
radio.RADIO_BAND_38 = RADIO_BAND_38
radio.RADIO_BAND_39 = RADIO_BAND_39
radio.RADIO_BAND_4 = RADIO_BAND_4
radio.RADIO_BAND_40 = RADIO_BAND_40
radio.RADIO_BAND_41 = RADIO_BAND_41
radio.RADIO_BAND_42 = RADIO_BAND_42
radio.RADIO_BAND_43 = RADIO_BAND_43
radio.RADIO_BAND_5 = RADIO_BAND_5
radio.RADIO_BAND_6 = RADIO_BAND_6
radio.RADIO_BAND_7 = RADIO_BAND_7
radio.RADIO_BAND_8 = RADIO_BAND_8
radio.RADIO_BAND_9 = RADIO_BAND_9
radio.RADIO_BAND_COUNT = RADIO_BAND_COUNT
radio.RADIO_BAND_GSM_1800 = RADIO_BAND_GSM_1800
radio.RADIO_BAND_GSM_1900 = RADIO_BAND_GSM_1900
radio.RADIO_BAND_GSM_850 = RADIO_BAND_GSM_850
radio.RADIO_BAND_GSM_900 = RADIO_BAND_GSM_900
radio.RADIO_BAND_GSM_900E = RADIO_BAND_GSM_900E
radio.RADIO_BAND_INVALID = RADIO_BAND_INVALID
radio.RADIO_BAND_NULL = RADIO_BAND_NULL
radio.RADIO_CONF_COUNT = RADIO_CONF_COUNT
radio.RADIO_CONF_INVALID = RADIO_CONF_INVALID
radio.RADIO_CONF_MIMO = RADIO_CONF_MIMO
radio.RADIO_CONF_NULL = RADIO_CONF_NULL
radio.RADIO_CONF_SISO = RADIO_CONF_SISO
radio.RADIO_CPRI_RATE_1 = RADIO_CPRI_RATE_1
radio.RADIO_CPRI_RATE_10 = RADIO_CPRI_RATE_10
radio.RADIO_CPRI_RATE_2 = RADIO_CPRI_RATE_2
radio.RADIO_CPRI_RATE_4 = RADIO_CPRI_RATE_4
radio.RADIO_CPRI_RATE_5 = RADIO_CPRI_RATE_5
radio.RADIO_CPRI_RATE_8 = RADIO_CPRI_RATE_8
radio.RADIO_DEBUG_DEBUG = RADIO_DEBUG_DEBUG
radio.RADIO_DEBUG_ERROR = RADIO_DEBUG_ERROR
radio.RADIO_DEBUG_INFO = RADIO_DEBUG_INFO
radio.RADIO_DEBUG_NONE = RADIO_DEBUG_NONE
radio.RADIO_DEBUG_TRACE = RADIO_DEBUG_TRACE
radio.RADIO_DEBUG_WARN = RADIO_DEBUG_WARN
radio.RADIO_EAGAIN = RADIO_EAGAIN
radio.RADIO_EERROR = RADIO_EERROR
radio.RADIO_EINVAL = RADIO_EINVAL
radio.RADIO_EIO = RADIO_EIO
radio.RADIO_ENOTSUP = RADIO_ENOTSUP
radio.RADIO_ESUCCESS = RADIO_ESUCCESS
radio.RADIO_INTERFACE_CPRI = RADIO_INTERFACE_CPRI
radio.RADIO_INTERFACE_JESD_CMOS = RADIO_INTERFACE_JESD_CMOS
radio.RADIO_INTERFACE_JESD_LVDS = RADIO_INTERFACE_JESD_LVDS
radio.RADIO_MODE_2GUERX = RADIO_MODE_2GUERX
radio.RADIO_MODE_3GNODEB = RADIO_MODE_3GNODEB
radio.RADIO_MODE_3GUERX = RADIO_MODE_3GUERX
radio.RADIO_MODE_4GENODEB_FDD_10MHZ = RADIO_MODE_4GENODEB_FDD_10MHZ
radio.RADIO_MODE_4GENODEB_FDD_15MHZ = RADIO_MODE_4GENODEB_FDD_15MHZ
radio.RADIO_MODE_4GENODEB_FDD_20MHZ = RADIO_MODE_4GENODEB_FDD_20MHZ
radio.RADIO_MODE_4GENODEB_FDD_3MHZ = RADIO_MODE_4GENODEB_FDD_3MHZ
radio.RADIO_MODE_4GENODEB_FDD_5MHZ = RADIO_MODE_4GENODEB_FDD_5MHZ
radio.RADIO_MODE_4GENODEB_TDD_10MHZ = RADIO_MODE_4GENODEB_TDD_10MHZ
radio.RADIO_MODE_4GENODEB_TDD_20MHZ = RADIO_MODE_4GENODEB_TDD_20MHZ
radio.RADIO_MODE_4GENODEB_TDD_5MHZ = RADIO_MODE_4GENODEB_TDD_5MHZ
radio.RADIO_MODE_4GUERX_FDD_10MHZ = RADIO_MODE_4GUERX_FDD_10MHZ
radio.RADIO_MODE_4GUERX_FDD_20MHZ = RADIO_MODE_4GUERX_FDD_20MHZ
radio.RADIO_MODE_4GUERX_FDD_5MHZ = RADIO_MODE_4GUERX_FDD_5MHZ
radio.RADIO_MODE_4GUERX_TDD_10MHZ = RADIO_MODE_4GUERX_TDD_10MHZ
radio.RADIO_MODE_4GUERX_TDD_20MHZ = RADIO_MODE_4GUERX_TDD_20MHZ
radio.RADIO_MODE_4GUERX_TDD_5MHZ = RADIO_MODE_4GUERX_TDD_5MHZ
radio.RADIO_MODE_COUNT = RADIO_MODE_COUNT
radio.RADIO_MODE_INVALID = RADIO_MODE_INVALID
radio.RADIO_MODE_NULL = RADIO_MODE_NULL
radio.RADIO_MODE_TD_SCDMA_NODEB = RADIO_MODE_TD_SCDMA_NODEB
radio.RADIO_NO_LOOPBACK = RADIO_NO_LOOPBACK
radio.RADIO_PLATFORM_BELLAN = RADIO_PLATFORM_BELLAN
radio.RADIO_PLATFORM_COUNT = RADIO_PLATFORM_COUNT
radio.RADIO_PLATFORM_DEFAULT = RADIO_PLATFORM_DEFAULT
radio.RADIO_PLATFORM_MERRIK = RADIO_PLATFORM_MERRIK
radio.RADIO_PLATFORM_NULL = RADIO_PLATFORM_NULL
radio.RADIO_PLATFORM_OSTRAV = RADIO_PLATFORM_OSTRAV
radio.RADIO_PLATFORM_TALWIN = RADIO_PLATFORM_TALWIN
radio.RADIO_RX_ANTENNA_1 = RADIO_RX_ANTENNA_1
radio.RADIO_RX_ANTENNA_2 = RADIO_RX_ANTENNA_2
radio.RADIO_RX_GAIN_AGC_FAST = RADIO_RX_GAIN_AGC_FAST
radio.RADIO_RX_GAIN_AGC_SLOW = RADIO_RX_GAIN_AGC_SLOW
radio.RADIO_RX_GAIN_AGC_SLOW_HYBRID = RADIO_RX_GAIN_AGC_SLOW_HYBRID
radio.RADIO_RX_GAIN_MGC = RADIO_RX_GAIN_MGC
radio.RADIO_RX_TO_TX_LOOPBACK = RADIO_RX_TO_TX_LOOPBACK
radio.RADIO_SELECT_0 = RADIO_SELECT_0
radio.RADIO_SELECT_1 = RADIO_SELECT_1
radio.RADIO_SELECT_ALL = RADIO_SELECT_ALL
radio.RADIO_STATE_DISABLE = RADIO_STATE_DISABLE
radio.RADIO_STATE_ENABLE = RADIO_STATE_ENABLE
radio.RADIO_TX_ANTENNA_1 = RADIO_TX_ANTENNA_1
radio.RADIO_TX_ANTENNA_2 = RADIO_TX_ANTENNA_2
radio.RADIO_TX_TO_RX_LOOPBACK = RADIO_TX_TO_RX_LOOPBACK
radio.RadioHooks = RadioHooks
radio.radioCpriInit = radioCpriInit
radio.radioGetDebugLevel = radioGetDebugLevel
radio.radioGetDriverNames = radioGetDriverNames
radio.radioGetIntegerFromCalibration = radioGetIntegerFromCalibration
radio.radioGetOscillatorDacValue = radioGetOscillatorDacValue
radio.radioGetOscillatorDacWidth = radioGetOscillatorDacWidth
radio.radioGetPlatformChipCount = radioGetPlatformChipCount
radio.radioGetPlatformName = radioGetPlatformName
radio.radioGetRxGainIndB = radioGetRxGainIndB
radio.radioGetRxGainOfAntennaIndB = radioGetRxGainOfAntennaIndB
radio.radioGetRxRtwp = radioGetRxRtwp
radio.radioGetRxRtwpIndBm = radioGetRxRtwpIndBm
radio.radioGetRxRtwpOfAntenna = radioGetRxRtwpOfAntenna
radio.radioGetRxRtwpOfAntennaIndBm = radioGetRxRtwpOfAntennaIndBm
radio.radioGetStringFromCalibration = radioGetStringFromCalibration
radio.radioGetTemperature = radioGetTemperature
radio.radioInit = radioInit
radio.radioInitByScript = radioInitByScript
radio.radioLoadCalibrationFile = radioLoadCalibrationFile
radio.radioReset = radioReset
radio.radioSelect = radioSelect
radio.radioSelectPlatform = radioSelectPlatform
radio.radioSetDebugFile = radioSetDebugFile
radio.radioSetDebugLevel = radioSetDebugLevel
radio.radioSetLoopback = radioSetLoopback
radio.radioSetOscillatorDacValue = radioSetOscillatorDacValue
radio.radioSetRxChannel = radioSetRxChannel
radio.radioSetRxFrequency = radioSetRxFrequency
radio.radioSetRxGain = radioSetRxGain
radio.radioSetRxGainMode = radioSetRxGainMode
radio.radioSetRxGainRegisters = radioSetRxGainRegisters
radio.radioSetRxState = radioSetRxState
radio.radioSetRxStateOfAntenna = radioSetRxStateOfAntenna
radio.radioSetTxChannel = radioSetTxChannel
radio.radioSetTxDcOffset = radioSetTxDcOffset
radio.radioSetTxFrequency = radioSetTxFrequency
radio.radioSetTxMaxPower = radioSetTxMaxPower
radio.radioSetTxMaxPowerOfAntenna = radioSetTxMaxPowerOfAntenna
radio.radioSetTxPowerRegisters = radioSetTxPowerRegisters
radio.radioSetTxState = radioSetTxState
radio.radioSetTxStateOfAntenna = radioSetTxStateOfAntenna
radio.radioSpiRead = radioSpiRead
radio.radioSpiWrite = radioSpiWrite
radio.radioVersion = radioVersion
radioNative.radioOpen = radioOpen
radioNative.radioClose = radioClose

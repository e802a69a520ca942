# SPDX-License-Identifier: LicenseRef-Proprietary
"""The 44 driver functions as scripts see them: arguments, driver call, result."""

from collections import namedtuple

# type: the name that messages quote; None: this argument is not tested
# good: a Lua value that is accepted, and logged: how the driver's log shows it
Kind = namedtuple("Kind", "type good logged")

UINT32 = Kind("uint32_t", "2140000000", "2140000000")
UINT16 = Kind("uint16_t", "3100", "3100")
INT16 = Kind("int16_t", "-45", "-45")
TEXT = Kind("char const *", "'a name'", '"a name"')
UNCHECKED = Kind(None, "-1", "-1")
REGISTERS = Kind("table", "{7, 8}", "[7, 8], 2")
INTEGER_OUT = Kind("int32_t *const", "nil", "null")
TEXT_OUT = Kind("char const **", "nil", "null")
FILE = Kind("FILE *", "nil", "null")
PLATFORM = Kind("enum RadioPlatformSelectIndex", "RADIO_PLATFORM_TALWIN", "1")
SELECT = Kind("enum RadioSelectIndex", "RADIO_SELECT_ALL", "2")
CONF = Kind("RadioConf", "RADIO_CONF_MIMO", "1")
MODE = Kind("RadioMode", "RADIO_MODE_4GENODEB_FDD_20MHZ", "7")
BAND = Kind("RadioBand", "RADIO_BAND_25", "25")
CPRI_RATE = Kind("RadioCpriRate", "RADIO_CPRI_RATE_10", "10")
STATE = Kind("RadioState", "RADIO_STATE_ENABLE", "1")
TX_ANTENNA = Kind("RadioTxAntenna", "RADIO_TX_ANTENNA_2", "1")
RX_ANTENNA = Kind("RadioRxAntenna", "RADIO_RX_ANTENNA_2", "1")
GAIN_MODE = Kind("RadioRxGainMode", "RADIO_RX_GAIN_AGC_SLOW_HYBRID", "3")
LOOPBACK = Kind("RadioLoopback", "RADIO_RX_TO_TX_LOOPBACK", "2")
DEBUG = Kind("RadioDebug", "RADIO_DEBUG_TRACE", "5")

# What a function makes of the driver's answer.
STATUS, IGNORED = "status", "ignored"
FLOAT, INT32, UNSIGNED, STRING, NAMES = "float", "int32", "uint32", "text", "names"

Function = namedtuple("Function", "name kinds result")

FUNCTIONS = [
    Function("radioSelect", [SELECT], STATUS),
    Function("radioSelectPlatform", [PLATFORM], STATUS),
    Function("radioReset", [], STATUS),
    Function("radioLoadCalibrationFile", [TEXT], STATUS),
    Function("radioGetIntegerFromCalibration", [TEXT, INTEGER_OUT], STATUS),
    Function("radioGetStringFromCalibration", [TEXT, TEXT_OUT], STATUS),
    Function("radioSetDebugFile", [FILE], IGNORED),
    Function("radioSetDebugLevel", [DEBUG], IGNORED),
    Function("radioGetDebugLevel", [], INT32),
    Function("radioVersion", [], STRING),
    Function("radioGetPlatformName", [], STRING),
    Function("radioGetPlatformChipCount", [], INT32),
    Function("radioGetDriverNames", [], NAMES),
    Function("radioInit", [CONF, MODE, BAND], STATUS),
    Function("radioInitByScript", [CONF, MODE, BAND, TEXT], STATUS),
    Function("radioCpriInit", [CPRI_RATE], STATUS),
    Function("radioSetTxState", [STATE], STATUS),
    Function("radioSetTxStateOfAntenna", [TX_ANTENNA, STATE], STATUS),
    Function("radioSetRxState", [STATE], STATUS),
    Function("radioSetRxStateOfAntenna", [RX_ANTENNA, STATE], STATUS),
    Function("radioSetTxMaxPower", [INT16], STATUS),
    Function("radioSetTxMaxPowerOfAntenna", [TX_ANTENNA, INT16], STATUS),
    Function("radioSetRxChannel", [UINT16], STATUS),
    Function("radioSetRxFrequency", [UINT32], STATUS),
    Function("radioSetTxChannel", [UINT16], STATUS),
    Function("radioSetTxFrequency", [UINT32], STATUS),
    Function("radioSetRxGainMode", [GAIN_MODE], STATUS),
    Function("radioSetRxGain", [INT16], STATUS),
    Function("radioGetRxGainIndB", [], INT32),
    Function("radioGetRxGainOfAntennaIndB", [RX_ANTENNA], INT32),
    Function("radioSetTxDcOffset", [TX_ANTENNA, INT16, INT16], STATUS),
    Function("radioGetRxRtwp", [], INT32),
    Function("radioGetRxRtwpIndBm", [], FLOAT),
    Function("radioGetRxRtwpOfAntenna", [RX_ANTENNA], INT32),
    Function("radioGetRxRtwpOfAntennaIndBm", [RX_ANTENNA], FLOAT),
    Function("radioGetTemperature", [], FLOAT),
    Function("radioSetTxPowerRegisters", [REGISTERS], STATUS),
    Function("radioSetRxGainRegisters", [REGISTERS], STATUS),
    Function("radioGetOscillatorDacWidth", [], INT32),
    Function("radioGetOscillatorDacValue", [], UNSIGNED),
    Function("radioSetOscillatorDacValue", [UINT16], STATUS),
    Function("radioSetLoopback", [LOOPBACK], STATUS),
    Function("radioSpiWrite", [UINT32, UNCHECKED], STATUS),
    Function("radioSpiRead", [UINT32], UNSIGNED),
]

WITHOUT_CONTEXT = "radioSelectPlatform"  # the only one that needs no open radio

# The type names of pointer objects, as swig_type() and messages give them.
HOOKS = "struct RadioHooks *|RadioHooks *"
INT_POINTER = "intptr_t *|int *|int_least32_t *|int_fast32_t *|int32_t *|int_fast16_t *"

NO_CONTEXT = "No radio context, call radioOpen() first"
NEGATIVE = "number must not be negative"


def count_message(name, expected, got):
    return f"Error in {name} expected {expected}..{expected} args, got {got}"


def type_message(name, position, expected, got):
    return f"Error in {name} (arg {position}), expected '{expected}' got '{got}'"


def status_message(name):
    return f"{name}() did not return success"


def call(function, arguments=None):
    """Lua text that calls the function, with arguments that are accepted where none are given."""
    if arguments is None:
        arguments = [kind.good for kind in function.kinds]
    return f"{function.name}({', '.join(arguments)})"


def logged(function):
    """The driver call that call(function) makes."""
    arguments = [kind.logged for kind in function.kinds]
    if function.name != WITHOUT_CONTEXT:
        arguments.insert(0, "context1")
    return f"{function.name}({', '.join(arguments)})"


def names(functions):
    """Ids for tests that are parametrised by functions."""
    return [function.name for function in functions]

# SPDX-License-Identifier: LicenseRef-Proprietary
"""The calls of which is measured what they cost: of every function of the radio module but those
that take a table, which are another question."""

from dataclasses import dataclass


@dataclass(frozen=True)
class Call:
    function: str
    arguments: str  # as a script would write them; names is a pointer object
    only_numbers: bool  # whether there are arguments, and all of them checked numbers

    @property
    def text(self):
        return f"{self.function}({self.arguments})"

    @property
    def statement(self):
        assign = "local x = " if "Get" in self.function or self.function in READERS else ""
        return f"{assign}f({self.arguments})"


READERS = ("radioVersion", "radioSpiRead")

# Per function: what a script usually gives.
NUMBERS = {
    "radioSelect": "2",
    "radioSelectPlatform": "1",
    "radioInit": "1, 7, 7",
    "radioCpriInit": "4",
    "radioSetDebugLevel": "3",
    "radioSetTxState": "1",
    "radioSetTxStateOfAntenna": "1, 1",
    "radioSetRxState": "1",
    "radioSetRxStateOfAntenna": "1, 1",
    "radioSetTxMaxPower": "-100",
    "radioSetTxMaxPowerOfAntenna": "1, 200",
    "radioSetRxChannel": "21100",
    "radioSetRxFrequency": "2535000000",
    "radioSetTxChannel": "3100",
    "radioSetTxFrequency": "2140000000",
    "radioSetRxGainMode": "1",
    "radioSetRxGain": "30",
    "radioGetRxGainOfAntennaIndB": "1",
    "radioSetTxDcOffset": "1, 5, -5",
    "radioGetRxRtwpOfAntenna": "1",
    "radioGetRxRtwpOfAntennaIndBm": "1",
    "radioSetOscillatorDacValue": "512",
    "radioSetLoopback": "1",
    "radioSpiRead": "16",
}
OTHERS = {
    "radioReset": "",
    "radioLoadCalibrationFile": "'board.cal'",
    "radioGetIntegerFromCalibration": "'offset', nil",
    "radioGetStringFromCalibration": "'serial', names",
    "radioSetDebugFile": "nil",
    "radioGetDebugLevel": "",
    "radioVersion": "",
    "radioGetPlatformName": "",
    "radioGetPlatformChipCount": "",
    "radioGetDriverNames": "",
    "radioInitByScript": "1, 7, 7, 'start.script'",
    "radioGetRxGainIndB": "",
    "radioGetRxRtwp": "",
    "radioGetRxRtwpIndBm": "",
    "radioGetTemperature": "",
    "radioGetOscillatorDacWidth": "",
    "radioGetOscillatorDacValue": "",
    "radioSpiWrite": "16, 255",
}
ZEROS = {
    "radioInitByScript": "0, 0, 0, 'start.script'",
    "radioSpiWrite": "0, 0",
}


def zeros(function):
    return ZEROS.get(function) or ", ".join("0" for _ in NUMBERS[function].split(","))


ORDINARY = [
    *(Call(function, arguments, True) for function, arguments in NUMBERS.items()),
    *(Call(function, arguments, False) for function, arguments in OTHERS.items()),
]
# 0 is what "off" and "the first" are called by; what is cut to it is looked at twice.
WITH_ZEROS = [Call(function, zeros(function), function in NUMBERS)
              for function in (*NUMBERS, *ZEROS)]

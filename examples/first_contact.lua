-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Is the driver there, and does the radio answer? Changes nothing on the board.
print("driver       " .. radioVersion())
print("platform     " .. radioGetPlatformName() .. ", chips: " .. radioGetPlatformChipCount())
print("temperature  " .. radioGetTemperature() .. " degrees Celsius")
print("oscillator   " .. radioGetOscillatorDacValue() .. " of 2^" .. radioGetOscillatorDacWidth())

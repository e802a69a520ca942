-- SPDX-License-Identifier: LicenseRef-Proprietary
-- Goes once through what a board does, whatever the scenario makes fail.
local function try(name, ...)
  pcall(_G[name], ...)
end

local function watch(times)
  for _ = 1, times do
    try("radioGetRxRtwpIndBm")
    try("radioGetRxGainIndB")
  end
end

local function wait(script)
  local file = assert(io.open("wait.script", "w"))
  file:write(script)
  file:close()
  try("radioInitByScript", RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7, "wait.script")
end

try("radioInit", RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7)
for frequency = 2640000000, 2660000000, 5000000 do
  try("radioSetTxFrequency", frequency)
  try("radioSetRxFrequency", frequency - 120000000)
end
try("radioSetRxFrequency", 2535000000)
try("radioSetTxState", RADIO_STATE_ENABLE)

-- The first signals of a busy band, in each gain mode.
try("radioSetRxGainMode", RADIO_RX_GAIN_AGC_FAST)
watch(120)
try("radioSetRxGainMode", RADIO_RX_GAIN_AGC_SLOW)
watch(150)
try("radioSetRxGainMode", RADIO_RX_GAIN_AGC_SLOW_HYBRID)
watch(50)
try("radioSetRxGainMode", RADIO_RX_GAIN_MGC)
try("radioSetRxGain", 30)
watch(5)
try("radioGetRxRtwp")
for _, antenna in ipairs { RADIO_RX_ANTENNA_1, RADIO_RX_ANTENNA_2 } do
  try("radioGetRxRtwpOfAntenna", antenna)
  try("radioGetRxRtwpOfAntennaIndBm", antenna)
  try("radioGetRxGainOfAntennaIndB", antenna)
end

-- Registers, tables, the reference.
for address = 0x00, 0x4f do
  try("radioSpiRead", address)
end
for value = 1, 20 do
  try("radioSpiWrite", 0x10, value)
  try("radioSpiRead", 0x10)
end
try("radioSetOscillatorDacValue", 40000)
try("radioSpiRead", 0x20)
try("radioSpiRead", 0x21)
try("radioSetRxGainRegisters", { 0, 125, 250, 375, 500, 625, 750 })
try("radioSetRxGain", 40)
try("radioGetRxGainIndB")
try("radioSetTxDcOffset", RADIO_TX_ANTENNA_1, 10, -10)
try("radioSpiRead", 0x38)

-- Heat, over 20 s.
for _ = 1, 4 do
  wait("delay 100 us\nwrite 0x30 1\nwrite 0x31 1\ndelay 5 s\n")
  try("radioGetTemperature")
  try("radioSpiRead", 0x30)
  try("radioSetTxState", RADIO_STATE_ENABLE)
end
try("radioSpiRead", 0x05)

-- Noise in narrow and wide channels.
for _, mode in ipairs { RADIO_MODE_2GUERX, RADIO_MODE_3GNODEB, RADIO_MODE_TD_SCDMA_NODEB } do
  local bands = { [RADIO_MODE_2GUERX] = RADIO_BAND_GSM_900E, [RADIO_MODE_3GNODEB] = RADIO_BAND_1,
    [RADIO_MODE_TD_SCDMA_NODEB] = RADIO_BAND_34 }
  try("radioInit", RADIO_CONF_SISO, mode, bands[mode])
  watch(10)
end

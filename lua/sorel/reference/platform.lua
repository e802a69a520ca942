-- SPDX-License-Identifier: LicenseRef-Proprietary
local NOT_OPEN = "No radio context, call radioOpen() first"

return {
    name = "platform",
    title = "opening, setting up, calibration, what the radio is",
    text = "The platform is selected first; radioInit sets the radio up for antennas, mode and "
        .. "band; then it is tuned and switched on. The shell opens the radio when it starts and "
        .. "closes it when it ends in good order.",
    entries = {
        {
            name = "radioSelectPlatform",
            text = "Selects the hardware platform of this process. The selection holds for what "
                .. "radioOpen opens later, and for the open radio from its next radioInit or "
                .. "radioInitByScript on.",
            arguments = {
                { name = "platform", type = "RadioPlatformSelectIndex", text = "which hardware" },
            },
            errors = { "RADIO_EINVAL: no such platform" },
            example = "radioSelectPlatform(RADIO_PLATFORM_TALWIN)",
        },
        {
            name = "radioOpen",
            text = "Opens the radio of the selected platform; one that is open is closed first. "
                .. "The shell has done so when it starts. Takes no arguments and ignores any. A "
                .. "radio that cannot be opened raises nothing: standard error says so, and "
                .. "functions that need it raise " .. ('"%s".'):format(NOT_OPEN),
            example = "radioOpen()",
        },
        {
            name = "radioClose",
            text = "Closes the radio and switches its transmitters off. Takes no arguments and "
                .. "ignores any.",
            errors = { ('"%s": there is no open radio'):format(NOT_OPEN) },
            example = "radioClose()\nradioOpen()",
        },
        {
            name = "radioSelect",
            text = "Selects the paths that functions without an antenna apply to, where they say "
                .. "so, from the next call on. RADIO_SELECT_ALL after radioOpen and radioReset. "
                .. "Needs no radioInit.",
            arguments = { { name = "paths", type = "RadioSelectIndex", text = "which paths" } },
            errors = {
                "RADIO_EINVAL: no such selection",
                "RADIO_ENOTSUP: the second path, which the platform or the configuration lacks",
            },
            example = "radioSelect(RADIO_SELECT_0)\nprint(radioGetRxRtwpIndBm())",
        },
        {
            name = "radioInit",
            text = "Sets the radio up for an antenna configuration, a mode and a band. Afterwards "
                .. "the receivers are on and the transmitters off, both tuned to the middle of the "
                .. "band; the receivers are in manual gain mode at the highest gain, the "
                .. "transmitters limited to the highest power, without offsets, loopback or "
                .. "tables. The selected paths stay. Another platform than before starts with "
                .. "fresh registers and oscillator, and without a CPRI link.",
            arguments = {
                { name = "configuration", type = "RadioConf", text = "the antennas" },
                { name = "mode", type = "RadioMode", text = "the air interface" },
                { name = "band", type = "RadioBand", text = "the operating band" },
            },
            errors = {
                "RADIO_EINVAL: no such configuration, mode or band",
                "RADIO_EERROR: the CPRI link that radioCpriInit has started is too slow for it",
                "RADIO_ENOTSUP: the platform lacks the antennas, mode or band, or the band is not "
                    .. "one of the mode's",
            },
            example = "radioInit(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7)",
        },
        {
            name = "radioInitByScript",
            text = "As radioInit, then runs an initialisation script. The form of the script is "
                .. "the driver's.",
            arguments = {
                { name = "configuration", type = "RadioConf", text = "the antennas" },
                { name = "mode", type = "RadioMode", text = "the air interface" },
                { name = "band", type = "RadioBand", text = "the operating band" },
                { name = "script", type = "char const *", text = "the path of the script's file" },
            },
            errors = {
                "RADIO_EINVAL: as for radioInit; nil, or a file that cannot be read or does not "
                    .. "parse, with nothing done; or a write of the script",
                "RADIO_EERROR: as for radioInit; or a check or a write of the script",
                "RADIO_ENOTSUP: as for radioInit; or a write of the script",
                "RADIO_EAGAIN: a write of the script",
            },
            example = [[
radioInitByScript(RADIO_CONF_SISO, RADIO_MODE_3GNODEB, RADIO_BAND_1,
    "cell.txt")]],
            unrun = "needs a script's file",
        },
        {
            name = "radioCpriInit",
            text = "Starts the CPRI link at a line rate. Until radioReset or another platform it "
                .. "limits what radioInit may set up. Needs no radioInit.",
            arguments = { { name = "rate", type = "RadioCpriRate", text = "the line rate" } },
            errors = {
                "RADIO_EINVAL: no such rate",
                "RADIO_EERROR: the rate is too low for what is set up",
                "RADIO_ENOTSUP: the platform lacks CPRI or that rate",
            },
            example = "radioCpriInit(RADIO_CPRI_RATE_5)",
        },
        {
            name = "radioReset",
            text = "Puts the hardware into the state after radioOpen: switched off, not "
                .. "initialised, all paths selected. The platform, the calibration data and the "
                .. "debug settings are kept.",
            errors = { "RADIO_EIO: the hardware did not answer" },
            example = "radioReset()",
        },
        {
            name = "radioLoadCalibrationFile",
            text = "Loads calibration data in place of what was loaded before. Needs no radioInit. "
                .. "The form of the file is the driver's.",
            arguments = { { name = "path", type = "char const *", text = "the path of the file" } },
            errors = {
                "RADIO_EINVAL: nil, or a file that cannot be read or holds no calibration data; "
                    .. "what was loaded before is kept",
            },
            example = 'radioLoadCalibrationFile("/etc/board/calibration.toml")',
            unrun = "needs a file of calibration data",
        },
        {
            name = "radioGetIntegerFromCalibration",
            text = "Looks an integer of the calibration data up by name and stores it through a "
                .. "native pointer. No function of the shell makes such a pointer; a C library "
                .. "loaded into Lua may.",
            arguments = {
                { name = "name", type = "char const *", text = "the integer's name" },
                { name = "value", type = "int32_t *const", text = "where to store it" },
            },
            errors = { "RADIO_EINVAL: nil, or no integer of that name" },
            example = 'print(pcall(radioGetIntegerFromCalibration, "crystal", nil))',
        },
        {
            name = "radioGetStringFromCalibration",
            text = "Looks a text of the calibration data up by name and stores a pointer to it "
                .. "through a native pointer. The text is valid until other data are loaded or the "
                .. "radio is closed. Of the shell's functions only radioGetDriverNames gives a "
                .. "pointer that is taken, and what it points to is then overwritten.",
            arguments = {
                { name = "name", type = "char const *", text = "the text's name" },
                { name = "value", type = "char const **", text = "where to store the pointer" },
            },
            errors = { "RADIO_EINVAL: nil, or no text of that name" },
            example = 'print(pcall(radioGetStringFromCalibration, "site", nil))',
        },
        {
            name = "radioGetPlatformChipCount",
            text = "Number of radio chips of the platform.",
            results = {
                { name = "count", type = "int32_t", text = "the number; -2147483648: failed" },
            },
            example = "print(radioGetPlatformChipCount())",
        },
        {
            name = "radioGetPlatformName",
            text = "Name of the open radio's platform.",
            results = { { name = "name", type = "char const *", text = "the name; nil: failed" } },
            example = "print(radioGetPlatformName())",
        },
        {
            name = "radioVersion",
            text = "Version of the driver.",
            results = { { name = "version", type = "char const *", text = "such as 1.1" } },
            example = "print(radioVersion())",
        },
        {
            name = "radioGetDriverNames",
            text = "Names of the drivers in the library, as a native pointer: Lua cannot read "
                .. "them.",
            results = {
                { name = "names", type = "char **", text = "a pointer object; nil: none" },
            },
            example = "print(swig_type(radioGetDriverNames()))  --> char **",
        },
    },
}

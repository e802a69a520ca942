// SPDX-License-Identifier: LicenseRef-Proprietary
// Calibration data: integers and texts by name, from a TOML file.
#ifndef SOREL_DRIVER_CALIBRATION_H
#define SOREL_DRIVER_CALIBRATION_H

#include "outcome.h"

#include <functional>
#include <map>
#include <string>

namespace sorel
{

// Maps whose nodes keep their place, as texts are handed out by address; looked up without a copy
// of the name.
struct Calibration {
    std::map<std::string, int32_t, std::less<>> integers;
    std::map<std::string, std::string, std::less<>> strings;
};

// Loads the file in place of what was loaded before. RADIO_EINVAL, and no change, for a file that
// cannot be read, is not TOML, or holds anything but the tables [integers] and [strings] with
// values of those kinds.
Outcome loadCalibration(Calibration &calibration, const char *path);

// RADIO_EINVAL: a null pointer, or no such name.
Outcome findInteger(Calibration &calibration, const char *name, int32_t *value);
Outcome findString(Calibration &calibration, const char *name, const char **value);

} // namespace sorel

#endif

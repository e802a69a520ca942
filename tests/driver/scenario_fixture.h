// SPDX-License-Identifier: LicenseRef-Proprietary
// The fixture of tests with scenario files.
#ifndef SOREL_TESTS_DRIVER_SCENARIO_FIXTURE_H
#define SOREL_TESTS_DRIVER_SCENARIO_FIXTURE_H

#include "radio_test.h"

#include <cstdlib>

namespace sorel_tests
{

// A fault of that function, with these lines besides.
inline std::string fault(const std::string &function, const std::string &lines)
{
    return "[[faults]]\nfunction = \"" + function + "\"\n" + lines + "\n";
}

class ScenarioTest : public RadioTest
{
protected:
    void SetUp() override
    {
        unsetenv("SOREL_SIM_SCENARIO");
        RadioTest::SetUp();
        path = file("");
    }

    void TearDown() override
    {
        unsetenv("SOREL_SIM_SCENARIO");
        radioClose(radioOpen()); // so that no fault is left
        RadioTest::TearDown();
    }

    // Opens the context anew in the scenario of that text; null where it is refused.
    void openIn(const std::string &text)
    {
        std::ofstream(path, std::ios::binary) << text;
        setenv("SOREL_SIM_SCENARIO", path.c_str(), 1);
        radioClose(context);
        context = radioOpen();
    }

    // radioInitByScript() with a script of that text.
    RadioReturn initByScript(const std::string &text)
    {
        return radioInitByScript(context, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ,
                                 RADIO_BAND_7, file(text).c_str());
    }

    // What radioOpen() says on standard error about that scenario, without the name of the file.
    std::string complaintsAbout(const std::string &text)
    {
        testing::internal::CaptureStderr();
        openIn(text);
        std::string said = testing::internal::GetCapturedStderr();
        for (std::size_t at = 0; (at = said.find(path + ":", at)) != std::string::npos;)
            said.erase(at, path.size() + 1);
        return said;
    }

    std::string path; // of the scenario file
};

} // namespace sorel_tests

#endif

// SPDX-License-Identifier: LicenseRef-Proprietary
// The fixture of tests that hold the table of platforms in driver/README.md against the board.
#ifndef SOREL_TESTS_DRIVER_PLATFORM_TABLE_H
#define SOREL_TESTS_DRIVER_PLATFORM_TABLE_H

#include "markdown.h"
#include "model.h"
#include "radio_test.h"

#include <functional>

namespace sorel_tests
{

// Both ends of "600..3800 MHz".
struct Range {
    double low, high;
};

inline Range rangeOf(const std::string &cell)
{
    const std::size_t dots = cell.find("..");
    EXPECT_NE(dots, std::string::npos) << cell;
    return {std::stod(cell), std::stod(cell.substr(dots + 2))};
}

class PlatformTableTest : public RadioTest
{
protected:
    // Calls probe with each row of the table, the platform of which is open.
    void forEachPlatform(const std::vector<std::string> &columns,
                         const std::function<void(const MarkdownRow &row)> &probe)
    {
        const char *const platforms[] = {"DEFAULT", "TALWIN", "MERRIK", "OSTRAV", "BELLAN"};
        std::vector<std::string> all = {"platform"};
        all.insert(all.end(), columns.begin(), columns.end());
        const std::vector<MarkdownRow> rows = readmeTable("Platforms", all);
        ASSERT_EQ(rows.size(), std::size(platforms));
        ASSERT_EQ(std::size(platforms), std::size_t{RADIO_PLATFORM_COUNT});
        for (std::size_t i = 0; i < rows.size(); ++i) {
            SCOPED_TRACE(platforms[i]);
            ASSERT_EQ(rows[i].at("platform"), platforms[i]);
            ASSERT_NO_THROW({
                for (const std::string &column : columns)
                    rows[i].at(column);
            }) << "a cell is missing";
            open(static_cast<RadioPlatformSelectIndex>(i));
            probe(rows[i]);
        }
    }

    // LTE 20 MHz with one path, in the role and the duplex that the platform has.
    void initAnyhow()
    {
        const std::pair<RadioMode, RadioBand> choices[] = {
            {RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7},
            {RADIO_MODE_4GUERX_FDD_20MHZ, RADIO_BAND_7},
            {RADIO_MODE_4GENODEB_TDD_20MHZ, RADIO_BAND_38},
        };
        for (const auto &[mode, band] : choices)
            if (radioInit(context, RADIO_CONF_SISO, mode, band) == RADIO_ESUCCESS) {
                setup = {mode, band};
                return;
            }
        FAIL() << "no LTE mode of 20 MHz";
    }

    // The mean of many readings.
    double measured()
    {
        std::vector<double> values;
        while (values.size() < readings)
            values.push_back(static_cast<double>(radioGetRxRtwpIndBm(context)));
        return mean(values);
    }

    double temperature()
    {
        return static_cast<double>(radioGetTemperature(context));
    }

    RadioReturn runScript(const std::string &script)
    {
        return radioInitByScript(context, RADIO_CONF_SISO, setup.first, setup.second,
                                 file(script).c_str());
    }

    // Whether the first and the last of that range are accepted, and no more.
    template <class Set>
    void expectRange(Set set, int low, int high)
    {
        const auto status = [&](int value) { return set(context, static_cast<int16_t>(value)); };
        EXPECT_EQ(status(low - 1), RADIO_EINVAL);
        EXPECT_EQ(status(low), RADIO_ESUCCESS);
        EXPECT_EQ(status(high), RADIO_ESUCCESS);
        EXPECT_EQ(status(high + 1), RADIO_EINVAL);
    }

    static constexpr std::size_t readings = 1000;
    std::pair<RadioMode, RadioBand> setup = {};
};

} // namespace sorel_tests

#endif

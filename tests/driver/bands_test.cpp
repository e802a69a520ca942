// SPDX-License-Identifier: LicenseRef-Proprietary
// Band edges and channel frequencies against the public tables in data/.
#include "radio_test.h"

#include <cmath>
#include <sstream>
#include <vector>

namespace sorel_tests
{

namespace
{

using Row = std::vector<double>;

std::vector<Row> readTable(const char *name)
{
    std::ifstream file(std::string(SOREL_DATA_DIR "/") + name);
    std::vector<Row> rows;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        std::istringstream cells(line);
        std::string cell;
        rows.emplace_back();
        while (std::getline(cells, cell, ','))
            rows.back().push_back(std::stod(cell));
    }
    return rows;
}

uint32_t hertz(double megahertz)
{
    return static_cast<uint32_t>(std::llround(megahertz * 1e6));
}

class Bands : public RadioTest
{
protected:
    // One direction of a band: its channels from first to last, step MHz apart, from low on.
    void expectChannels(RadioReturn (*setChannel)(RadioContext *, uint16_t), Register frequency,
                        int first, int last, double low, double step)
    {
        for (int channel = first; channel <= last; ++channel) {
            ASSERT_EQ(setChannel(context, static_cast<uint16_t>(channel)), RADIO_ESUCCESS);
            ASSERT_EQ(at(frequency), hertz(low + step * (channel - first))) << channel;
        }
        if (first > 0) {
            EXPECT_EQ(setChannel(context, static_cast<uint16_t>(first - 1)), RADIO_EINVAL);
        }
        EXPECT_EQ(setChannel(context, static_cast<uint16_t>(last + 1)), RADIO_EINVAL);
    }

    void expectEdges(RadioReturn (*setFrequency)(RadioContext *, uint32_t), double low, double high)
    {
        EXPECT_EQ(setFrequency(context, hertz(low) - 1), RADIO_EINVAL);
        EXPECT_EQ(setFrequency(context, hertz(low)), RADIO_ESUCCESS);
        EXPECT_EQ(setFrequency(context, hertz(high)), RADIO_ESUCCESS);
        EXPECT_EQ(setFrequency(context, hertz(high) + 1), RADIO_EINVAL);
    }
};

TEST_F(Bands, lte_channels_and_edges_are_the_public_ones)
{
    const std::vector<Row> rows = readTable("earfcn.csv");
    ASSERT_EQ(rows.size(), 34u);
    for (const Row &row : rows) {
        SCOPED_TRACE(row[0]);
        const bool isUnpaired = row[0] >= 33;
        init(RADIO_CONF_SISO,
             isUnpaired ? RADIO_MODE_4GENODEB_TDD_5MHZ : RADIO_MODE_4GENODEB_FDD_5MHZ,
             static_cast<RadioBand>(row[0]));
        const int downFirst = static_cast<int>(row[2]), downLast = static_cast<int>(row[3]);
        const int upFirst = static_cast<int>(row[5]), upLast = static_cast<int>(row[6]);
        expectChannels(radioSetTxChannel, TX_FREQUENCY, downFirst, downLast, row[1], 0.1);
        expectChannels(radioSetRxChannel, RX_FREQUENCY, upFirst, upLast, row[4], 0.1);
        expectEdges(radioSetTxFrequency, row[1], row[7]);
        expectEdges(radioSetRxFrequency, row[4], row[8]);
    }
}

TEST_F(Bands, utra_channels_are_the_public_ones)
{
    const std::vector<Row> rows = readTable("uarfcn.csv");
    ASSERT_EQ(rows.size(), 19u);
    for (const Row &row : rows) {
        SCOPED_TRACE(row[0]);
        init(RADIO_CONF_SISO, RADIO_MODE_3GNODEB, static_cast<RadioBand>(row[0]));
        const int downFirst = static_cast<int>(row[2]), downLast = static_cast<int>(row[3]);
        const int upFirst = static_cast<int>(row[5]), upLast = static_cast<int>(row[6]);
        expectChannels(radioSetTxChannel, TX_FREQUENCY, downFirst, downLast,
                       row[1] + downFirst / 5.0, 0.2);
        expectChannels(radioSetRxChannel, RX_FREQUENCY, upFirst, upLast, row[4] + upFirst / 5.0,
                       0.2);
    }
}

TEST_F(Bands, gsm_channels_are_the_public_ones)
{
    const struct {
        RadioBand band;
        int first, last;
        double uplink, distance;
    } rows[] = {
        {RADIO_BAND_GSM_850, 128, 251, 824.2, 45},   {RADIO_BAND_GSM_900, 1, 124, 890.2, 45},
        {RADIO_BAND_GSM_900E, 0, 124, 890.0, 45},    {RADIO_BAND_GSM_900E, 975, 1023, 880.2, 45},
        {RADIO_BAND_GSM_1800, 512, 885, 1710.2, 95}, {RADIO_BAND_GSM_1900, 512, 810, 1850.2, 80},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.band);
        init(RADIO_CONF_SISO, RADIO_MODE_2GUERX, row.band);
        // A terminal: it transmits the uplink.
        expectChannels(radioSetTxChannel, TX_FREQUENCY, row.first, row.last, row.uplink, 0.2);
        expectChannels(radioSetRxChannel, RX_FREQUENCY, row.first, row.last,
                       row.uplink + row.distance, 0.2);
    }
}

TEST_F(Bands, gsm_edges_are_the_public_ones)
{
    const struct {
        RadioBand band;
        double upLow, upHigh, downLow, downHigh;
    } rows[] = {
        {RADIO_BAND_GSM_850, 824, 849, 869, 894},
        {RADIO_BAND_GSM_900, 890, 915, 935, 960},
        {RADIO_BAND_GSM_900E, 880, 915, 925, 960},
        {RADIO_BAND_GSM_1800, 1710, 1785, 1805, 1880},
        {RADIO_BAND_GSM_1900, 1850, 1910, 1930, 1990},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.band);
        init(RADIO_CONF_SISO, RADIO_MODE_2GUERX, row.band);
        expectEdges(radioSetTxFrequency, row.upLow, row.upHigh);
        expectEdges(radioSetRxFrequency, row.downLow, row.downHigh);
    }
}

TEST_F(Bands, td_scdma_channels_are_five_times_the_megahertz)
{
    init(RADIO_CONF_SISO, RADIO_MODE_TD_SCDMA_NODEB, RADIO_BAND_34);
    expectChannels(radioSetTxChannel, TX_FREQUENCY, 10050, 10125, 2010, 0.2);
    expectChannels(radioSetRxChannel, RX_FREQUENCY, 10050, 10125, 2010, 0.2);
}

TEST_F(Bands, each_mode_takes_the_bands_of_its_air_interface_only)
{
    std::vector<int> utra;
    for (const Row &row : readTable("uarfcn.csv"))
        utra.push_back(static_cast<int>(row[0]));
    std::vector<int> lte;
    for (const Row &row : readTable("earfcn.csv"))
        lte.push_back(static_cast<int>(row[0]));
    const auto holds = [](const std::vector<int> &bands, int band) {
        return std::find(bands.begin(), bands.end(), band) != bands.end();
    };
    for (int band = 1; band <= 255; ++band) {
        if ((band > 25 && band < 33) || (band > 48 && band < 252))
            continue;
        SCOPED_TRACE(band);
        const bool isUnpaired = band >= 33 && band <= 43;
        const auto status = [&](RadioMode mode) {
            return radioInit(context, RADIO_CONF_SISO, mode, static_cast<RadioBand>(band));
        };
        const auto expected = [](bool isRight) { return isRight ? RADIO_ESUCCESS : RADIO_ENOTSUP; };
        EXPECT_EQ(status(RADIO_MODE_3GNODEB), expected(holds(utra, band)));
        EXPECT_EQ(status(RADIO_MODE_3GUERX), expected(holds(utra, band)));
        EXPECT_EQ(status(RADIO_MODE_2GUERX), expected(band >= 44 && band <= 48));
        EXPECT_EQ(status(RADIO_MODE_TD_SCDMA_NODEB), expected(isUnpaired));
        for (int mode = RADIO_MODE_4GENODEB_FDD_3MHZ; mode <= RADIO_MODE_4GENODEB_FDD_20MHZ; ++mode)
            EXPECT_EQ(status(static_cast<RadioMode>(mode)),
                      expected(holds(lte, band) && !isUnpaired));
        for (int mode = RADIO_MODE_4GUERX_TDD_5MHZ; mode <= RADIO_MODE_4GUERX_TDD_20MHZ; ++mode)
            EXPECT_EQ(status(static_cast<RadioMode>(mode)), expected(isUnpaired));
    }
}

} // namespace

} // namespace sorel_tests

// SPDX-License-Identifier: LicenseRef-Proprietary
// Calibration files: what is read from them, and that anything else is refused.
#include "hostile_texts.h"
#include "radio_test.h"

#include <cstdint>

#include <sys/stat.h>

namespace sorel_tests
{

namespace
{

class Calibration : public RadioTest
{
protected:
    void SetUp() override
    {
        RadioTest::SetUp();
        ASSERT_EQ(radioLoadCalibrationFile(context, SOREL_DATA_DIR "/good.toml"), RADIO_ESUCCESS);
    }

    RadioReturn load(const std::string &content)
    {
        return radioLoadCalibrationFile(context, file(content).c_str());
    }

    // The data that SetUp() has loaded are still there.
    void expectKept()
    {
        int32_t serial = 0;
        const char *site = nullptr;
        EXPECT_EQ(radioGetIntegerFromCalibration(context, "serial", &serial), RADIO_ESUCCESS);
        EXPECT_EQ(serial, 4711);
        EXPECT_EQ(radioGetStringFromCalibration(context, "site", &site), RADIO_ESUCCESS);
        EXPECT_STREQ(site, "roof, north");
    }
};

TEST_F(Calibration, integers_and_texts_are_found_by_name)
{
    expectKept();
    int32_t value = 0;
    EXPECT_EQ(radioGetIntegerFromCalibration(context, "lowest", &value), RADIO_ESUCCESS);
    EXPECT_EQ(value, INT32_MIN);
    EXPECT_EQ(radioGetIntegerFromCalibration(context, "highest", &value), RADIO_ESUCCESS);
    EXPECT_EQ(value, INT32_MAX);
    const char *text = nullptr;
    EXPECT_EQ(radioGetStringFromCalibration(context, "empty", &text), RADIO_ESUCCESS);
    EXPECT_STREQ(text, "");
}

TEST_F(Calibration, a_name_of_the_other_kind_or_none_is_refused_and_stores_nothing)
{
    int32_t value = 5;
    const char *text = nullptr;
    EXPECT_EQ(radioGetIntegerFromCalibration(context, "site", &value), RADIO_EINVAL);
    EXPECT_EQ(radioGetIntegerFromCalibration(context, "", &value), RADIO_EINVAL);
    EXPECT_EQ(radioGetStringFromCalibration(context, "serial", &text), RADIO_EINVAL);
    EXPECT_EQ(value, 5);
    EXPECT_EQ(text, nullptr);
}

TEST_F(Calibration, a_new_file_replaces_all_that_was_loaded)
{
    ASSERT_EQ(load("[integers]\nother = 1\n"), RADIO_ESUCCESS);
    int32_t value = 0;
    const char *text = nullptr;
    EXPECT_EQ(radioGetIntegerFromCalibration(context, "other", &value), RADIO_ESUCCESS);
    EXPECT_EQ(radioGetIntegerFromCalibration(context, "serial", &value), RADIO_EINVAL);
    EXPECT_EQ(radioGetStringFromCalibration(context, "site", &text), RADIO_EINVAL);
}

TEST_F(Calibration, texts_stay_valid_until_other_data_are_loaded)
{
    const char *site = nullptr;
    ASSERT_EQ(radioGetStringFromCalibration(context, "site", &site), RADIO_ESUCCESS);
    EXPECT_EQ(load("not TOML"), RADIO_EINVAL);
    EXPECT_EQ(radioReset(context), RADIO_ESUCCESS);
    init();
    EXPECT_STREQ(site, "roof, north");
}

TEST_F(Calibration, calibration_belongs_to_its_context)
{
    RadioContext *const other = radioOpen();
    int32_t value = 0;
    EXPECT_EQ(radioGetIntegerFromCalibration(other, "serial", &value), RADIO_EINVAL);
    EXPECT_EQ(radioClose(other), RADIO_ESUCCESS);
}

// [a.a.a ...
std::string deepKey(int depth)
{
    std::string key = "[a";
    for (int i = 0; i < depth; ++i)
        key += ".a";
    return key + "]\n";
}

TEST_F(Calibration, a_file_with_anything_else_is_refused_and_changes_nothing)
{
    const std::string contents[] = {
        "",
        "# nothing but a comment\n",
        "[integers",
        "[integers]\nn = 2147483648\n",
        "[integers]\nn = -2147483649\n",
        "[integers]\nn = 99999999999999999999\n",
        "[integers]\nn = 1.5\n",
        "[integers]\nn = \"1\"\n",
        "[integers]\nn = true\n",
        "[integers]\nn = [1]\n",
        "[integers]\nn = {a = 1}\n",
        "[integers.deeper]\nn = 1\n",
        "[integers]\nn = 1\nn = 2\n",
        "[strings]\ns = 1\n",
        "[strings]\ns = \"a\\u0000b\"\n",
        "[strings]\ns = 1979-05-27\n",
        "[strings]\ns = \"unfinished\n",
        "[strings]\ns = \"\xff\xfe\"\n",
        "[floats]\nf = 1.0\n",
        "integers = 1\n",
        "strings = []\n",
        "[[integers]]\nn = 1\n",
        std::string("[integers]\nn = 1\n\0", 18),
        "[integers]\nn = 1\n" + std::string(1100000, '#'),
        "[integers]\nn = " + std::string(100000, '[') + "\n",
        "[=",
        "\xc3\x80",
        "[integers]\n\xc3\x80 = 1\n",
        "[integers]\nn = 1 \xe3\x80\x80\n",
        "[[=",
        "[ .a]\n",
        "[integers]\n.n = 1\n",
        deepKey(500000),
        deepKey(4000),
    };
    for (const std::string &content : contents) {
        EXPECT_EQ(load(content), RADIO_EINVAL) << content.substr(0, 60);
        expectKept();
    }
}

TEST_F(Calibration, only_a_regular_file_is_read)
{
    const std::string pipe = file("");
    std::remove(pipe.c_str());
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const char *const path : {"", "/", "/dev/null", "/dev/zero", "/no/such/file"})
        EXPECT_EQ(radioLoadCalibrationFile(context, path), RADIO_EINVAL) << path;
    EXPECT_EQ(radioLoadCalibrationFile(context, pipe.c_str()), RADIO_EINVAL);
    expectKept();
}

TEST_F(Calibration, arbitrary_bytes_are_refused_or_loaded_but_never_crash)
{
    HostileTexts texts("platform = \"default\"\nserial = 1\n[integers]\nn = 1\nm = 0x7f\n"
                       "[strings]\ns = \"a\\n\\u00e9\"\nt = '''b'''\n"
                       "[[bands]]\nband = \"RADIO_BAND_7\"\nrx_gain = [0.5, -1]\ntx_power = 2\n");
    const std::string path = file("");
    int refused = 0;
    for (int i = 0; i < 3000; ++i) {
        texts.writeNext(path);
        const RadioReturn status = radioLoadCalibrationFile(context, path.c_str());
        ASSERT_TRUE(status == RADIO_EINVAL || status == RADIO_ESUCCESS) << status;
        refused += status == RADIO_EINVAL;
    }
    EXPECT_GT(refused, 1000);
    EXPECT_LT(refused, 3000);
}

} // namespace

} // namespace sorel_tests

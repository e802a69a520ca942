// SPDX-License-Identifier: LicenseRef-Proprietary
// Initialisation scripts: done as a whole, or not at all.
#include "radio_test.h"

namespace sorel_tests
{

namespace
{

class Script : public RadioTest
{
protected:
    RadioReturn run(const std::string &script, RadioConf configuration = RADIO_CONF_MIMO)
    {
        return radioInitByScript(context, configuration, RADIO_MODE_4GENODEB_FDD_20MHZ,
                                 RADIO_BAND_7, file(script).c_str());
    }
};

TEST_F(Script, writes_are_done_after_the_initialisation)
{
    ASSERT_EQ(run("# first\n"
                  "\n"
                  "write 0x10 0x12345678   # scratch\n"
                  "\twrite\t66 30\r\n"
                  "write 0x30 1\n"
                  "write 0x32 -100"),
              RADIO_ESUCCESS);
    EXPECT_EQ(at(SETUP), 1u | 1u << 8 | 7u << 16 | 7u << 24);
    EXPECT_EQ(at(SCRATCH), 0x12345678u);
    EXPECT_EQ(radioGetRxGainIndB(context), 30);
    EXPECT_EQ(at(TX_STATE), 1u);
    EXPECT_EQ(static_cast<int32_t>(at(TX_MAX_POWER)), -100);
}

TEST_F(Script, an_empty_script_is_an_initialisation)
{
    ASSERT_EQ(run(""), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_FREQUENCY), 2655000000u);
}

TEST_F(Script, numbers_may_be_signed_or_unsigned_32_bits)
{
    ASSERT_EQ(run("write 16 4294967295"), RADIO_ESUCCESS);
    EXPECT_EQ(at(SCRATCH), 0xffffffffu);
    ASSERT_EQ(run("write 0X10 -2147483648"), RADIO_ESUCCESS);
    EXPECT_EQ(at(SCRATCH), 0x80000000u);
    ASSERT_EQ(run("write 0x10 0xFFFFFFFE"), RADIO_ESUCCESS);
    EXPECT_EQ(at(SCRATCH), 0xfffffffeu);
}

TEST_F(Script, nothing_of_a_script_that_does_not_parse_is_done)
{
    const std::string mistakes[] = {
        "read 0x10",
        "write",
        "write 0x10",
        "write 0x10 1 2",
        "write 0x10 x",
        "write 0x 1",
        "write 0x10 0x",
        "write 0x10 4294967296",
        "write 0x10 -2147483649",
        "write 0x10 1.5",
        "write 0x10 0x100000000",
        "write 0x10 -0x1",
        "write 0x10 0x-1",
        "Write 0x10 1",
        "write 0x10 +1",
        "write 0x10 1;",
        "write 0x10 99999999999999999999",
        std::string("write 0x10 1\0", 13),
    };
    for (const std::string &mistake : mistakes) {
        EXPECT_EQ(run("write 0x10 5\n" + mistake), RADIO_EINVAL) << mistake;
        EXPECT_EQ(at(SETUP), 0u) << mistake;
        EXPECT_EQ(at(SCRATCH), 0u) << mistake;
    }
}

TEST_F(Script, nothing_is_done_when_a_write_is_refused)
{
    EXPECT_EQ(run("write 0x10 5\nwrite 0x999 1"), RADIO_EINVAL);
    EXPECT_EQ(run("write 0x10 5\nwrite 0x42 1000"), RADIO_EINVAL);
    EXPECT_EQ(run("write 0x10 5\nwrite 0x00 1"), RADIO_ENOTSUP);
    EXPECT_EQ(run("write 0x10 5\nwrite 0x31 1", RADIO_CONF_SISO), RADIO_ENOTSUP);
    EXPECT_EQ(run("write 0x10 5\nwrite 0x44 1\nwrite 0x42 1"), RADIO_EERROR);
    EXPECT_EQ(at(SETUP), 0u);
    EXPECT_EQ(at(SCRATCH), 0u);
}

TEST_F(Script, a_refused_script_keeps_the_former_initialisation)
{
    init(RADIO_CONF_SISO, RADIO_MODE_3GNODEB, RADIO_BAND_1);
    const uint32_t setup = at(SETUP);
    EXPECT_EQ(run("nonsense"), RADIO_EINVAL);
    EXPECT_EQ(run("write 0x999 1"), RADIO_EINVAL);
    EXPECT_EQ(at(SETUP), setup);
}

TEST_F(Script, the_initialisation_is_refused_as_without_a_script)
{
    const std::string path = file("write 0x10 5");
    EXPECT_EQ(radioInitByScript(context, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ,
                                RADIO_BAND_38, path.c_str()),
              RADIO_ENOTSUP);
    EXPECT_EQ(at(SCRATCH), 0u);
}

TEST_F(Script, the_script_takes_over_the_selected_platform)
{
    ASSERT_EQ(radioSelectPlatform(RADIO_PLATFORM_TALWIN), RADIO_ESUCCESS);
    ASSERT_EQ(run("write 0x10 5"), RADIO_ESUCCESS);
    EXPECT_STREQ(radioGetPlatformName(context), "simulated Talwin");
}

} // namespace

} // namespace sorel_tests

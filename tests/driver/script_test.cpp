// SPDX-License-Identifier: LicenseRef-Proprietary
// Initialisation scripts: done as a whole, or not at all.
#include "hostile_texts.h"
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
                  "delay 60 us\n"
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
        "write 0x10 0x-0",
        "Write 0x10 1",
        "write 0x10 +1",
        "write 0x10 1;",
        "write 0x10 99999999999999999999",
        "check 0x10",
        "check 0x10 0 0 0",
        "check 0x10 0 x",
        "delay",
        "delay 1",
        "delay 1 min",
        "delay 1.5 s",
        "delay -1 us",
        "delay 1 us us",
        "delay 10001 ms",
        "delay 4294967295 s",
        "delay 6 s\ndelay 5 s",
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

TEST_F(Script, a_check_compares_the_bits_of_its_mask)
{
    EXPECT_EQ(run("check 0x11 32768\n"
                  "write 0x10 0x1234\n"
                  "check 0x10 0x1234\n"
                  "check 0x10 0xff34 0x00ff\n"
                  "check 0x10 -1 0"),
              RADIO_ESUCCESS);
    EXPECT_EQ(at(SCRATCH), 0x1234u);
    ASSERT_EQ(radioReset(context), RADIO_ESUCCESS);
    EXPECT_EQ(run("write 0x10 0x1234\ncheck 0x10 0x1235"), RADIO_EERROR);
    EXPECT_EQ(run("write 0x10 0x1234\ncheck 0x10 0x1235 0x3"), RADIO_EERROR);
    EXPECT_EQ(run("write 0x10 0x1234\ncheck 0x999 0"), RADIO_EINVAL);
    EXPECT_EQ(at(SETUP), 0u);
    EXPECT_EQ(at(SCRATCH), 0u);
}

TEST_F(Script, a_command_takes_10_microseconds)
{
    const std::string five = "check 0x23 0\ncheck 0x23 0\ncheck 0x23 0\ncheck 0x23 0\n"
                             "check 0x23 0\n";
    EXPECT_EQ(run(five + "write 0x30 1"), RADIO_ESUCCESS); // locked after 60 us
    EXPECT_EQ(at(TX_STATE), 1u);
    EXPECT_EQ(run(five + "check 0x23 0"), RADIO_EERROR);
    EXPECT_EQ(run("write 0x30 1"), RADIO_EAGAIN);
}

TEST_F(Script, a_delay_lets_synthesisers_lock)
{
    EXPECT_EQ(run("delay 30 us\ncheck 0x23 0\nwrite 0x30 1"), RADIO_ESUCCESS);
    EXPECT_EQ(run("delay 29 us\ncheck 0x23 0\nwrite 0x30 1"), RADIO_EAGAIN);
    EXPECT_EQ(run("delay 1 ms\ncheck 0x23 3"), RADIO_ESUCCESS);
}

TEST_F(Script, a_delay_lets_the_board_warm_up)
{
    const float before = radioGetTemperature(context);
    ASSERT_EQ(run("delay 10 s"), RADIO_ESUCCESS);
    EXPECT_NEAR(radioGetTemperature(context) - before, 8 * (0.2 + 2 * 0.15), 0.1);
}

TEST_F(Script, no_time_passes_in_a_script_that_fails)
{
    const float before = radioGetTemperature(context);
    EXPECT_EQ(run("delay 10 s\ncheck 0x10 1"), RADIO_EERROR);
    EXPECT_EQ(radioGetTemperature(context), before);
}

TEST_F(Script, a_refused_script_keeps_the_former_initialisation)
{
    init(RADIO_CONF_SISO, RADIO_MODE_3GNODEB, RADIO_BAND_1);
    const uint32_t setup = at(SETUP);
    EXPECT_EQ(run("nonsense"), RADIO_EINVAL);
    EXPECT_EQ(run("write 0x999 1"), RADIO_EINVAL);
    EXPECT_EQ(at(SETUP), setup);
}

TEST_F(Script, arbitrary_bytes_are_refused_or_run_but_never_crash)
{
    HostileTexts texts("# bring-up\nwrite 0x10 1\nwrite 66 30\ndelay 100 us\n"
                       "check 0x23 3\ncheck 1 1 0xff\nwrite 0x30 1\ndelay 1 ms\n");
    const std::string path = file("");
    int refused = 0;
    for (int i = 0; i < 3000; ++i) {
        texts.writeNext(path);
        const RadioReturn status = radioInitByScript(
            context, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7, path.c_str());
        ASSERT_TRUE(status >= RADIO_ESUCCESS && status <= RADIO_EERROR) << status;
        refused += status != RADIO_ESUCCESS;
    }
    EXPECT_GT(refused, 1000);
    EXPECT_LT(refused, 3000);
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

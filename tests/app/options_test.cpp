// SPDX-License-Identifier: LicenseRef-Proprietary
#include "app/options.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace
{

// What is made of the words of a command line.
struct CommandLine {
    std::vector<std::string> words;
    AppArgs args; // whose texts are those of words

    explicit CommandLine(const std::vector<std::string> &behindTheName) : words{"sorelapp"}
    {
        words.insert(words.end(), behindTheName.begin(), behindTheName.end());
        std::vector<char *> argv;
        for (std::string &word : words) {
            argv.push_back(word.data());
        }
        argv.push_back(nullptr);
        EXPECT_EQ(parseCommandLine(static_cast<int>(words.size()), argv.data(), args), 0);
    }
};

constexpr const char *texts[] = {"",   "-",  "--",        "-v",    "-c",
                                 "-b", "-i", "--version", "x = 1", "a=b"};

TEST(CommandLine, isInteractiveWithoutArguments)
{
    const CommandLine line({});
    EXPECT_TRUE(line.args.interactive);
    EXPECT_EQ(line.args.command, nullptr);
    EXPECT_EQ(line.args.batchFile, nullptr);
    EXPECT_FALSE(line.args.version);
}

// That in two words is taken directly, the others by argp.
TEST(CommandLine, takesACommandAlikeInAnySpelling)
{
    for (const std::string text : texts) {
        for (const std::vector<std::string> &words : std::vector<std::vector<std::string>>{
                 {"-c", text}, {"--command", text}, {"--command=" + text}, {"-i", "-c", text}}) {
            const CommandLine line(words);
            EXPECT_STREQ(line.args.command, text.c_str());
            EXPECT_EQ(line.args.batchFile, nullptr);
            EXPECT_FALSE(line.args.interactive);
            EXPECT_FALSE(line.args.version);
        }
    }
}

TEST(CommandLine, takesAScriptAlikeInAnySpelling)
{
    for (const std::string text : texts) {
        for (const std::vector<std::string> &words : std::vector<std::vector<std::string>>{
                 {"-b", text}, {"--batch", text}, {"--batch=" + text}, {"-i", "-b", text}}) {
            const CommandLine line(words);
            EXPECT_STREQ(line.args.batchFile, text.c_str());
            EXPECT_EQ(line.args.command, nullptr);
            EXPECT_FALSE(line.args.interactive);
            EXPECT_FALSE(line.args.version);
        }
    }
}

// As many words as those that are taken directly.
TEST(CommandLine, takesAnOptionBehindOneWhoseTextIsInTheSameWord)
{
    const CommandLine script({"-bfile", "-i"});
    EXPECT_STREQ(script.args.batchFile, "file");
    EXPECT_TRUE(script.args.interactive);
    const CommandLine command({"-cx = 1", "-v"});
    EXPECT_STREQ(command.args.command, "x = 1");
    EXPECT_TRUE(command.args.version);
}

TEST(CommandLine, takesNoOtherWordForAnOption)
{
    EXPECT_TRUE(CommandLine({"-v", "-i"}).args.version);
    EXPECT_EXIT(CommandLine({"-bfile", "text"}), testing::ExitedWithCode(64), "Too many arguments");
    EXPECT_EXIT(CommandLine({"-cx", "text"}), testing::ExitedWithCode(64), "Too many arguments");
    EXPECT_EXIT(CommandLine({"--", "-c"}), testing::ExitedWithCode(64), "Too many arguments");
    EXPECT_EXIT(CommandLine({"-x", "text"}), testing::ExitedWithCode(64), "invalid option");
    EXPECT_EXIT(CommandLine({"c", "text"}), testing::ExitedWithCode(64), "Too many arguments");
    EXPECT_EXIT(CommandLine({"-i", "text"}), testing::ExitedWithCode(64), "Too many arguments");
}

} // namespace

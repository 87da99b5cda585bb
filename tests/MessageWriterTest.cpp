#include <mrlio/MessageWriter.h>

#include "support/FullDisk.h"
#include "support/TempDir.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <ios>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using MrlIOTest::FullDisk;
using MrlIOTest::readBytes;
using MrlIOTest::TempDir;
using MrlIOTest::writeBytes;
using Service::YearMonthDay;

const YearMonthDay march(2017, 3, 15);
const std::string root = "<morvane>\n";
const std::string end = "</morvane>\n";

template <class E>
std::string textOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const E& error) {
        return error.what();
    }
    return "";
}

class MessageWriterTest : public testing::Test
{
protected:
    MessageWriter writer(bool overwrite = false, bool throws = false, const YearMonthDay& start = march) const
    {
        return MessageWriter(folder.path(), "CASE", start, overwrite, throws);
    }

    /// One message without attributes.
    static void say(MessageWriter& writer, const std::string& text)
    {
        writer.writeMessage(MessageType::Message, text, 0, "", "", "");
    }

    static std::string said(const std::string& text)
    {
        return "<message date=\"15/3/2017\" time=\"\">\n " + text + "\n</message>\n";
    }

    std::string content() const { return readBytes(file); }

    const TempDir folder;
    const std::string file = folder.file("CASE.MSG");
    const std::string openingProblem = "Problem encountered opening file : " + file;
    const std::string closingProblem = "Problem closing file: " + file;
};

TEST_F(MessageWriterTest, GoesOnInFrontOfTheClosingTag)
{
    MessageWriter messages = writer();
    messages.resetRootTagName("run");
    for (const std::string text : {"one", "two", "three"}) {
        messages.open();
        say(messages, text);
        EXPECT_TRUE(content().ends_with(said(text))) << "others see a message at once";
        messages.resetStartDate(YearMonthDay());
        messages.writeMessage(MessageType::Bug, "", 3, "", "", "");
        messages.resetStartDate(march);
        messages.close();
        messages.resetRootTagName("another");
    }
    const std::string undated = "<bug date=\"\" time=\"\">\n \n</bug>\n";
    EXPECT_EQ(content(),
              "<run>\n" + said("one") + undated + said("two") + undated + said("three") + undated + "</run>\n");
}

TEST_F(MessageWriterTest, ElementsCarryTheAttributesThatAreGivenAndEscapeTheText)
{
    const std::string large(3 << 20, 'x');
    MessageWriter messages = writer();
    messages.open();
    messages.writeMessage(MessageType::Comment, "<a & b> \"'", 0, "n", "t", "g");
    messages.writeMessage(MessageType::Warning, "\x01\t\r\n\xFF", 0, "n", "", "g\x01\xFF");
    messages.writeMessage(MessageType::Problem, "", 0, "", "<\"&", "");
    say(messages, large);
    messages.close();
    const std::string times = R"( date="15/3/2017" time="")";
    EXPECT_TRUE(content() == root + "<comment" + times + " name=\"n\" type=\"t\" guid=\"g\">\n " +
                                 "&lt;a &amp; b&gt; &quot;&apos;\n</comment>\n<warning" + times +
                                 " name=\"n\" guid=\"g\x01\xFF\">\n \x01\t\r\n\xFF\n</warning>\n<problem" + times +
                                 " type=\"<\"&\">\n \n</problem>\n" + said(large) + end)
        << content().substr(0, 1000);
}

TEST_F(MessageWriterTest, DatesAndTimes)
{
    struct Case
    {
        YearMonthDay start;
        double elapsed;
        std::string date, time;
    };

    using Limits = std::numeric_limits<double>;
    const std::vector<Case> cases{
        {march, -0.0, "15/3/2017", ""},
        {march, 1e-15, "15/3/2017", "0.00000000000000"},
        {{2016, 12, 31}, 1.5, "1/1/2017", "1.50000000000000"},
        {{32767, 12, 31}, 0.5, "31/12/32767", "0.50000000000000"},
        {{32767, 12, 31}, 1, "", "1.00000000000000"},
        {march, 2.2e11, "", "220000000000.00000000000000"},
        {march, Limits::max(), "", std::to_string(Limits::max()) + "00000000"},
        {march, Limits::infinity(), "", "inf"},
        {march, Limits::quiet_NaN(), "", "nan"},
        {{}, 1.5, "", ""},
    };
    for (const Case& one : cases) {
        {
            MessageWriter messages = writer(true, false, one.start);
            messages.open();
            messages.writeMessage(MessageType::Bug, "", one.elapsed, "", "", "");
        } // which leaves the closing tag out
        EXPECT_EQ(content(), root + "<bug date=\"" + one.date + "\" time=\"" + one.time + "\">\n \n</bug>\n")
            << one.elapsed;
    }
}

TEST_F(MessageWriterTest, CallsOutOfOrderAndBadArgumentsWriteNothing)
{
    MessageWriter messages = writer();
    const auto write = [&](int type, double elapsed) {
        messages.writeMessage(static_cast<MessageType::Enum>(type), "text", elapsed, "", "", "");
    };
    EXPECT_EQ(textOf<std::runtime_error>([&] { write(-1, -1); }),
              "Unable to write message: the MessageWriter must be opened first.");
    EXPECT_EQ(textOf<std::runtime_error>([&] { messages.resetStartDate(march); }),
              "Unable to reset start date: the MessageWriter must be opened first.");
    messages.close();
    messages.open();
    EXPECT_EQ(textOf<std::runtime_error>([&] { messages.open(); }), "MessageWriter is already open.");
    EXPECT_EQ(textOf<std::runtime_error>([&] { messages.resetRootTagName("late"); }),
              "Unable to set tags: the MessageWriter must not be open.");
    EXPECT_EQ(textOf<std::invalid_argument>([&] { write(-1, -1.5); }),
              "Elapsed time is invalid: -1.5.  Must be >= 0.0.");
    EXPECT_EQ(textOf<std::runtime_error>([&] { write(6, 1); }), "Unknown message type");
    EXPECT_THROW(messages.resetStartDate(YearMonthDay((1L << 32) + 2000, 1, 1)), std::exception);
    messages.close();
    EXPECT_EQ(content(), root + end);
}

TEST_F(MessageWriterTest, ReplacesAFileOnlyIfToldSo)
{
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    MessageWriter messages(".", "CASE", march, false, false);
    std::filesystem::current_path(before);
    writeBytes(file, "somebody else's, since the construction");
    EXPECT_EQ(textOf<std::runtime_error>([&] { messages.open(); }), openingProblem);
    EXPECT_EQ(textOf<std::invalid_argument>([&] { writer(); }), "File " + file + " already exists.");
    MessageWriter replacing = writer(true);
    EXPECT_EQ(content(), "somebody else's, since the construction") << "the construction opens nothing";
    replacing.open();
    EXPECT_EQ(content(), root);
    std::filesystem::remove(file);
    messages.open();
    messages.close();
    EXPECT_EQ(content(), root + end);
    EXPECT_EQ(textOf<std::invalid_argument>([&] { MessageWriter(file, "CASE", march, true, true); }),
              "Path points to an existing item that is not a directory: " + file);
}

TEST_F(MessageWriterTest, GoesOnOnlyInAFileThatHoldsWhatItWrote)
{
    MessageWriter messages = writer();
    messages.open();
    say(messages, "one");
    messages.close();
    const std::string kept = root + said("one");

    writeBytes(file, kept.substr(1));
    EXPECT_EQ(textOf<std::runtime_error>([&] { messages.open(); }), openingProblem);
    EXPECT_EQ(content(), kept.substr(1));
    std::filesystem::remove(file);
    EXPECT_EQ(textOf<std::runtime_error>([&] { messages.open(); }), openingProblem);
    EXPECT_FALSE(std::filesystem::exists(file));

    for (const std::string behind : {"", "</morvane>\nappended by others\n"}) {
        writeBytes(file, kept + behind);
        messages.open();
        messages.close();
        EXPECT_EQ(content(), kept + end);
    }
}

TEST_F(MessageWriterTest, OnAFullDiskLosesOnlyWhatCouldNotBeWritten)
{
    const std::size_t needed = (root + said("one") + said("two") + end).size();
    for (std::size_t i = 0; i < 2 * needed; ++i) {
        const std::size_t room = i / 2;
        const bool throws = i % 2 != 0;
        SCOPED_TRACE(testing::Message() << room << (throws ? " throwing" : " silent"));
        const bool hasRoot = room >= root.size();
        const std::size_t whole = hasRoot ? std::min<std::size_t>(2, (room - root.size()) / said("one").size()) : 0;
        const std::string kept = root + (whole > 0 ? said("one") : "") + (whole > 1 ? said("two") : "");
        std::filesystem::remove(file);
        MessageWriter messages = writer(false, throws);
        {
            const FullDisk full(room);
            EXPECT_EQ(textOf<std::runtime_error>([&] { messages.open(); }), throws && !hasRoot ? openingProblem : "");
            for (std::size_t count = 0; count < 2 && (hasRoot || !throws); ++count) {
                const auto sayIt = [&] { say(messages, count == 0 ? "one" : "two"); };
                EXPECT_EQ(textOf<std::ios_base::failure>(sayIt).empty(), count < whole || !throws);
            }
            EXPECT_EQ(textOf<std::runtime_error>([&] { messages.close(); }), hasRoot || !throws ? closingProblem : "");
            EXPECT_EQ(std::filesystem::exists(file) ? content() : "", hasRoot ? (kept + end).substr(0, room) : "");
            EXPECT_NO_THROW(messages.close());
        }
        messages.open();
        say(messages, "later");
        messages.close();
        EXPECT_EQ(content(), kept + said("later") + end);
    }
}

} // namespace

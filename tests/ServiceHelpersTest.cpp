#include "files/FileStamp.h"
#include "service/Delegates.h"
#include "service/MathHelpers.h"
#include "service/Text.h"
#include "service/Utf8.h"
#include "support/TempDir.h"

#include <mrlio/service/AssertFailure.h>
#include <mrlio/service/EnumInfo.h>
#include <mrlio/service/Exception.h>
#include <mrlio/service/Log.h>
#include <mrlio/service/SimulatorType.h>

#include <atomic>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <utility>
#include <vector>

namespace {
using namespace Kvt::Mrl::Core::Service;
using Kvt::Mrl::Core::Keywords::SimulatorType;

/// Restores the quiet log at the end of a test.
struct QuietLog
{
    ~QuietLog() { Log::SetSink(nullptr); }
};

TEST(Log, ReachesItsReceiverAndSurvivesItsFailures)
{
    const QuietLog quiet;
    std::vector<std::pair<std::string, int>> seen;
    Log::SetSink([&](const std::string& text, MessageSeverity severity) { seen.emplace_back(text, severity); });
    Log::SendLogMessage("lost disk", static_cast<MessageSeverity>(3));
    Log::SendLogMessage(nullptr, static_cast<MessageSeverity>(77));
    EXPECT_EQ(seen, (std::vector<std::pair<std::string, int>>{{"lost disk", 3}, {"", 77}}));

    Log::SetSink([](const std::string&, MessageSeverity) { throw 5; });
    EXPECT_NO_THROW(Log::SendLogMessage("a", SeverityWarning));
    Log::SetSink({});
    Log::SendLogMessage("b", SeverityWarning);
    EXPECT_EQ(seen.size(), 2u);
}

TEST(Log, AReceiverMayLogAndReplaceItself)
{
    const QuietLog quiet;
    std::string seen;
    Log::SetSink([&](const std::string& text, MessageSeverity) {
        const std::string own = text; // this very receiver ends with the next line at the latest
        Log::SetSink([&](const std::string& later, MessageSeverity) { seen += later; });
        Log::SendLogMessage(("again " + own).c_str(), SeverityError);
    });
    Log::SendLogMessage("first", SeverityError);
    EXPECT_EQ(seen, "again first");
}

TEST(Log, ThreadsSendWhileReceiversChange)
{
    const QuietLog quiet;
    std::atomic<int> count{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < 500; ++i) {
                if (t == 0)
                    Log::SetSink([&](const std::string&, MessageSeverity) { ++count; });
                Log::SendLogMessage("x", SeverityWarning);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_GE(count.load(), 500);
}

TEST(AssertFailure, ThrowsTheMessage)
{
    const auto textOf = [](const char* message, const char* place) -> std::string {
        try {
            AssertFailure(message, place);
        } catch (const ServiceException& exception) {
            return exception.what();
        }
    };
    EXPECT_EQ(textOf("number of vectors has not been initialized", nullptr),
              "number of vectors has not been initialized");
    EXPECT_EQ(textOf("broken", "Index.cpp"), "broken (Index.cpp)");
    EXPECT_EQ(textOf(nullptr, nullptr), "");
}

TEST(EnumInfo, LookUpsMatchWholeLabelsAndLeaveTheOutputAlone)
{
    SimulatorType::Enum value = SimulatorType::Unknown;
    EXPECT_FALSE(findEnum<SimulatorType>("mb30", value) || findEnum<SimulatorType>("MB3", value));
    EXPECT_EQ(value, SimulatorType::Unknown);
    EXPECT_TRUE(findEnum<SimulatorType>("MB30", value));
    EXPECT_EQ(value, SimulatorType::MB30);

    std::string label = "before";
    EXPECT_FALSE(findLabel<SimulatorType>(SimulatorType::Unknown, label));
    EXPECT_EQ(label, "before");
    EXPECT_TRUE(findLabel<SimulatorType>(SimulatorType::MA10, label));
    EXPECT_EQ(label, "MA10");
}

TEST(Text, Trimming)
{
    const struct
    {
        const char* text;
        bool left, right;
        const char* blanksOff;
        const char* spaceOff;
    } rows[] = {
        {"  a b  ", true, true, "a b", "a b"},
        {"  a ", true, false, "a ", "a "},
        {" a  ", false, true, " a", " a"},
        {"\t a\n ", true, true, "\t a\n", "a"},
        {"    ", true, true, "", ""},
        {"    ", false, true, "", ""},
        {"", true, true, "", ""},
        {" a ", false, false, " a ", " a "},
    };

    for (const auto& row : rows) {
        std::string blanks = row.text, space = row.text;
        StringTrimBlank(blanks, row.left, row.right);
        StringTrimSpace(space, row.left, row.right);
        EXPECT_EQ(blanks, row.blanksOff);
        EXPECT_EQ(space, row.spaceOff);
    }
    EXPECT_EQ(StringTrim("\r\n TIME\t"), "TIME");
    EXPECT_TRUE(AllBlanks("") && AllBlanks("   ") && !AllBlanks(" \t"));
}

TEST(Text, LetterCaseIsAsciiOnly)
{
    std::string text = "SmSpec\xC4 Z[";
    StringToLower(text);
    EXPECT_EQ(text, "smspec\xC4 z[");
    EXPECT_TRUE(NoCaseStringEqual("UnRst", "uNrST"));
    EXPECT_FALSE(NoCaseStringEqual("[", "{") || NoCaseStringEqual("AB", "ABC"));
    EXPECT_TRUE(NoCaseStringLess("a", "B") && NoCaseStringLess("AB", "abc") && NoCaseStringLess("z", "\xC4"));
    EXPECT_FALSE(NoCaseStringLess("b", "A") || NoCaseStringLess("A", "a"));
}

TEST(Text, SplitsIntoPieces)
{
    std::vector<std::string> pieces = {"old"};
    StringSplit("ABCDEFGHIJ", 8, pieces);
    EXPECT_EQ(pieces, (std::vector<std::string>{"ABCDEFGH", "IJ"}));
    StringSplit("ABCDEFGH", 8, pieces);
    EXPECT_EQ(pieces, (std::vector<std::string>{"ABCDEFGH"}));
    StringSplit("AB", 0, pieces);
    EXPECT_EQ(pieces, (std::vector<std::string>{"AB"}));
    StringSplit("", 8, pieces);
    EXPECT_TRUE(pieces.empty());
}

TEST(Math, EqualityWithinTolerances)
{
    EXPECT_TRUE(Math::EqF(0.0f, 0.0f, 1e-5f, 1e-30f) && Math::EqF(-1e-31f, 0.0f, 1e-5f, 1e-30f));
    EXPECT_FALSE(Math::EqF(1e-29f, 0.0f, 1e-5f, 1e-30f));
    EXPECT_TRUE(Math::EqD(-999.0 * (1 + 1e-14), -999.0, 1e-13, 1e-30));
    EXPECT_FALSE(Math::EqD(-999.0 * (1 + 1e-12), -999.0, 1e-13, 1e-30));
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(Math::EqD(infinity, infinity, 1e-5, 1));
    EXPECT_FALSE(Math::EqD(infinity, 1, 1e-5, 1) || Math::EqD(infinity, -infinity, 1, 1) || Math::EqD(nan, nan, 1, 1));
}

/// An object that is filled step by step, as an index is by its scan.
struct Filled
{
    void clear() { values.clear(); }

    void fill(bool breaks)
    {
        DelegateBase guard(onDestruction(*this, &Filled::clear));
        values.assign(3, 1);
        if (breaks)
            throw std::runtime_error("broken file");
        guard.Disarm();
    }

    std::vector<int> values;
};

TEST(Delegates, GuardClearsOnlyWhatFailed)
{
    Filled object;
    EXPECT_NO_THROW(object.fill(false));
    EXPECT_EQ(object.values.size(), 3u);
    EXPECT_THROW(object.fill(true), std::runtime_error);
    EXPECT_TRUE(object.values.empty());
}

TEST(Utf8, OnlyShortestFormsOfRealCharactersAreValid)
{
    const std::pair<std::string, std::size_t> rows[] = {
        {"a", 1},
        {"\xC3\xA9x", 2},
        {"\xE2\x82\xAC", 3},
        {"\xF0\x9F\x98\x80", 4},
        {"", 0},
        {"\x80", 0},
        {"\xC0\x80", 0},
        {"\xC3", 0},
        {"\xC3(", 0},
        {"\xE0\x80\x80", 0},
        {"\xED\xA0\x80", 0},
        {"\xE2\x82", 0},
        {"\xF0\x80\x80\x80", 0},
        {"\xF4\x90\x80\x80", 0},
        {"\xF5\x80\x80\x80", 0},
        {"\xFF", 0},
    };
    for (const auto& [text, length] : rows)
        EXPECT_EQ(utf8CharacterLength(text), length) << testing::PrintToString(text);
    std::string out = ">";
    appendUtf8(out, u"aé€😀");
    EXPECT_EQ(out, ">a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    const char16_t halves[] = {0xDC00, 0xD800};
    out.clear();
    appendUtf8(out, std::u16string_view(halves, 2));
    EXPECT_EQ(out, "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(FileStamp, IsInUtcAndTellsChangesBySecondAndLength)
{
    using Kvt::Mrl::MrlIO::FileStamp;
    const MrlIOTest::TempDir directory;
    const FileName file(directory.file("CASE.UNSMRY"));
    const auto stampAt = [&](const std::string& bytes, long seconds) {
        MrlIOTest::writeBytes(file.GetFullName(), bytes);
        const timespec times[] = {{seconds, 999999999}, {seconds, 999999999}};
        EXPECT_EQ(::utimensat(AT_FDCWD, file.GetFullName().c_str(), times, 0), 0);
        FileStamp stamp;
        EXPECT_TRUE(FileStamp::read(file, stamp));
        return stamp;
    };
    const FileStamp stamp = stampAt("12345", 951782399);
    EXPECT_EQ(stamp, (FileStamp{2000, 2, 28, 23, 59, 59, 5}));
    EXPECT_EQ(stampAt("54321", 951782399), stamp);
    EXPECT_FALSE(stampAt("12345", 951782400) == stamp || stampAt("1234", 951782399) == stamp);

    FileStamp untouched{1, 2, 3, 4, 5, 6, 7};
    EXPECT_FALSE(FileStamp::read(FileName(directory.file("missing")), untouched));
    EXPECT_EQ(untouched.length, 7);
}
} // namespace

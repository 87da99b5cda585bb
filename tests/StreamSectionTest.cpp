#include "core/RetryWait.h"
#include "service/FileStream.h"
#include "support/TempDir.h"

#include <mrlio/SeqStreamWrapper.h>
#include <mrlio/StreamSection.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

using namespace Kvt::Mrl::MrlIO;
using MrlIOTest::readBytes;
using MrlIOTest::TempDir;
using MrlIOTest::writeBytes;
using Service::FileMode;
using Service::FileName;

namespace {

/// Notes the waits in place of sleeping, and lets a test act during one of them.
class NotedWaits
{
public:
    NotedWaits()
    {
        waits().clear();
        setRetryWait([](std::chrono::milliseconds wait) {
            waits().push_back(wait.count());
            if (action())
                action()();
        });
    }

    NotedWaits(const NotedWaits&) = delete;
    NotedWaits& operator=(const NotedWaits&) = delete;

    ~NotedWaits()
    {
        action() = nullptr;
        setRetryWait(nullptr);
    }

    static std::vector<long>& waits()
    {
        static std::vector<long> noted;
        return noted;
    }

    static std::function<void()>& action()
    {
        static std::function<void()> during;
        return during;
    }
};

std::string contentOf(std::streambuf* buffer)
{
    return {std::istreambuf_iterator<char>(buffer), std::istreambuf_iterator<char>()};
}

std::string errorOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "nothing thrown";
}

} // namespace

TEST(StreamSection, LiesBesideItsTarget)
{
    const TempDir dir;
    StreamSection named(FileName(dir.file("CASE.V2.UNRST")), "A", false);
    StreamSection unnamed(FileName(dir.file("CASE.UNRST")), "", true);
    named.stream() << "a";
    unnamed.stream() << 1.5;
    named.close();
    unnamed.close();
    EXPECT_EQ(readBytes(dir.file("CASE.V2_A.tmp")), "a");
    EXPECT_EQ(readBytes(dir.file("CASE_FFM.tmp")), "1.500000e+00");
}

TEST(StreamSection, GoesOnWhereItStoppedAndStartsAfreshAfterRemove)
{
    const TempDir dir;
    const std::string file = dir.file("CASE_A.tmp");
    writeBytes(file, "left over from a run that died");
    StreamSection section(FileName(dir.file("CASE.UNRST")), "A", false);
    section.stream() << "one ";
    section.close();
    EXPECT_EQ(readBytes(file), "one ");
    section.stream() << "two";
    EXPECT_EQ(contentOf(section.rewind()), "one two");
    section.remove();
    EXPECT_FALSE(std::filesystem::exists(file));
    section.stream() << "new";
    section.close();
    EXPECT_EQ(readBytes(file), "new");
}

TEST(StreamSection, ClosingAfterReadingSavesThePlaceOfTheReader)
{
    const TempDir dir;
    StreamSection section(FileName(dir.file("CASE.UNRST")), "A", false);
    section.stream() << "0123456789";
    std::streambuf* const content = section.rewind();
    ASSERT_NE(content, nullptr);
    std::string first(4, ' ');
    EXPECT_EQ(content->sgetn(first.data(), 4), 4);
    section.close();
    section.stream() << "xy";
    section.close();
    EXPECT_EQ(readBytes(dir.file("CASE_A.tmp")), "0123xy6789");
}

TEST(StreamSection, OnlyAnOpenSectionWithContentRewinds)
{
    const TempDir dir;
    StreamSection section(FileName(dir.file("CASE.UNRST")), "A", false);
    EXPECT_EQ(errorOf([&] { section.rewind(); }), "The file has not been opened");
    section.stream();
    EXPECT_EQ(section.rewind(), nullptr);
    section.stream() << "x";
    section.stream().setstate(std::ios_base::badbit);
    EXPECT_EQ(errorOf([&] { section.rewind(); }), "Problem encountered reading file : " + dir.file("CASE_A.tmp"));

    // A failed stream is no reason to empty the file.
    section.close();
    section.stream() << "y";
    EXPECT_EQ(contentOf(section.rewind()), "xy");
}

TEST(StreamSection, TellsWhenTheFileCannotBeOpened)
{
    const TempDir dir;
    const NotedWaits noted;
    StreamSection section(FileName(dir.file("missing/CASE.UNRST")), "A", false);
    EXPECT_EQ(errorOf([&] { section.stream(); }),
              "Problem encountered opening file on StreamSection : A - Failed to open file after 10 attempts : " +
                  dir.file("missing/CASE_A.tmp"));
    EXPECT_EQ(NotedWaits::waits(), (std::vector<long>{500, 1000, 1500, 2000, 2500, 3000, 3500, 4000, 4500, 5000}));
}

TEST(StreamSection, WaitsForALockedFileWithoutTouchingIt)
{
    const TempDir dir;
    const NotedWaits noted;
    const std::string file = dir.file("CASE_A.tmp");
    StreamSection section(FileName(dir.file("CASE.UNRST")), "A", false);
    section.stream() << "kept ";
    section.close();

    auto other = std::make_unique<Service::FileStream>(file, FileMode::Read | FileMode::Exclusive);
    ASSERT_TRUE(other->good());
    NotedWaits::action() = [&] {
        EXPECT_EQ(readBytes(file), "kept ");
        if (NotedWaits::waits().size() == 3)
            other.reset();
    };
    section.stream() << "and more";
    EXPECT_EQ(NotedWaits::waits(), (std::vector<long>{500, 1000, 1500}));
    section.close();
    EXPECT_EQ(readBytes(file), "kept and more");
}

TEST(StreamSection, KeepsItsFileFromTheFirstOpeningUntilItIsRemoved)
{
    const TempDir dir;
    const NotedWaits noted;
    const FileName target(dir.file("CASE.UNRST"));
    const std::string file = dir.file("CASE_A.tmp");
    StreamSection first(target, "A", false);
    auto second = std::make_unique<StreamSection>(FileName(dir.file("./CASE.UNRST")), "A", false);
    first.stream() << "first" << std::flush;
    EXPECT_THROW(second->stream(), std::runtime_error);
    first.close();
    EXPECT_THROW(second->stream(), std::runtime_error);
    second->remove();
    EXPECT_EQ(readBytes(file), "first");
    EXPECT_EQ(NotedWaits::waits().size(), 20U);

    first.remove();
    EXPECT_NO_THROW(second->stream());
    EXPECT_THROW(first.stream(), std::runtime_error);
    second.reset();
    EXPECT_NO_THROW(first.stream());
}

TEST(StreamSection, AnOpeningThatFailedReservesNothing)
{
    const TempDir dir;
    const NotedWaits noted;
    const FileName target(dir.file("missing/CASE.UNRST"));
    StreamSection first(target, "A", false);
    EXPECT_THROW(first.stream(), std::runtime_error);
    std::filesystem::create_directory(dir.file("missing"));
    StreamSection second(target, "A", false);
    EXPECT_NO_THROW(second.stream());
}

TEST(StreamSection, DoesNotGoOnBehindTheEndOfAFileThatGotShorter)
{
    const TempDir dir;
    const NotedWaits noted;
    const std::string file = dir.file("CASE_A.tmp");
    StreamSection section(FileName(dir.file("CASE.UNRST")), "A", false);
    section.stream() << "0123456789";
    section.close();
    writeBytes(file, "012345678");
    for (int attempt = 0; attempt < 2; ++attempt)
        EXPECT_EQ(errorOf([&] { section.stream(); }), "Problem encountered opening file on StreamSection : A - Failed "
                                                      "to open file after 0 attempts : " +
                                                          file);
    EXPECT_TRUE(NotedWaits::waits().empty());
    writeBytes(file, "0123456789+");
    section.stream() << "A";
    section.close();
    EXPECT_EQ(readBytes(file), "0123456789A");
}

TEST(StreamSection, TheBufferSizeCountsFromTheNextOpening)
{
    const TempDir dir;
    const std::string file = dir.file("CASE_A.tmp");
    StreamSection section(FileName(dir.file("CASE.UNRST")), "A", false);
    section.stream();
    section.setBufferSize(4);
    section.stream() << "123456";
    EXPECT_EQ(readBytes(file), "");
    section.close();
    section.stream() << "78"
                     << "9abc";
    EXPECT_EQ(readBytes(file), "123456789a");
}

TEST(StreamSection, KeepsItsPlaceIfTheFileCannotBeRemoved)
{
    const TempDir dir;
    const NotedWaits noted;
    const std::string file = dir.file("CASE_A.tmp");
    StreamSection section(FileName(dir.file("CASE.UNRST")), "A", false);
    section.stream() << "lost";
    std::filesystem::remove(file);
    EXPECT_NO_THROW(section.remove());
    EXPECT_THROW(section.stream(), std::runtime_error);
    writeBytes(file, "back");
    section.stream() << " again";
    section.close();
    EXPECT_EQ(readBytes(file), "back again");

    const Service::FileStream otherOwner(file, FileMode::Read | FileMode::Exclusive);
    section.remove();
    EXPECT_EQ(readBytes(file), "back again");
}

TEST(SeqStreamWrapper, PassesEverythingToTheGivenStream)
{
    std::ostringstream out;
    SeqStreamWrapper wrapper(&out, "A", false);
    StreamSection& section = wrapper;
    section.stream() << "one ";
    section.close();
    section.remove();
    section.stream() << "two";
    EXPECT_EQ(out.str(), "one two");
    EXPECT_EQ(errorOf([&] { section.rewind(); }), "The file has not been opened");
}

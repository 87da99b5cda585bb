#include "service/BinaryFileIO.h"
#include "service/FileStream.h"
#include "service/FileUtils.h"
#include "support/TempDir.h"

#include <mrlio/service/Directory.h>
#include <mrlio/service/Exception.h>
#include <mrlio/service/FileName.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <locale>
#include <numeric>
#include <random>
#include <set>
#include <unistd.h>
#include <vector>

using namespace Kvt::Mrl::Core::Service;
using namespace MrlIOTest;

namespace {
// Bytes of which each 4-byte word, read as big-endian, is its own index.
std::string wordsUpTo(int count)
{
    std::string bytes(static_cast<std::size_t>(count) * 4, '\0');
    for (int i = 0; i < count; ++i)
        ByteOrder::storeInt32(bytes.data() + 4 * i, i);
    return bytes;
}

void append(const std::string& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary | std::ios::app)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

constexpr FileMode rewriting = FileMode::Write | FileMode::Create | FileMode::Truncate;
constexpr FileMode updating = FileMode::Read | FileMode::Write | FileMode::Create;
} // namespace

TEST(ByteOrder, CopiesReverseEachNumberAtAnyAddressAndLength)
{
    std::string source(400, '\0');
    std::iota(source.begin(), source.end(), '\1');
    for (const std::size_t width : {4U, 8U}) {
        for (std::size_t count = 0; count < 41; ++count) {
            std::string target(400, '#');
            const auto copy = width == 4 ? ByteOrder::copy32 : ByteOrder::copy64;
            copy(target.data() + 3, source.data() + 1, count);
            for (std::size_t i = 0; i < count * width; ++i)
                ASSERT_EQ(target[3 + i], source[1 + i / width * width + width - 1 - i % width])
                    << width << ' ' << count;
            ASSERT_EQ(target.substr(3 + count * width), std::string(397 - count * width, '#'));
            copy(target.data() + 3, target.data() + 3, count);
            ASSERT_EQ(target.substr(3, count * width), source.substr(1, count * width)) << "in place";
        }
    }
}

TEST(BinaryFileIO, WritesAndReadsBigEndianThroughBothReaderInterfaces)
{
    TempDir dir;
    {
        FileStream out(dir.file("a"), rewriting);
        const std::vector<int> ints{-2, 0x7fffffff};
        const float floats[] = {1.5F, -0.0F};
        const double doubles[] = {1.0, -2.0};
        EXPECT_TRUE(BinaryFileIO::writeInt32(out, 0x01020304) && BinaryFileIO::writeFloat32(out, 1.0F) &&
                    BinaryFileIO::writeFloat64(out, -1.0) && BinaryFileIO::writeInt32s(out, ints.data(), 2) &&
                    BinaryFileIO::writeFloat32s(out, floats, 2) && BinaryFileIO::writeFloat64s(out, doubles, 2) &&
                    BinaryFileIO::writeChars(out, "KEYW", 4));
    }
    EXPECT_EQ(readBytes(dir.file("a")).substr(0, 16), std::string("\1\2\3\4\x3f\x80\0\0\xbf\xf0\0\0\0\0\0\0", 16));

    BufferedBinaryFileReader direct(dir.file("a").c_str());
    BufferedBinaryFileReader based(dir.file("a").c_str());
    const auto check = [](auto& reader) {
        int number = 0;
        float floats[2] = {};
        double doubles[2] = {};
        int ints[2] = {};
        char chars[4] = {};
        EXPECT_TRUE(BinaryFileIO::readInt32(reader, number));
        EXPECT_EQ(number, 0x01020304);
        EXPECT_TRUE(BinaryFileIO::readFloat32s(reader, floats, 1) && BinaryFileIO::readFloat64s(reader, doubles, 1));
        EXPECT_EQ(floats[0] + doubles[0], 0.0);
        EXPECT_TRUE(BinaryFileIO::readInt32s(reader, ints, 2) && BinaryFileIO::readFloat32s(reader, floats, 2) &&
                    BinaryFileIO::readFloat64s(reader, doubles, 2) && BinaryFileIO::readChars(reader, chars, 4));
        EXPECT_EQ(ints[0], -2);
        EXPECT_EQ(floats[0], 1.5F);
        EXPECT_EQ(doubles[1], -2.0);
        EXPECT_EQ(std::string(chars, 4), "KEYW");
        EXPECT_FALSE(BinaryFileIO::readInt32(reader, number));
        EXPECT_EQ(number, 0x01020304) << "a failed read leaves the number";
        EXPECT_TRUE(reader.eof());
    };
    check(direct);
    check(static_cast<BinaryFileReader&>(based));
}

TEST(BufferedBinaryFileReader, WhatDoesNotOpenIsNeverGood)
{
    TempDir dir;
    for (const std::string& path : {dir.file("missing"), dir.path(), std::string()}) {
        BufferedBinaryFileReader reader(path.c_str());
        reader.seekg(0);
        char byte = 0;
        reader.read(&byte, 1);
        EXPECT_FALSE(reader.good()) << path;
        EXPECT_EQ(reader.length(), -1);
    }
}

// Any order of jumps, views and bulk reads gives the file's bytes, and failures leave the place where it was.
TEST(BufferedBinaryFileReader, AgreesWithTheFileUnderRandomAccess)
{
    TempDir dir;
    const int words = 400000; // a few windows
    const std::string bytes = wordsUpTo(words);
    writeBytes(dir.file("a"), bytes);
    BufferedBinaryFileReader reader(dir.file("a").c_str());
    std::mt19937 random(7);
    std::vector<char> target(bytes.size());
    const auto size = static_cast<std::int64_t>(bytes.size());
    const std::int64_t strides[] = {0, 24, 4000, 15000, 17000, 300000};
    for (int step = 0; step < 6000; ++step) {
        std::int64_t place = reader.tellg() + strides[random() % 6] - (random() % 8 == 0 ? 20000 : 0);
        if (random() % 50 == 0 || place < 0)
            place = static_cast<std::int64_t>(random() % bytes.size());
        reader.seekg(place);
        if (random() % 16 == 0)
            reader.expect(static_cast<std::int64_t>(random() % 100000) - 10);
        const int count = static_cast<int>(random() % (random() % 64 == 0 ? 700000 : 4097));
        const bool holds = place + count <= size;
        const char* found = nullptr;
        if (count > 0 && count <= BufferedBinaryFileReader::largestView && random() % 2 == 0) {
            found = reader.view(count);
        } else {
            reader.read(target.data(), count);
            found = target.data();
        }
        ASSERT_EQ(reader.good(), holds) << place << ' ' << count;
        ASSERT_EQ(reader.eof(), !holds);
        ASSERT_EQ(reader.tellg(), holds ? place + count : place);
        if (holds) {
            ASSERT_EQ(std::memcmp(found, bytes.data() + place, static_cast<std::size_t>(count)), 0) << place;
        } else {
            reader.seekg(0);
        }
    }
}

TEST(BufferedBinaryFileReader, NumbersCrossWindowsAtAnyAlignment)
{
    TempDir dir;
    const int words = 200000;
    writeBytes(dir.file("a"), std::string(1, 'x') + wordsUpTo(words));
    BufferedBinaryFileReader reader(dir.file("a").c_str());
    reader.seekg(1);
    std::vector<int> numbers(words);
    for (int first = 0, count = 1; first < words; first += count, count = count * 5 / 4 + 1) {
        count = std::min(count, words - first);
        ASSERT_TRUE(BinaryFileIO::readInt32s(reader, numbers.data() + first, count));
    }
    for (int i = 0; i < words; ++i)
        ASSERT_EQ(numbers[static_cast<std::size_t>(i)], i);

    reader.seekg(1 + 4 * (words - 10));
    EXPECT_FALSE(BinaryFileIO::readInt32s(reader, numbers.data(), 11)) << "one more than there are";
    EXPECT_EQ(reader.tellg(), 1 + 4 * (words - 10));
    reader.seekg(reader.tellg());
    EXPECT_TRUE(BinaryFileIO::readInt32s(reader, numbers.data(), 10));
    EXPECT_EQ(numbers[9], words - 1);
}

TEST(BufferedBinaryFileReader, SeeksFailOnlyBelowZeroAndReadsBeyondTheEnd)
{
    TempDir dir;
    writeBytes(dir.file("a"), wordsUpTo(3));
    BufferedBinaryFileReader reader(dir.file("a").c_str());
    int number = -1;
    for (const std::int64_t beyond :
         {std::int64_t{12}, std::int64_t{1} << 40, std::numeric_limits<std::int64_t>::max()}) {
        reader.seekg(beyond);
        EXPECT_TRUE(reader.good());
        EXPECT_EQ(reader.tellg(), beyond);
        EXPECT_FALSE(BinaryFileIO::readInt32(reader, number));
        EXPECT_TRUE(reader.eof());
    }
    reader.seekg(4);
    EXPECT_FALSE(reader.eof());
    reader.seekg(-1);
    EXPECT_FALSE(reader.good());
    EXPECT_FALSE(BinaryFileIO::readInt32(reader, number)) << "a failed seek must not read somewhere else";
    reader.seekg(4);
    EXPECT_TRUE(BinaryFileIO::readInt32(reader, number));
    EXPECT_EQ(number, 1);
}

TEST(BufferedBinaryFileReader, SeesTheFileGrowShrinkAndChange)
{
    TempDir dir;
    writeBytes(dir.file("a"), wordsUpTo(2));
    BufferedBinaryFileReader reader(dir.file("a").c_str());
    int number = 0;
    ASSERT_TRUE(BinaryFileIO::readInt32(reader, number) && BinaryFileIO::readInt32(reader, number));
    ASSERT_FALSE(BinaryFileIO::readInt32(reader, number));

    append(dir.file("a"), wordsUpTo(1000));
    reader.seekg(reader.tellg());
    ASSERT_TRUE(BinaryFileIO::readInt32(reader, number));
    EXPECT_EQ(number, 0);
    EXPECT_EQ(reader.length(), 4008);

    std::filesystem::resize_file(dir.file("a"), 8);
    EXPECT_EQ(reader.length(), 8);
    EXPECT_FALSE(BinaryFileIO::readInt32(reader, number)) << "what the window held is gone";

    writeBytes(dir.file("a"), std::string(400, '\1'));
    reader.seekg(200);
    ASSERT_TRUE(BinaryFileIO::readInt32(reader, number));
    std::filesystem::resize_file(dir.file("a"), 100);
    reader.seekg(120);
    EXPECT_FALSE(BinaryFileIO::readInt32(reader, number)) << "noticed by the step back";
}

TEST(BufferedBinaryFileReader, ReachesOffsetsBeyondFourGigabytes)
{
    TempDir dir;
    writeBytes(dir.file("a"), "");
    const std::int64_t far = (std::int64_t{5} << 30) + 3;
    std::filesystem::resize_file(dir.file("a"), static_cast<std::uintmax_t>(far));
    append(dir.file("a"), wordsUpTo(2));
    BufferedBinaryFileReader reader(dir.file("a").c_str());
    int numbers[2] = {-1, -1};
    reader.seekg(far);
    EXPECT_TRUE(BinaryFileIO::readInt32s(reader, numbers, 2));
    EXPECT_EQ(numbers[1], 1);
    EXPECT_EQ(reader.tellg(), far + 8);
}

TEST(FileStream, RecordsOfAllSizesArriveInOrder)
{
    TempDir dir;
    for (const int bufferSize : {0, 1, 5000, 16384, 1 << 30}) {
        std::string expected;
        FileStream out;
        out.setBufferSize(bufferSize);
        out.open(dir.file("a"), rewriting);
        std::mt19937 random(3);
        for (const int size : {1, 15000, 4008, 3, 1000000, 2500000, 0, 1048576, 7, 40000}) {
            std::string piece(static_cast<std::size_t>(size), '\0');
            std::generate(piece.begin(), piece.end(), [&] { return static_cast<char>(random()); });
            out.write(piece.data(), size);
            out.put('|');
            expected += piece + '|';
            ASSERT_EQ(out.tellp(), std::streamoff(expected.size()));
        }
        out.close();
        EXPECT_TRUE(out.good());
        EXPECT_EQ(readBytes(dir.file("a")), expected);

        FileStream in;
        in.setBufferSize(std::max(bufferSize, 5000)); // a byte at a time takes its time
        in.open(dir.file("a"), FileMode::Read);
        std::string content(expected.size() + 1, '\0');
        in.read(content.data(), 10);
        in.read(content.data() + 10, static_cast<std::streamsize>(content.size()));
        EXPECT_TRUE(in.eof());
        EXPECT_EQ(content.substr(0, 10 + static_cast<std::size_t>(in.gcount())), expected);
    }
}

TEST(FileStream, CopiesAPartOfAnotherFile)
{
    TempDir dir;
    FileStream source(dir.file("a"), updating);
    source << "0123456789";
    source.seekg(2);
    auto* const from = dynamic_cast<FileStreamBuf*>(source.rdbuf());
    ASSERT_NE(from, nullptr);
    FileStream out(dir.file("b"), rewriting);
    out << "in front ";
    out.copyFrom(*from, 5);
    out << " behind";
    EXPECT_EQ(source.get(), '7');
    EXPECT_TRUE(out.flush());
    EXPECT_EQ(readBytes(dir.file("b")), "in front 23456 behind");
    out.copyFrom(*from, 3);
    EXPECT_TRUE(out.fail()) << "only two bytes are left";

    // Devices are no files that the system copies, and a full one fails.
    source.seekg(0);
    FileStream device("/dev/null", FileMode::Write);
    device.copyFrom(*from, 10);
    EXPECT_TRUE(device.good());
    FileStream endless("/dev/zero", FileMode::Read);
    FileStream zeros(dir.file("b"), rewriting);
    zeros.copyFrom(dynamic_cast<FileStreamBuf&>(*endless.rdbuf()), 100000);
    EXPECT_TRUE(zeros.flush());
    EXPECT_EQ(readBytes(dir.file("b")), std::string(100000, '\0'));
    source.seekg(0);
    FileStream full("/dev/full", FileMode::Write);
    full.copyFrom(*from, 10);
    full.close();
    EXPECT_TRUE(full.fail());
}

TEST(FileStream, ReadingAndWritingShareOnePosition)
{
    TempDir dir;
    FileStream stream(dir.file("a"), updating);
    stream << "one two three four";
    stream.seekg(4);
    std::string word;
    stream >> word;
    EXPECT_EQ(word, "two");
    EXPECT_EQ(stream.tellp(), std::streamoff(7));
    stream.seekp(stream.tellg()); // the turn from reading to writing needs no more than the position
    stream << "-THREE";
    EXPECT_EQ(stream.tellg(), std::streamoff(13));
    stream >> word;
    EXPECT_EQ(word, "four");
    EXPECT_TRUE(stream.eof());
    stream.clear();
    stream.seekp(-4, std::ios_base::end);
    stream << "FOUR five";
    stream.seekg(0);
    std::getline(stream, word);
    EXPECT_EQ(word, "one two-THREE FOUR five");
    stream.clear();
    EXPECT_TRUE(stream.seekg(-1).fail());
}

TEST(FileStream, AnsweringAReaderThatMetTheEndAfterGrowth)
{
    TempDir dir;
    writeBytes(dir.file("a"), "ab");
    FileStream in(dir.file("a"), FileMode::Read);
    char bytes[4] = {};
    in.read(bytes, 4);
    EXPECT_EQ(in.gcount(), 2);
    append(dir.file("a"), "cd");
    in.clear();
    in.read(bytes, 2);
    EXPECT_EQ(std::string(bytes, 2), "cd");
}

TEST(FileStream, ModesDecideWhatOpensAndWhatStays)
{
    TempDir dir;

    struct Case
    {
        const char* name;
        FileMode mode;
        bool opensMissing;
        bool opensFolder;
        const char* after; // "old" with an "X" written by the first write
    };

    const Case cases[] = {
        {"read", FileMode::Read, false, false, "old"},
        {"write", FileMode::Write, false, false, "Xld"},
        {"create", FileMode::Write | FileMode::Create, true, false, "Xld"},
        {"truncate", rewriting, true, false, "X"},
        {"at end", updating | FileMode::AtEnd | FileMode::Exclusive, true, false, "oldX"},
    };
    for (const Case& c : cases) {
        std::filesystem::remove(dir.file("missing"));
        EXPECT_EQ(FileStream(dir.file("missing"), c.mode).good(), c.opensMissing) << c.name;
        FileStream folder(dir.path(), c.mode);
        EXPECT_EQ(folder.good(), c.opensFolder) << c.name;
        EXPECT_EQ(folder.lastError(), std::errc::is_a_directory) << c.name;
        writeBytes(dir.file("a"), "old");
        FileStream stream(dir.file("a"), c.mode);
        EXPECT_TRUE(stream.is_open()) << c.name;
        stream << 'X' << std::flush;
        EXPECT_EQ(stream.good(), c.mode != FileMode::Read) << c.name;
        EXPECT_EQ(readBytes(dir.file("a")), c.after) << c.name;
    }
}

TEST(FileStream, ALockedFileDoesNotOpenAndKeepsItsContent)
{
    TempDir dir;
    FileStream owner(dir.file("a"), rewriting | FileMode::Exclusive);
    owner << "mine" << std::flush;
    FileStream other(dir.file("a"), rewriting | FileMode::Exclusive);
    EXPECT_FALSE(other.is_open());
    EXPECT_TRUE(other.fail());
    EXPECT_EQ(other.lastError(), std::errc::operation_would_block);
    EXPECT_EQ(readBytes(dir.file("a")), "mine");
    owner.close();
    other.open(dir.file("a"), rewriting | FileMode::Exclusive);
    EXPECT_TRUE(other.good());

    // As if the owner had deleted the file between the opening and the lock.
    const int descriptor = ::open(dir.file("gone").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    std::filesystem::remove(dir.file("gone"));
    const std::string nameless = "/proc/self/fd/" + std::to_string(descriptor);
    EXPECT_TRUE(FileStream(nameless, rewriting).is_open());
    EXPECT_FALSE(FileStream(nameless, rewriting | FileMode::Exclusive).is_open());
    ::close(descriptor);
}

TEST(FileStream, AFullDiskShowsAtFlushAndClose)
{
    if (!std::filesystem::exists("/dev/full"))
        GTEST_SKIP();
    FileStream stream("/dev/full", FileMode::Write);
    stream << "kept in the buffer";
    EXPECT_TRUE(stream.good());
    EXPECT_TRUE(stream.flush().bad());
    EXPECT_EQ(stream.lastError(), std::errc::no_space_on_device);
    stream.clear();
    stream.close();
    EXPECT_TRUE(stream.fail());
    EXPECT_FALSE(stream.is_open());
    stream.clear();
    stream.close();
    EXPECT_TRUE(stream.fail()) << "not open any more";

    FileStream large("/dev/full", FileMode::Write);
    const std::string record(4008, 'r');
    for (int i = 0; i < 300; ++i)
        large.write(record.data(), 4008);
    EXPECT_TRUE(large.bad()) << "more than the buffer holds";
}

TEST(FileStream, CutsBackToTheLastWholeRecord)
{
    TempDir dir;
    FileStream stream(dir.file("a"), updating);
    stream << "whole" << std::flush << "ness";
    EXPECT_TRUE(stream.truncateTo(7));
    stream << '!' << std::flush;
    EXPECT_EQ(readBytes(dir.file("a")), "wholene!");
    stream.setstate(std::ios_base::badbit);
    EXPECT_TRUE(stream.truncateTo(5));
    EXPECT_TRUE(stream.good());
    EXPECT_EQ(stream.tellp(), std::streamoff(5));
    EXPECT_EQ(stream.get(), std::char_traits<char>::eof());
    EXPECT_FALSE(stream.truncateTo(6)) << "never makes a file longer";
    stream.close();
    EXPECT_EQ(readBytes(dir.file("a")), "whole");
}

TEST(FileStream, NumbersIgnoreTheGlobalLocale)
{
    struct Grouping : std::numpunct<char>
    {
        char do_thousands_sep() const override { return '.'; }

        std::string do_grouping() const override { return "\3"; }

        char do_decimal_point() const override { return ','; }
    };

    TempDir dir;
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Grouping));
    {
        FileStream stream(dir.file("a"), rewriting);
        stream << 1234567 << ' ' << 2.5;
    }
    std::locale::global(before);
    EXPECT_EQ(readBytes(dir.file("a")), "1234567 2.5");
}

TEST(FileName, TakesPathsApartAndPutsThemTogether)
{
    struct Case
    {
        const char* path;
        const char* directory;
        const char* root;
        const char* extension;
        const char* full;
    };

    const Case cases[] = {
        {"/data/run.1/CASE.V2.UNSMRY", "/data/run.1", "CASE.V2", "UNSMRY", "/data/run.1/CASE.V2.UNSMRY"},
        {"CASE.S0001", "", "CASE", "S0001", "CASE.S0001"},
        {"/CASE", "/", "CASE", "", "/CASE"},
        {"a.b/CASE", "a.b", "CASE", "", "a.b/CASE"},
        {"CASE.", "", "CASE", "", "CASE."},
        {".hidden", "", "", "hidden", ".hidden"},
        {"/a//b/./CASE.X", "/a/b", "CASE", "X", "/a/b/CASE.X"},
        {"./../CASE.X", "./..", "CASE", "X", "./../CASE.X"},
        {"", "", "", "", ""},
    };
    for (const Case& c : cases) {
        const FileName name{std::string(c.path)};
        EXPECT_EQ(name.GetDirectory(), c.directory) << c.path;
        EXPECT_EQ(name.GetRootName(), c.root) << c.path;
        EXPECT_EQ(name.GetExtension(), c.extension) << c.path;
        EXPECT_EQ(name.GetFullName(), c.full) << c.path;
    }
}

TEST(FileName, SettersChangeTheirPartAlone)
{
    FileName name;
    name.SetDirectory("/data/");
    name.SetRootName("CASE.1");
    EXPECT_EQ(name.GetFullName(), "/data/CASE.1");
    name.SetExtension("SMSPEC");
    EXPECT_EQ(name.GetFullName(), "/data/CASE.1.SMSPEC") << "a dot of the root is no extension";
    name.SetFileName("OTHER.T0.X");
    EXPECT_EQ(name.GetFullName(), "/data/OTHER.T0.X");
    name.SetRootName("R");
    name.SetExtension("");
    EXPECT_EQ(name.GetFileName(), "R");
    name.Set("B.C", false);
    EXPECT_EQ(name.GetFullName(), "/data/B.C");
    name.Set("B.C", true);
    EXPECT_EQ(name.GetFullName(), "B.C");
    EXPECT_EQ(std::set<FileName>({"/b/A.X", "/a/B.X", "/a/A.Y", "/a/A.X", "/a/A.X"}).begin()->GetFullName(), "/a/A.X");
}

TEST(FileName, TellsWhatStandsThere)
{
    TempDir dir;
    writeBytes(dir.file("a.X"), "12345");
    const FileName file(dir.file("a.X"));
    const FileName folder(dir.path());
    const FileName missing(dir.file("b"));
    EXPECT_TRUE(file.FileExists() && file.IsFile() && folder.FileExists());
    EXPECT_FALSE(folder.IsFile() || missing.FileExists() || missing.IsFile());
    EXPECT_EQ(file.FileLength(), 5);
    EXPECT_EQ(missing.FileLength(), -1);

    Time time(2000, 1, 1, 0, 0, 0, 0);
    EXPECT_FALSE(missing.TimeLastModified(time));
    EXPECT_FALSE(time.IsDef());
}

TEST(FileName, TimeOfChangeIsInUniversalTime)
{
    TempDir dir;
    writeBytes(dir.file("a"), "");
    // 951831296 seconds after the epoch: 2000-02-29 13:34:56
    const std::string command = "touch -d @951831296.25 '" + dir.file("a") + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
    ASSERT_EQ(::setenv("TZ", "XYZ-5:30", 1), 0);
    ::tzset();
    Time time;
    EXPECT_TRUE(FileName(dir.file("a")).TimeLastModified(time));
    EXPECT_EQ(time, Time(2000, 2, 29, 13, 34, 56, 250));
    ::unsetenv("TZ");
    ::tzset();
}

TEST(Directory, NamesAreCleanedAndCompleted)
{
    struct Case
    {
        const char* path;
        const char* name;
        const char* completed; // against /base
    };

    const Case cases[] = {{"/", "/", "/"},          {"//", "/", "/"},    {"/a//b/./", "/a/b", "/a/b"},
                          {"a/", "a", "/base/a"},   {".", ".", "/base"}, {"./a", "./a", "/base/a"},
                          {"..", "..", "/base/.."}, {"", "", "/base"},   {"/.", "/", "/"}};
    for (const Case& c : cases) {
        Directory directory{std::string(c.path)};
        EXPECT_EQ(directory.Name(), c.name) << c.path;
        EXPECT_EQ(directory.IsRelativePath(), c.path[0] != '/') << c.path;
        directory.MakeComplete(Directory("/base/"));
        EXPECT_EQ(directory.Name(), c.completed) << c.path;
    }
    EXPECT_EQ(Directory::Current(), Directory(std::filesystem::current_path().string()));
    EXPECT_TRUE(Directory::Current().IsDirectory());
    EXPECT_FALSE(Directory().IsDirectory());
}

TEST(Directory, RefusesWhatIsNoDirectory)
{
    TempDir dir;
    writeBytes(dir.file("file"), "x");
    EXPECT_THROW(Directory(dir.file("file")), DirectoryException);
    EXPECT_THROW(Directory(std::string("/a\0b", 4)), ServiceException);
    EXPECT_THROW(Directory(std::string(300, 'n')), ServiceException);
    EXPECT_NO_THROW(Directory(dir.file("missing")));
    Directory directory(dir.path());
    EXPECT_THROW(directory.Set(dir.file("file"), true), Exception);
    EXPECT_EQ(directory.Name(), dir.path());
    EXPECT_NO_THROW(directory.Set(dir.file("file"), false));
    EXPECT_FALSE(directory.IsDirectory());
}

TEST(Directory, FindsAndDeletesByRegularExpression)
{
    TempDir dir;
    for (const char* name : {"C.S0002", "C.S0001", "C.s0003", "C.S00010", "CxS0004", "C.S0005\n"})
        writeBytes(dir.file(name), "");
    std::filesystem::create_directory(dir.file("C.S0009"));
    writeBytes(dir.file("C.S0009/C.S0007"), "");
    std::filesystem::create_symlink("nowhere", dir.file("C.S0008"));
    const std::string pattern = R"(^C\.S\d{4}$)";
    const Directory directory(dir.path());
    std::vector<std::string> names{"old"};
    directory.Find(pattern, false, true, false, false, false, names);
    EXPECT_EQ(names, (std::vector<std::string>{"C.S0001", "C.S0002", "C.S0008"}));
    directory.Find(pattern, true, true, true, true, true, names);
    EXPECT_EQ(names.size(), 6U);
    EXPECT_EQ(names.back(), dir.file("C.s0003"));

    directory.DeleteContent(pattern, false);
    directory.Find("", false, true, true, false, false, names);
    EXPECT_EQ(names, (std::vector<std::string>{"C.S00010", "C.S0005\n", "C.S0009", "C.s0003", "CxS0004"}));
    EXPECT_TRUE(std::filesystem::exists(dir.file("C.S0009/C.S0007")));

    const Directory missing(dir.file("missing"));
    missing.DeleteContent(pattern, false);
    missing.Find("", false, true, true, true, false, names);
    EXPECT_TRUE(names.empty());
    EXPECT_THROW(directory.Find("(", false, true, true, false, false, names), std::runtime_error);
}

TEST(Directory, FindPassesOverFoldersThatCannotBeRead)
{
    namespace fs = std::filesystem;
    TempDir dir;
    constexpr int count = 6; // of each kind, since a walk meets them in any order
    for (int i = 0; i < count; ++i) {
        fs::create_directory(dir.file("open" + std::to_string(i)));
        writeBytes(dir.file("open" + std::to_string(i) + "/C.S0001"), "");
        fs::create_directory(dir.file("closed" + std::to_string(i)));
        fs::permissions(dir.file("closed" + std::to_string(i)), fs::perms::none);
    }
    const bool isRoot = ::geteuid() == 0; // who may read everything
    if (isRoot && ::seteuid(65534) != 0)
        GTEST_SKIP();
    std::vector<std::string> files;
    std::vector<std::string> all;
    Directory(dir.path()).Find("S0001", false, true, false, true, false, files);
    Directory(dir.path()).Find("", false, true, true, true, false, all);
    ASSERT_TRUE(!isRoot || ::seteuid(0) == 0);
    EXPECT_EQ(files.size(), count);
    EXPECT_EQ(all.size(), 3 * count);
}

TEST(FileUtils, RemovesFilesOnlyAndSaysWhenItCannot)
{
    TempDir dir;
    writeBytes(dir.file("a"), "");
    FileUtils::Remove(FileName(dir.file("a")));
    EXPECT_FALSE(std::filesystem::exists(dir.file("a")));
    EXPECT_THROW(FileUtils::Remove(FileName(dir.file("a"))), std::exception);
    EXPECT_THROW(FileUtils::Remove(FileName(dir.path())), std::exception);
    EXPECT_TRUE(std::filesystem::exists(dir.path()));
}

TEST(FileUtils, CountsLinesUpToAPosition)
{
    TempDir dir;
    std::string text = "one\ntwo\n\nfour";
    text += '\n' + std::string(70000, 'x') + "\nlast"; // more than one piece
    writeBytes(dir.file("a"), text);
    const FileName file(dir.file("a"));
    const std::pair<std::streamoff, std::int64_t> cases[] = {{-1, 1}, {0, 1},     {3, 1},     {4, 2},      {8, 3},
                                                             {9, 4},  {70013, 5}, {70015, 6}, {1 << 30, 6}};
    for (const auto& [position, line] : cases)
        EXPECT_EQ(FileUtils::ComputeLineNumber(file, std::streampos(position)), line) << position;
    EXPECT_EQ(FileUtils::ComputeLineNumber(FileName(dir.file("missing")), std::streampos(5)), 1);
}

#include <mrlio/DSPFileUtil.h>

#include "messages/ShellLink.h"
#include "support/TempDir.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace {

namespace fs = std::filesystem;
using namespace Kvt::Mrl::MrlIO;
using MrlIOTest::TempDir;
using MrlIOTest::writeBytes;

std::string number(std::uint32_t value, int bytes)
{
    std::string out;
    for (; bytes > 0; --bytes, value >>= 8)
        out += static_cast<char>(value & 0xFF);
    return out;
}

/// ASCII as UTF-16.
std::string wide(const std::string& text)
{
    std::string out;
    for (const char c : text)
        out += {c, '\0'};
    return out;
}

/// A shell link of the parts that its flags announce: 1 the target's id list, 2 the link info, 4 the name and 8 the
/// relative path. 0x80 makes the texts UTF-16, 0x100 takes the link info out of account.
std::string link(std::uint32_t flags, const std::string& parts)
{
    std::string header = number(0x4C, 4) + std::string("\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 16);
    header += number(flags, 4);
    header.resize(0x4C);
    return header + parts + number(0, 4);
}

std::string text(const std::string& content, bool unicode)
{
    return number(static_cast<std::uint32_t>(content.size()), 2) + (unicode ? wide(content) : content);
}

std::string relativeLink(const std::string& path)
{
    return link(0x88, text(path, true));
}

/// Link info with a local path, in bytes only or in both forms.
std::string linkInfo(const std::string& base, const std::string& suffix, bool unicode)
{
    const std::uint32_t header = unicode ? 36 : 28;
    const std::string narrow = base + '\0' + suffix + '\0';
    const std::string both = narrow + (unicode ? wide(narrow) : "");
    const auto baseSize = static_cast<std::uint32_t>(base.size() + 1);
    const std::uint32_t wideAt = header + static_cast<std::uint32_t>(narrow.size());
    std::string out = number(header + static_cast<std::uint32_t>(both.size()), 4) + number(header, 4) + number(1, 4) +
                      number(0, 4) + number(header, 4) + number(0, 4) + number(header + baseSize, 4);
    if (unicode)
        out += number(wideAt, 4) + number(wideAt + 2 * baseSize, 4);
    return out + both;
}

class DSPFileUtilTest : public testing::Test
{
protected:
    DSPFileUtilTest() { fs::create_directory(target); }

    /// The answer for the case; the path counts from the test's folder, which stands as "~".
    std::string answer() const
    {
        DSPFileUtil util(folder.file("CASE"));
        const std::string path = util.getDSPFilename();
        EXPECT_EQ(util.isDSPCase(), !path.empty());
        const std::string here = fs::canonical(folder.path()).string();
        return path.starts_with(here) ? "~" + path.substr(here.size()) : path;
    }

    std::string answerFor(const std::string& linkBytes) const
    {
        writeBytes(shortcut, linkBytes);
        return answer();
    }

    const TempDir folder;
    const std::string entry = folder.file("CASE_DSP.INC");
    const std::string shortcut = entry + ".lnk";
    const std::string target = folder.file("target");
};

TEST_F(DSPFileUtilTest, DirectoryOrSymbolicLinkBesideTheCase)
{
    EXPECT_EQ(answer(), "");
    writeBytes(entry, "a file");
    EXPECT_EQ(answer(), "");
    fs::create_symlink("target", folder.file("between"));
    fs::create_symlink("./between", shortcut);
    EXPECT_EQ(answer(), "~/target") << "a plain file in the directory's place isn't in the way of the shortcut";
    fs::remove(target);
    EXPECT_EQ(answer(), "") << "a link to nothing isn't there";
    writeBytes(target, "a file");
    EXPECT_EQ(answer(), "");
    fs::remove(entry);
    fs::create_directory(entry);
    EXPECT_EQ(answer(), "~/CASE_DSP.INC");
}

TEST_F(DSPFileUtilTest, AnswersOnceAndKeepsTheAnswer)
{
    DSPFileUtil early(folder.file("CASE"));
    DSPFileUtil late = early;
    EXPECT_FALSE(early.isDSPCase());
    fs::create_symlink(target, shortcut);
    EXPECT_EQ(early.getDSPFilename(), "");
    EXPECT_TRUE(late.isDSPCase());
    fs::remove(shortcut);
    early = late;
    EXPECT_EQ(early.getDSPFilename(), fs::canonical(target).string());
}

TEST_F(DSPFileUtilTest, ShellLinksByTheirRelativePathAndThenTheirLocalPath)
{
    const std::string parent = "..\\" + fs::path(folder.path()).filename().string();
    for (const bool unicode : {false, true}) {
        SCOPED_TRACE(unicode);
        const std::uint32_t texts = unicode ? 0x80 : 0;
        const std::string ahead = text("id list", false) + linkInfo("C:\\else", "", unicode) + text("name", unicode);
        EXPECT_EQ(answerFor(link(texts | 0xF, ahead + text(parent + "\\.\\target", unicode))), "~/target");
        const std::string info = linkInfo(folder.path() + "/", "target", unicode);
        EXPECT_EQ(answerFor(link(0x2, info)), "~/target");
        EXPECT_EQ(answerFor(link(0xA, info + text("none", false))), "~/target");
        EXPECT_EQ(answerFor(link(0xA, info + text("CASE_DSP.INC.lnk", false))), "")
            << "what the relative path finds counts, be it a file";
    }
    EXPECT_EQ(answerFor(link(0x2, linkInfo("C:\\d\xF6rt", "", true))), "");
    fs::create_directory(folder.file("d\xC3\xB6rt"));
    std::string umlaut = relativeLink("dXrt");
    umlaut[umlaut.find('X')] = '\xF6';
    EXPECT_EQ(answerFor(umlaut), "~/d\xC3\xB6rt");
}

TEST_F(DSPFileUtilTest, WhatCannotBeResolvedStaysTheShortcut)
{
    const std::string info = linkInfo(target, "", false);
    const auto withNumber = [&](std::size_t offset, std::uint32_t value) {
        return link(0x2, std::string(info).replace(offset, 4, number(value, 4)));
    };
    const std::vector<std::pair<std::string, std::string>> cases{
        {"empty", ""},
        {"another class", relativeLink("target").replace(4, 1, "\x02")},
        {"no paths", link(0x80, "")},
        {"empty path", relativeLink("")},
        {"link info that doesn't count", link(0x102, info)},
        {"no local path", withNumber(8, 2)},
        {"link info of no bytes", withNumber(0, 0)},
        {"link info beyond the end", withNumber(0, 0xFFFFFFFF)},
        {"short header of link info", withNumber(4, 27)},
        {"path in the header", withNumber(16, 4)},
        {"path beyond the link info", withNumber(16, 0xFFFFFFF0)},
    };
    for (const auto& [what, bytes] : cases)
        EXPECT_EQ(answerFor(bytes), "~/CASE_DSP.INC.lnk") << what;

    // Each piece is a block of its own, so that the address sanitizer sees a step beyond its end.
    const std::string whole = link(0x0F, text("ids", false) + info + text("name", false) + text("target", false));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::vector<char> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_EQ(parseShellLink({cut.data(), length}).has_value(), length >= whole.size() - 4) << length;
    }

    fs::remove(shortcut);
    fs::create_directory(shortcut);
    EXPECT_EQ(answer(), "~/CASE_DSP.INC.lnk") << "a directory";
    fs::remove(shortcut);
    ASSERT_EQ(::mkfifo(shortcut.c_str(), 0600), 0);
    EXPECT_EQ(answer(), "~/CASE_DSP.INC.lnk") << "a pipe that nobody writes to";
}

} // namespace

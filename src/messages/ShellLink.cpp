#include "messages/ShellLink.h"

#include "service/PathText.h"
#include "service/PositionalFile.h"
#include "service/Utf8.h"

#include <algorithm>
#include <boost/filesystem.hpp>
#include <cstdint>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr std::size_t headerSize = 0x4C;
/// The length of the header and the class of shell links, with which each link begins.
constexpr std::string_view signature("\x4C\0\0\0\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 20);

/// Which parts follow the header, in this order.
enum LinkFlag : std::uint32_t
{
    HasTargetIdList = 0x1,
    HasLinkInfo = 0x2,
    HasName = 0x4,
    HasRelativePath = 0x8,
    IsUnicode = 0x80,        // of the texts behind the link info
    ForceNoLinkInfo = 0x100, // the link info is there, but doesn't count
};

/// The fields of the link info, by their offset from its start.
namespace LinkInfo {
constexpr std::size_t headerSize = 4;
constexpr std::size_t flags = 8;
constexpr std::size_t localBasePath = 16;
constexpr std::size_t commonPathSuffix = 24;
constexpr std::size_t localBasePathUnicode = 28;
constexpr std::size_t commonPathSuffixUnicode = 32;
constexpr std::size_t smallestHeader = 28;
constexpr std::size_t unicodeHeader = 36;
constexpr std::uint32_t hasLocalBasePath = 1;
} // namespace LinkInfo

/// Thrown and caught in this file.
struct DamagedLink
{};

std::string_view piece(std::string_view bytes, std::size_t offset, std::size_t length)
{
    if (offset > bytes.size() || length > bytes.size() - offset)
        throw DamagedLink();
    return bytes.substr(offset, length);
}

std::uint32_t littleEndian(std::string_view bytes)
{
    std::uint32_t number = 0;
    for (std::size_t i = bytes.size(); i-- > 0;)
        number = number << 8 | static_cast<unsigned char>(bytes[i]);
    return number;
}

std::uint32_t number16At(std::string_view bytes, std::size_t offset)
{
    return littleEndian(piece(bytes, offset, 2));
}

std::uint32_t number32At(std::string_view bytes, std::size_t offset)
{
    return littleEndian(piece(bytes, offset, 4));
}

/// The text in UTF-16 up to a zero character, if there is one.
std::string textOfUtf16(std::string_view bytes)
{
    std::u16string text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto unit = static_cast<char16_t>(number16At(bytes, i));
        if (unit == 0)
            break;
        text += unit;
    }
    std::string out;
    Service::appendUtf8(out, text);
    return out;
}

std::string textOfBytes(std::string_view bytes)
{
    return std::string(bytes.substr(0, bytes.find('\0')));
}

/// Takes the parts of a link off its bytes from the front.
class LinkParts
{
public:
    explicit LinkParts(std::string_view bytes) : rest_(bytes) {}

    std::string_view take(std::size_t length)
    {
        const std::string_view part = piece(rest_, 0, length);
        rest_.remove_prefix(length);
        return part;
    }

    std::string_view takeTargetIdList() { return take(2 + number16At(rest_, 0)); }

    std::string_view takeLinkInfo() { return take(number32At(rest_, 0)); }

    std::string takeText(bool unicode)
    {
        const std::size_t count = littleEndian(take(2));
        return unicode ? textOfUtf16(take(2 * count)) : textOfBytes(take(count));
    }

private:
    std::string_view rest_;
};

/// A text of the link info, given by the field that holds its offset. It is empty if that holds 0.
std::string textBehind(std::string_view info, std::size_t field, bool unicode)
{
    const std::size_t offset = number32At(info, field);
    if (offset == 0)
        return {};
    if (offset < LinkInfo::smallestHeader || offset > info.size())
        throw DamagedLink();
    const std::string_view bytes = info.substr(offset);
    return unicode ? textOfUtf16(bytes) : textOfBytes(bytes);
}

std::string localPathOf(std::string_view info)
{
    const std::size_t header = number32At(info, LinkInfo::headerSize);
    if (header < LinkInfo::smallestHeader || header > info.size())
        throw DamagedLink();
    if ((number32At(info, LinkInfo::flags) & LinkInfo::hasLocalBasePath) == 0)
        return {};
    if (header >= LinkInfo::unicodeHeader && number32At(info, LinkInfo::localBasePathUnicode) != 0)
        return textBehind(info, LinkInfo::localBasePathUnicode, true) +
               textBehind(info, LinkInfo::commonPathSuffixUnicode, true);
    return textBehind(info, LinkInfo::localBasePath, false) + textBehind(info, LinkInfo::commonPathSuffix, false);
}

ShellLink parse(std::string_view bytes)
{
    LinkParts parts(bytes);
    const std::string_view header = parts.take(headerSize);
    if (header.substr(0, signature.size()) != signature)
        throw DamagedLink();
    const std::uint32_t flags = number32At(header, signature.size());

    ShellLink link;
    if ((flags & HasTargetIdList) != 0)
        parts.takeTargetIdList();
    if ((flags & HasLinkInfo) != 0) {
        const std::string_view info = parts.takeLinkInfo();
        if ((flags & ForceNoLinkInfo) == 0)
            link.localPath = localPathOf(info);
    }
    if ((flags & HasName) != 0)
        parts.takeText((flags & IsUnicode) != 0);
    if ((flags & HasRelativePath) != 0)
        link.relativePath = parts.takeText((flags & IsUnicode) != 0);
    return link;
}

std::optional<ShellLink> readShellLink(const std::string& path)
{
    const Service::PositionalFile file(path.c_str());
    if (!file.isOpen())
        return {};
    std::string bytes(static_cast<std::size_t>(std::clamp<std::int64_t>(file.size(), 0, largestShellLink)), '\0');
    const std::int64_t length = file.readAt(bytes.data(), bytes.size(), 0);
    if (length < 0)
        return {};
    return parseShellLink(std::string_view(bytes).substr(0, static_cast<std::size_t>(length)));
}

std::string resolvedFrom(const std::string& linkPath, std::string relativePath)
{
    std::replace(relativePath.begin(), relativePath.end(), '\\', '/');
    if (relativePath.front() == '/')
        return relativePath;
    return Service::joinedPath(boost::filesystem::path(linkPath).parent_path().string(), relativePath);
}

} // namespace

std::optional<ShellLink> parseShellLink(std::string_view bytes)
{
    try {
        return parse(bytes);
    } catch (const DamagedLink&) {
        return {};
    }
}

std::optional<std::string> shellLinkTarget(const std::string& path)
{
    const std::optional<ShellLink> link = readShellLink(path);
    if (!link || (link->relativePath.empty() && link->localPath.empty()))
        return {};
    if (link->relativePath.empty())
        return link->localPath;
    const std::string place = resolvedFrom(path, link->relativePath);
    boost::system::error_code error;
    const boost::filesystem::path found = boost::filesystem::canonical(place, error);
    if (!error)
        return found.string();
    return link->localPath.empty() ? place : link->localPath;
}

} // namespace Kvt::Mrl::MrlIO

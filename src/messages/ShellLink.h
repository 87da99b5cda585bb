#pragma once

#include <mrlio/service/Namespaces.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Kvt::Mrl::MrlIO {

/// What a file in the binary format of shell links says about the place of its target. Both are paths of the system
/// that made the link, mostly with backslashes, in UTF-8 or, where the link holds no Unicode, as the bytes stand there.
struct ShellLink
{
    std::string relativePath; ///< from the folder of the link; empty if the link has none
    std::string localPath;    ///< empty if the link has none, such as one to a network share
};

/// Links are small; of a larger file no more than this is looked at.
constexpr std::size_t largestShellLink = std::size_t{1} << 20;

/// None if the bytes are no shell link, or one that is damaged ahead of what is wanted here.
std::optional<ShellLink> parseShellLink(std::string_view bytes);

/// The target of a shell link file: where its relative path leads, as an absolute path without links, if something is
/// there; otherwise the local path as it stands. Whether that exists is for the caller to find out.
///
/// returns  none if the file can't be read, is no shell link, or holds neither path. Never throws for what it finds.
std::optional<std::string> shellLinkTarget(const std::string& path);

} // namespace Kvt::Mrl::MrlIO

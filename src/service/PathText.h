#pragma once

#include <string>

namespace Kvt::Mrl::Core::Service {
/// The same directory in its clean form: doubled and trailing slashes and "/." steps left out. "/" and a leading "."
/// stay, and so does "..", which may cross a link.
std::string cleanedDirectory(const std::string& path);

/// base and name with one slash between them; either alone if the other is empty.
std::string joinedPath(const std::string& base, const std::string& name);
} // namespace Kvt::Mrl::Core::Service

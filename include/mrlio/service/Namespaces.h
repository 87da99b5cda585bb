#pragma once

/// \file
/// Short names for the namespaces of the service layer, for use inside the library's own namespace.

namespace Kvt::Mrl::Core::Service {}

namespace Kvt::Mrl::Core::Keywords {}

namespace Kvt::Mrl::MrlIO {
namespace Service = ::Kvt::Mrl::Core::Service;
namespace Keywords = ::Kvt::Mrl::Core::Keywords;
} // namespace Kvt::Mrl::MrlIO

#pragma once

namespace Kvt::Mrl::Core::Service::XML {

/// The start-up of the XML parser's library.
class Initialise
{
public:
    /// To be called before each use of the parser; all calls but the first cost nothing. Safe on any thread. It is
    /// never undone, since other code of the process may use the same library.
    /// throws  std::runtime_error if the library can't start
    static void Init();
};

} // namespace Kvt::Mrl::Core::Service::XML

#pragma once

#include <mrlio/Export.h>

namespace Kvt::Mrl::Core::Service {

/// Reports a broken invariant of the program: throws ServiceException with the message, to which the place is added
/// in parentheses unless it is null or empty. Never returns.
[[noreturn]] MRLIO_EXPORT void AssertFailure(const char* message, const char* place);

} // namespace Kvt::Mrl::Core::Service

#include <mrlio/service/AssertFailure.h>
#include <mrlio/service/Exception.h>

#include <string>

namespace Kvt::Mrl::Core::Service {

void AssertFailure(const char* message, const char* place)
{
    std::string text = message != nullptr ? message : "";
    if (place != nullptr && *place != '\0')
        text.append(" (").append(place).append(")");
    throw ServiceException(text);
}

} // namespace Kvt::Mrl::Core::Service

#pragma once

#include "service/Text.h"

#include <mrlio/service/Namespaces.h>

#include <algorithm>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// What readers find when this name stands in a file. Names are the same for them if this is.
inline std::string nameAsRead(std::string name)
{
    name.resize(std::min(name.find('\0'), name.size()));
    Service::StringTrimBlank(name, true, true);
    return name;
}

} // namespace Kvt::Mrl::MrlIO

#include "service/XmlInitialise.h"

#include <stdexcept>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>

namespace Kvt::Mrl::Core::Service::XML {
namespace {

bool start()
{
    try {
        xercesc::XMLPlatformUtils::Initialize();
    } catch (const xercesc::XMLException&) {
        throw std::runtime_error("the XML parser can not be initialised");
    }
    return true;
}

} // namespace

void Initialise::Init()
{
    [[maybe_unused]] static const bool started = start();
}

} // namespace Kvt::Mrl::Core::Service::XML

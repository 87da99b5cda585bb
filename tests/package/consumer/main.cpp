// A program outside the tree: it knows the installed headers and the library, nothing else.
#include <mrlio/MrlIO.h>

#include <cstdio>
#include <exception>

namespace {

// An exception thrown inside the library must be catchable here by its own type.
bool catchesAcrossTheBoundary()
{
    try {
        Kvt::Mrl::MrlIO::ValueTypeInfo("DOUBLE");
    } catch (const Kvt::Mrl::MrlIO::MrlIOException& e) {
        std::printf("caught: %s\n", e.what());
        return true;
    } catch (const std::exception& e) {
        std::printf("caught as a plain exception only: %s\n", e.what());
    }
    return false;
}

} // namespace

int main()
{
    const auto propertyCount = Kvt::Mrl::MrlIO::getNumLibProperties();
    std::printf("library properties: %lld\n", static_cast<long long>(propertyCount));
    return propertyCount > 0 && catchesAcrossTheBoundary() ? 0 : 1;
}

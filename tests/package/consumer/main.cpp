// A program outside the tree: it knows the installed headers and the library, nothing else.
#include <mrlio/MrlIO.h>

#include <boost/filesystem/path.hpp>

#include <cstdint>
#include <cstdio>
#include <exception>
#include <vector>

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

// Classes of the library must be derivable here, and paths passable.
class Counter : public Kvt::Mrl::MrlIO::GridFileKeywordDispatcher
{
public:
    using GridFileKeywordDispatcher::processKeyword;

    void processKeyword(Kvt::Mrl::MrlIO::EGridCOORD& record) override { items += record.size(); }

    std::int64_t items = 0;
};

bool worksWithItsClasses()
{
    Kvt::Mrl::MrlIO::EGridCOORD coord(std::vector<float>{1.0F, 2.0F});
    Counter counter;
    counter.processKeyword(coord);
    Kvt::Mrl::MrlIO::InitRestartReaderBuilders builders;
    const boost::filesystem::path missing("no/such/CASE.INIT");
    return counter.items == 2 && builders.InitReaderBuilder().build(missing) == nullptr;
}

} // namespace

int main()
{
    const auto propertyCount = Kvt::Mrl::MrlIO::getNumLibProperties();
    std::printf("library properties: %lld\n", static_cast<long long>(propertyCount));
    return propertyCount > 0 && catchesAcrossTheBoundary() && worksWithItsClasses() ? 0 : 1;
}

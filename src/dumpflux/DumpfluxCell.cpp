#include <mrlio/DumpfluxCell.h>

namespace Kvt::Mrl::MrlIO {

DumpfluxCell::~DumpfluxCell() = default;

int DumpfluxCell::I() const
{
    return i_;
}

int DumpfluxCell::J() const
{
    return j_;
}

int DumpfluxCell::K() const
{
    return k_;
}

} // namespace Kvt::Mrl::MrlIO

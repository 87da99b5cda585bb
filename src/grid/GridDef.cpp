#include <mrlio/GridDef.h>

#include "core/Fail.h"

#include <stdexcept>

namespace Kvt::Mrl::MrlIO {

namespace {

using PropertyArray = IGridPropertyArray<float>;

[[noreturn]] void failSize(const char* array, int size, unsigned cellCount)
{
    fail<std::invalid_argument>(array, " array size (", size, ") is inconsistent with grid dimensions (", cellCount,
                                "). ");
}

void checkSize(const char* name, const PropertyArray& array, unsigned cellCount)
{
    if (static_cast<unsigned>(array.size()) != cellCount)
        failSize(name, array.size(), cellCount);
}

/// Reads each cell, to see that the array really holds as many as it claims.
void probe(const char* name, const PropertyArray& array, float (PropertyArray::*read)(int) const, unsigned cellCount)
{
    const int size = array.size();
    for (int cell = 0; cell < size; ++cell) {
        try {
            static_cast<void>((array.*read)(cell));
        } catch (const std::exception&) {
            failSize(name, cell - 1, cellCount); // the last cell that could be read, -1 if none could
        }
    }
}

void probe(const char* matrix, const char* fracture, const PropertyArray& array, unsigned cellCount)
{
    probe(matrix, array, &PropertyArray::getValue, cellCount);
    if (array.isDualPorosity())
        probe(fracture, array, &PropertyArray::getFractureValue, cellCount);
}

} // namespace

GridDef::GridDef(const GridSpec& spec, const IGridPropertyArray<float>& porv, bool skipChecks)
    : gridSpec_(&spec),
      porvArray_(&porv),
      rockvArray_(nullptr)
{
    if (!skipChecks)
        checkArrays();
}

GridDef::GridDef(const GridSpec& spec, const IGridPropertyArray<float>& porv, const IGridPropertyArray<float>& rockv,
                 bool skipChecks)
    : gridSpec_(&spec),
      porvArray_(&porv),
      rockvArray_(&rockv)
{
    if (!skipChecks)
        checkArrays();
}

void GridDef::checkArrays() const
{
    const auto cellCount = static_cast<unsigned>(gridSpec_->getNoCells());
    checkSize("Pore volume", *porvArray_, cellCount);
    if (rockvArray_ != nullptr) {
        checkSize("Rock volume", *rockvArray_, cellCount);
        if (rockvArray_->isDualPorosity() != porvArray_->isDualPorosity())
            throw std::invalid_argument("Incompatible pore volume and rock volume property arrays");
    }
    probe("Pore volume matrix", "Pore volume fracture", *porvArray_, cellCount);
    if (rockvArray_ != nullptr)
        probe("Rock volume matrix", "Rock volume fracture", *rockvArray_, cellCount);
}

} // namespace Kvt::Mrl::MrlIO

#pragma once

/// \file
/// The interfaces through which a summary writer pulls descriptions and values of vectors from its client. Vectors
/// count from 0. The order of the virtual operations of each interface is fixed.

#include <mrlio/Export.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// The cells of a local grid to which the vectors of that grid belong.
class MRLIO_EXPORT ISummaryVectorPositions
{
public:
    virtual ~ISummaryVectorPositions() = default;

    /// The cell of vector i in the local grid, by I, J and K from 1.
    virtual int x(int i) const = 0;
    virtual int y(int i) const = 0;
    virtual int z(int i) const = 0;
};

/// Describes the summary vectors of one grid.
class MRLIO_EXPORT ISummaryVectorArraySpec
{
public:
    virtual ~ISummaryVectorArraySpec() = default;

    /// Number of vectors.
    virtual int size() const = 0;

    /// What vector i is, as WOPR; at most 8 characters unless the writer allows long names.
    virtual std::string keyword(int i) const = 0;

    /// Of which well or group it is, at most 72 characters; blank where there is none.
    virtual std::string name(int i) const = 0;

    /// Of which region, cell, connection or segment it is.
    virtual int num(int i) const = 0;

    /// Its units, at most 8 characters.
    virtual std::string units(int i) const = 0;

    /// Whether measurement(i) has something to say.
    virtual bool hasMeasurements() const = 0;

    /// What is measured, in words; of any length. Asked for only if hasMeasurements().
    virtual std::string measurement(int i) const = 0;

    /// The cells of the vectors. A local grid must have them; null is good for the global grid.
    virtual const ISummaryVectorPositions* positions() const = 0;
};

/// The values of the summary vectors of one grid at one time.
class MRLIO_EXPORT ISummaryVectorArray
{
public:
    virtual ~ISummaryVectorArray() = default;

    /// Number of vectors.
    virtual int size() const = 0;

    virtual float value(int i) const = 0;
};

} // namespace Kvt::Mrl::MrlIO

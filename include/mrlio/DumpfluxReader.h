#pragma once

#include <mrlio/DumpfluxBoundaryType.h>
#include <mrlio/DumpfluxCell.h>
#include <mrlio/Export.h>
#include <mrlio/UnitSystemType.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/SimulatorType.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

class DumpfluxReaderImpl;

/// Reads a boundary flux dump: for a model cut into regions, what crosses the connections between the regions (fluxes)
/// or what stands at them (pressures), time range by time range, so that one region can be run by itself.
///
/// A connection joins two cells that lie in different regions as a rule. Cells are told by index, counted from 1 in
/// natural order with I fastest, or as objects. All lists on connections, values included, are in one order: that of
/// the file for all connections; for one region first the connections that have it as their first region, then those
/// that have it as their second, each in file order.
///
/// read walks over the file once and reads its small keywords. The connections are read at the first question about
/// them, and a time range at the first question for one of its arrays; it stays in memory until the next read or the
/// reader's end. No file stays open in between. Before any read, and after one that failed, a reader answers as for a
/// file that isn't there: empty lists, false, and the defaults told below.
///
/// References stay valid until the next read. A reader belongs to one thread: its questions fill it.
///
/// Damaged files throw MrlIOException, of which DumpfluxReaderException is only the part that this class itself finds:
/// catch the former. A time range whose load failed isn't read again; later questions find what had been loaded.
class MRLIO_EXPORT DumpfluxReader
{
public:
    using Cells = std::vector<std::shared_ptr<DumpfluxCell>>;

    /// A reader that has read nothing yet.
    DumpfluxReader();

    ~DumpfluxReader();
    DumpfluxReader(const DumpfluxReader&) = delete;
    DumpfluxReader& operator=(const DumpfluxReader&) = delete;

    /// Opens a file in place of the one that was read before. Its extension tells which form it has. A file that
    /// doesn't exist is an empty one.
    /// throws   MrlIOException if the file is damaged or doesn't begin with a keyword; the reader holds no file then
    void read(const std::string& fileName);

    /// An empty name if no file is held.
    Service::FileName file() const;

    /// Whether the extension is none of an unformatted dump, so true also for extensions that tell no form, although
    /// such files are read as unformatted ones; kept so.
    bool formatted() const;

    /// As the file's header names it; Unknown (11), also where there is none.
    Keywords::SimulatorType::Enum simulatorType() const;

    /// What the values mean; UNKNOWN where the header doesn't tell.
    DumpfluxBoundaryType::Enum boundaryType() const;

    /// 4, which has no label, where the header doesn't tell.
    UnitSystemType::Enum unitSystem() const;

    /// MA10 only; else -1.
    int simulatorVersion() const;

    /// MB30 only; else -1.
    int numComponents() const;
    int maximumNumberWells() const;

    /// The case that the run went on from: its name, which may be empty, and its report; -1 if there is none.
    std::string restartName() const;
    int restartNumber() const;

    bool radialGeometry() const;

    /// -1 for each dimension that isn't known.
    void gridDimension(int& nx, int& ny, int& nz) const;

    /// The product of the dimensions; -1 if one of them is.
    /// throws   MrlIOException if it is beyond int
    int numCells() const;

    /// throws   MrlIOException, as do all questions about connections, if the file lacks its list of connections or the
    ///          list is damaged
    int numConnections() const;

    /// The time ranges in file order: days since the start of the case, closed at the start and open at the end.
    const std::vector<double>& startTimes() const;
    const std::vector<double>& endTimes() const;

    /// One value per time range: averages of the reservoir in the units of the file, and the number of the report.
    const std::vector<double>& averageReservoirPressure() const;
    const std::vector<double>& averageReservoirRs() const;
    const std::vector<double>& averageReservoirRv() const;
    const std::vector<int>& reportNumbers() const;

    /// What any of the time ranges holds: arrays on connections, arrays on wells (WELLFLOW, WELLCOMP), wells.
    const std::set<std::string>& dataArrayNames() const;
    const std::set<std::string>& wellDataArrayNames() const;
    const std::set<std::string>& wellNames() const;

    /// The numbers of all regions that a connection names.
    const std::set<int>& regions() const;

    /// The values of an array for all connections as the file holds them, and the two cells of each connection.
    ///
    /// time          days; finds the first time range that it lies in. The end of the last range belongs to it.
    /// values        FLUX: one per connection, positive from the first cell to the second; PRESSURE: those of all
    ///               first cells, then those of all second cells. Empty if there is no such array or time range.
    /// first, second one per connection, filled whatever becomes of the values
    /// returns       true if there are values and connections
    /// throws        MrlIOException if the file is damaged, or cells are asked for in a grid with 0 for NX or NY
    /// cost          copies, and with the first question for the time range the reading of it
    bool getArray(const std::string& arrayName, double time, std::vector<double>& values, std::vector<int>& first,
                  std::vector<int>& second) const;
    bool getArray(const std::string& arrayName, double time, std::vector<double>& values, Cells& first,
                  Cells& second) const;

    /// The same as one region sees it. A connection inside the region comes twice, once from each side.
    ///
    /// values         FLUX: flow out of the region; PRESSURE: the values of the outer cells. Empty, too, if the
    ///                boundary type is another one or the array doesn't have the length that goes with it.
    /// outer, inner   the cells outside the region and those inside; empty if no connection names the region
    bool getArray(const std::string& arrayName, double time, std::vector<double>& values, std::vector<int>& outer,
                  std::vector<int>& inner, int region) const;
    bool getArray(const std::string& arrayName, double time, std::vector<double>& values, Cells& outer, Cells& inner,
                  int region) const;

    /// The values of a well: WELLFLOW has the oil, water and gas rates, the reservoir volume rate and the energy
    /// production rate; WELLCOMP the molar rates of all components, then their liquid rates, then their vapour rates.
    /// returns   false, with empty values, if the time range has none for the well; WELLCOMP has none if the file doesn't
    ///           tell how many components there are
    /// throws    MrlIOException if the time range can't be read
    bool getWellArray(const std::string& wellName, const std::string& arrayName, double time,
                      std::vector<double>& values) const;

    /// The list of connections as the file holds it, one entry per connection in each vector.
    /// returns   false if there are no connections
    bool getRawIndxFluxData(std::vector<int>& first, std::vector<int>& second, std::vector<int>& direction,
                            std::vector<int>& firstRegion, std::vector<int>& secondRegion,
                            std::vector<bool>& required) const;
    bool getRawIndxFluxData(Cells& first, Cells& second, std::vector<int>& direction, std::vector<int>& firstRegion,
                            std::vector<int>& secondRegion, std::vector<bool>& required) const;

private:
    std::unique_ptr<DumpfluxReaderImpl> impl_;
};

} // namespace Kvt::Mrl::MrlIO

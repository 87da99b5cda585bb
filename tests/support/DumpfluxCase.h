#pragma once

#include "support/KeywordFileBuilder.h"
#include "support/TempDir.h"

#include <mrlio/DumpfluxReader.h>
#include <mrlio/MrlIOException.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace MrlIOTest {

/// One connection, in the order of the columns of INDXFLUX.
struct Joint
{
    int firstCell;
    int secondCell;
    int firstRegion;
    int secondRegion;
    int required = 1;
};

/// INTEHEAD of an MA10 run with fluxes on a grid of 3 x 4 x 2 cells.
inline std::vector<int> dumpfluxIntehead(int nx = 3, int ny = 4, int nz = 2)
{
    std::vector<int> values(250, -2345);
    values[0] = 9;
    values[1] = 2;
    values[2] = 2;
    values[8] = nx;
    values[9] = ny;
    values[10] = nz;
    values[209] = 1;
    return values;
}

/// Builds dumps by hand. The parts stand in the order of the calls. Copies share their folder.
class DumpfluxCase
{
public:
    using Form = KeywordFileBuilder::Form;

    explicit DumpfluxCase(Form form = KeywordFileBuilder::Binary)
        : file(form),
          isText_(form == KeywordFileBuilder::Text)
    {}

    DumpfluxCase& head(const std::string& simulator = "MA10", const std::string& boundary = "FLUX",
                       std::vector<int> intehead = dumpfluxIntehead())
    {
        file.keyword("FLUXTYPE", {simulator, boundary, std::string("TESTER")});
        file.keyword("RESTART", {"LONGCASE", "NAME"}).keyword("RESTNUMB", {17}).keyword("INTEHEAD", intehead);
        file.logicals("LOGIHEAD", {0, 0, 0, 0, isText_ ? 1 : -1}).keyword("DOUBHEAD", {1e21});
        return *this;
    }

    DumpfluxCase& joints(const std::vector<Joint>& joints)
    {
        const std::size_t count = joints.size();
        std::vector<int> table(6 * count);
        for (std::size_t i = 0; i < count; ++i) {
            const Joint& joint = joints[i];
            const int columns[] = {joint.firstCell,   joint.secondCell,   static_cast<int>(i) + 1,
                                   joint.firstRegion, joint.secondRegion, joint.required};
            for (std::size_t column = 0; column < 6; ++column)
                table[column * count + i] = columns[column];
        }
        file.keyword("INDXFLUX", table);
        return *this;
    }

    DumpfluxCase& range(double start, double end, int report = 1)
    {
        std::vector<int> itime(10, 0);
        itime[0] = report;
        file.keyword("ITIME", itime)
            .keyword("DTIME", {start, end, 100 + start, 10 + start, 1 + start, 0., 0., 0., 0., 0.});
        return *this;
    }

    template <class T>
    DumpfluxCase& array(const std::string& name, const std::vector<T>& values)
    {
        file.keyword(name, values);
        return *this;
    }

    /// Makes it a file of the folder and gives its name.
    std::string write(const std::string& root = "CASE") const
    {
        const std::string path = folder_->file(root + (isText_ ? ".FFLUX" : ".FLUX"));
        file.writeTo(path);
        return path;
    }

    KeywordFileBuilder file;

private:
    std::shared_ptr<TempDir> folder_ = std::make_shared<TempDir>();
    bool isText_;
};

/// What a call throws as an exception of the library; "-" if it throws none.
template <class Call>
std::string thrownBy(Call call)
{
    try {
        call();
    } catch (const Kvt::Mrl::MrlIO::MrlIOException& failure) {
        return failure.what();
    }
    return "-";
}

} // namespace MrlIOTest

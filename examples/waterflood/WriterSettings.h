#pragma once

#include "CellProperties.h"
#include "Options.h"

#include <mrlio/MrlIO.h>

namespace waterflood {

/// What all of the library's writers are told about this case.
Kvt::Mrl::MrlIO::MrlWriterDefaultParams writerParams(const Options& options);

Kvt::Mrl::MrlIO::GridSpec gridSpec(const FileGrid& grid);

/// When the simulation starts.
Kvt::Mrl::MrlIO::Service::YearMonthDay startDate();

/// Fills what the library leaves free in the headers of init and restart files.
class HeaderValues : public Kvt::Mrl::MrlIO::IRestartHeaderInfo
{
public:
    void getIntegerHeader(const std::string& gridName, std::map<int, int>& values) const override;

    void getLogicalHeader(const std::string&, std::map<int, bool>&) const override {}

    void getDoubleHeader(const std::string&, std::map<int, double>&) const override {}
};

} // namespace waterflood

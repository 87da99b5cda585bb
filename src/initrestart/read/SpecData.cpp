#include "initrestart/read/SpecData.h"

#include "initrestart/read/SpecDataArrays.h"
#include "initrestart/read/SpecFileColumns.h"
#include "initrestart/read/SpecScan.h"

#include <mrlio/FileIdentifiers.h>
#include <mrlio/MorvaneReaderUtils.h>

#include <utility>

namespace Kvt::Mrl::MrlIO {

void SpecData::read(const Service::FileName& specFile)
{
    readWhole([&] {
        const std::string fileName = specFile.GetFullName();
        const bool formatted = FileIdentifiers::Restart::isFormatted(fileName);
        const auto reader = MorvaneReaderUtils::createReader(fileName, formatted);
        if (!reader || !readSpecKeywords(*reader))
            fail<RestartReaderException>("Error reading invalid or empty file ", fileName);
    });
}

void SpecData::read(const std::vector<std::string>& dataFiles)
{
    readWhole([&] {
        SpecScan scan(*this, inteheadData_);
        for (const std::string& file : dataFiles)
            scan.scan(file);
    });
}

/// Nothing of an index that can't be read as a whole is left to be used.
template <class Read>
void SpecData::readWhole(Read read)
{
    inteheadData_.clear();
    clear();
    try {
        read();
    } catch (...) {
        inteheadData_.clear();
        clear();
        throw;
    }
    finishRead();
}

/// False for a file that is empty or has headers of the case only.
bool SpecData::readSpecKeywords(MorvaneReader& reader)
{
    bool hasTable = false;
    try {
        SpecFileColumns columns(*this);
        for (KeywordHeader header; reader.readNextKeywordHeader(header);) {
            if (header.name() == "INTEHEAD") {
                takeIntehead(reader, header);
                continue;
            }
            const bool isTaken = processIndexFileKeywordHeader(reader, header);
            hasTable = currentStats() != nullptr;
            if (!isTaken)
                columns.take(reader, header);
        }
    } catch (const MrlIOException&) {
        // A file that a run goes on writing ends anywhere; what it holds so far is good.
        if (!reader.eof())
            throw;
    }
    return hasTable;
}

void SpecData::takeIntehead(MorvaneReader& reader, const KeywordHeader& header)
{
    std::vector<int> words;
    readFilledArray(reader, header, words);
    if (inteheadData_.empty())
        inteheadData_ = std::move(words);
}

} // namespace Kvt::Mrl::MrlIO

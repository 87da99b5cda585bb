#include "SummaryCase.h"

#include <exception>

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;
using DataFormat = FileIdentifiers::DataFormat;

/// The first word of RUNTIMEI in the specification is 2 once the run has ended.
bool writerIsDone(const std::string& specFile)
{
    const auto reader = MorvaneReaderUtils::createReader(specFile, FileIdentifiers::Summary::isFormatted(specFile));
    if (!reader)
        return false;
    KeywordHeader header;
    while (reader->readNextKeywordHeader(header)) {
        std::vector<int> words;
        if (header.name() == "RUNTIMEI")
            return reader->readDataVector(header, words) && !words.empty() && words.front() == 2;
    }
    return false;
}

std::int64_t lengthOf(const std::vector<std::string>& files)
{
    return files.size() == 1 ? Service::FileName(files.front()).FileLength() : 0;
}

} // namespace

SummaryCase::SummaryCase(std::string directory, std::string caseName, bool cache)
    : directory_(std::move(directory)),
      caseName_(std::move(caseName)),
      cache_(cache)
{}

bool SummaryCase::refresh()
{
    try {
        const CaseFileFinder finder(caseName_, directory_);
        const std::string specFile = FileFinders::Summary::findSpecFile(finder, DataFormat::DefaultAll());
        if (specFile.empty()) {
            trouble_ = "no summary specification of case " + caseName_ + " in " + directory_;
            return false;
        }
        // Asked before the files are listed, so that what a finished writer left is complete.
        finished_ = writerIsDone(specFile);
        const auto files = FileFinders::Summary::findSummaryFiles(finder, DataFormat::DefaultAll());
        const bool unified = files.size() == 1 && FileIdentifiers::Summary::isUnified(files.front());
        if (reader_ && !unified)
            return readOn(settledFiles(files));
        if (reader_ && lengthOf(files) == lengthRead_)
            return false;
        const std::int64_t length = lengthOf(files);
        if (!open(specFile, unified ? files : settledFiles(files)))
            return false;
        lengthRead_ = length;
        return true;
    } catch (const std::exception& error) {
        // Half a specification, or a file that was replaced between two looks: the next look will do.
        trouble_ = error.what();
        finished_ = false;
        return false;
    }
}

std::vector<std::string> SummaryCase::settledFiles(const std::vector<std::string>& files) const
{
    if (finished_ || files.empty())
        return files;
    return {files.begin(), files.end() - 1};
}

bool SummaryCase::open(const std::string& specFile, const std::vector<std::string>& files)
{
    const auto behaviour = cache_ ? ISummaryReader::ReadWriteCache : ISummaryReader::NoCache;
    const auto spec = std::make_shared<SummarySpecData>(specFile);
    reader_ = SimpleSummaryReader::create(spec, files, directory_, caseName_, behaviour);
    trouble_.clear();
    return true;
}

bool SummaryCase::readOn(const std::vector<std::string>& files)
{
    return reader_->readNewData(files);
}

} // namespace casereport

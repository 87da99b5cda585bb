#include "SummaryCase.h"

#include <exception>

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;
using DataFormat = FileIdentifiers::DataFormat;

/// The first word of RUNTIMEI in the spec file is 2 once the run has ended.
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

} // namespace

SummaryCase::SummaryCase(std::string directory, std::string caseName, bool cache)
    : directory_(std::move(directory)),
      caseName_(std::move(caseName)),
      cache_(cache)
{}

bool SummaryCase::refresh(Extent extent)
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
            return reader_->readNewData(wantedFiles(files, extent));
        const std::int64_t length = unified ? Service::FileName(files.front()).FileLength() : 0;
        if (reader_ && length == lengthRead_)
            return false;
        open(specFile, unified ? files : wantedFiles(files, extent));
        lengthRead_ = length;
        return true;
    } catch (const std::exception& error) {
        // Half a specification, or a file that was replaced between two looks: the next look will do.
        trouble_ = error.what();
        finished_ = false;
        return false;
    }
}

std::vector<std::string> SummaryCase::wantedFiles(const std::vector<std::string>& files, Extent extent) const
{
    if (extent == Extent::All || finished_ || files.empty())
        return files;
    return {files.begin(), files.end() - 1};
}

void SummaryCase::open(const std::string& specFile, const std::vector<std::string>& files)
{
    const auto behaviour = cache_ ? ISummaryReader::ReadWriteCache : ISummaryReader::NoCache;
    const auto spec = std::make_shared<SummarySpecData>(specFile);
    reader_ = SimpleSummaryReader::create(spec, files, directory_, caseName_, behaviour);
    trouble_.clear();
}

} // namespace casereport

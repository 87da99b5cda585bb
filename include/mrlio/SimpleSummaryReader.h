#pragma once

#include <mrlio/Export.h>
#include <mrlio/ISummaryReader.h>
#include <mrlio/SummaryReaderBase.h>

#include <memory>
#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

class SimpleSummaryReaderImpl;

/// Reads the summary of one run from its data files, unified or one per report step. Values are read from the files at
/// the first request for them and kept; no file stays open between requests.
class MRLIO_EXPORT SimpleSummaryReader : public SummaryReaderBase, public virtual ISimpleSummaryReader
{
public:
    /// A reader on the data files, whose report steps it has looked up when it is made.
    /// files                the data files in the order of time, as FileFinders::Summary gives them; may be empty
    /// directory, baseName  where the content index cache lies, and the name of the case
    /// throws               SummaryReaderException if a file is missing, its keywords don't make sense or the number of
    ///                      vectors differs from the spec file's; MrlIOException if a file is damaged. A file that
    ///                      ends in the middle of a keyword counts as one that is still being written: what is
    ///                      complete before that is given, and the rest never by this reader, see readNewData()
    static std::unique_ptr<SimpleSummaryReader> create(const std::shared_ptr<SummarySpecData>& spec,
                                                       const std::vector<std::string>& files,
                                                       const std::string& directory, const std::string& baseName,
                                                       ISummaryReader::ContentCacheBehaviour behaviour);

    ~SimpleSummaryReader() override;
    SimpleSummaryReader(const SimpleSummaryReader&) = delete;
    SimpleSummaryReader& operator=(const SimpleSummaryReader&) = delete;

    bool readNewData(const std::vector<std::string>& files) override;
    std::vector<std::string> summaryFiles() const override;
    const std::vector<float>& timeStepDays() const override;
    const std::vector<int>& miniTimeSteps() const override;
    const std::vector<float>& reportStepDays() const override;

protected:
    const ISummaryDataLoader& dataAccessor() const override;

private:
    SimpleSummaryReader(const std::shared_ptr<SummarySpecData>& spec, const std::vector<std::string>& files,
                        const std::string& directory, const std::string& baseName,
                        ISummaryReader::ContentCacheBehaviour behaviour);

    std::unique_ptr<SimpleSummaryReaderImpl> impl_;
};

} // namespace Kvt::Mrl::MrlIO

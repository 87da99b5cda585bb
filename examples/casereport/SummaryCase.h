#pragma once

#include <mrlio/MrlIO.h>

#include <memory>
#include <string>
#include <vector>

namespace casereport {

/// The summary of a case that may be growing: opened when it is there, and brought up to date on request.
class SummaryCase
{
public:
    SummaryCase(std::string directory, std::string caseName, bool cache);

    /// How much of a split set of files is wanted.
    enum class Extent
    {
        Settled, ///< without the last file, to which its writer may still add
        All      ///< as it stands; nothing that the last file grows by is taken in later
    };

    /// Takes in what the case has grown by: new files of a split set through the reader at hand, a unified file that
    /// has grown through a new reader. Gives true if there is something new. A case that isn't there yet, or whose
    /// files are being replaced at the moment, gives false.
    bool refresh(Extent extent);

    /// True once the writer has closed the case for good.
    bool finished() const { return finished_; }

    /// Null as long as nothing could be opened.
    const Kvt::Mrl::MrlIO::SimpleSummaryReader* reader() const { return reader_.get(); }

    /// Why the last refresh gave no reader; empty if it did.
    const std::string& trouble() const { return trouble_; }

private:
    std::vector<std::string> wantedFiles(const std::vector<std::string>& files, Extent extent) const;
    void open(const std::string& specFile, const std::vector<std::string>& files);

    std::string directory_, caseName_;
    bool cache_;
    bool finished_ = false;
    std::int64_t lengthRead_ = -1; ///< of the unified file at the time when it was opened
    std::unique_ptr<Kvt::Mrl::MrlIO::SimpleSummaryReader> reader_;
    std::string trouble_;
};

} // namespace casereport

#pragma once

#include <mrlio/MrlIO.h>

#include <memory>
#include <string>
#include <vector>

namespace casereport {

/// What a case tells of its cells: the readers of its init file and of its report steps, and its grid file.
class CellCase
{
public:
    CellCase(std::string directory, std::string caseName);

    /// Looks at the files again: a reader shows the case as it was when it was made. Costs little where the case has
    /// index files.
    void refresh();

    const std::string& caseName() const { return caseName_; }

    /// Null if there is none.
    Kvt::Mrl::MrlIO::InitReader* initial() const { return initial_.get(); }

    /// Null if there are none.
    Kvt::Mrl::MrlIO::RestartReader* steps() const { return steps_.get(); }

    /// The numbers of the report steps, ascending.
    const std::vector<int>& stepNumbers() const { return stepNumbers_; }

    /// Empty if there is none.
    const std::string& gridFile() const { return gridFile_; }

    /// What was wrong with the files that are there; empty if nothing was.
    const std::string& trouble() const { return trouble_; }

private:
    std::string directory_, caseName_;
    std::shared_ptr<Kvt::Mrl::MrlIO::InitReader> initial_;
    std::shared_ptr<Kvt::Mrl::MrlIO::RestartReader> steps_;
    std::vector<int> stepNumbers_;
    std::string gridFile_, trouble_;
};

} // namespace casereport

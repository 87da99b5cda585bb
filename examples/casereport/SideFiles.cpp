#include "SideFiles.h"

#include <exception>
#include <filesystem>

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;

/// A reader of the file; null if there is no file.
template <class Reader>
std::unique_ptr<Reader> readerOf(const std::string& file)
{
    if (file.empty())
        return nullptr;
    auto reader = std::make_unique<Reader>();
    reader->read(file);
    return reader;
}

} // namespace

SideFiles::SideFiles(const std::string& directory, const std::string& caseName)
{
    const CaseFileFinder finder(caseName, directory);
    const auto any = FileIdentifiers::DataFormat::DefaultAll();
    tryTo([&] { wells_ = readerOf<RFTReader>(FileFinders::RFT::findFile(finder, any)); });
    tryTo([&] { gradients_ = readerOf<GRFTReader>(FileFinders::GRFT::findFile(finder, any)); });
    tryTo([&] { matchData_ = readerOf<HMDReader>(FileFinders::HMD::findFile(finder, any)); });
    tryTo([&] { fluxes_ = readerOf<DumpfluxReader>(FileFinders::Dumpflux::findFile(finder, any)); });
    tryTo([&] {
        const std::filesystem::path path = std::filesystem::path(directory) / (caseName + ".MSG");
        if (std::filesystem::exists(path))
            messages_ = readMessages(path.string());
    });
}

/// A file that can't be read doesn't keep the others from being looked at.
template <class Open>
void SideFiles::tryTo(const Open& open)
{
    try {
        open();
    } catch (const std::exception& error) {
        trouble_ += (trouble_.empty() ? "" : "\n") + std::string(error.what());
    }
}

} // namespace casereport

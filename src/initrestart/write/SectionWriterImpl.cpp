#include "initrestart/write/SectionWriterImpl.h"

#include "core/Fail.h"
#include "initrestart/SpecIndexFile.h"
#include "initrestart/write/ActiveCells.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <ostream>
#include <stdexcept>
#include <streambuf>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr const char* connectionSuffix = "_NNC";

/// What stands for the global grid in the names of temporary files.
constexpr const char* globalSection = "FFM";

std::string filePart(const std::string& sectionName)
{
    return sectionName.empty() ? globalSection : sectionName;
}

GridContent* contentOf(const std::map<std::string, std::unique_ptr<GridContent>>& contents, const std::string& gridName)
{
    const auto found = contents.find(gridName);
    return found == contents.end() ? nullptr : found->second.get();
}

} // namespace

SectionWriterImpl::~SectionWriterImpl()
{
    removeSections();
    core_.abandon();
}

IGridPropertyWriter& SectionWriterImpl::gridWriter(const std::string& gridName, const GridVolumes& volumes,
                                                   int activeCount)
{
    const GridSpec& spec = declared(gridName, "Cannot get writer for grid: ");
    if (const GridContent* content = contentOf(grids_, gridName))
        return *content->writer;
    return keep(grids_, gridName, gridName,
                makeGridContent(spec, volumes, activeCount, newSection(gridName), core_.form()));
}

IGridPropertyWriter& SectionWriterImpl::connectionWriter(const std::string& gridName)
{
    const GridSpec& spec = declared(gridName, "Cannot get NNC writer for grid: ");
    if (const GridContent* content = contentOf(connections_, gridName))
        return *content->writer;
    const std::string sectionName = gridName + connectionSuffix;
    return keep(connections_, gridName, sectionName,
                makeConnectionContent(spec, newSection(sectionName), core_.form()));
}

void SectionWriterImpl::close(int bufferSize)
{
    if (!core_.isOpen())
        return;
    try {
        if (!sectionNames_.empty() || core_.hasWells())
            merge(bufferSize);
    } catch (...) {
        removeSections();
        core_.abandon();
        throw;
    }
    removeSections();
    core_.close();
}

const GridSpec& SectionWriterImpl::declared(const std::string& gridName, const char* refusal) const
{
    if (!core_.isOpen())
        throw std::runtime_error(notOpen_);
    return core_.declared(gridName, refusal);
}

/// A section without a file.
/// throws   std::invalid_argument if its file would be that of another section, or lie in another directory
std::shared_ptr<StreamSection> SectionWriterImpl::newSection(const std::string& name) const
{
    if (sectionNames_.contains(filePart(name)))
        fail<std::invalid_argument>("The temporary file of section \"", name, "\" is that of another section.");
    if (name.find('/') != std::string::npos)
        fail<std::invalid_argument>("Section \"", name, "\" cannot have a temporary file.");
    return std::make_shared<StreamSection>(core_.output().dataFile(), name, core_.form().formatted);
}

/// The section is opened once, so that trouble with its file shows here. Each array opens it again, since there may be
/// more grids than files that a process can have open.
IGridPropertyWriter& SectionWriterImpl::keep(Contents& contents, const std::string& gridName,
                                             const std::string& sectionName, std::unique_ptr<GridContent> content)
{
    content->section->stream();
    content->section->close();
    sectionNames_.insert(filePart(sectionName));
    return *(contents[gridName] = std::move(content))->writer;
}

void SectionWriterImpl::merge(int bufferSize)
{
    core_.startSequence(bufferSize);
    for (const std::string& gridName : core_.gridNames())
        mergeGrid(gridName);
    if (connections_.empty())
        return;
    for (const std::string& gridName : core_.gridNames())
        mergeConnections(gridName);
}

void SectionWriterImpl::mergeGrid(const std::string& gridName)
{
    GridContent* content = contentOf(grids_, gridName);
    core_.beginGrid(gridName, content != nullptr ? content->layout : layoutWithoutContent(gridName));
    endWith(gridName, content);
}

/// A grid that nobody wrote arrays for counts as active as a whole, so that readers needn't know its volumes. They take
/// it from the global grid whether a case has dual porosity, and without volumes they can't see that layers stand for
/// both media: the cells of both are counted, the layers aren't doubled.
GridLayout SectionWriterImpl::layoutWithoutContent(const std::string& gridName) const
{
    const GridContent* global = contentOf(grids_, std::string());
    const bool isDualPorosityCase = global != nullptr && global->layout.dualPorosity;
    const std::int64_t active = cellCount(core_.declared(gridName, "")) * (isDualPorosityCase ? 2 : 1);
    return {.activeCount = static_cast<int>(std::min<std::int64_t>(active, std::numeric_limits<int>::max())),
            .dualPorosity = false};
}

void SectionWriterImpl::mergeConnections(const std::string& gridName)
{
    core_.beginConnections(gridName);
    endWith(gridName, contentOf(connections_, gridName));
}

void SectionWriterImpl::endWith(const std::string& gridName, GridContent* content)
{
    if (content == nullptr) {
        core_.endGrid(gridName, {});
        return;
    }
    const std::int64_t base = core_.output().data().tellp();
    copy(*content->section);
    content->section->remove();
    content->section.reset(); // the name is free now: a file that has it later is somebody else's
    for (std::size_t row = 0; row < content->rows.names.size(); ++row)
        setRowPosition(content->rows, row, rowPosition(content->rows, row) + base);
    core_.endGrid(gridName, content->rows);
}

void SectionWriterImpl::copy(StreamSection& section)
{
    const std::int64_t length = section.stream().tellp();
    if (std::streambuf* const content = section.rewind())
        core_.output().addData(dynamic_cast<Service::FileStreamBuf&>(*content), length);
}

void SectionWriterImpl::removeSections() noexcept
{
    for (Contents* contents : {&grids_, &connections_}) {
        for (const auto& [gridName, content] : *contents) {
            try {
                if (content->section != nullptr)
                    content->section->remove();
            } catch (...) {
                // A temporary file that can't be removed stays; there is nobody to be told.
            }
        }
        contents->clear();
    }
    sectionNames_.clear();
}

} // namespace Kvt::Mrl::MrlIO

#pragma once

#include "initrestart/write/GridContent.h"
#include "initrestart/write/RestartWriterCore.h"

#include <mrlio/IGridPropertyWriter.h>

#include <map>
#include <memory>
#include <set>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// The way in which the random-order writers put grids into sections of their own, and join these when they close.
class SectionWriterImpl
{
public:
    /// notOpen   what a closed writer says when it is asked for the writer of a grid
    SectionWriterImpl(const RestartWriterSetup& setup, const char* notOpen) : core_(setup), notOpen_(notOpen) {}

    SectionWriterImpl(const SectionWriterImpl&) = delete;
    SectionWriterImpl& operator=(const SectionWriterImpl&) = delete;
    ~SectionWriterImpl();

    RestartWriterCore& core() { return core_; }

    /// The writer of a grid, or of its connections, made at the first call.
    IGridPropertyWriter& gridWriter(const std::string& gridName, const GridVolumes& volumes, int activeCount);
    IGridPropertyWriter& connectionWriter(const std::string& gridName);

    /// Joins the sections, if there is anything to write, and closes the writer in any case.
    void close(int bufferSize);

private:
    using Contents = std::map<std::string, std::unique_ptr<GridContent>>;

    const GridSpec& declared(const std::string& gridName, const char* refusal) const;
    std::shared_ptr<StreamSection> newSection(const std::string& name) const;
    IGridPropertyWriter& keep(Contents& contents, const std::string& gridName, const std::string& sectionName,
                              std::unique_ptr<GridContent> content);
    void merge(int bufferSize);
    void mergeGrid(const std::string& gridName);
    GridLayout layoutWithoutContent(const std::string& gridName) const;
    void mergeConnections(const std::string& gridName);
    void endWith(const std::string& gridName, GridContent* content);
    void copy(StreamSection& section);
    void removeSections() noexcept;

    RestartWriterCore core_;
    const char* notOpen_;
    Contents grids_;
    Contents connections_;
    std::set<std::string> sectionNames_; // as they stand in the names of the temporary files
};

} // namespace Kvt::Mrl::MrlIO

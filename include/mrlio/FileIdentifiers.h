#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/PathFilter.h>

#include <string>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Tells which extensions belong to which kind of file of a case, in which data format.
///
/// Everything here is static and safe on any thread: the lists are built at their first use and never change. The
/// filter operations give references that stay good to the end of the program. They throw std::runtime_error
/// ("invalid DataFormat flags ...") for a format that excludes both formatted and unformatted files; those of the kinds
/// that may be split also for one that excludes both unified and split files.
///
/// Names may come with a directory or without, and letter case doesn't matter anywhere.
class MRLIO_EXPORT FileIdentifiers
{
public:
    /// The data formats that a caller wants: formatted or unformatted, unified or split into a file per report step.
    /// Of each pair either flag alone makes a definite choice, both together allow either, none excludes everything.
    class MRLIO_EXPORT DataFormat
    {
    public:
        static constexpr unsigned FORMATTED = 1;
        static constexpr unsigned UNFORMATTED = 2;
        static constexpr unsigned DEFAULT_FORMATTED = FORMATTED | UNFORMATTED;
        static constexpr unsigned UNIFIED = 4;
        static constexpr unsigned NOTUNIFIED = 8;
        static constexpr unsigned DEFAULT_UNIFIED = UNIFIED | NOTUNIFIED;

        /// Allows everything, as DefaultAll does.
        constexpr DataFormat() = default;

        static constexpr DataFormat FormattedUnified() { return DataFormat(FORMATTED | UNIFIED); }

        static constexpr DataFormat FormattedNotUnified() { return DataFormat(FORMATTED | NOTUNIFIED); }

        static constexpr DataFormat FormattedAnyUnified() { return DataFormat(FORMATTED | DEFAULT_UNIFIED); }

        static constexpr DataFormat UnformattedUnified() { return DataFormat(UNFORMATTED | UNIFIED); }

        static constexpr DataFormat UnformattedNotUnified() { return DataFormat(UNFORMATTED | NOTUNIFIED); }

        static constexpr DataFormat UnformattedAnyUnified() { return DataFormat(UNFORMATTED | DEFAULT_UNIFIED); }

        static constexpr DataFormat AnyFormattedUnified() { return DataFormat(DEFAULT_FORMATTED | UNIFIED); }

        static constexpr DataFormat AnyFormattedNotUnified() { return DataFormat(DEFAULT_FORMATTED | NOTUNIFIED); }

        static constexpr DataFormat DefaultAll() { return DataFormat(DEFAULT_FORMATTED | DEFAULT_UNIFIED); }

        /// The one format with both choices made.
        static constexpr DataFormat get(bool formatted, bool unified)
        {
            return DefaultAll().withFormatted(formatted).withUnified(unified);
        }

        static constexpr DataFormat getAnyFormattedWithUnified(bool unified)
        {
            return DefaultAll().withUnified(unified);
        }

        static constexpr DataFormat getAnyUnifiedWithFormatted(bool formatted)
        {
            return DefaultAll().withFormatted(formatted);
        }

        /// The flags as one number.
        constexpr unsigned flags() const { return flags_; }

        /// True only for a definite choice: the one flag set, the other clear.
        constexpr bool isFormatted() const { return areAllSet(FORMATTED) && areNoneSet(UNFORMATTED); }

        constexpr bool isUnformatted() const { return areAllSet(UNFORMATTED) && areNoneSet(FORMATTED); }

        constexpr bool isUnified() const { return areAllSet(UNIFIED) && areNoneSet(NOTUNIFIED); }

        constexpr bool isNotUnified() const { return areAllSet(NOTUNIFIED) && areNoneSet(UNIFIED); }

        /// True if both flags of the pair are set.
        constexpr bool isDefaultFormatted() const { return areAllSet(DEFAULT_FORMATTED); }

        constexpr bool isDefaultUnified() const { return areAllSet(DEFAULT_UNIFIED); }

        /// Changed copies. "Default" and "Any" are two words for the same: either choice is allowed.
        constexpr DataFormat setFormatted(bool formatted) const { return DataFormat(*this).withFormatted(formatted); }

        constexpr DataFormat setUnified(bool unified) const { return DataFormat(*this).withUnified(unified); }

        constexpr DataFormat setDefaultFormatted() const { return DataFormat(*this).withDefaultFormatted(); }

        constexpr DataFormat setDefaultUnified() const { return DataFormat(*this).withDefaultUnified(); }

        constexpr DataFormat setAnyFormatted() const { return setDefaultFormatted(); }

        constexpr DataFormat setAnyUnified() const { return setDefaultUnified(); }

        /// The same changes made to this object, which is returned.
        constexpr DataFormat& withFormatted(bool formatted)
        {
            return withoutFlags(DEFAULT_FORMATTED).withFlags(formatted ? FORMATTED : UNFORMATTED);
        }

        constexpr DataFormat& withUnified(bool unified)
        {
            return withoutFlags(DEFAULT_UNIFIED).withFlags(unified ? UNIFIED : NOTUNIFIED);
        }

        constexpr DataFormat& withDefaultFormatted() { return withFlags(DEFAULT_FORMATTED); }

        constexpr DataFormat& withDefaultUnified() { return withFlags(DEFAULT_UNIFIED); }

        constexpr DataFormat& withAnyFormatted() { return withDefaultFormatted(); }

        constexpr DataFormat& withAnyUnified() { return withDefaultUnified(); }

        /// Appends to `out` the formats that settle what this one leaves open, in the order in which they are to be
        /// tried: unformatted ahead of formatted, split files ahead of unified ones. A format that leaves nothing open
        /// is appended as itself.
        void expandDefaults(std::vector<DataFormat>& out) const;

        friend constexpr bool operator<(DataFormat a, DataFormat b) { return a.flags_ < b.flags_; }

        friend constexpr bool operator==(DataFormat a, DataFormat b) { return a.flags_ == b.flags_; }

    private:
        constexpr explicit DataFormat(unsigned flags) : flags_(flags) {}

        constexpr DataFormat& withFlags(unsigned flags)
        {
            flags_ |= flags;
            return *this;
        }

        constexpr DataFormat& withoutFlags(unsigned flags)
        {
            flags_ &= ~flags;
            return *this;
        }

        constexpr bool areAllSet(unsigned flags) const { return (flags_ & flags) == flags; }

        constexpr bool areNoneSet(unsigned flags) const { return (flags_ & flags) == 0; }

        unsigned flags_ = DEFAULT_FORMATTED | DEFAULT_UNIFIED;
    };

    FileIdentifiers() = delete;

    /// Flux dumps.
    class MRLIO_EXPORT Dumpflux
    {
    public:
        static const Service::PathFilterList& fileExtensionFilters(DataFormat format);

        /// The extension for a new file, without the dot; formatted only if the format makes that choice.
        static std::string defaultDumpfluxFileExtension(DataFormat format);

        static bool isDumpfluxFile(const std::string& name);
        static bool isFormatted(const std::string& name);
        static bool isUnformatted(const std::string& name);
    };

    /// Gradients of well test results.
    class MRLIO_EXPORT GRFT
    {
    public:
        static const Service::PathFilterList& fileExtensionFilters(DataFormat format);

        static bool isGRFTFile(const std::string& name);
        static bool isFormatted(const std::string& name);
        static bool isUnformatted(const std::string& name);
    };

    /// Grids, of which there are two kinds.
    class MRLIO_EXPORT Grid
    {
    public:
        static const Service::PathFilterList& fileEGridExtensionFilters(DataFormat format);
        static const Service::PathFilterList& fileGridExtensionFilters(DataFormat format);

        /// The filters of the GRID kind, then those of the EGRID kind.
        static const Service::PathFilterList& fileExtensionFilters(DataFormat format);

        static bool isGridFile(const std::string& name);
        static bool isFormatted(const std::string& name);
        static bool isUnformatted(const std::string& name);
    };

    /// History match data.
    class MRLIO_EXPORT HMD
    {
    public:
        static const Service::PathFilterList& fileExtensionFilters(DataFormat format);

        static bool isHMDFile(const std::string& name);
        static bool isFormatted(const std::string& name);
        static bool isUnformatted(const std::string& name);
    };

    /// Well test results.
    class MRLIO_EXPORT RFT
    {
    public:
        static const Service::PathFilterList& fileExtensionFilters(DataFormat format);

        static bool isRFTFile(const std::string& name);
        static bool isFormatted(const std::string& name);
        static bool isUnformatted(const std::string& name);
    };

    /// Initial properties, restart steps, and the spec files of both.
    class MRLIO_EXPORT Restart
    {
    public:
        static const Service::PathFilterList& initFileExtensionFilters(DataFormat format);
        static const Service::PathFilterList& defaultInitFileExtensionFilters(DataFormat format);
        static const Service::PathFilterList& initSpecFileExtensionFilters(DataFormat format);
        static const Service::PathFilterList& specFileExtensionFilters(DataFormat format);

        /// The filters of all formats with definite choices that `format` allows, in the order of expandDefaults.
        static const Service::PathFilterList& restartFileExtensionFilters(DataFormat format);

        /// The filters of one format; `format` must make both choices.
        static const Service::PathFilterList& restartFileExtensionFiltersUnexpanded(DataFormat format);

        /// The filters of unified restart files, and of unformatted ones.
        static const Service::PathFilterList& unifiedFilters();
        static const Service::PathFilterList& unformattedFilters();

        /// Extensions for new files, without the dot; formatted only if the format makes that choice.
        static std::string defaultInitFileExtension(DataFormat format);
        static std::string defaultInitSpecFileExtension(DataFormat format);
        static std::string defaultRestartSpecFileExtension(DataFormat format);

        static bool isInitFile(const std::string& name);
        static bool isInitSpecFile(const std::string& name);
        static bool isRestartFile(const std::string& name);
        static bool isRestartSpecFile(const std::string& name);

        /// True for each of the four kinds.
        static bool isAnyInitRestartFile(const std::string& name);

        static bool isFormatted(const std::string& name);
        static bool isUnformatted(const std::string& name);

        /// True for a restart file that holds all steps.
        static bool isUnified(const std::string& name);

        /// The report step of a split restart file, by its extension; -1 if it has none.
        static int extractIndex(const std::string& name);
    };

    /// Streamlines: the spec file and the solutions, one file for each step.
    class MRLIO_EXPORT Streamlines
    {
    public:
        static const Service::PathFilterList& specFileExtensionFilters(DataFormat format);
        static const Service::PathFilterList& solutionFileExtensionFilters(DataFormat format);

        static bool isSolutionFile(const std::string& name);
        static bool isSpecFile(const std::string& name);
        static bool isStreamlinesFile(const std::string& name);
        static bool isFormatted(const std::string& name);
        static bool isUnformatted(const std::string& name);
    };

    /// Summary data and their spec file.
    class MRLIO_EXPORT Summary
    {
    public:
        static const Service::PathFilterList& specFileExtensionFilters(DataFormat format);

        /// The filters of all formats with definite choices that `format` allows, in the order of expandDefaults.
        static const Service::PathFilterList& summaryFileExtensionFilters(DataFormat format);

        /// The filters of one format; `format` must make both choices.
        static const Service::PathFilterList& summaryFileExtensionFiltersUnexpanded(DataFormat format);

        /// The container form of the summary, which no other operation counts as a summary file.
        static const Service::PathFilterList& hdfFileExtensionFilters();

        static bool isSummaryFile(const std::string& name);
        static bool isSummarySpecFile(const std::string& name);

        /// True for data and spec files.
        static bool isAnySummaryFile(const std::string& name);

        static bool isFormatted(const std::string& name);
        static bool isUnformatted(const std::string& name);

        /// True for a data file that holds all report steps.
        static bool isUnified(const std::string& name);

        /// The report step of a split summary file; see FileIdentifiers::extractIndex.
        static int extractIndex(const std::string& name, std::string& extension);
    };

    /// The filters of all kinds of files of a case in one list.
    static const Service::PathFilterList& getAllFilters(DataFormat format);

    /// True if the name passes at least one of the filters; false for an empty list.
    static bool doesPassAnyFilter(const std::string& name, const Service::PathFilterList& filters);

    /// True if the name passes every one of the filters.
    static bool doesPassAllFilter(const std::string& name, const Service::PathFilterList& filters);

    /// True if the extension is one of any kind in formatted form, or in unformatted form.
    static bool isFormatted(const std::string& name);
    static bool isUnformatted(const std::string& name);

    /// Turns a numbered extension, as ".X0012", into a step number.
    ///
    /// extension  becomes the text behind the last dot as it is spelled, empty if there is none
    /// letters    upper-case letters that may begin the extension. Each text stands for one kind: with its first letter
    ///            the steps count from 0, with each further one from 10000 more (100 more if there are two digits).
    ///            The number has two or four digits; behind a text's last letter it may have more.
    /// returns    -1 if the extension isn't of that form or the number is too large for an int
    static int extractIndex(const std::string& name, std::string& extension, const std::vector<std::string>& letters);
};

} // namespace Kvt::Mrl::MrlIO

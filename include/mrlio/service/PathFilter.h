#pragma once

#include <mrlio/Export.h>
#include <mrlio/service/PathCacheEntry.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// \file
/// Tests on file names. All of them ignore letter case (of ASCII letters), and none looks at the disk. Filters can't
/// be changed once made, so that threads may share them.

namespace Kvt::Mrl::Core::Service {

/// Says of a path whether it is wanted. The order of the virtual operations is part of the contract.
class MRLIO_EXPORT PathFilter
{
public:
    virtual ~PathFilter();

    /// True if the entry passes the test.
    virtual bool Accept(const PathCacheEntry& entry) const = 0;

protected:
    PathFilter() = default;
    PathFilter(const PathFilter&) = default;
    PathFilter& operator=(const PathFilter&) = default;
};

/// Filters in the order in which they are to be tried.
using PathFilterList = std::vector<std::shared_ptr<const PathFilter>>;

/// Accepts the entries with one extension.
class MRLIO_EXPORT ExtensionFilter final : public PathFilter
{
public:
    /// extension  begins with the dot, as in ".EGRID"
    static std::shared_ptr<const PathFilter> Create(const std::string& extension);

    bool Accept(const PathCacheEntry& entry) const override;

private:
    explicit ExtensionFilter(const std::string& extension);

    std::string extension_;
};

/// Accepts the entries with one root name (the file name without its extension).
class MRLIO_EXPORT FilenameExactNoCaseFilter final : public PathFilter
{
public:
    static std::shared_ptr<const PathFilter> Create(const std::string& rootName);

    bool Accept(const PathCacheEntry& entry) const override;

private:
    explicit FilenameExactNoCaseFilter(const std::string& rootName);

    std::string rootName_;
};

/// Accepts the entries whose extension is a text and a number of a fixed count of digits, as in ".SLN0012".
class MRLIO_EXPORT NumberedStringExtensionFilter final : public PathFilter
{
public:
    /// text    stands between the dot and the number
    /// digits  how many decimal digits the number has, neither more nor fewer
    static std::shared_ptr<const PathFilter> Create(const std::string& text, std::uint64_t digits);

    bool Accept(const PathCacheEntry& entry) const override;

private:
    NumberedStringExtensionFilter(const std::string& text, std::uint64_t digits);

    std::string prefix_;
    std::uint64_t digits_;
};

/// Accepts the entries whose extension is a letter and a number of a fixed count of digits, as in ".X0012".
class MRLIO_EXPORT NumberedExtensionFilter final : public PathFilter
{
public:
    static std::shared_ptr<const PathFilter> Create(char letter, std::uint64_t digits);

    bool Accept(const PathCacheEntry& entry) const override;

private:
    NumberedExtensionFilter(char letter, std::uint64_t digits);

    char letter_;
    std::uint64_t digits_;
};

/// Accepts the entries that at least one of several filters accepts.
class MRLIO_EXPORT OrFilter final : public PathFilter
{
public:
    /// filters  null ones accept nothing
    static std::shared_ptr<const PathFilter> Create(const PathFilterList& filters);

    bool Accept(const PathCacheEntry& entry) const override;

private:
    explicit OrFilter(const PathFilterList& filters);

    PathFilterList filters_;
};

} // namespace Kvt::Mrl::Core::Service

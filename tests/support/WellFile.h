#pragma once

#include "support/KeywordFileBuilder.h"
#include "support/TempDir.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace MrlIOTest {

/// A file of reports on wells, in the verbs of a simulator. Arrays follow a well by KeywordFileBuilder's verbs.
class WellFile : public KeywordFileBuilder
{
public:
    explicit WellFile(Form form = Binary) : KeywordFileBuilder(form) {}

    /// TIME and DATE. Each further well of a report repeats them.
    WellFile& report(float time, int day = 1, int month = 1, int year = 2030)
    {
        keyword("TIME", {time});
        datePositions.push_back(size());
        keyword("DATE", {day, month, year});
        return *this;
    }

    /// WELLETC with all units; see wellEtc.
    WellFile& well(const std::string& name, const std::string& lgr = {}, const std::string& type = "STANDARD")
    {
        keyword("WELLETC", wellEtc(name, lgr, type));
        return *this;
    }

    /// Each unit is named after its position: "U3" and so on.
    static std::vector<std::string> wellEtc(const std::string& name, const std::string& lgr = {},
                                            const std::string& type = "STANDARD")
    {
        std::vector<std::string> texts;
        for (int position = 0; position < 19; ++position)
            texts.push_back("U" + std::to_string(position));
        texts[1] = name;
        texts[2] = lgr;
        texts[6] = type;
        return texts;
    }

    std::vector<std::int64_t> datePositions; // of each report()
};

/// A folder with one file of well results and its cache.
class WellCase
{
public:
    /// extension    of the file
    /// cacheSuffix  "_rft_content_index__.xml" and the like
    WellCase(std::string extension, std::string cacheSuffix)
        : extension_(std::move(extension)),
          cacheSuffix_(std::move(cacheSuffix))
    {}

    std::string directory() const { return folder_.path(); }

    std::string path(const std::string& name) const { return folder_.file(name); }

    std::string file() const { return path("CASE." + extension_); }

    std::string cacheFile() const { return path("CASE" + cacheSuffix_); }

    bool hasCache() const { return std::filesystem::exists(cacheFile()); }

    std::string cache() const { return readBytes(cacheFile()); }

    /// Writes the file and gives its name.
    std::string write(const KeywordFileBuilder& content) const
    {
        content.writeTo(file());
        return file();
    }

    /// Replaces the first text of the cache by the second, once. The cache must hold it.
    void editCache(const std::string& from, const std::string& to) const
    {
        std::string text = cache();
        const std::size_t place = text.find(from);
        if (place == std::string::npos)
            throw std::runtime_error("the cache holds no " + from);
        writeBytes(cacheFile(), text.replace(place, from.size(), to));
    }

private:
    TempDir folder_;
    std::string extension_;
    std::string cacheSuffix_;
};

} // namespace MrlIOTest

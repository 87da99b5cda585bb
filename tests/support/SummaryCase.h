#pragma once

#include "support/KeywordFileBuilder.h"
#include "support/TempDir.h"

#include <mrlio/SummarySpecData.h>
#include <mrlio/service/Log.h>

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace MrlIOTest {

using Form = KeywordFileBuilder::Form;

/// Summary data in the verbs of a simulator.
class SummaryDataBuilder : public KeywordFileBuilder
{
public:
    explicit SummaryDataBuilder(Form form = Binary) : KeywordFileBuilder(form) {}

    SummaryDataBuilder& reportStep(int sequenceNumber = 0)
    {
        keyword("SEQHDR", {sequenceNumber});
        return *this;
    }

    SummaryDataBuilder& miniStep(int number, const std::vector<float>& values)
    {
        keyword("MINISTEP", {number});
        paramsPositions.push_back(size());
        keyword("PARAMS", values);
        ends.push_back(size());
        return *this;
    }

    std::vector<std::int64_t> paramsPositions;
    std::vector<std::int64_t> ends; // behind each mini step
};

/// Collects what goes to the log as long as it lives.
class LogCollector
{
public:
    struct Line
    {
        std::string text;
        int severity;
        bool operator==(const Line&) const = default;
    };

    LogCollector()
    {
        using namespace Kvt::Mrl::Core::Service;
        Log::SetSink([this](const std::string& text, MessageSeverity severity) { lines.push_back({text, severity}); });
    }

    LogCollector(const LogCollector&) = delete;
    LogCollector& operator=(const LogCollector&) = delete;

    ~LogCollector() { Kvt::Mrl::Core::Service::Log::SetSink(nullptr); }

    bool has(const std::string& part, int severity) const
    {
        for (const Line& line : lines) {
            if (line.severity == severity && line.text.find(part) != std::string::npos)
                return true;
        }
        return false;
    }

    std::vector<Line> lines;
};

/// The spec file of a case with the vectors TIME, WOPR of P1 and P2, FOPR, WOPR of P3: so WOPR has two runs.
inline KeywordFileBuilder smallSpec(Form form = Form::Binary)
{
    KeywordFileBuilder spec(form);
    spec.keyword("DIMENS", {5, 10, 20, 30, 0, 0})
        .keyword("KEYWORDS", {"TIME", "WOPR", "WOPR", "FOPR", "WOPR"})
        .keyword("WGNAMES", {":+:+:+:+", "P1", "P2", ":+:+:+:+", "P3"})
        .keyword("NUMS", {0, 1, 1, 0, 1})
        .keyword("UNITS", {"DAYS", "SM3/DAY", "SM3/DAY", "SM3/DAY", "SM3/DAY"})
        .keyword("STARTDAT", {14, 3, 2026});
    return spec;
}

inline Kvt::Mrl::MrlIO::SummaryVectorIDParams woprOf(const std::string& well)
{
    return {"WOPR", well, 1, "", -1, -1, -1};
}

/// The values of smallSpec() at a mini step: the time, and behind it the time times 10 and the place.
inline std::vector<float> valuesAt(float time)
{
    return {time, 10 * time + 1, 10 * time + 2, 10 * time + 3, 10 * time + 4};
}

/// A case in a folder of its own.
class SummaryCase
{
public:
    std::string path(const std::string& name) const { return folder_.file(name); }

    std::string directory() const { return folder_.path(); }

    std::string write(const std::string& name, const KeywordFileBuilder& content) const
    {
        content.writeTo(path(name));
        return path(name);
    }

    std::string append(const std::string& name, const KeywordFileBuilder& content) const
    {
        writeBytes(path(name), readBytes(path(name)) + content.bytes());
        return path(name);
    }

    std::shared_ptr<Kvt::Mrl::MrlIO::SummarySpecData> spec() const
    {
        return std::make_shared<Kvt::Mrl::MrlIO::SummarySpecData>(write("CASE.SMSPEC", smallSpec()));
    }

    std::string cachePath() const { return path("CASE_summary_content_index__.xml"); }

    bool hasCache() const { return std::filesystem::exists(cachePath()); }

private:
    TempDir folder_;
};

} // namespace MrlIOTest

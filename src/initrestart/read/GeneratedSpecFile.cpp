#include "initrestart/read/GeneratedSpecFile.h"

#include "initrestart/HeaderPositions.h"
#include "initrestart/SpecIndexFile.h"
#include "service/FileStream.h"

#include <mrlio/KeywordWriter.h>
#include <mrlio/service/FileName.h>

#include <boost/filesystem/operations.hpp>
#include <boost/system/error_code.hpp>

#include <cstddef>
#include <exception>
#include <system_error>
#include <utility>

namespace Kvt::Mrl::MrlIO {

namespace {

void writeGrids(KeywordWriter& writer, const SpecIndexData& step)
{
    writeSpecSection(writer, {}, step.stats);
    for (const std::string& lgr : step.lgrNames)
        writeSpecSection(writer, lgr, *step.find(lgr));
    if (!step.lgrNames.empty())
        writeEmptyKeyword(writer, "LGRSGONE");
}

void writeContent(KeywordWriter& writer, const InitSpecData& index)
{
    if (!index.inteheadData().empty())
        writer.write(KeywordINTE("INTEHEAD", index.inteheadData()));
    if (index.index() != nullptr)
        writeGrids(writer, *index.index());
}

/// Words of what isn't known are left unset, which no reader takes for a date or a time.
std::vector<int> itimeOf(const SpecIndexData& step, bool formatted)
{
    namespace Itime = HeaderPositions::Itime;
    std::vector<int> words(Itime::size, HeaderPositions::unsetWord);
    words[Itime::reportStep] = step.seqnum;
    words[Itime::isZero] = 0;
    words[Itime::formatted] = formatted ? 1 : 0;
    if (step.hasDate) {
        words[Itime::day] = step.date.Day();
        words[Itime::month] = step.date.Month();
        words[Itime::year] = static_cast<int>(step.date.Year());
    }
    if (step.hasTime || step.timeOfDay != Service::HourMinuteSecondMillisecond()) {
        words[Itime::hour] = step.timeOfDay.Hour();
        words[Itime::minute] = step.timeOfDay.Minute();
        words[Itime::microseconds] = (step.timeOfDay.Second() * 1000 + step.timeOfDay.Millisecond()) * 1000;
    }
    return words;
}

void writeStep(KeywordWriter& writer, const SpecIndexData& step, bool formatted)
{
    writer.write(KeywordTmpl<ValueType::DOUB>("TIME", {step.time}));
    writer.write(KeywordINTE("ITIME", itimeOf(step, formatted)));
    writeGrids(writer, step);
}

/// Steps that are known by their places in the case keep them: a place without a step is written as a step without a
/// number.
void writeContent(KeywordWriter& writer, const RestartSpecData& index, bool formatted)
{
    writer.write(KeywordINTE("INTEHEAD", index.inteheadData()));
    bool byPlace = false;
    for (const auto& [number, step] : index.steps())
        byPlace = byPlace || number != step->seqnum;
    if (!byPlace) {
        for (const auto& [number, step] : index.steps())
            writeStep(writer, *step, formatted);
        return;
    }
    const SpecIndexData none;
    for (int place = 0; place <= index.maxIndex(); ++place) {
        const SpecIndexData* step = index.step(place);
        writeStep(writer, step != nullptr ? *step : none, formatted);
    }
}

bool listsSameArrays(const SpecStatsData& left, const SpecStatsData& right)
{
    return left.names == right.names && left.types == right.types && left.numbers == right.numbers &&
           left.pointers == right.pointers && left.pointersB == right.pointersB;
}

bool listsSameArrays(const SpecIndexData& left, const SpecIndexData& right)
{
    if (left.lgrNames != right.lgrNames || !listsSameArrays(left.stats, right.stats))
        return false;
    for (const std::string& lgr : left.lgrNames) {
        if (!listsSameArrays(*left.find(lgr), *right.find(lgr)))
            return false;
    }
    return true;
}

bool readsBackEqual(const Service::FileName& file, const InitSpecData& index)
{
    InitSpecData written;
    written.read(file);
    return written.index() != nullptr && index.index() != nullptr && listsSameArrays(*written.index(), *index.index());
}

bool readsBackEqual(const Service::FileName& file, const RestartSpecData& index)
{
    RestartSpecData written;
    written.read(file);
    if (written.steps().size() != index.steps().size())
        return false;
    for (const auto& [number, step] : index.steps()) {
        const SpecIndexData* read = written.step(number);
        if (read == nullptr || read->seqnum != step->seqnum || read->hasDate != step->hasDate ||
            !listsSameArrays(*read, *step))
            return false;
    }
    return true;
}

/// A file that is removed again unless it gets its final name.
class TemporaryFile
{
public:
    /// The name keeps the extension, and so tells the form; its root is that of no case.
    explicit TemporaryFile(const std::string& path) : path_(path), file_(path)
    {
        file_.SetRootName(boost::filesystem::unique_path(file_.GetRootName() + "~%%%%%%%%").string());
    }

    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    ~TemporaryFile()
    {
        boost::system::error_code ignored;
        if (isOurs_)
            boost::filesystem::remove(file_.GetFullName(), ignored);
    }

    const Service::FileName& name() const { return file_; }

    template <class Write>
    bool write(Write&& content)
    {
        using enum Service::FileMode;
        Service::FileStream stream(file_.GetFullName(), Write | Create | Truncate);
        if (!stream.is_open())
            return false;
        isOurs_ = true;
        content(stream);
        stream.close();
        return stream.good();
    }

    bool rename()
    {
        boost::system::error_code error;
        boost::filesystem::rename(file_.GetFullName(), path_, error);
        isOurs_ = static_cast<bool>(error);
        return !error;
    }

private:
    std::string path_;
    Service::FileName file_;
    bool isOurs_ = false;
};

template <class Index, class WriteContent>
std::string writeFile(const std::string& path, bool formatted, const Index& index, const DataFileStamps& stamps,
                      WriteContent&& content)
{
    try {
        TemporaryFile file(path);
        const bool written = file.write([&](std::ostream& stream) {
            KeywordWriter writer(stream, formatted, path);
            content(writer);
        });
        if (written && readsBackEqual(file.name(), index) && stamps.areUpToDate() && file.rename())
            return path;
    } catch (const std::exception&) {
        // An index file is a convenience: a full disk or a name that can't be written costs the next reader a scan.
    }
    return {};
}

} // namespace

DataFileStamps::DataFileStamps(std::vector<std::string> files) : files_(std::move(files))
{
    stamps_.reserve(files_.size());
    for (const std::string& file : files_)
        stamps_.push_back(take(file));
}

DataFileStamps::Stamp DataFileStamps::take(const std::string& file)
{
    std::error_code lengthError;
    std::error_code timeError;
    Stamp stamp;
    stamp.length = std::filesystem::file_size(file, lengthError);
    stamp.time = std::filesystem::last_write_time(file, timeError);
    stamp.isThere = !lengthError && !timeError;
    return stamp;
}

bool DataFileStamps::areUpToDate() const
{
    for (std::size_t i = 0; i < files_.size(); ++i) {
        const Stamp now = take(files_[i]);
        if (!now.isThere || now != stamps_[i])
            return false;
    }
    return true;
}

std::string writeSpecFile(const std::string& path, bool formatted, const InitSpecData& index,
                          const DataFileStamps& stamps)
{
    return writeFile(path, formatted, index, stamps, [&](KeywordWriter& writer) { writeContent(writer, index); });
}

std::string writeSpecFile(const std::string& path, bool formatted, const RestartSpecData& index,
                          const DataFileStamps& stamps)
{
    return writeFile(path, formatted, index, stamps,
                     [&](KeywordWriter& writer) { writeContent(writer, index, formatted); });
}

} // namespace Kvt::Mrl::MrlIO

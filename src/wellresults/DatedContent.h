#pragma once

#include "core/Fail.h"
#include "wellresults/ArrayNames.h"
#include "wellresults/CacheSections.h"
#include "wellresults/KeywordScan.h"
#include "wellresults/NameSequence.h"
#include "wellresults/ValueCount.h"
#include "wellresults/WellUnits.h"

#include <mrlio/ValueType.h>
#include <mrlio/WellModelType.h>
#include <mrlio/service/EnumInfo.h>
#include <mrlio/service/Exception.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// \file
/// The content of the files whose reports begin with TIME and DATE and whose wells begin with WELLETC.
///
/// Family tells the kind of file:
///     Exception         what its failures throw
///     Categorizer       see ArrayNamesCollections
///     indexClass        "RFTContentIndex": begins the texts of its content index ...
///     addWellName       "RFTContentIndex::addWell"
///     scanName          "RFTContentIndex::extractContentIndex"
///     timeBeforeFirst   a report whose time doesn't lie above it is none
///     wellTypeElement   the element of a well's type in the cache

namespace Kvt::Mrl::MrlIO {

constexpr auto noWellModelType = static_cast<WellModelType::Enum>(4);

namespace ReportKeyword {
inline constexpr const char* TIME = "TIME";
inline constexpr const char* DATE = "DATE";
inline constexpr const char* NAMES = "NAMES";
inline constexpr const char* HMHEADI = "HMHEADI";
} // namespace ReportKeyword

/// A well as its first WELLETC describes it, and the arrays that it has at any date.
template <class Categorizer>
struct WellInfo
{
    WellModelType::Enum type = noWellModelType;
    std::string lgr; // empty for the global grid
    ArrayNamesCollections<Categorizer> arrayNames;
};

/// The date of a report. False, with `date` untouched, if there is no such day.
inline bool makeDate(int year, int month, int day, Service::YearMonthDay& date)
{
    try {
        date = Service::YearMonthDay(year, month, day);
        return true;
    } catch (const Service::Exception&) {
        return false;
    }
}

/// What such a file holds.
template <class TheFamily>
struct DatedContent
{
    using Family = TheFamily;
    using Well = WellInfo<typename Family::Categorizer>;

    // One per report, in file order: its date, its time in the time unit, and where its DATE keyword stands.
    std::vector<Service::YearMonthDay> dates;
    std::vector<float> times;
    std::vector<std::int64_t> offsets;

    std::map<std::string, std::shared_ptr<Well>> wells;
    ArrayNamesCollections<typename Family::Categorizer> arrayNames;
    ArrayTypes arrayTypes; // where a name is met first
    WellUnits units;

    void addReport(const Service::YearMonthDay& date, float time, std::int64_t offset)
    {
        dates.push_back(date);
        times.push_back(time);
        offsets.push_back(offset);
    }

    /// The well of that name. Type and local grid count only when it is new.
    /// throws   Family::Exception if it is new and of a type that doesn't exist
    const std::shared_ptr<Well>& addWell(const std::string& name, const std::string& type, const std::string& lgr)
    {
        const auto known = wells.find(name);
        if (known != wells.end())
            return known->second;
        auto well = std::make_shared<Well>();
        if (!Service::findEnum<WellModelType>(type, well->type))
            fail<typename Family::Exception>(Family::addWellName, ": unknown well type ", type);
        well->lgr = lgr;
        return wells.emplace(name, std::move(well)).first->second;
    }

    /// The value 8 for an unknown name.
    ValueType::Enum arrayValueType(const std::string& name) const { return arrayTypeOf(arrayTypes, name); }
};

/// The walk that fills the content. It reads the data of TIME, DATE and WELLETC and of nothing else.
template <class Family>
class DatedScan
{
public:
    using Content = DatedContent<Family>;

    /// The numbers of the keywords that the families look at; all others have higher ones.
    enum Keyword : std::uint32_t
    {
        TIME,
        DATE,
        WELLETC,
        NAMES,
        HMHEADI
    };

    DatedScan(Content& content, const Service::FileName& file, bool isFormatted)
        : content_(content),
          scan_(Family::scanName, file, isFormatted)
    {
        scan_.skimHeaders();
    }

    /// Goes to the next keyword that isn't TIME or DATE; WELLETC has set the current well then. False at the end.
    bool next()
    {
        while (scan_.next()) {
            keyword_ = scan_.number(keywords_);
            if (keyword_ == TIME) {
                meetTime();
            } else if (keyword_ != DATE) {
                if (keyword_ == WELLETC)
                    meetWell();
                return true;
            }
        }
        return false;
    }

    /// One of the enumerators above, or the number of another name.
    std::uint32_t keyword() const { return keyword_; }

    const std::string& name() const { return scan_.name(); }

    /// For the data of the keyword.
    KeywordScan<typename Family::Exception>& walk() { return scan_; }

    /// Adds the keyword to the arrays of the current well, if there is one.
    void listInWell()
    {
        if (well_ && well_->seen.add(keyword_))
            well_->info->arrayNames.addArrayName(name());
    }

    /// Adds the keyword to the arrays of the file.
    void listInFile()
    {
        if (seen_.add(keyword_) && content_.arrayTypes.try_emplace(name(), scan_.header().valueType()).second)
            content_.arrayNames.addArrayName(name());
    }

private:
    struct ScannedWell
    {
        std::shared_ptr<typename Content::Well> info;
        SeenNumbers seen;
    };

    /// Each further well of a report repeats its TIME, which adds nothing; so does a time that goes backwards.
    void meetTime()
    {
        const std::vector<float>& time = scan_.floats();
        requireValues<typename Family::Exception>(ReportKeyword::TIME, time.size(), 1);
        if (!(time.front() > lastTime_))
            return;
        lastTime_ = time.front();
        scan_.next();
        if (name() != ReportKeyword::DATE)
            fail<typename Family::Exception>(Family::scanName, ": TIME must be followed by DATE, not ", name());
        const std::vector<int>& date = scan_.integers();
        requireValues<typename Family::Exception>(ReportKeyword::DATE, date.size(), 3);
        Service::YearMonthDay day;
        if (!makeDate(date[2], date[1], date[0], day))
            scan_.failReading(ReportKeyword::DATE);
        content_.addReport(day, lastTime_, scan_.header().keywordLargePos());
    }

    void meetWell()
    {
        if (hasUnits_ && meetWellAgain())
            return;
        using E = typename Family::Exception;
        const std::vector<std::string>& wellEtc = scan_.strings();
        const std::string& name = wellEtcText<E>(wellEtc, WellEtc::wellName);
        const std::string& lgr = wellEtcText<E>(wellEtc, WellEtc::lgrName);
        const std::string& type = wellEtcText<E>(wellEtc, WellEtc::wellType);
        const auto& well = content_.addWell(name, type, lgr);
        const std::uint32_t number = wellNames_.number(name);
        if (number == wells_.size())
            wells_.push_back({well, {}});
        well_ = &wells_[number];
        if (!hasUnits_)
            content_.units = wellUnitsOf<E>(wellEtc);
        hasUnits_ = true;
    }

    /// Most blocks belong to a well that is known; nothing but its name counts then.
    bool meetWellAgain()
    {
        if (scan_.size() <= static_cast<std::int64_t>(WellEtc::wellType))
            return false; // too short
        const std::string& name = scan_.strings(WellEtc::wellName + 1)[WellEtc::wellName];
        const std::uint32_t number = wellNames_.find(name);
        if (number == NameSequence::none)
            return false;
        well_ = &wells_[number];
        return true;
    }

    Content& content_;
    KeywordScan<typename Family::Exception> scan_;
    float lastTime_ = Family::timeBeforeFirst;
    NameSequence keywords_{ReportKeyword::TIME, ReportKeyword::DATE, WellEtc::keyword, ReportKeyword::NAMES,
                           ReportKeyword::HMHEADI};
    std::uint32_t keyword_ = 0;
    SeenNumbers seen_;
    NameSequence wellNames_;
    std::vector<ScannedWell> wells_; // by number
    ScannedWell* well_ = nullptr;    // the current one; the next WELLETC sets it anew
    bool hasUnits_ = false;
};

} // namespace Kvt::Mrl::MrlIO

#include <mrlio/SummaryVectorIDParams.h>

#include <mrlio/SummaryVectorNameToType.h>

#include "service/Text.h"

#include <mrlio/service/Namespaces.h>

#include <array>
#include <string_view>

namespace Kvt::Mrl::MrlIO {

namespace {

using Params = SummaryVectorIDParams;

constexpr std::string_view absentName = ":+:+:+:+";

std::string nameOrEmpty(const std::string& text)
{
    std::string name = Service::StringTrim(text);
    if (name.starts_with(absentName))
        name.clear();
    return name;
}

int compareNumbers(int left, int right)
{
    return left < right ? -1 : (left > right ? 1 : 0);
}

int compareCells(const Params& left, const Params& right)
{
    if (const int difference = compareNumbers(left.getNumlx(), right.getNumlx()))
        return difference;
    if (const int difference = compareNumbers(left.getNumly(), right.getNumly()))
        return difference;
    return compareNumbers(left.getNumlz(), right.getNumlz());
}

constexpr int wellAndNumber = Params::eWgName | Params::eNum;
constexpr int localWell = Params::eWgName | Params::eLgrName;
constexpr int unknownKindMask = 15;

/// By the value of SummaryVectorType::Enum.
constexpr std::array requiredFields{
    Params::eNum,                           // AQUIFER
    Params::eWgName,                        // AQUIFER_LIST
    Params::eNum,                           // BLOCK
    wellAndNumber,                          // COMPLETION
    0,                                      // FIELD
    Params::eWgName,                        // GROUP
    Params::eNum,                           // INTER_REGION_FLOW
    Params::eLgrName | Params::eNumXYZ,     // LOCAL_GRID_BLOCK
    localWell | Params::eNumXYZ,            // LOCAL_GRID_COMPLETION
    localWell,                              // LOCAL_GRID_WELL
    Params::eWgName,                        // NETWORK_NODE
    Params::eNum | Params::eOptionalWgName, // REGION
    0,                                      // SIMULATOR_PERFORMANCE
    0,                                      // TIME
    Params::eWgName,                        // WELL
    wellAndNumber,                          // WELL_SEGMENT
    wellAndNumber,                          // REACH
    wellAndNumber,                          // BRANCH
    Params::eWgName,                        // RIVER
    0,                                      // EDGE
    Params::eWgName,                        // HEATER
};
static_assert(requiredFields.size() == 21);

} // namespace

SummaryVectorIDParams::SummaryVectorIDParams(const std::string& keyword, const std::string& wgname, int num,
                                             const std::string& lgrName, int numlx, int numly, int numlz)
    : keyword_(Service::StringTrim(keyword)),
      wgname_(nameOrEmpty(wgname)),
      lgrName_(nameOrEmpty(lgrName)),
      num_(num),
      numlx_(numlx),
      numly_(numly),
      numlz_(numlz)
{}

SummaryVectorIDParams SummaryVectorIDParams::createFromVectorName(const std::string& keyword)
{
    return {keyword, {}, -1, {}, -1, -1, -1};
}

SummaryVectorType::Enum SummaryVectorIDParams::vectorType() const
{
    if (type_.get() < 0)
        type_.set(SummaryVectorNameToType::getType(keyword_));
    return static_cast<SummaryVectorType::Enum>(type_.get());
}

int SummaryVectorIDParams::requiredFieldsFromType() const
{
    const auto kind = static_cast<std::size_t>(vectorType());
    return kind < requiredFields.size() ? requiredFields[kind] : unknownKindMask;
}

bool SummaryVectorIDParams::validWithType() const
{
    if (keyword_.empty())
        return false;
    if (static_cast<std::size_t>(vectorType()) >= requiredFields.size())
        return true;
    const int required = requiredFieldsFromType();
    if ((required & eWgName) && wgname_.empty())
        return false;
    if ((required & eLgrName) && lgrName_.empty())
        return false;
    if ((required & eNum) && num_ < 0)
        return false;
    return !(required & eNumXYZ) || (numlx_ >= 0 && numly_ >= 0 && numlz_ >= 0);
}

int SummaryVectorIDParams::compare(const SummaryVectorIDParams& other) const
{
    if (const int difference = keyword_.compare(other.keyword_))
        return difference;
    if (const int difference = compareNumbers(num_, other.num_))
        return difference;
    if (const int difference = compareCells(*this, other))
        return difference;
    if (const int difference = wgname_.compare(other.wgname_))
        return difference;
    return lgrName_.compare(other.lgrName_);
}

int SummaryVectorIDParams::compareWithType(const SummaryVectorIDParams& other) const
{
    if (const int difference = keyword_.compare(other.keyword_))
        return difference;
    if (const int difference = compareNumbers(vectorType(), other.vectorType()))
        return difference;
    const int fields = requiredFieldsFromType();
    const bool eitherNamed = !wgname_.empty() || !other.wgname_.empty();
    if ((fields & eWgName) || ((fields & eOptionalWgName) && eitherNamed)) {
        if (const int difference = wgname_.compare(other.wgname_))
            return difference;
    }
    if (fields & eLgrName) {
        if (const int difference = lgrName_.compare(other.lgrName_))
            return difference;
    }
    if (fields & eNum) {
        if (const int difference = compareNumbers(num_, other.num_))
            return difference;
    }
    return (fields & eNumXYZ) ? compareCells(*this, other) : 0;
}

std::string SummaryVectorIDParams::toDebugString() const
{
    std::string text = keyword_;
    for (const std::string& field : {wgname_, std::to_string(num_), lgrName_, std::to_string(numlx_),
                                     std::to_string(numly_), std::to_string(numlz_)})
        text.append("[").append(field).append("]");
    return text;
}

} // namespace Kvt::Mrl::MrlIO

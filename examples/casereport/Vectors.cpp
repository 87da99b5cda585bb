#include "Vectors.h"

namespace casereport {

using namespace Kvt::Mrl::MrlIO;

std::vector<SummaryVectorIDParams> vectorsOf(const ISummaryReader& reader, const std::string& keyword)
{
    std::vector<SummaryVectorIDParams> found;
    for (const SummaryVectorIDParams& vector : reader.allVectorIDs())
        if (vector.getVectorName() == keyword)
            found.push_back(vector);
    return found;
}

std::vector<SummaryVectorIDParams> vectorsNamed(const ISummaryReader& reader, const std::string& text)
{
    const std::size_t colon = text.find(':');
    std::vector<SummaryVectorIDParams> all = vectorsOf(reader, text.substr(0, colon)), found;
    if (colon == std::string::npos)
        return all;
    const std::string place = text.substr(colon + 1);
    for (const SummaryVectorIDParams& vector : all)
        if (vector.getWgname() == place || std::to_string(vector.getNum()) == place || placeOf(vector) == place)
            found.push_back(vector);
    return found;
}

namespace {

/// The number of a flow between regions holds both of them.
std::string regionPair(int number)
{
    constexpr int factor = 32768, offset = 10;
    const int first = number % factor, second = number / factor - offset;
    return second > 0 ? std::to_string(first) + " to " + std::to_string(second) : std::to_string(number);
}

} // namespace

std::string placeOf(const SummaryVectorIDParams& vector)
{
    if (vector.vectorType() == SummaryVectorType::INTER_REGION_FLOW && vector.getNum() >= 0)
        return regionPair(vector.getNum());
    const int fields = vector.requiredFieldsFromType();
    std::string place;
    const auto add = [&place](const std::string& text) { place += (place.empty() ? "" : " ") + text; };
    if ((fields & SummaryVectorIDParams::eLgrName) != 0 && !vector.getLgrName().empty())
        add(vector.getLgrName());
    if ((fields & SummaryVectorIDParams::eWgName) != 0 && !vector.getWgname().empty())
        add(vector.getWgname());
    if ((fields & SummaryVectorIDParams::eNum) != 0 && vector.getNum() >= 0)
        add(std::to_string(vector.getNum()));
    if ((fields & SummaryVectorIDParams::eNumXYZ) != 0 && vector.getNumlx() > 0)
        add(std::to_string(vector.getNumlx()) + "," + std::to_string(vector.getNumly()) + "," +
            std::to_string(vector.getNumlz()));
    return place;
}

std::string labelOf(const SummaryVectorIDParams& vector)
{
    const std::string place = placeOf(vector);
    return place.empty() ? vector.getVectorName() : vector.getVectorName() + ":" + place;
}

} // namespace casereport

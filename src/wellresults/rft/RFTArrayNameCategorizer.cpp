#include "wellresults/rft/RFTArrayNameCategorizer.h"

#include <string_view>

namespace Kvt::Mrl::MrlIO {

namespace {

enum class Match
{
    Whole,
    Prefix
};

struct CategoryRule
{
    Match match;
    std::string_view name;
    RFTArrayNameCategorizer::CategoryType category;

    bool fits(std::string_view tested) const
    {
        return match == Match::Whole ? tested == name : tested.starts_with(name);
    }
};

/// The first rule that fits counts; without one the array is basic.
constexpr CategoryRule categoryRules[] = {
    {Match::Whole, "WELLETC", RFTArrayNameCategorizer::Basic},
    {Match::Whole, "CONIPOS", RFTArrayNameCategorizer::Basic},
    {Match::Whole, "CONJPOS", RFTArrayNameCategorizer::Basic},
    {Match::Whole, "CONKPOS", RFTArrayNameCategorizer::Basic},
    {Match::Whole, "DEPTH", RFTArrayNameCategorizer::RFT},
    {Match::Whole, "PRESSURE", RFTArrayNameCategorizer::RFT},
    {Match::Whole, "SWAT", RFTArrayNameCategorizer::RFT},
    {Match::Whole, "SGAS", RFTArrayNameCategorizer::RFT},
    {Match::Whole, "SOIL", RFTArrayNameCategorizer::RFT},
    {Match::Whole, "TEMP", RFTArrayNameCategorizer::RFT},
    {Match::Prefix, "CON", RFTArrayNameCategorizer::PLT},
    {Match::Whole, "WELLPLT", RFTArrayNameCategorizer::PLT},
    {Match::Prefix, "SE", RFTArrayNameCategorizer::Segment},
    {Match::Prefix, "BR", RFTArrayNameCategorizer::Segment},
    {Match::Prefix, "REA", RFTArrayNameCategorizer::Segment},
};

} // namespace

RFTArrayNameCategorizer::CategoryType RFTArrayNameCategorizer::categoryPriv(const std::string& name)
{
    for (const CategoryRule& rule : categoryRules) {
        if (rule.fits(name))
            return rule.category;
    }
    return Basic;
}

} // namespace Kvt::Mrl::MrlIO

#include "wellresults/hmd/HMDArrayNameCategorizer.h"

#include "wellresults/hmd/HMDKeywords.h"

#include <string_view>

namespace Kvt::Mrl::MrlIO {

namespace {

struct CategoryRow
{
    std::string_view name;
    HMDArrayNameCategorizer::CategoryType category;
};

constexpr CategoryRow categoryRows[] = {
    {HMDKeyword::DERIVS, HMDArrayNameCategorizer::Gradient},   //
    {HMDKeyword::VALUES, HMDArrayNameCategorizer::Gradient},   //
    {HMDKeyword::GNAMES, HMDArrayNameCategorizer::Variable},   //
    {HMDKeyword::HMHEADI, HMDArrayNameCategorizer::Variable},  //
    {HMDKeyword::NAMES, HMDArrayNameCategorizer::Variable},    //
    {"MA10INFO", HMDArrayNameCategorizer::Preamble},           //
    {"MA10ORIG", HMDArrayNameCategorizer::Preamble},           //
    {"MA10VER", HMDArrayNameCategorizer::Preamble},            //
    {"MB30INFO", HMDArrayNameCategorizer::Preamble},           //
    {"MB30ORIG", HMDArrayNameCategorizer::Preamble},           //
    {"MB30VER", HMDArrayNameCategorizer::Preamble},            //
    {HMDKeyword::GRADGRUP, HMDArrayNameCategorizer::Preamble}, //
    {"GRADRESV", HMDArrayNameCategorizer::Preamble},           //
    {HMDKeyword::GRADWELL, HMDArrayNameCategorizer::Preamble}, //
};

} // namespace

HMDArrayNameCategorizer::CategoryType HMDArrayNameCategorizer::categoryPriv(const std::string& name)
{
    for (const CategoryRow& row : categoryRows) {
        if (row.name == name)
            return row.category;
    }
    return Unlisted;
}

int HMDArrayNameCategorizer::modifyParameterIdPriv(const std::string& name, int id)
{
    return name == HMDKeyword::VALUES || categoryPriv(name) == Preamble ? -1 : id;
}

int HMDArrayNameCategorizer::modifyWellGroupIdPriv(const std::string& name, int id)
{
    return name == HMDKeyword::HMHEADI || categoryPriv(name) == Preamble ? -1 : id;
}

} // namespace Kvt::Mrl::MrlIO

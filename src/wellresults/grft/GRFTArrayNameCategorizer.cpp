#include "wellresults/grft/GRFTArrayNameCategorizer.h"

#include <string_view>

namespace Kvt::Mrl::MrlIO {

namespace {

using Categorizer = GRFTArrayNameCategorizer;

struct ArrayRow
{
    std::string_view name;
    Categorizer::CategoryType category;
    Categorizer::SubjectType subject;
};

constexpr ArrayRow arrayRows[] = {
    {"HMHEADI", Categorizer::BasicData, Categorizer::Parameter},         //
    {"WELLETC", Categorizer::BasicData, Categorizer::Well},              //
    {"CONIPOS", Categorizer::BasicData, Categorizer::Well},              //
    {"CONJPOS", Categorizer::BasicData, Categorizer::Well},              //
    {"CONKPOS", Categorizer::BasicData, Categorizer::Well},              //
    {"HOSTGRID", Categorizer::BasicData, Categorizer::Well},             //
    {"NAMES", Categorizer::BasicData, Categorizer::ParameterAndWell},    //
    {"PRESSURE", Categorizer::Gradients, Categorizer::ParameterAndWell}, //
    {"SWAT", Categorizer::Gradients, Categorizer::ParameterAndWell},     //
    {"SGAS", Categorizer::Gradients, Categorizer::ParameterAndWell},     //
    {"SOIL", Categorizer::Gradients, Categorizer::ParameterAndWell},     //
};

constexpr ArrayRow allOthers{"", Categorizer::BasicData, Categorizer::Neither};

const ArrayRow& rowOf(const std::string& name)
{
    for (const ArrayRow& row : arrayRows) {
        if (row.name == name)
            return row;
    }
    return allOthers;
}

} // namespace

GRFTArrayNameCategorizer::CategoryType GRFTArrayNameCategorizer::categoryPriv(const std::string& name)
{
    return rowOf(name).category;
}

GRFTArrayNameCategorizer::SubjectType GRFTArrayNameCategorizer::subjectPriv(const std::string& name)
{
    return rowOf(name).subject;
}

} // namespace Kvt::Mrl::MrlIO

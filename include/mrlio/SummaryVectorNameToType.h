#pragma once

#include <mrlio/Export.h>
#include <mrlio/SummaryVectorType.h>

#include <string>

namespace Kvt::Mrl::MrlIO {

/// Tells from the spelling of a summary keyword what kind of thing its vector is about: a well, a group, a block, ...
/// Stateless; any thread may use it.
class MRLIO_EXPORT SummaryVectorNameToType
{
public:
    /// The kind of the vectors of that keyword. The spelling counts as it is: letter case and blanks matter.
    /// Gives the value 21, which has no label, for an empty keyword and for one that fits no rule.
    static SummaryVectorType::Enum getType(const std::string& keyword);
};

} // namespace Kvt::Mrl::MrlIO

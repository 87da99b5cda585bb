#pragma once

#include <mrlio/Export.h>
#include <mrlio/KeywordTmpl.h>

#include <string>
#include <type_traits>

namespace Kvt::Mrl::MrlIO {

/// The record class of a value type: KeywordINTE, KeywordCHAR, or the plain KeywordTmpl.
template <ValueType::Enum type>
using KeywordOfType = std::conditional_t<type == ValueType::INTE, KeywordINTE,
                                         std::conditional_t<type == ValueType::CHAR, KeywordCHAR, KeywordTmpl<type>>>;

/// A record of a keyword whose name, type and size are fixed by a traits type, which any program may write:
///
///     struct EGridMAPUNITS_traits
///     {
///         static constexpr const char* name = "MAPUNITS";
///         static constexpr int size = 1; // -1 where the number of elements is free
///         static constexpr ValueType::Enum type = ValueType::CHAR;
///     };
///
/// The three static operations tell of the keyword as such; no constructor puts them into the header.
template <class Traits>
class MRLIO_EXPORT ConcreteKeyword : public KeywordOfType<Traits::type>
{
    using Base = KeywordOfType<Traits::type>;

public:
    using typename Base::ElementType;

    ConcreteKeyword() = default;

    explicit ConcreteKeyword(const std::string& name) : Base(name) {}

    ConcreteKeyword(const std::string& name, const std::vector<ElementType>& values) : Base(name, values) {}

    explicit ConcreteKeyword(const KeywordHeader& header) : Base(header) {}

    static const std::string& getKeywordName()
    {
        static const std::string name = Traits::name;
        return name;
    }

    /// The number of elements that the keyword has to have, -1 if any will do.
    static int getKeywordArraySize() { return Traits::size; }

    static ValueType::Enum getKeywordValueType() { return Traits::type; }
};

} // namespace Kvt::Mrl::MrlIO

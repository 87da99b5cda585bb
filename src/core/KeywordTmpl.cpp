#include <mrlio/KeywordTmpl.h>

namespace Kvt::Mrl::MrlIO {

template class KeywordTmpl<ValueType::DOUB>;
template class KeywordTmpl<ValueType::REAL>;
template class KeywordTmpl<ValueType::INTE>;
template class KeywordTmpl<ValueType::LOGI>;
template class KeywordTmpl<ValueType::CHAR>;
template class KeywordTmpl<ValueType::MESS>;
template class KeywordTmpl<ValueType::C0nn>;

int KeywordINTE::getShift() const
{
    return 0;
}

std::string KeywordCHAR::getConcatenatedName() const
{
    std::string name;
    for (const std::string& piece : array())
        name += piece;
    return name;
}

} // namespace Kvt::Mrl::MrlIO

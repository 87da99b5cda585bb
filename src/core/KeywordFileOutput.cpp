#include "core/KeywordFileOutput.h"

namespace Kvt::Mrl::MrlIO {

bool KeywordFileOutput::open(const std::string& name, bool append)
{
    using Service::FileMode;
    name_ = name;
    stream_.open(name, FileMode::Write | FileMode::Create | (append ? FileMode::AtEnd : FileMode::Truncate));
    return stream_.good();
}

bool KeywordFileOutput::close()
{
    stream_.close();
    return !stream_.fail();
}

bool KeywordFileOutput::writeStrings(KeywordTmpl<6>& keyword)
{
    if (keyword.valueType() != ValueType::C0nn)
        return write(keyword);
    const int longest = longestString(keyword);
    ValueTypeInfo info = keyword.valueTypeInfo();
    if (info.intData() < 1) {
        info.intData(longest);
        keyword.valueTypeInfo(info);
    }
    KeywordEncoder encoder(stream_, formatted_);
    // Readers pass the header with the type text C0-1 that this gives, since it promises no elements.
    const bool emptyWithoutWidth = longest < 0 && info.intData() < 1;
    if (emptyWithoutWidth && !formatted_)
        return encoder.writeHeader(keyword, 0);
    return encoder.write(keyword, {.declared = info.intData(), .laidOut = longest});
}

} // namespace Kvt::Mrl::MrlIO

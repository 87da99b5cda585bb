#include <mrlio/KeywordHeader.h>

namespace Kvt::Mrl::MrlIO {

namespace {

constexpr std::int64_t largeStep = KeywordHeader::twoPower31;

/// multiplier x 2147483648 + remainder. Numbers that a file made up wrap around instead of overflowing.
std::int64_t combine(std::int64_t multiplier, std::int64_t remainder)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(multiplier) * KeywordHeader::twoPower31 +
                                     static_cast<std::uint64_t>(remainder));
}

} // namespace

KeywordHeader::KeywordHeader(const std::string& name, std::int64_t size, ValueType::Enum type, std::int64_t position)
    : KeywordHeader(name, size, ValueTypeInfo(type, -1), position)
{}

KeywordHeader::KeywordHeader(const std::string& name, std::int64_t size, ValueType::Enum type, std::streampos position)
    : KeywordHeader(name, size, ValueTypeInfo(type, -1), position)
{}

KeywordHeader::KeywordHeader(const std::string& name, std::int64_t size, const ValueTypeInfo& info,
                             std::int64_t position)
    : KeywordHeader(name, size, info, std::streampos(position))
{}

KeywordHeader::KeywordHeader(const std::string& name, std::int64_t size, const ValueTypeInfo& info,
                             std::streampos position)
    : name_(name),
      size_(size),
      info_(info),
      position_(position),
      secondPosition_(position)
{}

KeywordHeader::~KeywordHeader() = default;

void KeywordHeader::keywordPos(const std::streampos& position)
{
    position_ = position;
    secondPosition_ = position;
}

void KeywordHeader::keywordLargePos(const std::int64_t& position)
{
    setLargePos(position, position_);
    secondPosition_ = position_;
}

void KeywordHeader::second_keywordLargePos(const std::int64_t& position)
{
    setLargePos(position, secondPosition_);
}

std::int64_t KeywordHeader::getLargePos(const std::int64_t& remainder, const std::int64_t& multiplier)
{
    return combine(multiplier, remainder);
}

int KeywordHeader::getMultiplierPos(const std::int64_t& position)
{
    return static_cast<int>(position / largeStep);
}

int KeywordHeader::getRemainderPos(const std::int64_t& position)
{
    return static_cast<int>(position % largeStep);
}

void KeywordHeader::update_header_size(std::int64_t remainder)
{
    size_ = combine(size_, remainder);
}

void KeywordHeader::split_header(KeywordHeader& first, KeywordHeader& second, std::uint64_t count) const
{
    const KeywordHeader whole(*this); // first or second may be this header
    first = whole;
    first.size_ = static_cast<std::int64_t>(count / twoPower31);
    first.valueType(ValueType::X231);
    second = whole;
    second.size_ = static_cast<std::int64_t>(count % twoPower31);
}

void KeywordHeader::setLargePos(const std::int64_t& offset, std::streampos& position)
{
    position = std::streampos(offset);
}

} // namespace Kvt::Mrl::MrlIO

#include "wellresults/NameSequence.h"

namespace Kvt::Mrl::MrlIO {

NameSequence::NameSequence(std::initializer_list<const char*> first)
{
    for (const char* name : first)
        number(name);
}

std::uint32_t NameSequence::lookUp(const std::string& name)
{
    const auto [place, isNew] = numbers_.try_emplace(name, size());
    if (isNew) {
        names_.push_back(name);
        follower_.push_back(none);
    }
    follower_[last_] = place->second;
    return last_ = place->second;
}

} // namespace Kvt::Mrl::MrlIO

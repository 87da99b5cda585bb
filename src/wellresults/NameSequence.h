#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// Numbers names from 0 on, in the order in which they are first met. The names of a file come in nearly the same order
/// in block after block, so the one that followed last time is tried first: mostly a lookup is one comparison.
class NameSequence
{
public:
    static constexpr std::uint32_t none = 0xFFFFFFFF;

    /// first   get the numbers from 0 on, so that an enumeration can stand for them
    NameSequence(std::initializer_list<const char*> first = {});

    std::uint32_t number(const std::string& name) { return follows(name) ? last_ = follower_[last_] : lookUp(name); }

    /// The number of a name that has been met; none for any other.
    std::uint32_t find(const std::string& name)
    {
        return follows(name) || numbers_.contains(name) ? number(name) : none;
    }

    std::uint32_t size() const { return static_cast<std::uint32_t>(names_.size()); }

private:
    /// Whether it is the name that followed last time.
    bool follows(const std::string& name) const
    {
        const std::uint32_t expected = follower_.empty() ? none : follower_[last_];
        return expected != none && names_[expected] == name;
    }

    std::uint32_t lookUp(const std::string& name);

    std::vector<std::string> names_;
    std::vector<std::uint32_t> follower_; // by number, what came behind that name the last time
    std::unordered_map<std::string, std::uint32_t> numbers_;
    std::uint32_t last_ = 0;
};

/// Which numbers of a NameSequence have been seen. There is one for each well and parameter, so it mustn't grow with the
/// names of the file: it has a place for each of the first ones, and holds of the others those that were seen.
class SeenNumbers
{
public:
    /// True the first time.
    bool add(std::uint32_t number)
    {
        if (number >= firstOnes)
            return others_.insert(number).second;
        if (number < seen_.size() && seen_[number] != 0)
            return false;
        if (number >= seen_.size())
            seen_.resize(number + 1);
        seen_[number] = 1;
        return true;
    }

private:
    static constexpr std::uint32_t firstOnes = 256; // more than usual files have

    std::vector<char> seen_; // nothing is faster to ask
    std::unordered_set<std::uint32_t> others_;
};

} // namespace Kvt::Mrl::MrlIO

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// A list of texts of which each different one is held once: a hundred thousand vectors have a dozen units.
class InternedTexts
{
public:
    /// Holds the texts of a list while it is filled.
    class Filler
    {
    public:
        Filler(InternedTexts& list, std::size_t count) : list_(list) { list_.which_.reserve(count); }

        void append(const std::string& text)
        {
            const auto [known, isNew] = known_.try_emplace(text, static_cast<std::uint32_t>(list_.texts_.size()));
            if (isNew)
                list_.texts_.push_back(text);
            list_.which_.push_back(known->second);
        }

    private:
        InternedTexts& list_;
        std::unordered_map<std::string, std::uint32_t> known_;
    };

    bool empty() const { return which_.empty(); }

    const std::string& operator[](std::size_t place) const { return texts_[which_[place]]; }

private:
    std::vector<std::string> texts_;
    std::vector<std::uint32_t> which_;
};

} // namespace Kvt::Mrl::MrlIO

#pragma once

#include "support/Fuzzing.h"

#include <mrlio/GRFTParameter.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/YearMonthDay.h>

#include <bit>
#include <boost/lexical_cast/bad_lexical_cast.hpp>
#include <concepts>
#include <cstdint>
#include <exception>
#include <functional>
#include <iterator>
#include <ranges>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

namespace MrlIOFuzz {

/// What a reader answers to question after question, failures included, to be compared with the answers of another. An
/// answer is kept as one number.
class Answers
{
public:
    /// Asks a question, which adds what it finds. Failures that hostile content may cause are answers too.
    template <class Question>
    void ask(Question question)
    {
        answers_.push_back(start);
        hasFailed_ = false;
        try {
            question();
        } catch (const Kvt::Mrl::Core::Service::Exception& failure) {
            addFailure(failure);
        } catch (const boost::bad_lexical_cast& failure) {
            addFailure(failure);
        } catch (const std::exception& other) {
            if (typeid(other) != typeid(std::invalid_argument))
                throw;
            addFailure(other);
        }
    }

    /// Whether the last question has failed.
    bool hasFailed() const { return hasFailed_; }

    void add(std::integral auto number) { mix(static_cast<std::uint64_t>(number)); }

    void add(float number) { mix(std::bit_cast<std::uint32_t>(number)); }

    void add(double number) { mix(std::bit_cast<std::uint64_t>(number)); }

    void add(const std::string& text) { mix(std::hash<std::string>()(text)); }

    void add(const Kvt::Mrl::Core::Service::YearMonthDay& date)
    {
        add(date.Year());
        add(date.Month());
        add(date.Day());
    }

    void add(const Kvt::Mrl::MrlIO::GRFTParameter& parameter)
    {
        add(parameter.name);
        add(parameter.type);
        add(parameter.domain);
        add(parameter.domain2);
    }

    template <std::ranges::range Values>

    requires(!std::same_as<Values, std::string>) void add(const Values& values)
    {
        add(std::ranges::distance(values));
        for (const auto& value : values)
            add(value);
    }

    bool operator==(const Answers&) const = default;

private:
    static constexpr std::uint64_t start = 0xCBF29CE484222325;

    void addFailure(const std::exception& failure)
    {
        hasFailed_ = true;
        add(std::string(failure.what()));
    }

    void mix(std::uint64_t number)
    {
        constexpr std::uint64_t spread = 0x100000001B3;
        answers_.back() = std::rotl(answers_.back() ^ number, 23) * spread;
    }

    std::vector<std::uint64_t> answers_;
    bool hasFailed_ = false;
};

/// The first elements, since any file can hold thousands.
template <class Values>
std::vector<std::ranges::range_value_t<Values>> someOf(const Values& values, std::ptrdiff_t most)
{
    return {values.begin(), std::ranges::next(values.begin(), most, values.end())};
}

} // namespace MrlIOFuzz

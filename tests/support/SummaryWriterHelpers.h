#pragma once

#include <mrlio/ISummaryVectorArray.h>
#include <mrlio/MorvaneReaderUtils.h>
#include <mrlio/SummaryWriter.h>

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace MrlIOTest {
using namespace Kvt::Mrl::MrlIO;

struct Vector
{
    std::string keyword;
    std::string name{};
    int num = 0;
    std::string units{};
    std::string measurement{};
    int x = 0, y = 0, z = 0;
};

/// Describes a list of vectors; what is left out on purpose is set by the members.
class VectorSpec : public ISummaryVectorArraySpec, private ISummaryVectorPositions
{
public:
    VectorSpec(std::initializer_list<Vector> vectors) : vectors_(vectors) {}

    int size() const override { return static_cast<int>(vectors_.size()); }

    std::string keyword(int i) const override { return at(i).keyword; }

    std::string name(int i) const override { return at(i).name; }

    int num(int i) const override { return at(i).num; }

    std::string units(int i) const override { return at(i).units; }

    bool hasMeasurements() const override { return measured; }

    std::string measurement(int i) const override { return at(i).measurement; }

    const ISummaryVectorPositions* positions() const override { return placed ? this : nullptr; }

    bool measured = false;
    bool placed = true;

private:
    int x(int i) const override { return at(i).x; }

    int y(int i) const override { return at(i).y; }

    int z(int i) const override { return at(i).z; }

    const Vector& at(int i) const { return vectors_[static_cast<std::size_t>(i)]; }

    std::vector<Vector> vectors_;
};

class Values : public ISummaryVectorArray
{
public:
    Values(std::initializer_list<float> values) : values_(values) {}

    int size() const override { return static_cast<int>(values_.size()); }

    float value(int i) const override { return values_[static_cast<std::size_t>(i)]; }

private:
    std::vector<float> values_;
};

template <class T>
std::string valuesText(MorvaneReader& reader, const KeywordHeader& header)
{
    std::vector<T> values;
    reader.readDataVector(header, values);
    std::ostringstream text;
    for (const T& value : values)
        if constexpr (std::is_same_v<T, std::string>)
            text << " [" << value << "]";
        else
            text << " " << value;
    return text.str();
}

/// A keyword as one line: name, then the values, strings in brackets.
inline std::string keywordLine(MorvaneReader& reader, const KeywordHeader& header)
{
    switch (header.valueType()) {
    case ValueType::INTE:
        return header.name() + valuesText<int>(reader, header);
    case ValueType::REAL:
        return header.name() + valuesText<float>(reader, header);
    case ValueType::DOUB:
        return header.name() + valuesText<double>(reader, header);
    default:
        return header.name() + valuesText<std::string>(reader, header);
    }
}

/// All keywords of a file.
inline std::vector<std::string> keywordLines(const std::string& path, bool formatted = false)
{
    std::vector<std::string> lines;
    const auto reader = MorvaneReaderUtils::createReader(path, formatted);
    if (reader == nullptr)
        return {"no file"};
    for (KeywordHeader header; reader->readNextKeywordHeader(header);)
        lines.push_back(keywordLine(*reader, header));
    return lines;
}

/// One keyword of a file; empty if it isn't there.
inline std::string keywordLine(const std::string& path, const std::string& name, bool formatted = false)
{
    for (const std::string& line : keywordLines(path, formatted))
        if (line.compare(0, name.size() + 1, name + " ") == 0 || line == name)
            return line;
    return {};
}

/// The text of the exception, which must be an Error.
template <class Error>
std::string refusal(const std::function<void()>& action)
{
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    } catch (const std::exception& error) {
        return std::string("another kind of exception: ") + error.what();
    }
    return "nothing thrown";
}

inline const auto invalid = refusal<std::invalid_argument>;
inline const auto runtime = refusal<std::runtime_error>;
} // namespace MrlIOTest

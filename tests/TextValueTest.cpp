#include "core/TextArray.h"
#include "service/TextFileReader.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <string>
#include <vector>

using namespace Kvt::Mrl::MrlIO;

namespace {

/// Number texts that tell one parser from another, glued and cut at random.
class NumberTexts
{
public:
    explicit NumberTexts(unsigned seed) : random_(seed) {}

    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

    std::string digits(int most)
    {
        std::string text;
        for (int i = below(most + 1); i > 0; --i)
            text += static_cast<char>('0' + below(10));
        return text;
    }

    std::string decimal()
    {
        const char* signs[] = {"", "", "-", "+"};
        const char* letters[] = {"E", "e", "D", "d", ""};
        const int most = below(4) == 0 ? 40 : 12;
        std::string text = signs[below(4)] + digits(most);
        if (below(4) != 0)
            text += "." + digits(most);
        if (below(3) != 0)
            text += letters[below(5)] + std::string(signs[below(4)]) + digits(below(8) == 0 ? 25 : 3);
        return text;
    }

    std::string token()
    {
        static const std::vector<std::string> odd = [] {
            std::istringstream list(
                "inf -INF nan NaN(12) 0x1p3 0xD -0 . - +-1 1e 1e+ 2147483647 -2147483648 2147483648 "
                "T F TF 1e308 1.8e308 4.9e-324 1e-330 -1E-400 1D5D e5 1..2 1e5.5 3.4028235E38 "
                "3.4028236E38 9007199254740993 1e22 1e23 3.4028235677973366e38");
            std::vector<std::string> tokens{std::string("1\0002", 3)};
            for (std::string token; list >> token;)
                tokens.push_back(token);
            return tokens;
        }();
        if (below(3) == 0)
            return odd[static_cast<std::size_t>(below(static_cast<int>(odd.size())))];
        if (below(3) == 0)
            return (below(2) ? "-" : "") + digits(below(5) == 0 ? 30 : 11);
        return decimal();
    }

    std::string line()
    {
        static const char* gaps[] = {" ", " ", "  ", "\n", "\r\n", "\t", "            ", "\v\f", ""};
        std::string text;
        for (int i = 1 + below(4); i > 0; --i)
            text += token() + gaps[below(9)];
        return text;
    }

private:
    std::mt19937 random_;
};

template <class T>
struct Extracted
{
    T value{};
    bool valid = false, end = false;
};

template <class T>
Extracted<T> fromStream(std::istream& in, T)
{
    Extracted<T> got;
    got.valid = static_cast<bool>(in >> got.value);
    got.end = in.eof();
    return got;
}

Extracted<float> fromStream(std::istream& in, float)
{
    const Extracted<double> wide = fromStream(in, double());
    const double largest = std::numeric_limits<float>::max();
    const bool beyond = std::fabs(wide.value) > largest;
    const float nearest = std::strtof(std::to_string(wide.value).c_str(), nullptr);
    return {beyond ? nearest : static_cast<float>(wide.value), wide.valid, wide.end};
}

Extracted<double> doubleFromToken(std::istream& in)
{
    const Extracted<std::string> token = fromStream(in, std::string());
    std::string text = token.value;
    const std::size_t letter = text.find_last_of("Dd");
    if (letter != std::string::npos)
        text[letter] = 'e';
    char* stop = nullptr;
    const double value = std::strtod(text.c_str(), &stop);
    return {value, token.valid && stop == text.c_str() + text.size(), token.end};
}

template <class T>
std::string bytesOf(T value)
{
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    return std::isnan(static_cast<double>(value)) ? "nan" : bytes;
}

template <class Kind, class Reference>
void compare(const std::string& path, const std::string& text, Reference reference)
{
    Service::TextFileReader file(path);
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    for (int i = 0; file.good(); ++i) {
        typename Kind::Value value{};
        const bool valid = Kind::read(file, value);
        const auto expected = reference(stream);
        ASSERT_EQ(valid, expected.valid) << "value " << i << " of " << text;
        ASSERT_EQ(file.eof(), expected.end) << "value " << i << " of " << text;
        if (valid) {
            ASSERT_EQ(bytesOf(value), bytesOf(expected.value)) << "value " << i << " of " << text;
            ASSERT_EQ(file.tellg(),
                      file.eof() ? static_cast<std::int64_t>(text.size()) : static_cast<std::int64_t>(stream.tellg()));
        }
    }
}

void compareSkipping(const std::string& path, const std::string& text)
{
    Service::TextFileReader file(path);
    for (int count = 0; count < 6; ++count) {
        file.clear();
        file.seekg(0);
        file.skipTokens(count);
        std::istringstream stream(text);
        std::string token;
        for (int i = 0; i < count; ++i)
            stream >> token;
        ASSERT_EQ(file.good(), stream.good()) << count << " of " << text;
        ASSERT_EQ(file.good() ? file.tellg() : -1, static_cast<std::int64_t>(stream.tellg()))
            << count << " of " << text;
    }
}

} // namespace

TEST(TextValueTest, numbersAreWhatStreamExtractionGives)
{
    const MrlIOTest::TempDir dir;
    const std::string path = dir.file("numbers");
    NumberTexts texts(20260515);
    for (int round = 0; round < 4000; ++round) {
        // The blanks put the end of the first window, of 8 KiB, into the line.
        const std::string line = texts.line();
        const int blanks = round % 2 == 0 ? 0 : 8192 - texts.below(static_cast<int>(line.size()) + 2);
        const std::string text = std::string(static_cast<std::size_t>(blanks), ' ') + line;
        std::remove(path.c_str());
        MrlIOTest::writeBytes(path, text);
        compare<IntegerText>(path, text, [](std::istream& in) { return fromStream(in, int()); });
        compare<RealText>(path, text, [](std::istream& in) { return fromStream(in, float()); });
        compare<DoubleText>(path, text, doubleFromToken);
        compareSkipping(path, text);
        if (testing::Test::HasFatalFailure())
            return;
    }
}

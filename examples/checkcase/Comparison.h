#pragma once

#include <cstddef>
#include <string>

namespace checkcase {

/// Compares numbers that came through different files, counts, and tells on the standard output where they differ.
class Comparison
{
public:
    /// tolerance   how far they may be apart, as a part of the larger one
    /// rounding    how far they may be apart beyond that
    void expectSame(const std::string& what, double first, double second, double tolerance, double rounding = 0.0);

    /// For what one file has and the other lacks.
    void expect(const std::string& what, bool isTrue);

    std::size_t compared() const { return compared_; }

    std::size_t different() const { return different_; }

private:
    std::size_t compared_ = 0, different_ = 0;
};

} // namespace checkcase

#pragma once

#include <span>

namespace Kvt::Mrl::MrlIO {

/// Lowers `low` and raises `high` to the smallest and largest of the values. NaNs among the values are passed over, one
/// in `low` or `high` stays.
void foldExtrema(std::span<const int> values, int& low, int& high);
void foldExtrema(std::span<const float> values, float& low, float& high);
void foldExtrema(std::span<const double> values, double& low, double& high);

/// Smallest and largest of a run of numbers that comes in pieces, as index files state them: the first value is both,
/// and a later one counts where it is smaller or larger. So a NaN counts in the first place alone, where it stays.
/// Both are 0 without numbers.
class Extrema
{
public:
    double min() const { return min_; }

    double max() const { return max_; }

    /// One more piece; all pieces of a run are of one type.
    template <class T>
    void add(std::span<const T> values)
    {
        if (values.empty())
            return;
        T low = any_ ? static_cast<T>(min_) : values.front();
        T high = any_ ? static_cast<T>(max_) : values.front();
        foldExtrema(values, low, high);
        any_ = true;
        min_ = low;
        max_ = high;
    }

private:
    bool any_ = false;
    double min_ = 0.0;
    double max_ = 0.0;
};

} // namespace Kvt::Mrl::MrlIO

#pragma once

#include <mrlio/Export.h>
#include <mrlio/SummaryVectorType.h>

#include <atomic>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// The identity of one summary vector: its keyword and, depending on what the keyword is about, a well or group name, a
/// number, a local grid name and a cell of the local grid. A value; copies are independent. Several threads may read
/// one object.
class MRLIO_EXPORT SummaryVectorIDParams
{
public:
    /// Bits of a mask of required fields, see requiredFieldsFromType().
    static constexpr int eWgName = 1;
    static constexpr int eNum = 2;
    static constexpr int eLgrName = 4;
    static constexpr int eNumXYZ = 8;
    /// The well or group name may be given and then takes part in compareWithType().
    static constexpr int eOptionalWgName = 16;

    /// Empty texts; all numbers -1, which means none.
    SummaryVectorIDParams() = default;

    /// The keyword is trimmed. wgname and lgrName are trimmed, and the text ":+:+:+:+", which stands in files for an
    /// absent name, becomes empty. -1 means that there is no such number.
    SummaryVectorIDParams(const std::string& keyword, const std::string& wgname, int num, const std::string& lgrName,
                          int numlx, int numly, int numlz);

    /// The identity of a vector that needs no more than its keyword, which is trimmed.
    static SummaryVectorIDParams createFromVectorName(const std::string& keyword);

    const std::string& getVectorName() const { return keyword_; }

    /// Well, group, aquifer list or node name; empty when none.
    const std::string& getWgname() const { return wgname_; }

    /// Name of the local grid; empty when none.
    const std::string& getLgrName() const { return lgrName_; }

    /// Number of the cell, region, segment, ...; -1 when none.
    int getNum() const { return num_; }

    /// Cell in the local grid, each direction counted from 1; -1 when none.
    int getNumlx() const { return numlx_; }

    int getNumly() const { return numly_; }

    int getNumlz() const { return numlz_; }

    /// The kind that SummaryVectorNameToType gives for the keyword. Derived at the first call and then kept.
    SummaryVectorType::Enum vectorType() const;

    /// The fields that an identity of this kind needs, as a mask of the constants above.
    int requiredFieldsFromType() const;

    /// Whether all required fields are given. An empty keyword is invalid; a keyword of unknown kind is valid.
    bool validWithType() const;

    /// The total order of all look-ups: by keyword, number, cell, well or group name, local grid name. Negative, 0 or
    /// positive.
    int compare(const SummaryVectorIDParams& other) const;

    /// The order that looks only at the fields which the kind needs, so that two field vectors of one keyword are equal
    /// whatever their numbers. Negative, 0 or positive.
    int compareWithType(const SummaryVectorIDParams& other) const;

    /// All fields in one line, for logs: WOPR[P1][-1][][-1][-1][-1].
    std::string toDebugString() const;

    bool operator==(const SummaryVectorIDParams& other) const { return compare(other) == 0; }

    bool operator!=(const SummaryVectorIDParams& other) const { return compare(other) != 0; }

    bool operator<(const SummaryVectorIDParams& other) const { return compare(other) < 0; }

    bool operator>(const SummaryVectorIDParams& other) const { return compare(other) > 0; }

private:
    /// A kind that const operations may fill in on several threads: they all store the same value.
    class DerivedOnce
    {
    public:
        DerivedOnce() = default;

        DerivedOnce(const DerivedOnce& other) noexcept : value_(other.get()) {}

        DerivedOnce& operator=(const DerivedOnce& other) noexcept
        {
            set(other.get());
            return *this;
        }

        int get() const noexcept { return value_.load(std::memory_order_relaxed); }

        void set(int value) noexcept { value_.store(value, std::memory_order_relaxed); }

    private:
        std::atomic<int> value_{-1};
    };

    std::string keyword_;
    std::string wgname_;
    std::string lgrName_;
    int num_ = -1;
    mutable DerivedOnce type_;
    int numlx_ = -1;
    int numly_ = -1;
    int numlz_ = -1;
};

} // namespace Kvt::Mrl::MrlIO

#pragma once

#include "wellresults/DatedContent.h"
#include "wellresults/KeywordScan.h"
#include "wellresults/StoredArray.h"
#include "wellresults/ValueCount.h"
#include "wellresults/WellUnits.h"

#include <mrlio/service/Namespaces.h>

#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace Kvt::Mrl::MrlIO {

/// The walk over the blocks of one report. WELLETC opens a block; TIME and DATE close it.
template <class E>
class ReportWalk
{
public:
    /// scan       stands at the DATE of the report, and has to outlive the walk
    /// lastTime   a TIME above it begins the next report
    ReportWalk(KeywordScan<E>& scan, float lastTime) : scan_(scan), lastTime_(lastTime) {}

    /// Goes to the next keyword other than TIME and DATE. False at the end of the report.
    bool next()
    {
        array_ = {};
        while (scan_.next()) {
            if (name() == ReportKeyword::TIME) {
                setOpen(false);
                const auto& time = scan_.floats();
                requireValues<E>(name(), time.size(), 1);
                if (time.front() > lastTime_)
                    return false;
            } else if (name() == ReportKeyword::DATE) {
                setOpen(false);
            } else {
                if (name() == WellEtc::keyword)
                    setOpen(true);
                return true;
            }
        }
        return false;
    }

    const std::string& name() const { return scan_.name(); }

    KeywordScan<E>& scan() { return scan_; }

    /// The data of the keyword. What is read here isn't read again for array().
    const std::vector<int>& integers() { return keep(scan_.integers()); }

    const std::vector<std::string>& strings() { return keep(scan_.strings()); }

    /// The name in a WELLETC.
    const std::string& wellName() { return wellEtcText<E>(strings(), WellEtc::wellName); }

    /// The data of the keyword, whatever they are; to be asked for once.
    /// where   begins the text of a failure
    StoredArray array(const char* where)
    {
        return std::holds_alternative<std::monostate>(array_) ? scan_.storedArray(where) : std::move(array_);
    }

    /// Whether the keyword stands in a block; what stands outside belongs to nothing and is dropped.
    bool isOpen() const { return isOpen_; }

    void setOpen(bool isOpen) { isOpen_ = isOpen; }

private:
    template <class T>
    const std::vector<T>& keep(const std::vector<T>& values)
    {
        array_ = std::make_shared<std::vector<T>>(values);
        return values;
    }

    KeywordScan<E>& scan_;
    float lastTime_;
    bool isOpen_ = false;
    StoredArray array_; // of the present keyword; nothing if it hasn't been read
};

} // namespace Kvt::Mrl::MrlIO

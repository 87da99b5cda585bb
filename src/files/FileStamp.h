#pragma once

#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>

#include <cstdint>

namespace Kvt::Mrl::MrlIO {

/// What a cache remembers of a data file, to see whether the file has changed since: the time of the last change in
/// UTC, to the second, and the length in bytes.
struct FileStamp
{
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    std::int64_t length = 0;

    /// Takes the stamp of a file as it is now. Returns false, with `stamp` untouched, if the file can't be found.
    static bool read(const Service::FileName& file, FileStamp& stamp);

    /// True if all seven numbers agree.
    bool operator==(const FileStamp&) const = default;

    /// Calls visit(name, number) for the seven numbers in the order in which the caches store them.
    template <class Stamp, class Visit>
    static void forEachNumber(Stamp& stamp, Visit&& visit)
    {
        visit("year", stamp.year);
        visit("month", stamp.month);
        visit("day", stamp.day);
        visit("hour", stamp.hour);
        visit("minute", stamp.minute);
        visit("second", stamp.second);
        visit("length", stamp.length);
    }
};

} // namespace Kvt::Mrl::MrlIO

#include "files/FileStamp.h"

#include <mrlio/service/Time.h>

namespace Kvt::Mrl::MrlIO {

bool FileStamp::read(const Service::FileName& file, FileStamp& stamp)
{
    Service::Time time;
    const std::int64_t length = file.FileLength();
    if (length < 0 || !file.TimeLastModified(time))
        return false;
    stamp = {time.GetYear(),   time.GetMonth(),  time.GetDay(), time.GetHour(),
             time.GetMinute(), time.GetSecond(), length};
    return true;
}

} // namespace Kvt::Mrl::MrlIO

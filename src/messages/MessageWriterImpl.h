#pragma once

#include "service/FileStream.h"

#include <mrlio/MessageType.h>
#include <mrlio/service/FileName.h>
#include <mrlio/service/Namespaces.h>
#include <mrlio/service/Time.h>
#include <mrlio/service/YearMonthDay.h>

#include <cstdint>
#include <string>

namespace Kvt::Mrl::MrlIO {

/// What a MessageWriter does; the calls are described there.
class MessageWriterImpl
{
public:
    MessageWriterImpl(const std::string& directory, const std::string& caseName, const Service::YearMonthDay& startDate,
                      bool overwrite, bool throwOnStreamError);

    void open();
    void close();
    void resetRootTagName(const std::string& name);
    void resetStartDate(const Service::YearMonthDay& startDate);
    void writeMessage(MessageType::Enum type, const std::string& text, double elapsedTime, const std::string& name,
                      const std::string& typeName, const std::string& guid);

private:
    bool hasRoot() const { return wholeLength_ > 0; }

    bool openNew();
    bool openAgain();
    void append(const std::string& text);
    void writeEnd();
    void dropRootlessFile();

    Service::Time start_; // undefined without a start date
    Service::FileName file_;
    Service::FileStream stream_;
    const bool overwrite_;
    const bool throwOnStreamError_;
    bool isOpen_ = false;
    std::string rootTag_ = "morvane";
    std::int64_t wholeLength_ = 0; // bytes up to the end of the last whole message, where the closing tag belongs
};

} // namespace Kvt::Mrl::MrlIO

#include <mrlio/MessageWriter.h>

#include "messages/MessageWriterImpl.h"

namespace Kvt::Mrl::MrlIO {

MessageWriter::MessageWriter(const std::string& directory, const std::string& caseName,
                             const Service::YearMonthDay& startDate, bool overwrite, bool throwOnStreamError)
    : impl_(std::make_unique<MessageWriterImpl>(directory, caseName, startDate, overwrite, throwOnStreamError))
{}

MessageWriter::~MessageWriter() = default;

void MessageWriter::open()
{
    impl_->open();
}

void MessageWriter::close()
{
    impl_->close();
}

void MessageWriter::resetRootTagName(const std::string& name)
{
    impl_->resetRootTagName(name);
}

void MessageWriter::resetStartDate(const Service::YearMonthDay& startDate)
{
    impl_->resetStartDate(startDate);
}

void MessageWriter::writeMessage(MessageType::Enum type, const std::string& text, double elapsedTime,
                                 const std::string& name, const std::string& typeName, const std::string& guid)
{
    impl_->writeMessage(type, text, elapsedTime, name, typeName, guid);
}

} // namespace Kvt::Mrl::MrlIO

#pragma once

#include <mrlio/MrlIO.h>

#include <string>
#include <vector>

namespace casereport {

/// What a run has to say, one element of its message file.
struct Message
{
    Kvt::Mrl::MrlIO::MessageType::Enum severity = Kvt::Mrl::MrlIO::MessageType::Comment;
    std::string date; ///< day/month/year
    std::string text;
};

struct MessageFile
{
    std::vector<Message> messages; ///< in the order of the file
    bool isComplete = false;       ///< false while its writer is at work on it, or if that was broken off
};

/// Throws std::runtime_error if the file can't be read, or isn't a message file as MessageWriter writes them.
MessageFile readMessages(const std::string& path);

} // namespace casereport

#include "MessageReport.h"

#include "Labels.h"

#include <algorithm>
#include <iomanip>
#include <map>
#include <ostream>

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;

constexpr std::size_t lastShown = 3; ///< whatever they say: a run ends with what it has come to

/// Places of the last messages, and before them of those that warn, as far as there is room.
std::vector<std::size_t> worthShowing(const std::vector<Message>& messages, std::size_t most)
{
    std::vector<std::size_t> places;
    for (std::size_t place = messages.size(); place-- > 0 && places.size() < most;)
        if (place + lastShown >= messages.size() || messages[place].severity >= MessageType::Warning)
            places.push_back(place);
    std::reverse(places.begin(), places.end());
    return places;
}

} // namespace

void printMessages(std::ostream& out, const MessageFile& file, int mostRows)
{
    std::map<MessageType::Enum, int> counts;
    for (const Message& message : file.messages)
        ++counts[message.severity];
    out << "\nMessages: " << file.messages.size() << (file.isComplete ? "" : ", and more may come") << "\n ";
    for (const auto& [severity, count] : counts)
        out << " " << labelOf<MessageType>(severity) << " " << count;
    out << "\n";
    for (const std::size_t place : worthShowing(file.messages, static_cast<std::size_t>(mostRows))) {
        const Message& message = file.messages[place];
        out << "  " << std::left << std::setw(12) << message.date << std::setw(9)
            << labelOf<MessageType>(message.severity) << std::right << message.text << "\n";
    }
}

} // namespace casereport

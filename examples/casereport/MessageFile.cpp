#include "MessageFile.h"

#include <array>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace casereport {

namespace {

using namespace Kvt::Mrl::MrlIO;

std::string unescaped(const std::string& text)
{
    constexpr std::array<std::pair<std::string_view, char>, 5> entities{
        {{"&quot;", '"'}, {"&amp;", '&'}, {"&apos;", '\''}, {"&lt;", '<'}, {"&gt;", '>'}}};
    std::string plain;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t length = 1;
        char c = text[at];
        for (const auto& [entity, meaning] : entities)
            if (text.compare(at, entity.size(), entity) == 0) {
                length = entity.size();
                c = meaning;
                break;
            }
        plain += c;
        at += length;
    }
    return plain;
}

/// The name in <name> or <name attribute="...">; empty for any other line.
std::string tagOf(const std::string& line)
{
    if (line.size() < 3 || line.front() != '<' || line.back() != '>' || line[1] == '/')
        return {};
    return line.substr(1, line.find_first_of(" >") - 1);
}

std::string attribute(const std::string& line, const std::string& name)
{
    const std::string before = " " + name + "=\"";
    const std::size_t found = line.find(before);
    if (found == std::string::npos)
        return {};
    const std::size_t from = found + before.size();
    return line.substr(from, line.find('"', from) - from);
}

/// The lines up to the element's end. Gives false if the file ends before.
bool readText(std::istream& file, const std::string& tag, std::string& text)
{
    std::string lines;
    for (std::string line; std::getline(file, line);) {
        if (line == "</" + tag + ">") {
            text = unescaped(lines);
            return true;
        }
        lines += lines.empty() ? line.substr(line.find(' ') == 0 ? 1 : 0) : "\n" + line;
    }
    return false;
}

} // namespace

MessageFile readMessages(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string line;
    std::getline(file, line);
    const std::string root = tagOf(line);
    if (root.empty())
        throw std::runtime_error("no messages in " + path);
    MessageFile content;
    while (std::getline(file, line) && !content.isComplete) {
        Message message;
        const std::string tag = tagOf(line);
        if (line == "</" + root + ">")
            content.isComplete = true;
        else if (!Service::findEnum<MessageType>(tag, message.severity))
            throw std::runtime_error("no message: " + line + ", in " + path);
        else if (message.date = attribute(line, "date"); readText(file, tag, message.text))
            content.messages.push_back(std::move(message));
    }
    return content;
}

} // namespace casereport

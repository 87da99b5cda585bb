#include "service/XmlWriter.h"

#include "service/Utf8.h"

#include <mrlio/service/FileName.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <utility>

namespace Kvt::Mrl::Core::Service::XML {
namespace {

constexpr std::string_view lineEnd = "\r\n";
constexpr std::string_view indentation = "  ";
constexpr std::size_t flushSize = 256 * 1024;

/// What a character becomes that can't stand for itself; empty for all others.
std::string_view escapeOf(char c, bool inAttribute)
{
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return inAttribute ? "" : "&gt;";
    case '"':
        return inAttribute ? "&quot;" : "";
    case '\r':
        return "&#xD;";
    case '\n':
        return inAttribute ? "&#xA;" : "";
    case '\t':
        return inAttribute ? "&#x9;" : "";
    default:
        return "";
    }
}

/// True for the common characters, which go out as they are.
bool isPlain(char c)
{
    return c >= ' ' && c <= '~' && c != '&' && c != '<' && c != '>' && c != '"';
}

/// The length of the character at the beginning of the text; 0 if XML can't hold it.
std::size_t characterLength(std::string_view text)
{
    const char c = text.front();
    if (static_cast<unsigned char>(c) < 0x20)
        return c == '\t' || c == '\n' || c == '\r' ? 1 : 0;
    const bool isNoCharacter = text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF");
    return isNoCharacter ? 0 : utf8CharacterLength(text);
}

} // namespace

XmlWriter::XmlWriter(const std::string& fileName, std::string_view rootName, std::string_view namespaceUri)
    : fileName_(fileName),
      file_(fileName, FileMode::Write | FileMode::Create | FileMode::Truncate | FileMode::Exclusive)
{
    if (!file_)
        throw std::runtime_error("cannot open " + fileName_ + ": " + file_.lastError().message());
    buffer_ = R"(<?xml version="1.0" encoding="UTF-8" standalone="no" ?>)";
    buffer_.append(lineEnd).append("<").append(rootName);
    openNames_.emplace_back(rootName);
    startTagOpen_ = true;
    attribute("xmlns", namespaceUri);
}

XmlWriter::~XmlWriter()
{
    try {
        // Removed before it is closed, while the lock still keeps others from writing it anew.
        if (!finished_ && FileName(fileName_).IsFile())
            std::remove(fileName_.c_str());
    } catch (...) {
        // Out of memory: the file stays.
    }
}

void XmlWriter::comment(std::string_view text)
{
    beginChild();
    buffer_.append("<!--").append(text).append("-->");
}

void XmlWriter::startElement(std::string_view name)
{
    beginChild();
    buffer_.append("<").append(name);
    openNames_.emplace_back(name);
    startTagOpen_ = true;
}

void XmlWriter::attribute(std::string_view name, std::string_view value)
{
    buffer_.append(" ").append(name).append("=\"");
    appendEscaped(value, true);
    buffer_ += '"';
}

void XmlWriter::endElement()
{
    const std::string name = std::move(openNames_.back());
    openNames_.pop_back();
    if (startTagOpen_) {
        buffer_ += "/>";
        startTagOpen_ = false;
        return;
    }
    beginLine(openNames_.empty());
    buffer_.append("</").append(name).append(">");
}

void XmlWriter::textElement(std::string_view name, std::string_view text)
{
    beginChild();
    buffer_.append("<").append(name).append(">");
    appendEscaped(text, false);
    buffer_.append("</").append(name).append(">");
}

void XmlWriter::finish()
{
    while (!openNames_.empty())
        endElement();
    buffer_ += lineEnd;
    flush();
    file_.close();
    if (!file_)
        throw std::runtime_error("cannot write " + fileName_ + ": " + file_.lastError().message());
    finished_ = true;
}

void XmlWriter::beginChild()
{
    if (startTagOpen_)
        buffer_ += '>';
    startTagOpen_ = false;
    beginLine(openNames_.size() == 1);
}

void XmlWriter::beginLine(bool afterBlankLine)
{
    if (buffer_.size() >= flushSize)
        flush();
    buffer_ += lineEnd;
    if (afterBlankLine)
        buffer_ += lineEnd;
    for (std::size_t level = 0; level < openNames_.size(); ++level)
        buffer_ += indentation;
}

void XmlWriter::appendEscaped(std::string_view text, bool inAttribute)
{
    while (!text.empty()) {
        const auto plain = std::find_if_not(text.begin(), text.end(), isPlain) - text.begin();
        buffer_.append(text.substr(0, static_cast<std::size_t>(plain)));
        text.remove_prefix(static_cast<std::size_t>(plain));
        if (text.empty())
            return;
        const std::size_t length = characterLength(text);
        if (length == 0)
            throw std::runtime_error("cannot write " + fileName_ + ": a text holds what is no character of XML");
        const std::string_view escape = escapeOf(text.front(), inAttribute);
        buffer_.append(escape.empty() ? text.substr(0, length) : escape);
        text.remove_prefix(length);
    }
}

void XmlWriter::flush()
{
    file_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    buffer_.clear();
    if (!file_)
        throw std::runtime_error("cannot write " + fileName_ + ": " + file_.lastError().message());
}

} // namespace Kvt::Mrl::Core::Service::XML

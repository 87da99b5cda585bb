#pragma once

#include "service/FileStream.h"

#include <charconv>
#include <concepts>
#include <string>
#include <string_view>
#include <vector>

namespace Kvt::Mrl::Core::Service::XML {

/// Writes an XML file straight out: UTF-8, an element a line, indented by two blanks a level, blank lines around the
/// children of the document element, lines ended by carriage return and line feed.
///
/// Each operation throws std::runtime_error if the file can't be written, or if a text can't stand in XML (it isn't
/// UTF-8 or holds control characters). Unless finish() has returned, the destructor removes the file: no half-written
/// file stays behind.
class XmlWriter
{
public:
    /// An existing file is overwritten; it is locked while it is written, so that two processes don't mix their lines.
    /// namespaceUri  the namespace of the document element and all elements in it
    XmlWriter(const std::string& fileName, std::string_view rootName, std::string_view namespaceUri);
    XmlWriter(const XmlWriter&) = delete;
    XmlWriter& operator=(const XmlWriter&) = delete;
    ~XmlWriter();

    /// text  holds no two hyphens in a row
    void comment(std::string_view text);

    /// Opens an element that will have attributes, elements or nothing in it. It stays open until endElement.
    void startElement(std::string_view name);
    /// Adds an attribute to the element that has just been started.
    void attribute(std::string_view name, std::string_view value);
    void endElement();

    /// Writes an element with a text and nothing else in it.
    void textElement(std::string_view name, std::string_view text);

    template <std::integral Integer>
    void textElement(std::string_view name, Integer number)
    {
        char digits[24];
        const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        textElement(name, std::string_view(digits, static_cast<std::size_t>(end - digits)));
    }

    /// Ends the document element and closes the file.
    void finish();

private:
    void beginChild();
    void beginLine(bool afterBlankLine);
    void appendEscaped(std::string_view text, bool inAttribute);
    void flush();

    std::string fileName_;
    FileStream file_;
    std::string buffer_;                 // waits to be written
    std::vector<std::string> openNames_; // from the document element inwards
    bool startTagOpen_ = false;          // the start tag of the innermost element lacks its ">"
    bool finished_ = false;
};

} // namespace Kvt::Mrl::Core::Service::XML

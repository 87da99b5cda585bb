#pragma once

#include "service/XmlErrors.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace Kvt::Mrl::Core::Service::XML {

/// The nodes of a document in flat arrays, in the order of their start tags. So the descendants of an element are the
/// nodes behind it up to `end`, and nothing here ever recurses, however deep the document.
struct XmlTree
{
    struct Node
    {
        std::uint32_t name;      // into names
        std::uint32_t next;      // the next sibling element, 0 if there is none
        std::uint32_t end;       // the first node behind the element's descendants
        std::uint32_t textBegin; // into text
        std::uint32_t textLength;
        std::uint32_t attributeBegin; // into attributes; they end where those of the next node begin
    };

    struct Attribute
    {
        std::uint32_t name;
        std::uint32_t valueBegin; // into text
        std::uint32_t valueLength;
    };

    std::vector<Node> nodes;
    std::vector<Attribute> attributes;
    std::vector<std::string> names;
    std::string text;
};

/// Reads a text that is a whole decimal number, with white space around it or not. Returns false, with `number`
/// untouched, if there is anything else in the text or the number is out of range.
template <class Integer>
bool parseInteger(std::string_view text, Integer& number)
{
    constexpr std::string_view whiteSpace = " \t\r\n";
    const auto begin = text.find_first_not_of(whiteSpace);
    if (begin == std::string_view::npos)
        return false;
    text = text.substr(begin, text.find_last_not_of(whiteSpace) - begin + 1);
    Integer parsed{};
    const auto result = std::from_chars(text.data(), text.data() + text.size(), parsed);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size())
        return false;
    number = parsed;
    return true;
}

/// A place in a document: an element, or none. A light value, good as long as the document. Asking no element gives
/// empty texts and no elements. Equal if they are the same place.
class XmlElement
{
public:
    XmlElement() = default;

    /// False for no element: what comes behind the last sibling, a child that isn't there.
    explicit operator bool() const { return tree_ != nullptr; }

    bool operator==(const XmlElement&) const = default;

    std::string_view name() const;

    /// The character data directly in the element, without those of its children, untrimmed, in UTF-8. White space
    /// between child elements isn't kept.
    std::string_view text() const;

    /// The value of an attribute; empty if the element doesn't have it.
    std::string_view attribute(std::string_view name) const;

    /// The first element in this one.
    XmlElement firstChild() const;
    /// The next element of the same parent.
    XmlElement next() const;
    /// The first element of that name among the children.
    XmlElement child(std::string_view name) const;

    /// The text as a whole number; false, with `number` untouched, if it is none.
    template <class Integer>
    bool readInteger(Integer& number) const
    {
        return parseInteger(text(), number);
    }

    /// Calls visit(XmlElement) for each element of that name below this one, at any depth, in document order.
    template <class Visit>
    void forEachDescendant(std::string_view name, Visit&& visit) const
    {
        if (!*this)
            return;
        for (std::uint32_t index = index_ + 1; index < node().end; ++index) {
            const XmlElement descendant(*tree_, index);
            if (descendant.name() == name)
                visit(descendant);
        }
    }

private:
    friend class XmlDocument;
    friend class XmlTreeBuilder;

    XmlElement(const XmlTree& tree, std::uint32_t index) : tree_(&tree), index_(index) {}

    const XmlTree::Node& node() const { return tree_->nodes[index_]; }

    const XmlTree* tree_ = nullptr;
    std::uint32_t index_ = 0;
};

/// Elements that a document hands out as soon as each of them has ended, and then forgets: however many there are, they
/// take the memory of the largest.
struct PassingElements
{
    /// What they and the elements around them are called, from the child of the document element inwards.
    std::vector<std::string_view> path;

    /// Called in document order, also where the document turns out later not to be well-formed. The element is good
    /// for the call alone. Its parent hasn't ended yet, so all to be asked of it is the name and whether it is the same
    /// as another. What is thrown here makes the document count as broken.
    std::function<void(XmlElement parent, XmlElement element)> visit;
};

/// An XML file in memory, as a tree of elements with their texts. Namespaces are not processed: names are what stands
/// in the file. Comments and the like are skipped. A document type declaration is skipped too: nothing that it names is
/// loaded, and an entity that it declares counts as unknown.
class XmlDocument
{
public:
    /// Reads a file. Returns false, with the reasons in `errors` and the document empty, if it can't be read or isn't
    /// well-formed.
    /// passing  not kept in the document, with the text in front of them in their parent
    /// cost     one pass; the memory is in proportion to what is kept, the largest passing element and the number of
    ///          different names
    bool parse(const std::string& fileName, ParserErrorHandler& errors, const PassingElements& passing = {});

    /// Whether there was no file at all for the last parse. Another process may remove one between a look at it and the
    /// parse.
    bool isFileMissing() const { return isFileMissing_; }

    /// The document element; none if nothing was parsed.
    XmlElement root() const;

private:
    XmlTree tree_;
    bool isFileMissing_ = false;
};

} // namespace Kvt::Mrl::Core::Service::XML

#pragma once

#include "service/XmlDocument.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>
#include <xercesc/sax2/DefaultHandler.hpp>

namespace Kvt::Mrl::Core::Service::XML {

/// Listens to the parser and builds the tree of a document, without the elements that only pass.
///
/// Throws xercesc::SAXException at elements that are nested too deep and at documents too large for the tree's indices.
class XmlTreeBuilder final : public xercesc::DefaultHandler
{
public:
    XmlTreeBuilder(XmlTree& tree, const PassingElements& passing, ParserErrorHandler& errors)
        : tree_(tree),
          passing_(passing),
          errors_(errors)
    {}

    bool sawErrors() const { return sawErrors_; }

    void startElement(const XMLCh* uri, const XMLCh* localName, const XMLCh* name,
                      const xercesc::Attributes& attributes) override;
    void endElement(const XMLCh* uri, const XMLCh* localName, const XMLCh* name) override;
    void characters(const XMLCh* text, XMLSize_t length) override;

    void error(const xercesc::SAXParseException& problem) override;
    void fatalError(const xercesc::SAXParseException& problem) override;

private:
    /// An element whose end hasn't come yet. Its text is collected apart, since those of its children come in between.
    struct OpenElement
    {
        std::uint32_t node = 0;
        std::uint32_t lastChild = 0; // among those that have ended and stay; 0 if there is none yet
        std::uint32_t textBegin = 0; // where the texts of the element and its descendants begin in the tree
        std::string text;
    };

    /// Lets names be looked up by what the parser gives, without a copy.
    struct NameHash
    {
        using is_transparent = void;

        std::size_t operator()(std::u16string_view name) const { return std::hash<std::u16string_view>()(name); }
    };

    void open(std::uint32_t node, std::uint32_t textBegin);
    void close(const OpenElement& element);
    bool isPassing() const;
    void handOut(const OpenElement& element);
    std::uint32_t intern(const XMLCh* name);
    std::uint32_t store(const std::string& text);

    XmlTree& tree_;
    const PassingElements& passing_;
    ParserErrorHandler& errors_;
    bool sawErrors_ = false;
    std::unordered_map<std::u16string, std::uint32_t, NameHash, std::equal_to<>> nameIndex_;
    std::vector<OpenElement> opened_; // the first depth_ are in use; the others wait with their memory to be used again
    std::size_t depth_ = 0;
    std::string scratch_;
};

} // namespace Kvt::Mrl::Core::Service::XML

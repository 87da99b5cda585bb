#include "service/XmlTreeBuilder.h"

#include "service/Utf8.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/util/XMLString.hpp>

namespace Kvt::Mrl::Core::Service::XML {
namespace {

/// No document of this library is nested deeper than ten.
constexpr std::size_t largestDepth = 256;
constexpr std::size_t largestIndex = std::numeric_limits<std::uint32_t>::max();

std::u16string_view viewOf(const XMLCh* text)
{
    return {text, xercesc::XMLString::stringLen(text)};
}

std::uint32_t checkedIndex(std::size_t index)
{
    if (index > largestIndex)
        throw xercesc::SAXException("the document is too large");
    return static_cast<std::uint32_t>(index);
}

bool isWhiteSpace(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
}

std::string describe(const xercesc::SAXParseException& problem)
{
    std::string text;
    appendUtf8(text, viewOf(problem.getMessage()));
    return text + " (line " + std::to_string(problem.getLineNumber()) + ", column " +
           std::to_string(problem.getColumnNumber()) + ")";
}

} // namespace

void XmlTreeBuilder::startElement(const XMLCh*, const XMLCh*, const XMLCh* name, const xercesc::Attributes& attributes)
{
    const std::uint32_t node = checkedIndex(tree_.nodes.size());
    const std::uint32_t textBegin = checkedIndex(tree_.text.size());
    tree_.nodes.push_back({intern(name), 0, node + 1, 0, 0, checkedIndex(tree_.attributes.size())});
    for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
        const std::uint32_t attributeName = intern(attributes.getQName(i));
        scratch_.clear();
        appendUtf8(scratch_, viewOf(attributes.getValue(i)));
        const std::uint32_t begin = store(scratch_);
        tree_.attributes.push_back({attributeName, begin, static_cast<std::uint32_t>(scratch_.size())});
    }
    open(node, textBegin);
}

void XmlTreeBuilder::endElement(const XMLCh*, const XMLCh*, const XMLCh*)
{
    const OpenElement& element = opened_[--depth_];
    close(element);
    if (depth_ == 0)
        return;
    if (isPassing()) {
        handOut(element);
        return;
    }
    OpenElement& parent = opened_[depth_ - 1];
    if (parent.lastChild != 0)
        tree_.nodes[parent.lastChild].next = element.node;
    parent.lastChild = element.node;
}

void XmlTreeBuilder::characters(const XMLCh* text, XMLSize_t length)
{
    if (depth_ > 0)
        appendUtf8(opened_[depth_ - 1].text, {text, length});
}

void XmlTreeBuilder::error(const xercesc::SAXParseException& problem)
{
    sawErrors_ = true;
    errors_.addError(describe(problem));
}

void XmlTreeBuilder::fatalError(const xercesc::SAXParseException& problem)
{
    sawErrors_ = true;
    errors_.addFatalError(describe(problem));
}

void XmlTreeBuilder::open(std::uint32_t node, std::uint32_t textBegin)
{
    if (depth_ == largestDepth)
        throw xercesc::SAXException("the elements are nested too deep");
    if (depth_ == opened_.size())
        opened_.emplace_back();
    OpenElement& element = opened_[depth_++];
    element.node = node;
    element.lastChild = 0;
    element.textBegin = textBegin;
    element.text.clear();
}

void XmlTreeBuilder::close(const OpenElement& element)
{
    XmlTree::Node& node = tree_.nodes[element.node];
    node.end = checkedIndex(tree_.nodes.size());
    if (element.lastChild != 0 && isWhiteSpace(element.text))
        return;
    node.textBegin = store(element.text);
    node.textLength = static_cast<std::uint32_t>(element.text.size());
}

/// About the element at depth_, which has just ended. Its own name differs first, so it is compared first.
bool XmlTreeBuilder::isPassing() const
{
    if (depth_ != passing_.path.size())
        return false;
    for (std::size_t depth = depth_; depth > 0; --depth) {
        if (tree_.names[tree_.nodes[opened_[depth].node].name] != passing_.path[depth - 1])
            return false;
    }
    return true;
}

/// Afterwards the tree is as if the element had never been there: no sibling refers to it yet, and its nodes,
/// attributes and texts are the last ones. The white space in front of it would pile up in the parent's text.
void XmlTreeBuilder::handOut(const OpenElement& element)
{
    OpenElement& parent = opened_[depth_ - 1];
    passing_.visit(XmlElement(tree_, parent.node), XmlElement(tree_, element.node));
    tree_.attributes.resize(tree_.nodes[element.node].attributeBegin);
    tree_.nodes.resize(element.node);
    tree_.text.resize(element.textBegin);
    parent.text.clear();
}

std::uint32_t XmlTreeBuilder::intern(const XMLCh* name)
{
    const std::u16string_view key = viewOf(name);
    const auto known = nameIndex_.find(key);
    if (known != nameIndex_.end())
        return known->second;
    const auto index = static_cast<std::uint32_t>(tree_.names.size());
    nameIndex_.emplace(key, index);
    appendUtf8(tree_.names.emplace_back(), key);
    return index;
}

std::uint32_t XmlTreeBuilder::store(const std::string& text)
{
    const std::uint32_t begin = checkedIndex(tree_.text.size());
    checkedIndex(tree_.text.size() + text.size());
    tree_.text += text;
    return begin;
}

} // namespace Kvt::Mrl::Core::Service::XML

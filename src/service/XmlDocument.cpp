#include "service/XmlDocument.h"

#include "service/PositionalFile.h"
#include "service/Utf8.h"
#include "service/XmlInitialise.h"
#include "service/XmlTreeBuilder.h"

#include <algorithm>
#include <cerrno>
#include <exception>
#include <memory>
#include <system_error>
#include <xercesc/sax/InputSource.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

namespace Kvt::Mrl::Core::Service::XML {
namespace {

/// Hands the bytes of an open file to the parser. The parser's own file source would pass the name through the
/// process's character set, where not every name survives.
class FileBytes final : public xercesc::BinInputStream
{
public:
    explicit FileBytes(const PositionalFile& file) : file_(file) {}

    XMLFilePos curPos() const override { return static_cast<XMLFilePos>(position_); }

    XMLSize_t readBytes(XMLByte* const bytes, const XMLSize_t count) override
    {
        const std::int64_t done = std::max<std::int64_t>(file_.readAt(reinterpret_cast<char*>(bytes), count, position_),
                                                         0); // a refused read looks like the end
        position_ += done;
        return static_cast<XMLSize_t>(done);
    }

    const XMLCh* getContentType() const override { return nullptr; }

private:
    const PositionalFile& file_;
    std::int64_t position_ = 0;
};

class FileSource final : public xercesc::InputSource
{
public:
    explicit FileSource(const PositionalFile& file) : file_(file) {}

    xercesc::BinInputStream* makeStream() const override { return new FileBytes(file_); }

private:
    const PositionalFile& file_;
};

/// A parser that checks well-formedness alone. The scanner chosen here skips document type declarations unread, so
/// there are no external files to load and no entities but the five of XML itself: nothing can grow beyond the file.
std::unique_ptr<xercesc::SAX2XMLReader> createParser(XmlTreeBuilder& builder)
{
    using xercesc::XMLUni;
    std::unique_ptr<xercesc::SAX2XMLReader> parser(xercesc::XMLReaderFactory::createXMLReader());
    parser->setProperty(XMLUni::fgXercesScannerName, const_cast<XMLCh*>(XMLUni::fgWFXMLScanner));
    parser->setFeature(XMLUni::fgSAX2CoreValidation, false);
    parser->setFeature(XMLUni::fgSAX2CoreNameSpaces, false);
    parser->setFeature(XMLUni::fgXercesSchema, false);
    parser->setFeature(XMLUni::fgXercesLoadExternalDTD, false);
    parser->setFeature(XMLUni::fgXercesDisableDefaultEntityResolution, true);
    parser->setContentHandler(&builder);
    parser->setErrorHandler(&builder);
    return parser;
}

std::string textOf(const XMLCh* message)
{
    std::string text;
    if (message != nullptr)
        appendUtf8(text, {message, xercesc::XMLString::stringLen(message)});
    return text;
}

/// Runs the parser; whatever it throws becomes a fatal error.
bool parseInto(XmlTree& tree, const PassingElements& passing, const PositionalFile& file, ParserErrorHandler& errors)
{
    try {
        Initialise::Init();
        XmlTreeBuilder builder(tree, passing, errors);
        createParser(builder)->parse(FileSource(file));
        return !builder.sawErrors();
    } catch (const xercesc::OutOfMemoryException&) {
        errors.addFatalError("out of memory");
    } catch (const xercesc::XMLException& exception) {
        errors.addFatalError(textOf(exception.getMessage()));
    } catch (const xercesc::SAXException& exception) {
        errors.addFatalError(textOf(exception.getMessage()));
    } catch (const std::exception& exception) {
        errors.addFatalError(exception.what());
    }
    return false;
}

} // namespace

bool XmlDocument::parse(const std::string& fileName, ParserErrorHandler& errors, const PassingElements& passing)
{
    tree_ = XmlTree();
    PositionalFile file;
    const int reason = file.open(fileName.c_str()) ? 0 : errno;
    isFileMissing_ = reason == ENOENT;
    if (reason != 0) {
        errors.addFatalError("cannot open " + fileName + ": " + std::generic_category().message(reason));
        return false;
    }
    if (parseInto(tree_, passing, file, errors))
        return true;
    tree_ = XmlTree();
    return false;
}

XmlElement XmlDocument::root() const
{
    return tree_.nodes.empty() ? XmlElement() : XmlElement(tree_, 0);
}

std::string_view XmlElement::name() const
{
    return tree_ != nullptr ? std::string_view(tree_->names[node().name]) : std::string_view();
}

std::string_view XmlElement::text() const
{
    return tree_ != nullptr ? std::string_view(tree_->text).substr(node().textBegin, node().textLength)
                            : std::string_view();
}

std::string_view XmlElement::attribute(std::string_view name) const
{
    if (tree_ == nullptr)
        return {};
    const bool isLast = index_ + 1 == tree_->nodes.size();
    const std::size_t end = isLast ? tree_->attributes.size() : tree_->nodes[index_ + 1].attributeBegin;
    for (std::size_t i = node().attributeBegin; i < end; ++i) {
        const XmlTree::Attribute& attribute = tree_->attributes[i];
        if (tree_->names[attribute.name] == name)
            return std::string_view(tree_->text).substr(attribute.valueBegin, attribute.valueLength);
    }
    return {};
}

XmlElement XmlElement::firstChild() const
{
    return tree_ != nullptr && node().end > index_ + 1 ? XmlElement(*tree_, index_ + 1) : XmlElement();
}

XmlElement XmlElement::next() const
{
    return tree_ != nullptr && node().next != 0 ? XmlElement(*tree_, node().next) : XmlElement();
}

XmlElement XmlElement::child(std::string_view name) const
{
    XmlElement candidate = firstChild();
    while (candidate && candidate.name() != name)
        candidate = candidate.next();
    return candidate;
}

} // namespace Kvt::Mrl::Core::Service::XML

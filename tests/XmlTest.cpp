#include "service/XmlDocument.h"
#include "service/XmlInitialise.h"
#include "service/XmlWriter.h"
#include "support/TempDir.h"

#include <cstdint>
#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufFormatTarget.hpp>
#include <xercesc/util/XMLString.hpp>

namespace {
using namespace Kvt::Mrl::Core::Service::XML;
using MrlIOTest::TempDir;

constexpr const char* uri = "http://kvt.example/Mrl/MrlIO/Test";

class Xml : public ::testing::Test
{
protected:
    bool parse(const std::string& bytes, const PassingElements& passing = {})
    {
        MrlIOTest::writeBytes(file_, bytes);
        errors_.reset();
        return document_.parse(file_, errors_, passing);
    }

    TempDir directory_;
    std::string file_ = directory_.file("cache \xC3\xA9 \xFF.xml"); // names needn't be valid texts
    XmlDocument document_;
    ParserErrorHandler errors_;
};

/// The same document by the writer and by the serializer of the parser's library, whose layout is the model.
void writeSample(const std::string& file)
{
    XmlWriter xml(file, "index", uri);
    xml.comment("Do not modify this file.  It is a cache");
    xml.textElement("version", 1);
    xml.startElement("files");
    xml.startElement("file");
    xml.textElement("name", "A&<>\"'\r\t\n ]]> \xC3\xA9.UNSMRY");
    xml.textElement("length", std::int64_t{1} << 40);
    xml.endElement();
    xml.startElement("file");
    xml.textElement("name", "");
    xml.endElement();
    xml.endElement();
    xml.startElement("none");
    xml.endElement();
    xml.startElement("arrays");
    xml.startElement("array");
    xml.attribute("name", "A&<>\"'\t\r\nz");
    xml.attribute("type", "REAL");
    xml.endElement();
    xml.endElement();
    xml.finish();
}

/// Builds DOM nodes with plain texts.
class DomSample
{
public:
    DomSample() : implementation_(*xercesc::DOMImplementationRegistry::getDOMImplementation(wide("LS").data()))
    {
        document_ = implementation_.createDocument(wide(uri).data(), wide("index").data(), nullptr);
    }

    ~DomSample() { document_->release(); }

    static std::u16string wide(const std::string& latin1) { return {latin1.begin(), latin1.end()}; }

    xercesc::DOMElement* add(xercesc::DOMElement* parent, const char* name, const char16_t* text = nullptr)
    {
        auto* const element = document_->createElementNS(wide(uri).data(), wide(name).data());
        if (text != nullptr)
            element->appendChild(document_->createTextNode(text));
        parent->appendChild(element);
        return element;
    }

    void build()
    {
        auto* const root = document_->getDocumentElement();
        root->appendChild(document_->createComment(u"Do not modify this file.  It is a cache"));
        add(root, "version", u"1");
        auto* const files = add(root, "files");
        auto* const file = add(files, "file");
        add(file, "name", u"A&<>\"'\r\t\n ]]> é.UNSMRY");
        add(file, "length", u"1099511627776");
        add(add(files, "file"), "name", u"");
        add(root, "none");
        auto* const array = add(add(root, "arrays"), "array");
        array->setAttribute(u"name", u"A&<>\"'\t\r\nz");
        array->setAttribute(u"type", u"REAL");
    }

    std::string serialized()
    {
        xercesc::MemBufFormatTarget target;
        auto* const serializer = implementation_.createLSSerializer();
        auto* const output = implementation_.createLSOutput();
        serializer->getDomConfig()->setParameter(u"format-pretty-print", true);
        serializer->setNewLine(u"\r\n");
        output->setByteStream(&target);
        serializer->write(document_, output);
        output->release();
        serializer->release();
        return {reinterpret_cast<const char*>(target.getRawBuffer()), target.getLen()};
    }

private:
    xercesc::DOMImplementation& implementation_;
    xercesc::DOMDocument* document_ = nullptr;
};

TEST_F(Xml, WriterHasTheLayoutOfThePrettyPrinter)
{
    Initialise::Init();
    DomSample model;
    model.build();
    writeSample(file_);
    EXPECT_EQ(MrlIOTest::readBytes(file_), model.serialized());
}

TEST_F(Xml, WrittenTextsComeBack)
{
    writeSample(file_);
    ASSERT_TRUE(document_.parse(file_, errors_)) << errors_.getLastFatalError();
    const XmlElement root = document_.root();
    EXPECT_EQ(root.name(), "index");
    EXPECT_EQ(root.attribute("xmlns"), uri);
    const XmlElement file = root.child("files").firstChild();
    EXPECT_EQ(file.child("name").text(), "A&<>\"'\r\t\n ]]> \xC3\xA9.UNSMRY");
    std::int64_t length = 0;
    EXPECT_TRUE(file.child("length").readInteger(length));
    EXPECT_EQ(length, std::int64_t{1} << 40);
    EXPECT_EQ(root.child("arrays").firstChild().attribute("name"), "A&<>\"'\t\r\nz");
    EXPECT_EQ(root.child("arrays").firstChild().attribute("type"), "REAL");
    EXPECT_EQ(root.child("arrays").firstChild().attribute("other"), "");
}

TEST_F(Xml, CursorWalksElementsOnly)
{
    ASSERT_TRUE(
        parse("<?pi x?><!-- c --><r>\n <a>1<!-- c -->2<![CDATA[<3>]]></a>\n t <b><a>x</a><c/></b> u <a/>\n</r>"));
    const XmlElement root = document_.root();
    const XmlElement first = root.firstChild();
    EXPECT_EQ(first.text(), "12<3>");
    EXPECT_EQ(first.next().name(), "b");
    EXPECT_EQ(first.next().text(), "");
    EXPECT_EQ(first.next().next().name(), "a");
    EXPECT_FALSE(first.next().next().next() || first.firstChild() || root.next());
    EXPECT_EQ(root.text(), "\n \n t  u \n");

    std::vector<std::string> found;
    root.forEachDescendant("a", [&](XmlElement element) { found.emplace_back(element.text()); });
    EXPECT_EQ(found, (std::vector<std::string>{"12<3>", "x", ""}));
    first.next().forEachDescendant("b", [&](XmlElement) { ADD_FAILURE() << "an element isn't its own descendant"; });

    const XmlElement none = root.child("zzz");
    EXPECT_EQ(std::string(none.name()) + std::string(none.child("a").next().text()), "");
    none.forEachDescendant("a", [](XmlElement) { ADD_FAILURE(); });
}

TEST_F(Xml, PassingElementsAreSeenWholeAndLeaveNoTrace)
{
    std::vector<std::string> seen;
    std::vector<XmlElement> parents;
    const PassingElements passing{
        {"list", "item"}, [&](XmlElement parent, XmlElement item) {
            EXPECT_EQ(parent.name(), "list");
            EXPECT_FALSE(item.next());
            parents.push_back(parent);
            seen.push_back(std::string(item.attribute("k")) + ":" + std::string(item.text()));
            item.forEachDescendant("item", [&](XmlElement inner) { seen.back() += "+" + std::string(inner.text()); });
        }};
    ASSERT_TRUE(
        parse("<r><item>r</item><list a='1'><item k='2'>x<b c='3'><item>y</item></b></item>\n<other d='4'>o<item>"
              "p</item></other>\n<item/>\n<other e='5'/><item>z</item></list><list f='6'/><list><item/></list>"
              "<a><list><item>deep</item></list></a></r>",
              passing));
    EXPECT_EQ(seen, (std::vector<std::string>{"2:x+y", ":", ":z", ":"}));
    EXPECT_TRUE(parents[0] == parents[2] && parents[2] != parents[3]);

    const XmlElement list = document_.root().child("list");
    EXPECT_EQ(list, parents[0]);
    EXPECT_EQ(document_.root().firstChild().text(), "r");
    EXPECT_EQ(list.attribute("a"), "1");
    EXPECT_EQ(list.text(), "");
    const XmlElement other = list.firstChild();
    EXPECT_EQ(std::string(other.attribute("d")) + std::string(other.text()), "4o");
    EXPECT_EQ(other.firstChild().text(), "p");
    EXPECT_EQ(other.next().attribute("e"), "5");
    EXPECT_FALSE(other.next().next());
    EXPECT_EQ(list.next().attribute("f"), "6");
    EXPECT_FALSE(list.next().next().firstChild());
    EXPECT_EQ(document_.root().child("a").firstChild().child("item").text(), "deep");
}

TEST_F(Xml, PassingElementsDoNotPileUp)
{
    constexpr std::size_t count = 20000;
    std::string text = "<r><list>";
    for (std::size_t i = 0; i < count; ++i)
        text += "<item k='0123456789'>01234567890123456789</item>";
    std::size_t calls = 0;
    std::set<const char*> places;
    EXPECT_TRUE(parse(text + "</list></r>", {{"list", "item"}, [&](XmlElement, XmlElement item) {
                                                 ++calls;
                                                 places.insert(item.text().data());
                                             }}));
    EXPECT_EQ(calls, count);
    EXPECT_LT(places.size(), 10u) << "each text should stand where the one before it stood";
}

TEST_F(Xml, ADocumentIsBrokenIfItsEndIsOrAPassingElementIsRefused)
{
    int calls = 0;
    EXPECT_FALSE(parse("<r><item/><item/></s>", {{"item"}, [&](XmlElement, XmlElement) { ++calls; }}));
    EXPECT_EQ(calls, 2);
    EXPECT_FALSE(document_.root());
    EXPECT_FALSE(parse("<r><item/></r>", {{"item"}, [](XmlElement, XmlElement) { throw std::runtime_error("no"); }}));
    EXPECT_EQ(errors_.getLastFatalError(), "no");
}

TEST_F(Xml, IntegersAreWholeTexts)
{
    int number = 7;
    for (const char* const bad : {"", " ", "1.0", "1 2", "0x1", "1e3", "x", "2147483648", "--1", "+1", "1\xC2\xA0"})
        EXPECT_FALSE(parseInteger(bad, number)) << bad;
    EXPECT_EQ(number, 7);
    EXPECT_TRUE(parseInteger("\r\n\t -2147483648 \n", number));
    EXPECT_EQ(number, std::numeric_limits<int>::min());
    std::int64_t offset = 0;
    EXPECT_TRUE(parseInteger("9223372036854775807", offset));
    EXPECT_EQ(offset, std::numeric_limits<std::int64_t>::max());
}

TEST_F(Xml, EveryCutOrDamagedDocumentIsRefused)
{
    writeSample(file_);
    const std::string whole = MrlIOTest::readBytes(file_);
    for (std::size_t length = 0; length + 2 < whole.size(); ++length) {
        ASSERT_FALSE(parse(whole.substr(0, length))) << length;
        ASSERT_TRUE(errors_.getSawErrors() && !errors_.getLastFatalError().empty()) << length;
        ASSERT_FALSE(document_.root());
    }
    for (const char* const bad :
         {"<a>", "<a></b>", "<a/><b/>", "plain", "<a x=1/>", "<a x='1' x='2'/>", "<a>&unknown;</a>", "<a>&#0;</a>",
          "<?xml version=\"1.0\" encoding=\"UTF-8\"?><a>\xE9</a>", "<?xml version=\"1.0\" encoding=\"no-such\"?><a/>",
          "<a>\x01</a>"})
        EXPECT_FALSE(parse(bad)) << bad;
    EXPECT_FALSE(document_.parse(directory_.file("missing"), errors_));
    EXPECT_FALSE(document_.parse(directory_.path(), errors_));
    EXPECT_TRUE(parse("\xEF\xBB\xBF<a/>") && parse("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xE9</a>"));
    EXPECT_EQ(document_.root().text(), "\xC3\xA9");
}

TEST_F(Xml, DeclarationsLoadNothingAndExpandNothing)
{
    MrlIOTest::writeBytes(directory_.file("secret"), "secret");
    const std::string external = "<!DOCTYPE a [<!ENTITY x SYSTEM \"" + directory_.file("secret") + "\">]>";
    EXPECT_FALSE(parse(external + "<a>&x;</a>"));
    EXPECT_TRUE(parse("<!DOCTYPE a SYSTEM \"http://127.0.0.1:1/none.dtd\"><a>1</a>"));
    EXPECT_EQ(document_.root().text(), "1");
    EXPECT_FALSE(parse("<!DOCTYPE a [<!ENTITY x \"1234567890\"><!ENTITY y \"&x;&x;&x;\">]><a b=\"&y;\">&y;</a>"));

    std::string predefined = "<a>";
    for (int i = 0; i < 100000; ++i)
        predefined += "&amp;";
    ASSERT_TRUE(parse(predefined + "</a>"));
    EXPECT_EQ(document_.root().text(), std::string(100000, '&'));
}

TEST_F(Xml, DepthIsBounded)
{
    const auto nested = [](std::size_t depth) {
        std::string text;
        for (std::size_t i = 0; i < depth; ++i)
            text += "<a>";
        for (std::size_t i = 0; i < depth; ++i)
            text += "</a>";
        return text;
    };
    EXPECT_TRUE(parse(nested(200)));
    EXPECT_FALSE(parse(nested(100000)));
    EXPECT_NE(errors_.getLastFatalError().find("too deep"), std::string::npos);
}

TEST_F(Xml, UnfinishedOrUnwritableFilesDoNotStay)
{
    MrlIOTest::writeBytes(file_, "old");
    {
        XmlWriter xml(file_, "index", uri);
        xml.textElement("version", 1);
    }
    EXPECT_FALSE(std::filesystem::exists(file_));
    for (const std::string& bad : {std::string("\xE9"), std::string("a\0b", 3), std::string("\xEF\xBF\xBF")}) {
        XmlWriter xml(file_, "index", uri);
        EXPECT_THROW(xml.textElement("name", bad), std::runtime_error);
    }
    EXPECT_FALSE(std::filesystem::exists(file_));
    EXPECT_THROW(XmlWriter(directory_.file("no/such/folder"), "index", uri), std::runtime_error);
    EXPECT_THROW(XmlWriter(directory_.path(), "index", uri), std::runtime_error);
}

TEST_F(Xml, AFullDiskIsNoticed)
{
    if (!std::filesystem::exists("/dev/full"))
        GTEST_SKIP() << "needs /dev/full";
    XmlWriter xml("/dev/full", "index", uri);
    EXPECT_THROW(
        {
            for (int i = 0; i < 100000; ++i)
                xml.textElement("number", i);
            xml.finish();
        },
        std::runtime_error);
}

TEST_F(Xml, AFileBeingWrittenIsNotOverwritten)
{
    XmlWriter first(file_, "index", uri);
    EXPECT_THROW(XmlWriter(file_, "other", uri), std::runtime_error);
    first.textElement("version", 1);
    first.finish();
    ASSERT_TRUE(document_.parse(file_, errors_));
    EXPECT_EQ(document_.root().name(), "index");
}

TEST_F(Xml, ThreadsParseAtTheSameTime)
{
    writeSample(file_);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([this] {
            for (int i = 0; i < 20; ++i) {
                XmlDocument document;
                ParserErrorHandler errors;
                EXPECT_TRUE(document.parse(file_, errors));
                EXPECT_EQ(document.root().child("version").text(), "1");
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}
} // namespace

#include <mrlio/ArrayConverter.h>
#include <mrlio/LibProperties.h>
#include <mrlio/LogWrapper.h>
#include <mrlio/MrlIOException.h>

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>

namespace {

using namespace Kvt::Mrl::MrlIO;

/// Keeps what it is told, if the level is on, and throws if it is asked to.
class TestLog : public ILog
{
public:
    bool enabled = true;
    bool throwsWhenAsked = false;
    bool throwsWhenTold = false;
    mutable std::map<std::string, std::string> told;

    bool isDebugEnabled() const override { return ask(); }

    bool isWarningEnabled() const override { return ask(); }

    bool isInfoEnabled() const override { return ask(); }

    bool isErrorEnabled() const override { return ask(); }

    bool isFatalEnabled() const override { return ask(); }

    void debug(const std::string& text) const override { tell("debug", text); }

    void warning(const std::string& text) const override { tell("warning", text); }

    void info(const std::string& text) const override { tell("info", text); }

    void error(const std::string& text) const override { tell("error", text); }

    void fatal(const std::string& text) const override { tell("fatal", text); }

private:
    bool ask() const
    {
        if (throwsWhenAsked)
            throw 1;
        return enabled;
    }

    void tell(const std::string& level, const std::string& text) const
    {
        if (throwsWhenTold)
            throw std::runtime_error("log");
        told[level] += text;
    }
};

void tellAll(const ILog& log)
{
    log.debug("d");
    log.warning("w");
    log.info("i");
    log.error("e");
    log.fatal("f");
}

bool anyEnabled(const ILog& log)
{
    return log.isDebugEnabled() || log.isWarningEnabled() || log.isInfoEnabled() || log.isErrorEnabled() ||
           log.isFatalEnabled();
}

TEST(LogWrapperTest, ForwardsEachLevelToItsOwn)
{
    const TestLog log;
    tellAll(LogWrapper(&log));
    const std::map<std::string, std::string> expected{
        {"debug", "d"}, {"warning", "w"}, {"info", "i"}, {"error", "e"}, {"fatal", "f"}};
    EXPECT_EQ(log.told, expected);
}

TEST(LogWrapperTest, KeepsDisabledLevelsAndFailuresAway)
{
    TestLog log;
    LogWrapper wrapper(&log);
    log.enabled = false;
    tellAll(wrapper);
    EXPECT_FALSE(anyEnabled(wrapper));
    log.enabled = true;
    log.throwsWhenTold = true;
    EXPECT_NO_THROW(tellAll(wrapper));
    log.throwsWhenAsked = true;
    EXPECT_NO_THROW(tellAll(wrapper));
    EXPECT_FALSE(anyEnabled(wrapper));
    EXPECT_TRUE(log.told.empty());
}

TEST(LogWrapperTest, DoesNothingWithoutALogger)
{
    const TestLog log;
    LogWrapper wrapper;
    tellAll(wrapper);
    EXPECT_FALSE(anyEnabled(wrapper));
    wrapper.setLogger(&log);
    LogWrapper copy;
    copy = wrapper;
    wrapper.setLogger(nullptr);
    EXPECT_FALSE(anyEnabled(wrapper));
    EXPECT_TRUE(copy.isFatalEnabled());
}

TEST(LibPropertiesTest, GivesSevenRowsAndNothingBeyond)
{
    ASSERT_EQ(getNumLibProperties(), 7);
    const char* key = nullptr;
    const char* value = nullptr;
    getLibProperty(1, key, value);
    EXPECT_STREQ(key, "FileVersion");
    EXPECT_STREQ(value, "5.2026.0.0");
    getLibProperty(6, key, value);
    EXPECT_STREQ(key, "OriginalFilename");
    for (const int index : {-1, 7}) {
        getLibProperty(index, key, value);
        EXPECT_STREQ(key, "");
        EXPECT_STREQ(value, "");
    }
}

TEST(ArrayConverterTest, WidensNumbers)
{
    const std::vector<int> integers{-1, 0, 7};
    const std::vector<float> floats{0.5f, -2.0f};
    std::vector<float> asFloat{9.0f, 9.0f, 9.0f, 9.0f};
    std::vector<double> asDouble{9.0};
    std::vector<bool> asBool{true};
    ArrayConverter::convert(integers, asFloat);
    EXPECT_EQ(asFloat, (std::vector<float>{-1.0f, 0.0f, 7.0f}));
    ArrayConverter::convert(integers, asDouble);
    EXPECT_EQ(asDouble, (std::vector<double>{-1.0, 0.0, 7.0}));
    ArrayConverter::convert(floats, asDouble);
    EXPECT_EQ(asDouble, (std::vector<double>{0.5, -2.0}));
    ArrayConverter::convert<int, bool>(integers, asBool);
    EXPECT_EQ(asBool, (std::vector<bool>{true, false, true}));
}

TEST(ArrayConverterTest, CopiesTheSameTypeAndSurvivesItself)
{
    std::vector<std::string> stored{"WOPR", "FOPT"};
    std::vector<std::string> wanted{"old"};
    ArrayConverter::convert(stored, wanted);
    EXPECT_EQ(wanted, stored);
    ArrayConverter::convert(stored, stored);
    EXPECT_EQ(wanted, stored);
}

template <class S, class T, class Named = T>
void expectRefused()
{
    const std::vector<S> stored(3);
    std::vector<T> wanted(2);
    try {
        ArrayConverter::convert(stored, wanted);
        ADD_FAILURE();
    } catch (const RFTReaderException&) {
        ADD_FAILURE();
    } catch (const MrlIOException& fault) {
        EXPECT_EQ(fault.what(), std::string("MrlI0::ArrayConverter: can not convert ") + typeid(std::vector<S>).name() +
                                    " to " + typeid(std::vector<Named>).name());
    }
    EXPECT_TRUE(wanted.empty());
}

TEST(ArrayConverterTest, RefusesToNarrowAndNamesBothTypes)
{
    expectRefused<float, int>();
    expectRefused<double, int>();
    expectRefused<double, float>();
    expectRefused<std::string, int>();
    expectRefused<std::string, double>();
    expectRefused<int, std::string>();
    expectRefused<double, std::string>();
    expectRefused<float, bool, int>();
    expectRefused<std::string, bool, int>();
}

} // namespace

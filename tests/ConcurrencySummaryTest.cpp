#include "support/SummaryCase.h"

#include <mrlio/SimpleSummaryReader.h>
#include <mrlio/SummaryReaderEnvironment.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

using namespace Kvt::Mrl::MrlIO;
using namespace MrlIOTest;

TEST(ConcurrencySummary, SeparateReadersShareOneSpecificationAndOneCache)
{
    const SummaryCase summaryCase;
    const auto spec = summaryCase.spec();
    SummaryDataBuilder data;
    data.reportStep();
    for (int i = 0; i < 50; ++i)
        data.miniStep(i, valuesAt(static_cast<float>(i)));
    const std::string file = summaryCase.write("CASE.UNSMRY", data);
    std::atomic<int> wrong{0};
    const auto readAll = [&] {
        for (int round = 0; round < 20; ++round) {
            const auto reader = SimpleSummaryReader::create(spec, {file}, summaryCase.directory(), "CASE",
                                                            ISummaryReader::ReadWriteCache);
            for (const auto& id : reader->allVectorIDs()) {
                const auto values = reader->getValues(id);
                if (!id.validWithType() || !values || values->size() != 50)
                    ++wrong;
            }
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i)
        threads.emplace_back(readAll);
    for (int i = 0; i < 200; ++i)
        SummaryReaderEnvironment::setDataAccessorFactory(i % 2 ? std::make_unique<SummaryDataLoaderSimpleFactory>()
                                                               : nullptr);
    for (auto& thread : threads)
        thread.join();
    SummaryReaderEnvironment::setDataAccessorFactory(nullptr);
    EXPECT_EQ(wrong, 0);
}

} // namespace

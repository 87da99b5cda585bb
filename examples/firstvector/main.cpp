#include <iostream>
#include <mrlio/MrlIO.h>
using namespace Kvt::Mrl::MrlIO;

int main()
{
    const CaseFileFinder finder("FIVESPOT", "build/demo");
    const auto format = FileIdentifiers::DataFormat::DefaultAll();
    const auto spec = std::make_shared<SummarySpecData>(FileFinders::Summary::findSpecFile(finder, format));
    const auto reader = SimpleSummaryReader::create(spec, FileFinders::Summary::findSummaryFiles(finder, format),
                                                    "build/demo", "FIVESPOT", ISummaryReader::ReadWriteCache);
    const SummaryVectorIDParams wanted("WOPR", "PROD1", -1, "", -1, -1, -1);
    for (const SummaryVectorIDParams& vector : reader->allVectorIDs()) {
        if (vector.compareWithType(wanted) != 0) // by what tells vectors of a well apart: keyword and name
            continue;
        const auto rate = reader->getValues(vector);
        for (std::size_t n = 0; rate && n < rate->size(); ++n)
            std::cout << reader->timeStepDays()[n] << " days: " << (*rate)[n] << " sm3/day\n";
    }
}

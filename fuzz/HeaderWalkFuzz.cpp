// A walk that skims over the headers of any unformatted file has to meet what a reader meets: the same headers, data and
// failures. The first byte tells what is read on the way, and whether the file grows or shrinks during the walk; the
// next three tell when, and at which length.
#include "support/Answers.h"
#include "wellresults/KeywordScan.h"

#include <mrlio/MrlIOException.h>

#include <algorithm>
#include <filesystem>

namespace {

using namespace MrlIOFuzz;
using namespace Kvt::Mrl::MrlIO;

constexpr std::size_t mostBytes = 65536;
constexpr std::size_t choiceBytes = 4;

using Walk = KeywordScan<MrlIOException>;

enum class Change
{
    None,
    Grows,
    Shrinks
};

struct Choices
{
    explicit Choices(const std::uint8_t* data)
        : reading(data[0] & 7),
          change(static_cast<Change>((data[0] >> 3 & 3) % 3)),
          step(data[1]),
          length(static_cast<std::size_t>(data[2] << 8 | data[3]))
    {}

    int reading;
    Change change;
    int step; // ahead of which the file changes
    std::size_t length;
};

/// By the type that the header tells.
void readAsStored(Walk& walk, Answers& answers)
{
    switch (walk.header().valueType()) {
    case ValueType::DOUB:
        return answers.add(walk.doubles());
    case ValueType::REAL:
        return answers.add(walk.floats());
    case ValueType::INTE:
    case ValueType::LOGI:
        return answers.add(walk.integers());
    default:
        return answers.add(walk.strings());
    }
}

void readData(Walk& walk, int reading, int step, Answers& answers)
{
    switch (reading == 7 ? step % 7 : reading) {
    case 0:
        return;
    case 1:
        return readAsStored(walk, answers);
    case 2:
        return answers.add(walk.integers());
    case 3:
        return answers.add(walk.floats());
    case 4:
        return answers.add(walk.strings());
    case 5:
        return answers.add(walk.strings(2));
    default:
        answers.add(walk.strings(1));
        return answers.add(walk.strings());
    }
}

void addHeader(Walk& walk, bool asksAll, NameSequence& names, Answers& answers)
{
    answers.add(walk.name());
    answers.add(walk.size());
    answers.add(walk.number(names));
    if (!asksAll)
        return;
    const KeywordHeader header = walk.header();
    answers.add(header.name());
    answers.add(header.size());
    answers.add(static_cast<int>(header.valueType()));
    answers.add(header.valueTypeInfo().intData());
    answers.add(header.keywordLargePos());
    answers.add(header.second_keywordLargePos());
}

class WalkCheck
{
public:
    WalkCheck(const Scratch& scratch, const Choices& choices, std::string_view bytes)
        : scratch_(scratch),
          choices_(choices),
          bytes_(bytes)
    {}

    Answers answers(bool skims) const
    {
        Answers answers;
        const std::size_t length = std::min(choices_.length, bytes_.size());
        const std::string file =
            scratch_.write("CASE.RFT", choices_.change == Change::Grows ? bytes_.substr(0, length) : bytes_);
        answers.ask([&] {
            Walk walk("walk", file, false);
            if (skims)
                walk.skimHeaders();
            NameSequence names{"TIME", "DATE"};
            for (int step = 0; goOn(walk, step, length, answers); ++step) {
                addHeader(walk, step % 3 != 2, names, answers);
                answers.ask([&] { readData(walk, choices_.reading, step, answers); });
            }
            answers.add(walk.name());
        });
        return answers;
    }

private:
    bool goOn(Walk& walk, int step, std::size_t length, Answers& answers) const
    {
        if (step == choices_.step && choices_.change == Change::Grows)
            std::ofstream(scratch_.path("CASE.RFT"), std::ios::binary | std::ios::app) << bytes_.substr(length);
        if (step == choices_.step && choices_.change == Change::Shrinks)
            std::filesystem::resize_file(scratch_.path("CASE.RFT"), length);
        answers.add(step);
        return walk.next();
    }

    const Scratch& scratch_;
    const Choices& choices_;
    std::string_view bytes_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Scratch scratch;
    if (size < choiceBytes || size > mostBytes)
        return 0;
    const Choices choices(data);
    const WalkCheck check(scratch, choices, textOf(data + choiceBytes, size - choiceBytes));
    const Answers skimmed = check.answers(true);
    const Answers read = check.answers(false);
    // How much of a file that shrinks has been read ahead is up to the walk.
    require(choices.change == Change::Shrinks || skimmed == read, "a walk that skims meets what a reader meets");
    return 0;
}

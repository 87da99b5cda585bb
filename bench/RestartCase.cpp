#include "RestartCase.h"

#include "Floor.h"

#include <map>
#include <memory>

namespace bench {

namespace {

constexpr int notSet = -2345;

/// Writes a data file and remembers what its index file has to list of the step under way.
class IndexedWriter
{
public:
    IndexedWriter(const std::string& dataFile, const std::string& specFile) : data_(dataFile), spec_(specFile) {}

    void lead(const std::vector<std::int32_t>& intehead) { spec_.keyword("INTEHEAD", intehead); }

    void empty(const char* name) { header(data_, name, 0, "MESS"); }

    void integers(const char* name, const std::vector<std::int32_t>& values)
    {
        data_.keyword(name, values);
        position_ += 24 + 4 * static_cast<std::int64_t>(values.size()) + 8 * blocks(values.size());
    }

    void doubles(HandWriter& file, const char* name, const std::vector<double>& values)
    {
        file.doubles(name, values);
        if (&file == &data_)
            position_ += 32 + 8 * static_cast<std::int64_t>(values.size());
    }

    void headers(const std::vector<std::int32_t>& intehead, double days)
    {
        integers("INTEHEAD", intehead);
        header(data_, "LOGIHEAD", 15, "LOGI");
        data_.integer(60);
        for (int word = 0; word < 15; ++word)
            data_.integer(0);
        data_.integer(60);
        position_ += 68;
        std::vector<double> doubhead(162, 0.0);
        doubhead[0] = days;
        doubles(data_, "DOUBHEAD", doubhead);
    }

    std::int64_t reals(const std::string& name, const std::vector<float>& values)
    {
        const std::int64_t at = position_;
        names_.push_back(name);
        numbers_.push_back(static_cast<std::int32_t>(values.size()));
        positions_.push_back(at);
        header(data_, name.c_str(), static_cast<std::int32_t>(values.size()), "REAL");
        data_.reals(values.data(), values.size());
        position_ += 4 * static_cast<std::int64_t>(values.size()) + 8 * blocks(values.size());
        return at;
    }

    void time(double days, int step)
    {
        doubles(spec_, "TIME", {days});
        std::vector<std::int32_t> itime(13, notSet);
        itime[0] = step;
        itime[1] = 1;
        itime[2] = 1;
        itime[3] = 2020;
        itime[10] = itime[11] = itime[12] = 0;
        spec_.keyword("ITIME", itime);
    }

    void section()
    {
        std::vector<std::int32_t> low, high;
        for (const std::int64_t position : positions_) {
            low.push_back(static_cast<std::int32_t>(position & 0x7fffffff));
            high.push_back(static_cast<std::int32_t>(position >> 31));
        }
        spec_.texts("NAME", names_);
        spec_.texts("TYPE", std::vector<std::string>(names_.size(), "REAL"));
        spec_.keyword("NUMBER", numbers_);
        spec_.keyword("POINTER", low);
        spec_.keyword("POINTERB", high);
        doubles(spec_, "ARRAYMAX", std::vector<double>(names_.size(), 300.0));
        doubles(spec_, "ARRAYMIN", std::vector<double>(names_.size(), 0.0));
        names_.clear();
        numbers_.clear();
        positions_.clear();
    }

private:
    static std::int64_t blocks(std::size_t count)
    {
        return static_cast<std::int64_t>((count + blockLength - 1) / blockLength);
    }

    void header(HandWriter& file, const char* name, std::int32_t count, const char* type)
    {
        file.header(name, count, type);
        if (&file == &data_)
            position_ += 24;
    }

    HandWriter data_, spec_;
    std::int64_t position_ = 0;
    std::vector<std::string> names_;
    std::vector<std::int32_t> numbers_;
    std::vector<std::int64_t> positions_;
};

std::vector<std::int32_t> intehead(int nx, int ny, int nz, int active)
{
    std::vector<std::int32_t> words(411, notSet);
    words[2] = 1;
    words[8] = nx;
    words[9] = ny;
    words[10] = nz;
    words[11] = active;
    words[14] = 7;
    words[64] = words[65] = 1;
    words[66] = 2020;
    words[206] = words[207] = words[410] = 0;
    return words;
}

} // namespace

std::string arrayName(int array)
{
    return "ARRAY" + std::to_string(array);
}

const StepsCase& stepsCase(int steps)
{
    static std::map<int, StepsCase> cases;
    const auto found = cases.find(steps);
    if (found != cases.end())
        return found->second;
    const std::string root = folder().file("STEPS" + std::to_string(steps));
    IndexedWriter writer(root + ".UNRST", root + ".RSSPEC");
    const auto head = intehead(StepsCase::cells, 1, 1, StepsCase::cells);
    const std::vector<float> values = someValues(StepsCase::cells);
    writer.lead(head);
    for (int step = 0; step < steps; ++step) {
        writer.integers("SEQNUM", {step});
        writer.headers(head, step);
        writer.empty("STARTSOL");
        for (int array = 0; array < StepsCase::arrays; ++array)
            writer.reals(arrayName(array), values);
        writer.empty("ENDSOL");
        writer.time(step, step);
        writer.section();
    }
    return cases[steps] = {steps, root + ".UNRST", root + ".RSSPEC"};
}

const HalfActiveCase& halfActiveCase(bool scattered)
{
    static std::map<bool, HalfActiveCase> cases;
    HalfActiveCase& made = cases[scattered];
    if (!made.active.empty())
        return made;
    std::uint32_t state = 1;
    std::vector<float> porv(HalfActiveCase::cells);
    for (int cell = 0; cell < HalfActiveCase::cells; ++cell) {
        state = state * 1664525U + 1013904223U;
        const bool isActive = scattered ? (state >> 31) != 0 : (cell / 300) % 2 == 0;
        made.active.push_back(isActive);
        made.activeCount += isActive ? 1 : 0;
        porv[static_cast<std::size_t>(cell)] = isActive ? 1000.0F : 0.0F;
    }
    const auto head = intehead(HalfActiveCase::nx, HalfActiveCase::ny, HalfActiveCase::nz, made.activeCount);
    const std::string root = folder().file(scattered ? "SCATTERED" : "RUNS");
    made.initFile = root + ".INIT";
    made.initSpecFile = root + ".INSPEC";
    made.dataFile = root + ".UNRST";
    made.specFile = root + ".RSSPEC";
    IndexedWriter init(made.initFile, made.initSpecFile);
    init.lead(head);
    init.headers(head, 0.0);
    init.reals("PORV", porv);
    init.section();
    IndexedWriter restart(made.dataFile, made.specFile);
    const std::vector<float> values = someValues(static_cast<std::size_t>(made.activeCount));
    restart.lead(head);
    restart.integers("SEQNUM", {0});
    restart.headers(head, 0.0);
    restart.empty("STARTSOL");
    made.pressurePosition = restart.reals("PRESSURE", values);
    restart.reals("SWAT", values);
    restart.empty("ENDSOL");
    restart.time(0.0, 0);
    restart.section();
    return made;
}

} // namespace bench

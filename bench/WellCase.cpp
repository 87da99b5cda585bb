#include "WellCase.h"

#include "Floor.h"

#include <memory>

namespace bench {

namespace {

constexpr const char* realArrays[] = {"DEPTH",    "PRESSURE", "SWAT",    "SGAS",    "CONDEPTH", "CONLENST",
                                      "CONLENEN", "CONPRES",  "CONORAT", "CONWRAT", "CONGRAT",  "CONOTUB",
                                      "CONWTUB",  "CONGTUB",  "CONVTUB", "CONVLUM"};

void writeWell(HandWriter& file, int well, const std::vector<float>& values)
{
    const std::string name = "WELL" + std::to_string(well);
    file.texts("WELLETC", {"  DAYS", name, "", "  METRES", "  BARSA", "", "STANDARD", " SM3/DAY", " SM3/DAY",
                           " RM3/DAY", " M/SEC", "", "  CP", " KG/SM3", " KG/DAY", " KG/KG"});
    for (const char* ijk : {"CONIPOS", "CONJPOS", "CONKPOS"})
        file.keyword(ijk, std::vector<std::int32_t>(WellCase::connections, 1 + well));
    file.texts("HOSTGRID", std::vector<std::string>(WellCase::connections));
    for (const char* array : realArrays) {
        file.header(array, WellCase::connections, "REAL");
        file.reals(values.data(), values.size());
    }
}

WellCase writeWellCase()
{
    static_assert(std::size(realArrays) + 4 == WellCase::arrays);
    WellCase written{folder().path(), "WELLS", folder().file("WELLS.RFT"), {}};
    const std::vector<float> values = someValues(WellCase::connections);
    constexpr std::int64_t frames = 32; // of the header, and of the one record of each keyword
    constexpr std::int64_t timeBytes = frames + 4, dateBytes = frames + 12;
    constexpr std::int64_t wellBytes = timeBytes + dateBytes + frames + 16 * 8 + WellCase::arrays * frames +
                                       (WellCase::arrays - 1) * 4 * WellCase::connections + 8 * WellCase::connections;
    HandWriter file(written.file);
    for (int date = 0; date < WellCase::dates; ++date) {
        const float days = 10.0F * static_cast<float>(date + 1);
        written.datePositions.push_back(std::int64_t{date} * WellCase::wells * wellBytes + timeBytes);
        for (int well = 0; well < WellCase::wells; ++well) {
            file.header("TIME", 1, "REAL");
            file.reals(&days, 1);
            file.keyword("DATE", {1 + date % 28, 1 + date / 28 % 12, 2000 + date / 336});
            writeWell(file, well, values);
        }
    }
    return written;
}

FluxCase writeFluxCase()
{
    FluxCase written;
    written.file = folder().file("FLUXES.FLUX");
    constexpr int count = FluxCase::connections;
    std::vector<std::int32_t> columns(6 * count);
    for (int n = 0; n < count; ++n) {
        const bool isOutward = n % 5 < 3;
        columns[n] = 1 + n;
        columns[count + n] = 2 + n;
        columns[2 * count + n] = 1;
        columns[3 * count + n] = isOutward ? 1 : 2;
        columns[4 * count + n] = isOutward ? 2 : 1;
        (isOutward ? written.outward : written.inward).push_back(n);
    }
    std::vector<double> values;
    for (const float value : someValues(count))
        values.push_back(value);
    std::vector<std::int32_t> intehead(210, -2345);
    intehead[2] = 1;
    intehead[8] = intehead[9] = intehead[10] = 100;
    intehead[209] = 1;

    HandWriter file(written.file);
    file.texts("FLUXTYPE", {"MA10", "FLUX", "MA10"});
    file.texts("RESTART", {"FULL"});
    file.keyword("RESTNUMB", {1});
    file.keyword("INTEHEAD", intehead);
    file.doubles("DOUBHEAD", {1e21});
    file.keyword("INDXFLUX", columns);
    const auto bytes = [](std::int64_t elements, std::int64_t width) {
        return 24 + elements * width + 8 * ((elements + 999) / 1000);
    };
    std::int64_t position = bytes(3, 8) + bytes(1, 8) + bytes(1, 4) + bytes(210, 4) + bytes(1, 8) + bytes(6 * count, 4);
    for (int range = 0; range < FluxCase::ranges; ++range) {
        file.keyword("ITIME", {range, 0, 0, 0, 0, 0, 0, 0, 0, 0});
        file.doubles("DTIME", {1.0 * range, 1.0 + range, 200.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0});
        position += bytes(10, 4) + bytes(10, 8);
        written.fluxPositions.push_back(position);
        file.doubles("OIL", values);
        position += bytes(count, 8);
    }
    return written;
}

} // namespace

const WellCase& wellCase()
{
    static const WellCase written = writeWellCase();
    return written;
}

const FluxCase& fluxCase()
{
    static const FluxCase written = writeFluxCase();
    return written;
}

} // namespace bench

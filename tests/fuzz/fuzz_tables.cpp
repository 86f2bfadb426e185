// Any text as a table of circuits or of places for hopcast-p533.
#include <algorithm>

#include "engine/run533/CircuitTable.h"
#include "engine/run533/PointTable.h"
#include "fuzz/FuzzCheck.h"
#include "system/TextLib.h"

namespace {

constexpr std::ptrdiff_t kRowsMost = 6;  // each row is computed

/// Every row has as many cells as the header, and no computed cell is "nan" or "inf".
void TableCheck(const std::string& sTable, std::string_view sFirstComputed)
{
    const auto asLine = TextLines(sTable);
    Check(!asLine.empty());
    const std::string_view sHead = asLine.front();
    const std::size_t nAt = sHead.find(sFirstComputed);
    Check(nAt != std::string_view::npos);
    const auto nGiven =
        std::count(sHead.begin(), sHead.begin() + static_cast<std::ptrdiff_t>(nAt), ',');
    const auto nCommas = std::count(sHead.begin(), sHead.end(), ',');
    for (std::size_t n = 1; n < asLine.size(); ++n) {
        std::string_view sRow = asLine[n];
        if (sRow.empty() && n + 1 == asLine.size())
            break;  // after the last line end
        Check(std::count(sRow.begin(), sRow.end(), ',') == nCommas);
        for (std::ptrdiff_t i = 0; i < nGiven; ++i) sRow.remove_prefix(sRow.find(',') + 1);
        Check(sRow.find("nan") == std::string_view::npos);
        Check(sRow.find("inf") == std::string_view::npos);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    const std::string_view sText = FuzzText(pBytes, nBytes);
    if (std::count(sText.begin(), sText.end(), '\n') > kRowsMost)
        return 0;
    for (const rec533::MapSet eMaps : {rec533::MapSet::Ccir, rec533::MapSet::Mean}) {
        const auto resCircuits = run533::CircuitTableMake(sText, rec533::Behaviour::Best, eMaps);
        Check(resCircuits || !resCircuits.TextGet().empty());
        if (resCircuits)
            TableCheck(resCircuits.ValueGet(), "dist_km");
        const auto resPoints = run533::PointTableMake(sText, rec533::Behaviour::Best, eMaps);
        Check(resPoints || !resPoints.TextGet().empty());
        if (resPoints)
            TableCheck(resPoints.ValueGet(), "fof2");
    }
    return 0;
}

// Any text as an area deck of the built-in engine, computed to its grid, which is read as the
// program reads it.
#include <cmath>

#include "engine/run533/Run.h"
#include "fuzz/FuzzPrefix.h"
#include "propagation/PropagationAreaLib.h"

namespace {

void GridCheck(const FuzzPrefix& prefix, const run533::AreaDeck& deck, const std::string& sGrid)
{
    prefix.Write("drive_c/itshfbc/areadata/working.rg1",
                 reinterpret_cast<const std::uint8_t*>(sGrid.data()), sGrid.size());
    AreaFile file;
    Check(!PropagationAreaOpenFile(kEngineRec533, file));
    for (int i = 0; i < deck.nGrid * deck.nGrid; ++i) {
        int iIndex1 = 0, iIndex2 = 0;
        double dLat = 0.0, dLon = 0.0;
        float fSnr = 0.0F;
        const auto res = PropagationAreaReadPoint(file, iIndex1, iIndex2, dLat, dLon, fSnr);
        Check(res && res.ValueGet());
        Check(iIndex1 == i / deck.nGrid + 1 && iIndex2 == i % deck.nGrid + 1);
        Check(std::abs(dLat) <= 90.0 && std::abs(dLon) <= 360.1);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    constexpr int kGridMost = 4;  // points a side; a grid of 999 takes minutes in the same code
    static const FuzzPrefix prefix;
    const std::string_view sDeck = FuzzText(pBytes, nBytes);
    const auto resDeck = run533::AreaDeckRead(sDeck);
    if (!resDeck) {
        Check(!resDeck.TextGet().empty());
        return 0;
    }
    if (resDeck.ValueGet().nGrid > kGridMost)
        return 0;
    const auto resGrid =
        run533::AreaOutputMake(sDeck, prefix.Path("drive_c/itshfbc"), rec533::Behaviour::Best, 1);
    if (!resGrid) {  // an antenna file is missing
        Check(resGrid.TextGet().find(" Ants") != std::string::npos);
        return 0;
    }
    // A place's name may be any text, even one that the reader searches for, but Hopcast writes no
    // such deck.
    if (resDeck.ValueGet().sTxName == "Transmitter")
        GridCheck(prefix, resDeck.ValueGet(), resGrid.ValueGet());
    return 0;
}

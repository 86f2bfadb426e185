// Any text as a deck that the launcher of VOACAP rewrites for voacapl.
#include <algorithm>
#include <cmath>

#include "engine/voacap/VoacapDeck.h"
#include "fuzz/FuzzCheck.h"

namespace {

/// Antennas are in the antenna folder, and the text ends with a line end.
void DeckCheck(const Result<VoacapDeck>& res)
{
    if (!res) {
        Check(!res.TextGet().empty());
        return;
    }
    const VoacapDeck& deck = res.ValueGet();
    Check(deck.sText.ends_with('\n'));
    for (const VoacapAntenna& antenna : deck.aAntennas) {
        // They become names in the run's folder.
        Check(antenna.sFolder.find('/') == std::string::npos && antenna.sFolder != "..");
        Check(!antenna.sFile.empty() && antenna.sFile.find('/') == std::string::npos
              && antenna.sFile != "..");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    constexpr int kGridMost = 999;
    constexpr std::size_t kFrequenciesMost = 10;
    const std::string_view sText = FuzzText(pBytes, nBytes);
    const auto resPoint = VoacapDeckPoint(sText);
    DeckCheck(resPoint);
    if (resPoint) {
        const auto& aFrequencies = resPoint.ValueGet().aFrequencies;
        Check(!aFrequencies.empty() && aFrequencies.size() <= kFrequenciesMost);
        Check(std::ranges::all_of(aFrequencies, [](double d) { return std::isfinite(d); }));
    }
    const auto resArea = VoacapDeckArea(sText);
    DeckCheck(resArea);
    if (resArea) {
        Check(resArea.ValueGet().nGrid >= 1 && resArea.ValueGet().nGrid <= kGridMost);
        Check(!resArea.ValueGet().aAntennas.empty());
    }
    return 0;
}

// Any text as a point-to-point deck of the built-in engine, computed to its page, which is read as
// the program reads it.
#include "engine/run533/Run.h"
#include "fuzz/FuzzPrefix.h"
#include "propagation/reader/ReaderLib.h"

namespace {

/// The reader accepts the whole page of a deck whose frequencies are all computed. The name of a
/// station or antenna may be any text, even one that the reader searches for, but Hopcast writes no
/// such deck.
void PageCheck(const FuzzFile& memory, const run533::PointDeck& deck, const std::string& sPage)
{
    if (deck.sTxName != "Transmit" || deck.sRxName != "Receieve")
        return;
    for (const auto* pCard : {&deck.common.txAntenna, &deck.common.rxAntenna})
        if (*pCard && (*pCard)->sName.find("FREQ") != std::string::npos)
            return;
    Request input;
    for (const double dMhz : deck.aFrequencies) {
        if (!run533::FrequencyUsable(dMhz))
            return;
        input.afFrequency.push_back(static_cast<float>(dMhz * 1000.0));
    }
    input.nData = static_cast<int>(deck.aFrequencies.size());
    PropagationTable table(input.nData);
    TextFile file = memory.Open(sPage);
    Check(static_cast<bool>(ReaderRec533(file, input, 1, input.nData, table)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    static const FuzzPrefix prefix;  // holds no antenna file
    static const FuzzFile memory;
    const std::string_view sDeck = FuzzText(pBytes, nBytes);
    const auto resDeck = run533::PointDeckRead(sDeck);
    const auto resPage =
        run533::PointOutputMake(sDeck, prefix.Path("drive_c/itshfbc"), rec533::Behaviour::Best);
    if (!resDeck) {
        Check(!resPage && !resDeck.TextGet().empty() && resPage.TextGet() == resDeck.TextGet());
        return 0;
    }
    if (!resPage) {  // an antenna file is missing
        Check(resPage.TextGet().find("ANTENNA") == 0);
        return 0;
    }
    Check(resPage.ValueGet().ends_with(" End-of-Run\n"));
    PageCheck(memory, resDeck.ValueGet(), resPage.ValueGet());
    return 0;
}

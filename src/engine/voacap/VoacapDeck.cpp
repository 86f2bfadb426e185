#include "engine/voacap/VoacapDeck.h"

#include <algorithm>

#include "propagation/deck/DeckLayout.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace {

constexpr int kGridMax = 999;  // the grid file counts its points in three columns

std::string ColumnsName(std::string_view sCard, const Field& fld)
{
    return std::string(sCard) + " card, columns " + NumberToText(fld.nCol) + "-"
           + NumberToText(fld.nCol + fld.nWidth - 1);
}

Result<double> NumberOf(std::string_view sCard, const Field& fld)
{
    return NumberFromText(TextColumns(sCard, fld.nCol, fld.nWidth));
}

Result<std::vector<double>> FrequenciesRead(std::string_view sCard)
{
    std::vector<double> aFrequencies;
    const std::string_view sUsed = sCard.substr(0, sCard.find_last_not_of(' ') + 1);
    for (Field fld = frequency_row::kFirst; fld.nCol <= static_cast<int>(sUsed.size());
         fld.nCol += fld.nWidth) {
        if (aFrequencies.size() == std::size_t{kChunkMax})
            return RunError{ColumnsName("FREQUENCY", fld) + ": more than 10 frequencies"};
        const auto resMHz = NumberOf(sUsed, fld);
        if (!resMHz)
            return RunError{ColumnsName("FREQUENCY", fld) + ": no number"};
        aFrequencies.push_back(resMHz.ValueGet());
    }
    if (aFrequencies.empty())
        return RunError{"FREQUENCY card: no frequency"};
    return aFrequencies;
}

/// The antenna file between the brackets of a card, "[DEFAULT\CONST17.VOA  ]" or
/// "[DEFAULT \SWWHIP.VOA  ]".
Result<VoacapAntenna> AntennaRead(std::string_view sCard)
{
    const std::size_t nOpen = sCard.find('[');
    const std::size_t nClose = sCard.find(']', std::min(nOpen, sCard.size()));
    if (nClose != std::string_view::npos) {
        const std::string_view sName = sCard.substr(nOpen + 1, nClose - nOpen - 1);
        const std::size_t nSlash = sName.find('\\');
        const std::string sFolder(TextTrim(sName.substr(0, nSlash)));
        const std::string sFile(nSlash == std::string_view::npos
                                    ? std::string_view()
                                    : TextTrim(sName.substr(nSlash + 1)));
        const auto fnUsable = [](const std::string& s) {
            return !s.empty() && !s.starts_with('.') && s.find_first_of("/\\") == std::string::npos;
        };
        if (fnUsable(sFolder) && fnUsable(sFile))
            return VoacapAntenna{sFolder, sFile};
    }
    return RunError{"antenna card without a file name in brackets: " + std::string(sCard)};
}

Result<void> AntennaAdd(VoacapDeck& deck, std::string_view sCard)
{
    auto resAntenna = AntennaRead(sCard);
    if (!resAntenna)
        return resAntenna.ErrorGet();
    deck.aAntennas.push_back(resAntenna.ValueGet());
    return {};
}

/// The line with the label that voacapl expects; the rest is unchanged.
std::string AreaLineTranslate(std::string_view sLine)
{
    struct Label {
        std::string_view sOurs, sPort;
    };
    constexpr Label kLabels[] = {{"PCenter  :", "Pcenter  :"}, {"Sssns    :", "Ssns     :"}};
    for (const Label& label : kLabels)
        if (sLine.starts_with(label.sOurs))
            return std::string(label.sPort) + std::string(sLine.substr(label.sOurs.size()));
    return std::string(sLine);
}

Result<int> GridSizeRead(std::string_view sLine)
{
    const auto resGrid = NumberOf(sLine, area_value_row::kGridSize);
    if (resGrid) {
        const int nGrid = static_cast<int>(std::clamp(resGrid.ValueGet(), 0.0, kGridMax + 1.0));
        if (nGrid >= 1 && nGrid <= kGridMax)
            return nGrid;
    }
    return RunError{ColumnsName("Gridsize", area_value_row::kGridSize)
                    + ": no grid size of 1 to 999"};
}

}  // namespace

Result<VoacapDeck> VoacapDeckPoint(std::string_view sDeck)
{
    VoacapDeck deck;
    bool bAfterFrequency = false;
    for (const std::string_view sLine : TextLines(sDeck)) {
        if (bAfterFrequency && TextTrim(sLine).empty())
            continue;
        bAfterFrequency = sLine.starts_with("FREQUENCY");
        if (bAfterFrequency) {
            auto resFrequencies = FrequenciesRead(sLine);
            if (!resFrequencies)
                return resFrequencies.ErrorGet();
            deck.aFrequencies = resFrequencies.ValueGet();
        }
        if (sLine.starts_with("ANTENNA"))
            if (const auto resAdded = AntennaAdd(deck, sLine); !resAdded)
                return resAdded.ErrorGet();
        deck.sText.append(sLine).push_back('\n');
    }
    if (deck.aFrequencies.empty())
        return RunError{"no FREQUENCY card"};
    return deck;
}

Result<VoacapDeck> VoacapDeckArea(std::string_view sDeck)
{
    VoacapDeck deck;
    for (const std::string_view sLine : TextLines(sDeck)) {
        if (sLine.starts_with("Qindexs  :"))
            continue;
        if (sLine.starts_with("Gridsize :")) {
            const auto resGrid = GridSizeRead(sLine);
            if (!resGrid)
                return resGrid.ErrorGet();
            deck.nGrid = resGrid.ValueGet();
        }
        if (sLine.starts_with("Rec Ants :") || sLine.starts_with("Tx Ants  :"))
            if (const auto resAdded = AntennaAdd(deck, sLine); !resAdded)
                return resAdded.ErrorGet();
        deck.sText.append(AreaLineTranslate(sLine)).push_back('\n');
    }
    if (deck.nGrid == 0)
        return RunError{"no Gridsize card"};
    // voacapl would use random memory as an antenna's name.
    if (deck.aAntennas.empty())
        return RunError{"no antenna card"};
    return deck;
}

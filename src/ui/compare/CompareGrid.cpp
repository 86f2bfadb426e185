#include "ui/compare/CompareGrid.h"

#include <QObject>
#include <algorithm>
#include <cmath>

#include "propagation/SnrScale.h"
#include "system/NumberLib.h"

namespace {

QString Whole(float fValue) { return QString::fromStdString(NumberFormat(fValue, "0")); }

QString Signed(float fValue)
{
    const QString sWhole = Whole(std::abs(fValue));
    if (sWhole == QStringLiteral("0"))
        return sWhole;
    return (fValue > 0.0F ? u'+' : u'-') + sWhole;
}

GridCell CellEmpty()
{
    GridCell cell;
    cell.bHatch = true;
    return cell;
}

GridCell SnrCell(const CompareSides& sides, std::size_t iSide, int iHour, int iFrequency)
{
    const auto& table = sides.aTable.at(iSide);
    if (!table || !table->PresentIs(iFrequency))
        return CellEmpty();
    const float fSnr = SnrShownGet(table->fSnr(iHour, iFrequency));
    const SnrBand& band = SnrBandOfCell(fSnr);
    GridCell cell;
    cell.sText = Whole(fSnr);
    cell.clrBack = ColorFromBgr(band.nColor);
    cell.clrFore = ColorFromBgr(band.nText);
    cell.bMet = fSnr >= sides.fNeed;
    return cell;
}

GridCell CellOf(const CompareSides& sides, CompareView eView, int iHour, int iFrequency)
{
    if (eView != CompareView::Difference)
        return SnrCell(sides, eView == CompareView::A ? 0 : 1, iHour, iFrequency);
    const float fDifference = sides.compare ? sides.compare->fDifference(iHour, iFrequency)
                                            : PropagationTable::kNotPrinted;
    if (std::isnan(fDifference))
        return CellEmpty();
    GridCell cell;
    cell.sText = Signed(fDifference);
    cell.clrBack = CompareColor(fDifference);
    cell.clrFore = TextColorOn(cell.clrBack);
    return cell;
}

QString RowText(const PropagationTable& table, int iFrequency)
{
    return Whole(table.request.FrequencyGet(iFrequency));
}

void CellPut(GridControl& grd, int iRow, int iCol, const GridCell& cell)
{
    grd.TextSet(iRow, iCol, cell.sText);
    grd.ColorSet(iRow, iCol, cell.clrBack, cell.clrFore);
    grd.HatchSet(iRow, iCol, cell.bHatch);
    grd.MetSet(iRow, iCol, cell.bMet);
}

}  // namespace

const PropagationTable* CompareSides::FirstGet() const
{
    for (const auto& table : aTable)
        if (table)
            return &*table;
    return nullptr;
}

QColor CompareColor(float fDifference)
{
    constexpr float kFull = 20.0F;  // dB; full colour from here on
    const QColor clrFull = fDifference > 0.0F ? QColor(0xF2, 0x96, 0x32) : QColor(0x62, 0xA2, 0xE8);
    const float fShare = std::min(1.0F, std::abs(fDifference) / kFull);
    constexpr int kWhite = 255;
    const auto Part = [fShare](int nFull) {
        return kWhite + static_cast<int>(std::lround(static_cast<float>(nFull - kWhite) * fShare));
    };
    return {Part(clrFull.red()), Part(clrFull.green()), Part(clrFull.blue())};
}

void CompareGridFill(GridControl& grd, const CompareSides& sides, CompareView eView)
{
    const PropagationTable* pFirst = sides.FirstGet();
    const int nRows = pFirst != nullptr ? pFirst->nData : 0;
    grd.RedrawSet(false);
    grd.RowsSet(nRows + 1);
    for (int i = 1; i <= nRows; ++i) {
        grd.TextSet(i, 0, RowText(*pFirst, i));
        for (int iHour = 1; iHour <= kHourCount; ++iHour)
            CellPut(grd, i, iHour, CellOf(sides, eView, iHour, i));
    }
    grd.RedrawSet(true);
}

PageGrid ComparePageGrid(const CompareSides& sides, CompareView eView, const HourLabels& asHour)
{
    const PropagationTable* pFirst = sides.FirstGet();
    QStringList asColumn;
    for (const QString& sHour : asHour) asColumn.append(sHour);
    std::vector<QStringList> aRow;
    for (int i = 1; pFirst != nullptr && i <= pFirst->nData; ++i)
        aRow.push_back({RowText(*pFirst, i)});
    PageGrid grid = PageGridMake({QObject::tr("kHz")}, asColumn, aRow);
    for (int iRow = 0; iRow < grid.RowsGet(); ++iRow) {
        for (int iHour = 1; iHour <= kHourCount; ++iHour) {
            const GridCell cell = CellOf(sides, eView, iHour, iRow + 1);
            // A difference cannot meet a need: its number stays plain.
            const bool bStrong =
                cell.bMet || (eView == CompareView::Difference && !cell.sText.isEmpty());
            grid.CellGet(iRow, iHour - 1) = {cell.sText, cell.clrBack, bStrong, cell.bHatch};
        }
    }
    return grid;
}

QString CompareCellText(const CompareSides& sides, int iHour, int iFrequency,
                        const HourLabels& asHour)
{
    const PropagationTable* pFirst = sides.FirstGet();
    if (pFirst == nullptr || iFrequency > pFirst->nData || iHour > kHourCount)
        return {};
    QStringList asValue;
    for (const std::size_t iSide : {0U, 1U}) {
        const QString sValue = SnrCell(sides, iSide, iHour, iFrequency).sText;
        asValue.append(QString::fromStdString(sides.asName.at(iSide)) + u' '
                       + (sValue.isEmpty() ? QObject::tr("no value") : sValue));
    }
    const QString sDifference = CellOf(sides, CompareView::Difference, iHour, iFrequency).sText;
    if (!sDifference.isEmpty())
        asValue.append(QObject::tr("difference %1").arg(sDifference));
    return QObject::tr("%1 kHz, %2 h: %3")
        .arg(RowText(*pFirst, iFrequency), asHour.at(static_cast<std::size_t>(iHour) - 1),
             asValue.join(QStringLiteral(", ")));
}

// The SNR overlay of the map window.
#include <utility>

#include "propagation/PropagationInput.h"
#include "propagation/PropagationTable.h"
#include "system/ClockLib.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"
#include "system/RunErrorText.h"
#include "ui/map/MapGraticule.h"
#include "ui/map/MapPaint.h"
#include "ui/map/frmMap.h"

namespace {

QString HourText(int iHour)
{
    return QString::fromStdString(NumberFormat(static_cast<double>(iHour), "00") + ":00");
}

/// The busy pointer while it lives.
class PointerBusy {
public:
    explicit PointerBusy(QWidget* pWindow) : m_pWindow(pWindow)
    {
        m_pWindow->setCursor(Qt::BusyCursor);
    }
    ~PointerBusy() { m_pWindow->unsetCursor(); }
    PointerBusy(const PointerBusy&) = delete;
    PointerBusy& operator=(const PointerBusy&) = delete;

private:
    QWidget* m_pWindow;
};

}  // namespace

/// Busy flag and pointer from here to the end, also of one by an error.
class frmMap::OverlayBusy {
public:
    explicit OverlayBusy(frmMap& frm) : m_frm(frm), m_pointer(&frm) { m_frm.m_bOverlayBusy = true; }
    ~OverlayBusy() { m_frm.m_bOverlayBusy = false; }
    OverlayBusy(const OverlayBusy&) = delete;
    OverlayBusy& operator=(const OverlayBusy&) = delete;

private:
    frmMap& m_frm;
    PointerBusy m_pointer;
};

void frmMap::cmdOverlayClick() { mnuOverlay->popup(cmdOverlay->mapToGlobal(QPoint(0, 0))); }

void frmMap::OverlayFollowSelection()
{
    if (m_bOverlayChosen)
        return;
    const PropagationInput input = m_host.TableInputGet();
    const SelectedCell cell = m_host.DataGetSelected();
    const bool bSelected = cell.iHour >= 1 && cell.iHour <= kHourCount && cell.iFrequency >= 1
                           && cell.iFrequency <= input.nData;
    m_iOverlayFrequency = bSelected ? cell.iFrequency : 1;
    m_fOverlayFrequency = input.nData > 0 ? input.FrequencyGet(m_iOverlayFrequency)
                                          : m_host.FrequencyGet(m_iOverlayFrequency);
    m_iOverlayHour = bSelected ? cell.iHour - 1 : UtcNow().nHour;
}

void frmMap::mnuOverlayOpen()
{
    OverlayFollowSelection();
    mnuOverlayFrequencyFill();
    mnuOverlayTimeFill();
    mnuOverlayDraw->setText(QStringLiteral("Display, %1 Khz, @ %2")
                                .arg(QString::fromStdString(NumberFormat(m_fOverlayFrequency, "0")),
                                     HourText(m_iOverlayHour)));
}

void frmMap::mnuOverlayFrequencyFill()
{
    constexpr int kShortText = 4;
    mnuOverlayFrequency->clear();
    mnuOverlayFrequencyData.clear();
    const PropagationInput input = m_host.TableInputGet();
    for (int i = 0; i < input.nData; ++i) {
        QString sText = QString::fromStdString(NumberFormat(input.FrequencyGet(i + 1), "0"));
        if (sText.size() == kShortText)
            sText += QStringLiteral("  ");  // the list lines up
        QAction* pItem = ItemMake(mnuOverlayFrequency,
                                  ("mnuOverlayFrequencyData" + std::to_string(i)).c_str(), sText);
        pItem->setCheckable(true);
        pItem->setChecked(i + 1 == m_iOverlayFrequency);
        connect(pItem, &QAction::triggered, this, [this, i] { mnuOverlayFrequencyDataClick(i); });
        mnuOverlayFrequencyData.push_back(pItem);
    }
    mnuOverlayFrequency->setEnabled(input.nData > 0);
}

void frmMap::mnuOverlayTimeFill()
{
    mnuOverlayTime->clear();
    mnuOverlayTimeData.clear();
    for (int i = 0; i < kHourCount; ++i) {
        QAction* pItem = ItemMake(mnuOverlayTime,
                                  ("mnuOverlayTimeData" + std::to_string(i)).c_str(), HourText(i));
        pItem->setCheckable(true);
        pItem->setChecked(i == m_iOverlayHour);
        connect(pItem, &QAction::triggered, this, [this, i] { mnuOverlayTimeDataClick(i); });
        mnuOverlayTimeData.push_back(pItem);
    }
}

void frmMap::mnuOverlayFrequencyDataClick(int iIndex)
{
    const PropagationInput input = m_host.TableInputGet();
    if (iIndex >= input.nData)
        return;  // the table has changed under the open menu
    m_iOverlayFrequency = iIndex + 1;
    m_fOverlayFrequency = input.FrequencyGet(m_iOverlayFrequency);
    OverlayChosen();
}

void frmMap::mnuOverlayTimeDataClick(int iHour)
{
    m_iOverlayHour = iHour;
    OverlayChosen();
}

/// The main window's selection goes along. A choice made while the overlay is shown runs the draw
/// item, which then hides the overlay; this is intended.
void frmMap::OverlayChosen()
{
    m_bOverlayChosen = true;
    m_host.DataSetSelected(m_iOverlayFrequency, m_iOverlayHour + 1);
    if (mnuOverlayDraw->isChecked())
        mnuOverlayDrawClick();
    pctMap->update();  // the day/night line follows the hour
}

void frmMap::mnuOverlayDrawClick()
{
    mnuOverlayDraw->setChecked(!mnuOverlayDraw->isChecked());
    ViewRepaint();
    if (mnuOverlayDraw->isChecked())
        OverlayShow();
    else
        m_host.OverlayFailedSet({});
}

/// Draws the overlay and tells the error that nobody has told; what was told also goes into the
/// main window's status line.
void frmMap::OverlayShow()
{
    const MsgListener listener;
    if (const Result<void> resDrawn = OverlayDraw(); !resDrawn)
        MsgBox(MsgIcon::None, "Unable to read the overlay's grid, " + resDrawn.TextGet());
    m_host.OverlayFailedSet(listener.LastGet());
}

void frmMap::MapOutline()
{
    const PointerBusy pointer(this);
    ImageOutline(pctMap->m_img);
}

Result<void> frmMap::OverlayDraw()
{
    const OverlayBusy busy(*this);
    for (const OverlayBox& box : OverlayGetBoxes(m_view.m_box)) {
        const Result<bool> resBox = OverlayDrawBox(box);
        if (!resBox)
            return resBox.ErrorGet();
        if (!resBox.ValueGet())
            break;
    }
    return {};
}

Result<bool> frmMap::OverlayDrawBox(const OverlayBox& box)
{
    constexpr float kKhzPerMhz = 1000.0F;
    PropagationAreaInput input = PropagationAreaInputFromSettings(m_host.SettingsGet());
    input.iHour = m_iOverlayHour;
    input.fFrequency = m_fOverlayFrequency / kKhzPerMhz;
    input.dWest = box.dLeft;
    input.dEast = box.dRight;
    input.dSouth = box.dBottom;
    input.dNorth = box.dTop;
    input.dFixedLat = m_posRc.dLat;
    input.dFixedLon = m_posRc.dLon;
    AreaFile file;
    if (!PropagationAreaOpen(input, file) || !PropagationAreaOpenFile(input.iModel, file))
        return false;
    const auto nPoints = static_cast<std::size_t>(input.nGridSize) * input.nGridSize;
    auto resPoints = GridRead(file, nPoints);  // whole before anything is painted
    if (!resPoints)
        return resPoints.ErrorGet();
    if (resPoints.ValueGet().size() < nPoints)
        return RunError{kInputPastEnd};
    setWindowTitle(QStringLiteral("Snr Overlay, %1KHz @ %2")
                       .arg(QString::fromStdString(NumberFormat(m_fOverlayFrequency, "0.0")),
                            HourText(m_iOverlayHour)));
    const CellPaint cell{box, input.nGridSize, m_host.SettingsGet().m_fMapOverlayMinSnr,
                         [this](float fSnr) { return m_host.SnrGetColor(fSnr); }};
    CellsPaint(pctMap->m_img, m_view, cell, resPoints.ValueGet());
    GraticuleLabelsPaint(pctMap->m_img, m_view, font());  // readable above dark cells
    pctMap->update();
    m_grid.Keep(input.iModel, std::move(resPoints.ValueGet()));
    return true;
}

std::optional<float> frmMap::OverlayGetSnr(double dLat, double dLon)
{
    if (m_bOverlayBusy)
        return {};
    return GridGetNearest(m_grid.PointsGet(m_host.SettingsGet().m_iPropagationModel), dLat, dLon);
}

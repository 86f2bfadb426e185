// The SNR overlay of the map window.
#include <utility>

#include "propagation/PropagationTable.h"
#include "propagation/Request.h"
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

/// What the map says of a failed run.
std::string OverlayTroubleText(const Failure& failure)
{
    if (failure.eKind == FailureKind::Timeout)
        return "No overlay: the engine took too long; Options, Map, a smaller grid";
    return "No overlay: " + failure.sText.substr(0, failure.sText.find_first_of("\r\n"));
}

Failure GridUnread(const std::string& sError)
{
    Failure failure{FailureKind::BadOutput, "Unable to read the overlay's grid, " + sError};
    failure.eIcon = MsgIcon::None;
    return failure;
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
    const Request input = m_host.TableInputGet();
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
    const Request input = m_host.TableInputGet();
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
    const Request input = m_host.TableInputGet();
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
    ViewPaint();
    if (mnuOverlayDraw->isChecked())
        OverlayShow();
}

/// Draws the overlay; why it failed is told by a box and in the main window's status line.
void frmMap::OverlayShow()
{
    m_tmrOverlay.stop();
    const std::optional<Failure> failure = OverlayDraw();
    if (failure)
        MsgBox(failure->eIcon, failure->sText);
    OverlayFailedSet(failure);
    pctMap->update();
}

/// The view's picture anew, and the overlay where it is shown.
void frmMap::OverlayAgain()
{
    const bool bShown = mnuOverlayDraw->isChecked();
    if (bShown && (m_bBand || m_bPan || m_pDragged != nullptr)) {
        OverlayLater();
        return;
    }
    ViewPaint();
    if (bShown)
        OverlayShow();
}

void frmMap::OverlayLater()
{
    if (mnuOverlayDraw->isChecked())
        m_tmrOverlay.start();
}

/// Tells in the status line and on the map why there is no overlay; nothing takes it back.
void frmMap::OverlayFailedSet(const std::optional<Failure>& failure)
{
    if (failure == m_overlayFailed)
        return;
    m_overlayFailed = failure;
    m_host.OverlayFailedSet(failure);
    if (failure)
        txtCursor->setText(QString::fromStdString(OverlayTroubleText(*failure)));
    txtCursor->setVisible(failure.has_value());
}

bool frmMap::LegendIsShown() const { return mnuOverlayDraw->isChecked() && !m_grid.IsEmpty(); }

void frmMap::MapOutline()
{
    const PointerBusy pointer(this);
    ImageOutline(pctMap->m_img);
}

std::optional<Failure> frmMap::OverlayDraw()
{
    const OverlayBusy busy(*this);
    m_grid.Clear();
    for (const AreaBox& box : OverlayGetBoxes(m_view.m_box, m_view.m_dEdge))
        if (auto failure = OverlayDrawBox(box))
            return failure;
    return {};
}

std::optional<Failure> frmMap::OverlayDrawBox(const AreaBox& box)
{
    constexpr float kKhzPerMhz = 1000.0F;
    AreaRequest input = AreaRequestFromSettings(m_host.SettingsGet());
    input.iHour = m_iOverlayHour;
    input.fFrequency = m_fOverlayFrequency / kKhzPerMhz;
    input.dWest = box.dLeft;
    input.dEast = box.dRight;
    input.dSouth = box.dBottom;
    input.dNorth = box.dTop;
    input.dFixedLat = m_posRc.dLat;
    input.dFixedLon = m_posRc.dLon;
    AreaFile file;
    if (auto failure = PropagationAreaOpen(input, file))
        return failure;
    if (auto failure = PropagationAreaOpenFile(input.iModel, file))
        return failure;
    const auto nPoints = static_cast<std::size_t>(input.nGridSize) * input.nGridSize;
    const auto resPoints = GridRead(file, nPoints);  // whole before anything is painted
    if (!resPoints)
        return GridUnread(resPoints.TextGet());
    if (resPoints.ValueGet().size() < nPoints)
        return GridUnread(kInputPastEnd);
    setWindowTitle(QStringLiteral("Snr Overlay, %1KHz @ %2")
                       .arg(QString::fromStdString(NumberFormat(m_fOverlayFrequency, "0.0")),
                            HourText(m_iOverlayHour)));
    const CellPaint cell{AreaBoxPrinted(box), box, input.nGridSize,
                         m_host.SettingsGet().m_fMapOverlayMinSnr,
                         [this](float fSnr) { return m_host.SnrGetColor(fSnr); }};
    CellsPaint(pctMap->m_img, m_view, cell, resPoints.ValueGet());
    GraticuleLabelsPaint(pctMap->m_img, m_view, font());  // readable above dark cells
    m_grid.Add(resPoints.ValueGet());
    return {};
}

std::optional<float> frmMap::OverlayGetSnr(double dLat, double dLon)
{
    if (m_bOverlayBusy)
        return {};
    return m_grid.SnrGet(dLat, dLon);
}

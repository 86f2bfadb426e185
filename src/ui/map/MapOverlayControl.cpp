#include "ui/map/MapOverlayControl.h"

#include <QObject>
#include <utility>

#include "propagation/PropagationAreaLib.h"
#include "propagation/Request.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"
#include "ui/common/MainWindowHost.h"
#include "ui/common/Words.h"
#include "ui/map/MapGraticule.h"
#include "ui/map/MapOverlay.h"
#include "ui/map/MapOverlayMenu.h"
#include "ui/map/MapPaint.h"
#include "ui/map/MapSmooth.h"

namespace {

constexpr int kPause = 250;  // ms

/// The message on the map for a failed run.
std::string FailureText(const Failure& failure)
{
    if (failure.eKind == FailureKind::Timeout)
        return QObject::tr("No overlay: the engine took too long; Options, Map, a smaller grid")
            .toStdString();
    return WordsPut(QObject::tr("No overlay: %1"),
                    failure.sText.substr(0, failure.sText.find_first_of("\r\n")));
}

/// Shows the busy pointer while it exists.
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

/// Sets busy flag and pointer until it is destroyed, even after an error.
class MapOverlayControl::Busy {
public:
    explicit Busy(MapOverlayControl& overlay)
        : m_overlay(overlay), m_pointer(overlay.m_form.pctMap->window())
    {
        m_overlay.m_bBusy = true;
    }
    ~Busy() { m_overlay.m_bBusy = false; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    MapOverlayControl& m_overlay;
    PointerBusy m_pointer;
};

MapOverlayControl::MapOverlayControl(MapForm& form, MainWindowHost& host, MapOverlayMenu& menu)
    : m_form(form), m_host(host), m_menu(menu)
{
    m_tmrLater.setInterval(kPause);
    m_tmrLater.setSingleShot(true);
    connect(&m_tmrLater, &QTimer::timeout, this, &MapOverlayControl::Due);
    connect(form.mnuOverlayDraw, &QAction::triggered, this, [this](bool bNow) {
        m_form.mnuOverlayDraw->setChecked(!bNow);  // as it was when the user chose
        mnuOverlayDrawClick();
    });
    connect(form.mnuOverlaySmooth, &QAction::triggered, this, &MapOverlayControl::SmoothClick);
    // A choice made while the overlay is shown triggers the draw item, which hides the overlay:
    // cells of the old choice are never shown for the new one.
    connect(&menu, &MapOverlayMenu::Chosen, this, [this] {
        if (IsShown())
            mnuOverlayDrawClick();
    });
}

void MapOverlayControl::mnuOverlayDrawClick()
{
    m_form.mnuOverlayDraw->setChecked(!IsShown());
    Q_EMIT PictureNeeded();
    if (IsShown())
        Show();
}

void MapOverlayControl::Show()
{
    m_tmrLater.stop();
    const std::optional<Failure> failure = OverlayDraw();
    if (failure)
        MsgBox(failure->eIcon, failure->sText);
    FailureSet(failure);
    m_form.pctMap->update();
}

void MapOverlayControl::Later()
{
    if (IsShown())
        m_tmrLater.start();
}

void MapOverlayControl::PictureForget()
{
    m_grid.Clear();
    m_aShown.clear();
    FailureForget();
}

/// Shows the same values in another way; the engine does not run again.
void MapOverlayControl::SmoothClick()
{
    if (m_bBusy || !HasCells())
        return;
    const std::vector<OverlayShown> aShown = std::exchange(m_aShown, {});
    const std::optional<Failure> failure = m_failure;
    Q_EMIT PictureNeeded();
    for (const OverlayShown& shown : aShown) BoxPaint(shown);
    FailureSet(failure);
    m_form.pctMap->update();
}

void MapOverlayControl::FailureSet(const std::optional<Failure>& failure)
{
    if (failure == m_failure)
        return;
    m_failure = failure;
    m_host.OverlayFailedSet(failure);
    if (failure)
        m_form.txtCursor->setText(QString::fromStdString(FailureText(*failure)));
    m_form.txtCursor->setVisible(failure.has_value());
}

void MapOverlayControl::MapOutline()
{
    const PointerBusy pointer(m_form.pctMap->window());
    ImageOutline(m_form.pctMap->m_img);
}

std::optional<Failure> MapOverlayControl::OverlayDraw()
{
    const Busy busy(*this);
    m_grid.Clear();
    for (const AreaBox& box : OverlayGetBoxes(m_form.m_view.m_box, m_form.m_view.m_dEdge))
        if (auto failure = OverlayDrawBox(box))
            return failure;
    return {};
}

std::optional<Failure> MapOverlayControl::OverlayDrawBox(const AreaBox& box)
{
    constexpr float kKhzPerMhz = 1000.0F;
    const OverlayChoice& choice = m_menu.ChoiceGet();
    const Settings& settings = m_host.SettingsGet();
    AreaRequest input = AreaRequestFromSettings(settings);
    input.iHour = choice.iHour;
    input.fFrequency = choice.fKhz / kKhzPerMhz;
    input.dWest = box.dLeft;
    input.dEast = box.dRight;
    input.dSouth = box.dBottom;
    input.dNorth = box.dTop;
    input.dFixedLat = m_form.m_posRc.dLat;
    input.dFixedLon = m_form.m_posRc.dLon;
    std::vector<AreaPoint> aPoints;  // all of them, before anything is painted
    if (std::vector<Failure> aFailures = AreaPointsRead(input, aPoints); !aFailures.empty())
        return std::move(aFailures.front());
    BoxPaint({{AreaBoxPrinted(box), box, input.nGridSize, settings.m_fMapOverlayMinSnr,
               [this](float fSnr) { return m_host.SnrGetColor(fSnr); }},
              std::move(aPoints)});
    m_request = input;
    return {};
}

/// Paints a box into the picture and keeps it.
void MapOverlayControl::BoxPaint(const OverlayShown& shown)
{
    const OverlayChoice& choice = m_menu.ChoiceGet();
    QWidget* pWindow = m_form.pctMap->window();
    pWindow->setWindowTitle(QObject::tr("Snr Overlay, %1KHz @ %2")
                                .arg(QString::fromStdString(NumberFormat(choice.fKhz, "0.0")),
                                     OverlayHourText(choice.iHour)));
    const std::vector<AreaPoint>& aPoints = shown.aPoints;
    (IsSmooth() ? SmoothPaint : CellsPaint)(m_form.pctMap->m_img, m_form.m_view, shown.cell,
                                            aPoints);
    // Keeps the labels legible over dark cells.
    GraticuleLabelsPaint(m_form.pctMap->m_img, m_form.m_view, pWindow->font());
    m_grid.Add(aPoints);
    m_aShown.push_back(shown);
}

std::optional<float> MapOverlayControl::OverlayGetSnr(double dLat, double dLon) const
{
    if (m_bBusy || !IsShown())
        return {};
    if (IsSmooth())
        for (const OverlayShown& shown : m_aShown)
            if (const auto fSnr = SmoothGrid(shown.cell.m_box, shown.cell.nGridSize, shown.aPoints)
                                      .SnrGet(dLat, dLon))
                return fSnr;
    return m_grid.SnrGet(dLat, dLon);
}

#include "ui/map/MapDayControl.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

#include "propagation/itshfbc/ProcessEngine.h"
#include "settings/SettingsRange.h"
#include "system/NumberLib.h"
#include "ui/common/MainWindowHost.h"
#include "ui/map/HourBar.h"
#include "ui/map/MapGraticule.h"
#include "ui/map/MapOverlay.h"
#include "ui/map/MapOverlayControl.h"
#include "ui/map/MapOverlayMenu.h"
#include "ui/map/MapRange.h"
#include "ui/map/MapSmooth.h"

namespace {

constexpr int kPlayStep = 1000;  // ms per hour
constexpr int kWorkAfter = 300;  // ms
/// Most values of a day that are held at once; a finer grid is thinned out for the day. With the
/// deciles they take 64 MB.
constexpr std::size_t kValuesMost = 4'000'000;

int GridThin(int nGridSize, std::size_t nFrequencies, std::size_t nBoxes)
{
    const auto nEach = std::max<std::size_t>(nFrequencies * nBoxes * std::size_t{kHourCount}, 1);
    const auto nMost = static_cast<int>(std::sqrt(static_cast<double>(kValuesMost / nEach)));
    return std::min(nGridSize, std::max(nMost, kGridSizeMin));
}

}  // namespace

MapDayControl::MapDayControl(MapForm& form, MainWindowHost& host, MapOverlayMenu& menu,
                             MapOverlayControl& overlay, MapEngineFn fnEngine)
    : m_form(form), m_host(host), m_menu(menu), m_overlay(overlay), m_fnEngine(std::move(fnEngine))
{
    if (!m_fnEngine)
        m_fnEngine = [](int iModel) { return std::make_shared<ProcessEngine>(iModel); };
    setParent(form.pctMap->window());  // so that it is found among the window's objects
    m_tmrPlay.setInterval(kPlayStep);
    m_tmrWork.setInterval(kWorkAfter);
    m_tmrWork.setSingleShot(true);
    BarConnect();
    connect(form.mnuOverlayDraw, &QAction::toggled, this, &MapDayControl::OverlayToggled);
    connect(form.mnuOverlay, &QMenu::aboutToShow, this, &MapDayControl::ChoiceFollow);
    connect(&m_run, &MapDayRun::Renewed, this, &MapDayControl::Renew);
    connect(&m_run, &MapDayRun::Progressed, this, &MapDayControl::WorkShow);
    connect(&m_run, &MapDayRun::Failed, this, [this](const Failure& failure) {
        m_overlay.FailureSet(failure);
        Renew();
    });
    connect(&m_tmrWork, &QTimer::timeout, this, &MapDayControl::WorkShow);
    connect(&m_tmrPlay, &QTimer::timeout, this, &MapDayControl::PlayStep);
    connect(form.mnuOverlaySmooth, &QAction::triggered, this, [this] {
        if (m_bOn)
            Renew();
    });
    connect(&host.SettingsSignalGet(), &SettingsSignal::NeedChosen, this, &MapDayControl::Renew);
    connect(&host.SettingsSignalGet(), &SettingsSignal::TableRenewed, this,
            &MapDayControl::TableFollow);
}

void MapDayControl::BarConnect()
{
    HourBar* pBar = m_form.barHour;
    connect(pBar, &HourBar::HourChosen, this, &MapDayControl::HourMove);
    connect(pBar, &HourBar::FrequencyChosen, this, &MapDayControl::FrequencyMove);
    connect(pBar, &HourBar::PlayRequested, this, &MapDayControl::PlayToggle);
}

/// Whatever hides the overlay also ends the day.
void MapDayControl::OverlayToggled(bool bShown)
{
    if (!bShown) {
        m_bOn = false;
        m_shown.eLayer = MapDayLayerKind::Snr;
        m_tmrPlay.stop();
        m_run.Stop();
    }
    m_bStopped = false;
    BarShow();
    m_form.barHour->setVisible(bShown);
    Q_EMIT BarShown();
}

/// Goes from the overlay's own picture to the day's.
void MapDayControl::Begin()
{
    m_bOn = true;
    if (!m_form.mnuOverlayDraw->isChecked())
        m_form.mnuOverlayDraw->setChecked(true);
    Q_EMIT PictureNeeded();
    Show();
}

void MapDayControl::LayerChoose(MapDayLayerKind eLayer)
{
    if (!m_bOn && eLayer == MapDayLayerKind::Snr) {
        if (!m_overlay.IsShown())
            m_form.mnuOverlayDraw->trigger();
        return;
    }
    m_shown.eLayer = eLayer;
    if (!m_bOn || m_imgBase.isNull())
        return Begin();
    Ask();
    Paint();
}

void MapDayControl::HourMove(int iHour)
{
    m_menu.HourTake(iHour);
    if (!m_bOn || m_imgBase.isNull())
        return Begin();
    ShownTake();
    if (m_run.GridGet(TargetGet(iHour)) == nullptr || m_bStopped)
        Ask();
    Paint();
}

/// Until hour or frequency are chosen on the map, the menu takes them from the table when it opens.
void MapDayControl::ChoiceFollow()
{
    const MapDayTarget before{m_shown.iHour, m_shown.iFrequency};
    ShownTake();
    const bool bSame = m_shown.iHour == before.iHour && m_shown.iFrequency == before.iFrequency;
    if (!m_bOn || m_imgBase.isNull() || bSame)
        return;
    if (m_run.GridGet(TargetGet(m_shown.iHour)) == nullptr && !m_bStopped)
        Ask();
    Paint();
}

void MapDayControl::FrequencyMove(std::size_t iFrequency)
{
    if (iFrequency >= m_aiRow.size())
        return;
    m_menu.FrequencyTake(m_aiRow[iFrequency]);
    HourMove(m_menu.ChoiceGet().iHour);
}

void MapDayControl::PlayToggle()
{
    if (m_tmrPlay.isActive()) {
        m_tmrPlay.stop();
    } else {
        m_tmrPlay.start();
        if (!m_bOn || m_bStopped)
            Begin();
    }
    BarShow();
}

/// Goes to the next hour; waits for it if it is being computed.
void MapDayControl::PlayStep()
{
    const int iNext = (m_menu.ChoiceGet().iHour + 1) % kHourCount;
    if (!m_run.RunningIs() || m_run.GridGet(TargetGet(iNext)) != nullptr)
        HourMove(iNext);
}

bool MapDayControl::Leave()
{
    const bool bWork = m_run.RunningIs();
    if (!bWork && !m_tmrPlay.isActive())
        return false;
    m_tmrPlay.stop();  // its next hour would begin the work anew
    if (bWork) {
        m_run.Stop();
        m_bStopped = true;
    }
    BarShow();
    return true;
}

void MapDayControl::PictureForget()
{
    m_imgBase = QImage();
    m_aPoints.clear();
    m_apShown.clear();
}

void MapDayControl::Show()
{
    m_imgBase = m_form.pctMap->m_img;
    TableFollow();
}

/// The list of a run, and the sunspot number that it found out, are in force only at its end.
void MapDayControl::TableFollow()
{
    ListTake();
    if (!m_bOn || m_imgBase.isNull())
        return BarShow();
    Ask();
    Paint();
}

/// Takes those frequencies of the table shown that engines accept.
void MapDayControl::ListTake()
{
    const Request input = m_host.TableInputGet();
    m_aiRow = FrequenciesInRangeGet(input);
    m_shown.afFrequency.clear();
    for (const int iRow : m_aiRow) m_shown.afFrequency.push_back(input.FrequencyGet(iRow));
}

/// Takes the present hour, frequency, need and minimum.
void MapDayControl::ShownTake()
{
    const Settings& settings = m_host.SettingsGet();
    const OverlayChoice& choice = m_menu.ChoiceGet();
    const auto it = std::find(m_aiRow.begin(), m_aiRow.end(), choice.iFrequency);
    m_shown.iFrequency = it == m_aiRow.end() ? 0 : static_cast<std::size_t>(it - m_aiRow.begin());
    m_shown.iHour = choice.iHour;
    m_shown.fMinSnr = settings.m_fMapOverlayMinSnr;
    m_shown.need = NeedInForce(settings.m_aNeed, settings.m_sNeedSelected);
    m_shown.hours = m_run.HoursGet();
    m_shown.fnSnrColor = [this](float fSnr) { return m_host.SnrGetColor(fSnr); };
}

MapDayTarget MapDayControl::TargetGet(int iHour) const
{
    MapDayTarget target{iHour, {}};
    if (DayLayerHasFrequency(m_shown.eLayer))
        target.iFrequency = m_shown.iFrequency;
    return target;
}

void MapDayControl::Ask()
{
    ShownTake();
    m_bStopped = false;
    MapDayRequest request;
    request.area = AreaRequestFromSettings(m_host.SettingsGet());
    request.area.dFixedLat = m_form.m_posRc.dLat;
    request.area.dFixedLon = m_form.m_posRc.dLon;
    request.afFrequency = m_shown.afFrequency;
    request.aBoxes = OverlayGetBoxes(m_form.m_view.m_box, m_form.m_view.m_dEdge);
    request.area.nGridSize =
        GridThin(request.area.nGridSize, request.afFrequency.size(), request.aBoxes.size());
    request.bSpread = m_shown.eLayer == MapDayLayerKind::DaysInTen;
    m_overlay.FailureForget();
    if (request.afFrequency.empty())
        return m_run.Stop();
    m_run.Ask(request, m_fnEngine(request.area.iModel), TargetGet(m_shown.iHour));
    if (m_run.RunningIs() && !m_tmrWork.isActive())
        m_tmrWork.start();
}

void MapDayControl::Renew()
{
    if (!m_imgBase.isNull())
        Paint();
    BarShow();
}

/// The grid of what is shown, if it is computed.
const MapDayGrid* MapDayControl::GridGet() const
{
    if (m_shown.eLayer == MapDayLayerKind::DaysInTen && !m_run.SpreadIs())
        return nullptr;
    if (m_shown.eLayer != MapDayLayerKind::HoursOpen)
        return m_run.GridGet(TargetGet(m_shown.iHour));
    for (int iHour = 0; iHour < kHourCount; ++iHour)
        if (m_shown.hours.test(static_cast<std::size_t>(iHour)))
            return m_run.GridGet({iHour, {}});
    return nullptr;
}

void MapDayControl::Paint()
{
    ShownTake();
    PctMap* pMap = m_form.pctMap;
    pMap->m_img = m_imgBase;
    m_aPoints.clear();
    m_apShown.clear();
    const MapDayGrid* pGrid = m_shown.afFrequency.empty() ? nullptr : GridGet();
    if (pGrid != nullptr) {
        const bool bSnr = m_shown.eLayer == MapDayLayerKind::Snr;
        for (std::size_t n = 0; n < pGrid->size(); ++n) {
            const AreaDay& day = *pGrid->at(n);
            const std::vector<AreaPoint> aPoints = DayPointsGet(m_shown, day);
            const AreaBox& box = m_run.RequestGet()->aBoxes.at(n);
            const CellPaint cell{AreaBoxPrinted(box), box, day.request.area.nGridSize,
                                 bSnr ? m_shown.fMinSnr : 0.0F,
                                 [this](float fValue) { return DayColorGet(m_shown, fValue); }};
            (IsSmooth() ? SmoothPaint : CellsPaint)(pMap->m_img, m_form.m_view, cell, aPoints);
            m_aPoints.insert(m_aPoints.end(), aPoints.begin(), aPoints.end());
        }
        m_apShown = *pGrid;
        GraticuleLabelsPaint(pMap->m_img, m_form.m_view, pMap->window()->font());
    }
    pMap->window()->setWindowTitle(pGrid != nullptr ? DayTitleGet(m_shown)
                                                    : QObject::tr("Hopcast - World Map"));
    BarShow();
    pMap->update();
    Q_EMIT Painted();
}

void MapDayControl::BarShow()
{
    HourBar* pBar = m_form.barHour;
    if (!m_bOn)
        ListTake();
    ShownTake();
    pBar->HourShow(m_shown.iHour, m_host.SettingsGet().m_iTimeCode);
    pBar->FrequenciesShow(m_shown.afFrequency, m_shown.iFrequency);
    pBar->FrequencyEnable(DayLayerHasFrequency(m_shown.eLayer));
    AreaHours hours;
    for (int iHour = 0; m_bOn && iHour < kHourCount; ++iHour)
        hours.set(static_cast<std::size_t>(iHour), m_run.GridGet(TargetGet(iHour)) != nullptr);
    pBar->hscHour->ComputedSet(m_bOn ? hours : AreaHours().set());
    pBar->PlayShow(PlayingIs());
    WorkShow();
}

void MapDayControl::WorkShow()
{
    QString sText;
    if (m_bStopped)
        sText = tr("stopped");
    else if (m_run.RunningIs() && !m_tmrWork.isActive())
        sText = tr("%1 of %2").arg(m_run.DoneGet()).arg(m_run.CountGet());
    m_form.barHour->WorkShow(sText);
}

bool MapDayControl::IsSmooth() const
{
    return m_shown.eLayer == MapDayLayerKind::Snr && m_overlay.IsSmooth();
}

AreaRequest MapDayControl::RequestGet() const
{
    constexpr float kKhzPerMhz = 1000.0F;
    AreaRequest request = m_apShown.front()->request.area;
    request.iHour = m_shown.iHour;
    request.fFrequency = m_shown.afFrequency.at(m_shown.iFrequency) / kKhzPerMhz;
    return request;
}

/// The value of the smooth picture at a position.
std::optional<float> MapDayControl::SmoothGet(const LatLon& pos) const
{
    std::size_t iFirst = 0;
    for (std::size_t n = 0; IsSmooth() && n < m_apShown.size(); ++n) {
        const std::size_t nPoints = m_apShown[n]->aPlaces.size();
        const auto fSnr = SmoothGrid(AreaBoxPrinted(m_run.RequestGet()->aBoxes.at(n)),
                                     m_apShown[n]->request.area.nGridSize,
                                     std::span(m_aPoints).subspan(iFirst, nPoints))
                              .SnrGet(pos.dLat, pos.dLon);
        if (fSnr)
            return fSnr;
        iFirst += nPoints;
    }
    return {};
}

QString MapDayControl::TipGet(const LatLon& pos) const
{
    const AreaPoint* pPoint = GridFindNearest(m_aPoints, pos.dLat, pos.dLon);
    if (pPoint == nullptr)
        return {};
    const auto iPoint = static_cast<std::size_t>(pPoint - m_aPoints.data());
    const std::size_t nEach = m_apShown.front()->aPlaces.size();
    const auto fSmooth = SmoothGet(pos);
    return (fSmooth ? DaySnrText(*fSmooth)
                    : DayTipGet(m_shown, *m_apShown.at(iPoint / nEach), iPoint % nEach))
           + tr(", Rng %1").arg(RangeText(m_form.m_posRc, pos));
}

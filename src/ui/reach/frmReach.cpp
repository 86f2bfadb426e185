#include "ui/reach/frmReach.h"

#include <QElapsedTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "airmail/AirMailPosition.h"
#include "places/OwnPlaces.h"
#include "places/StationPlaces.h"
#include "propagation/RequestText.h"
#include "system/ClockLib.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"
#include "ui/common/LocationText.h"
#include "ui/common/RunnerPost.h"

namespace {

constexpr int kListEvery = 60;        // ms between two updates of the list while answers come in
constexpr int kProgressAfter = 300;   // ms
constexpr int kNowEvery = 10'000;     // ms
constexpr double kSamePlace = 0.001;  // degrees

/// "(Airmail, 2 days old)" if the receiver is at Airmail's position; otherwise empty.
QString PositionSource(const Settings& settings)
{
    double dLat = 0.0;
    double dLon = 0.0;
    DateTime dtTime;
    const auto res = AirMailPositionGet(dLat, dLon, dtTime, nullptr);
    if (!res || !res.ValueGet() || std::abs(dLat - settings.m_dRcLat) > kSamePlace
        || std::abs(dLon - settings.m_dRcLon) > kSamePlace)
        return {};
    constexpr long long kMinutesOfHour = 60;
    constexpr long long kMinutesOfDay = 24 * kMinutesOfHour;
    const long long nMinutes = dtTime.IsZero() ? 0 : MinuteBoundaries(dtTime, UtcNow());
    if (nMinutes >= 2 * kMinutesOfDay)
        return frmReach::tr(" (Airmail, %1 days old)").arg(nMinutes / kMinutesOfDay);
    if (nMinutes >= 2 * kMinutesOfHour)
        return frmReach::tr(" (Airmail, %1 hours old)").arg(nMinutes / kMinutesOfHour);
    return frmReach::tr(" (Airmail)");
}

}  // namespace

frmReach::frmReach(PlanHost& host)
    : PlanWindow(host, PlanName::Reach, tr("Who Can I Reach")),
      frm(new ReachForm(host.SettingsGet(), this)),
      grdReach(new GridControl(this)),
      tmrNow(new QTimer(this)),
      lblHint(new QLabel(this)),
      m_runner(RunnerPostTo(*this))
{
    setObjectName(QStringLiteral("frmReach"));
    grdReach->setObjectName(QStringLiteral("grdReach"));
    grdReach->setAccessibleName(tr("Stations"));
    lblHint->setObjectName(QStringLiteral("lblHint"));
    lblHint->setWordWrap(true);
    ContentGet().addWidget(frm);
    ContentGet().addWidget(lblHint);
    ContentGet().addWidget(grdReach, 1);
    m_tmrList.setSingleShot(true);
    m_tmrProgress.setSingleShot(true);
    connect(&m_tmrList, &QTimer::timeout, this, &frmReach::ListShow);
    connect(&m_tmrProgress, &QTimer::timeout, this, [this] { frm->ProgressShow(m_bRunning); });
    tmrNow->start(kNowEvery);
    connect(tmrNow, &QTimer::timeout, this, &frmReach::HourFollow);
    GridConnect();
    connect(frm, &ReachForm::SearchChanged, this, &frmReach::Ask);
    connect(frm, &ReachForm::CriteriaChanged, this, &frmReach::Judge);
    connect(frm, &ReachForm::ViewChanged, this, &frmReach::ListShow);
    connect(frm->cmdNeed, &NeedChooser::Chosen, &host.SettingsSignalGet(),
            &SettingsSignal::NeedChosen);
    connect(frm->numPower, &QDoubleSpinBox::valueChanged, this, &frmReach::PowerTake);
    connect(frm->cmdFaults, &QPushButton::clicked, this, &frmReach::FaultsShow);
    connect(frm->cmdFind, &QPushButton::clicked, this, &frmReach::Search);
    connect(&host.SettingsSignalGet(), &SettingsSignal::NeedChosen, this, &frmReach::Judge);
    connect(&host.SettingsSignalGet(), &SettingsSignal::PlacesChanged, this, &frmReach::Search);
    // The settings get the run's sunspot number only when it ends.
    connect(
        &host.SettingsSignalGet(), &SettingsSignal::Changed, this, [this] { SettingsFollow(); },
        Qt::QueuedConnection);
    constexpr QSize kFirst(1180, 620);
    resize(kFirst);
}

frmReach::~frmReach() { m_job.Cancel(); }

void frmReach::GridConnect()
{
    grdReach->SpeechSet([this](int iRow, int iCol) {
        return ReachCellText(*m_pReach, m_aListed.at(static_cast<std::size_t>(iRow) - 1), iCol,
                             m_asHour, HourZoneGet(HostGet().SettingsGet().m_iTimeCode));
    });
    connect(grdReach, &GridControl::EnterPressed, this, &frmReach::Take);
    connect(grdReach, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& index) { Take(index.row() + 1, index.column() + 1); });
    connect(grdReach, &GridControl::CurrentMoved, this, [this] { m_bMoved = true; });
    connect(grdReach, &GridControl::CellClicked, this, [this] { m_bMoved = true; });
    connect(grdReach, &GridControl::MouseMoved, this, &frmReach::TipShow);
    connect(grdReach, &GridControl::CellPressed, this,
            [this](int iRow, int iCol, Qt::MouseButton eButton) {
                const auto eOrder = ReachOrderOf(iCol);
                if (iRow != 0 || eButton != Qt::LeftButton || !eOrder)
                    return;
                // A second click on a title goes back to the order by use.
                frm->OrderSet(frm->ViewGet().eOrder == *eOrder ? ReachOrder::Use : *eOrder);
            });
}

void frmReach::Search()
{
    PlacesRead();
    Ask();
    grdReach->setFocus();
}

void frmReach::PlacesRead()
{
    StationPlaces stations = StationPlacesGet();
    m_aPlaces = std::move(stations.aPlaces);
    m_aFaults = std::move(stations.aFaults);
    const auto resOwn = OwnPlacesLoad(HostGet().SettingsGet().m_sProfileFile);
    if (resOwn) {
        for (Place& place : OwnPlacesGet(resOwn.ValueGet())) m_aPlaces.push_back(std::move(place));
        for (PlaceFault& fault : OwnPlaceFaultsGet(resOwn.ValueGet()))
            m_aFaults.push_back(std::move(fault));
    } else {
        m_aFaults.push_back({tr("My places").toStdString(), resOwn.TextGet(), PlaceKind::Own});
    }
    std::array<int, 4> anPlaces{};
    bool bOwnFrequencies = false;
    for (const Place& place : m_aPlaces) {
        ++anPlaces.at(static_cast<std::size_t>(place.eKind));
        bOwnFrequencies = bOwnFrequencies || !place.afFrequency.empty();
    }
    frm->PlacesShow(anPlaces, bOwnFrequencies);
    frm->cmdFaults->setVisible(!m_aFaults.empty());
    frm->cmdFaults->setText(tr("%1 cannot be &used...").arg(m_aFaults.size()));
}

void frmReach::FaultsShow() { MsgBox(MsgIcon::Info, PlaceFaultsText(m_aFaults)); }

/// While a station taken from the list is in force, the list of frequencies is the station's; the
/// search still uses the user's.
Request frmReach::BaseGet() const
{
    Request base = HostGet().RequestGet();
    base.dTxLat = 0.0;  // each place in turn
    base.dTxLon = 0.0;
    if (m_pReach && HostGet().TakenIs()) {
        base.nData = m_pReach->InputGet().base.nData;
        base.afFrequency = m_pReach->InputGet().base.afFrequency;
    }
    return base;
}

ReachInput frmReach::InputGet() const
{
    ReachInput input;
    input.base = BaseGet();
    input.bOwnFrequencies =
        frm->chkOwnFrequencies->isEnabled() && frm->chkOwnFrequencies->isChecked();
    input.fNeed = NeedGet().fSnr;
    input.iFrom = frm->FromGet();
    input.nHours = frm->numHours->value();
    return input;
}

std::vector<Place> frmReach::PlacesChosen() const
{
    const std::set<PlaceKind> aKinds = frm->KindsGet();
    std::vector<Place> aWanted;
    std::copy_if(m_aPlaces.begin(), m_aPlaces.end(), std::back_inserter(aWanted),
                 [&aKinds](const Place& place) { return aKinds.contains(place.eKind); });
    return aWanted;
}

/// Searches the places of the ticked kinds. Those already predicted are answered at once.
void frmReach::Ask()
{
    m_job.Cancel();
    m_bRunning = false;
    m_tmrList.stop();
    FromShow();
    m_bOld = false;
    m_pReach = std::make_unique<Reach>(InputGet(), PlacesChosen());
    const auto pEngine = HostGet().EngineGet(m_pReach->InputGet().base.iModel);
    const auto failure = pEngine->ObstacleGet();
    FootSet(
        RequestFootText(m_pReach->InputGet().base, !pEngine->VersionGet().empty(), UtcNow().nYear)
        + kTextBetween + NeedFootText(NeedGet()));
    m_sObstacle = failure ? failure->sText : std::string();
    if (failure || m_pReach->PlacesGet().empty())
        return ListShow();
    m_bRunning = true;
    m_tmrProgress.start(kProgressAfter);
    m_job = ReachStart(
        m_runner, pEngine, *m_pReach, [this](std::size_t) { ListDelayed(); },
        [this] { RowsEnd(); });
    ListShow();
}

void frmReach::FromShow()
{
    const Settings& settings = HostGet().SettingsGet();
    m_asHour = HourLabelsGet(settings.m_iTimeCode);
    frm->HoursShow(m_asHour, UtcNow().nHour);
    frm->lblFrom->setText(
        tr("From %1%2")
            .arg(PositionToText(settings.m_dRcLat, settings.m_dRcLon), PositionSource(settings)));
    frm->NeedShow(NeedGet(), settings.m_fStationPower);
    ReachGridLayout(*grdReach, m_asHour);
}

/// The first answer is shown at once, later ones are collected.
void frmReach::ListDelayed()
{
    if (m_pReach->DoneGet() == 1)
        ListShow();
    else if (!m_tmrList.isActive())
        m_tmrList.start(kListEvery);
}

void frmReach::RowsEnd()
{
    m_bRunning = false;
    m_tmrList.stop();
    m_tmrProgress.stop();
    frm->ProgressShow(false);
    ListShow();
    HostGet().ReachBoardGet().Set(*m_pReach);
}

void frmReach::ListShow()
{
    if (!m_pReach)
        return;
    QElapsedTimer timer;
    timer.start();
    const GridPlace place = grdReach->CurrentGet();
    const std::size_t iListed = static_cast<std::size_t>(place.iRow) - 1;
    const auto iChosen = m_bMoved && place.DataIs() && iListed < m_aListed.size()
                             ? std::optional(m_aListed[iListed])
                             : std::nullopt;
    m_aListed = ReachListGet(*m_pReach, frm->ViewGet());
    ReachGridFill(*grdReach, *m_pReach, m_aListed, m_asHour);
    // The current row stays with its station; until the user has chosen one it stays the first.
    const auto itChosen =
        iChosen ? std::find(m_aListed.begin(), m_aListed.end(), *iChosen) : m_aListed.begin();
    if (itChosen != m_aListed.end())
        grdReach->CurrentSet(static_cast<int>(itChosen - m_aListed.begin()) + 1,
                             place.DataIs() ? place.iCol : kReachChannel);
    frm->CountShow(m_aListed.size(), m_pReach->DoneGet(), m_pReach->PlacesGet().size());
    HintShow();
    // A long list is rebuilt less often, so that the window still responds.
    constexpr int kShare = 4;
    m_tmrList.setInterval(std::max<int>(kListEvery, kShare * static_cast<int>(timer.elapsed())));
}

void frmReach::HintShow()
{
    QString sHint;
    if (m_aPlaces.empty())
        sHint = tr(
            "There are no stations. Options, AirMail sets the folder of Airmail's lists; Plan, My "
            "Places adds places of your own.");
    else if (!m_sObstacle.empty())
        sHint = QString::fromStdString(m_sObstacle);
    else if (m_pReach->PlacesGet().empty())
        sHint = tr("Tick a kind of station.");
    else if (m_bOld)
        sHint = tr("The settings have changed since: Search Again.");
    else if (m_aListed.empty())
        sHint = tr("No station has this text and margin.");
    lblHint->setText(sHint);
    lblHint->setVisible(!sHint.isEmpty());
    grdReach->StaleSet(m_bOld);
}

void frmReach::Judge()
{
    frm->NeedShow(NeedGet(), HostGet().SettingsGet().m_fStationPower);
    if (!m_pReach)
        return;
    m_pReach->Judge(NeedGet().fSnr, frm->FromGet(), frm->numHours->value());
    ListShow();
}

/// The present hour has changed; the answers stay, since they cover the whole day.
void frmReach::HourFollow()
{
    if (!m_pReach || frm->NowGet() == UtcNow().nHour)
        return;
    frm->HoursShow(m_asHour, UtcNow().nHour);
    Judge();
}

void frmReach::PowerTake(double dPower)
{
    HostGet().SettingsGet().m_fStationPower = static_cast<float>(dPower);
    HostGet().Update();
}

/// Other settings need another search.
void frmReach::SettingsFollow()
{
    if (!isVisible() || !m_pReach || BaseGet() == m_pReach->InputGet().base)
        return;
    m_bOld = true;
    HintShow();
    Ask();
}

bool frmReach::WorkStop()
{
    if (!m_bRunning)
        return false;
    m_job.Cancel();
    RowsEnd();
    return true;
}

void frmReach::Take(int iRow, int iCol)
{
    const std::size_t iPlace = m_aListed.at(static_cast<std::size_t>(iRow) - 1);
    const Place& place = m_pReach->PlacesGet()[iPlace];
    const ReachRow& row = m_pReach->RowsGet()[iPlace];
    const int iUsed = (m_pReach->InputGet().iFrom + std::max(0, row.opening.nWait)) % kReachHours;
    const int iHour = ReachHourOf(iCol).value_or(iUsed);
    PlanChoice choice;
    choice.dTxLat = place.dLat;
    choice.dTxLon = place.dLon;
    choice.sTitle = QString::fromStdString(TextForMessage(
        place.sDescription.empty() ? place.sKey : place.sKey + " - " + place.sDescription));
    if (m_pReach->InputGet().bOwnFrequencies)
        choice.afFrequency = place.afFrequency;
    choice.fFrequency = row.aHours.at(static_cast<std::size_t>(iHour)).fFrequency;
    choice.iHour = iHour + 1;
    HostGet().PlanApply(choice);
}

void frmReach::TipShow(int iRow, int iCol)
{
    const std::size_t iListed = static_cast<std::size_t>(iRow) - 1;
    if (iRow == 0)
        grdReach->ToolTipRenew(ReachOrderOf(iCol) ? tr("Click to order by this column")
                                                  : QString());
    else if (iRow > 0 && iListed < m_aListed.size())
        grdReach->ToolTipRenew(ReachCellText(*m_pReach, m_aListed[iListed], iCol, m_asHour,
                                             HourZoneGet(HostGet().SettingsGet().m_iTimeCode)));
    else
        grdReach->ToolTipRenew({});
}

Page frmReach::PageGet() const
{
    Page page;
    page.sTitle = windowTitle();
    const QString sFrom = frm->lblFrom->text();
    if (m_pReach)
        page.aBlock.push_back({sFrom, ReachPageGrid(*m_pReach, m_aListed, m_asHour)});
    page.sFoot = lblFoot->text();
    return page;
}

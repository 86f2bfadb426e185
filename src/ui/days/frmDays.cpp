#include "ui/days/frmDays.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <utility>

#include "propagation/RequestText.h"
#include "system/ClockLib.h"
#include "system/NumberLib.h"
#include "ui/common/RunnerPost.h"

namespace {

constexpr int kProgressAfter = 300;  // ms

}  // namespace

frmDays::frmDays(PlanHost& host)
    : PlanWindow(host, PlanName::Days, tr("Good and Bad Days")), m_runner(RunnerPostTo(*this))
{
    setObjectName(QStringLiteral("frmDays"));
    HeadMake();
    grdDays = new GridControl(this);
    m_pHours = new HourColumns(*grdDays);
    grdDays->setObjectName(QStringLiteral("grdDays"));
    grdDays->setAccessibleName(tr("Days in ten"));
    lblCell = new QLabel(this);
    lblCell->setObjectName(QStringLiteral("lblCell"));
    lblCell->setTextInteractionFlags(Qt::TextSelectableByMouse);
    picBand = new DaysBandView(this);
    picBand->setObjectName(QStringLiteral("picBand"));
    constexpr int kGridShare = 3;
    constexpr int kBandShare = 1;
    ContentGet().addWidget(grdDays, kGridShare);
    ContentGet().addWidget(lblCell);
    ContentGet().addWidget(picBand, kBandShare);
    GridConnect();
    m_tmrProgress.setSingleShot(true);
    connect(&m_tmrProgress, &QTimer::timeout, this, [this] { prgDone->setVisible(m_bRunning); });
    SettingsSignal& signal = host.SettingsSignalGet();
    connect(cmdNeed, &NeedChooser::Chosen, &signal, &SettingsSignal::NeedChosen);
    connect(&signal, &SettingsSignal::NeedChosen, this, &frmDays::Judge);
    connect(&signal, &SettingsSignal::TableRenewed, this, &frmDays::Renew);
    connect(&signal, &SettingsSignal::CellSelected, this, &frmDays::CellFollow);
    connect(&signal, &SettingsSignal::Changed, this, &frmDays::HintShow);
    constexpr QSize kFirst(860, 640);
    resize(kFirst);
    Renew();
    grdDays->setFocus();
}

frmDays::~frmDays() { m_job.Cancel(); }

void frmDays::HeadMake()
{
    auto* pRow = new QHBoxLayout;
    cmdNeed = new NeedChooser(HostGet().SettingsGet(), this);
    auto* pFor = new QLabel(tr("Days in ten on which a frequency is enough &for"), this);
    pFor->setBuddy(cmdNeed);
    lblNeed = new QLabel(this);
    lblNeed->setObjectName(QStringLiteral("lblNeed"));
    prgDone = new QProgressBar(this);
    prgDone->setObjectName(QStringLiteral("prgDone"));
    prgDone->setAccessibleName(tr("Predictions done"));
    prgDone->setFormat(tr("%v of %m"));
    prgDone->hide();
    lblHint = new QLabel(this);
    lblHint->setObjectName(QStringLiteral("lblHint"));
    lblHint->setWordWrap(true);
    for (QWidget* pWidget : {static_cast<QWidget*>(pFor), static_cast<QWidget*>(cmdNeed),
                             static_cast<QWidget*>(lblNeed)})
        pRow->addWidget(pWidget);
    pRow->addStretch();
    pRow->addWidget(prgDone);
    ContentGet().addLayout(pRow);
    ContentGet().addWidget(lblHint);
}

void frmDays::GridConnect()
{
    grdDays->SpeechSet([this](int iRow, int iCol) { return CellText(iRow, iCol); });
    connect(grdDays, &GridControl::EnterPressed, this, &frmDays::CellTake);
    connect(grdDays, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& index) { CellTake(index.row() + 1, index.column() + 1); });
    connect(grdDays, &GridControl::CurrentMoved, this, &frmDays::BandShow);
    connect(grdDays, &GridControl::CellClicked, this, [this](int iRow, int iCol) {
        grdDays->CurrentSet(iRow, iCol);
        BandShow();
    });
    connect(grdDays, &GridControl::MouseMoved, this, [this](int iRow, int iCol) {
        grdDays->ToolTipRenew(GridPlace{iRow, iCol}.DataIs() ? CellText(iRow, iCol) : QString());
    });
    connect(picBand, &DaysBandView::HourClicked, this, [this](int iHour) {
        if (const GridPlace place = grdDays->CurrentGet(); place.DataIs())
            grdDays->CurrentSet(place.iRow, iHour + 1);
        BandShow();
    });
}

/// Shows the main window's prediction, or asks the engine for the deciles that it lacks.
void frmDays::Renew()
{
    WorkEnd();
    m_sFault.clear();
    m_asHour = HourLabelsGet(HostGet().SettingsGet().m_iTimeCode);
    const PropagationTable& table = HostGet().TableGet();
    if (table.nData == 0 || DaysArePrinted(table))
        return Take(table);
    const auto failure = HostGet().EngineGet(table.request.iModel)->ObstacleGet();
    if (failure) {
        m_sFault = failure->sText;
        return Take(PropagationTable());
    }
    m_request = table.request;
    Judge();
    Ask({m_request});
}

void frmDays::Ask(std::vector<Request> aRequests)
{
    m_bRunning = true;
    m_aAnswers.assign(aRequests.size(), PropagationTable());
    prgDone->setMaximum(static_cast<int>(aRequests.size()));
    prgDone->setValue(0);
    if (!m_tmrProgress.isActive() && !prgDone->isVisible())
        m_tmrProgress.start(kProgressAfter);
    m_job = m_runner.Start(
        HostGet().EngineGet(m_request.iModel), std::move(aRequests),
        [this](std::size_t iRequest, const Runner::PredictionPtr& pPrediction) {
            AnswerTake(iRequest, *pPrediction);
        },
        [this] { AnswersEnd(); });
}

void frmDays::AnswerTake(std::size_t iRequest, const Prediction& prediction)
{
    prgDone->setValue(prgDone->value() + 1);
    if (!prediction.aFailures.empty())
        m_sFault = prediction.aFailures.back().sText;
    m_aAnswers.at(iRequest) = prediction.table;
}

/// If the one answer has no deciles, three follow; what they give is shown as it is.
void frmDays::AnswersEnd()
{
    if (m_aAnswers.size() == 1 && !DaysArePrinted(m_aAnswers[0]) && m_sFault.empty()) {
        const auto aRequests = DaysRequestsGet(m_request);
        return Ask({aRequests.begin(), aRequests.end()});
    }
    PropagationTable table = m_aAnswers.size() == 1
                                 ? m_aAnswers[0]
                                 : DaysJoin(m_aAnswers[0], m_aAnswers[1], m_aAnswers[2]);
    table.request = m_request;
    WorkEnd();
    Take(std::move(table));
}

void frmDays::WorkEnd()
{
    m_job.Cancel();
    m_bRunning = false;
    m_tmrProgress.stop();
    prgDone->hide();
}

void frmDays::Take(PropagationTable table)
{
    m_days.table = std::move(table);
    Judge();
    CellFollow();
}

/// Judges the same days by the need that is in force now.
void frmDays::Judge()
{
    const Need need = NeedGet();
    cmdNeed->ShowInForce();
    lblNeed->setText(tr("needs %1 dB").arg(QString::fromStdString(NumberToText(need.fSnr))));
    m_days.aCells = DaysGet(m_days.table, need.fSnr);
    m_pHours->Show(m_asHour);
    DaysGridFill(*grdDays, m_days);
    Request request = m_days.table.nData > 0 ? m_days.table.request : HostGet().RequestGet();
    request.fReliability = 50.0F;  // medians are the values for 50 % of the days
    FootSet(RequestFootText(request, m_days.table.bBuiltIn, UtcNow().nYear) + kTextBetween
            + NeedFootText(need));
    HintShow();
    BandShow();
}

/// True when the settings have changed and the numbers have not.
bool frmDays::OldIs() const
{
    return m_days.table.nData > 0 && !(m_days.table.request == HostGet().RequestGet());
}

void frmDays::HintShow()
{
    const QString sAbsent = DaysAbsentText(m_days);
    QStringList asHint;
    if (!m_sFault.empty())
        asHint.append(QString::fromStdString(m_sFault));
    if (m_days.table.nData == 0 && m_sFault.empty() && !m_bRunning)
        asHint.append(tr("There is no prediction yet."));
    if (m_days.table.nData > 0 && OldIs())
        asHint.append(tr("The numbers are for older settings."));
    if (!sAbsent.isEmpty())
        asHint.append(tr("The engine gives no good and bad days for %1 kHz.").arg(sAbsent));
    lblHint->setText(asHint.join(u' '));
    lblHint->setVisible(!asHint.isEmpty());
    grdDays->StaleSet(OldIs());
}

/// The current cell follows the main window's selection.
void frmDays::CellFollow()
{
    const SelectedCell cell = HostGet().DataGetSelected();
    if (cell.iFrequency >= 1 && cell.iFrequency <= m_days.table.nData && cell.iHour >= 1)
        grdDays->CurrentSet(cell.iFrequency, cell.iHour);
    else if (!grdDays->CurrentGet().DataIs() && m_days.table.nData > 0)
        grdDays->CurrentSet(1, UtcNow().nHour + 1);
    BandShow();
}

QString frmDays::CellText(int iRow, int iCol) const
{
    if (iRow > m_days.table.nData || iCol > kHourCount)
        return {};
    return tr("%1 kHz, %2")
        .arg(DaysRowText(m_days, iRow), DaysCellText(m_days, iCol, iRow, m_asHour));
}

DaysBand frmDays::BandGet() const
{
    DaysBand band;
    band.asHour = m_asHour;
    band.fNeed = NeedGet().fSnr;
    const GridPlace place = grdDays->CurrentGet();
    if (!place.DataIs() || place.iRow > m_days.table.nData)
        return band;
    band.iHour = place.iCol - 1;
    for (int iHour = 1; iHour <= kHourCount; ++iHour)
        band.aHours.at(static_cast<std::size_t>(iHour) - 1) = m_days.aCells(iHour, place.iRow);
    return band;
}

void frmDays::BandShow()
{
    const GridPlace place = grdDays->CurrentGet();
    lblCell->setText(place.DataIs() ? CellText(place.iRow, place.iCol) : QString());
    picBand->setAccessibleName(lblCell->text());
    picBand->Show(BandGet());
}

/// Rows made with older settings may be other frequencies than the main window's.
void frmDays::CellTake(int iRow, int iCol)
{
    if (!OldIs())
        HostGet().CellTake(iRow, iCol);
}

bool frmDays::WorkStop()
{
    if (!m_bRunning)
        return false;
    WorkEnd();
    m_sFault = tr("Stopped.").toStdString();
    HintShow();
    return true;
}

Page frmDays::PageGet() const
{
    Page page;
    page.sTitle = windowTitle();
    page.sFoot = lblFoot->text();
    if (m_days.table.nData == 0)
        return page;
    const Need need = NeedGet();
    page.aBlock.push_back({tr("Days in ten that reach %1 dB (%2)")
                               .arg(QString::fromStdString(NumberToText(need.fSnr)),
                                    QString::fromStdString(need.sName)),
                           DaysPageGrid(m_days, m_asHour)});
    PagePicture picture;
    picture.fnPaint = [band = BandGet()](QPainter& painter, const QRectF& rct, PageLook eLook) {
        DaysBandPaint(painter, rct, band, Qt::black, eLook);
    };
    page.aBlock.push_back({lblCell->text(), std::move(picture)});
    return page;
}

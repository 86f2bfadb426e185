#include "ui/compare/frmCompare.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStandardItemModel>
#include <QVBoxLayout>
#include <utility>

#include "propagation/RequestText.h"
#include "system/ClockLib.h"
#include "system/NumberLib.h"
#include "ui/common/RunnerPost.h"
#include "ui/common/Words.h"

namespace {

constexpr int kProgressAfter = 300;  // ms
constexpr std::array kModels{kEngineRec533, kEngineVoacap, kEngineIcepac};

/// True if two requests differ only in the engine, the maps that it knows and its number for the
/// antennas.
bool SameQuestion(Request requestA, const Request& requestB)
{
    requestA.iModel = requestB.iModel;
    requestA.sIonCoefficients = requestB.sIonCoefficients;
    requestA.iAntennaType = requestB.iAntennaType;
    return requestA == requestB;
}

}  // namespace

frmCompare::frmCompare(PlanHost& host)
    : PlanWindow(host, PlanName::Compare, tr("Compare Engines")), m_runner(RunnerPostTo(*this))
{
    setObjectName(QStringLiteral("frmCompare"));
    HeadMake();
    tabView = new QTabBar(this);
    tabView->setObjectName(QStringLiteral("tabView"));
    tabView->setExpanding(false);
    tabView->setDrawBase(false);
    for (int i = 0; i <= static_cast<int>(CompareView::Difference); ++i) tabView->addTab({});
    tabView->setCurrentIndex(static_cast<int>(CompareView::Difference));
    grdCompare = new GridControl(this);
    m_pHours = new HourColumns(*grdCompare);
    grdCompare->setObjectName(QStringLiteral("grdCompare"));
    lblCell = new QLabel(this);
    lblCell->setObjectName(QStringLiteral("lblCell"));
    lblCell->setTextInteractionFlags(Qt::TextSelectableByMouse);
    ContentGet().addWidget(tabView);
    ContentGet().addWidget(grdCompare, 1);
    ContentGet().addWidget(lblCell);
    EnginesFill();
    GridConnect();
    m_tmrProgress.setSingleShot(true);
    connect(&m_tmrProgress, &QTimer::timeout, this, [this] { prgDone->setVisible(RunningIs()); });
    connect(tabView, &QTabBar::currentChanged, this, &frmCompare::ViewShow);
    SettingsSignal& signal = host.SettingsSignalGet();
    connect(cmdNeed, &NeedChooser::Chosen, &signal, &SettingsSignal::NeedChosen);
    connect(&signal, &SettingsSignal::NeedChosen, this, &frmCompare::Judge);
    connect(&signal, &SettingsSignal::TableRenewed, this, &frmCompare::Ask);
    connect(&signal, &SettingsSignal::CellSelected, this, &frmCompare::CellFollow);
    connect(&signal, &SettingsSignal::Changed, this, &frmCompare::HintShow);
    constexpr QSize kFirst(860, 560);
    resize(kFirst);
    Ask();
    grdCompare->setFocus();
}

frmCompare::~frmCompare() { WorkEnd(); }

void frmCompare::HeadMake()
{
    auto* pRow = new QHBoxLayout;
    const auto Labelled = [this, pRow](const QString& sText, QWidget* pControl) {
        auto* pLabel = new QLabel(sText, this);
        pLabel->setBuddy(pControl);
        pRow->addWidget(pLabel);
        pRow->addWidget(pControl);
    };
    for (const std::size_t iSide : {0U, 1U}) {
        acmbEngine.at(iSide) = new QComboBox(this);
        acmbEngine.at(iSide)->setObjectName(QStringLiteral("cmbEngine%1").arg(iSide));
        Labelled(iSide == 0 ? tr("En&gine") : tr("&less"), acmbEngine.at(iSide));
    }
    acmbEngine[0]->setAccessibleName(tr("Engine"));
    acmbEngine[1]->setAccessibleName(tr("Engine to compare with"));
    prgDone = new QProgressBar(this);
    prgDone->setObjectName(QStringLiteral("prgDone"));
    prgDone->setAccessibleName(tr("Engines done"));
    prgDone->setFormat(tr("%v of %m"));
    prgDone->hide();
    cmdNeed = new NeedChooser(HostGet().SettingsGet(), this);
    lblNeed = new QLabel(this);
    lblNeed->setObjectName(QStringLiteral("lblNeed"));
    pRow->addStretch();
    pRow->addWidget(prgDone);
    Labelled(tr("Open &for"), cmdNeed);
    pRow->addWidget(lblNeed);
    lblHint = new QLabel(this);
    lblHint->setObjectName(QStringLiteral("lblHint"));
    lblHint->setWordWrap(true);
    ContentGet().addLayout(pRow);
    ContentGet().addWidget(lblHint);
}

void frmCompare::GridConnect()
{
    grdCompare->SpeechSet(
        [this](int iRow, int iCol) { return CompareCellText(m_sides, iCol, iRow, m_asHour); });
    connect(grdCompare, &GridControl::EnterPressed, this, &frmCompare::CellTake);
    connect(grdCompare, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& index) { CellTake(index.row() + 1, index.column() + 1); });
    connect(grdCompare, &GridControl::CurrentMoved, this, &frmCompare::CellShow);
    connect(grdCompare, &GridControl::CellClicked, this, [this](int iRow, int iCol) {
        grdCompare->CurrentSet(iRow, iCol);
        CellShow();
    });
    connect(grdCompare, &GridControl::MouseMoved, this, [this](int iRow, int iCol) {
        grdCompare->ToolTipRenew(GridPlace{iRow, iCol}.DataIs()
                                     ? CompareCellText(m_sides, iCol, iRow, m_asHour)
                                     : QString());
    });
}

/// The main window's engine and the first other one that can run.
void frmCompare::EnginesFill()
{
    const int iMain = HostGet().SettingsGet().m_iPropagationModel;
    int iOther = -1;
    for (const int iModel : kModels) {
        for (QComboBox* pEngine : acmbEngine)
            pEngine->addItem(QString::fromStdString(RequestEngineText(iModel)), iModel);
        if (iModel != iMain && iOther == -1 && !HostGet().EngineGet(iModel)->ObstacleGet())
            iOther = iModel;
    }
    acmbEngine[0]->setCurrentIndex(std::max(0, acmbEngine[0]->findData(iMain)));
    acmbEngine[1]->setCurrentIndex(
        std::max(0, acmbEngine[1]->findData(iOther == -1 ? iMain : iOther)));
    for (const QComboBox* pEngine : acmbEngine)
        connect(pEngine, &QComboBox::currentIndexChanged, this, &frmCompare::Ask);
}

/// Engines that cannot run are greyed out and say why.
void frmCompare::EnginesShow()
{
    for (std::size_t i = 0; i < kModels.size(); ++i) {
        const auto failure = HostGet().EngineGet(kModels.at(i))->ObstacleGet();
        const QString sName = QString::fromStdString(RequestEngineText(kModels.at(i)));
        for (const QComboBox* pEngine : acmbEngine) {
            auto* pItem =
                qobject_cast<QStandardItemModel*>(pEngine->model())->item(static_cast<int>(i));
            pItem->setEnabled(!failure);
            pItem->setText(failure ? tr("%1 (not installed)").arg(sName) : sName);
            pItem->setToolTip(failure ? QString::fromStdString(failure->sText) : QString());
        }
    }
}

int frmCompare::ModelGet(std::size_t iSide) const
{
    return acmbEngine.at(iSide)->currentData().toInt();
}

Request frmCompare::RequestOf(std::size_t iSide) const
{
    return CompareRequestGet(HostGet().SettingsGet(), HostGet().RequestGet().eSunSpotSource,
                             ModelGet(iSide));
}

CompareView frmCompare::ViewGet() const
{
    return static_cast<CompareView>(tabView->currentIndex());
}

void frmCompare::Ask()
{
    WorkEnd();
    m_bStopped = false;
    m_asHour = HourLabelsGet(HostGet().SettingsGet().m_iTimeCode);
    EnginesShow();
    prgDone->setMaximum(static_cast<int>(m_aJob.size()));
    prgDone->setValue(0);
    for (const std::size_t iSide : {0U, 1U}) SideAsk(iSide);
    if (m_nWaiting > 0)
        m_tmrProgress.start(kProgressAfter);
    Judge();
    CellFollow();
}

void frmCompare::SideAsk(std::size_t iSide)
{
    const Request request = RequestOf(iSide);
    const std::string sName = RequestEngineText(request.iModel);
    auto& table = m_sides.aTable.at(iSide);
    if (table && table->request.iModel != request.iModel)
        table.reset();
    m_sides.asName.at(iSide) = sName;
    const auto pEngine = HostGet().EngineGet(request.iModel);
    const auto failure = pEngine->ObstacleGet();
    m_asFault.at(iSide) = failure ? failure->sText : std::string();
    if (failure)
        return table.reset();
    ++m_nWaiting;
    m_aJob.at(iSide) = m_runner.Start(
        pEngine, {request},
        [this, iSide, request](std::size_t, const Runner::PredictionPtr& pPrediction) {
            SideTake(iSide, request, *pPrediction);
        });
}

/// When part of a run fails, the other parts' values are kept.
void frmCompare::SideTake(std::size_t iSide, const Request& request, const Prediction& prediction)
{
    const std::string sAbsent = PropagationAbsentText(prediction.table);
    if (!prediction.aFailures.empty())
        m_asFault.at(iSide) =
            WordsPut(tr("%1: %2"), m_sides.asName.at(iSide), prediction.aFailures.back().sText);
    else if (!sAbsent.empty())
        m_asFault.at(iSide) =
            WordsPut(tr("%1: no values for %2 kHz."), m_sides.asName.at(iSide), sAbsent);
    m_sides.aTable.at(iSide) = prediction.table;
    m_sides.aTable.at(iSide)->request = request;
    prgDone->setValue(prgDone->value() + 1);
    if (--m_nWaiting == 0)
        WorkEnd();
    Judge();
    CellFollow();
}

void frmCompare::WorkEnd()
{
    for (RunnerJob& job : m_aJob) job.Cancel();
    m_nWaiting = 0;
    m_tmrProgress.stop();
    prgDone->hide();
}

/// Compares two answers to the same question, for the need in force now.
void frmCompare::Judge()
{
    const Need need = NeedGet();
    cmdNeed->ShowInForce();
    lblNeed->setText(tr("needs %1 dB").arg(QString::fromStdString(NumberToText(need.fSnr))));
    m_sides.fNeed = need.fSnr;
    m_sides.compare.reset();
    const auto& [tableA, tableB] = m_sides.aTable;
    if (tableA && tableB && SameQuestion(tableA->request, tableB->request))
        m_sides.compare = CompareGet(*tableA, *tableB, need.fSnr);
    ViewShow();
    FootShow();
}

void frmCompare::ViewShow()
{
    const auto Name = [this](std::size_t iSide) {
        return QString::fromStdString(m_sides.asName.at(iSide));
    };
    tabView->setTabText(0, Name(0));
    tabView->setTabText(1, Name(1));
    tabView->setTabText(2, tr("%1 less %2").arg(Name(0), Name(1)));
    grdCompare->setAccessibleName(tabView->tabText(tabView->currentIndex()));
    m_pHours->Show(m_asHour);
    CompareGridFill(*grdCompare, m_sides, ViewGet());
    HintShow();
    CellShow();
}

void frmCompare::FootShow()
{
    const Request request = RequestOf(0);
    const auto& [tableA, tableB] = m_sides.aTable;
    const bool bBuiltInA = tableA && tableA->bBuiltIn;
    const bool bBuiltInB = tableB && tableB->bBuiltIn;
    std::string sFoot;
    if (m_sides.compare)
        sFoot = CompareText(m_sides.compare->figures, m_sides.asName[0], m_sides.asName[1]) + "\n";
    FootSet(sFoot + RequestFootText(request, bBuiltInA, UtcNow().nYear) + kTextBetween
            + WordsPut(bBuiltInB ? tr("compared with %1 (built-in)") : tr("compared with %1"),
                       m_sides.asName[1])
            + kTextBetween + NeedFootText(NeedGet()));
}

/// True when the settings have changed and the numbers have not.
bool frmCompare::OldIs() const
{
    for (const std::size_t iSide : {0U, 1U}) {
        const auto& table = m_sides.aTable.at(iSide);
        if (table && !(table->request == RequestOf(iSide)))
            return true;
    }
    return false;
}

void frmCompare::HintShow()
{
    QStringList asHint;
    for (const std::string& sFault : m_asFault)
        if (!sFault.empty())
            asHint.append(QString::fromStdString(sFault));
    if (m_bStopped)
        asHint.append(tr("Stopped."));
    if (OldIs())
        asHint.append(tr("The numbers are for older settings."));
    if (ModelGet(0) == ModelGet(1))
        asHint.append(tr("An engine is compared with itself."));
    asHint.removeDuplicates();
    lblHint->setText(asHint.join(u' '));
    lblHint->setVisible(!asHint.isEmpty());
    grdCompare->StaleSet(OldIs());
}

/// The current cell follows the main window's selection.
void frmCompare::CellFollow()
{
    const SelectedCell cell = HostGet().DataGetSelected();
    if (cell.iFrequency >= 1 && cell.iFrequency < grdCompare->RowsGet() && cell.iHour >= 1)
        grdCompare->CurrentSet(cell.iFrequency, cell.iHour);
    CellShow();
}

void frmCompare::CellShow()
{
    const GridPlace place = grdCompare->CurrentGet();
    lblCell->setText(place.DataIs() ? CompareCellText(m_sides, place.iCol, place.iRow, m_asHour)
                                    : QString());
}

/// Rows made with older settings may be other frequencies than the main window's.
void frmCompare::CellTake(int iRow, int iCol)
{
    if (!OldIs())
        HostGet().CellTake(iRow, iCol);
}

bool frmCompare::WorkStop()
{
    if (!RunningIs())
        return false;
    WorkEnd();
    m_bStopped = true;
    HintShow();
    return true;
}

Page frmCompare::PageGet() const
{
    Page page;
    page.sTitle = windowTitle();
    page.sFoot = lblFoot->text();
    if (m_sides.FirstGet() == nullptr)
        return page;
    page.aBlock.push_back(
        {tabView->tabText(tabView->currentIndex()), ComparePageGrid(m_sides, ViewGet(), m_asHour)});
    return page;
}

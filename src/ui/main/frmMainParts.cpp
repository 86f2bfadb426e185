// Makes and connects the main window's parts.
#include <QApplication>
#include <QShortcut>
#include <QTimer>
#include <utility>

#include "system/PathLib.h"
#include "ui/common/ElidedLabel.h"
#include "ui/common/Guide.h"
#include "ui/common/NeedChooser.h"
#include "ui/common/PaletteShown.h"
#include "ui/common/Pictures.h"
#include "ui/main/AirmailCommands.h"
#include "ui/main/ClockLine.h"
#include "ui/main/FileCommands.h"
#include "ui/main/PaletteCommands.h"
#include "ui/main/PlanCommands.h"
#include "ui/main/PositionEntry.h"
#include "ui/main/StatusLine.h"
#include "ui/main/TableOutput.h"
#include "ui/main/frmMain.h"

frmMain::frmMain(QWidget* pParent) : QMainWindow(pParent)
{
    setupUi(this);
    TitleSet({});
    PartsMake();
    EntryConnect();
    TableConnect();
    ButtonsConnect();
    MenusConnect();
    PlanConnect();
    Initialize();
}

frmMain::~frmMain() { m_windows.Unload(); }

void frmMain::PartsMake()
{
    mnuTransmitter = new StationMenu(this);
    tmrTime = new QTimer(this);
    tmrTime->setObjectName(QStringLiteral("tmrTime"));
    for (QPushButton* pButton : {cmdRcMap, cmdTxMap})
        pButton->setIcon(PictureGet(QStringLiteral("Map")));
    lblOld->setVisible(false);
    m_pCommands = new CommandQueue(this);
    m_pEntry = new PositionEntry({txtLat0, txtLon0, txtLat1, txtLon1}, this);
    m_pStatus = new StatusLine(*statusbar, this);
    m_pNeed = new NeedChooser(m_settings, statusbar);
    m_pStatus->RightSet(*m_pNeed);
    lblTrouble = m_pStatus->lblTrouble;
    lblBest = m_pStatus->lblBest;
    lblInForce = m_pStatus->lblInForce;
    m_pClock = new ClockLine(*tmrTime, *lblTime, m_settings, this);
    m_pFile = new FileCommands(*this, *this, this);
    m_pAirmail = new AirmailCommands(*this, *mnuTransmitter, this);
    m_table.emplace(*grdData, m_settings);
    m_run.emplace(m_settings, *grdData);
    m_pPalette = new PaletteCommands(*this, this);
    // Cells of the details have the selection's text colour.
    connect(&PaletteSignal::Get(), &PaletteSignal::Changed, this, [this] { DetailsFill(); });
    m_pOutput = new TableOutput(*this, *grdData, *this, this);
    connect(m_pCommands, &CommandQueue::UpdateRequested, this, &frmMain::Update);
    connect(m_pNeed, &NeedChooser::Chosen, &SettingsSignalGet(), &SettingsSignal::NeedChosen);
    connect(&SettingsSignalGet(), &SettingsSignal::NeedChosen, this, [this] { StatusShow(); });
    connect(m_pFile, &FileCommands::Noticed, m_pStatus, &StatusLine::NoticeSet);
    connect(m_pAirmail, &AirmailCommands::Noticed, m_pStatus, &StatusLine::NoticeSet);
    connect(m_pAirmail, &AirmailCommands::StationTaken, this, &frmMain::TitleSet);
    connect(m_pAirmail, &AirmailCommands::RowTaken, m_pEntry, &PositionEntry::RowDrop);
    connect(m_pFile, &FileCommands::PositionsRead, m_pEntry, &PositionEntry::RowsDrop);
}

void frmMain::EntryConnect()
{
    connect(m_pEntry, &PositionEntry::Edited, this, [this] {
        cmdUpdate->setEnabled(true);
        m_pStatus->HintSet({});
        m_pStatus->RefusedSet({});
        StatusShow();
    });
    connect(m_pEntry, &PositionEntry::Entered, cmdUpdate, &QPushButton::click);
    connect(m_pEntry, &PositionEntry::Hinted, this, &frmMain::HintSet);
    connect(m_pEntry, &PositionEntry::TransmitterChanged, this, [this] { TitleSet({}); });
    connect(m_pEntry, &PositionEntry::Refused, this, &frmMain::PositionRefused);
}

void frmMain::TableConnect()
{
    const auto CellClick = [this](int iRow, int iCol) {
        m_pCommands->Do([this, iRow, iCol] { grdDataClick(iRow, iCol); });
    };
    connect(grdData, &GridControl::CellClicked, this, CellClick);
    connect(grdData, &GridControl::EnterPressed, this, CellClick);
    connect(grdData, &GridControl::CurrentMoved, this, [this](int iRow, int iCol) {
        m_pCommands->Do([this, iRow, iCol] { grdDataMove(iRow, iCol); });
    });
    connect(grdData, &GridControl::CellPressed, this, &frmMain::grdDataMouseDown);
    connect(grdData, &GridControl::CellMenu, this, &frmMain::grdDataMenu);
    auto* pBest = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Home), grdData);
    pBest->setContext(Qt::WidgetShortcut);
    connect(pBest, &QShortcut::activated, this, [this] { m_pCommands->Do([this] { BestGo(); }); });
    connect(tmrTime, &QTimer::timeout, this, &frmMain::BestShow);
}

void frmMain::CommandConnect(QPushButton* pButton, std::function<void()> fnCommand)
{
    connect(pButton, &QPushButton::clicked, this,
            [this, fnCommand = std::move(fnCommand)] { m_pCommands->Do(fnCommand); });
}

void frmMain::CommandConnect(QAction* pAction, std::function<void()> fnCommand)
{
    connect(pAction, &QAction::triggered, this,
            [this, fnCommand = std::move(fnCommand)] { m_pCommands->Do(fnCommand); });
}

void frmMain::ButtonsConnect()
{
    CommandConnect(cmdUpdate, [this] { cmdUpdateClick(); });
    CommandConnect(cmdRcAirmail, [this] { m_pAirmail->ReceiverTake(); });
    CommandConnect(cmdTxAirmail, [this] { m_pAirmail->StationsShow(*cmdTxAirmail); });
    for (QPushButton* pButton : {cmdRcMap, cmdTxMap})
        CommandConnect(pButton, [this] { m_windows.MapShow(); });
    connect(mnuTransmitter, &StationMenu::StationChosen, this, [this](const Station& station) {
        m_pCommands->Do([this, station] { m_pAirmail->StationTake(station); });
    });
}

void frmMain::MenusConnect()
{
    CommandConnect(mnuFileDefault, [this] { m_pFile->Default(); });
    CommandConnect(mnuFileUndoDefault, [this] { m_pFile->UndoDefault(); });
    connect(mnuFile, &QMenu::aboutToShow, this,
            [this] { mnuFileUndoDefault->setEnabled(m_pFile->UndoPossible()); });
    CommandConnect(mnuFileOpen, [this] { m_pFile->Open(); });
    CommandConnect(mnuFileSave, [this] { m_pFile->Save(); });
    CommandConnect(mnuFileCopyTable, [this] { m_pOutput->Copy(); });
    CommandConnect(mnuFileExport, [this] { m_pOutput->Export(); });
    CommandConnect(mnuFilePrintCard, [this] { m_pOutput->Print(); });
    connect(m_pOutput, &TableOutput::CardInput, this, [this] {
        WaitingUpdate();
        m_windows.CardShow();
    });
    CommandConnect(mnuFileExit, [this] { close(); });
    CommandConnect(mnuViewWorldMap, [this] { m_windows.MapShow(); });
    CommandConnect(mnuViewDetailData, [this] { mnuViewDetailDataClick(); });
    connect(mnuHelpGuide, &QAction::triggered, this, [] { GuideShow(ProgramFolderGet()); });
    CommandConnect(mnuHelpAbout, [this] { m_windows.AboutShow(); });
    connect(mnuView, &QMenu::aboutToShow, this, &frmMain::mnuViewOpen);
    int iTab = 0;
    for (QAction* pAction : {mnuOptionsAirMail, mnuOptionsModel, mnuOptionsFrequency,
                             mnuOptionsTime, mnuOptionsMap, mnuOptionsStation, mnuOptionsColour}) {
        CommandConnect(pAction, [this, iTab] { m_windows.OptionsShow(iTab); });
        ++iTab;
    }
    connect(mnuOptionsNight, &QAction::triggered, m_pPalette, &PaletteCommands::NightSwitch);
    connect(mnuOptions, &QMenu::aboutToShow, this,
            [this] { mnuOptionsNight->setChecked(m_settings.m_ePalette == Palette::Night); });
}

void frmMain::PlanConnect()
{
    m_pPlan = new PlanCommands(*this, this);
    connect(m_pPlan, &PlanCommands::RowTaken, m_pEntry, &PositionEntry::RowDrop);
    connect(m_pPlan, &PlanCommands::TitleTaken, this, &frmMain::TitleSet);
    connect(m_pPlan, &PlanCommands::CellTaken, this, &frmMain::grdDataMove);
    connect(m_pPlan, &PlanCommands::BackPossible, mnuPlanBack, &QAction::setEnabled);
    CommandConnect(mnuPlanReach, [this] {
        WaitingUpdate();
        m_windows.ReachShow();
    });
    CommandConnect(mnuPlanDays, [this] {
        WaitingUpdate();
        m_windows.DaysShow();
    });
    CommandConnect(mnuPlanCompare, [this] {
        WaitingUpdate();
        m_windows.CompareShow();
    });
    CommandConnect(mnuPlanCurves, [this] {
        WaitingUpdate();
        m_windows.CurvesShow();
    });
    CommandConnect(mnuPlanPlaces, [this] { m_windows.PlacesShow(); });
    CommandConnect(mnuPlanExchange, [this] {
        m_pEntry->WaitingTake(m_settings);
        m_pPlan->Exchange();
    });
    CommandConnect(mnuPlanBack, [this] { m_pPlan->Back(); });
}

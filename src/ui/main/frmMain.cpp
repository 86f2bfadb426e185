#include "ui/main/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLayout>
#include <QTimer>

#include "airmail/AirMailLib.h"
#include "settings/ProfileLib.h"
#include "system/MsgLib.h"
#include "system/PathLib.h"
#include "ui/common/ElidedLabel.h"
#include "ui/common/Guide.h"
#include "ui/common/Pictures.h"
#include "ui/details/frmDetails.h"
#include "ui/main/WindowPlace.h"
#include "ui/map/frmMap.h"
#include "ui/options/AppIcon.h"
#include "ui/options/frmAbout.h"
#include "ui/options/frmOptions.h"

namespace {

constexpr int kClockTick = 60000;  // ms; the clock shows minutes only

}  // namespace

frmMain::frmMain(QWidget* pParent) : QMainWindow(pParent)
{
    setupUi(this);
    ControlsSetUp();
    SignalsConnect();
    MenusConnect();
    Initialize();
}

frmMain::~frmMain() { WindowsUnload(); }

void frmMain::ControlsSetUp()
{
    setWindowTitle(QApplication::applicationDisplayName());
    setWindowIcon(AppIconGet());
    mnuTransmitter = new StationMenu(this);
    tmrTime = new QTimer(this);
    tmrTime->setObjectName(QStringLiteral("tmrTime"));
    for (LocationField* pField : {txtLon0, txtLon1}) pField->KindSet(LocationKind::Longitude);
    const auto Pair = [](LocationField* pLat, LocationField* pLon) {
        pLat->PairSet(pLon);
        pLon->PairSet(pLat);
    };
    Pair(txtLat0, txtLon0);
    Pair(txtLat1, txtLon1);
    for (QPushButton* pButton : {cmdRcMap, cmdTxMap})
        pButton->setIcon(PictureGet(QStringLiteral("Map")));
    grdData->HugSet(true);
    lblOld->setVisible(false);
    // What went wrong comes first: where both do not fit, what is in force is cut. The window does
    // not grow for either; the tooltips have all of the texts.
    lblTrouble = new ElidedLabel(this);
    lblTrouble->setObjectName(QStringLiteral("lblTrouble"));
    lblTrouble->setContentsMargins(fontMetrics().averageCharWidth(), 0, 0, 0);
    lblInForce = new ElidedLabel(this);
    lblInForce->setObjectName(QStringLiteral("lblInForce"));
    lblInForce->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    lblInForce->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    statusbar->addWidget(lblTrouble);
    statusbar->addWidget(lblInForce, 1);
}

void frmMain::SignalsConnect()
{
    grdData->SpeechSet([this](int iRow, int iCol) { return Speech(iRow, iCol); });
    for (LocationField* pField : {txtLat0, txtLon0, txtLat1, txtLon1}) {
        connect(pField, &LocationField::Edited, this, [this, pField] {
            cmdUpdate->setEnabled(true);
            pField->MarkSet({});
            HintSet({});
        });
        connect(pField, &LocationField::Hinted, this,
                [this](const QString& sAdvice) { HintSet(sAdvice.toStdString()); });
    }
    for (LocationField* pField : {txtLat1, txtLon1})
        connect(pField, &QLineEdit::textChanged, this, &frmMain::TransmitterTyped);
    const auto ButtonConnect = [this](QPushButton* pButton, void (frmMain::*pfnClick)()) {
        connect(pButton, &QPushButton::clicked, this,
                [this, pfnClick] { Command([this, pfnClick] { (this->*pfnClick)(); }); });
    };
    ButtonConnect(cmdUpdate, &frmMain::cmdUpdateClick);
    ButtonConnect(cmdRcAirmail, &frmMain::cmdRcAirmailClick);
    ButtonConnect(cmdTxAirmail, &frmMain::cmdTxAirmailClick);
    ButtonConnect(cmdRcMap, &frmMain::mnuViewWorldMapClick);
    ButtonConnect(cmdTxMap, &frmMain::mnuViewWorldMapClick);
    connect(mnuTransmitter, &StationMenu::StationChosen, this, [this](const Station& station) {
        Command([this, station] { StationChoose(station); });
    });
    const auto CellClick = [this](int iRow, int iCol) {
        Command([this, iRow, iCol] { grdDataClick(iRow, iCol); });
    };
    connect(grdData, &GridControl::CellClicked, this, CellClick);
    connect(grdData, &GridControl::EnterPressed, this, CellClick);
    connect(grdData, &GridControl::CellPressed, this, &frmMain::grdDataMouseDown);
    connect(grdData, &GridControl::CellMenu, this, &frmMain::grdDataMenu);
    connect(grdData, &GridControl::MouseMoved, this, &frmMain::grdDataMouseMove);
    connect(tmrTime, &QTimer::timeout, this, &frmMain::tmrTimeTick);
}

void frmMain::CommandConnect(QAction* pAction, void (frmMain::*pfnCommand)())
{
    connect(pAction, &QAction::triggered, this,
            [this, pfnCommand] { Command([this, pfnCommand] { (this->*pfnCommand)(); }); });
}

void frmMain::MenusConnect()
{
    CommandConnect(mnuFileDefault, &frmMain::mnuFileDefaultClick);
    CommandConnect(mnuFileOpen, &frmMain::mnuFileOpenClick);
    CommandConnect(mnuFileSave, &frmMain::mnuFileSaveClick);
    CommandConnect(mnuFileExit, &frmMain::mnuFileExitClick);
    CommandConnect(mnuViewWorldMap, &frmMain::mnuViewWorldMapClick);
    CommandConnect(mnuViewDetailData, &frmMain::mnuViewDetailDataClick);
    connect(mnuHelpGuide, &QAction::triggered, this, [] { GuideShow(ProgramFolderGet()); });
    CommandConnect(mnuHelpAbout, &frmMain::mnuHelpAboutClick);
    connect(mnuView, &QMenu::aboutToShow, this, &frmMain::mnuViewOpen);
    int iTab = 0;
    for (QAction* pAction :
         {mnuOptionsAirMail, mnuOptionsModel, mnuOptionsFrequency, mnuOptionsTime, mnuOptionsMap}) {
        connect(pAction, &QAction::triggered, this,
                [this, iTab] { Command([this, iTab] { OptionsShow(iTab); }); });
        ++iTab;
    }
}

/// The profile stays the one that the program was started with or that was opened.
void frmMain::Initialize()
{
    const std::string sProfileFile = m_settings.m_sProfileFile;
    m_settings.Initialize();
    m_settings.m_sProfileFile = sProfileFile;
}

void frmMain::ProfileSaveError(int nErrorCode) const
{
    MsgShow({::ProfileSaveError(m_settings, nErrorCode)});
}

float frmMain::FrequencyGet(int iIndex) const { return m_settings.FrequencyGet(iIndex); }

void frmMain::FrequencySet(int iIndex, float fValue) { m_settings.FrequencySet(iIndex, fValue); }

Request frmMain::TableInputGet() const
{
    return m_table.nData > 0 ? m_table.request : RequestFromSettings(m_settings);
}

SelectedCell frmMain::DataGetSelected() const { return m_settings.m_selected; }

void frmMain::ProfileRead()
{
    QRect rectOuter = m_rectOuter.value_or(frameGeometry());
    bool bPlaced = false;
    const auto resDropped = ProfileLoad(m_settings, [&](WindowKey eKey, float fTwips) {
        WindowKeyApply(rectOuter, eKey, fTwips);
        bPlaced = true;
    });
    m_sNotice = StatusProfile(resDropped);
    if (!bPlaced)
        return;
    WindowOuterSet(*this, rectOuter);
    if (!m_bPainted)
        m_rectOuter = rectOuter;
}

void frmMain::ProfileWrite()
{
    Messages aMessages;
    ProfileSave(m_settings, WindowDataGet(*this), &aMessages);
    MsgShow(aMessages);
}

void frmMain::showEvent(QShowEvent* pEvent)
{
    QMainWindow::showEvent(pEvent);
    if (!m_bActivating)
        ActivationBegin();
}

/// What belongs before the window is seen: its pictures, its settings and its place.
void frmMain::ActivationBegin()
{
    m_bActivating = true;
    for (QPushButton* pButton : {cmdRcAirmail, cmdTxAirmail})
        pButton->setIcon(PictureGet(QStringLiteral("Airmail")));
    HourHeaderLayout();
    FrequencyRowsLayout();
    const QRect rectScreen = screen()->availableGeometry();
    // The table has only now got its columns; the layouts would learn of that by an event to come.
    for (QLayout* pLayout : {pnlMain->layout(), centralwidget->layout(), layout()}) {
        pLayout->invalidate();
        pLayout->activate();
    }
    resize(sizeHint().boundedTo(rectScreen.size()));
    ProfileRead();
    AirMailFoldersFind();
    FrequencyRowsLayout();
    PositionsShow();
    tmrTime->start(kClockTick);
}

/// The first prediction waits until the window is on the screen, so that a slow engine does not
/// look like a program that will not start.
void frmMain::paintEvent(QPaintEvent* pEvent)
{
    QMainWindow::paintEvent(pEvent);
    if (m_bPainted)
        return;
    m_bPainted = true;
    QTimer::singleShot(0, this, &frmMain::ActivationEnd);
}

void frmMain::ActivationEnd()
{
    // Only now the window's frame is known, so that the outer size of the profile can be met.
    if (m_rectOuter)
        WindowOuterSet(*this, *m_rectOuter);
    m_rectOuter.reset();
    grdData->RedrawSet(false);
    HourHeaderLayout();
    if (Update()) {
        CurrentHourSelect(m_settings.m_selected.iFrequency);
        tmrTimeTick();
    }
    m_bActivated = true;
    Q_EMIT Activated();
}

void frmMain::closeEvent(QCloseEvent* pEvent)
{
    if (m_bRunning) {
        m_aWaiting.emplace_back([this] { close(); });
        pEvent->ignore();
        return;
    }
    WindowsUnload();
    if (!m_bUnloaded)
        ProfileWrite();
    m_bUnloaded = true;
    pEvent->accept();
}

void frmMain::WindowsUnload()
{
    delete m_pAbout;
    delete m_pDetails;
    delete m_pMap;
    delete m_pOptions;
}

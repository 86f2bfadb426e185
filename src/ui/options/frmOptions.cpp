#include "ui/options/frmOptions.h"

#include <QKeyEvent>
#include <QPointer>
#include <QTextBlock>
#include <utility>
#include <vector>

#include "propagation/PowerTable.h"
#include "propagation/QIndexLib.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "settings/SunSpotLib.h"
#include "system/ClockLib.h"
#include "system/NumberLib.h"
#include "ui/common/PaletteShown.h"
#include "ui/common/ScrollPage.h"
#include "ui/options/AntennaTip.h"
#include "ui/options/FrequencyText.h"
#include "ui/options/frmForecast.h"

namespace {

constexpr int kTickMs = 1000;

QString TimeText(const DateTime& dt)
{
    const auto Part = [](int n) {
        return QString::fromStdString(NumberFormat(static_cast<double>(n), "00"));
    };
    return Part(dt.nHour) + u':' + Part(dt.nMinute) + u':' + Part(dt.nSecond);
}

/// Puts a page after one of the dialog's controls in the tab order; the page keeps its own order.
void TabOrderMove(QWidget* pBehind, const QWidget& page)
{
    std::vector<QWidget*> apControl;
    for (QWidget* p = page.nextInFocusChain(); p != &page; p = p->nextInFocusChain())
        if (page.isAncestorOf(p) && (p->focusPolicy() & Qt::TabFocus) != 0)
            apControl.push_back(p);
    for (QWidget* pControl : apControl) {
        QWidget::setTabOrder(pBehind, pControl);
        pBehind = pControl;
    }
}

}  // namespace

frmOptions::frmOptions(MainWindowHost& host, QWidget* pParent)
    : QDialog(pParent),
      tmrTime(new QTimer(this)),
      pagStation(new StationPage(this)),
      pagColour(new ColourPage(this)),
      m_host(host)
{
    Ui::frmOptions::setupUi(this);
    Ui::OptionsModel::setupUi(pagModel);
    SSTab->addTab(pagStation, tr("S&tation"));
    SSTab->addTab(pagColour, tr("Colours"));
    setAttribute(Qt::WA_DeleteOnClose);
    PagesScroll();
    m_controls = SettingControls(*this);
    m_pModelGroup = &m_controls.GroupGet(&Settings::m_iPropagationModel);
    TabOrderSet();
    SignalsConnect();
    m_sFrequencyHint = lblFrequencyHint->text();
    Update();
    tmrTimeTick();
    tmrTime->start(kTickMs);
    SizeSet();
}

void frmOptions::PagesScroll()
{
    for (int i = 0; i < SSTab->count(); ++i) {
        const QString sTitle = SSTab->tabText(i);
        QWidget* pPage = SSTab->widget(i);
        SSTab->removeTab(i);
        SSTab->insertTab(i, new ScrollPage(pPage, SSTab), sTitle);
    }
    SSTab->setCurrentIndex(kTabAirmail);
}

/// As large as the pages, but no larger than the screen. On a small screen there is room for one
/// scroll bar beside the page, so that a second one is not needed.
void frmOptions::SizeSet()
{
    QSize sizeWhole = sizeHint();
    const QSize sizeScreen = screen()->availableSize();
    if (sizeWhole.height() > sizeScreen.height())
        sizeWhole.rwidth() += style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    resize(sizeWhole.boundedTo(sizeScreen));
}

/// Until here, the pages with forms of their own are elsewhere in the tab order.
void frmOptions::TabOrderSet()
{
    TabOrderMove(SSTab, *pagModel);
    TabOrderMove(cmbMapWorldBegins, *pagStation);
    TabOrderMove(pagStation->cmdNeedRestore, *pagColour);
}

void frmOptions::SignalsConnect()
{
    connect(&m_host.SettingsSignalGet(), &SettingsSignal::Changed, this, &frmOptions::Update);
    // Night can also be switched elsewhere; what was typed on other tabs is kept.
    connect(&PaletteSignal::Get(), &PaletteSignal::Changed, this, [this] {
        pagColour->cmbPalette->setCurrentIndex(static_cast<int>(m_host.SettingsGet().m_ePalette));
    });
    connect(cmdApply, &QPushButton::clicked, this, &frmOptions::cmdApplyClick);
    connect(cmdCancel, &QPushButton::clicked, this, &frmOptions::cmdCancelClick);
    connect(cmdDefault, &QPushButton::clicked, this, &frmOptions::cmdDefaultClick);
    connect(cmdOk, &QPushButton::clicked, this, &frmOptions::cmdOkClick);
    connect(m_pModelGroup, &QButtonGroup::idToggled, this, &frmOptions::optPropagationModelClick);
    connect(chkPropagationMaps, &QCheckBox::toggled, this, &frmOptions::chkPropagationMapsClick);
    connect(chkPropagationMonth, &QCheckBox::toggled, this, &frmOptions::chkPropagationMonthClick);
    SunSpotConnect();
    connect(cmbPropagationAntennaType, &QComboBox::currentIndexChanged, this,
            &frmOptions::AntennaExplain);
    connect(txtPropagationQIndex, &QLineEdit::textChanged, this,
            &frmOptions::txtPropagationQIndexChange);
    connect(txtFrequency, &QPlainTextEdit::textChanged, this,
            [this] { lblFrequencyHint->setText(m_sFrequencyHint); });
    connect(lstHamVoiceBands, &QListWidget::itemDoubleClicked, this, &frmOptions::BandAppend);
    connect(tmrTime, &QTimer::timeout, this, &frmOptions::tmrTimeTick);
    lstHamVoiceBands->installEventFilter(this);
    for (QComboBox* pList : findChildren<QComboBox*>()) pList->installEventFilter(this);
}

/// The two sources of the sunspot number: ticking one unticks the other.
void frmOptions::SunSpotConnect()
{
    for (QCheckBox* pBox : {chkPropagationSunSpotNumber, chkPropagationForecast})
        connect(pBox, &QCheckBox::toggled, this, &frmOptions::SunSpotSourcesEnable);
    // Clicked, not toggled: settings with both ticked are shown as they are.
    connect(chkPropagationSunSpotNumber, &QCheckBox::clicked, chkPropagationForecast,
            [this](bool bOn) {
                chkPropagationForecast->setChecked(!bOn && chkPropagationForecast->isChecked());
            });
    connect(
        chkPropagationForecast, &QCheckBox::clicked, chkPropagationSunSpotNumber, [this](bool bOn) {
            chkPropagationSunSpotNumber->setChecked(!bOn
                                                    && chkPropagationSunSpotNumber->isChecked());
        });
    connect(cmbPropagationMonth, &QComboBox::currentIndexChanged, this,
            &frmOptions::ForecastNumberShow);
    connect(cmdForecast, &QPushButton::clicked, this, &frmOptions::cmdForecastClick);
}

void frmOptions::TabShow(int iTab)
{
    SSTab->setCurrentIndex(iTab);
    const QWidget* pPage = SSTab->currentWidget();
    for (QWidget* p = SSTab->nextInFocusChain(); p != SSTab; p = p->nextInFocusChain()) {
        if (!pPage->isAncestorOf(p) || !p->isEnabled() || (p->focusPolicy() & Qt::TabFocus) == 0)
            continue;
        // In a group of buttons the chosen one, as for the Tab key.
        auto* pButton = qobject_cast<QRadioButton*>(p);
        QAbstractButton* pChosen = pButton != nullptr && pButton->group() != nullptr
                                       ? pButton->group()->checkedButton()
                                       : nullptr;
        (pChosen != nullptr ? pChosen : p)->setFocus();
        return;
    }
}

void frmOptions::reject()
{
    // The run started here still needs this window; it closes when the run ends.
    if (m_bUpdating)
        m_bCloseWaiting = true;
    else
        QDialog::reject();
}

bool frmOptions::eventFilter(QObject* pObject, QEvent* pEvent)
{
    if (pObject == lstHamVoiceBands && pEvent->type() == QEvent::KeyPress
        && static_cast<QKeyEvent*>(pEvent)->key() == Qt::Key_Space) {
        BandAppend();
        return true;
    }
    // Ctrl+Tab turns the pages; a list would take it for the first letter of an entry.
    if (pEvent->type() == QEvent::KeyPress && qobject_cast<QComboBox*>(pObject) != nullptr) {
        const auto* pKey = static_cast<QKeyEvent*>(pEvent);
        if ((pKey->key() == Qt::Key_Tab || pKey->key() == Qt::Key_Backtab)
            && (pKey->modifiers() & Qt::ControlModifier) != 0) {
            pEvent->ignore();
            return true;
        }
    }
    return QDialog::eventFilter(pObject, pEvent);
}

void frmOptions::cmdDefaultClick()
{
    if (m_bUpdating)
        return;
    m_host.Initialize();
    m_sSunSpotTyped.reset();
    Update();
    HostUpdate();
}

void frmOptions::cmdOkClick()
{
    if (SettingsApply())
        accept();
}

void frmOptions::chkPropagationMapsClick()
{
    const bool bMean =
        chkPropagationMaps->isChecked() && EngineIsHopcasts(m_pModelGroup->checkedId());
    cmbPropagationIonCoefficients->setEnabled(!bMean);
    lblPropagationIonCoefficients->setEnabled(!bMean);
    const QString sGuidance = cmbPropagationIonCoefficients->accessibleName();
    cmbPropagationIonCoefficients->setToolTip(
        bMean ? tr("%1\nIn force: the mean of both, see below").arg(sGuidance) : sGuidance);
}

void frmOptions::chkPropagationMonthClick()
{
    cmbPropagationMonth->setEnabled(!chkPropagationMonth->isChecked());
    lblPropagationMonth->setEnabled(cmbPropagationMonth->isEnabled());
    ForecastNumberShow();
}

void frmOptions::SunSpotSourcesEnable()
{
    NumberBoxEnable(txtPropagationSunSpotNumber, !chkPropagationSunSpotNumber->isChecked()
                                                     && !chkPropagationForecast->isChecked());
    ForecastNumberShow();
}

/// While the forecast is used, the disabled box shows the number for the chosen month; afterwards
/// the typed number again.
/// that the typed one again.
void frmOptions::ForecastNumberShow()
{
    const QString sGuidance = txtPropagationSunSpotNumber->accessibleName();
    txtPropagationSunSpotNumber->setToolTip(sGuidance);
    if (!chkPropagationForecast->isChecked() || chkPropagationSunSpotNumber->isChecked()) {
        if (const auto sTyped = std::exchange(m_sSunSpotTyped, {}))
            txtPropagationSunSpotNumber->setText(*sTyped);
        return;
    }
    Settings settings = m_host.SettingsGet();
    settings.m_bPropagationSunSpotNumber = false;
    settings.m_bPropagationForecast = true;
    settings.m_bPropagationMonth = chkPropagationMonth->isChecked();
    settings.m_iPropagationMonth = cmbPropagationMonth->currentIndex() + 1;
    SunSpotRun ssn;
    if (const auto res = SunSpotRunGet(settings, {}, ssn, nullptr); !res || !res.ValueGet())
        return;
    if (!m_sSunSpotTyped)
        m_sSunSpotTyped = txtPropagationSunSpotNumber->text();
    txtPropagationSunSpotNumber->setText(QString::fromStdString(NumberToText(ssn.fNumber)));
    const std::string sWarning = ssn.sWarning.empty() ? "" : "\n" + ssn.sWarning;
    txtPropagationSunSpotNumber->setToolTip(
        sGuidance + QString::fromStdString("\n" + ssn.sDetail + sWarning));
}

void frmOptions::cmdForecastClick()
{
    auto* pDialog = new frmForecast(m_host.SettingsGet().m_sProfileFile, this);
    connect(pDialog, &QDialog::accepted, this, &frmOptions::ForecastNumberShow);
    pDialog->open();
}

/// The meaning of the antenna entries depends on the engine.
void frmOptions::AntennaExplain()
{
    const int iModel = m_pModelGroup->checkedId();
    cmbPropagationAntennaType->setToolTip(AntennaTipGet(iModel));
    pagStation->PowerExplain(iModel, cmbPropagationAntennaType->currentIndex());
}

void frmOptions::optPropagationModelClick()
{
    const int iModel = m_pModelGroup->checkedId();
    const bool bComplex = iModel == kEngineIcepac || iModel == kEngineVoacap;
    for (QLineEdit* pBox :
         {txtPropagationLayerE, txtPropagationLayerEs, txtPropagationLayerF1, txtPropagationLayerF2,
          txtPropagationMultipathDelay, txtPropagationMultipathPower, txtPropagationQIndex})
        NumberBoxEnable(pBox, bComplex);
    lblPropagationKIndex->setEnabled(bComplex);
    lblPropagationKIndexCaption->setEnabled(bComplex);
    chkPropagationMapsClick();
    AntennaExplain();
}

void frmOptions::NumberBoxEnable(QLineEdit* pBox, bool bEnabled)
{
    // The user cannot correct a disabled box, so a text that would be refused is replaced by the
    // setting.
    if (!bEnabled && !m_controls.TextFits(*pBox))
        m_controls.Load(*pBox, m_host.SettingsGet());
    pBox->setEnabled(bEnabled);
    const QString sSubject = pBox->objectName().mid(3);  // after "txt"
    for (const QString& sPart : {QStringLiteral("Caption"), QStringLiteral("Unit")})
        if (auto* pLabel = findChild<QLabel*>(QStringLiteral("lbl") + sSubject + sPart))
            pLabel->setEnabled(bEnabled);
}

void frmOptions::BandAppend()
{
    const QListWidgetItem* pItem = lstHamVoiceBands->currentItem();
    const auto sMiddle = pItem ? BandMiddleGet(pItem->text().toStdString()) : std::nullopt;
    if (!sMiddle)
        return;
    QTextCursor cursor(txtFrequency->document());
    cursor.movePosition(QTextCursor::End);
    const bool bLineEmpty = cursor.block().text().trimmed().isEmpty();
    cursor.insertText((bLineEmpty ? QString() : QStringLiteral("\n"))
                      + QString::fromStdString(*sMiddle));
    txtFrequency->setTextCursor(cursor);
    txtFrequency->ensureCursorVisible();
}

void frmOptions::txtPropagationQIndexChange()
{
    const auto resQ = NumberFromTextSingle(txtPropagationQIndex->text().toStdString());
    lblPropagationKIndex->setText(
        resQ ? QString::fromStdString(NumberFormat(PropagationQtoK(resQ.ValueGet()), "0.0"))
             : QStringLiteral("?"));
}

void frmOptions::tmrTimeTick()
{
    lblTimeCode0->setText(TimeText(UtcNow()));
    lblTimeCode1->setText(TimeText(LocalNow()));
}

bool frmOptions::SettingsApply()
{
    if (m_bUpdating)
        return false;
    // Nothing is copied until every number is valid; otherwise only some tabs would be in force.
    Settings typed = m_host.SettingsGet();
    if (const auto refused = m_controls.Read(typed); refused.pBox != nullptr)
        return NumberRefused(refused.pBox, refused.sWhy);
    const bool bTaken = FrequencyCopy();
    m_controls.Copy(typed, m_host.SettingsGet());
    pagStation->Copy(m_host.SettingsGet());
    // The main window has this dialog filled again; refused lines are kept, to be corrected.
    m_bFrequencyKeep = !bTaken;
    return HostUpdate();
}

/// @return true if the caller may close the dialog
bool frmOptions::HostUpdate()
{
    const QPointer<frmOptions> pSelf(this);
    m_bUpdating = true;
    m_host.Update();
    if (!pSelf)  // the program has ended meanwhile
        return false;
    m_bUpdating = false;
    m_bFrequencyKeep = false;
    if (m_bCloseWaiting)
        QDialog::reject();
    return pSelf && !m_bCloseWaiting;
}

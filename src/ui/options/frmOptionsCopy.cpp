// Copies the options dialog's values in both directions: settings to controls, controls to
// settings.
#include <QTextBlock>

#include "airmail/AirMailLib.h"
#include "geo/MathLib.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "system/MsgLib.h"
#include "system/TextLib.h"
#include "ui/common/Words.h"
#include "ui/options/FrequencyText.h"
#include "ui/options/frmOptions.h"

namespace {

QString PositionText(double dLatitude, double dLongitude, const DateTime& dtTime)
{
    const QString sLat = QString::fromStdString(LatitudeToText(dLatitude));
    const QString sLon = QString::fromStdString(LongitudeToText(dLongitude));
    if (dtTime.IsZero())
        return frmOptions::tr("Lat %1, Lon %2").arg(sLat, sLon);
    return frmOptions::tr("Lat %1, Lon %2 is %3 old.")
        .arg(sLat, sLon, QString::fromStdString(AirMailAgeText(dtTime)));
}

}  // namespace

void frmOptions::Update()
{
    const std::string sBefore = m_sAirMailError;
    AirMailLoad();
    FrequencyLoad();
    const Settings& settings = m_host.SettingsGet();
    if (settings.m_bPropagationSunSpotNumber || !settings.m_bPropagationForecast)
        m_sSunSpotTyped.reset();  // the settings hold the typed number
    const auto sTyped = m_sSunSpotTyped;
    m_controls.Load(settings);
    // If the month changed, the forecast's number has already been put into the box.
    m_controls.Load(*txtPropagationSunSpotNumber, settings);
    m_sSunSpotTyped = sTyped;
    pagStation->Load(m_host.SettingsGet());
    EnginesMissingShow();
    chkPropagationMonthClick();
    SunSpotSourcesEnable();
    optPropagationModelClick();
    // A lasting error is reported once, not at every prediction.
    if (!m_sAirMailError.empty() && m_sAirMailError != sBefore)
        MsgBox(MsgIcon::None, WordsPut(tr("Airmail's position: %1"), m_sAirMailError));
}

void frmOptions::AirMailLoad()
{
    txtAirMailDirectory->setText(QString::fromStdString(TextPrintable(AirMailDataFolderGet())));
    lblAirMailOrigin->setText(
        tr("Source of this folder: %1. Editing it here has no effect.")
            .arg(QString::fromUtf8(AirMailOriginText(AirMailDataOriginGet()))));
    double dLatitude = 0.0;
    double dLongitude = 0.0;
    DateTime dtTime;
    const auto resFound = AirMailPositionGet(dLatitude, dLongitude, dtTime, nullptr);
    lblAirMailLatLon->setText(resFound && resFound.ValueGet()
                                  ? PositionText(dLatitude, dLongitude, dtTime)
                                  : tr("Unable to get Lat/Lon data."));
    lblAirMailVersion->setText(QString::fromStdString(AirMailVersionText()));
    m_sAirMailError = resFound.TextGet();
}

void frmOptions::FrequencyLoad()
{
    if (m_bFrequencyKeep)
        return;
    const QString sText = QString::fromStdString(FrequencyListToText(
        m_host.SettingsGet().m_nData, [this](int i) { return m_host.FrequencyGet(i); }));
    // An unchanged text keeps its caret and undo history.
    if (QString(sText).remove(u'\r') != txtFrequency->toPlainText())
        txtFrequency->setPlainText(sText);
}

bool frmOptions::FrequencyCopy()
{
    QString sText = txtFrequency->toPlainText();
    sText.replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
    FrequencyRefused refused;
    const bool bTaken = FrequencyListFromText(
        sText.toStdString(), [this](int i, float fKhz) { m_host.FrequencySet(i, fKhz); },
        m_host.SettingsGet().m_nData, &refused);
    if (!bTaken)
        FrequencyRefusedShow(refused);
    return bTaken;
}

/// Selects the refused line, so that typing replaces it, and shows what is wrong with it.
void frmOptions::FrequencyRefusedShow(const FrequencyRefused& refused)
{
    SSTab->setCurrentIndex(kTabFrequency);
    txtFrequency->setFocus();
    QTextCursor cursor(txtFrequency->document()->findBlockByNumber(refused.iLine - 1));
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    txtFrequency->setTextCursor(cursor);
    txtFrequency->ensureCursorVisible();
    lblFrequencyHint->setText(QString::fromStdString(refused.sHint));
}

/// Says below an engine's description that it is missing.
void frmOptions::EnginesMissingShow()
{
    for (QAbstractButton* pButton : m_pModelGroup->buttons()) {
        const int iModel = m_pModelGroup->id(pButton);
        const QString sMissing =
            EngineCheckInstalled(iModel, nullptr)
                ? QString()
                : tr("Not installed: no %1").arg(QString::fromStdString(EngineProgramPath(iModel)));
        const QString sGuidance = pButton->accessibleName();
        pButton->setToolTip(sMissing.isEmpty() ? sGuidance : sGuidance + u'\n' + sMissing);
        pButton->setAccessibleDescription(sMissing);
    }
}

bool frmOptions::NumberRefused(QLineEdit* pBox, const std::string& sText)
{
    for (int iTab = 0; iTab < SSTab->count(); ++iTab)
        if (SSTab->widget(iTab)->isAncestorOf(pBox))
            SSTab->setCurrentIndex(iTab);
    pBox->setFocus();
    pBox->selectAll();
    return MsgFail(MsgIcon::None, WordsPut(tr("Unable to use \"%1\", %2.  Please type a number."),
                                           TextForMessage(pBox->text().toStdString()), sText));
}

// The two ways of the options dialog's values: settings to controls, controls to settings.
#include "airmail/AirMailLib.h"
#include "geo/MathLib.h"
#include "system/MsgLib.h"
#include "system/TextLib.h"
#include "ui/options/FrequencyText.h"
#include "ui/options/frmOptions.h"

namespace {

QString PositionText(double dLatitude, double dLongitude, const DateTime& dtTime)
{
    std::string sText = "Lat " + LatitudeToText(dLatitude) + ", Lon " + LongitudeToText(dLongitude);
    if (!dtTime.IsZero())
        sText += " is " + AirMailAgeText(dtTime) + " old.";
    return QString::fromStdString(sText);
}

}  // namespace

void frmOptions::Update()
{
    const std::string sBefore = m_sAirMailError;
    AirMailLoad();
    FrequencyLoad();
    m_controls.Load(m_host.SettingsGet());
    chkPropagationMonthClick();
    chkPropagationSunSpotNumberClick();
    optPropagationModelClick();
    // An error that lasts is told once, not at every prediction.
    if (!m_sAirMailError.empty() && m_sAirMailError != sBefore)
        MsgBox(MsgIcon::None, "Airmail's position: " + m_sAirMailError);
}

void frmOptions::AirMailLoad()
{
    txtAirMailDirectory->setText(QString::fromStdString(TextPrintable(AirMailDataFolderGet())));
    lblAirMailOrigin->setText(
        QStringLiteral("Source of this folder: %1. Editing it here has no effect.")
            .arg(QString::fromUtf8(AirMailOriginText(AirMailDataOriginGet()))));
    double dLatitude = 0.0;
    double dLongitude = 0.0;
    DateTime dtTime;
    const auto resFound = AirMailPositionGet(dLatitude, dLongitude, dtTime, nullptr);
    lblAirMailLatLon->setText(resFound && resFound.ValueGet()
                                  ? PositionText(dLatitude, dLongitude, dtTime)
                                  : QStringLiteral("Unable to get Lat/Lon data."));
    lblAirMailVersion->setText(QString::fromStdString(AirMailVersionText()));
    m_sAirMailError = resFound.TextGet();
}

void frmOptions::FrequencyLoad()
{
    if (m_bFrequencyKeep)
        return;
    const QString sText = QString::fromStdString(FrequencyListToText(
        m_host.SettingsGet().m_nData, [this](int i) { return m_host.FrequencyGet(i); }));
    // A text that stays the same keeps its caret and what can be undone.
    if (QString(sText).remove(u'\r') != txtFrequency->toPlainText())
        txtFrequency->setPlainText(sText);
}

bool frmOptions::FrequencyCopy()
{
    QString sText = txtFrequency->toPlainText();
    sText.replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
    return FrequencyListFromText(
        sText.toStdString(), [this](int i, float fKhz) { m_host.FrequencySet(i, fKhz); },
        m_host.SettingsGet().m_nData);
}

bool frmOptions::NumberRefused(QLineEdit* pBox, const std::string& sText)
{
    for (int iTab = 0; iTab < SSTab->count(); ++iTab)
        if (SSTab->widget(iTab)->isAncestorOf(pBox))
            SSTab->setCurrentIndex(iTab);
    pBox->setFocus();
    pBox->selectAll();
    return MsgFail(MsgIcon::None, "Unable to use \"" + TextForMessage(pBox->text().toStdString())
                                      + "\", " + sText + ".  Please type a number.");
}

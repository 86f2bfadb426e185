// The two ways of the options dialog's values: settings to controls, controls to settings.
#include <limits>

#include "airmail/AirMailLib.h"
#include "geo/MathLib.h"
#include "settings/SettingsTable.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"
#include "ui/options/FrequencyText.h"
#include "ui/options/frmOptions.h"

namespace {

/// A whole number of 32 bits, rounded half to even.
Result<int> IntegerFromText(const std::string& sText)
{
    const auto resNumber = NumberFromText(sText);
    if (!resNumber)
        return resNumber.ErrorGet();
    constexpr double kMost = std::numeric_limits<int>::max() + 0.5;
    constexpr double kLeast = std::numeric_limits<int>::min() - 0.5;
    if (resNumber.ValueGet() >= kMost || resNumber.ValueGet() < kLeast)
        return RunError{kOverflow};
    return RoundHalfEven(resNumber.ValueGet());
}

/// Selects the button of a number; a number without one leaves none selected.
void GroupSelect(QButtonGroup& grp, int iButton)
{
    if (QAbstractButton* pButton = grp.button(iButton)) {
        pButton->setChecked(true);
        return;
    }
    grp.setExclusive(false);
    if (QAbstractButton* pButton = grp.checkedButton())
        pButton->setChecked(false);
    grp.setExclusive(true);
}

/// Selects an entry; an index without one leaves none selected.
void ComboSelect(QComboBox* pCombo, int iIndex)
{
    pCombo->setCurrentIndex(iIndex >= 0 && iIndex < pCombo->count() ? iIndex : -1);
}

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
    MapLoad();
    ModelLoad();
    TimeLoad();
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

void frmOptions::MapLoad()
{
    const Settings& settings = m_host.SettingsGet();
    txtMapOverlayMinSnr->setText(
        QString::fromStdString(NumberToText(settings.m_fMapOverlayMinSnr)));
    txtMapOverlayGridSize->setText(
        QString::fromStdString(NumberToText(settings.m_iMapOverlayGridSize)));
    cmbMapWorldBegins->setCurrentIndex(settings.m_iMapWorldBegins == 0 ? 0 : 1);
}

void frmOptions::ModelLoad()
{
    const Settings& settings = m_host.SettingsGet();
    for (const NumberBox& box : m_aModelBoxes)
        box.pBox->setText(QString::fromStdString(NumberToText(settings.*box.pMember)));
    ComboSelect(cmbPropagationAntennaType, settings.m_iPropagationAntennaType);
    ComboSelect(cmbPropagationMonth, settings.m_iPropagationMonth - 1);
    cmbPropagationIonCoefficients->setCurrentIndex(cmbPropagationIonCoefficients->findText(
        QString::fromStdString(settings.m_sPropagationIonCoefficients),
        Qt::MatchExactly | Qt::MatchCaseSensitive));
    chkPropagationMaps->setChecked(settings.m_bPropagationMapsMean);
    chkPropagationMonth->setChecked(settings.m_bPropagationMonth);
    chkPropagationSunSpotNumber->setChecked(settings.m_bPropagationSunSpotNumber);
    GroupSelect(m_grpModel, settings.m_iPropagationModel);
    chkPropagationMonthClick();
    chkPropagationSunSpotNumberClick();
    optPropagationModelClick();
}

void frmOptions::TimeLoad() { GroupSelect(m_grpTimeCode, m_host.SettingsGet().m_iTimeCode); }

bool frmOptions::FrequencyCopy()
{
    QString sText = txtFrequency->toPlainText();
    sText.replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
    return FrequencyListFromText(
        sText.toStdString(), [this](int i, float fKhz) { m_host.FrequencySet(i, fKhz); },
        m_host.SettingsGet().m_nData);
}

bool frmOptions::NumbersRead(Numbers& numbers)
{
    const auto resMinSnr = NumberFromTextSingle(txtMapOverlayMinSnr->text().toStdString());
    if (!resMinSnr)
        return NumberRefused(txtMapOverlayMinSnr, resMinSnr.TextGet());
    const auto resGridSize = IntegerFromText(txtMapOverlayGridSize->text().toStdString());
    if (!resGridSize)
        return NumberRefused(txtMapOverlayGridSize, resGridSize.TextGet());
    numbers.fMapOverlayMinSnr = resMinSnr.ValueGet();
    numbers.iMapOverlayGridSize = resGridSize.ValueGet();
    for (std::size_t n = 0; n < m_aModelBoxes.size(); ++n) {
        QLineEdit* pBox = m_aModelBoxes[n].pBox;
        const auto resNumber = NumberFromTextSingle(pBox->text().toStdString());
        if (!resNumber)
            return NumberRefused(pBox, resNumber.TextGet());
        if (const NumberRange range = SettingRowGet(m_aModelBoxes[n].pMember).range;
            !range.Holds(resNumber.ValueGet()))
            return NumberRefused(pBox, RangeFaultText(resNumber.ValueGet(), range));
        numbers.afModel[n] = resNumber.ValueGet();
    }
    return true;
}

void frmOptions::MapCopy(const Numbers& numbers)
{
    m_host.SettingsGet().m_fMapOverlayMinSnr = numbers.fMapOverlayMinSnr;
    m_host.SettingsGet().m_iMapOverlayGridSize = numbers.iMapOverlayGridSize;
    m_host.SettingsGet().m_iMapWorldBegins = cmbMapWorldBegins->currentIndex() == 0 ? 0 : -180;
}

void frmOptions::ModelCopy(const Numbers& numbers)
{
    Settings& settings = m_host.SettingsGet();
    for (std::size_t n = 0; n < m_aModelBoxes.size(); ++n)
        settings.*m_aModelBoxes[n].pMember = numbers.afModel[n];
    // Where nothing is selected the setting is one that no control can show; it is kept.
    if (m_grpModel.checkedButton())
        settings.m_iPropagationModel = m_grpModel.checkedId();
    if (cmbPropagationAntennaType->currentIndex() >= 0)
        settings.m_iPropagationAntennaType = cmbPropagationAntennaType->currentIndex();
    if (cmbPropagationMonth->currentIndex() >= 0)
        settings.m_iPropagationMonth = cmbPropagationMonth->currentIndex() + 1;
    if (cmbPropagationIonCoefficients->currentIndex() >= 0)
        settings.m_sPropagationIonCoefficients =
            cmbPropagationIonCoefficients->currentText().toStdString();
    settings.m_bPropagationMapsMean = chkPropagationMaps->isChecked();
    settings.m_bPropagationMonth = chkPropagationMonth->isChecked();
    settings.m_bPropagationSunSpotNumber = chkPropagationSunSpotNumber->isChecked();
}

void frmOptions::TimeCopy()
{
    if (m_grpTimeCode.checkedButton())
        m_host.SettingsGet().m_iTimeCode = m_grpTimeCode.checkedId();
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

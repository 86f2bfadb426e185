/// @file frmOptions.h
/// The options dialog: all settings on tabs. It shows the settings when it is created and whenever
/// they change, and copies its controls back on Apply and OK. It is not modal; closing destroys it.
///
/// Units:   beside each box; numbers as their shortest text.
/// Errors:  a number box with an invalid text is reported and focused; then nothing is copied from
///          any tab, no prediction runs, and the dialog stays open. A disabled box is never
///          reported. An invalid line of the frequencies is reported, and the rest is applied.
/// Tests:   tests/ui/options/FrmOptions*Test.cpp
#pragma once

#include <QDialog>
#include <QTimer>
#include <optional>
#include <string>

#include "ui/common/MainWindowHost.h"
#include "ui/options/ColourPage.h"
#include "ui/options/FrequencyText.h"
#include "ui/options/SettingControls.h"
#include "ui/options/StationPage.h"
#include "ui_OptionsModel.h"
#include "ui_frmOptions.h"

/// The tabs, as numbered for TabShow.
enum OptionsTab {
    kTabAirmail,
    kTabModel,
    kTabFrequency,
    kTabTime,
    kTabMap,
    kTabStation,
    kTabColour
};

class frmOptions final : public QDialog, public Ui::frmOptions, public Ui::OptionsModel {
    Q_OBJECT
public:
    /// @param host  must outlive the dialog
    explicit frmOptions(MainWindowHost& host, QWidget* pParent = nullptr);

    /// Fills all controls from the settings and from Airmail.
    void Update();
    /// Brings a tab to the front, with the focus in its first field; an unknown number keeps the
    /// current tab.
    void TabShow(int iTab);

    QTimer* tmrTime;  ///< the clocks' tick  NOLINT(readability-identifier-naming)
    StationPage* pagStation;
    ColourPage* pagColour;

    void reject() override;  ///< Cancel, Escape and the close box
protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

private:
    void SignalsConnect();
    void SunSpotConnect();
    void TabOrderSet();
    void PagesScroll();
    void SizeSet();

    void AirMailLoad();
    void FrequencyLoad();
    bool FrequencyCopy();
    void FrequencyRefusedShow(const FrequencyRefused& refused);
    void EnginesMissingShow();
    bool NumberRefused(QLineEdit* pBox, const std::string& sText);

    void cmdApplyClick() { SettingsApply(); }
    void cmdCancelClick() { reject(); }
    void cmdDefaultClick();
    void cmdOkClick();
    void chkPropagationMapsClick();
    void chkPropagationMonthClick();
    void SunSpotSourcesEnable();
    void ForecastNumberShow();
    void cmdForecastClick();
    void AntennaExplain();
    void BandAppend();
    void optPropagationModelClick();
    void tmrTimeTick();
    void txtPropagationQIndexChange();

    bool SettingsApply();
    bool HostUpdate();
    void NumberBoxEnable(QLineEdit* pBox, bool bEnabled);

    MainWindowHost& m_host;
    SettingControls m_controls;
    QButtonGroup* m_pModelGroup;             // the engines
    QString m_sFrequencyHint;                // shown below the frequencies while none is refused
    std::optional<QString> m_sSunSpotTyped;  // while the forecast's number is shown in its place
    std::string m_sAirMailError;             // of the latest load; empty if Airmail could be read
    bool m_bFrequencyKeep = false;           // the text has lines that the list has not taken
    bool m_bUpdating = false;      // the main window is running a prediction for this dialog
    bool m_bCloseWaiting = false;  // closing was asked for meanwhile
};

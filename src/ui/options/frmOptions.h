/// @file frmOptions.h
/// The options dialog: every setting on its tabs. It shows the settings when it is made and
/// whenever the main window says that they changed, and copies its controls back on Apply and OK.
/// Not modal; a closed one is destroyed.
///
/// Units:   beside each box; numbers as their shortest text.
/// Errors:  a number box whose text is no number is told and focused; nothing of any tab is copied,
///          no prediction runs, and the dialog stays open. A grey box is never told. A frequency
///          line that is no number is told, and the rest goes on.
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

/// The tabs, as TabShow counts them.
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
    /// @param host  outlives the dialog.
    explicit frmOptions(MainWindowHost& host, QWidget* pParent = nullptr);

    /// Fills every control from the settings and from Airmail.
    void Update();
    /// Brings a tab to the front, with the focus in its first field; a number that is none of the
    /// tabs leaves the tab that is there.
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
    void FrequencyPointOut(const FrequencyRefused& refused);
    void EnginesTell();
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
    void AntennaTell();
    void BandAppend();
    void optPropagationModelClick();
    void tmrTimeTick();
    void txtPropagationQIndexChange();

    bool SettingsApply();
    bool HostUpdate();
    void NumberBoxEnable(QLineEdit* pBox, bool bEnabled);

    MainWindowHost& m_host;
    SettingControls m_controls;
    QButtonGroup* m_pModelGroup;  // the engines
    QString m_sFrequencyHint;     // what stands below the frequencies while none is refused
    std::optional<QString> m_sSunSpotTyped;  // while the forecast's number stands in its place
    std::string m_sAirMailError;             // of the latest load; empty when Airmail could be read
    bool m_bFrequencyKeep = false;           // the text holds lines that the list has not taken
    bool m_bUpdating = false;      // the main window runs a prediction that was asked for here
    bool m_bCloseWaiting = false;  // asked to close meanwhile
};

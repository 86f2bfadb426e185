/// @file frmForecast.h
/// Reads a forecast of the sunspot number, pasted or from a file. The result, or the reason for a
/// failure, is shown below the text; OK keeps the forecast beside the profile.
///
/// Errors:  if a forecast cannot be saved, a message box says so and the dialog stays open.
/// Tests:   tests/ui/options/FrmForecastTest.cpp
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <optional>
#include <string>

#include "settings/SunSpotForecast.h"
#include "system/Result.h"

class frmForecast final : public QDialog {
    Q_OBJECT
public:
    /// @param sProfileFile  the forecast is kept beside it
    explicit frmForecast(std::string sProfileFile, QWidget* pParent = nullptr);

    /// The e-mail that requests the forecast.
    [[nodiscard]] static QString RequestGet();

    void accept() override;

    QPlainTextEdit* txtForecast;
    QLabel* lblForecast;
    QPushButton* cmdOpen;
    QPushButton* cmdRequest;
    QPushButton* cmdOk;
    QPushButton* cmdCancel;

private:
    void Layout();
    void KeptShow();
    void txtForecastChange();
    void cmdOpenClick();
    void Show(const Result<SunSpotForecast>& res);

    std::string m_sProfileFile;
    std::optional<SunSpotForecast> m_forecast;  // the one read here
};

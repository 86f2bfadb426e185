/// @file frmForecast.h
/// Reads a forecast of the sunspot number: pasted or from a file. What was read, or why nothing
/// was, stands below the text; OK keeps it beside the profile.
///
/// Errors:  a forecast that cannot be kept is told in a box, and the dialog stays.
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
    /// @param sProfileFile  beside which the forecast is kept
    explicit frmForecast(std::string sProfileFile, QWidget* pParent = nullptr);

    /// What to mail to have the forecast sent.
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
    std::optional<SunSpotForecast> m_forecast;  // read here
};

/// @file frmAbout.h
/// The About box: a small window of fixed size with the program's name, version and purpose. It has
/// no buttons; the close box or Escape closes it. Closing destroys it.
///
/// Tests:   tests/ui/options/FrmAboutTest.cpp
#pragma once

#include <QDialog>
#include <string>
#include <string_view>

#include "ui_frmAbout.h"

class frmAbout final : public QDialog, public Ui::frmAbout {
    Q_OBJECT
public:
    explicit frmAbout(QWidget* pParent = nullptr);
};

/// The version line and the three purposes; single carriage returns break the lines.
/// @param sVersion  "major.minor.patch"; only the first two parts are shown
[[nodiscard]] std::string AboutDescriptionGet(std::string_view sVersion);

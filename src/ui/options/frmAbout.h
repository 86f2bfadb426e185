/// @file frmAbout.h
/// The About box: a small fixed window that names the program, its version and what it is for. It
/// has no buttons; the close box or Escape closes it, and a closed one is destroyed.
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

/// The version line and the three purposes, its lines broken by single carriage returns.
/// @param sVersion  "major.minor.patch"; only the first two parts are shown.
[[nodiscard]] std::string AboutDescriptionGet(std::string_view sVersion);

/// @file SnrLegend.h
/// The table's colour scale in one line: for each band a box with its lower limit.
/// Tests:   tests/ui/main/FrmMainTableTest.cpp
#pragma once

#include <QWidget>

class SnrLegend final : public QWidget {
    Q_OBJECT
public:
    explicit SnrLegend(QWidget* pParent = nullptr);
};

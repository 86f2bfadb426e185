/// @file SnrLegend.h
/// The colour scale of the table in one line: a box for each band with its lower bound.
/// Tests:   tests/ui/main/FrmMainTableTest.cpp
#pragma once

#include <QWidget>

class SnrLegend final : public QWidget {
    Q_OBJECT
public:
    explicit SnrLegend(QWidget* pParent = nullptr);
};

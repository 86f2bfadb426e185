/// @file CompareGrid.h
/// The predictions of two engines and their difference, as cells of a grid or page and in words.
///
/// Units:   dB in 1 Hz; kHz; hours 1 to 24.
/// Tests:   tests/ui/plan/FrmCompareTest.cpp
#pragma once

#include <array>
#include <optional>

#include "studies/compare/Compare.h"
#include "ui/common/GridControl.h"
#include "ui/common/HourLabels.h"
#include "ui/page/PageGrid.h"

enum class CompareView { A, B, Difference };

/// The predictions available from the two engines.
struct CompareSides {
    std::array<std::optional<PropagationTable>, 2> aTable;
    std::array<std::string, 2> asName;    ///< "VOACAP"
    std::optional<CompareTable> compare;  ///< where both have answered the same question
    float fNeed = 0.0F;

    /// The prediction whose frequencies are shown; nullptr before the first answer.
    [[nodiscard]] const PropagationTable* FirstGet() const;
};

/// From blue, where the second engine gives more, through white to orange, where the first does.
[[nodiscard]] QColor CompareColor(float fDifference);

/// Fills the columns of the hours (HourColumns). A cell without a value in a view is empty and
/// hatched.
void CompareGridFill(GridControl& grd, const CompareSides& sides, CompareView eView);
[[nodiscard]] PageGrid ComparePageGrid(const CompareSides& sides, CompareView eView,
                                       const HourLabels& asHour);

/// "14000 kHz, 19 h: VOACAP 58, REC533 49, difference +9".
[[nodiscard]] QString CompareCellText(const CompareSides& sides, int iHour, int iFrequency,
                                      const HourLabels& asHour);

/// @file HourBar.h
/// The bar shown under the map with the overlay: play and pause, the hours of the day, the hour in
/// words, the frequency, and the progress of the computation.
///
/// Units:   hours 0..23 UTC; frequencies as indices into the list.
/// Tests:   tests/ui/map/HourBarTest.cpp
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QToolButton>
#include <QWidget>
#include <vector>

#include "ui/map/HourSlider.h"

/// A list that keeps the arrow keys, which would otherwise scroll the map.
class HourCombo final : public QComboBox {
    Q_OBJECT
public:
    using QComboBox::QComboBox;

protected:
    bool event(QEvent* pEvent) override;
};

class HourBar final : public QWidget {
    Q_OBJECT
public:
    explicit HourBar(QWidget* pParent);

    /// @param iTimeCode  a TimeCode, for the labels
    void HourShow(int iHour, int iTimeCode);
    /// @param iShown  the chosen one
    void FrequenciesShow(const std::vector<float>& afFrequency, std::size_t iShown);
    /// False if one picture is for all frequencies.
    void FrequencyEnable(bool bEnable);
    void PlayShow(bool bPlaying);
    /// "7 of 24", or why it stopped; empty when nothing is being computed.
    void WorkShow(const QString& sText);

    QToolButton* cmdPlay;
    HourSlider* hscHour;
    QLabel* lblHour;  ///< "06:00 Zulu"
    HourCombo* cmbFrequency;
    QLabel* lblWork;

Q_SIGNALS:
    void HourChosen(int iHour);
    void FrequencyChosen(std::size_t iFrequency);
    void PlayRequested();

private:
    void FrequencyStep(int nBy);

    std::vector<float> m_afFrequency;
};

/// @file HourBar.h
/// The bar under the map while the overlay is shown: play and pause, the hours of the day, the
/// hour in words, the frequency, and how far the work is.
///
/// Units:   hours 0..23 of UTC; frequencies by their index into the list.
/// Tests:   tests/ui/map/HourBarTest.cpp
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QToolButton>
#include <QWidget>
#include <vector>

#include "ui/map/HourSlider.h"

/// A list whose keys are its own: the window's arrow keys would scroll the map.
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

    /// @param iTimeCode  TimeCode, for the labels
    void HourShow(int iHour, int iTimeCode);
    /// @param iShown  the one that is chosen
    void FrequenciesShow(const std::vector<float>& afFrequency, std::size_t iShown);
    /// False where what is shown is one for all frequencies.
    void FrequencyEnable(bool bEnable);
    void PlayShow(bool bPlaying);
    /// "7 of 24", or why there is none; empty: nothing is under way.
    void WorkShow(const QString& sText);

    QToolButton* cmdPlay;
    HourSlider* hscHour;
    QLabel* lblHour;  ///< "06:00 Zulu"
    HourCombo* cmbFrequency;
    QLabel* lblWork;

Q_SIGNALS:
    void HourChosen(int iHour);
    void FrequencyChosen(std::size_t iFrequency);
    void PlayWanted();

private:
    void FrequencyStep(int nBy);

    std::vector<float> m_afFrequency;
};

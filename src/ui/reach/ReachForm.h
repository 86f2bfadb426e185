/// @file ReachForm.h
/// The controls above the list of stations: what is asked, and what of the answer is listed.
///
/// Units:   W; dB; hours of UTC.
/// Tests:   tests/ui/plan/FrmReachTest.cpp
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <array>
#include <set>

#include "places/Place.h"
#include "studies/reach/ReachList.h"
#include "ui/common/HourLabels.h"
#include "ui/common/NeedChooser.h"

class ReachForm final : public QWidget {
    Q_OBJECT
public:
    ReachForm(Settings& settings, QWidget* pParent);

    /// How many places there are of each kind; a kind without any cannot be chosen. The first call
    /// ticks all but Other, which is ticked where there is nothing else.
    void PlacesShow(const std::array<int, 4>& anPlaces, bool bOwnFrequencies);
    [[nodiscard]] std::set<PlaceKind> KindsGet() const;
    void HoursShow(const HourLabels& asHour, int iNow);
    [[nodiscard]] int NowGet() const { return m_iNow; }
    /// The hour that counts as now, 0 to 23 UTC.
    [[nodiscard]] int FromGet() const;
    [[nodiscard]] ReachView ViewGet() const;
    void OrderSet(ReachOrder eOrder);
    /// The need's figure, and the power of the settings.
    void NeedShow(const Need& need, float fPower);
    /// @param nListed  rows of the list; while there is work nDone of nAll
    void CountShow(std::size_t nListed, std::size_t nDone, std::size_t nAll);
    void ProgressShow(bool bShown) { prgDone->setVisible(bShown); }

    QLabel* lblFrom;
    NeedChooser* cmdNeed;
    QLabel* lblNeed;
    QDoubleSpinBox* numPower;
    std::array<QCheckBox*, 4> achkKind;
    QCheckBox* chkOwnFrequencies;
    QPushButton* cmdFaults;  ///< how many places cannot be used; hidden without any
    QComboBox* cmbFrom;
    QSpinBox* numHours;
    QLineEdit* txtFind;
    QDoubleSpinBox* numMargin;  ///< its least value stands for none
    QComboBox* cmbOrder;
    QPushButton* cmdFind;
    QProgressBar* prgDone;
    QLabel* lblCount;

Q_SIGNALS:
    void AskedChanged();   ///< another question: kinds, frequencies, power
    void JudgedChanged();  ///< the same answers judged anew: need, hours
    void ViewChanged();    ///< another list of the same rows

private:
    void AskedRowMake(Settings& settings);
    void KindsRowMake();
    void ViewRowMake();

    bool m_bTicked = false;
    int m_iNow = 0;
};

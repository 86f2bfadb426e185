/// @file ReachForm.h
/// The controls above the list of stations: what to search for, and what of the answer to list.
///
/// Units:   W; dB; hours UTC.
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

    /// Shows how many places there are of each kind; a kind without any cannot be chosen. The first
    /// call ticks all but Other, which is ticked only if there is nothing else.
    void PlacesShow(const std::array<int, 4>& anPlaces, bool bOwnFrequencies);
    [[nodiscard]] std::set<PlaceKind> KindsGet() const;
    void HoursShow(const HourLabels& asHour, int iNow);
    [[nodiscard]] int NowGet() const { return m_iNow; }
    /// The hour that counts as the present one, 0 to 23 UTC.
    [[nodiscard]] int FromGet() const;
    [[nodiscard]] ReachView ViewGet() const;
    void OrderSet(ReachOrder eOrder);
    /// Shows the need's figure and the power of the settings.
    void NeedShow(const Need& need, float fPower);
    /// @param nListed  rows of the list
    /// @param nDone  answers so far of nAll, during a search
    void CountShow(std::size_t nListed, std::size_t nDone, std::size_t nAll);
    void ProgressShow(bool bShown) { prgDone->setVisible(bShown); }

    QLabel* lblFrom;
    NeedChooser* cmdNeed;
    QLabel* lblNeed;
    QDoubleSpinBox* numPower;
    std::array<QCheckBox*, 4> achkKind;
    QCheckBox* chkOwnFrequencies;
    QPushButton* cmdFaults;  ///< how many places cannot be used; hidden if none
    QComboBox* cmbFrom;
    QSpinBox* numHours;
    QLineEdit* txtFind;
    QDoubleSpinBox* numMargin;  ///< its least value stands for none
    QComboBox* cmbOrder;
    QPushButton* cmdFind;
    QProgressBar* prgDone;
    QLabel* lblCount;

Q_SIGNALS:
    void SearchChanged();    ///< the search has changed: kinds, frequencies, power
    void CriteriaChanged();  ///< the same answers are judged differently: need, hours
    void ViewChanged();      ///< the same rows are listed differently

private:
    void SearchRowMake(Settings& settings);
    void KindsRowMake();
    void ViewRowMake();

    bool m_bTicked = false;
    int m_iNow = 0;
};

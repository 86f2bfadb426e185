/// @file StationPage.h
/// The tab Station of the options: the user's own power, and the list of what contacts are for,
/// with its editor. The list is a copy, which Copy puts into the settings.
///
/// Units:   W; dB in 1 Hz.
/// Keys:    Enter in a box of the editor changes the need with that name, or adds a new one.
/// Errors:  the reason why a need is refused is shown below the list; the need stays in its boxes
///          to be corrected.
/// Tests:   tests/ui/options/FrmOptionsStationTest.cpp
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <string>

#include "settings/Settings.h"

class StationPage final : public QWidget {
    Q_OBJECT
public:
    explicit StationPage(QWidget* pParent);

    void Load(const Settings& settings);
    /// Puts the list into the settings; the chosen need follows a change of its name.
    void Copy(Settings& settings) const;
    /// Shows beside the power what 0 means for an engine and a choice of antenna.
    void PowerExplain(int iModel, int iAntennaType);
    [[nodiscard]] const NeedList& NeedsGet() const { return m_needs; }

    QLineEdit* txtStationPower;
    QLabel* lblStationPowerUnit;
    QTreeWidget* lstNeeds;
    QLineEdit* txtNeedName;
    QLineEdit* txtNeedSnr;
    QLineEdit* txtNeedSource;
    QPushButton* cmdNeedAdd;
    QPushButton* cmdNeedChange;
    QPushButton* cmdNeedRemove;
    QPushButton* cmdNeedRestore;
    QLabel* lblNeedHint;

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

private:
    QWidget* PowerMake();
    QWidget* NeedsMake();
    QLayout* EditorMake();
    void ListShow(int iRow);
    void RowShow();
    void NeedEnter();
    void cmdNeedAddClick();
    void cmdNeedChangeClick();
    void cmdNeedRemoveClick();
    void cmdNeedRestoreClick();
    [[nodiscard]] Result<Need> Typed() const;
    [[nodiscard]] std::string NameGet(int iRow) const;
    /// Shows why a change was refused, or else the changed list.
    /// @return true if it was not refused
    bool Show(const Result<void>& res, int iRow);

    NeedList m_needs;
    std::string m_sSelected;  // name of the need in force, as it will be after Copy
    std::string m_sLoaded;    // the same as loaded; the main window may choose another
};

/// @file frmPlaces.h
/// "My Places": the user's own list beside the profile, edited row by row or pasted as a table.
/// Each change is saved at once, and the last one can be undone.
///
/// Keys:    Enter in a field writes the fields to the selected row, or adds a row if none is
///          selected. Ctrl+V in the list pastes rows, Del removes the selected one.
/// Errors:  a refused text stays in its field, and the line below gives the reason. A row of the
///          file that cannot be used is shown with its line number and kept unchanged. A file that
///          is not a list of places is never overwritten, and one that something else has
///          changed is shown again instead.
/// Tests:   tests/ui/plan/FrmPlacesTest.cpp
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <array>
#include <optional>
#include <string>

#include "places/OwnPlaces.h"
#include "ui/common/GridControl.h"
#include "ui/plan/PlanWindow.h"

class frmPlaces final : public PlanWindow {
    Q_OBJECT
public:
    explicit frmPlaces(PlanHost& host);

    /// Loads the list of the profile in force.
    void Load();
    [[nodiscard]] Page PageGet() const override;
    [[nodiscard]] const OwnPlaceList& ListGet() const { return m_list; }

    GridControl* grdPlaces;
    /// Name, position, frequencies, note.
    std::array<QLineEdit*, 4> atxtField;
    QPushButton* cmdAdd;
    QPushButton* cmdChange;
    QPushButton* cmdRemove;
    QPushButton* cmdPaste;
    QPushButton* cmdUndo;
    QLabel* lblHint;

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

private:
    void GridMake();
    void EditorMake();
    void Show(int iRow);
    void RowShow(int iRow);
    void RowSelect(int iRow);
    void FieldsShow();
    void HintSet(const std::string& sHint);
    [[nodiscard]] std::optional<OwnPlace> Typed();
    [[nodiscard]] int SelectedGet() const;
    bool ListRenew();
    bool ListPut(const OwnPlaceList& list, int iRow);
    void Add();
    void Change();
    void Remove();
    void Paste();
    void Undo();

    std::string m_sProfileFile;  // whose list it is
    OwnPlaceList m_list;
    std::optional<OwnPlaceList> m_before;  // the list before the last change, for Undo
    bool m_bReadable = false;
};

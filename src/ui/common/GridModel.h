/// @file GridModel.h
/// The cells behind the grid control. Row 0 and column 0 are the fixed headers, so cell (1, 1) is
/// the first data cell; Qt's indices are one less.
///
/// Tests:   tests/ui/common/GridControlTest.cpp
#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QString>
#include <functional>
#include <vector>

/// One cell. An invalid colour stands for the grid's default.
struct GridCell {
    QString sText;
    QColor clrBack;
    QColor clrFore;
    Qt::Alignment eAlignment = Qt::AlignCenter;
    bool bBold = false;
    bool bFrame = false;  ///< marks the selected cell
    bool bHatch = false;  ///< no value to show
    bool bMet = false;    ///< the value meets the need
};

/// What a screen reader says for a data cell.
using GridSpeechFn = std::function<QString(int iRow, int iCol)>;

class GridModel final : public QAbstractTableModel {
    Q_OBJECT
public:
    static constexpr int kFrameRole = Qt::UserRole;

    explicit GridModel(QObject* pParent);

    void RowsSet(int nRows);
    void ColsSet(int nCols);
    [[nodiscard]] int RowsGet() const { return m_nRows; }
    [[nodiscard]] int ColsGet() const { return m_nCols; }
    [[nodiscard]] bool HasCell(int iRow, int iCol) const;
    /// A cell outside the grid is empty.
    [[nodiscard]] const GridCell& CellGet(int iRow, int iCol) const;
    /// Changes a cell; does nothing outside the grid.
    void CellChange(int iRow, int iCol, const std::function<void(GridCell&)>& fnChange);
    void SpeechSet(GridSpeechFn fnSpeech) { m_fnSpeech = std::move(fnSpeech); }
    /// While off, the views are not notified; switching it on notifies them of everything at once.
    void RedrawSet(bool bRedraw);

    [[nodiscard]] int rowCount(const QModelIndex& index = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& index = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int nRole) const override;
    [[nodiscard]] QVariant headerData(int iSection, Qt::Orientation eOrientation,
                                      int nRole) const override;

private:
    [[nodiscard]] std::size_t Index(int iRow, int iCol) const
    {
        return static_cast<std::size_t>(iRow) * static_cast<std::size_t>(m_nCols)
               + static_cast<std::size_t>(iCol);
    }
    void SizeSet(int nRows, int nCols);
    void ChangeReport(int iRow, int iCol);
    static QVariant CellData(const GridCell& cell, int nRole);

    int m_nRows = 1;
    int m_nCols = 1;
    std::vector<GridCell> m_aCells{1};
    GridSpeechFn m_fnSpeech;
    bool m_bRedraw = true;
    bool m_bChanged = false;
};

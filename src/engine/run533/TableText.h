/// @file TableText.h
/// Rows of comma-separated tables: columns found by name, numbers within their limits.
///
/// Errors:  line and column that cannot be used.
/// Tests:   tests/engine/CircuitTableTest.cpp
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "system/Result.h"

namespace run533 {

/// The positions of the named columns in a table; the last ones may be missing.
class TableHead {
public:
    /// nNeeded: this many of the names, from the first, are required.
    static Result<TableHead> Read(std::string_view sLine, std::span<const std::string_view> aNames,
                                  std::size_t nNeeded);
    [[nodiscard]] bool Has(std::size_t nColumn) const { return m_aAt[nColumn].has_value(); }

private:
    friend class TableRow;
    std::span<const std::string_view> m_aNames;
    std::vector<std::optional<std::size_t>> m_aAt;
    std::size_t m_nCells = 0;
};

/// Reads the cells of a row, keeping the first error. Columns by their number among the names.
class TableRow {
public:
    TableRow(const TableHead& tableHead, std::string_view sLine, int nLine);

    /// Empty if the column is missing.
    [[nodiscard]] std::string_view TextGet(std::size_t nColumn) const;
    double NumberGet(std::size_t nColumn, double dLeast, double dMost);
    int IntegerGet(std::size_t nColumn, int nLeast, int nMost);
    /// Nothing if the cell is empty or the column missing.
    std::optional<double> OptionalGet(std::size_t nColumn, double dLeast, double dMost);
    void Fail(std::size_t nColumn);

    [[nodiscard]] bool Failed() const { return m_bFailed; }
    [[nodiscard]] const RunError& ErrorGet() const { return m_error; }

private:
    const TableHead& m_head;
    int m_nLine;
    std::vector<std::string_view> m_aCells;
    bool m_bFailed = false;
    RunError m_error;
};

/// The lines of a table, the head first, without the byte order mark that spreadsheets write.
[[nodiscard]] std::vector<std::string_view> TableLines(std::string_view sTable);

/// A table with more columns: those of aNames that it has, then sNewNames (with commas between).
/// fnRow reads one row and appends the new cells and the line's end. nNeeded as for TableHead.
[[nodiscard]] Result<std::string> TableExtend(
    std::string_view sTable, std::span<const std::string_view> aNames, std::size_t nNeeded,
    std::string_view sNewNames, const std::function<void(TableRow&, std::string&)>& fnRow);

/// Appends ",value" with three decimals.
void TableAppend(std::string& sRow, double dValue);

}  // namespace run533

#include "engine/run533/TableText.h"

#include <algorithm>
#include <cmath>

#include "engine/run533/DeckText.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace run533 {
namespace {

std::vector<std::string_view> CellsSplit(std::string_view sLine)
{
    std::vector<std::string_view> aCells;
    for (;;) {
        const std::size_t nComma = sLine.find(',');
        aCells.push_back(TextTrim(sLine.substr(0, nComma)));
        if (nComma == std::string_view::npos)
            return aCells;
        sLine.remove_prefix(nComma + 1);
    }
}

}  // namespace

Result<TableHead> TableHead::Read(std::string_view sLine, std::span<const std::string_view> aNames,
                                  std::size_t nNeeded)
{
    const auto aCells = CellsSplit(sLine);
    TableHead head;
    head.m_aNames = aNames;
    head.m_nCells = aCells.size();
    for (std::size_t i = 0; i < aNames.size(); ++i) {
        const auto itName = std::find(aCells.begin(), aCells.end(), aNames[i]);
        if (itName == aCells.end() && i < nNeeded)
            return RunError{"no column " + std::string(aNames[i])};
        head.m_aAt.push_back(itName == aCells.end() ? std::nullopt
                                                    : std::optional(static_cast<std::size_t>(
                                                        itName - aCells.begin())));
    }
    return head;
}

TableRow::TableRow(const TableHead& tableHead, std::string_view sLine, int nLine)
    : m_head(tableHead), m_nLine(nLine), m_aCells(CellsSplit(sLine))
{
    if (m_aCells.size() >= tableHead.m_nCells)
        return;
    m_bFailed = true;
    m_error.sText = "line " + NumberToText(nLine) + ": fewer columns than the head has";
    m_aCells.resize(tableHead.m_nCells);
}

std::string_view TableRow::TextGet(std::size_t nColumn) const
{
    return m_head.Has(nColumn) ? m_aCells[*m_head.m_aAt[nColumn]] : std::string_view();
}

double TableRow::NumberGet(std::size_t nColumn, double dLeast, double dMost)
{
    const Result<double> resNumber = NumberFromText(TextGet(nColumn));
    if (resNumber && resNumber.ValueGet() >= dLeast && resNumber.ValueGet() <= dMost)
        return resNumber.ValueGet();
    Fail(nColumn);
    return dLeast;
}

int TableRow::IntegerGet(std::size_t nColumn, int nLeast, int nMost)
{
    const double dNumber = NumberGet(nColumn, nLeast, nMost);
    if (dNumber != std::floor(dNumber))
        Fail(nColumn);
    return static_cast<int>(dNumber);
}

std::optional<double> TableRow::OptionalGet(std::size_t nColumn, double dLeast, double dMost)
{
    if (TextGet(nColumn).empty())
        return std::nullopt;
    return NumberGet(nColumn, dLeast, dMost);
}

void TableRow::Fail(std::size_t nColumn)
{
    if (!m_bFailed)
        m_error.sText = "line " + NumberToText(m_nLine) + ", "
                        + std::string(m_head.m_aNames[nColumn]) + ": " + TextQuote(TextGet(nColumn))
                        + " cannot be used";
    m_bFailed = true;
}

std::vector<std::string_view> TableLines(std::string_view sTable)
{
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (sTable.starts_with(kByteOrderMark))
        sTable.remove_prefix(kByteOrderMark.size());
    auto aLines = TextLines(sTable);
    if (aLines.empty())
        aLines.emplace_back();
    return aLines;
}

void TableAppend(std::string& sRow, double dValue)
{
    sRow += ',';
    sRow += NumberFormat(dValue, "0.000");
}

Result<std::string> TableExtend(std::string_view sTable, std::span<const std::string_view> aNames,
                                std::size_t nNeeded, std::string_view sNewNames,
                                const std::function<void(TableRow&, std::string&)>& fnRow)
{
    const auto aLines = TableLines(sTable);
    const Result<TableHead> resHead = TableHead::Read(aLines.front(), aNames, nNeeded);
    if (!resHead)
        return resHead.ErrorGet();
    std::size_t nInputs = nNeeded;
    while (nInputs < aNames.size() && resHead.ValueGet().Has(nInputs)) ++nInputs;
    std::string sOut;
    for (std::size_t i = 0; i < nInputs; ++i) sOut.append(aNames[i]).append(1, ',');
    sOut.append(sNewNames).append(1, '\n');
    for (std::size_t i = 1; i < aLines.size(); ++i) {
        if (TextTrim(aLines[i]).empty())
            continue;
        TableRow rdr(resHead.ValueGet(), aLines[i], static_cast<int>(i) + 1);
        for (std::size_t k = 0; k < nInputs; ++k)
            sOut.append(k > 0 ? "," : "").append(rdr.TextGet(k));
        fnRow(rdr, sOut);
        if (rdr.Failed())
            return rdr.ErrorGet();
    }
    return sOut;
}

}  // namespace run533

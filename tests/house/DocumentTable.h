/// @file DocumentTable.h
/// The documents' tables, compared with the code or made from it: with HOPCAST_RENEW=1 in the
/// environment TableCheck rewrites them instead.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "support/TempFolder.h"

using TableRow = std::vector<std::string>;  ///< its cells without the blanks around them

/// A part of a document's text.
struct TextPart {
    std::size_t nFrom = 0;
    std::size_t nSize = 0;
};

/// The table with this header; the test fails if there is none.
inline TextPart TablePart(const std::string& sText, const std::string& sHead)
{
    const std::size_t nHead = sText.find(sHead + "\n");
    if (nHead == std::string::npos) {
        ADD_FAILURE() << "no table " << sHead;
        return {};
    }
    // A table inside a list is indented.
    const std::string sIndent(nHead - sText.rfind('\n', nHead) - 1, ' ');
    std::size_t nEnd = sText.find('\n', nHead) + 1;
    while (sText.compare(nEnd, sIndent.size() + 1, sIndent + "|") == 0)
        nEnd = sText.find('\n', nEnd) + 1;
    return {nHead, nEnd - nHead};
}

inline std::string DocumentRead(const char* sDocument)
{
    return BytesRead(std::string(DOCS_FOLDER "/") + sDocument);
}

/// The cells of a row. A backslash before a | keeps it within its cell.
inline TableRow TableCells(const std::string& sLine)
{
    TableRow asCell;
    std::string sCell;
    for (std::size_t n = sLine.find('|') + 1; n < sLine.size(); ++n) {
        if (sLine[n] != '|' || sLine[n - 1] == '\\') {
            sCell += sLine[n];
            continue;
        }
        const std::size_t nFirst = sCell.find_first_not_of(' ');
        asCell.push_back(nFirst == std::string::npos
                             ? ""
                             : sCell.substr(nFirst, sCell.find_last_not_of(' ') + 1 - nFirst));
        sCell.clear();
    }
    return asCell;
}

/// The rows below a table's header.
inline std::vector<TableRow> TableRead(const char* sDocument, const std::string& sHead)
{
    const std::string sText = DocumentRead(sDocument);
    const TextPart part = TablePart(sText, sHead);
    std::istringstream stm(sText.substr(part.nFrom, part.nSize));
    std::vector<TableRow> aRow;
    std::string sLine;
    std::getline(stm, sLine);
    std::getline(stm, sLine);  // the line of hyphens
    while (std::getline(stm, sLine)) aRow.push_back(TableCells(sLine));
    EXPECT_FALSE(aRow.empty()) << sHead;
    return aRow;
}

inline std::string TableLine(const TableRow& asCell)
{
    std::string sLine;
    for (const std::string& sCell : asCell) sLine += sCell.empty() ? "| " : "| " + sCell + " ";
    return sLine + "|";
}

/// Compares a document's table with the wanted one, or rewrites it.
/// @param aWanted  the header, then the rows
inline void TableCheck(const char* sDocument, const std::vector<TableRow>& aWanted)
{
    const std::string sFile = std::string(DOCS_FOLDER "/") + sDocument;
    std::string sText = BytesRead(sFile);
    const TextPart part = TablePart(sText, TableLine(aWanted.front()));
    if (part.nSize == 0)
        return;
    const std::string sIndent(part.nFrom - sText.rfind('\n', part.nFrom) - 1, ' ');
    std::string sWanted = TableLine(aWanted.front()) + "\n" + sIndent;
    for (std::size_t n = 0; n < aWanted.front().size(); ++n) sWanted += "|---";
    sWanted += "|\n";
    for (std::size_t n = 1; n < aWanted.size(); ++n)
        sWanted += sIndent + TableLine(aWanted[n]) + "\n";
    if (std::getenv("HOPCAST_RENEW") != nullptr)
        std::ofstream(sFile, std::ios::binary) << sText.replace(part.nFrom, part.nSize, sWanted);
    else
        EXPECT_EQ(sText.substr(part.nFrom, part.nSize), sWanted)
            << sFile << ": run HouseTest once with HOPCAST_RENEW=1";
}

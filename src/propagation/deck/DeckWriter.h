/// @file DeckWriter.h
/// Collects the lines of a deck. The first failed number sticks and becomes the deck's error, so
/// that the writers read like the decks themselves.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "propagation/deck/DeckLayout.h"
#include "propagation/deck/FortranFormat.h"
#include "system/Result.h"

class DeckWriter {
public:
    DeckWriter() { m_sText.reserve(1024); }

    /// A whole line.
    void Line(std::string_view sText)
    {
        m_sText += sText;
        LineEnd();
    }
    /// Text from a column on; follows directly if that column is already passed.
    void Text(int nCol, std::string_view sText)
    {
        ColumnGo(nCol);
        m_sText += sText;
    }
    void Text(const Field& fld, std::string_view sText) { Text(fld.nCol, sText); }
    template <class T>
    void Number(const Field& fld, T value)
    {
        ColumnGo(fld.nCol);
        Result<std::string> resField = FortranFormat(value, fld.sFormat);
        if (resField)
            m_sText += resField.ValueGet();
        else if (!m_error)
            m_error = resField.ErrorGet();
    }
    void LineEnd()
    {
        m_sText += "\r\n";
        m_nLine = m_sText.size();
    }
    Result<std::string> TextTake()
    {
        if (m_error)
            return *m_error;
        return std::move(m_sText);
    }

private:
    void ColumnGo(int nCol)
    {
        const std::size_t nWanted = m_nLine + static_cast<std::size_t>(nCol) - 1;
        if (m_sText.size() < nWanted)
            m_sText.resize(nWanted, ' ');
    }

    std::string m_sText;
    std::size_t m_nLine = 0;  // where the current line begins
    std::optional<RunError> m_error;
};

/// Hemisphere letters. In the decks the equator is south and the prime meridian west.
constexpr std::string_view LatitudeLetter(double dLat) { return dLat > 0.0 ? "N" : "S"; }
constexpr std::string_view LongitudeLetter(double dLon) { return dLon > 0.0 ? "E" : "W"; }

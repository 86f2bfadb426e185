/// @file DeckSample.h
/// The decks of tests/engine/data, whole or changed.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/TempFolder.h"

inline std::string DeckOf(const std::string& sName)
{
    return BytesRead(std::string(TEST_DATA) + "/decks/" + sName);
}

/// n is 1 to 13.
inline std::string PointDeckOf(int n)
{
    return DeckOf((n < 10 ? "p2p_0" : "p2p_") + std::to_string(n) + ".dat");
}

inline std::string Replaced(std::string sText, const std::string& sOld, const std::string& sNew)
{
    const std::size_t nAt = sText.find(sOld);
    EXPECT_NE(nAt, std::string::npos) << sOld;
    return nAt == std::string::npos ? sText : sText.replace(nAt, sOld.size(), sNew);
}

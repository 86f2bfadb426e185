#include "apart/Outcome.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

#include "apart/Spoil.h"

namespace {

constexpr int kVariants = 1000;
constexpr double kNear = 2e-6;  // relative: a few units of a single's last digit

/// The lines that differ from the sample, as literals, for a failure's message.
std::string LinesChanged(const std::string& sBytes, const std::string& sSample)
{
    constexpr std::size_t kMost = 1000;
    std::istringstream stm(sBytes);
    std::string sChanged;
    for (std::string sLine; std::getline(stm, sLine) && sChanged.size() < kMost;)
        if (sSample.find(sLine + '\n') == std::string::npos)
            sChanged += testing::PrintToString(sLine) + '\n';
    return sChanged;
}

}  // namespace

void Outcome::Add(const char* sName, double dValue, int iRow, int iColumn)
{
    m_aValues.push_back({sName, iRow, iColumn, dValue, 0.0, {}});
}

void Outcome::AddNear(const char* sName, double dValue, int iRow, int iColumn)
{
    m_aValues.push_back({sName, iRow, iColumn, dValue, kNear, {}});
}

void Outcome::Add(const char* sName, const std::string& sText, int iRow, int iColumn)
{
    m_aValues.push_back({sName, iRow, iColumn, 0.0, 0.0, sText});
}

bool Outcome::Same(const Value& a, const Value& b)
{
    if (std::string_view(a.sName) != b.sName || a.iRow != b.iRow || a.iColumn != b.iColumn
        || a.sText != b.sText)
        return false;
    if (std::isnan(a.dValue) || std::isnan(b.dValue))
        return std::isnan(a.dValue) && std::isnan(b.dValue);
    return a.dValue == b.dValue
           || std::abs(a.dValue - b.dValue) <= a.dNear * (1.0 + std::abs(a.dValue));
}

std::string Outcome::Text(const Value& value)
{
    std::ostringstream stm;
    stm.precision(17);
    stm << value.sName << '(' << value.iRow << ',' << value.iColumn << ") = " << value.dValue
        << " \"" << value.sText << '"';
    return stm.str();
}

std::string Outcome::DifferenceGet(const Outcome& other) const
{
    if (m_bRefused != other.m_bRefused)
        return m_bRefused ? "refused, and read apart" : "read, and refused apart";
    if (m_bRefused)
        return {};
    for (std::size_t n = 0; n < std::min(m_aValues.size(), other.m_aValues.size()); ++n)
        if (!Same(m_aValues[n], other.m_aValues[n]))
            return Text(m_aValues[n]) + ", and apart " + Text(other.m_aValues[n]);
    if (m_aValues.size() != other.m_aValues.size())
        return std::to_string(m_aValues.size()) + " values, and apart "
               + std::to_string(other.m_aValues.size());
    return {};
}

void OutcomesCompare(const std::vector<std::string>& asSample, const OutcomeFn& fnProgram,
                     const OutcomeFn& fnApart, int nReadLeast, int nRefusedLeast)
{
    constexpr int kShownMost = 5;
    PropertyRandom random;
    int nRead = 0, nRefused = 0, nShown = 0;
    const auto fnCompare = [&](const std::string& sBytes, std::size_t nSample,
                               const std::string& sHow) {
        const Outcome outcome = fnProgram(sBytes, nSample);
        ++(outcome.Refused() ? nRefused : nRead);
        const std::string sDifference = outcome.DifferenceGet(fnApart(sBytes, nSample));
        if (!sDifference.empty()) {
            ADD_FAILURE() << "HOPCAST_SEED=" << PropertyRandom::SeedGet() << ", sample " << nSample
                          << ", " << sHow << '\n'
                          << sDifference << '\n'
                          << LinesChanged(sBytes, asSample[nSample]);
            ++nShown;
        }
    };
    for (std::size_t n = 0; n < asSample.size(); ++n) fnCompare(asSample[n], n, "as it is");
    nRead = nRefused = 0;
    for (int i = 0; i < kVariants && nShown < kShownMost; ++i) {
        const std::size_t nSample = static_cast<std::size_t>(i) % asSample.size();
        const Spoilt spoilt = SpoiltMake(asSample[nSample], random);
        fnCompare(spoilt.sBytes, nSample, "case " + std::to_string(i) + ": " + spoilt.sHow);
    }
    EXPECT_GE(nRead, nReadLeast);
    EXPECT_GE(nRefused, nRefusedLeast);
}

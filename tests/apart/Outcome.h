/// @file Outcome.h
/// What a reader made of a file, as a list of values, so that two readers can be compared, and the
/// comparison over many spoilt files.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

class Outcome {
public:
    /// A value that must match exactly.
    void Add(const char* sName, double dValue, int iRow = 0, int iColumn = 0);
    /// A computed value, whose last digits depend on the order of the operations.
    void AddNear(const char* sName, double dValue, int iRow = 0, int iColumn = 0);
    void Add(const char* sName, const std::string& sText, int iRow = 0, int iColumn = 0);
    void Refuse() { m_bRefused = true; }
    [[nodiscard]] bool Refused() const { return m_bRefused; }

    /// Describes the first difference; empty if there is none. Values before a refusal do not
    /// count.
    [[nodiscard]] std::string DifferenceGet(const Outcome& other) const;

private:
    struct Value {
        const char* sName;
        int iRow, iColumn;
        double dValue, dNear;
        std::string sText;
    };
    static bool Same(const Value& a, const Value& b);
    static std::string Text(const Value& value);

    bool m_bRefused = false;
    std::vector<Value> m_aValues;
};

using OutcomeFn = std::function<Outcome(const std::string& sBytes, std::size_t nSample)>;

/// Reads every sample as it is, and kVariants spoilt ones in turn, with both readers: the outcomes
/// must be the same. Of the spoilt ones at least nReadLeast must be read and nRefusedLeast refused,
/// or the comparison would prove little.
void OutcomesCompare(const std::vector<std::string>& asSample, const OutcomeFn& fnProgram,
                     const OutcomeFn& fnApart, int nReadLeast, int nRefusedLeast);

/// @file Array1.h
/// Fixed array counted 1..N, as every list handed between modules is.
#pragma once

#include <array>
#include <cassert>
#include <cstddef>
#include <span>

template <class T, int N>
struct Array1 {
    std::array<T, N> m_aCells{};
    constexpr T& operator[](int i)
    {
        assert(i >= 1 && i <= N);
        return m_aCells[static_cast<std::size_t>(i - 1)];
    }
    constexpr const T& operator[](int i) const
    {
        assert(i >= 1 && i <= N);
        return m_aCells[static_cast<std::size_t>(i - 1)];
    }
    /// The first nCount cells as an ordinary 0-based view, for algorithms.
    [[nodiscard]] constexpr std::span<const T> First(int nCount) const
    {
        return std::span(m_aCells).first(static_cast<std::size_t>(nCount));
    }
};

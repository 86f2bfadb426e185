/// @file PropertyRandom.h
/// Random cases for tests of what must hold for every input. The numbers are the same on every
/// machine: the seed is fixed (HOPCAST_SEED in the environment sets another), and the library's
/// distributions are not used, because they differ. A failure names its seed and case.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>

class PropertyRandom {
public:
    PropertyRandom() : m_engine(SeedGet()) {}

    static std::uint64_t SeedGet()
    {
        constexpr std::uint64_t kSeed = 20260321;
        const char* sSeed = std::getenv("HOPCAST_SEED");
        return sSeed != nullptr ? std::strtoull(sSeed, nullptr, 10) : kSeed;
    }

    /// A whole number in nLeast..nMost.
    int Whole(int nLeast, int nMost)
    {
        const auto nCount = static_cast<std::uint64_t>(std::int64_t{nMost} - nLeast) + 1;
        return static_cast<int>(nLeast + static_cast<std::int64_t>(m_engine() % nCount));
    }
    bool Chance(int nOneIn) { return Whole(1, nOneIn) == 1; }
    /// A number in [dLeast, dMost).
    double Real(double dLeast, double dMost)
    {
        const double dShare = static_cast<double>(m_engine() >> 11U) * 0x1p-53;
        return dLeast + (dMost - dLeast) * dShare;
    }
    /// A number within +-dMost, of any magnitude down to 1e-9; often a round one, halfway between
    /// two, 0 or the limit itself.
    double Number(double dMost)
    {
        const double dSign = Chance(2) ? 1.0 : -1.0;
        switch (Whole(1, 8)) {
            case 1:
                return 0.0 * dSign;
            case 2:
                return dSign * dMost;
            case 3:
                return dSign * std::fmod(std::round(Real(0.0, 1e6)), dMost);
            case 4:  // halves of the last decimal of any pattern
                return dSign
                       * std::fmod((Whole(0, 100000) + 0.5) / std::pow(10.0, Whole(0, 3)), dMost);
            case 5:
                return dSign * dMost * (1.0 - std::pow(10.0, Real(-9.0, 0.0)));
            default:
                return dSign * dMost * std::pow(10.0, Real(-9.0, 0.0));
        }
    }

private:
    std::mt19937_64 m_engine;
};

/// Names the failed case when the case ends. (SCOPED_TRACE would compose the text of every case,
/// which takes longer than most cases.)
class PropertyCase {
public:
    explicit PropertyCase(int nCase) : m_nCase(nCase) {}
    ~PropertyCase()
    {
        if (testing::Test::HasFailure())
            std::cout << "HOPCAST_SEED=" << PropertyRandom::SeedGet() << ", case " << m_nCase
                      << std::endl;
    }
    PropertyCase(const PropertyCase&) = delete;
    PropertyCase& operator=(const PropertyCase&) = delete;

private:
    int m_nCase;
};

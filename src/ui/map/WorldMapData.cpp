#include "ui/map/WorldMapData.h"

#include <QFile>
#include <QObject>
#include <algorithm>
#include <cstdint>
#include <limits>
#include <string_view>

#include "system/MsgLib.h"
#include "system/RunErrorText.h"
#include "ui/common/Words.h"

namespace {

constexpr std::string_view kMagic("HCWM\1", 5);
constexpr int kImgSizeHighest = 1 << 24;  // keeps every sum of coordinates within an int
constexpr int kLevelsHighest = 16;

/// Reads numbers from the bytes. After one that is cut short or out of range, all are 0.
class ByteReader {
public:
    explicit ByteReader(std::span<const unsigned char> aBytes) : m_aBytes(aBytes) {}

    [[nodiscard]] bool GoodGet() const { return m_bGood; }
    [[nodiscard]] bool EndGet() const { return m_aBytes.empty(); }
    std::uint32_t UnsignedTake()
    {
        std::uint32_t nValue = 0;
        for (int nShift = 0; nShift < 28 && !m_aBytes.empty(); nShift += 7) {
            const unsigned char nByte = m_aBytes.front();
            m_aBytes = m_aBytes.subspan(1);
            nValue |= static_cast<std::uint32_t>(nByte & 0x7F) << nShift;
            if ((nByte & 0x80) == 0)
                return m_bGood ? nValue : 0;
        }
        m_bGood = false;
        return 0;
    }
    int NumberTake(int nLowest, int nHighest)
    {
        const int nValue = static_cast<int>(UnsignedTake());
        m_bGood = m_bGood && nValue >= nLowest && nValue <= nHighest;
        return m_bGood ? nValue : 0;
    }
    /// A count of items of at least nBytes each, so never more than the data can hold.
    int CountTake(int nBytes) { return NumberTake(0, static_cast<int>(m_aBytes.size()) / nBytes); }
    int SignedTake()
    {
        const std::uint32_t nCoded = UnsignedTake();
        const int nHalf = static_cast<int>(nCoded >> 1);
        return (nCoded & 1) == 0 ? nHalf : -nHalf - 1;
    }
    std::string TextTake(std::size_t nLength)
    {
        m_bGood = m_bGood && nLength <= m_aBytes.size();
        if (!m_bGood)
            return {};
        std::string sText(m_aBytes.begin(), m_aBytes.begin() + std::ptrdiff_t(nLength));
        m_aBytes = m_aBytes.subspan(nLength);
        return sText;
    }
    void BadSet() { m_bGood = false; }

private:
    std::span<const unsigned char> m_aBytes;
    bool m_bGood = true;
};

MapRing RingTake(ByteReader& rdr)
{
    constexpr int kHighest = std::numeric_limits<int>::max();
    MapRing rng{{}, {kHighest, kHighest}, {-kHighest, -kHighest}};
    const int nPoints = rdr.CountTake(2);
    rng.m_aPoints.reserve(static_cast<std::size_t>(nPoints));
    MapPoint pt{};
    for (int i = 0; i < nPoints && rdr.GoodGet(); ++i) {
        pt.nX += rdr.SignedTake();
        pt.nY += rdr.SignedTake();
        if (std::max(std::abs(pt.nX), std::abs(pt.nY)) > 2 * kImgSizeHighest)
            rdr.BadSet();
        rng.m_aPoints.push_back(pt);
        rng.m_ptLow = {std::min(rng.m_ptLow.nX, pt.nX), std::min(rng.m_ptLow.nY, pt.nY)};
        rng.m_ptHigh = {std::max(rng.m_ptHigh.nX, pt.nX), std::max(rng.m_ptHigh.nY, pt.nY)};
    }
    if (nPoints == 0)
        rdr.BadSet();
    return rng;
}

MapCountry CountryTake(ByteReader& rdr, std::size_t nLevels)
{
    MapCountry cty;
    cty.m_sName = rdr.TextTake(static_cast<std::size_t>(rdr.CountTake(1)));
    cty.m_nColor = rdr.NumberTake(0, kMapColors - 1);
    cty.m_aLevels.resize(nLevels);
    for (std::vector<MapRing>& aRings : cty.m_aLevels) {
        const int nRings = rdr.CountTake(3);
        if (nRings == 0)
            rdr.BadSet();
        for (int i = 0; i < nRings && rdr.GoodGet(); ++i) aRings.push_back(RingTake(rdr));
    }
    return cty;
}

WorldMap BuiltInRead()
{
    QFile fil(QStringLiteral(":/hopcast_ui_map/world.map"));
    const QByteArray aBytes = fil.open(QIODevice::ReadOnly) ? fil.readAll() : QByteArray();
    auto resMap = WorldMapRead(
        {reinterpret_cast<const unsigned char*>(aBytes.constData()), std::size_t(aBytes.size())});
    if (resMap)
        return std::move(resMap.ValueGet());
    MsgBox(MsgIcon::Exclamation,
           WordsPut(QObject::tr("The world map is damaged, %1.  Please install Hopcast again."),
                    resMap.TextGet()));
    return {};
}

}  // namespace

Result<WorldMap> WorldMapRead(std::span<const unsigned char> aBytes)
{
    ByteReader rdr(aBytes);
    if (rdr.TextTake(kMagic.size()) != kMagic)
        return RunError{kTypeMismatch};
    WorldMap map;
    map.m_nImgWidth = rdr.NumberTake(1, kImgSizeHighest);
    map.m_nImgHeight = rdr.NumberTake(1, kImgSizeHighest);
    map.m_aTolerances.resize(static_cast<std::size_t>(rdr.NumberTake(1, kLevelsHighest)));
    int nLowest = 0;
    for (int& nTolerance : map.m_aTolerances)
        nLowest = nTolerance = rdr.NumberTake(nLowest, kImgSizeHighest);
    const int nCountries = rdr.CountTake(2);
    for (int i = 0; i < nCountries && rdr.GoodGet(); ++i)
        map.m_aCountries.push_back(CountryTake(rdr, map.m_aTolerances.size()));
    if (!rdr.GoodGet() || !rdr.EndGet() || map.m_aTolerances.front() != 0)
        return RunError{kTypeMismatch};
    return map;
}

const WorldMap& WorldMapGet()
{
    static const WorldMap map = BuiltInRead();
    return map;
}

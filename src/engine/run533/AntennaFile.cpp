#include "engine/run533/AntennaFile.h"

#include <cmath>
#include <span>

#include "engine/rec533/Figures.h"
#include "engine/run533/DeckText.h"
#include "system/FileLib.h"
#include "system/NumberLib.h"
#include "system/PathLib.h"
#include "system/TextLib.h"

namespace run533 {
namespace {

constexpr std::size_t kFileMost = 1 << 20;
constexpr std::size_t kTitleLetters = 10;
constexpr int kTypeGains = 11;
constexpr double kGainMost = 999.0;  // dB, either sign: beyond this powers would overflow

AntennaLoaded BuiltInGet(std::string_view sTitle,
                         std::span<const float, rec533::kAntennaGains + 1> aFigures)
{
    AntennaLoaded antennaLoaded{std::string(sTitle), {}};
    for (std::size_t i = 0; i < antennaLoaded.antenna.aGain.size(); ++i)
        antennaLoaded.antenna.aGain[i] =
            static_cast<double>(aFigures[0]) + static_cast<double>(aFigures[i + 1]);
    return antennaLoaded;
}

// The file's path below ROOT/antennas, empty when there is none. Folders are looked up as spelled
// or in lower case, the file in upper and lower case.
std::string FileFind(std::string_view sRoot, std::string_view sFolder, std::string_view sFile)
{
    const std::string sAntennas = PathJoin(sRoot, "antennas");
    for (const bool bSmall : {false, true}) {
        std::string sPlace(sFolder);
        if (bSmall)
            for (char& c : sPlace) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        const std::string sWhole = sPlace.empty() ? sAntennas : PathJoin(sAntennas, sPlace);
        const auto aNames = FilesList(PathJoin(sWhole, sFile));
        if (!aNames.empty())
            return PathJoin(sWhole, aNames.front());
    }
    return {};
}

// The number at the beginning of a line.
bool NumberFirst(std::string_view sLine, double& dNumber)
{
    sLine = TextTrim(sLine);
    const Result<double> res = NumberFromText(sLine.substr(0, sLine.find_first_of(" \t")));
    if (res)
        dNumber = res.ValueGet();
    return static_cast<bool>(res);
}

}  // namespace

Result<AntennaLoaded> AntennaRead(std::string_view sText)
{
    constexpr std::size_t kHeadLines = 5;
    const auto aLines = TextLines(sText);
    double dGain = 0.0, dType = 0.0;
    if (aLines.size() < kHeadLines || !NumberFirst(aLines[2], dGain)
        || !NumberFirst(aLines[3], dType))
        return RunError{"no gain and type in lines 3 and 4 of the antenna file"};
    if (dType != kTypeGains)
        return RunError{"antenna type " + NumberToText(dType)
                        + " is not known, only 11 (91 gains)"};
    AntennaLoaded antennaLoaded{std::string(TextTrim(aLines[0].substr(0, kTitleLetters))), {}};
    std::size_t nGains = 0;
    for (std::size_t i = kHeadLines; i < aLines.size(); ++i) {
        std::string_view sLine = TextTrim(aLines[i]);
        while (!sLine.empty() && nGains < antennaLoaded.antenna.aGain.size()) {
            double dValue = 0.0;
            if (!NumberFirst(sLine, dValue))
                return RunError{"antenna file line " + NumberToText(static_cast<int>(i) + 1)
                                + " is not made of numbers"};
            if (!(std::abs(dGain + dValue) <= kGainMost))
                return RunError{"antenna file line " + NumberToText(static_cast<int>(i) + 1)
                                + " holds a gain beyond 999 dB"};
            antennaLoaded.antenna.aGain[nGains++] = dGain + dValue;
            const std::size_t nNext = sLine.find_first_of(" \t");
            sLine = nNext == std::string_view::npos ? std::string_view()
                                                    : TextTrim(sLine.substr(nNext));
        }
    }
    if (nGains < antennaLoaded.antenna.aGain.size())
        return RunError{"antenna file with fewer than 91 gains"};
    return antennaLoaded;
}

Result<AntennaLoaded> AntennaLoad(std::string_view sRoot, std::string_view sName)
{
    const std::size_t nSlash = sName.find_last_of("\\/");
    const std::string sFile(
        TextTrim(nSlash == std::string_view::npos ? sName : sName.substr(nSlash + 1)));
    std::string sFolder(nSlash == std::string_view::npos ? std::string_view()
                                                         : TextTrim(sName.substr(0, nSlash)));
    for (char& c : sFolder) c = c == '\\' ? '/' : c;
    if (sFile.empty() || sFile.find_first_of("*?:") != std::string::npos
        || sFolder.find("..") != std::string::npos
        || sFolder.find_first_of("*?:") != std::string::npos)
        return RunError{TextQuote(TextTrim(sName)) + " names no antenna file"};
    const std::string sPath = FileFind(sRoot, sFolder, sFile);
    if (!sPath.empty()) {
        const Result<std::string> resText = FileRead(sPath, kFileMost);
        Result<AntennaLoaded> resRead =
            resText ? AntennaRead(resText.ValueGet()) : resText.ErrorGet();
        return resRead ? resRead : RunError{sPath + ", " + resRead.TextGet()};
    }
    if (TextEqualNoCase(sFile, "CONST17.VOA"))
        return BuiltInGet("Const 17dB", rec533::FiguresAntennaConst17());
    if (TextEqualNoCase(sFile, "SWWHIP.VOA"))
        return BuiltInGet("SWWhip.VOA", rec533::FiguresAntennaSwwhip());
    return RunError{"antenna file " + TextQuote(TextTrim(sName)) + " not found"};
}

}  // namespace run533

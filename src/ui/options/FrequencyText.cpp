#include "ui/options/FrequencyText.h"

#include <QObject>

#include "settings/Settings.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"
#include "ui/common/Words.h"

namespace {

constexpr std::string_view kLineBreak = "\r\n";

/// What is wrong with a line, in few words.
std::string HintGet(std::string_view sLine, int iLine)
{
    constexpr std::size_t kShown = 20;  // characters; the hint is one column wide
    const std::string_view sText = TextTrim(sLine);
    const std::string sNumber = WordsPut(QObject::tr("Line %1"), NumberToText(iLine));
    if (sText.empty())
        return WordsPut(QObject::tr("%1 is empty"), sNumber);
    const std::string sSubject =
        sText.size() <= kShown ? TextForMessage(std::string(sText)) : sNumber;
    const auto Has = [&](const char* sChars) {
        return sText.find_first_of(sChars) != std::string_view::npos;
    };
    if (Has(","))
        return WordsPut(QObject::tr("%1 has a comma"), sSubject);
    if (Has(" \t"))
        return WordsPut(QObject::tr("%1 has a space"), sSubject);
    if (Has("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"))
        return WordsPut(QObject::tr("%1 has a letter"), sSubject);
    return WordsPut(QObject::tr("%1 is not a number"), sSubject);
}

}  // namespace

std::string FrequencyListToText(int nCount, const FrequencyGetFn& fnGet)
{
    std::string sText;
    for (int i = 1; i <= nCount; ++i) {
        if (i > 1)
            sText += kLineBreak;
        sText += NumberFormat(fnGet(i), "0");
    }
    return sText;
}

bool FrequencyListFromText(std::string_view sText, const FrequencySetFn& fnSet, int& nCount,
                           FrequencyRefused* pRefused)
{
    FrequencyRefused refusedUnasked;
    FrequencyRefused& refused = pRefused != nullptr ? *pRefused : refusedUnasked;
    for (int i = 1; i <= kFrequencyMax; ++i) {
        const std::size_t nBreak = sText.find(kLineBreak);
        const std::string sPiece(sText.substr(0, nBreak));
        const auto resKhz = NumberFromTextSingle(sPiece);
        if (!resKhz) {
            refused = {i, HintGet(sPiece, i)};
            return MsgFail(MsgIcon::None,
                           WordsPut(QObject::tr("Unable to convert \"%1\" to a frequency.  Please "
                                                "check for spaces or empty lines."),
                                    TextForMessage(sPiece)));
        }
        fnSet(i, resKhz.ValueGet());
        if (nBreak == std::string_view::npos) {
            nCount = i;
            return true;
        }
        sText.remove_prefix(nBreak + kLineBreak.size());
    }
    nCount = kFrequencyMax;
    refused = {kFrequencyMax + 1, QObject::tr("Line 16 is one too many").toStdString()};
    return MsgFail(MsgIcon::None,
                   QObject::tr("Only 15 frequencies can be used. The first 15 lines were taken, "
                               "the lines below them were not.")
                       .toStdString());
}

std::optional<std::string> BandMiddleGet(std::string_view sBand)
{
    const std::size_t nDash = sBand.find('-');
    if (nDash == std::string_view::npos)
        return std::nullopt;
    const auto resLow = NumberFromText(sBand.substr(0, nDash));
    sBand.remove_prefix(nDash + 1);
    const auto resHigh = NumberFromText(sBand.substr(0, sBand.find('(')));
    if (!resLow || !resHigh)
        return std::nullopt;
    return NumberFormat((resLow.ValueGet() + resHigh.ValueGet()) / 2.0, "0");
}

#include "propagation/deck/FortranFormat.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "system/NumberLib.h"
#include "system/RunErrorText.h"

namespace {

template <class T>
Result<std::string> FieldMake(T value, std::string_view sFormat, Messages* paMessages)
{
    const auto itEntry =
        std::find_if(kFortranFormats.begin(), kFortranFormats.end(),
                     [&](const FortranEntry& entry) { return entry.sFormat == sFormat; });
    if (itEntry == kFortranFormats.end()) {
        MessageFail(paMessages, MsgIcon::Exclamation,
                    "FortranFormat, Unknown format " + std::string(sFormat));
        return std::string();
    }
    if (!std::isfinite(value))
        return RunError{kInvalidCall};
    // An exact 0 in the position field keeps its digit: the engines' own decks print 0.00 there.
    const bool bZeroPosition = sFormat == "F6.2" && value == T{0};
    std::string sText = bZeroPosition ? "0.00" : NumberFormat(value, itEntry->sPattern);
    const auto nWidth = static_cast<std::size_t>(itEntry->nWidth);
    if (sText.size() > nWidth)
        return RunError{kInvalidCall};
    sText.insert(0, nWidth - sText.size(), ' ');
    return sText;
}

}  // namespace

Result<std::string> FortranFormat(double dValue, std::string_view sFormat, Messages* paMessages)
{
    return FieldMake(dValue, sFormat, paMessages);
}

Result<std::string> FortranFormat(float fValue, std::string_view sFormat, Messages* paMessages)
{
    return FieldMake(fValue, sFormat, paMessages);
}

Result<std::string> FortranFormat(int nValue, std::string_view sFormat, Messages* paMessages)
{
    return FieldMake(static_cast<double>(nValue), sFormat, paMessages);
}

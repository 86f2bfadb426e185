#include "settings/SettingsRange.h"

#include "system/NumberLib.h"

namespace {

std::string FaultText(const std::string& sValue, const NumberRange& range)
{
    return sValue + " is outside " + NumberToText(range.dLeast) + " to "
           + NumberToText(range.dMost);
}

}  // namespace

std::string RangeFaultText(double dValue, const NumberRange& range)
{
    return FaultText(NumberToText(dValue), range);
}

std::string RangeFaultText(float fValue, const NumberRange& range)
{
    return FaultText(NumberToText(fValue), range);
}

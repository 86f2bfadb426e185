#include "app/predict/PredictValue.h"

#include <cmath>

#include "system/NumberLib.h"
#include "system/TextLib.h"

std::vector<std::string> ValueListGet(std::string_view sText)
{
    std::vector<std::string> asPiece;
    for (;;) {
        const std::size_t nComma = sText.find(',');
        asPiece.emplace_back(TextTrim(sText.substr(0, nComma)));
        if (nComma == std::string_view::npos)
            return asPiece;
        sText.remove_prefix(nComma + 1);
    }
}

Result<double> ValueBoundedGet(const std::string& sValue, const NumberRange& range,
                               const char* sWhat)
{
    const auto res = NumberFromText(sValue);
    if (!res || !range.Holds(res.ValueGet()))
        return RunError{"\"" + sValue + "\" is not " + sWhat + ", " + NumberToText(range.dLeast)
                        + " to " + NumberToText(range.dMost)};
    return res;
}

Result<int> ValueWholeGet(const std::string& sValue, const NumberRange& range, const char* sWhat)
{
    const auto res = ValueBoundedGet(sValue, range, sWhat);
    if (!res)
        return res.ErrorGet();
    if (res.ValueGet() != std::floor(res.ValueGet()))
        return RunError{"\"" + sValue + "\" is not a whole number"};
    return static_cast<int>(res.ValueGet());
}

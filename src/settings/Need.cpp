#include "settings/Need.h"

#include <algorithm>

#include "settings/SettingsRange.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"

namespace {

std::string Quoted(std::string_view sText) { return "\"" + std::string(sText) + "\""; }

/// Characters that the profile can keep: it is written in Windows-1252, and a value in quotes loses
/// them when it is read.
bool TextKept(std::string_view sText)
{
    const std::string sBytes = Windows1252FromUtf8(sText);
    return Utf8FromWindows1252(sBytes) == sText && std::ranges::none_of(sBytes, [](char chr) {
               return static_cast<unsigned char>(chr) < ' ' || chr == '\x7F' || chr == '"';
           });
}

/// Length in characters. REQUIRES: TextKept.
std::size_t CountGet(std::string_view sText) { return Windows1252FromUtf8(sText).size(); }

Need Trimmed(const Need& need)
{
    return {std::string(TextTrim(need.sName)), need.fSnr, std::string(TextTrim(need.sSource))};
}

/// Checks whether a need may be in a list. REQUIRES: its texts are trimmed.
Result<void> NeedCheck(const Need& need)
{
    if (need.sName.empty())
        return RunError{"Cannot keep the need: it has no name. Type one."};
    const std::string sCannot = "Cannot keep the need " + Quoted(need.sName) + ": ";
    if (!TextKept(need.sName) || !TextKept(need.sSource))
        return RunError{sCannot
                        + "the settings cannot keep a character of its name or source. Use letters "
                          "of western Europe, digits and signs, without double quotes."};
    if (CountGet(need.sName) > kNeedNameMost)
        return RunError{sCannot + "its name is longer than 40 characters. Shorten it."};
    if (CountGet(need.sSource) > kNeedSourceMost)
        return RunError{sCannot + "its source is longer than 120 characters. Shorten it."};
    if (NumberFromText(need.sName))
        return RunError{sCannot + "a number is not a name. Add a word."};
    if (!kRangeNeed.Holds(need.fSnr))
        return RunError{sCannot + "its ratio of " + RangeFaultText(need.fSnr, kRangeNeed)
                        + " dB in 1 Hz. Type another one."};
    return {};
}

RunError Unknown(std::string_view sName)
{
    return RunError{"There is no need " + Quoted(TextPrintable(sName)) + " in the list."};
}

NeedList::iterator IteratorGet(NeedList& needs, std::string_view sName)
{
    const Need* pNeed = NeedFind(needs, sName);
    return pNeed == nullptr ? needs.end() : needs.begin() + (pNeed - needs.data());
}

RunError Duplicate(const Need& need)
{
    return RunError{"Cannot keep the need " + Quoted(need.sName)
                    + ": the list has one of that name. Choose another name, or change that one."};
}

}  // namespace

NeedList NeedsShipped()
{
    // clang-format off
    return {
        {"WSPR",            3.0F, "decoding limit -31 dB in 2500 Hz, its authors' guide"},
        {"JS8 normal",     10.0F, "-24 dB in 2500 Hz, its authors"},
        {"FT8",            13.0F, "-21 dB in 2500 Hz, its authors' guide"},
        {"CW by ear",      27.0F, "estimate"},
        {"PSK31",          24.0F, "estimate, -10 dB in 2500 Hz"},
        {"RTTY",           34.0F, "estimate"},
        {"E-mail, robust", 30.0F, "estimate"},
        {"E-mail, normal", 40.0F, "estimate; below it the standard colours turn grey"},
        {"E-mail, fast",   55.0F, "estimate"},
        {"SSB, weak",      44.0F, "estimate"},
        {"SSB, clear",     55.0F, "estimate"},
        {"AM broadcast",   62.0F, "estimate"},
    };
    // clang-format on
}

const Need* NeedFind(const NeedList& needs, std::string_view sName)
{
    const auto itNeed = std::ranges::find_if(
        needs, [&](const Need& need) { return TextEqualNoCase(need.sName, TextTrim(sName)); });
    return itNeed == needs.end() ? nullptr : &*itNeed;
}

Result<Need> NeedFromText(const NeedList& needs, std::string_view sText)
{
    if (const Need* pNeed = NeedFind(needs, sText))
        return *pNeed;
    const auto resSnr = NumberFromTextSingle(sText);
    if (!resSnr) {
        std::string sNames;
        for (const Need& need : needs) sNames += (sNames.empty() ? "" : "; ") + need.sName;
        return RunError{Quoted(TextPrintable(sText))
                        + " is neither a number of dB nor a need of the list: " + sNames + "."};
    }
    if (!kRangeNeed.Holds(resSnr.ValueGet()))
        return RunError{"The need of " + RangeFaultText(resSnr.ValueGet(), kRangeNeed)
                        + " dB in 1 Hz."};
    return Need{"", resSnr.ValueGet(), "typed"};
}

Need NeedInForce(const NeedList& needs, std::string_view sChosen)
{
    if (const Need* pNeed = NeedFind(needs, sChosen))
        return *pNeed;
    if (const Need* pNeed = NeedFind(needs, kNeedFallback))
        return *pNeed;
    return *NeedFind(NeedsShipped(), kNeedFallback);
}

Result<void> NeedAdd(NeedList& needs, const Need& need)
{
    const Need needNew = Trimmed(need);
    if (auto res = NeedCheck(needNew); !res)
        return res;
    if (NeedFind(needs, needNew.sName) != nullptr)
        return Duplicate(needNew);
    if (needs.size() >= static_cast<std::size_t>(kNeedMax))
        return RunError{"Cannot add the need " + Quoted(needNew.sName)
                        + ": the list holds 50 already. Remove one first."};
    needs.push_back(needNew);
    return {};
}

Result<void> NeedChange(NeedList& needs, std::string_view sName, const Need& need)
{
    const auto itNeed = IteratorGet(needs, sName);
    if (itNeed == needs.end())
        return Unknown(sName);
    const Need needNew = Trimmed(need);
    if (auto res = NeedCheck(needNew); !res)
        return res;
    const Need* pSame = NeedFind(needs, needNew.sName);
    if (pSame != nullptr && pSame != &*itNeed)
        return Duplicate(needNew);
    *itNeed = needNew;
    return {};
}

Result<void> NeedRemove(NeedList& needs, std::string_view sName)
{
    const auto itNeed = IteratorGet(needs, sName);
    if (itNeed == needs.end())
        return Unknown(sName);
    if (needs.size() == 1)
        return RunError{"Cannot remove the need " + Quoted(itNeed->sName)
                        + ": it is the last one. Add another first, or restore the list."};
    needs.erase(itNeed);
    return {};
}

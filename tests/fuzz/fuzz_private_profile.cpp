// Any bytes as an initialisation file, read and written under the names in the input's first line:
// section|key|value.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <vector>

#include "fuzz/FuzzPrefix.h"
#include "system/PrivateProfileLib.h"

namespace {

constexpr int kBufferSize = 512;
constexpr const char* kFile = "profile.ini";

struct Names {
    std::string sSection, sKey, sValue;
};

/// Takes the first line off the input. Names have no line end: they are the program's own.
Names NamesTake(std::string_view& sInput)
{
    const std::string_view sLine = sInput.substr(0, sInput.find_first_of("\r\n"));
    sInput.remove_prefix(std::min(sLine.size() + 1, sInput.size()));
    Names names;
    const std::size_t nSection = std::min(sLine.find('|'), sLine.size());
    const std::size_t nKey = std::min(sLine.find('|', nSection + 1), sLine.size());
    names.sSection = sLine.substr(0, nSection);
    names.sKey = sLine.substr(std::min(nSection + 1, nKey), nKey - std::min(nSection + 1, nKey));
    names.sValue = sLine.substr(std::min(nKey + 1, sLine.size()));
    return names;
}

std::string FileBytes(const std::string& sPath)
{
    std::ifstream stm(sPath, std::ios::binary);
    return {std::istreambuf_iterator<char>(stm), {}};
}

/// True for names and values that read back unchanged: printable, without characters that have a
/// meaning in the file.
bool Plain(const std::string& sText, const char* sMeaning)
{
    return !sText.empty() && sText.front() != ' ' && sText.back() != ' '
           && std::all_of(sText.begin(), sText.end(), [](char c) { return c >= ' ' && c <= '~'; })
           && sText.find_first_of(sMeaning) == std::string::npos;
}

/// The units of a file: bytes, or 16 bits each after a byte order mark. Half a surrogate pair is no
/// character and is written as U+FFFD, so every one of them counts as that.
std::u16string Units(std::string_view sBytes)
{
    const bool bLittle = sBytes.starts_with("\xFF\xFE");
    const bool bWide = bLittle || sBytes.starts_with("\xFE\xFF");
    std::u16string sUnits;
    for (std::size_t n = 0; n + (bWide ? 1 : 0) < sBytes.size(); n += bWide ? 2 : 1) {
        const auto nFirst = static_cast<unsigned char>(sBytes[n]);
        const auto nSecond = static_cast<unsigned char>(bWide ? sBytes[n + 1] : '\0');
        const int nUnit = !bWide    ? nFirst
                          : bLittle ? nFirst + 256 * nSecond
                                    : 256 * nFirst + nSecond;
        sUnits += static_cast<char16_t>(nUnit >= 0xD800 && nUnit <= 0xDFFF ? 0xFFFD : nUnit);
    }
    return sUnits;
}

std::vector<std::u16string> Lines(const std::string& sBytes)
{
    std::vector<std::u16string> asLine(1);
    for (const char16_t c : Units(sBytes)) {
        if (c == u'\r' || c == u'\n')
            asLine.emplace_back();
        else
            asLine.back() += c;
    }
    std::erase(asLine, std::u16string());
    return asLine;
}

/// True if sNew has the lines of sOld in their order, with at most one replaced and two new ones.
bool LinesKept(const std::string& sOld, const std::string& sNew)
{
    const auto asOld = Lines(sOld);
    const auto asNew = Lines(sNew);
    const auto nSame = std::mismatch(asOld.begin(), asOld.end(), asNew.begin(), asNew.end());
    const auto nSameEnd = std::mismatch(asOld.rbegin(), std::make_reverse_iterator(nSame.first),
                                        asNew.rbegin(), std::make_reverse_iterator(nSame.second));
    return std::distance(nSame.first, nSameEnd.first.base()) <= 1
           && std::distance(nSame.second, nSameEnd.second.base()) <= 2;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    static const FuzzPrefix prefix;
    const std::string sPath = prefix.Path(kFile);
    std::string_view sInput = FuzzText(pBytes, nBytes);
    const Names names = NamesTake(sInput);
    prefix.Write(kFile, pBytes + (nBytes - sInput.size()), sInput.size());
    const auto fnGet = [&] {
        return PrivateProfileGet(names.sSection, names.sKey, "?", kBufferSize, sPath);
    };

    CheckValue(fnGet());
    Check(PrivateProfileWrite(names.sSection, names.sKey, names.sValue, sPath) == 0);
    const std::string sWritten = FileBytes(sPath);
    Check(LinesKept(std::string(sInput), sWritten));
    if (!Plain(names.sSection, "[]") || !Plain(names.sKey, "=;[]") || !Plain(names.sValue, "'\"")
        || names.sValue.size() >= kBufferSize)
        return 0;
    Check(fnGet() == names.sValue);
    Check(PrivateProfileWrite(names.sSection, names.sKey, names.sValue, sPath) == 0);
    Check(FileBytes(sPath) == sWritten);
    return 0;
}

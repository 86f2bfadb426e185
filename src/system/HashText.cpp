#include "system/HashText.h"

#include <cstdint>

namespace {

template <class Word>
std::string Fnv1a(std::string_view sBytes, Word nHash, Word nPrime)
{
    for (const char chr : sBytes) nHash = (nHash ^ static_cast<unsigned char>(chr)) * nPrime;
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string sText(2 * sizeof(Word), '0');
    for (std::size_t i = sText.size(); i-- > 0; nHash >>= 4U) sText[i] = kDigits[nHash & 15U];
    return sText;
}

}  // namespace

std::string HashText32(std::string_view sBytes)
{
    return Fnv1a<std::uint32_t>(sBytes, 0x811c9dc5U, 0x01000193U);
}

std::string HashText64(std::string_view sBytes)
{
    return Fnv1a<std::uint64_t>(sBytes, 0xcbf29ce484222325U, 0x100000001b3U);
}

// Any bytes as the Wine prefix's user.reg: finding the folders by the registry.
#include "fuzz/FuzzPrefix.h"
#include "system/RegistryLib.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    constexpr int kBytesMost = 256;
    static const FuzzPrefix prefix;
    prefix.Write("user.reg", pBytes, nBytes);

    const auto value = RegistryStringGet("Software\\Sirius Cybernetics\\AirMail\\Installation",
                                         "Install Folder", kBytesMost);
    Check(!value || (value->nBytes >= 1 && value->nBytes <= kBytesMost));
    AirMailFoldersReset();
    AirMailFoldersFind();  // there is no program in the default folder
    Check(value || AirMailProgramOriginGet() == AirMailOrigin::Default);
    return 0;
}

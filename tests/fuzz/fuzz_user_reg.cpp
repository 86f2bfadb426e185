// Any bytes as the Wine prefix's user.reg, and as Airmail's Install.log: finding the folders.
#include "fuzz/FuzzPrefix.h"
#include "system/RegistryLib.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    constexpr int kBytesMost = 256;
    static const FuzzPrefix prefix;
    prefix.Write("user.reg", pBytes, nBytes);
    prefix.Write("drive_c/Program Files/AirMail/Install.log", pBytes, nBytes);

    const auto value = RegistryStringGet("Software\\Sirius Cybernetics\\AirMail\\Installation",
                                         "Install Folder", kBytesMost);
    Check(!value || (value->nBytes >= 1 && value->nBytes <= kBytesMost));
    AirMailFoldersReset();
    AirMailFoldersFind();  // by the registry: there is no program in the default folder
    Check(value || AirMailProgramOriginGet() == AirMailOrigin::Default);

    prefix.Write("drive_c/Program Files/AirMail/Airmail3.exe", pBytes, 0);
    AirMailFoldersReset();
    AirMailFoldersFind();  // by the log
    Check(AirMailProgramFolderGet() == kAirMailFolderDefault);
    prefix.Remove("drive_c/Program Files/AirMail/Airmail3.exe");
    return 0;
}

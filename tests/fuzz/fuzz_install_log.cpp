// Any bytes as Airmail's Install.log, which names the data folder.
#include "fuzz/FuzzPrefix.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    static const FuzzPrefix prefix;
    prefix.Write("drive_c/Program Files/AirMail/Install.log", pBytes, nBytes);
    prefix.Write("drive_c/Program Files/AirMail/Airmail3.exe", pBytes, 0);
    AirMailFoldersReset();
    AirMailFoldersFind();
    Check(AirMailProgramFolderGet() == kAirMailFolderDefault);
    Check(AirMailProgramOriginGet() == AirMailOrigin::Default);
    Check(AirMailDataOriginGet() == AirMailOrigin::InstallLog
          || AirMailDataFolderGet() == kAirMailFolderDefault);
    Check(AirMailDataFolderGet().find('\n') == std::string::npos);
    return 0;
}

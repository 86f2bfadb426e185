#include "support/DriveC.h"

DriveC::DriveC() = default;
DriveC::~DriveC() = default;

std::string DriveC::Path(std::string_view sName) const
{
    return m_folder.Path("drive_c/" + std::string(sName));
}

std::string DriveC::Write(std::string_view sName, std::string_view sBytes) const
{
    return m_folder.Write("drive_c/" + std::string(sName), sBytes);
}

void DriveC::RegistryWrite(const std::string& sValue) const
{
    m_folder.Write("user.reg",
                   "WINE REGISTRY Version 2\n;; All keys relative to \\\\User\\\\S-1\n\n"
                   "#arch=win64\n\n"
                   "[Software\\\\Sirius Cybernetics\\\\AirMail] 1710768000\n"
                   "\"Install Folder\"=\"C:\\\\Wrong\\\\\"\n\n"
                   "[Software\\\\Sirius Cybernetics\\\\AirMail\\\\Installation] 1710768000\n"
                   "#time=1da7939d7a8f000\n\"Install Date\"=dword:00000001\n"
                   "\"Install Folder\"="
                       + sValue + "\n");
}

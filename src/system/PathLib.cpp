#include "system/PathLib.h"

#include <filesystem>
#include <optional>
#include <system_error>

#include "system/DrivePath.h"
#include "system/FileLib.h"
#include "system/HostPath.h"
#include "system/LeftoverLib.h"
#include "system/ProfileFolder.h"
#include "system/TextLib.h"

namespace fs = std::filesystem;

namespace {

bool IsSeparator(char cLetter) { return cLetter == '\\' || cLetter == '/'; }

std::string ProfileNameOf(const fs::path& pthProgram)
{
    std::string sName = TextFromPath(pthProgram.filename());
    constexpr std::string_view kSuffix = ".exe";
    if (sName.size() > kSuffix.size()
        && TextEqualNoCase(std::string_view(sName).substr(sName.size() - kSuffix.size()), kSuffix))
        sName.resize(sName.size() - kSuffix.size());
    return sName + ".ini";
}

/// The shipped profile, beside the program or in its share folder; empty when there is none.
fs::path ShippedProfileGet(const fs::path& pthProgram)
{
    const fs::path pthName = PathFromText(ProfileNameOf(pthProgram));
    const fs::path pthFolder = pthProgram.parent_path();
    for (const fs::path& pthCandidate :
         {pthFolder, pthFolder.parent_path() / "share" / "hopcast"}) {
        std::error_code ec;
        if (fs::is_regular_file(pthCandidate / pthName, ec))
            return pthCandidate / pthName;
    }
    return {};
}

/// Copies the shipped profile as the user's first one. If that fails the defaults apply.
void ProfileSeed(const fs::path& pthShipped, const fs::path& pthProfile)
{
    constexpr std::size_t kProfileMax = std::size_t{1} << 20;
    std::error_code ec;
    if (pthShipped.empty() || fs::exists(pthProfile, ec))
        return;
    if (const auto resBytes = FileRead(TextFromPath(pthShipped), kProfileMax))
        (void)FileReplace(TextFromPath(pthProfile), resBytes.ValueGet());
}

}  // namespace

bool PathHasDrive(std::string_view sPath)
{
    if (sPath.size() < 2 || sPath[1] != ':')
        return false;
    const char cDrive = sPath[0];
    const bool bLetter = (cDrive >= 'a' && cDrive <= 'z') || (cDrive >= 'A' && cDrive <= 'Z');
    return bLetter && (sPath.size() == 2 || IsSeparator(sPath[2]));
}

std::string PathWithEnding(std::string_view sFile, std::string_view sEnding)
{
    const std::size_t nName = sFile.find_last_of("/\\") + 1;  // npos + 1 is 0
    const std::size_t nDot = sFile.rfind('.');
    if (nDot != std::string_view::npos && nDot > nName)
        sFile = sFile.substr(0, nDot);
    return std::string(sFile) + std::string(sEnding);
}

std::string PathJoin(std::string_view sFolder, std::string_view sName)
{
    constexpr char kSeparator = static_cast<char>(fs::path::preferred_separator);
    std::string sPath(sFolder);
    const bool bEnds = !sPath.empty() && (sPath.back() == '/' || sPath.back() == kSeparator);
    if (!sPath.empty() && !bEnds)
        sPath += kSeparator;
    return sPath.append(sName);
}

std::string ProgramFolderGet()
{
    return TextFromPath(PathFromText(ProgramFileGet()).parent_path());
}

std::string ProfileFileFor(const std::string& sProgramFile)
{
    const fs::path pthProgram = PathFromText(sProgramFile);
    const fs::path pthBeside = pthProgram.parent_path() / PathFromText(ProfileNameOf(pthProgram));
    if (!FolderIsSystemOwned(pthProgram.parent_path())
        && FolderIsWritable(pthProgram.parent_path()))
        return TextFromPath(pthBeside);
    const fs::path pthFolder = ProfileFolderGet();
    std::error_code ec;
    FolderMakePrivate(pthFolder, ec);  // a failure shows when the profile is saved
    const fs::path pthProfile = pthFolder / pthBeside.filename();
    ProfileSeed(ShippedProfileGet(pthProgram), pthProfile);
    return TextFromPath(pthProfile);
}

std::string ProfileFileDefault() { return ProfileFileFor(ProgramFileGet()); }

std::string ProfileFileToReadFor(const std::string& sProgramFile, const std::string& sProfileFile)
{
    if (sProfileFile != ProfileFileFor(sProgramFile) || FileExists(sProfileFile))
        return sProfileFile;
    const fs::path pthShipped = ShippedProfileGet(PathFromText(sProgramFile));
    return pthShipped.empty() ? sProfileFile : TextFromPath(pthShipped);
}

std::string ProfileFileToRead(const std::string& sProfileFile)
{
    return ProfileFileToReadFor(ProgramFileGet(), sProfileFile);
}

int ProfileFolderMakeFor(const std::string& sProgramFile, const std::string& sProfileFile)
{
    std::error_code ec;
    if (sProfileFile == ProfileFileFor(sProgramFile))
        FolderMakePrivate(PathFromText(sProfileFile).parent_path(), ec);
    return ec.value();
}

int ProfileFolderMake(const std::string& sProfileFile)
{
    return ProfileFolderMakeFor(ProgramFileGet(), sProfileFile);
}

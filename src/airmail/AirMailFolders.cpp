#include "airmail/AirMailFolders.h"

#include <optional>
#include <utility>

#include "system/FileLib.h"
#include "system/PathLib.h"
#include "system/RegistryLib.h"
#include "system/TextLib.h"

namespace {

constexpr const char* kRegistryKey = "Software\\Sirius Cybernetics\\AirMail\\Installation";
constexpr const char* kRegistryName = "Install Folder";
constexpr int kRegistryBytesMax = 256;
constexpr std::string_view kDataFolderMark = "NewCommonRoot= ";

struct Folder {
    std::string sPath = kAirMailFolderDefault;
    AirMailOrigin eOrigin = AirMailOrigin::Default;
};

struct Folders {
    Folder program;
    Folder data;
};

Folders& FoldersGet()
{
    static Folders folders;
    return folders;
}

void FolderSet(Folder& folder, std::string sPath)
{
    // The profile holds what was in force when it was saved, so an equal text tells nothing new.
    if (sPath != folder.sPath)
        folder = {std::move(sPath), AirMailOrigin::Profile};
}

// The first nCount characters of a UTF-8 text, which is one byte each in the registry's alphabet.
std::string TextLeft(const std::string& sText, std::size_t nCount)
{
    std::size_t nAt = 0;
    for (; nAt < sText.size(); ++nAt) {
        const bool bStarts = (static_cast<unsigned char>(sText[nAt]) & 0xC0U) != 0x80U;
        if (bStarts && nCount-- == 0)
            break;
    }
    return sText.substr(0, nAt);
}

std::optional<std::string> RegistryFolderGet()
{
    // The size counts the terminating NUL; that and the installer's backslash are two.
    constexpr int kDropped = 2;
    const auto value = RegistryStringGet(kRegistryKey, kRegistryName, kRegistryBytesMax);
    if (!value || value->nBytes < kDropped)
        return std::nullopt;
    return TextLeft(value->sValue, static_cast<std::size_t>(value->nBytes - kDropped));
}

// The line's folder without its last character; a failure where nothing stands behind the mark.
bool LogLineApply(std::string_view sLine, Folder& data)
{
    const std::size_t nMark = sLine.find(kDataFolderMark);
    if (nMark == std::string_view::npos)
        return true;
    sLine.remove_prefix(nMark + kDataFolderMark.size());
    if (sLine.empty())
        return false;
    sLine.remove_suffix(1);
    data = {Utf8FromWindows1252(sLine), AirMailOrigin::InstallLog};
    return true;
}

void InstallLogRead(const std::string& sFile, Folder& data)
{
    auto resFile = TextFile::Open(sFile);
    if (!resFile)
        return;
    std::string sLine;
    for (auto resLine = resFile.ValueGet().LineRead(sLine); resLine && resLine.ValueGet();
         resLine = resFile.ValueGet().LineRead(sLine)) {
        if (!LogLineApply(sLine, data))
            return;
    }
}

}  // namespace

const char* AirMailOriginText(AirMailOrigin eOrigin)
{
    switch (eOrigin) {
        case AirMailOrigin::Profile:
            return "profile";
        case AirMailOrigin::Registry:
            return "registry";
        case AirMailOrigin::InstallLog:
            return "install log";
        case AirMailOrigin::Default:
            break;
    }
    return "default";
}

const std::string& AirMailProgramFolderGet() { return FoldersGet().program.sPath; }

void AirMailProgramFolderSet(std::string sFolder)
{
    FolderSet(FoldersGet().program, std::move(sFolder));
}

AirMailOrigin AirMailProgramOriginGet() { return FoldersGet().program.eOrigin; }

const std::string& AirMailDataFolderGet() { return FoldersGet().data.sPath; }

void AirMailDataFolderSet(std::string sFolder) { FolderSet(FoldersGet().data, std::move(sFolder)); }

AirMailOrigin AirMailDataOriginGet() { return FoldersGet().data.eOrigin; }

void AirMailFoldersReset() { FoldersGet() = Folders{}; }

void AirMailFoldersFind()
{
    Folders& folders = FoldersGet();
    if (!FileExists(AirMailPathGet(folders.program.sPath, "Airmail3.exe"))) {
        auto sFolder = RegistryFolderGet();
        if (!sFolder)
            return;
        folders.program = {*std::move(sFolder), AirMailOrigin::Registry};
        folders.data = folders.program;
    }
    if (!FileExists(AirMailPathGet(folders.data.sPath, "Airmail.ini")))
        InstallLogRead(AirMailPathGet(folders.program.sPath, "Install.log"), folders.data);
}

std::string AirMailPathGet(const std::string& sFolder, std::string_view sName)
{
    // A folder of the host gets its Windows name, so that names below it are found in any case.
    return PathToWindows(sFolder).append("\\").append(sName);
}

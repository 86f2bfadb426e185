#include "airmail/AirMailFolders.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "system/AnsiLib.h"
#include "system/DrivePath.h"
#include "system/FileLib.h"
#include "system/RegistryLib.h"

namespace {

constexpr const char* kRegistryKey = "Software\\Sirius Cybernetics\\AirMail\\Installation";
constexpr const char* kRegistryName = "Install Folder";
constexpr int kRegistryBytesMax = 256;
constexpr std::string_view kDataFolderMark = "NewCommonRoot= ";

AirMailFolders& FoldersGet()
{
    static AirMailFolders folders;
    return folders;
}

void FolderSet(AirMailFolder& folder, std::string sPath)
{
    // The profile holds what was in force when it was saved, so an equal text says nothing new.
    if (sPath != folder.sPath)
        folder = {std::move(sPath), AirMailOrigin::Profile};
}

// Removes nCount characters from the end of a UTF-8 text.
std::string TextShorten(std::string sText, std::size_t nCount)
{
    while (nCount > 0 && !sText.empty()) {
        const bool bStarts = (static_cast<unsigned char>(sText.back()) & 0xC0U) != 0x80U;
        sText.pop_back();
        nCount -= bStarts ? 1 : 0;
    }
    return sText;
}

std::optional<std::string> RegistryFolderGet()
{
    // The size includes the terminating NUL; with the installer's backslash that makes two.
    constexpr int kDropped = 2;
    const auto value = RegistryStringGet(kRegistryKey, kRegistryName, kRegistryBytesMax);
    if (!value || value->nBytes < kDropped)
        return std::nullopt;
    // A character may be several bytes there; the size beyond the text is the NUL and the rest.
    const int nBeyond = value->nBytes - static_cast<int>(FileBytesFromUtf8(value->sValue).size());
    return TextShorten(value->sValue,
                       static_cast<std::size_t>(std::clamp(kDropped - nBeyond, 0, kDropped)));
}

// Takes the line's folder without its last character; fails if nothing follows the mark.
bool LogLineApply(std::string_view sLine, AirMailFolder& data)
{
    const std::size_t nMark = sLine.find(kDataFolderMark);
    if (nMark == std::string_view::npos)
        return true;
    sLine.remove_prefix(nMark + kDataFolderMark.size());
    if (sLine.empty())
        return false;
    sLine.remove_suffix(1);
    data = {Utf8FromFileBytes(sLine), AirMailOrigin::InstallLog};
    return true;
}

void InstallLogRead(const std::string& sFile, AirMailFolder& data)
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

AirMailFolders AirMailFoldersGet() { return FoldersGet(); }

void AirMailFoldersSet(AirMailFolders folders) { FoldersGet() = std::move(folders); }

void AirMailFoldersReset() { FoldersGet() = AirMailFolders{}; }

void AirMailFoldersFind()
{
    AirMailFolders& folders = FoldersGet();
    if (!FileExists(AirMailFileGet(folders.program.sPath, "Airmail3.exe"))) {
        auto sFolder = RegistryFolderGet();
        if (!sFolder)
            return;
        folders.program = {*std::move(sFolder), AirMailOrigin::Registry};
        folders.data = folders.program;
    }
    if (!FileExists(AirMailFileGet(folders.data.sPath, "Airmail.ini")))
        InstallLogRead(AirMailFileGet(folders.program.sPath, "Install.log"), folders.data);
}

std::string AirMailPathGet(const std::string& sFolder, std::string_view sName)
{
    // A host folder gets its Windows name, so that names below it are found in upper or lower case.
    return PathToWindows(sFolder).append("\\").append(sName);
}

std::string AirMailFileGet(const std::string& sFolder, std::string_view sName)
{
    return DrivePath(AirMailPathGet(sFolder, sName));
}

#include "airmail/AirMailFolders.h"

#include <utility>

namespace {

struct Folders {
    std::string sProgram = kAirMailFolderDefault;
    std::string sData = kAirMailFolderDefault;
};

Folders& FoldersGet()
{
    static Folders folders;
    return folders;
}

}  // namespace

const std::string& AirMailProgramFolderGet() { return FoldersGet().sProgram; }

void AirMailProgramFolderSet(std::string sFolder) { FoldersGet().sProgram = std::move(sFolder); }

const std::string& AirMailDataFolderGet() { return FoldersGet().sData; }

void AirMailDataFolderSet(std::string sFolder) { FoldersGet().sData = std::move(sFolder); }

void AirMailFoldersReset() { FoldersGet() = Folders{}; }

/// The floors: which folder of src/ may include which. Checked by a test, so that the rules cannot
/// erode.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "house/HouseFiles.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

using Names = std::set<std::string>;

/// The folders that each folder may include besides itself.
const std::map<std::string, Names>& FloorsGet()
{
    static const Names kBelowUi{"system",   "geo",         "airmail", "places",
                                "settings", "propagation", "studies"};
    static const std::map<std::string, Names> mapFloors{
        {"system", {}},
        {"geo", {"system"}},
        {"airmail", {"geo", "system"}},
        {"places", {"airmail", "geo", "system"}},
        {"settings", {"airmail", "geo", "system"}},
        {"propagation", {"settings", "geo", "system"}},
        {"engine", {"propagation", "geo", "system"}},  // EnginesKnowDecksAlone narrows this down
        {"studies", {"propagation", "places", "settings", "geo", "system"}},
        {"ui", kBelowUi},
        {"app",
         {"system", "geo", "airmail", "places", "settings", "propagation", "studies", "engine",
          "ui"}},
    };
    return mapFloors;
}

/// The name after #include, with its quotes or angle brackets.
std::vector<std::string> IncludesGet(const fs::path& pthFile)
{
    std::vector<std::string> asInclude;
    std::ifstream stm(pthFile);
    for (std::string sLine; std::getline(stm, sLine);) {
        const std::size_t nHash = sLine.find_first_not_of(' ');
        if (nHash == std::string::npos || sLine.compare(nHash, 8, "#include") != 0)
            continue;
        const std::size_t nFrom = sLine.find_first_of("<\"");
        const std::size_t nTo = sLine.find_first_of(">\"", nFrom + 1);
        if (nTo != std::string::npos)
            asInclude.push_back(sLine.substr(nFrom, nTo - nFrom + 1));
    }
    return asInclude;
}

std::string FolderGet(const fs::path& pthFile)
{
    return fs::relative(pthFile, SOURCE_FOLDER).begin()->string();
}

bool QtIs(const std::string& sInclude)
{
    return sInclude.size() > 2 && sInclude[1] == 'Q' && sInclude.find('.') == std::string::npos;
}

TEST(Floors, EveryFolderIsKnown)
{
    EXPECT_GT(SourcesGet().size(), 50u);
    for (const fs::path& pthFile : SourcesGet())
        EXPECT_TRUE(FloorsGet().contains(FolderGet(pthFile))) << pthFile;
}

/// The document has two rows for "engine", which EnginesKnowDecksAlone checks; "app" may include
/// everything.
TEST(Floors, OfTheDocumentAreThese)
{
    const std::string sDocument = BytesRead(DOCS_FOLDER "/architecture.md");
    static const std::regex kQuoted("`([a-z]+)`");
    for (const auto& [sFolder, aAllowed] : FloorsGet()) {
        if (sFolder == "engine" || sFolder == "app")
            continue;
        const std::string sRow = "\n| `" + sFolder + "` | ";
        std::size_t nRow = sDocument.find("\n| folder | may include, besides itself |");
        ASSERT_NE(nRow, std::string::npos);
        nRow = sDocument.find(sRow, nRow);
        ASSERT_NE(nRow, std::string::npos) << sFolder;
        const std::size_t nFrom = nRow + sRow.size();
        const std::vector<std::string> asTold =
            MatchesGet(sDocument.substr(nFrom, sDocument.find('\n', nFrom) - nFrom), kQuoted);
        EXPECT_EQ(Names(asTold.begin(), asTold.end()), aAllowed) << sFolder;
    }
}

TEST(Floors, NoLowerFloorIncludesAnUpperOne)
{
    for (const fs::path& pthFile : SourcesGet()) {
        const std::string sFolder = FolderGet(pthFile);
        const Names& aAllowed = FloorsGet().at(sFolder);
        for (const std::string& sInclude : IncludesGet(pthFile)) {
            const std::string sOther = sInclude.substr(1, sInclude.find('/') - 1);
            if (FloorsGet().contains(sOther) && sOther != sFolder) {
                EXPECT_TRUE(aAllowed.contains(sOther)) << pthFile << " includes " << sInclude;
            }
        }
    }
}

/// Of propagation, the method and its programs may include only the columns of decks; the engine in
/// this process is an Engine and may include more.
TEST(Floors, EnginesKnowDecksAloneSaveTheOneOfThisProcess)
{
    for (const fs::path& pthFile : SourcesGet()) {
        const std::string sPath = fs::relative(pthFile, SOURCE_FOLDER).generic_string();
        if (!sPath.starts_with("engine/") || sPath.starts_with("engine/builtin/"))
            continue;
        for (const std::string& sInclude : IncludesGet(pthFile)) {
            EXPECT_TRUE(!sInclude.starts_with("\"propagation/")
                        || sInclude.starts_with("\"propagation/deck/"))
                << pthFile << " includes " << sInclude;
            EXPECT_FALSE(sInclude.starts_with("\"engine/builtin/"))
                << pthFile << " includes " << sInclude;
        }
    }
}

/// Lower floors return their messages as values.
TEST(Floors, OnlyWindowsAndProgramsShowBoxes)
{
    for (const fs::path& pthFile : SourcesGet()) {
        const std::string sFolder = FolderGet(pthFile);
        if (sFolder == "ui" || sFolder == "app" || pthFile.filename() == "MsgLib.cpp")
            continue;
        for (const std::string& sInclude : IncludesGet(pthFile))
            EXPECT_NE(sInclude, "\"system/MsgLib.h\"") << pthFile;
    }
}

/// Windows paths are converted to host paths in three places only.
TEST(Floors, OnlyThreeFoldersKnowDrivePaths)
{
    for (const fs::path& pthFile : SourcesGet()) {
        const std::string sPath = fs::relative(pthFile, SOURCE_FOLDER).generic_string();
        if (sPath.starts_with("system/") || sPath.starts_with("airmail/")
            || sPath.starts_with("settings/") || sPath.starts_with("propagation/itshfbc/"))
            continue;
        for (const std::string& sInclude : IncludesGet(pthFile))
            EXPECT_NE(sInclude, "\"system/DrivePath.h\"") << pthFile;
    }
}

TEST(Floors, OnlyWindowsAndProgramsKnowQt)
{
    for (const fs::path& pthFile : SourcesGet()) {
        const std::string sFolder = FolderGet(pthFile);
        if (sFolder == "ui" || sFolder == "app")
            continue;
        for (const std::string& sInclude : IncludesGet(pthFile))
            EXPECT_FALSE(QtIs(sInclude)) << pthFile << " includes " << sInclude;
    }
}

TEST(Floors, PlatformCodeLivesInSystemAlone)
{
    const Names aPlatform{"<windows.h>", "<unistd.h>", "<fcntl.h>",  "<sys/wait.h>", "<sys/stat.h>",
                          "<spawn.h>",   "<signal.h>", "<dirent.h>", "<sys/file.h>", "<poll.h>"};
    for (const fs::path& pthFile : SourcesGet()) {
        const std::string sName = pthFile.filename().string();
        const bool bPlatformFile = sName.find("_posix.") != std::string::npos
                                   || sName.find("_win32.") != std::string::npos;
        if (bPlatformFile) {
            EXPECT_EQ(FolderGet(pthFile), "system") << pthFile;
            continue;
        }
        for (const std::string& sInclude : IncludesGet(pthFile))
            EXPECT_FALSE(aPlatform.contains(sInclude)) << pthFile << " includes " << sInclude;
    }
}

/// When a thread ends, MinGW frees its variables before their destructors are called.
TEST(Floors, NoVariableLivesWithItsThread)
{
    const std::regex rgx(R"(\bthread_local\b)");
    for (const fs::path& pthFile : SourcesGet())
        EXPECT_FALSE(std::regex_search(BytesRead(pthFile.string()), rgx)) << pthFile;
}

TEST(Floors, EveryHeaderIsIncludedOnce)
{
    for (const fs::path& pthFile : SourcesGet()) {
        if (pthFile.extension() != ".h")
            continue;
        std::ifstream stm(pthFile);
        const std::string sText{std::istreambuf_iterator<char>(stm), {}};
        EXPECT_NE(sText.find("#pragma once"), std::string::npos) << pthFile;
    }
}

}  // namespace

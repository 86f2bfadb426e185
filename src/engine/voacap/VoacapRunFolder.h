/// @file VoacapRunFolder.h
/// A private folder for one run of voacapl, beside the file that the run will make.
///
/// It is on the same file system as the result, so that the result can be moved into place in one
/// step. A killed program leaves its folder behind; the next run removes it.
///
/// Errors:  the classic descriptions (RunErrorText.h).
/// Tests:   tests/engine/voacap/VoacapRunFolderTest.cpp
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "system/LockLib.h"
#include "system/Result.h"

class VoacapRunFolder {
public:
    /// Removes the folders of dead runs in sParent and makes a new one there.
    static Result<VoacapRunFolder> Make(const std::string& sParent);

    VoacapRunFolder(VoacapRunFolder&&) noexcept;
    VoacapRunFolder& operator=(VoacapRunFolder&&) = delete;
    /// Removes the folder with its contents.
    ~VoacapRunFolder();

    /// Full path of a name in the folder, or of the folder itself without a name.
    [[nodiscard]] std::string Path(std::string_view sName = {}) const;

private:
    VoacapRunFolder(std::string sFolder, FileLock lock);

    std::string m_sFolder;
    std::optional<FileLock> m_lock;  ///< held while the run lives, unlike that of a dead run
};

#include "engine/voacap/VoacapRunFolder.h"

#include <chrono>
#include <filesystem>
#include <random>
#include <utility>
#include <vector>

#include "system/PathLib.h"
#include "system/RunErrorText.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kPrefix = "voacapw.";
constexpr const char* kRunning = ".run";  // its lock is held, unless its program has died
constexpr const char* kNew = ".new";      // not locked yet
constexpr const char* kLockName = "lock";
/// A folder gets its lock within a moment; one that is still new after this time never will get it.
constexpr auto kNewMax = std::chrono::minutes(1);

void FolderRemove(const fs::path& pthFolder)
{
    std::error_code errIgnored;
    fs::remove_all(pthFolder, errIgnored);
}

bool FolderIsOld(const fs::path& pthFolder)
{
    std::error_code errTime;
    const auto tWritten = fs::last_write_time(pthFolder, errTime);
    return !errTime && tWritten + kNewMax < fs::file_time_type::clock::now();
}

/// Removes what killed programs left in sParent.
void DeadRunsRemove(const std::string& sParent)
{
    std::error_code errList;
    std::vector<fs::path> apthFolders;
    for (fs::directory_iterator itr(sParent, errList), itrEnd; !errList && itr != itrEnd;
         itr.increment(errList))
        if (itr->path().filename().string().starts_with(kPrefix))
            apthFolders.push_back(itr->path());
    for (const fs::path& pthFolder : apthFolders) {
        if (pthFolder.extension() == kRunning) {
            const auto resLock = FileLock::Take((pthFolder / kLockName).string(), 0.0);
            if (resLock)
                FolderRemove(pthFolder);
        } else if (pthFolder.extension() == kNew && FolderIsOld(pthFolder)) {
            FolderRemove(pthFolder);
        }
    }
}

std::string FolderNameMake()
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    constexpr int kNameDigits = 12;
    std::random_device rndDevice;
    std::string sName(kPrefix);
    for (int i = 0; i < kNameDigits; ++i) sName += kDigits[rndDevice() % kDigits.size()];
    return sName;
}

}  // namespace

Result<VoacapRunFolder> VoacapRunFolder::Make(const std::string& sParent)
{
    DeadRunsRemove(sParent);
    const std::string sFolder = PathJoin(sParent, FolderNameMake());
    std::error_code err;
    if (!fs::create_directory(sFolder + kNew, err))
        return err ? RunErrorFromErrno(err.value()) : RunError{kPathFileAccessError};
    fs::permissions(sFolder + kNew, fs::perms::owner_all, err);
    auto resLock = FileLock::Take(PathJoin(sFolder + kNew, kLockName), 0.0);
    if (resLock)
        fs::rename(sFolder + kNew, sFolder + kRunning, err);
    if (!resLock || err) {
        FolderRemove(sFolder + kNew);
        return resLock ? RunErrorFromErrno(err.value()) : resLock.ErrorGet();
    }
    return VoacapRunFolder(sFolder + kRunning, std::move(resLock.ValueGet()));
}

VoacapRunFolder::VoacapRunFolder(std::string sFolder, FileLock lock)
    : m_sFolder(std::move(sFolder)), m_lock(std::move(lock))
{
}

VoacapRunFolder::VoacapRunFolder(VoacapRunFolder&& other) noexcept
    : m_sFolder(std::exchange(other.m_sFolder, {})), m_lock(std::exchange(other.m_lock, {}))
{
}

VoacapRunFolder::~VoacapRunFolder()
{
    if (!m_sFolder.empty())
        FolderRemove(m_sFolder);
}

std::string VoacapRunFolder::Path(std::string_view sName) const
{
    return sName.empty() ? m_sFolder : PathJoin(m_sFolder, sName);
}

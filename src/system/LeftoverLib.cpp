#include "system/LeftoverLib.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "system/HostPath.h"

namespace fs = std::filesystem;

namespace {

/// ".hopcast-123-0"; on Windows the first version wrote "hopcast.ini.hopcast-123".
bool IsTemporaryName(std::string_view sName)
{
    constexpr std::string_view kMark = ".hopcast-";
    constexpr std::string_view kNumber = "0123456789abcdef-";
    const std::size_t nMark = sName.find(kMark);
    return nMark != std::string_view::npos && nMark + kMark.size() < sName.size()
           && sName.find_first_not_of(kNumber, nMark + kMark.size()) == std::string_view::npos;
}

bool IsRunName(std::string_view sName)
{
    return sName.starts_with("voacapw.") && (sName.ends_with(".run") || sName.ends_with(".new"));
}

}  // namespace

bool LeftoverIsOld(const fs::path& pthFile)
{
    std::error_code ec;
    const auto timeWritten = fs::last_write_time(pthFile, ec);
    return !ec && timeWritten + kLeftoverAge < fs::file_time_type::clock::now();
}

void LeftoversRemove(const std::string& sFolder)
{
    std::error_code ec;
    std::vector<fs::path> apthOld;
    for (fs::directory_iterator itr(PathFromText(sFolder), ec), itrEnd; !ec && itr != itrEnd;
         itr.increment(ec)) {
        std::error_code ecStatus;
        const fs::file_status status = itr->symlink_status(ecStatus);
        const std::string sName = TextFromPath(itr->path().filename());
        const bool bOurs = fs::is_regular_file(status)
                               ? IsTemporaryName(sName)
                               : fs::is_directory(status) && IsRunName(sName);
        if (bOurs && LeftoverIsOld(itr->path()))
            apthOld.push_back(itr->path());
    }
    for (const fs::path& pthOld : apthOld) fs::remove_all(pthOld, ec);
}

void FolderMakePrivate(const fs::path& pthFolder, std::error_code& ec)
{
    ec.clear();
    if (fs::is_directory(pthFolder, ec))
        return;
    ec.clear();
    if (pthFolder.has_parent_path() && pthFolder.parent_path() != pthFolder)
        FolderMakePrivate(pthFolder.parent_path(), ec);
    if (ec)
        return;
    // If another program has made it meanwhile, its permissions are that program's business.
    if (fs::create_directory(pthFolder, ec))
        fs::permissions(pthFolder, fs::perms::owner_all, ec);
}

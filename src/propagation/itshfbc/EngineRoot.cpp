#include "propagation/itshfbc/EngineRoot.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <random>
#include <system_error>
#include <utility>
#include <vector>

#include "propagation/itshfbc/EngineManifest.h"
#include "system/DrivePath.h"
#include "system/FileLib.h"
#include "system/HostPath.h"
#include "system/LeftoverLib.h"
#include "system/LockLib.h"
#include "system/PathLib.h"
#include "system/ProfileFolder.h"
#include "system/RunErrorText.h"
#include "system/UserFolders.h"

namespace fs = std::filesystem;

namespace {

constexpr std::array kPrograms{"icepacw.exe", "voacapw.exe", "rec533w.exe"};
constexpr const char* kRec533Program = "rec533w.exe";
constexpr const char* kVoacapProgram = "voacapw.exe";
/// Held while a root is provisioned: two first starts at once would lose each other's lines.
constexpr const char* kProvisionLock = "hopcast-engines.lock";
constexpr double kProvisionWait = 10.0;  // seconds; it takes some milliseconds
/// Prefix of an engine's name while it is being put into place.
constexpr const char* kNewEngine = ".hopcast-engine-";

std::string ProgramPath(const std::string& sRoot, const std::string& sName)
{
    return HostPathBelow(HostPathBelow(sRoot, "/bin_win"), "/" + sName);
}

/// True when the root holds one of the engines and Hopcast did not put it there.
bool RootIsInstalled(const std::string& sRoot)
{
    std::error_code ec;
    if (!fs::is_directory(PathFromText(sRoot), ec))
        return false;  // the usual case, checked by each attempt of a run
    const std::vector<std::string> asManifest = ManifestRead(sRoot);
    return std::any_of(kPrograms.begin(), kPrograms.end(), [&](const char* sName) {
        const std::string sProgram = ProgramPath(sRoot, sName);
        return FileExists(sProgram)
               && (asManifest.empty()
                   || !ProgramIsListed(asManifest, sName, EngineMark(PathFromText(sProgram))));
    });
}

/// The root of a user who has no folder to write to. It is removed when the program ends.
class TemporaryRoot {
public:
    TemporaryRoot() = default;
    ~TemporaryRoot() { Remove(); }
    TemporaryRoot(const TemporaryRoot&) = delete;
    TemporaryRoot& operator=(const TemporaryRoot&) = delete;

    bool Make()
    {
        m_sFolder = TemporaryRootMake();
        if (m_sFolder.empty())
            return false;
        if (auto resLock = FileLock::Take(PathJoin(m_sFolder, kRootOwnerLock), 0.0))
            m_owner = std::move(resLock.ValueGet());
        return true;
    }
    void Remove()
    {
        std::error_code ec;
        m_owner.reset();
        if (!m_sFolder.empty())
            fs::remove_all(PathFromText(m_sFolder), ec);
        m_sFolder.clear();
    }
    /// Host path; empty while none is needed.
    [[nodiscard]] const std::string& FolderGet() const { return m_sFolder; }

private:
    std::string m_sFolder;
    std::optional<FileLock> m_owner;  ///< shows others that the root is in use, however old
};

TemporaryRoot& TemporaryRootGet()
{
    static TemporaryRoot root;
    return root;
}

/// The private root in use: the first choice, unless provisioning needed another one.
std::string PrivateRootGet()
{
    if (!TemporaryRootGet().FolderGet().empty())
        return TemporaryRootGet().FolderGet();
    const std::vector<std::string> asFolders = PrivateRootFolders();
    for (auto it = asFolders.rbegin(); it != asFolders.rend(); ++it)
        if (FileExists(PathJoin(*it, kManifest)))
            return *it;
    return asFolders.front();
}

/// The shipped engine, beside the program or in its libexec folder; empty when there is none.
std::string ShippedEngineGet(const std::string& sProgramFolder, const std::string& sName)
{
    const fs::path pthFolder = PathFromText(sProgramFolder);
    for (const fs::path& pthCandidate :
         {pthFolder, pthFolder.parent_path() / "libexec" / "hopcast"}) {
        std::string sEngine = TextFromPath(pthCandidate / PathFromText(sName));
        if (FileExists(sEngine))
            return sEngine;
    }
    return {};
}

RunError ErrorFromCode(const std::error_code& ec)
{
    return RunErrorFromErrno(ec.default_error_condition().value());
}

/// A name beside sTarget that no other program has.
fs::path NewNameMake(const fs::path& pthTarget)
{
    std::random_device rndDevice;
    return pthTarget.parent_path()
           / (kNewEngine + std::to_string(rndDevice()) + '-' + std::to_string(rndDevice()));
}

/// Replaces sTarget atomically by a link or a copy.
Result<void> EnginePlace(const std::string& sSource, const std::string& sTarget, bool bLink)
{
    const fs::path pthTarget = PathFromText(sTarget);
    const fs::path pthNew = NewNameMake(pthTarget);
    std::error_code ec;
    if (bLink)
        fs::create_symlink(PathFromText(sSource), pthNew, ec);
    else
        fs::copy_file(PathFromText(sSource), pthNew, ec);
    if (!ec)
        fs::rename(pthNew, pthTarget, ec);
    if (!ec)
        return {};
    std::error_code ecRemove;
    fs::remove(pthNew, ecRemove);
    return ErrorFromCode(ec);
}

/// Removes what a program killed in EnginePlace left. REQUIRES: the lock of provisioning.
void NewEnginesRemove(const std::string& sRoot)
{
    std::error_code ec;
    std::vector<fs::path> apthNew;
    for (fs::directory_iterator itr(PathFromText(HostPathBelow(sRoot, "/bin_win")), ec), itrEnd;
         !ec && itr != itrEnd; itr.increment(ec))
        if (TextFromPath(itr->path().filename()).starts_with(kNewEngine))
            apthNew.push_back(itr->path());
    for (const fs::path& pthNew : apthNew) fs::remove(pthNew, ec);
}

/// True for what is ours although it is missing from the list: in a root with a list, a link to
/// nothing, or a program identical to the shipped one.
bool EngineIsUnlistedOurs(const std::string& sTarget, const std::string& sSource)
{
    std::error_code ec;
    const fs::path pthTarget = PathFromText(sTarget);
    if (fs::is_symlink(fs::symlink_status(pthTarget, ec)) && !fs::exists(pthTarget, ec))
        return true;
    const std::string sShipped = sSource.empty() ? sSource : CopyMark(PathFromText(sSource));
    return !sShipped.empty() && sShipped == CopyMark(pthTarget);
}

/// Makes one engine of the root ours and up to date, or removes ours (empty sSource).
/// @param bListKept  the root had a list of engines before this start
Result<void> EngineRenew(const std::string& sRoot, const std::string& sName,
                         const std::string& sSource, bool bListKept)
{
    const std::string sTarget = ProgramPath(sRoot, sName);
    const std::string sOldMark = EngineMark(PathFromText(sTarget));
    std::vector<std::string> asManifest = ManifestRead(sRoot);
    std::error_code ec;
    const bool bFree = !fs::exists(fs::symlink_status(PathFromText(sTarget), ec));
    if (!bFree && !ProgramIsListed(asManifest, sName, sOldMark)
        && !(bListKept && EngineIsUnlistedOurs(sTarget, sSource)))
        return {};  // somebody else's
    if (sSource.empty()) {
        // An engine that still works is kept if only its source cannot be found.
        const bool bUseless = sName == kVoacapProgram || !FileExists(sTarget);
        if (!bFree && bUseless && !fs::remove(PathFromText(sTarget), ec))
            return ErrorFromCode(ec);
        return {};
    }
#ifdef _WIN32
    constexpr std::array kWays{false};  // links need a right that users do not have
#else
    constexpr std::array kWays{true, false};
#endif
    Result<void> res;
    for (const bool bLink : kWays) {
        const std::string sMark = bLink ? "link " + sSource : CopyMark(PathFromText(sSource));
        // Listed first: if Hopcast is killed in between, there is a line too many, but never a
        // program that is not listed.
        res = {};
        if (!ProgramIsListed(asManifest, sName, sMark)) {
            asManifest.push_back(LineMake(sName, sMark));
            res = ManifestWrite(sRoot, asManifest);
        }
        if (sMark == sOldMark)
            return res;
        if (res)
            res = EnginePlace(sSource, sTarget, bLink);
        if (res)
            break;
    }
    return res;
}

/// Removes the lines of engines that are no longer there.
Result<void> ManifestPrune(const std::string& sRoot)
{
    const std::vector<std::string> asBefore = ManifestRead(sRoot);
    std::vector<std::string> asNow;
    for (const char* sName : kPrograms) {
        const std::string sMark = EngineMark(PathFromText(ProgramPath(sRoot, sName)));
        if (ProgramIsListed(asBefore, sName, sMark))
            asNow.push_back(LineMake(sName, sMark));
    }
    return asNow == asBefore ? Result<void>() : ManifestWrite(sRoot, asNow);
}

/// A root that is being provisioned.
struct RootWork {
    std::string sRoot;
    std::optional<FileLock> m_lock;
    bool bListKept = false;  ///< it already had a list of engines
};

/// Makes the folders, all of them writable, the lock and the manifest.
Result<void> FoldersMake(RootWork& work)
{
    work.m_lock.reset();
    for (const char* sFolder : {"", "/bin_win", "/RUN", "/areadata"}) {
        const fs::path pthFolder = PathFromText(HostPathBelow(work.sRoot, sFolder));
        std::error_code ec;
        FolderMakePrivate(pthFolder, ec);
        if (ec)
            return ErrorFromCode(ec);
        if (!FolderIsWritable(pthFolder))
            return RunError{kPermissionDenied};
    }
    auto resLock = FileLock::Take(PathJoin(work.sRoot, kProvisionLock), kProvisionWait);
    if (!resLock)
        return resLock.ErrorGet();
    work.m_lock = std::move(resLock.ValueGet());
    work.bListKept = FileExists(PathJoin(work.sRoot, kManifest));
    return work.bListKept ? Result<void>() : ManifestWrite(work.sRoot, {});
}

/// Uses the first suitable folder, or a temporary one if there is none.
Result<void> PrivateRootMake(RootWork& work)
{
    Result<void> resMade = RunError{kPathFileAccessError};
    for (const std::string& sFolder : PrivateRootFolders()) {
        work.sRoot = sFolder;
        resMade = FoldersMake(work);
        if (resMade)
            return resMade;
    }
    if (!TemporaryRootGet().Make())
        return resMade;
    work.sRoot = TemporaryRootGet().FolderGet();
    return FoldersMake(work);
}

}  // namespace

std::string EngineRoot::Path(std::string_view sPath) const
{
    return HostPathBelow(sFolder, sPath.substr(kEngineRoot.size()));
}

EngineRoot EngineRootGet()
{
    std::string sFolder = EnvironmentGet("HOPCAST_ITSHFBC");
    if (!sFolder.empty()) {
        std::error_code ec;
        fs::path pthFolder = fs::absolute(PathFromText(sFolder), ec).lexically_normal();
        if (!pthFolder.has_filename() && pthFolder.has_relative_path())
            pthFolder = pthFolder.parent_path();  // a separator at the end
        return {TextFromPath(pthFolder), EngineRootKind::Environment};
    }
    sFolder = DrivePath(kEngineRoot);
    if (RootIsInstalled(sFolder))
        return {sFolder, EngineRootKind::Installed};
    return {PrivateRootGet(), EngineRootKind::Private};
}

Result<void> EngineRootProvisionFrom(const std::string& sProgramFolder,
                                     const std::string& sSearchPath)
{
    const EngineRoot root = EngineRootGet();
    for (const char* sFolder : {"", "/RUN", "/areadata"})
        LeftoversRemove(HostPathBelow(root.sFolder, sFolder));
    TemporaryRootsRemove();
    if (root.eKind != EngineRootKind::Private)
        return {};
    EngineRootRelease();
    RootWork work;
    if (Result<void> resMade = PrivateRootMake(work); !resMade)
        return resMade;
    const std::string& sRoot = work.sRoot;
    NewEnginesRemove(sRoot);
    const std::string sVoacap = VoacaplIsInstalled(sSearchPath)
                                    ? ShippedEngineGet(sProgramFolder, kVoacapProgram)
                                    : std::string();
    Result<void> resRec533 = EngineRenew(
        sRoot, kRec533Program, ShippedEngineGet(sProgramFolder, kRec533Program), work.bListKept);
    Result<void> resVoacap = EngineRenew(sRoot, kVoacapProgram, sVoacap, work.bListKept);
    Result<void> resManifest = ManifestPrune(sRoot);
    if (!resRec533)
        return resRec533;
    return resVoacap ? resManifest : resVoacap;
}

Result<void> EngineRootProvision()
{
    return EngineRootProvisionFrom(ProgramFolderGet(), EngineSearchPathGet());
}

void EngineRootRelease() { TemporaryRootGet().Remove(); }

bool EngineIsBuiltIn(const std::string& sProgramName, const EngineRoot& root)
{
    const std::string sProgram = ProgramPath(root.sFolder, sProgramName);
    if (!FileExists(sProgram))
        return false;
    if (ProgramIsListed(ManifestRead(root.sFolder), sProgramName,
                        EngineMark(PathFromText(sProgram))))
        return true;
    // A packager's root may link or copy our engines without a manifest.
    const std::string sShipped = ShippedEngineGet(ProgramFolderGet(), sProgramName);
    const std::string sMark = sShipped.empty() ? sShipped : CopyMark(PathFromText(sShipped));
    return !sMark.empty() && sMark == CopyMark(PathFromText(sProgram));
}

#include "system/EngineRootLib.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <map>
#include <system_error>
#include <vector>

#include "system/EngineRootHost.h"
#include "system/FileLib.h"
#include "system/HostPath.h"
#include "system/PathLib.h"
#include "system/ProfileFolder.h"
#include "system/RunErrorText.h"

namespace fs = std::filesystem;

namespace {

constexpr std::array kPrograms{"icepacw.exe", "voacapw.exe", "rec533w.exe"};
constexpr const char* kRec533Program = "rec533w.exe";
constexpr const char* kVoacapProgram = "voacapw.exe";
/// Names the programs that Hopcast put into a root, so that no other is ever touched. One a line:
/// "rec533w.exe link TARGET" or "rec533w.exe copy SIZE HASH".
constexpr const char* kManifest = "hopcast-engines.txt";
constexpr std::size_t kManifestMax = std::size_t{64} << 10;
constexpr std::size_t kProgramMax = std::size_t{256} << 20;

/// FNV-1a, 64 bits: tells versions of a program apart; not meant against forgery.
std::string HashText(std::string_view sBytes)
{
    constexpr std::uint64_t kOffsetBasis = 0xcbf29ce484222325U;
    constexpr std::uint64_t kPrime = 0x100000001b3U;
    std::uint64_t nHash = kOffsetBasis;
    for (const char cByte : sBytes) nHash = (nHash ^ static_cast<unsigned char>(cByte)) * kPrime;
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string sText(16, '0');
    for (std::size_t i = sText.size(); i-- > 0; nHash >>= 4U) sText[i] = kDigits[nHash & 15U];
    return sText;
}

/// "copy SIZE HASH" of a file's content; empty when it cannot be read. Read again only when size or
/// time of the file changed: the root is looked up at every path.
std::string CopyMark(const fs::path& pthFile)
{
    struct Known {
        std::uintmax_t nSize;
        fs::file_time_type m_timeWritten;
        std::string sMark;
    };
    static std::map<fs::path, Known> mapKnown;
    std::error_code ec;
    const std::uintmax_t nSize = fs::file_size(pthFile, ec);
    const fs::file_time_type timeWritten =
        ec ? fs::file_time_type() : fs::last_write_time(pthFile, ec);
    if (ec)
        return {};
    const auto itKnown = mapKnown.find(pthFile);
    if (itKnown != mapKnown.end() && itKnown->second.nSize == nSize
        && itKnown->second.m_timeWritten == timeWritten)
        return itKnown->second.sMark;
    const auto resBytes = FileRead(TextFromPath(pthFile), kProgramMax);
    if (!resBytes)
        return {};
    std::string sMark =
        "copy " + std::to_string(resBytes.ValueGet().size()) + ' ' + HashText(resBytes.ValueGet());
    mapKnown[pthFile] = {nSize, timeWritten, sMark};
    return sMark;
}

/// What stands in a root under a program's name; empty when nothing does.
std::string EngineMark(const fs::path& pthProgram)
{
    std::error_code ec;
    const fs::file_status status = fs::symlink_status(pthProgram, ec);
    if (fs::is_symlink(status))
        return "link " + TextFromPath(fs::read_symlink(pthProgram, ec));
    return fs::is_regular_file(status) ? CopyMark(pthProgram) : std::string();
}

std::string LineMake(const std::string& sName, const std::string& sMark)
{
    return sName + ' ' + sMark;
}

std::vector<std::string> ManifestRead(const std::string& sRoot)
{
    std::vector<std::string> asLines;
    auto resFile = TextFile::Open(PathJoin(sRoot, kManifest));
    std::string sLine;
    for (std::size_t nBytes = 0; resFile && nBytes < kManifestMax; nBytes += sLine.size()) {
        const auto resLine = resFile.ValueGet().LineRead(sLine);
        if (!resLine || !resLine.ValueGet())
            break;
        asLines.push_back(sLine);
    }
    return asLines;
}

Result<void> ManifestWrite(const std::string& sRoot, const std::vector<std::string>& asLines)
{
    std::string sBytes;
    for (const std::string& sLine : asLines) sBytes += sLine + '\n';
    return FileReplace(PathJoin(sRoot, kManifest), sBytes);
}

std::string ProgramPath(const std::string& sRoot, const std::string& sName)
{
    return HostPathBelow(HostPathBelow(sRoot, "/bin_win"), "/" + sName);
}

bool ProgramIsListed(const std::vector<std::string>& asManifest, const std::string& sName,
                     const std::string& sMark)
{
    return !sMark.empty()
           && std::find(asManifest.begin(), asManifest.end(), LineMake(sName, sMark))
                  != asManifest.end();
}

/// True when the root holds one of the engines and Hopcast did not put it there.
bool RootIsInstalled(const std::string& sRoot)
{
    std::error_code ec;
    if (!fs::is_directory(PathFromText(sRoot), ec))
        return false;  // the usual case, and asked at every path
    const std::vector<std::string> asManifest = ManifestRead(sRoot);
    return std::any_of(kPrograms.begin(), kPrograms.end(), [&](const char* sName) {
        const std::string sProgram = ProgramPath(sRoot, sName);
        return FileExists(sProgram)
               && (asManifest.empty()
                   || !ProgramIsListed(asManifest, sName, EngineMark(PathFromText(sProgram))));
    });
}

/// The root of a user who has no folder to write to. It goes with the program.
class TemporaryRoot {
public:
    TemporaryRoot() = default;
    ~TemporaryRoot() { Remove(); }
    TemporaryRoot(const TemporaryRoot&) = delete;
    TemporaryRoot& operator=(const TemporaryRoot&) = delete;

    bool Make()
    {
        m_sFolder = TemporaryRootMake();
        return !m_sFolder.empty();
    }
    void Remove()
    {
        std::error_code ec;
        if (!m_sFolder.empty())
            fs::remove_all(PathFromText(m_sFolder), ec);
        m_sFolder.clear();
    }
    /// Host path; empty while none is needed.
    [[nodiscard]] const std::string& FolderGet() const { return m_sFolder; }

private:
    std::string m_sFolder;
};

TemporaryRoot& TemporaryRootGet()
{
    static TemporaryRoot root;
    return root;
}

/// The private root in use: a later choice only when it was needed before.
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

/// The engine as shipped, beside the program or in its libexec folder; empty when there is none.
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

/// Puts a link or, where links cannot be made, a copy in the place of sTarget, at once.
Result<void> EnginePlace(const std::string& sSource, const std::string& sTarget, bool bLink)
{
    const fs::path pthTarget = PathFromText(sTarget);
    fs::path pthNew = pthTarget;
    pthNew += ".new";
    std::error_code ec;
    fs::remove(pthNew, ec);
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

/// Makes one engine of the root ours and current, or takes ours away (empty sSource).
Result<void> EngineRenew(const std::string& sRoot, const std::string& sName,
                         const std::string& sSource)
{
    const std::string sTarget = ProgramPath(sRoot, sName);
    const std::string sOldMark = EngineMark(PathFromText(sTarget));
    std::vector<std::string> asManifest = ManifestRead(sRoot);
    std::error_code ec;
    const bool bFree = !fs::exists(fs::symlink_status(PathFromText(sTarget), ec));
    if (!bFree && !ProgramIsListed(asManifest, sName, sOldMark))
        return {};  // somebody else's
    if (sSource.empty()) {
        // An engine that still works is kept when only its source is out of sight.
        const bool bUseless = sName == kVoacapProgram || !FileExists(sTarget);
        if (!bFree && bUseless && !fs::remove(PathFromText(sTarget), ec))
            return ErrorFromCode(ec);
        return {};
    }
#ifdef _WIN32
    constexpr std::array kWays{false};  // links need a right that users lack
#else
    constexpr std::array kWays{true, false};
#endif
    Result<void> res;
    for (const bool bLink : kWays) {
        const std::string sMark = bLink ? "link " + sSource : CopyMark(PathFromText(sSource));
        if (sMark == sOldMark)
            return {};
        // Listed first: a program killed in between leaves a line too many, never a program that
        // nobody owns.
        if (!ProgramIsListed(asManifest, sName, sMark)) {
            asManifest.push_back(LineMake(sName, sMark));
            res = ManifestWrite(sRoot, asManifest);
        }
        if (res)
            res = EnginePlace(sSource, sTarget, bLink);
        if (res)
            break;
    }
    return res;
}

/// Drops the lines of engines that are no longer there.
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

/// The folders, all of them writable, and the manifest.
Result<void> FoldersMake(const std::string& sRoot)
{
    for (const char* sFolder : {"", "/bin_win", "/RUN", "/areadata"}) {
        const fs::path pthFolder = PathFromText(HostPathBelow(sRoot, sFolder));
        std::error_code ec;
        fs::create_directories(pthFolder, ec);
        if (ec)
            return ErrorFromCode(ec);
        if (!FolderIsWritable(pthFolder))
            return RunError{kPermissionDenied};
    }
    return FileExists(PathJoin(sRoot, kManifest)) ? Result<void>() : ManifestWrite(sRoot, {});
}

/// The first place that can be used, and a temporary one where there is none.
Result<void> PrivateRootMake(std::string& sRoot)
{
    Result<void> resMade = RunError{kPathFileAccessError};
    for (const std::string& sFolder : PrivateRootFolders()) {
        sRoot = sFolder;
        resMade = FoldersMake(sRoot);
        if (resMade)
            return resMade;
    }
    if (!TemporaryRootGet().Make())
        return resMade;
    sRoot = TemporaryRootGet().FolderGet();
    return FoldersMake(sRoot);
}

}  // namespace

EngineRoot EngineRootGet()
{
    const HostPathsOnly host;
    std::string sFolder = EnvironmentGet("HOPCAST_ITSHFBC");
    if (!sFolder.empty()) {
        std::error_code ec;
        fs::path pthFolder = fs::absolute(PathFromText(sFolder), ec).lexically_normal();
        if (!pthFolder.has_filename() && pthFolder.has_relative_path())
            pthFolder = pthFolder.parent_path();  // a separator at the end
        return {TextFromPath(pthFolder), EngineRootKind::Environment};
    }
    sFolder = FixedEngineRootGet();
    if (RootIsInstalled(sFolder))
        return {sFolder, EngineRootKind::Installed};
    return {PrivateRootGet(), EngineRootKind::Private};
}

Result<void> EngineRootProvisionFrom(const std::string& sProgramFolder,
                                     const std::string& sSearchPath)
{
    const HostPathsOnly host;
    if (EngineRootGet().eKind != EngineRootKind::Private)
        return {};
    EngineRootRelease();
    std::string sRoot;
    if (Result<void> resMade = PrivateRootMake(sRoot); !resMade)
        return resMade;
    const std::string sVoacap = VoacaplIsThere(sSearchPath)
                                    ? ShippedEngineGet(sProgramFolder, kVoacapProgram)
                                    : std::string();
    Result<void> resRec533 =
        EngineRenew(sRoot, kRec533Program, ShippedEngineGet(sProgramFolder, kRec533Program));
    Result<void> resVoacap = EngineRenew(sRoot, kVoacapProgram, sVoacap);
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

bool EngineIsBuiltIn(const std::string& sProgramName)
{
    const HostPathsOnly host;
    const EngineRoot root = EngineRootGet();
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

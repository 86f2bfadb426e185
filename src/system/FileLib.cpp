#include "system/FileLib.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "system/FileHost.h"
#include "system/HostPath.h"
#include "system/PathLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"

namespace fs = std::filesystem;

namespace {

/// "No such file" and "no such folder" are one errno value but two descriptions.
RunError FileErrorMake(int nErrno, const std::string& sHostPath)
{
    std::error_code ec;
    const fs::path pthFolder = PathFromText(sHostPath).parent_path();
    const bool bNoFolder = !pthFolder.empty() && !fs::is_directory(pthFolder, ec);
    if (nErrno == ENOTDIR || (nErrno == ENOENT && bNoFolder))
        return {kPathNotFound};
    if (fs::is_directory(PathFromText(sHostPath), ec))
        return {kPathFileAccessError};
    return RunErrorFromErrno(nErrno);
}

}  // namespace

bool WildcardMatch(std::string_view sPattern, std::string_view sName)
{
    if (sPattern == "*.*")
        return true;
    std::size_t nPattern = 0;
    std::size_t nName = 0;
    std::size_t nStar = std::string_view::npos;  // the last star seen, and where its match ends
    std::size_t nStarEnd = 0;
    while (nName < sName.size()) {
        if (nPattern < sPattern.size() && sPattern[nPattern] == '*') {
            nStar = nPattern++;
            nStarEnd = nName;
        } else if (nPattern < sPattern.size()
                   && (sPattern[nPattern] == '?'
                       || TextEqualNoCase(sPattern.substr(nPattern, 1), sName.substr(nName, 1)))) {
            ++nPattern;
            ++nName;
        } else if (nStar != std::string_view::npos) {
            nPattern = nStar + 1;
            nName = ++nStarEnd;
        } else {
            return false;
        }
    }
    return sPattern.find_first_not_of('*', nPattern) == std::string_view::npos;
}

std::vector<std::string> FilesList(std::string_view sPattern)
{
    const fs::path pthPattern = PathFromText(sPattern);
    const std::string sName = TextFromPath(pthPattern.filename());
    const fs::path pthFolder =
        pthPattern.has_parent_path() ? pthPattern.parent_path() : fs::path(".");
    std::vector<std::string> asNames;
    std::error_code ec;
    fs::directory_iterator it(pthFolder, fs::directory_options::skip_permission_denied, ec);
    for (; !ec && it != fs::directory_iterator(); it.increment(ec)) {
        std::error_code ecType;
        const std::string sEntry = TextFromPath(it->path().filename());
        if (WildcardMatch(sName, sEntry) && !it->is_directory(ecType))
            asNames.push_back(sEntry);
    }
    std::sort(asNames.begin(), asNames.end(), [](const std::string& sA, const std::string& sB) {
        const std::string sUpperA = TextUpper(sA);
        const std::string sUpperB = TextUpper(sB);
        return sUpperA != sUpperB ? sUpperA < sUpperB : sA < sB;
    });
    return asNames;
}

bool FileExists(std::string_view sPath)
{
    std::error_code ec;
    const fs::file_status status = fs::status(PathFromText(sPath), ec);
    return fs::exists(status) && !fs::is_directory(status);
}

bool FileSame(std::string_view sPathA, std::string_view sPathB)
{
    std::error_code ec;
    return fs::equivalent(PathFromText(sPathA), PathFromText(sPathB), ec);
}

Result<void> FileDelete(std::string_view sPath)
{
    const std::string sHost(sPath);
    const fs::path pthFile = PathFromText(sHost);
    std::error_code ec;
    if (fs::is_directory(fs::symlink_status(pthFile, ec)))
        return RunError{kPathFileAccessError};
    if (fs::remove(pthFile, ec))
        return {};
    return FileErrorMake(ec ? ec.default_error_condition().value() : ENOENT, sHost);
}

Result<TextFile> TextFile::Open(std::string_view sPath)
{
    const std::string sHost(sPath);
    int nErrno = 0;
    std::FILE* pFile = HostFileOpenRead(sHost, nErrno);
    if (!pFile)
        return FileErrorMake(nErrno, sHost);
    return TextFile(pFile);
}

bool TextFile::Fill()
{
    constexpr std::size_t kBufferSize = std::size_t{64} << 10;
    if (m_nNext < m_nEnd)
        return true;
    if (m_bError)
        return false;
    m_aBuffer.resize(kBufferSize);
    m_nNext = 0;
    m_nEnd = std::fread(m_aBuffer.data(), 1, m_aBuffer.size(), m_pFile.get());
    m_bError = m_nEnd == 0 && std::ferror(m_pFile.get()) != 0;
    return m_nEnd > 0;
}

Result<bool> TextFile::LineRead(std::string& sLine)
{
    sLine.clear();
    bool bAny = false;
    bool bEnd = false;
    bool bCut = false;
    while (!bEnd && Fill()) {
        const std::string_view sHave(m_aBuffer.data() + m_nNext, m_nEnd - m_nNext);
        const std::size_t nTake = std::min(sHave.find('\n'), sHave.size());
        const std::size_t nKeep = std::min(nTake, kLineMax - sLine.size());
        sLine.append(sHave.substr(0, nKeep));
        bCut = bCut || nKeep < nTake;
        bEnd = nTake < sHave.size();
        m_nNext += nTake + (bEnd ? 1 : 0);
        bAny = true;
    }
    if (m_bError)
        return RunError{kPathFileAccessError};
    if (!bCut && !sLine.empty() && sLine.back() == '\r')
        sLine.pop_back();
    return bAny;
}

Result<std::string> FileReadHead(std::string_view sPath, std::size_t nMax)
{
    const std::string sHost(sPath);
    int nErrno = 0;
    const std::unique_ptr<std::FILE, FileCloser> pFile(HostFileOpenRead(sHost, nErrno));
    if (!pFile)
        return FileErrorMake(nErrno, sHost);
    constexpr std::size_t kFirst = std::size_t{8} << 10;  // decks are short
    std::string sBytes;
    for (std::size_t nRead = 1; nRead > 0 && sBytes.size() < nMax;) {
        const std::size_t nBefore = sBytes.size();
        sBytes.resize(nBefore + std::min(std::max(kFirst, nBefore), nMax - nBefore));
        nRead = std::fread(sBytes.data() + nBefore, 1, sBytes.size() - nBefore, pFile.get());
        sBytes.resize(nBefore + nRead);
    }
    if (std::ferror(pFile.get()))
        return RunError{kPathFileAccessError};
    return sBytes;
}

Result<std::string> FileRead(std::string_view sPath, std::size_t nMax)
{
    auto resBytes = FileReadHead(sPath, nMax + 1);
    if (resBytes && resBytes.ValueGet().size() > nMax)
        return RunError{kOverflow};
    return resBytes;
}

Result<OutputFile> OutputFile::Open(std::string_view sPath)
{
    const std::string sHost(sPath);
    int nErrno = 0;
    std::FILE* pFile = HostFileOpenWrite(sHost, nErrno);
    if (!pFile)
        return FileErrorMake(nErrno, sHost);
    return OutputFile(pFile);
}

Result<OutputFile> OutputFile::OpenNew(std::string_view sPath)
{
    const std::string sHost(sPath);
    int nErrno = 0;
    std::FILE* pFile = HostFileOpenNew(sHost, nErrno);
    if (!pFile)
        return FileErrorMake(nErrno, sHost);
    return OutputFile(pFile);
}

Result<void> OutputFile::Write(std::string_view sBytes)
{
    errno = 0;
    if (std::fwrite(sBytes.data(), 1, sBytes.size(), m_pFile.get()) != sBytes.size())
        return RunErrorFromErrno(errno);
    return {};
}

Result<void> OutputFile::Close()
{
    if (!m_pFile)
        return {};
    errno = 0;
    const bool bEarlierError = std::ferror(m_pFile.get()) != 0;
    if (std::fclose(m_pFile.release()) != 0)
        return RunErrorFromErrno(errno);
    if (bEarlierError)
        return RunError{kPathFileAccessError};
    return {};
}

Result<void> FileReplace(std::string_view sPath, std::string_view sBytes)
{
    if (const int nErrno = FileReplaceErrno(sPath, sBytes))
        return FileErrorMake(nErrno, std::string(sPath));
    return {};
}

/// @file FileLib.h
/// Files as the modules need them: wildcard listing, deletion, text read line by line, output whose
/// opening and writing fail apart, and atomic replacement.
///
/// Paths:   host paths, UTF-8.
/// Errors:  the classic descriptions (RunErrorText.h); "Path not found" when the folder is missing.
/// Tests:   tests/system/FileLibTest.cpp
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "system/Result.h"

/// Names (without folder) of the files that match a path whose last component may hold * and ?;
/// case-blind ("*.*" means "*"), in alphabetical order without regard to case, which is the
/// directory order of Windows. A folder matches nothing.
[[nodiscard]] std::vector<std::string> FilesList(std::string_view sPattern);

/// True when a listing of the full path yields a name: an existing file that is not a folder.
[[nodiscard]] bool FileExists(std::string_view sPath);

/// True when both paths name one file, by whatever names and links; false when one is missing.
[[nodiscard]] bool FileSame(std::string_view sPathA, std::string_view sPathB);

/// Deletes a file. @return "File not found", "Permission denied" ... on failure.
Result<void> FileDelete(std::string_view sPath);

struct FileCloser {
    void operator()(std::FILE* pFile) const { std::fclose(pFile); }
};

/// A file read line by line, streamed: a 100 MB file needs no 100 MB.
class TextFile {
public:
    /// Opens for reading, bytes as they are. A folder, and anything else that is no ordinary file,
    /// is "Path/File access error".
    static Result<TextFile> Open(std::string_view sPath);
    /// Next line without its end (LF, CR LF, or nothing at the end of the file); of a line longer
    /// than kLineMax bytes the rest is dropped. @return false at the end of the file; a read error
    /// is "Path/File access error".
    Result<bool> LineRead(std::string& sLine);

    static constexpr std::size_t kLineMax = std::size_t{16} << 20;

private:
    explicit TextFile(std::FILE* pFile) : m_pFile(pFile) {}
    bool Fill();

    std::unique_ptr<std::FILE, FileCloser> m_pFile;
    std::vector<char> m_aBuffer;
    std::size_t m_nNext = 0;
    std::size_t m_nEnd = 0;
    bool m_bError = false;
};

/// Whole file as bytes, at most nMax of them ("Overflow" when there are more).
[[nodiscard]] Result<std::string> FileRead(std::string_view sPath, std::size_t nMax);

/// The first bytes of a file, at most nMax of them.
[[nodiscard]] Result<std::string> FileReadHead(std::string_view sPath, std::size_t nMax);

/// A file opened for output, any old one replaced. Opening and writing are two steps because their
/// failures are told apart to the user.
class OutputFile {
public:
    static Result<OutputFile> Open(std::string_view sPath);
    /// The same for a name that is Hopcast's own, as decks and outputs have it: what stands there
    /// is deleted first. Neither a link nor a named pipe under the name is followed or waited for.
    static Result<OutputFile> OpenNew(std::string_view sPath);
    /// REQUIRES: not closed.
    Result<void> Write(std::string_view sBytes);
    /// Flushes and closes; a full disk may show only here. A second call does nothing.
    Result<void> Close();

private:
    explicit OutputFile(std::FILE* pFile) : m_pFile(pFile) {}
    std::unique_ptr<std::FILE, FileCloser> m_pFile;
};

/// Writes a temporary file beside sPath and renames it over it, so that a full disk or a killed
/// program leaves the old file whole. The old file's permissions are kept; a link is followed. A
/// file without any write permission is left alone ("Permission denied"), even where its folder may
/// be written and for the superuser. Outside Windows a file whose folder takes no new file is
/// written in place (its room is reserved first); a device, a pipe and an open descriptor
/// ("/dev/stdout", "/dev/fd/3") are written directly, a descriptor at the place where it stands.
Result<void> FileReplace(std::string_view sPath, std::string_view sBytes);

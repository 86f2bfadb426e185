/// @file FileLib.h
/// Files as the modules need them: wildcard listing, deletion, text read line by line, output with
/// separate errors for opening and writing, and atomic replacement.
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

/// Names (without folder) of the files that match a path whose last component may contain * and ?,
/// without regard to case ("*.*" means "*"), in alphabetical order without regard to case, which is
/// the directory order of Windows. Folders never match.
[[nodiscard]] std::vector<std::string> FilesList(std::string_view sPattern);

/// True when FilesList finds the full path: an existing file that is not a folder.
[[nodiscard]] bool FileExists(std::string_view sPath);

/// True when both paths lead to the same file, under any names and links; false when one is
/// missing.
[[nodiscard]] bool FileSame(std::string_view sPathA, std::string_view sPathB);

/// Deletes a file. @return "File not found", "Permission denied" ... on failure.
Result<void> FileDelete(std::string_view sPath);

struct FileCloser {
    void operator()(std::FILE* pFile) const { std::fclose(pFile); }
};

/// A file read line by line, streamed: a 100 MB file needs no 100 MB.
class TextFile {
public:
    /// Opens for reading, bytes as they are. A folder, and anything else that is not an ordinary
    /// file, is "Path/File access error".
    static Result<TextFile> Open(std::string_view sPath);
    /// Next line without its end (LF, CR LF, or nothing at the end of the file); a line longer than
    /// kLineMax bytes is cut there. @return false at the end of the file; a read error is
    /// "Path/File access error".
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

/// A file opened for output, replacing any old one. Opening and writing are two steps because the
/// user gets different messages for their failures.
class OutputFile {
public:
    static Result<OutputFile> Open(std::string_view sPath);
    /// The same for one of Hopcast's own names, as decks and outputs have: whatever has that name
    /// is deleted first. No link with that name is followed, and no named pipe waited for.
    static Result<OutputFile> OpenNew(std::string_view sPath);
    /// REQUIRES: not closed.
    Result<void> Write(std::string_view sBytes);
    /// Flushes and closes; a full disk may show only here. A second call does nothing.
    Result<void> Close();

private:
    explicit OutputFile(std::FILE* pFile) : m_pFile(pFile) {}
    std::unique_ptr<std::FILE, FileCloser> m_pFile;
};

/// Writes a temporary file beside sPath and renames it to sPath, so that a full disk or a killed
/// program leaves the old file whole. The old file's permissions are kept; a link is followed. A
/// file without any write permission is left alone ("Permission denied"), even if its folder is
/// writable, and for the superuser too. Outside Windows a file in a folder that takes no new file
/// is written in place (its space is reserved first); a device, a pipe and an open descriptor
/// ("/dev/stdout", "/dev/fd/3") are written directly, a descriptor at its current position.
Result<void> FileReplace(std::string_view sPath, std::string_view sBytes);

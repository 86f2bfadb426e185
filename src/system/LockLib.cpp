#include "system/LockLib.h"

#include <chrono>

#include "system/FileLib.h"

Result<FileLock> FileLock::Take(const std::string& sPath, double dSeconds,
                                const std::stop_token& stop)
{
    const std::string sNext = sPath + ".next";
    if (!FileExists(sNext)) {
        auto resLock = FileTake(sPath, 0.0, stop);  // nobody waits
        if (resLock || dSeconds <= 0.0)
            return resLock;
    }
    const auto tmStart = std::chrono::steady_clock::now();
    const auto resNext = FileTake(sNext, dSeconds, stop);
    if (!resNext)
        return resNext.ErrorGet();
    const std::chrono::duration<double> tmTaken = std::chrono::steady_clock::now() - tmStart;
    return FileTake(sPath, dSeconds - tmTaken.count(), stop);
}

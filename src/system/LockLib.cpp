#include "system/LockLib.h"

#include "system/Deadline.h"
#include "system/FileLib.h"

Result<FileLock> FileLock::Take(const std::string& sPath, double dSeconds,
                                const std::stop_token& stop)
{
    const std::string sNext = sPath + ".next";
    if (!FileExists(sNext)) {
        auto resLock = FileTake(sPath, 0.0, stop);  // nobody else is waiting
        if (resLock || dSeconds <= 0.0)
            return resLock;
    }
    const Deadline deadline(dSeconds);
    const auto resNext = FileTake(sNext, dSeconds, stop);
    if (!resNext)
        return resNext.ErrorGet();
    return FileTake(sPath, deadline.LeftGet(), stop);
}

#include "system/RunErrorText.h"

#include <cerrno>

RunError RunErrorFromErrno(int nErrno)
{
    switch (nErrno) {
        case ENOENT:
            return {kFileNotFound};
        case EACCES:
        case EPERM:
        case EROFS:
        case EBUSY:
#ifdef ETXTBSY
        case ETXTBSY:
#endif
            return {kPermissionDenied};
        case ENOSPC:
        case EFBIG:
#ifdef EDQUOT
        case EDQUOT:
#endif
            return {kDiskFull};
        default:
            return {kPathFileAccessError};
    }
}

#include "ui/options/AppIcon.h"

QIcon AppIconGet()
{
    QIcon icon;
    for (const int nSize : {16, 24, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/icon/hopcast-%1.png").arg(nSize));
    return icon;
}

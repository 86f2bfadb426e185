#include "ui/common/MsgWindow.h"

#include <QApplication>
#include <QMessageBox>

#include "system/MsgLib.h"
#include "ui/common/BoxOpen.h"
#include "ui/common/NightPointer.h"

namespace {

QMessageBox::Icon IconOf(MsgIcon eIcon)
{
    switch (eIcon) {
        case MsgIcon::Info:
            return QMessageBox::Information;
        case MsgIcon::Exclamation:
            return QMessageBox::Warning;
        default:
            return QMessageBox::NoIcon;
    }
}

void BoxShow(MsgIcon eIcon, const std::string& sText)
{
    const BoxOpen open;
    QMessageBox box(IconOf(eIcon), QApplication::applicationDisplayName(), MsgTextShown(sText),
                    QMessageBox::Ok, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    // A busy pointer over a box that waits for the user would mislead.
    QApplication::setOverrideCursor(PointerGet(Qt::ArrowCursor));
    box.exec();
    QApplication::restoreOverrideCursor();
}

}  // namespace

void MsgWindowInstall() { MsgSetHandler(BoxShow); }

QString MsgTextShown(const std::string& sText)
{
    QString sShown = QString::fromStdString(sText);
    sShown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    sShown.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return sShown;
}

#include "ui/options/frmAbout.h"

#include "ui/common/Words.h"
#include "ui/options/AppIcon.h"

namespace {

constexpr const char* kTitle = "Hopcast";
constexpr int kIconSize = 64;  // pixels at scale 1

}  // namespace

frmAbout::frmAbout(QWidget* pParent) : QDialog(pParent)
{
    setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    picIcon->setPixmap(AppIconGet().pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
    lblTitle->setText(QString::fromUtf8(kTitle));
    // A label breaks lines only at line feeds.
    lblDescription->setText(QString::fromStdString(AboutDescriptionGet(HOPCAST_VERSION))
                                .replace(QStringLiteral("\r"), QStringLiteral("\n")));
}

std::string AboutDescriptionGet(std::string_view sVersion)
{
    const std::size_t nMinor = sVersion.find('.') + 1;
    // "Locationt" and "Propagtion" are kept as users know them.
    return WordsPut(frmAbout::tr("Version %1"),
                    std::string(sVersion.substr(0, sVersion.find('.', nMinor))))
           + "\r\r" + frmAbout::tr("1) Specify Receiver and Transmitter Locationt.").toStdString()
           + '\r' + frmAbout::tr("2) Obtain 24 Hour Propagation Data.").toStdString() + '\r'
           + frmAbout::tr("3) Obtain Detailed Propagtion Data.").toStdString();
}

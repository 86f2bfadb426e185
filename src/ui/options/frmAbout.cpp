#include "ui/options/frmAbout.h"

#include "ui/options/AppIcon.h"

namespace {

constexpr const char* kTitle = "Hopcast";
constexpr int kIconSize = 64;  // pixels at scale 1

}  // namespace

frmAbout::frmAbout(QWidget* pParent) : QDialog(pParent)
{
    setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(AppIconGet());
    setWindowTitle(QString::fromUtf8(kTitle) + QStringLiteral(" - About"));
    picIcon->setPixmap(AppIconGet().pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
    lblTitle->setText(QString::fromUtf8(kTitle));
    // A label breaks its lines at line feeds only.
    lblDescription->setText(QString::fromStdString(AboutDescriptionGet(HOPCAST_VERSION))
                                .replace(QStringLiteral("\r"), QStringLiteral("\n")));
}

std::string AboutDescriptionGet(std::string_view sVersion)
{
    const std::size_t nMinor = sVersion.find('.') + 1;
    std::string sText = "Version ";
    sText.append(sVersion.substr(0, sVersion.find('.', nMinor)));
    // "Locationt" and "Propagtion" are the texts that users know.
    return sText
           + "\r\r1) Specify Receiver and Transmitter Locationt."
             "\r2) Obtain 24 Hour Propagation Data."
             "\r3) Obtain Detailed Propagtion Data.";
}

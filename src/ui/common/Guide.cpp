#include "ui/common/Guide.h"

#include <QApplication>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QScrollBar>
#include <QUrl>
#include <QWindow>
#include <utility>

#include "system/FileLib.h"
#include "system/MsgLib.h"
#include "system/PathLib.h"
#include "ui/common/NightColors.h"
#include "ui/common/PaletteShown.h"

namespace {

constexpr QSize kWindowSize{860, 640};
/// Assumed size of the window's frame, which is not known before the window is shown.
constexpr QSize kFrameSize{16, 40};

GuideOpenFn& OpenHandler()
{
    static GuideOpenFn s_fnOpen;
    return s_fnOpen;
}

bool BrowserOpen(const QUrl& url)
{
    return OpenHandler() ? OpenHandler()(url) : QDesktopServices::openUrl(url);
}

void GuideWindowShow(const QString& sFile)
{
    static QPointer<frmGuide> s_pGuide;
    if (!s_pGuide)
        s_pGuide = new frmGuide(sFile);
    // Only as a child of the open modal box can it be used beside that box.
    s_pGuide->winId();
    const QWidget* pModal = QApplication::activeModalWidget();
    s_pGuide->windowHandle()->setTransientParent(pModal != nullptr ? pModal->windowHandle()
                                                                   : nullptr);
    s_pGuide->show();
    s_pGuide->raise();
    s_pGuide->activateWindow();
}

/// Watches the keys of all windows: a window's shortcut does not work while a dialog is open.
class GuideKey final : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override
    {
        if (pEvent->type() != QEvent::KeyPress || !pObject->isWidgetType())
            return false;
        const auto* pKey = static_cast<QKeyEvent*>(pEvent);
        if (pKey->key() != Qt::Key_F1 || pKey->modifiers() != Qt::NoModifier)
            return false;
        if (!pKey->isAutoRepeat())
            GuideShow(ProgramFolderGet());
        return true;
    }
};

}  // namespace

std::string GuideFileGet(const std::string& sProgramFolder)
{
    for (const char* sPlace : {"guide", "../share/hopcast/guide"}) {
        const std::string sFile = PathJoin(PathJoin(sProgramFolder, sPlace), "guide.html");
        if (FileExists(sFile))
            return sFile;
    }
    return {};
}

void GuideShow(const std::string& sProgramFolder)
{
    const QString sFile = QString::fromStdString(GuideFileGet(sProgramFolder));
    if (sFile.isEmpty()) {
        static bool s_bTelling = false;  // F1 must not open a second box from this one
        if (!std::exchange(s_bTelling, true)) {
            MsgBox(MsgIcon::Info,
                   QObject::tr("The guide is not installed with this program.").toStdString());
            s_bTelling = false;
        }
        return;
    }
    // A browser's window would be white in Night.
    if (PaletteNightIs() || !BrowserOpen(QUrl::fromLocalFile(sFile)))
        GuideWindowShow(sFile);
}

void GuideKeyInstall(QApplication& app) { app.installEventFilter(new GuideKey(&app)); }

GuideOpenFn GuideOpenSetHandler(GuideOpenFn fnOpen)
{
    return std::exchange(OpenHandler(), std::move(fnOpen));
}

frmGuide::frmGuide(const QString& sFile)
{
    setObjectName(QStringLiteral("frmGuide"));
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_QuitOnClose, false);  // the program ends with its main window
    setWindowTitle(tr("Hopcast - Guide"));
    setAccessibleName(tr("Guide"));
    setOpenExternalLinks(true);
    resize(kWindowSize.boundedTo(screen()->availableSize() - kFrameSize));
    setSource(QUrl::fromLocalFile(sFile));
    connect(&PaletteSignal::Get(), &PaletteSignal::Changed, this, [this] {
        const int nPlace = verticalScrollBar()->value();
        reload();
        verticalScrollBar()->setValue(nPlace);
    });
}

QVariant frmGuide::loadResource(int nType, const QUrl& url)
{
    const QVariant varLoaded = QTextBrowser::loadResource(nType, url);
    if (nType != QTextDocument::ImageResource || !PaletteNightIs())
        return varLoaded;
    QImage img;
    if (varLoaded.metaType() == QMetaType::fromType<QByteArray>())
        img.loadFromData(varLoaded.toByteArray());
    else
        img = varLoaded.value<QImage>();
    return img.isNull() ? varLoaded : QVariant(NightNegative(img));
}

void frmGuide::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Escape)
        close();
    else
        QTextBrowser::keyPressEvent(pEvent);
}

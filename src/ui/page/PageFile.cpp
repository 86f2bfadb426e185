#include "ui/page/PageFile.h"

#include <QBuffer>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QPdfWriter>
#include <QTemporaryFile>
#include <QUrl>
#include <algorithm>
#include <cmath>
#ifdef HOPCAST_PRINTING
#include <QPrintDialog>
#include <QPrinter>
#endif

#include "system/FileLib.h"
#include "system/RunErrorText.h"
#include "ui/common/FileDialog.h"
#include "ui/common/Words.h"

namespace {

constexpr int kPdfDotsPerInch = 1200;
constexpr int kPngDotsPerInch = 150;
constexpr QSize kCopySize(1600, 900);  // pixels, for a letter or a slide
constexpr double kCopyMargin = 16.0;
constexpr double kMargin = 12.0;  // mm; most printers can print up to this margin
constexpr double kMillimetresPerInch = 25.4;

QPageLayout LayoutGet(const PageForm& form)
{
    return {QPageSize(form.ePaper), form.eOrientation,
            QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter};
}

QString SuffixGet(const QString& sFile) { return QFileInfo(sFile).suffix().toLower(); }

const PageGrid* GridFind(const Page& page)
{
    for (const PageBlock& block : page.aBlock) {
        if (const auto* pGrid = std::get_if<PageGrid>(&block.body))
            return pGrid;
        const auto* pPicture = std::get_if<PagePicture>(&block.body);
        if (pPicture != nullptr && pPicture->gridValues.RowsGet() > 0)
            return &pPicture->gridValues;
    }
    return nullptr;
}

bool PictureIs(const Page& page)
{
    return std::any_of(page.aBlock.begin(), page.aBlock.end(), [](const PageBlock& block) {
        return std::holds_alternative<PagePicture>(block.body);
    });
}

QByteArray PdfGet(const Page& page, const QPageLayout& layout, PageLook eLook)
{
    QByteArray aBytes;
    QBuffer buffer(&aBytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(kPdfDotsPerInch);
        writer.setPageLayout(layout);
        writer.setTitle(page.sTitle);
        writer.setCreator(QStringLiteral("Hopcast"));
        QPainter painter(&writer);
        PagePaint(
            painter,
            QRectF(QPointF(0, 0), writer.pageLayout().paintRectPixels(kPdfDotsPerInch).size()),
            page, eLook);
    }
    return aBytes;
}

QByteArray PngGet(const QImage& image)
{
    QByteArray aBytes;
    QBuffer buffer(&aBytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return aBytes;
}

Result<void> BytesSave(const QString& sFile, const QByteArray& aBytes)
{
    auto res =
        FileReplace(sFile.toStdString(),
                    std::string_view(aBytes.constData(), static_cast<std::size_t>(aBytes.size())));
    if (!res)
        return RunError{sFile.toStdString() + ": " + res.TextGet()};
    return {};
}

}  // namespace

QMimeData* PageGridMime(const PageGrid& grid)
{
    auto* const pData = new QMimeData;
    pData->setText(PageGridTabs(grid));
    pData->setHtml(PageGridHtml(grid));
    return pData;
}

void PageGridCopy(const PageGrid& grid)
{
    QGuiApplication::clipboard()->setMimeData(PageGridMime(grid));
}

void PageCopy(const Page& page)
{
    const PageGrid* const pGrid = GridFind(page);
    if (pGrid == nullptr && !PictureIs(page))
        return;
    QMimeData* const pData = pGrid != nullptr ? PageGridMime(*pGrid) : new QMimeData;
    if (PictureIs(page)) {
        QImage image(kCopySize, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        PagePaint(
            painter,
            QRectF(image.rect()).adjusted(kCopyMargin, kCopyMargin, -kCopyMargin, -kCopyMargin),
            page, PageLook::Colour);
        pData->setImageData(image);
    }
    QGuiApplication::clipboard()->setMimeData(pData);
}

QImage PageImage(const Page& page, const PageForm& form, int nDotsPerInch)
{
    const QPageLayout layout = LayoutGet(form);
    QImage image(layout.fullRectPixels(nDotsPerInch).size(), QImage::Format_RGB32);
    const int nDotsPerMetre =
        static_cast<int>(std::lround(nDotsPerInch * 1000 / kMillimetresPerInch));
    image.setDotsPerMeterX(nDotsPerMetre);
    image.setDotsPerMeterY(nDotsPerMetre);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    PagePaint(painter, layout.paintRectPixels(nDotsPerInch), page, form.eLook);
    return image;
}

QString PageFileAsk(QWidget* pParent, const QString& sFile)
{
    return FileDialogShow(pParent, {FileDialogKind::Save, sFile,
                                    QObject::tr("Table, picture or document (*.csv *.png *.pdf)")
                                        + QStringLiteral("|*.") + QFileInfo(sFile).suffix()});
}

Result<void> PageFileCheck(const QString& sFile)
{
    static const QStringList kSuffixes{QStringLiteral("csv"), QStringLiteral("png"),
                                       QStringLiteral("pdf")};
    if (!kSuffixes.contains(SuffixGet(sFile)))
        return RunError{
            WordsPut(QObject::tr("%1: a name that ends in .csv, .png or .pdf is needed"), sFile)};
    return {};
}

Result<void> PageExport(const Page& page, const PageForm& form, const QString& sFile)
{
    if (const auto res = PageFileCheck(sFile); !res)
        return res;
    const QString sSuffix = SuffixGet(sFile);
    if (sSuffix == QLatin1String("pdf"))
        return BytesSave(sFile, PdfGet(page, LayoutGet(form), form.eLook));
    if (sSuffix == QLatin1String("png"))
        return ImageSave(PageImage(page, form, kPngDotsPerInch), sFile);
    const PageGrid* const pGrid = GridFind(page);
    if (pGrid == nullptr)
        return RunError{WordsPut(QObject::tr("%1: there is no table to write"), sFile)};
    return BytesSave(sFile, PageGridCsv(*pGrid).toUtf8());
}

Result<void> ImageSave(const QImage& image, const QString& sFile)
{
    const QByteArray aBytes = PngGet(image);
    if (aBytes.isEmpty())  // there was no memory for the image
        return RunError{sFile.toStdString() + ": " + kOutOfMemory};
    return BytesSave(sFile, aBytes);
}

Result<void> PagePrint(const Page& page, const PageForm& form, [[maybe_unused]] QWidget* pParent)
{
#ifdef HOPCAST_PRINTING
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(LayoutGet(form));
    printer.setDocName(page.sTitle);
    QPrintDialog dlg(&printer, pParent);
    if (dlg.exec() != QDialog::Accepted)
        return {};
    // Qt tells nothing of a file that it could not write to its end.
    if (const QString sFile = printer.outputFileName(); !sFile.isEmpty())
        return BytesSave(sFile, PdfGet(page, printer.pageLayout(), form.eLook));
    QPainter painter;
    const bool bBegun = painter.begin(&printer);
    if (bBegun)
        PagePaint(painter, QRectF(QPointF(0, 0), printer.pageRect(QPrinter::DevicePixel).size()),
                  page, form.eLook);
    if (!bBegun || !painter.end() || printer.printerState() == QPrinter::Error)
        return RunError{
            WordsPut(QObject::tr("The printer \"%1\" does not answer."), printer.printerName())};
    return {};
#else
    // The reader program prints it. It may still be reading when Hopcast ends, so the file is kept.
    QTemporaryFile file(QDir::temp().filePath(QStringLiteral("hopcast-XXXXXX.pdf")));
    file.setAutoRemove(false);
    if (!file.open())
        return RunError{file.fileName().toStdString() + ": " + file.errorString().toStdString()};
    const QString sFile = file.fileName();
    file.close();
    if (auto res = BytesSave(sFile, PdfGet(page, LayoutGet(form), form.eLook)); !res) {
        file.remove();
        return res;
    }
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(sFile)))
        return RunError{
            WordsPut(QObject::tr("No program for PDF files was found. The page is in %1."), sFile)};
    return {};
#endif
}

#include "ui/map/MapExport.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPainter>

#include "propagation/RequestText.h"
#include "system/ClockLib.h"
#include "system/MsgLib.h"
#include "ui/common/FileDialog.h"
#include "ui/common/LocationText.h"
#include "ui/common/MainWindowHost.h"
#include "ui/common/PaletteShown.h"
#include "ui/map/MapDayControl.h"
#include "ui/map/MapOverlayControl.h"
#include "ui/map/MapPicture.h"
#include "ui/page/PageFile.h"

namespace {

/// A name without a suffix gets the last one.
constexpr const char* kFilter =
    QT_TRANSLATE_NOOP("MapExport", "Picture or document (*.png *.pdf)|*.png");

/// A page with the picture as large as possible.
Page PageMake(const QImage& image)
{
    PagePicture picture;
    picture.fnPaint = [image](QPainter& painter, const QRectF& rct, PageLook) {
        const QSizeF size = QSizeF(image.size()).scaled(rct.size(), Qt::KeepAspectRatio);
        painter.drawImage(QRectF(rct.topLeft(), size), image);
    };
    Page page;
    page.aBlock.push_back({{}, std::move(picture)});
    return page;
}

}  // namespace

MapExport::MapExport(QWidget& window, MapForm& form, MainWindowHost& host,
                     const MapOverlayControl& overlay, const MapDayControl& day)
    : m_window(window), m_form(form), m_host(host), m_overlay(overlay), m_day(day)
{
    form.mnuMapCopy->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_C));
    form.mnuMapExport->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
    window.addActions({form.mnuMapCopy, form.mnuMapExport});  // for the keys
    connect(form.mnuMapCopy, &QAction::triggered, this, &MapExport::Copy);
    connect(form.mnuMapExport, &QAction::triggered, this, &MapExport::Export);
}

QString MapExport::CaptionGet() const
{
    const QString sPlaces = QObject::tr("Receiver %1, transmitter %2")
                                .arg(PositionToText(m_form.m_posRc.dLat, m_form.m_posRc.dLon),
                                     PositionToText(m_form.m_posTx.dLat, m_form.m_posTx.dLon));
    const bool bDay = m_day.HasCells();
    if (!bDay && !m_overlay.HasCells())
        return sPlaces;
    AreaRequest request = bDay ? m_day.RequestGet() : m_overlay.RequestGet();
    // The source of the sunspot number is not in the settings, but in the table's request.
    const Request table = m_host.TableInputGet();
    if (table.fSunSpotNumber == request.fSunSpotNumber)
        request.eSunSpotSource = table.eSunSpotSource;
    const QString sBetween = QString::fromUtf8(kTextBetween);
    const std::string sFoot = AreaFootText(request, UtcNow().nYear);
    return sPlaces + sBetween
           + QString::fromStdString(bDay ? DayFootGet(m_day.ShownGet(), sFoot) : sFoot)
           + ((bDay ? m_day.IsSmooth() : m_overlay.IsSmooth())
                  ? sBetween + QObject::tr("smooth between grid points")
                  : QString());
}

QImage MapExport::PictureGet() const
{
    const PaletteForPaper paper;
    return CaptionAdd(m_form.pctMap->grab().toImage(), CaptionGet(), m_window.font());
}

void MapExport::Copy() const { QGuiApplication::clipboard()->setImage(PictureGet()); }

void MapExport::Export() const
{
    const QImage image = PictureGet();  // before the dialog covers the map
    const QString sFile =
        FileDialogShow(&m_window, {FileDialogKind::Save, tr("World Map.png"), tr(kFilter)});
    if (sFile.isEmpty())
        return;
    PageForm form;
    form.eOrientation = QPageLayout::Landscape;
    const bool bPng = QFileInfo(sFile).suffix().toLower() == QLatin1String("png");
    const auto res = bPng ? ImageSave(image, sFile) : PageExport(PageMake(image), form, sFile);
    if (!res)
        MsgBox(MsgIcon::Exclamation, res.TextGet());
}

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QMimeData>
#include <QStringList>

#include "MapFakes.h"
#include "ui/common/FileDialog.h"

namespace {

class MapExported : public MapWindow {
protected:
    MapExported()
    {
        m_fnDialogBefore = FileDialogSetHandler([this](QWidget*, const FileDialogQuestion&) {
            return QString::fromStdString(m_sAnswer);
        });
    }
    ~MapExported() override { FileDialogSetHandler(m_fnDialogBefore); }

    /// The picture on the clipboard, copied with the menu's item.
    [[nodiscard]] QImage Copied() const
    {
        m_pMap->mnuMapCopy->trigger();
        return QGuiApplication::clipboard()->image();
    }
    /// The description inside an exported picture.
    QString Caption()
    {
        m_sAnswer = m_folder.Path("caption.png");
        m_pMap->mnuMapExport->trigger();
        return QImage(QString::fromStdString(m_sAnswer)).text(QStringLiteral("Description"));
    }

    EngineFake m_engine;
    MsgRecorder m_msg;
    TempFolder m_folder;
    std::string m_sAnswer;

private:
    FileDialogFn m_fnDialogBefore;
};

int InkBelow(const QImage& image, int nTop)
{
    int nInk = 0;
    for (int y = nTop; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) nInk += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
    return nInk;
}

int ColorCount(const QImage& image, const QColor& clr)
{
    int nPixels = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) nPixels += image.pixelColor(x, y) == clr ? 1 : 0;
    return nPixels;
}

TEST_F(MapExported, ItemsStandBelowTheRequiredOnes)
{
    QStringList asItem;
    for (const QAction* pItem : m_pMap->mnuMap->actions()) asItem.append(pItem->text());
    EXPECT_EQ(asItem.join(u'|'),
              QStringLiteral("Center|Center, Zoom In|Center, Zoom Out||Copy Picture|Export..."));
}

TEST_F(MapExported, TheCopyIsTheMapAsShownAboveACaption)
{
    const QImage image = Copied();
    const QImage imageMap = m_pMap->pctMap->grab().toImage();
    EXPECT_EQ(image.width(), imageMap.width());
    ASSERT_GT(image.height(), imageMap.height());
    EXPECT_EQ(image.copy(imageMap.rect()).convertToFormat(QImage::Format_RGB32),
              imageMap.convertToFormat(QImage::Format_RGB32));
    EXPECT_GT(ColorCount(image, m_pMap->lblRc->FillGetColor()), 20) << "the markers are on it";
    EXPECT_GT(ColorCount(image, m_pMap->lblTx->FillGetColor()), 20);
    EXPECT_GT(InkBelow(image, imageMap.height()), 50);
}

TEST_F(MapExported, CtrlCCopies)
{
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(m_pMap, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->hasImage());
}

TEST_F(MapExported, TheCaptionNamesThePlacesAndWhatAnOverlayIsFor)
{
    Settings& settings = m_host.m_settings;
    settings.m_fStationPower = 250.0F;
    settings.m_selected = {2, 16};
    settings.FrequencySet(2, 14105.5F);
    settings.m_dRcLat = 15.375;
    settings.m_dRcLon = -132.6875;
    m_pMap->Update();
    const QImage imageBare = Copied();
    const QString sPlaces = Caption();
    EXPECT_TRUE(
        sPlaces.startsWith(QStringLiteral("Receiver 15\u00B022.50'N 132\u00B041.25'W, "
                                          "transmitter ")))
        << sPlaces.toStdString();
    EXPECT_FALSE(sPlaces.contains(QStringLiteral("kHz")));
    m_engine.m_fnSnr = [](double, double) { return 75.0; };  // at the antenna choice's power
    OverlayChoose();
    const QImage image = Copied();
    EXPECT_GT(ColorCount(image, PixelAt(30, -80)), 1000);
    EXPECT_GT(ColoredCount(), 1000);
    EXPECT_GT(InkBelow(image, m_pMap->pctMap->height()),
              InkBelow(imageBare, m_pMap->pctMap->height()));
    const QString sCaption = Caption();
    EXPECT_TRUE(sCaption.startsWith(
        sPlaces + QStringLiteral(" \u00B7 14105.5 kHz \u00B7 15:00 UTC \u00B7 dB in 1 Hz \u00B7 ")))
        << sCaption.toStdString();
    EXPECT_TRUE(sCaption.contains(QStringLiteral(" \u00B7 250 W \u00B7 ")));
    EXPECT_TRUE(sCaption.contains(QStringLiteral(" 2026 \u00B7 SSN ")));
    m_pMap->mnuOverlaySmooth->trigger();
    EXPECT_EQ(Caption(), sCaption + QStringLiteral(" \u00B7 smooth between grid points"));
    m_pMap->mnuOverlayDraw->trigger();
    EXPECT_EQ(Caption(), sPlaces) << "hidden";
}

TEST_F(MapExported, ExportsPictureAndDocumentAndTellsAnotherSuffix)
{
    m_sAnswer = m_folder.Path("map.png");
    m_pMap->mnuMapExport->trigger();
    const QImage image(QString::fromStdString(m_sAnswer));
    EXPECT_EQ(image.convertToFormat(QImage::Format_RGB32), Copied());
    m_sAnswer = m_folder.Path("map.pdf");
    m_pMap->mnuMapExport->trigger();
    QFile file(QString::fromStdString(m_sAnswer));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith("%PDF"));
    EXPECT_TRUE(m_msg.m_aShown.empty());
    m_sAnswer = m_folder.Path("map.bmp");
    m_pMap->mnuMapExport->trigger();
    ASSERT_EQ(m_msg.m_aShown.size(), 1U);
    EXPECT_NE(m_msg.m_aShown[0].sText.find("map.bmp"), std::string::npos);
    m_sAnswer.clear();
    m_pMap->mnuMapExport->trigger();
    EXPECT_EQ(m_msg.m_aShown.size(), 1U) << "given up";
}

}  // namespace

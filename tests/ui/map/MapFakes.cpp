#include "MapFakes.h"

#include <QApplication>
#include <cstdio>
#include <fstream>

#include "propagation/SnrScale.h"
#include "system/NumberLib.h"
#include "ui/map/MapGraticule.h"

namespace {

/// The numbers after a card's label.
std::vector<double> CardRead(const std::string& sDeck, const std::string& sLabel)
{
    std::vector<double> aValues;
    const std::size_t nAt = sDeck.find(sLabel);
    EXPECT_NE(nAt, std::string::npos) << sLabel;
    if (nAt == std::string::npos)
        return aValues;
    std::string sCard = sDeck.substr(nAt + sLabel.size());
    std::istringstream stm(sCard.substr(0, sCard.find('\r')));
    for (double dValue = 0; stm >> dValue;) aValues.push_back(dValue);
    return aValues;
}

constexpr int kNoProcess = 0x3FFFFFFF;  // no process has this id, so it counts as finished

}  // namespace

MapHostFake::MapHostFake()
{
    m_settings.m_bPropagationSunSpotNumber = false;
    m_settings.m_iPropagationMonth = 6;
}

bool MapHostFake::Update()
{
    ++m_nUpdates;
    if (m_pMap != nullptr)
        m_pMap->Update();
    return true;
}

void MapHostFake::DataSetSelected(int iRow, int iColumn)
{
    m_settings.m_selected = {iRow, iColumn};
}

std::uint32_t MapHostFake::SnrGetColor(float fSnr) const { return ::SnrGetColor(fSnr); }

float MapHostFake::FrequencyGet(int iIndex) const { return m_settings.FrequencyGet(iIndex); }

Request MapHostFake::TableInputGet() const
{
    return m_inputTable.value_or(RequestFromSettings(m_settings));
}

EngineFake::EngineFake()
{
    m_folder.Write("itshfbc/bin_win/rec533w.exe", "fake");
    m_folder.Write("itshfbc/RUN/empty.txt", "");
    m_folder.Write("itshfbc/areadata/empty.txt", "");
    m_fnBefore = ProcessSetHandler([this](const ProcessCommand&) { return Run(); });
}

EngineFake::~EngineFake() { ProcessSetHandler(std::move(m_fnBefore)); }

std::string EngineFake::GridPath() const { return m_folder.Path("itshfbc/areadata/working.rg1"); }

Result<int> EngineFake::Run()
{
    if (!m_bStart)
        return 0;
    AreaRun run;
    run.sDeck = BytesRead(m_folder.Path("itshfbc/areadata/working.rec"));
    const std::vector<double> aArea = CardRead(run.sDeck, "Area     :");
    const std::vector<double> aGrid = CardRead(run.sDeck, "Gridsize :");
    if (aArea.size() != 4 || aGrid.empty())
        return 0;
    run.dWest = aArea[0];
    run.dEast = aArea[1];
    run.dSouth = aArea[2];
    run.dNorth = aArea[3];
    run.nGridSize = static_cast<int>(aGrid[0]);
    m_aRuns.push_back(run);
    if (m_fnWhileRunning)
        m_fnWhileRunning();
    if (m_bWriteGrid) {
        std::string sGrid = GridMake(run);
        if (m_fnSpoil)
            sGrid = m_fnSpoil(std::move(sGrid));
        std::ofstream(GridPath(), std::ios::binary) << sGrid;
    }
    return kNoProcess;
}

std::string EngineFake::GridMake(const AreaRun& run) const
{
    std::string sGrid = "FAKE\n\n  n  n  Latitude Longitude  SNxx\n";
    for (int iLat = 0; iLat < run.nGridSize; ++iLat)
        for (int iLon = 0; iLon < run.nGridSize; ++iLon) {
            const double dLat = run.dSouth + iLat * (run.dNorth - run.dSouth) / (run.nGridSize - 1);
            const double dLon = run.dWest + iLon * (run.dEast - run.dWest) / (run.nGridSize - 1);
            char acRow[64];
            std::snprintf(acRow, sizeof acRow, "%3d%3d%10.4f%10.4f%6.1f\n", iLon + 1, iLat + 1,
                          dLat, dLon, m_fnSnr(dLat, dLon));
            sGrid += acRow;
        }
    return sGrid;
}

MapWindow::MapWindow() : m_pMap(new frmMap(m_host))
{
    m_host.m_pMap = m_pMap;
    m_pMap->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(m_pMap));
    QApplication::setActiveWindow(m_pMap);  // a bare X server has no window manager to do it
}

MapWindow::~MapWindow() { delete m_pMap; }

void MapWindow::BoxIs(double dTop, double dLeft, double dBottom, double dRight,
                      double dTolerance) const
{
    EXPECT_NEAR(m_pMap->m_view.m_box.dTop, dTop, dTolerance);
    EXPECT_NEAR(m_pMap->m_view.m_box.dLeft, dLeft, dTolerance);
    EXPECT_NEAR(m_pMap->m_view.m_box.dBottom, dBottom, dTolerance);
    EXPECT_NEAR(m_pMap->m_view.m_box.dRight, dRight, dTolerance);
}

void MapWindow::Drag(QWidget* pControl, QPoint ptFrom, QPoint ptTo, Qt::MouseButton eButton)
{
    // Uses screen coordinates, since the control may move with the mouse.
    const QPoint ptStart = pControl->mapToGlobal(ptFrom);
    const QPoint ptEnd = pControl->mapToGlobal(ptTo);
    QTest::mousePress(pControl, eButton, {}, ptFrom);
    for (const QPoint pt : {(ptStart + ptEnd) / 2, ptEnd}) {
        // QTest::mouseMove reports no buttons.
        QMouseEvent evt(QEvent::MouseMove, pControl->mapFromGlobal(pt), pt, Qt::NoButton, eButton,
                        Qt::NoModifier);
        QApplication::sendEvent(pControl, &evt);
    }
    QTest::mouseRelease(pControl, eButton, {}, pControl->mapFromGlobal(ptEnd));
}

void MapWindow::ItemChoose(QMenu* pMenu, QAction* pItem)
{
    ASSERT_TRUE(pMenu->isVisible());
    QTest::mouseClick(pMenu, Qt::LeftButton, {}, pMenu->actionGeometry(pItem).center());
    QCoreApplication::processEvents();
    EXPECT_FALSE(pMenu->isVisible());
}

void MapWindow::OverlayChoose()
{
    QTest::mouseClick(m_pMap->cmdOverlay, Qt::LeftButton);
    ItemChoose(m_pMap->mnuOverlay, m_pMap->mnuOverlayDraw);
    QApplication::setActiveWindow(m_pMap);  // after a menu the offscreen platform does not do it
}

void MapWindow::MapMenuChoose(QWidget* pControl, QPoint pt, QAction* pItem)
{
    QTest::mouseClick(pControl, Qt::RightButton, {}, pt);
    ItemChoose(m_pMap->mnuMap, pItem);
}

QString MapWindow::TipAt(QPoint pt)
{
    QMouseEvent evt(QEvent::MouseMove, pt, m_pMap->pctMap->mapToGlobal(pt), Qt::NoButton,
                    Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(m_pMap->pctMap, &evt);
    return m_pMap->pctMap->toolTip();
}

QRgb MapWindow::PixelAt(double dLat, double dLon) const
{
    return m_pMap->pctMap->m_img.pixel(m_pMap->m_view.LatLonGetPoint(dLat, dLon));
}

int MapWindow::ColoredCount() const
{
    // The labels are at the left and the bottom edge.
    constexpr int kLabels = 60;
    const QImage& img = m_pMap->pctMap->m_img;
    int nCount = 0;
    for (int y = 0; y < img.height() - kLabels; ++y)
        for (int x = kLabels; x < img.width(); ++x) {
            const QRgb nPixel = img.pixel(x, y);
            nCount += nPixel != qRgb(0, 0, 0) && nPixel != qRgb(255, 255, 255) ? 1 : 0;
        }
    return nCount;
}

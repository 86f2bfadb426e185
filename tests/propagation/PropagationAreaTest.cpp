#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "propagation/EngineCases.h"
#include "propagation/FakeEngine.h"
#include "propagation/PropagationAreaLib.h"
#include "support/MsgRecorder.h"
#include "system/ProcessLib.h"
#include "system/RunErrorText.h"

namespace {

struct Point {
    int iIndex1 = 0;
    int iIndex2 = 0;
    double dLat = 0.0;
    double dLon = 0.0;
    float fSnr = 0.0F;
};

Result<bool> PointRead(AreaFile& file, Point& point)
{
    return PropagationAreaReadPoint(file, point.iIndex1, point.iIndex2, point.dLat, point.dLon,
                                    point.fSnr);
}

/// Writes bytes as a model's grid and reads them up to the end or an error.
struct GridBytes {
    explicit GridBytes(int iModel, std::string_view sBytes)
    {
        const TempFolder folder;
        const EnvironmentSet environment("HOPCAST_ITSHFBC", folder.Path());
        folder.Write(
            "areadata/working"
                + std::string(iModel == kEngineIcepac ? ".ig1" : AreaGridExtension(iModel)),
            sBytes);
        AreaFile file;
        if (!Succeeded(PropagationAreaOpenFile(iModel, file)))
            return;
        bOpened = true;
        for (Point point;;) {
            const Result<bool> resRead = PointRead(file, point);
            if (!resRead)
                sError = resRead.TextGet();
            if (!resRead || !resRead.ValueGet())
                break;
            aPoints.push_back(point);
        }
    }
    bool bOpened = false;
    std::vector<Point> aPoints;
    std::string sError;
};

class CapturedGrid : public testing::TestWithParam<AreaCase> {};

TEST_P(CapturedGrid, GivesEveryPointThatWasCutApart)
{
    const AreaCase& c = GetParam();
    const GridBytes grid(c.iModel, BytesRead(CapturedPath(c.sName, AreaGridExtension(c.iModel))));
    EXPECT_EQ(grid.sError, "");
    const auto aRows = ExpectedRows(c.sName);
    ASSERT_EQ(grid.aPoints.size(), static_cast<std::size_t>(c.nGridSize * c.nGridSize));
    ASSERT_EQ(aRows.size(), grid.aPoints.size());
    for (std::size_t i = 0; i < aRows.size(); ++i) {
        const auto& asRow = aRows[i];
        const Point& point = grid.aPoints[i];
        SCOPED_TRACE("point " + std::to_string(i + 1));
        EXPECT_EQ(point.iIndex1, std::stoi(asRow.at(1)));
        EXPECT_EQ(point.iIndex2, std::stoi(asRow.at(2)));
        EXPECT_EQ(point.dLat, std::stod(asRow.at(3)));
        EXPECT_EQ(point.dLon, std::stod(asRow.at(4)));
        EXPECT_EQ(point.fSnr, std::stof(asRow.at(5)));
    }
}

TEST_P(CapturedGrid, CutAnywhereGivesItsWholeLinesAndThenTheConversionError)
{
    const AreaCase& c = GetParam();
    const std::string sBytes = BytesRead(CapturedPath(c.sName, AreaGridExtension(c.iModel)));
    const GridBytes whole(c.iModel, sBytes);
    const std::size_t nHeadEnd = sBytes.find('\n', sBytes.find("Latitude")) + 1;
    // A line is complete once its SNR is.
    const std::size_t nSnrEnd = c.iModel == kEngineVoacap ? 134 : 68;
#ifdef _WIN32
    const std::size_t nStep =
        c.nGridSize == 11 ? 997 : 997 * 41;  // writing a file is slow under Wine
#else
    const std::size_t nStep = c.nGridSize == 11 ? 97 : 97 * 41;
#endif
    for (std::size_t nSize = nHeadEnd; nSize < sBytes.size(); nSize += nStep) {
        const GridBytes grid(c.iModel, std::string_view(sBytes).substr(0, nSize));
        const std::string_view sPoints =
            std::string_view(sBytes).substr(nHeadEnd, nSize - nHeadEnd);
        std::size_t nWhole =
            static_cast<std::size_t>(std::count(sPoints.begin(), sPoints.end(), '\n'));
        const std::size_t nLastLine = sPoints.size() - (sPoints.rfind('\n') + 1);
        const bool bCut = nLastLine > 0 && nLastLine < nSnrEnd;
        if (nLastLine >= nSnrEnd)
            ++nWhole;
        ASSERT_EQ(grid.aPoints.size(), nWhole) << "cut at " << nSize;
        EXPECT_EQ(grid.sError, bCut ? kTypeMismatch : "") << "cut at " << nSize;
        for (std::size_t i = 0; i < nWhole; ++i)
            ASSERT_EQ(grid.aPoints[i].fSnr, whole.aPoints[i].fSnr);
    }
}

INSTANTIATE_TEST_SUITE_P(Captured, CapturedGrid, testing::ValuesIn(AreaCases()),
                         [](const auto& test) { return CaseName(test.param.sName); });

class GridLine : public testing::TestWithParam<AreaCase> {};

TEST_P(GridLine, CutAtEveryByteOfALineNeverGivesAWrongPoint)
{
    const AreaCase& c = GetParam();
    const std::string sBytes = BytesRead(CapturedPath(c.sName, AreaGridExtension(c.iModel)));
    const std::size_t nHeadEnd = sBytes.find('\n', sBytes.find("Latitude")) + 1;
    const std::size_t nFirstEnd = sBytes.find('\n', nHeadEnd) + 1;
    const GridBytes whole(c.iModel, std::string_view(sBytes).substr(0, nFirstEnd));
    ASSERT_EQ(whole.aPoints.size(), 1U);
    for (std::size_t nSize = 0; nSize < nFirstEnd; ++nSize) {
        const GridBytes grid(c.iModel, std::string_view(sBytes).substr(0, nSize));
        EXPECT_TRUE(grid.bOpened);
        if (!grid.aPoints.empty()) {
            EXPECT_EQ(grid.aPoints[0].fSnr, whole.aPoints[0].fSnr) << "cut at " << nSize;
        } else if (nSize > nHeadEnd) {
            EXPECT_EQ(grid.sError, kTypeMismatch) << "cut at " << nSize;
        } else {
            EXPECT_EQ(grid.sError, "") << "cut at " << nSize;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Captured, GridLine, testing::Values(AreaCases().at(1), AreaCases().at(9)),
                         [](const auto& test) { return CaseName(test.param.sName); });

constexpr const char* kHead = "version\ntitle\n 40 40  Latitude Longitude";

TEST(PropagationAreaReadPoint, MinusDirectlyBeforeTheFieldOfRec533BelongsToTheNumber)
{
    const std::string sHead = std::string(kHead) + " SNxx\n";
    // The label " SNxx" begins in column 27, one column right of its field.
    const GridBytes grid(kEngineRec533, sHead + "  1  1   35.0000  -20.0000-999.0\n"
                                            + "  2  1   35.0000  -20.0000 -99.0\n"
                                            + "  3  1   35.0000  -20.0000  -9.0\n"
                                            + "  4  1   35.0000  -20.0000 999.0\n");
    EXPECT_EQ(grid.sError, "");
    ASSERT_EQ(grid.aPoints.size(), 4U);
    EXPECT_EQ(grid.aPoints[0].fSnr, -99.0F + -900.0F);
    EXPECT_EQ(grid.aPoints[1].fSnr, -99.0F);
    EXPECT_EQ(grid.aPoints[2].fSnr, -9.0F);
    EXPECT_EQ(grid.aPoints[3].fSnr, 999.0F);
}

TEST(PropagationAreaReadPoint, HeadWithoutAnSnrLabelIsAnInvalidCallAtTheFirstPoint)
{
    const GridBytes grid(kEngineVoacap,
                         std::string(kHead) + "\n  1  1   35.0000  -20.0000  40.0\n");
    EXPECT_TRUE(grid.bOpened);
    EXPECT_TRUE(grid.aPoints.empty());
    EXPECT_EQ(grid.sError, kInvalidCall);
}

TEST(PropagationAreaReadPoint, HeadWithoutPointsIsTheEndAtOnce)
{
    const GridBytes grid(kEngineRec533, std::string(kHead) + "\n");
    EXPECT_TRUE(grid.bOpened);
    EXPECT_EQ(grid.sError, "");
    EXPECT_TRUE(grid.aPoints.empty());
    EXPECT_TRUE(GridBytes(kEngineRec533, "").aPoints.empty());
    EXPECT_EQ(GridBytes(kEngineRec533, BytesRead(CapturedPath(
                                           "failures/rec533_area_missing_coefficients", ".rg1")))
                  .sError,
              "");
}

TEST(PropagationAreaReadPoint, SnrxxIsPreferredToSnxx)
{
    const GridBytes grid(kEngineIcepac, std::string(kHead) + "  SNxx  SNRxx\n"
                                            + "  1  2   35.0000  -20.0000   9.0   40.0\n");
    EXPECT_EQ(grid.sError, "");
    ASSERT_EQ(grid.aPoints.size(), 1U);
    EXPECT_EQ(grid.aPoints[0].fSnr, 40.0F);
    EXPECT_EQ(grid.aPoints[0].iIndex1, 2);
    EXPECT_EQ(grid.aPoints[0].iIndex2, 1);
}

TEST(PropagationAreaReadPoint, EachFieldIsConvertedStrictly)
{
    const std::string sHead = std::string(kHead) + "  SNRxx\n";
    const std::string sGood = "  1  1   35.0000  -20.0000    40.0";
    ASSERT_EQ(GridBytes(kEngineVoacap, sHead + sGood).aPoints.size(), 1U);
    for (const auto& [nAt, sNew] : {std::pair<std::size_t, std::string>{0, "   "},
                                    {3, "  x"},
                                    {6, "**********"},
                                    {16, "         -"},
                                    {28, "      "},
                                    {28, "  nan "}}) {
        std::string sBad = sGood;
        sBad.replace(nAt, sNew.size(), sNew);
        const GridBytes grid(kEngineVoacap, sHead + sBad + "\n" + sGood + "\n");
        EXPECT_EQ(grid.sError, kTypeMismatch) << sBad;
        EXPECT_TRUE(grid.aPoints.empty());
    }
}

TEST(PropagationAreaReadPoint, KilledEnginesGridsGiveTheirWholeLines)
{
    for (const auto& [iModel, sName] : {std::pair{kEngineVoacap, "failures/voacap_area_killed"},
                                        std::pair{kEngineRec533, "failures/rec533_area_killed"}}) {
        const GridBytes grid(iModel, BytesRead(CapturedPath(sName, AreaGridExtension(iModel))));
        EXPECT_EQ(grid.sError, "") << sName;  // both were cut at a line end
        EXPECT_EQ(grid.aPoints.size(), iModel == kEngineVoacap ? 575U : 657U);
    }
}

TEST(PropagationAreaReadPoint, AFileThatIsNotOpenIsAnInvalidCall)
{
    AreaFile file;
    Point point;
    EXPECT_EQ(PointRead(file, point).TextGet(), kInvalidCall);
}

TEST(PropagationAreaOpenFile, MissingGridIsTold)
{
    const FakeRoot root;
    const MsgRecorder msg;
    AreaFile file;
    EXPECT_FALSE(Succeeded(PropagationAreaOpenFile(kEngineRec533, file)));
    EXPECT_EQ(FailureLast().eKind, FailureKind::BadOutput);
    EXPECT_FALSE(Succeeded(PropagationAreaOpenFile(7, file)));
    EXPECT_EQ(FailureLast().eKind, FailureKind::NotInstalled);
    ASSERT_EQ(msg.m_aShown.size(), 2U);
    EXPECT_EQ(msg.m_aShown[0].sText, "PropagationAreaOpenFile, File not found");
    EXPECT_EQ(msg.m_aShown[1].sText, "PropagationAreaOpenFile, Invalid procedure call or argument");
}

struct AreaEngine {
    int iModel;
    const char* sProgram;
    const char* sExecute;
    const char* sDeck;
    const char* sGrid;
};

constexpr AreaEngine kAreaEngines[] = {
    {kEngineIcepac, "icepacw.exe", "ICEPACW", "working.ice", "working.ig1"},
    {kEngineVoacap, "voacapw.exe", "VOACAP", "working.voa", "working.vg1"},
    {kEngineRec533, "rec533w.exe", "REC533", "working.rec", "working.rg1"},
};

std::ostream& operator<<(std::ostream& stm, const AreaEngine& c) { return stm << c.sProgram; }

class AreaRun : public testing::TestWithParam<AreaEngine> {
protected:
    AreaRun()
    {
        m_input = AreaInputMake(AreaCases().front());
        m_input.iModel = m_case.iModel;
    }
    /// The only message shown.
    std::string TextShown()
    {
        EXPECT_EQ(m_msg.m_aShown.size(), 1U);
        return m_msg.m_aShown.empty() ? "" : m_msg.m_aShown[0].sText;
    }
    const AreaEngine& m_case = GetParam();
    FakeRoot m_root;
    MsgRecorder m_msg;
    AreaRequest m_input;
    AreaFile m_file;
};

INSTANTIATE_TEST_SUITE_P(Engines, AreaRun, testing::ValuesIn(kAreaEngines),
                         [](const auto& test) { return std::string(test.param.sExecute); });

TEST_P(AreaRun, WritesTheDeckStartsTheEngineAndReadsItsGrid)
{
    m_root.EngineCopying(m_case.sProgram, CapturedPath("voacap/area_02", ".vg1"));
    ASSERT_TRUE(Succeeded(PropagationAreaOpen(m_input, m_file)));
    const std::string sRoot = m_root.Path("");
    EXPECT_EQ(BytesRead(m_root.Path("calls")), std::string(m_case.sProgram) + "|" + sRoot + "|"
                                                   + sRoot + " AREA CALC " + m_case.sDeck + "\n");
    EXPECT_TRUE(m_root.DeckGet(1).starts_with("Model    :"));
    ASSERT_TRUE(Succeeded(PropagationAreaOpenFile(m_case.iModel, m_file)));
    int nPoints = 0;
    for (Point point;; ++nPoints) {
        const Result<bool> resRead = PointRead(m_file, point);
        ASSERT_TRUE(resRead);
        if (!resRead.ValueGet())
            break;
    }
    EXPECT_EQ(nPoints, 121);
    EXPECT_TRUE(m_msg.m_aShown.empty());
}

TEST_P(AreaRun, AGridWithMoreOrFewerPointsThanAskedForIsRefusedWhole)
{
    m_root.EngineCopying(m_case.sProgram, CapturedPath("voacap/area_02", ".vg1"));
    std::vector<AreaPoint> aPoints;
    m_input.nGridSize = 11;
    EXPECT_TRUE(AreaPointsRead(m_input, aPoints).empty());
    EXPECT_EQ(aPoints.size(), 121U);
    const auto FailsWith = [&](int nGridSize, const std::string& sError) {
        m_input.nGridSize = nGridSize;
        const std::vector<Failure> aFailures = AreaPointsRead(m_input, aPoints);
        ASSERT_EQ(aFailures.size(), 1U);
        EXPECT_EQ(aFailures[0].eKind, FailureKind::BadOutput);
        EXPECT_EQ(aFailures[0].sText, "Unable to read the area's grid, " + sError);
    };
    FailsWith(10, kSubscriptOutOfRange);
    FailsWith(12, kInputPastEnd);
    EXPECT_EQ(aPoints.size(), 121U) << "those of before stay";
}

TEST_P(AreaRun, AnOldGridIsGoneWhenTheEngineStarts)
{
    m_root.Engine(m_case.sProgram, "test ! -e $out");
    std::filesystem::copy_file(CapturedPath("voacap/area_02", ".vg1"),
                               m_root.Path(std::string("areadata/") + m_case.sGrid));
    EXPECT_TRUE(Succeeded(PropagationAreaOpen(m_input, m_file)));
    EXPECT_FALSE(Succeeded(PropagationAreaOpenFile(m_case.iModel, m_file)));
    EXPECT_EQ(TextShown(), "PropagationAreaOpenFile, File not found");
}

TEST_P(AreaRun, TriesOnceAndTellsTheStatus)
{
    m_root.Engine(m_case.sProgram, "exit 1");
    EXPECT_FALSE(Succeeded(PropagationAreaOpen(m_input, m_file)));
    EXPECT_EQ(TextShown(), "PropagationAreaOpen, Shell do not finish.");
    EXPECT_EQ(m_root.CallCount(), 1);
}

TEST_P(AreaRun, MissingProgramIsAnErrorOfTheStart)
{
    EXPECT_FALSE(Succeeded(PropagationAreaOpen(m_input, m_file)));
    EXPECT_EQ(TextShown(), "PropagationAreaOpen, File not found");
}

TEST_P(AreaRun, AStartWithoutAProcessIdIsTold)
{
    auto fnBefore = ProcessSetHandler([](const ProcessCommand&) { return Result<int>(0); });
    EXPECT_FALSE(Succeeded(PropagationAreaOpen(m_input, m_file)));
    ProcessSetHandler(std::move(fnBefore));
    EXPECT_EQ(TextShown(), std::string("Unable to execute ") + m_case.sExecute + " program.");
}

TEST_P(AreaRun, AMissingFolderAndAValueThatDoesNotFitAreTold)
{
    m_root.Engine(m_case.sProgram, "");
    AreaRequest input = m_input;
    input.nGridSize = 123456;
    EXPECT_FALSE(Succeeded(PropagationAreaOpen(input, m_file)));
    std::filesystem::remove_all(m_root.Path("areadata"));
    EXPECT_FALSE(Succeeded(PropagationAreaOpen(m_input, m_file)));
    ASSERT_EQ(m_msg.m_aShown.size(), 2U);
    EXPECT_EQ(m_msg.m_aShown[0].sText, "PropagationAreaOpen, grid size 123456 is outside 2 to 999");
    EXPECT_EQ(m_msg.m_aShown[1].sText, "PropagationAreaOpen, Path not found");
    EXPECT_EQ(m_root.CallCount(), 0);
    std::filesystem::create_directory(m_root.Path("areadata"));
}

TEST_P(AreaRun, TheRootIsHeldUntilTheGridIsReadOrClosed)
{
    const EngineLimit limit(0.05);
    const auto fnFree = [&] { return bool(FileLock::Take(m_root.Path("hopcast.lock"), 0.0)); };
    auto fnBefore = ProcessSetHandler([](const ProcessCommand&) { return Result<int>(999999999); });
    ASSERT_TRUE(Succeeded(PropagationAreaOpen(m_input, m_file)));
    EXPECT_FALSE(fnFree());
    AreaFile fileOther;
    EXPECT_FALSE(Succeeded(PropagationAreaOpen(m_input, fileOther)));
    EXPECT_EQ(TextShown(), "PropagationAreaOpen, Permission denied");
    m_file.Close();
    EXPECT_TRUE(fnFree());
    ASSERT_TRUE(Succeeded(PropagationAreaOpen(m_input, m_file)));
    std::filesystem::copy_file(CapturedPath("rec533/area_02", ".rg1"),
                               m_root.Path(std::string("areadata/") + m_case.sGrid));
    ASSERT_TRUE(Succeeded(PropagationAreaOpenFile(m_case.iModel, m_file)));
    EXPECT_FALSE(fnFree());
    for (Point point;;) {
        const Result<bool> resRead = PointRead(m_file, point);
        ASSERT_TRUE(resRead);
        if (!resRead.ValueGet())
            break;
    }
    EXPECT_TRUE(fnFree());
    ProcessSetHandler(std::move(fnBefore));
}

TEST_P(AreaRun, AnEngineThatNeverEndsIsKilledAtTheLimit)
{
    const EngineLimit limit(0.3);
    m_root.Engine(m_case.sProgram, "sleep 60");
    EXPECT_FALSE(Succeeded(PropagationAreaOpen(m_input, m_file)));
    EXPECT_EQ(TextShown(), "PropagationAreaOpen, Shell do not finish.");
}

TEST_P(AreaRun, AGridTooBigForTheLimitIsToldWithASmallerOne)
{
    struct GridCase {
        int nGridSize;
        std::string sAdvice;
    };
    m_root.Engine(m_case.sProgram, "sleep 60");
    for (const GridCase& c :
         {GridCase{100, "; a smaller grid, for example 40, is faster"},
          GridCase{40, "; a smaller grid, for example 20, is faster"}, GridCase{3, ""}}) {
        const EngineLimit limit(0.2);
        m_input.nGridSize = c.nGridSize;
        EXPECT_FALSE(Succeeded(PropagationAreaOpen(m_input, m_file)));
        EXPECT_EQ(FailureLast().eKind, FailureKind::Timeout);
        EXPECT_EQ(FailureLast().sDetail, "gave up after 0.2 s" + c.sAdvice);
    }
    EXPECT_EQ(m_msg.m_aShown.size(), 3U);
}

TEST(PropagationAreaOpen, AnUnknownModelIsTold)
{
    const FakeRoot root;
    const MsgRecorder msg;
    AreaRequest input = AreaInputMake(AreaCases().front());
    input.iModel = 0;
    AreaFile file;
    EXPECT_FALSE(Succeeded(PropagationAreaOpen(input, file)));
    ASSERT_EQ(msg.m_aShown.size(), 1U);
    EXPECT_EQ(msg.m_aShown[0].sText, "PropagationAreaOpen, Invalid procedure call or argument");
}

}  // namespace

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>

#include "propagation/EngineCases.h"
#include "propagation/reader/ReaderLib.h"
#include "support/TempFolder.h"
#include "system/RunErrorText.h"

namespace {

Result<void> OutputRead(const std::string& sPath, const Request& input, int iFirst, int iLast,
                        PropagationTable& table)
{
    auto resFile = TextFile::Open(sPath);
    if (!resFile)
        return resFile.ErrorGet();
    return input.iModel == kEngineRec533
               ? ReaderRec533(resFile.ValueGet(), input, iFirst, iLast, table)
               : ReaderIcepacVoacap(resFile.ValueGet(), iFirst, iLast, table);
}

/// A captured output whose bytes can be changed before it is read.
struct ChangedOutput {
    explicit ChangedOutput(std::string_view sName)
        : circuit(CircuitCaseGet(sName)),
          input(InputMake(circuit)),
          table(input.nData),
          sBytes(BytesRead(CapturedPath(sName, ".out")))
    {
    }
    /// Replaces columns of the nth line (from 1) that contains the text.
    void LineChange(std::string_view sText, int nLine, std::size_t nCol, std::string_view sNew)
    {
        std::size_t nAt = 0;
        for (int i = 0; i < nLine; ++i) nAt = sBytes.find(sText, i == 0 ? 0 : nAt + 1);
        ASSERT_NE(nAt, std::string::npos);
        const std::size_t nStart = sBytes.rfind('\n', nAt) + 1;
        sBytes.replace(nStart + nCol - 1, sNew.size(), sNew);
    }
    std::string Read()
    {
        const TempFolder folder;
        return OutputRead(folder.Write("sound.out", sBytes), input, 1, input.nData, table)
            .TextGet();
    }

    CircuitCase circuit;
    Request input;
    PropagationTable table;
    std::string sBytes;
};

bool TablesEqual(const PropagationTable& a, const PropagationTable& b)
{
    bool bEqual = a.nData == b.nData && a.fAzimuthTxRc == b.fAzimuthTxRc
                  && a.fAzimuthRcTx == b.fAzimuthRcTx && a.fRange == b.fRange;
    for (int iHour = 1; bEqual && iHour <= kHourCount; ++iHour) {
        bEqual = a.fMUF[iHour] == b.fMUF[iHour] && a.fLUF[iHour] == b.fLUF[iHour];
        for (int j = 1; bEqual && j <= a.nData; ++j)
            bEqual = a.sLayer(iHour, j) == b.sLayer(iHour, j)
                     && a.fTakeoffAngle(iHour, j) == b.fTakeoffAngle(iHour, j)
                     && a.fTimeDelay(iHour, j) == b.fTimeDelay(iHour, j)
                     && a.fVirtualHeight(iHour, j) == b.fVirtualHeight(iHour, j)
                     && a.fSdBW(iHour, j) == b.fSdBW(iHour, j)
                     && a.fNdBW(iHour, j) == b.fNdBW(iHour, j)
                     && a.fSnr(iHour, j) == b.fSnr(iHour, j);
    }
    return bEqual;
}

class CapturedOutput : public testing::TestWithParam<CircuitCase> {};

TEST_P(CapturedOutput, GivesEveryValueThatWasCutApart)
{
    const Request input = InputMake(GetParam());
    PropagationTable table(input.nData);
    const auto resRead =
        OutputRead(CapturedPath(GetParam().sName, ".out"), input, 1, input.nData, table);
    ASSERT_TRUE(resRead) << resRead.TextGet();
    TableCompare(GetParam(), table, 1);
}

TEST_P(CapturedOutput, CutAtAByteFailsOrIsWhole)
{
    const Request input = InputMake(GetParam());
    const std::string sBytes = BytesRead(CapturedPath(GetParam().sName, ".out"));
    PropagationTable tableWhole(input.nData);
    ASSERT_TRUE(
        OutputRead(CapturedPath(GetParam().sName, ".out"), input, 1, input.nData, tableWhole));
    const TempFolder folder;
    int nWhole = 0;
    int nFailed = 0;
#ifdef _WIN32
    constexpr std::size_t kStep = 397;  // writing a file is slow under Wine
#else
    constexpr std::size_t kStep = 97;
#endif
    for (std::size_t nSize = 0; nSize <= sBytes.size(); nSize += kStep) {
        PropagationTable table(input.nData);
        const std::string sPath =
            folder.Write("cut.out", std::string_view(sBytes).substr(0, nSize));
        const auto resRead = OutputRead(sPath, input, 1, input.nData, table);
        if (resRead) {
            ++nWhole;
            EXPECT_TRUE(TablesEqual(table, tableWhole)) << "cut at " << nSize;
        } else {
            ++nFailed;
            EXPECT_TRUE(resRead.TextGet() == kTypeMismatch || resRead.TextGet() == kInputPastEnd)
                << resRead.TextGet();
        }
    }
    EXPECT_GT(nFailed, 30);
    EXPECT_LT(nWhole, 40);  // only if cut after the last row that is read
}

INSTANTIATE_TEST_SUITE_P(Captured, CapturedOutput, testing::ValuesIn(CircuitCases()),
                         [](const auto& test) { return CaseName(test.param.sName); });

class ReaderOfBoth : public testing::TestWithParam<const char*> {};

TEST_P(ReaderOfBoth, LaterChunkFillsItsOwnIndicesFromTheFirstColumns)
{
    const CircuitCase& c = CircuitCaseGet(GetParam());
    Request input = InputMake(c);
    input.afFrequency.insert(input.afFrequency.begin() + 1, 10, 30000.0F);
    input.nData = 15;
    PropagationTable table(15);
    table.fSnr(3, 10) = 12.5F;
    ASSERT_TRUE(OutputRead(CapturedPath(c.sName, ".out"), input, 11, 15, table));
    TableCompare(c, table, 11);
    EXPECT_EQ(table.fSnr(3, 10), 12.5F);
    EXPECT_EQ(table.sLayer(3, 10), "");
    EXPECT_EQ(table.fTimeDelay(3, 10), 0.0F);
}

TEST_P(ReaderOfBoth, IndicesBeyondTheTableAreRefused)
{
    const Request input = InputMake(CircuitCaseGet(GetParam()));
    PropagationTable table(4);
    EXPECT_EQ(OutputRead(CapturedPath(GetParam(), ".out"), input, 1, 5, table).TextGet(),
              kSubscriptOutOfRange);
    EXPECT_EQ(OutputRead(CapturedPath(GetParam(), ".out"), input, 0, 4, table).TextGet(),
              kSubscriptOutOfRange);
}

TEST_P(ReaderOfBoth, WithoutAzimuthsFails)
{
    ChangedOutput output(GetParam());
    for (std::size_t nAt = 0; (nAt = output.sBytes.find("AZIMUTHS")) != std::string::npos;)
        output.sBytes.replace(nAt, 8, "azimuths");
    EXPECT_EQ(output.Read(), kInputPastEnd);
}

TEST_P(ReaderOfBoth, EmptyFileFailsAndATextWithoutTheLabelsToo)
{
    ChangedOutput output(GetParam());
    output.sBytes.clear();
    EXPECT_EQ(output.Read(), kInputPastEnd);
    output.sBytes = "nothing of it\n";
    EXPECT_EQ(output.Read(), kInputPastEnd);
}

TEST_P(ReaderOfBoth, LineEndsOfEitherKindAreRead)
{
    ChangedOutput output(GetParam());
    std::string sWindows;
    for (const char cByte : output.sBytes) {
        if (cByte == '\n')
            sWindows += '\r';
        sWindows += cByte;
    }
    output.sBytes = sWindows;
    EXPECT_EQ(output.Read(), "");
    TableCompare(output.circuit, output.table, 1);
}

INSTANTIATE_TEST_SUITE_P(Engines, ReaderOfBoth, testing::Values("voacap/p2p_06", "rec533/p2p_06"),
                         [](const auto& test) { return CaseName(test.param); });

struct StrictCase {
    const char* sName;
    const char* sField;  // five columns
    const char* sError;
    float fValue;
};

class StrictField : public testing::TestWithParam<StrictCase> {};

std::ostream& operator<<(std::ostream& stm, const StrictCase& c) { return stm << c.sName; }

constexpr StrictCase kStrictCases[] = {
    {"Blanks", "     ", kTypeMismatch, 0.0F},
    {"Stars", "*****", kTypeMismatch, 0.0F},
    {"Dash", "   - ", kTypeMismatch, 0.0F},
    {"Letters", " 1x0 ", kTypeMismatch, 0.0F},
    {"TwoNumbers", "1 234", kTypeMismatch, 0.0F},
    {"Exponent", "  1e3", kTypeMismatch, 0.0F},
    {"NotANumber", "  nan", kTypeMismatch, 0.0F},
    {"Infinity", "  inf", kTypeMismatch, 0.0F},
    {"BarePoint", "    .", kTypeMismatch, 0.0F},
    {"Comma", " 12,5", kTypeMismatch, 0.0F},
    {"TrailingPoint", " 104.", "", 104.0F},
    {"LeadingPoint", "   .5", "", 0.5F},
    {"PlusSign", "  +12", "", 12.0F},
    {"BlankBehind", " 12  ", "", 12.0F},
    {"Full", "-8178", "", -8178.0F},
};

TEST_P(StrictField, OfVoacapIsANumberOrAnError)
{
    const StrictCase& c = GetParam();
    ChangedOutput output("voacap/p2p_01");
    output.LineChange("  SNRxx", 2, 12 + 5, c.sField);
    EXPECT_EQ(output.Read(), c.sError);
    EXPECT_EQ(output.table.fSnr(2, 2), c.fValue);
    EXPECT_EQ(output.table.fSnr(2, 1), 19.0F) << "read before the failure";
    EXPECT_EQ(output.table.fSnr(3, 1), *c.sError ? 0.0F : output.table.fSnr(3, 1));
}

TEST_P(StrictField, OfRec533IsANumberOrAnError)
{
    const StrictCase& c = GetParam();
    ChangedOutput output("rec533/p2p_01");
    output.LineChange(" SNxx", 2, 9 + 5, c.sField);
    EXPECT_EQ(output.Read(), c.sError);
    EXPECT_EQ(output.table.fSnr(2, 2), c.fValue);
    EXPECT_EQ(output.table.fSnr(2, 1), 22.0F) << "read before the failure";
}

TEST_P(StrictField, OfTheTakeoffAngleOfRec533IsANumberOrZero)
{
    const StrictCase& c = GetParam();
    ChangedOutput output("rec533/p2p_01");
    output.LineChange(" ANGL", 2, 9 + 5, c.sField);
    EXPECT_EQ(output.Read(), "");
    EXPECT_EQ(output.table.fTakeoffAngle(2, 2), c.fValue);
}

TEST_P(StrictField, OfTheModeIsStoredUnchanged)
{
    for (const char* sName : {"voacap/p2p_01", "rec533/p2p_01"}) {
        ChangedOutput output(sName);
        output.LineChange(" MODE", 2, (output.input.iModel == kEngineRec533 ? 9 : 12) + 5,
                          GetParam().sField);
        EXPECT_EQ(output.Read(), "");
        EXPECT_EQ(output.table.sLayer(2, 2), GetParam().sField);
    }
}

INSTANTIATE_TEST_SUITE_P(Texts, StrictField, testing::ValuesIn(kStrictCases),
                         [](const auto& test) { return std::string(test.param.sName); });

TEST(ReaderIcepacVoacap, EachLabelIsNeeded)
{
    for (const std::string sLabel : {"MUF    LUF", "AZIMUTHS", "MODE", "ANGLE", "DELAY ", "V HITE",
                                     "S DBW", "N DBW", "SNRxx"}) {
        ChangedOutput output("voacap/p2p_06");
        for (std::size_t nAt = 0; (nAt = output.sBytes.find(sLabel)) != std::string::npos;)
            output.sBytes.replace(nAt, sLabel.size(), sLabel.size(), '?');
        const std::string sError = output.Read();
        EXPECT_TRUE(sError == kTypeMismatch || sError == kInputPastEnd) << sLabel << ": " << sError;
    }
}

TEST(ReaderIcepacVoacap, WithoutModeStoresEmptyTextsAndFailsAtTheNextNumber)
{
    ChangedOutput output("voacap/p2p_06");
    for (std::size_t nAt = 0; (nAt = output.sBytes.find("MODE")) != std::string::npos;)
        output.sBytes.replace(nAt, 4, "Mode");
    output.table.sLayer(1, 1) = "before";
    EXPECT_EQ(output.Read(), kTypeMismatch);
    EXPECT_EQ(output.table.sLayer(1, 1), "");
    EXPECT_NE(output.table.fRange, 0.0F);
}

TEST(ReaderIcepacVoacap, WithoutAzimuthsKeepsTheMufAndLufAlreadyRead)
{
    ChangedOutput output("voacap/p2p_06");
    PropagationTable tableWhole(output.input.nData);
    ASSERT_TRUE(OutputRead(CapturedPath("voacap/p2p_06", ".out"), output.input, 1, 5, tableWhole));
    for (std::size_t nAt = 0; (nAt = output.sBytes.find("AZIMUTHS")) != std::string::npos;)
        output.sBytes.replace(nAt, 8, "azimuths");
    EXPECT_NE(output.Read(), "");
    for (int iHour = 1; iHour <= kHourCount; ++iHour) {
        EXPECT_EQ(output.table.fMUF[iHour], tableWhole.fMUF[iHour]);
        EXPECT_EQ(output.table.fLUF[iHour], tableWhole.fLUF[iHour]);
    }
}

TEST(ReaderIcepacVoacap, RowsOutOfOrderFail)
{
    ChangedOutput output("voacap/p2p_06");
    // In the last block the noise row comes before the signal row.
    const std::size_t nBlock = output.sBytes.rfind("MODE");
    const std::size_t nSignal = output.sBytes.find("S DBW", nBlock);
    const std::size_t nNoise = output.sBytes.find("N DBW", nBlock);
    output.sBytes.replace(nSignal, 5, "N DBW");
    output.sBytes.replace(nNoise, 5, "S DBW");
    EXPECT_EQ(output.Read(), kTypeMismatch);
    EXPECT_NE(output.table.fSdBW(24, 1), 0.0F);
    EXPECT_EQ(output.table.fSnr(24, 1), 0.0F);
}

TEST(ReaderIcepacVoacap, LabelsAreFoundWithRegardToCase)
{
    ChangedOutput output("voacap/p2p_06");
    const std::size_t nAt = output.sBytes.rfind("SNRxx");
    output.sBytes.replace(nAt, 5, "SNRXX");
    EXPECT_EQ(output.Read(), kTypeMismatch);
}

TEST(ReaderIcepacVoacap, MufOfTwelvePointThreeIsStoredAs12300)
{
    ChangedOutput output("voacap/p2p_06");
    const std::size_t nTable = output.sBytes.find("MUF    LUF");
    const std::size_t nRow = output.sBytes.find("  1.0 ", nTable);
    const std::size_t nStart = output.sBytes.rfind('\n', nRow) + 1;
    output.sBytes.replace(nStart + 38, 5, " 12.3");
    EXPECT_EQ(output.Read(), "");
    EXPECT_EQ(output.table.fMUF[1], 12300.0F);
}

TEST(ReaderIcepacVoacap, ByteOutsideAsciiInAModeStaysGoodText)
{
    ChangedOutput output("voacap/p2p_01");
    output.LineChange(" MODE", 2, 17, "\xFF");
    EXPECT_EQ(output.Read(), "");
    EXPECT_EQ(output.table.sLayer(2, 2), "\xC3\xBF 2 E");
}

TEST(ReaderRec533, At20000KilohertzTheSignalIsTheFieldStrengthLess137)
{
    ChangedOutput output("rec533/p2p_01");
    EXPECT_EQ(output.Read(), "");
    EXPECT_EQ(output.input.FrequencyGet(10), 20000.0F);
    EXPECT_EQ(output.table.fSdBW(1, 10), 32.0F - 137.0F);
    EXPECT_EQ(output.table.fNdBW(1, 10), 32.0F - 137.0F - 65.0F);
}

TEST(ReaderRec533, FrequencyOfZeroHasNoSignalLevel)
{
    ChangedOutput output("rec533/p2p_01");
    output.input.afFrequency[3] = 0.0F;
    EXPECT_EQ(output.Read(), kInvalidCall);
}

TEST(ReaderRec533, TheLastRowOfReliabilitiesCountsAsAWhole)
{
    ChangedOutput output("rec533/p2p_06");
    const std::size_t nRow = output.sBytes.rfind('\n', output.sBytes.find("FS/N\n")) + 1;
    output.sBytes.insert(nRow, "    0.99 0.11 0.11 0.11 0.11 0.11 0.11 0.11 0.11 0.11 0.11 FS/N\n");
    output.LineChange("FS/N\n", 2, 9, "*****");
    ASSERT_EQ(output.Read(), "");
    EXPECT_TRUE(std::isnan(output.table.fReliability(1, 1)));
    EXPECT_NE(output.table.fReliability(1, 2), 0.11F);
}

TEST(ReaderRec533, EachLabelIsNeeded)
{
    for (const std::string sLabel : {"AZIMUTHS", "FREQ", "DBU ", "S/N", "SNxx"}) {
        ChangedOutput output("rec533/p2p_06");
        for (std::size_t nAt = 0; (nAt = output.sBytes.find(sLabel)) != std::string::npos;)
            output.sBytes.replace(nAt, sLabel.size(), sLabel.size(), '?');
        const std::string sError = output.Read();
        EXPECT_TRUE(sError == kTypeMismatch || sError == kInputPastEnd) << sLabel << ": " << sError;
    }
}

struct FailureCase {
    const char* sFile;
    int iModel;
};

TEST(Readers, CapturedFailuresAreToldFromCompleteOutputs)
{
    constexpr FailureCase kCases[] = {
        {"rec533_killed", kEngineRec533},
        {"rec533_missing_coefficients", kEngineRec533},
        {"rec533_missing_database_table", kEngineRec533},
        {"rec533_missing_version_file", kEngineRec533},
        {"rec533_month_13", kEngineRec533},
        {"rec533_number_not_readable", kEngineRec533},
        {"rec533_stars", kEngineRec533},
        {"rec533_truncated_before_execute", kEngineRec533},
        {"voacap_deck_with_empty_line", kEngineVoacap},
        {"voacap_empty_deck", kEngineVoacap},
        {"voacap_killed", kEngineVoacap},
        {"voacap_missing_coefficients", kEngineVoacap},
        {"voacap_month_13", kEngineVoacap},
        {"voacap_no_quit", kEngineVoacap},
        {"voacap_number_not_readable", kEngineVoacap},
        {"voacap_truncated_before_execute", kEngineVoacap},
    };
    Request input = InputMake(CircuitCaseGet("rec533/p2p_01"));
    for (const FailureCase& c : kCases) {
        input.iModel = c.iModel;
        PropagationTable table(input.nData);
        const std::string sPath = CapturedPath("failures/", c.sFile + std::string(".out"));
        ASSERT_TRUE(FileExists(sPath)) << sPath;
        const auto resRead = OutputRead(sPath, input, 1, input.nData, table);
        EXPECT_FALSE(resRead) << c.sFile;
    }
    // This output is complete although the engine's own status was 2: the deck lacked its last
    // card.
    input.iModel = kEngineRec533;
    PropagationTable table(input.nData);
    EXPECT_TRUE(OutputRead(CapturedPath("failures/rec533_no_quit", ".out"), input, 1, 10, table));
}

TEST(FindLine, GivesTheNextLineThatHoldsTheLabelAndAnEmptyTextAtTheEnd)
{
    const TempFolder folder;
    auto resFile = TextFile::Open(folder.Write("text", "one\nab LABEL cd\nthree LABEL\nlabel\n"));
    ASSERT_TRUE(resFile);
    std::string sLine;
    ASSERT_TRUE(FindLine(resFile.ValueGet(), "LABEL", sLine));
    EXPECT_EQ(sLine, "ab LABEL cd");
    ASSERT_TRUE(FindLine(resFile.ValueGet(), "LABEL", sLine));
    EXPECT_EQ(sLine, "three LABEL");
    ASSERT_TRUE(FindLine(resFile.ValueGet(), "LABEL", sLine));
    EXPECT_EQ(sLine, "");
}

}  // namespace

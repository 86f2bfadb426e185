#include <gtest/gtest.h>

#include "places/CsvText.h"

namespace {

using Fields = std::vector<std::string>;

std::vector<CsvRow> RowsGet(std::string_view sText)
{
    std::vector<CsvRow> aRow;
    for (CsvReader reader(sText); !reader.AtEnd();) aRow.push_back(reader.RowTake());
    return aRow;
}

TEST(CsvRows, AreFieldsBetweenCommasAndQuotes)
{
    const auto aRow = RowsGet("a,b\r\n\"c, d\",\"e \"\"f\"\"\"\n,\n\n\"two\nlines\",x");
    ASSERT_EQ(aRow.size(), 5U);
    EXPECT_EQ(aRow[0].asField, (Fields{"a", "b"}));
    EXPECT_EQ(aRow[1].asField, (Fields{"c, d", "e \"f\""}));
    EXPECT_EQ(aRow[1].sRaw, "\"c, d\",\"e \"\"f\"\"\"");
    EXPECT_EQ(aRow[2].asField, (Fields{"", ""}));
    EXPECT_EQ(aRow[3].asField, (Fields{""}));
    EXPECT_EQ(aRow[4].asField, (Fields{"two\nlines", "x"}));
    for (const CsvRow& row : aRow) EXPECT_EQ(row.sFault, "");
}

TEST(CsvRows, KnowTheLineThatTheyBeginIn)
{
    const auto aRow = RowsGet("a\n\"b\n\nc\",d\ne\r\nf\rg");
    ASSERT_EQ(aRow.size(), 5U);
    EXPECT_EQ(aRow[1].nLine, 2);
    EXPECT_EQ(aRow[2].nLine, 5);
    EXPECT_EQ(aRow[3].nLine, 6);
    EXPECT_EQ(aRow[4].nLine, 7);
}

TEST(CsvRows, ThatBreakTheRulesAreOneLineAndTheNextIsReadAgain)
{
    struct Case {
        const char* sLine;
        const char* sFault;
    };
    for (const Case& c : {Case{"a,\"b", "a quote is not closed"},
                          Case{"a,\"b\"c", "there is text after a closing quote"},
                          Case{"a b\"c", "there is a quote inside a field that is not quoted"}}) {
        const auto aRow = RowsGet("x,y\n" + std::string(c.sLine) + "\nz,w\n");
        ASSERT_EQ(aRow.size(), 3U) << c.sLine;
        EXPECT_EQ(aRow[1].sRaw, c.sLine);
        EXPECT_EQ(aRow[1].sFault, c.sFault);
        EXPECT_TRUE(aRow[1].asField.empty());
        EXPECT_EQ(aRow[2].asField, (Fields{"z", "w"}));
    }
}

TEST(CsvRows, LongerThanTheLimitAreTooLongAndDoNotSwallowTheRest)
{
    const std::string sLong(kCsvRowMost + 1, 'a');
    auto aRow = RowsGet(sLong + "\nb");
    ASSERT_EQ(aRow.size(), 2U);
    EXPECT_EQ(aRow[0].sFault, "it is too long");
    EXPECT_EQ(aRow[0].sRaw, sLong);
    EXPECT_EQ(aRow[1].asField, (Fields{"b"}));
    aRow = RowsGet(std::string(kCsvRowMost, 'a') + "\nb");
    EXPECT_EQ(aRow[0].sFault, "");
    aRow = RowsGet("\"a\n" + sLong + "\"\nb");
    ASSERT_EQ(aRow.size(), 3U);
    EXPECT_EQ(aRow[0].sRaw, "\"a");
    EXPECT_EQ(aRow[2].asField, (Fields{"b"}));
}

TEST(CsvReader, TakesALineWhateverItHoldsAndGoesOnBehindIt)
{
    CsvReader reader("a,\"b\r\n\"c\nd\",e\n");
    CsvRow row = reader.LineTake();
    EXPECT_EQ(row.sRaw, "a,\"b");
    EXPECT_TRUE(row.asField.empty());
    row = reader.RowTake();
    EXPECT_EQ(row.nLine, 2);
    EXPECT_EQ(row.asField, (Fields{"c\nd", "e"}));
    EXPECT_TRUE(reader.AtEnd());
}

TEST(CsvField, IsQuotedWhereItMustBeAndReadsBack)
{
    EXPECT_EQ(CsvFieldText("plain text"), "plain text");
    EXPECT_EQ(CsvFieldText("38°30.0'N"), "38°30.0'N");
    EXPECT_EQ(CsvFieldText("24, 308"), "\"24, 308\"");
    EXPECT_EQ(CsvFieldText("a \"b\""), "\"a \"\"b\"\"\"");
    // Some spreadsheets drop such a blank.
    EXPECT_EQ(CsvFieldText("end "), "\"end \"");
    EXPECT_EQ(CsvFieldText(" begin"), "\" begin\"");
    for (const char* sField : {"", "a", ",", "\"", "\"\"", "a\nb", " a ", "a,\"b\""}) {
        const std::string sText = CsvFieldText(sField) + "," + CsvFieldText(sField);
        const auto aRow = RowsGet(sText);
        ASSERT_EQ(aRow.size(), 1U) << sField;
        EXPECT_EQ(aRow[0].asField, (Fields{sField, sField}));
    }
}

}  // namespace

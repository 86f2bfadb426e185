/// docs/decks.md has every column as the code has it, because its tables are made from the layouts.
#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "DeckTables.h"
#include "support/TempFolder.h"

namespace {

std::string DocumentGet() { return BytesRead(DOCS_FOLDER "/decks.md"); }

TEST(DocumentsLayout, TheTablesAreThoseOfTheLayouts)
{
    const std::string sDocument = DocumentGet();
    EXPECT_EQ(DeckTablesPut(sDocument), sDocument)
        << "cmake --build --preset dev --target renew_decks writes them";
}

TEST(DocumentsLayout, AWrongColumnIsMended)
{
    const std::string sDocument = DocumentGet();
    for (const std::string sColumns :
         {"21-25", "47-57", "| 12-16, 17-21 ... 57-61", "64-68", "5, 7, 10"}) {
        const std::size_t nPlace = sDocument.find(sColumns);
        ASSERT_NE(nPlace, std::string::npos) << sColumns;
        std::string sWrong = sDocument;
        sWrong.replace(nPlace, sColumns.size(), "99");
        EXPECT_EQ(DeckTablesPut(sWrong), sDocument) << sColumns;
    }
}

TEST(DocumentsLayout, EveryLayoutIsTold)
{
    const std::string sLayouts = BytesRead(SOURCE_FOLDER "/propagation/deck/DeckLayout.h");
    const std::string sTables = BytesRead(TESTS_FOLDER "/house/DeckTables.cpp");
    const std::regex rgxLayout("\nnamespace ([a-z0-9_]+) ");
    int nLayouts = 0;
    for (std::sregex_iterator it(sLayouts.begin(), sLayouts.end(), rgxLayout), itEnd; it != itEnd;
         ++it, ++nLayouts) {
        const std::string sName = (*it)[1];
        EXPECT_TRUE(sTables.find(sName + "::") != std::string::npos
                    || sTables.find("using namespace " + sName + ";") != std::string::npos)
            << sName;
    }
    EXPECT_GT(nLayouts, 20);
}

}  // namespace

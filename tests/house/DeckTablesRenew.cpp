/// Writes the tables of columns into docs/decks.md: DeckTablesRenew FILE.
#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>

#include "DeckTables.h"

int main(int nCount, char** asWord)
try {
    if (nCount != 2) {
        std::cerr << "usage: DeckTablesRenew FILE\n";
        return 2;
    }
    std::stringstream stmBefore;
    stmBefore << std::ifstream(asWord[1], std::ios::binary).rdbuf();
    const std::string sAfter = DeckTablesPut(stmBefore.str());
    std::ofstream stm(asWord[1], std::ios::binary);
    return stm << sAfter && stm.flush() ? 0 : 1;
} catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
}

// Any bytes as the point-to-point output of REC533.
#include "fuzz/FuzzTable.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    static const FuzzFile memory;
    static const Request input = FuzzInput();
    PropagationTable table(kFuzzFrequencies);
    TextFile file = memory.Open(FuzzText(pBytes, nBytes));
    TableCheck(table, ReaderRec533(file, input, 1, kFuzzFrequencies, table));
    return 0;
}

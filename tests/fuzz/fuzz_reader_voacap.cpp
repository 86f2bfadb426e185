// Any bytes as the point-to-point output of ICEPAC and VOACAP.
#include "fuzz/FuzzTable.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t nBytes)
{
    static const FuzzFile memory;
    PropagationTable table(kFuzzFrequencies);
    TextFile file = memory.Open(FuzzText(pBytes, nBytes));
    TableCheck(table, ReaderIcepacVoacap(file, 1, kFuzzFrequencies, table));
    return 0;
}

/// instant_engine ROOT sound.dat sound.out: an engine that takes no time. Its output is a copy of
/// ROOT/captured.out.
#include <filesystem>

namespace fs = std::filesystem;

int main(int nArguments, char** asArguments)
{
    if (nArguments != 4)
        return 2;
    const fs::path pthRoot = asArguments[1];
    std::error_code ec;
    // An existing output makes the copy fail: it would be an old one that should have been deleted.
    if (!fs::exists(pthRoot / "RUN" / asArguments[2], ec) || ec
        || !fs::copy_file(pthRoot / "captured.out", pthRoot / "RUN" / asArguments[3], ec))
        return 1;
    return 0;
}

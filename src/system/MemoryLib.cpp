#include "system/MemoryLib.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>

namespace {

constexpr const char* kText =
    ": Out of memory. Ask for less at once: a smaller grid, fewer frequencies or stations.\n";

struct Ending {
    const char* sProgram = "";
    int nStatus = EXIT_FAILURE;
    void (*fnCleanUp)() = nullptr;
};

Ending& EndingGet()
{
    static Ending ending;
    return ending;
}

bool OutOfMemoryIs()
{
    try {
        if (const std::exception_ptr pException = std::current_exception())
            std::rethrow_exception(pException);
    } catch (const std::bad_alloc&) {
        return true;
    } catch (...) {
        return false;
    }
    return false;
}

[[noreturn]] void End()
{
    if (!OutOfMemoryIs())
        std::abort();
    const Ending& ending = EndingGet();
    std::fputs(ending.sProgram, stderr);
    std::fputs(kText, stderr);
    try {
        ending.fnCleanUp();
    } catch (const std::bad_alloc&) {  // the program ends without it
    }
    std::_Exit(ending.nStatus);
}

}  // namespace

void OutOfMemoryHandle(const char* sProgram, int nStatus, void (*fnCleanUp)())
{
    EndingGet() = {sProgram, nStatus, fnCleanUp};
    std::set_terminate(End);
}

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <exception>
#include <new>
#include <stdexcept>
#include <thread>

#include "system/MemoryLib.h"

namespace {

constexpr int kStatus = 7;

void CleanUp() { std::fputs("cleaned up\n", stderr); }

/// Throws on a thread, where nothing catches it.
template <class Exception>
void ThrowOnAThread(const Exception& exception, void (*fnCleanUp)() = CleanUp)
{
    OutOfMemoryHandle("hopcast-test", kStatus, fnCleanUp);
    std::thread([&] { throw exception; }).join();
}

TEST(OutOfMemory, EndsTheProgramInWordsAfterItsCleanUp)
{
    EXPECT_EXIT(ThrowOnAThread(std::bad_alloc()), testing::ExitedWithCode(kStatus),
                "^hopcast-test: Out of memory[.] Ask for less at once: a smaller grid, fewer "
                "frequencies or stations[.]\ncleaned up\n$");
}

TEST(OutOfMemory, ACleanUpWithoutMemoryEndsTheProgramAllTheSame)
{
    EXPECT_EXIT(ThrowOnAThread(std::bad_alloc(), [] { throw std::bad_alloc(); }),
                testing::ExitedWithCode(kStatus), "^hopcast-test: Out of memory[^\n]*\n$");
}

TEST(OutOfMemory, AnotherExceptionIsNotTakenForOutOfMemory)
{
    EXPECT_EXIT(ThrowOnAThread(std::runtime_error("another")), testing::KilledBySignal(SIGABRT),
                "^$");
}

}  // namespace

#include "engine/run533/Workers.h"

#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace run533 {

void WorkersRun(int nThreads, const std::function<void()>& fnWork)
{
    std::mutex mutex;
    std::exception_ptr pFirst;
    const auto fnGuarded = [&] {
        try {
            fnWork();
        } catch (...) {  // out of memory: it must not end the program on this thread
            const std::lock_guard lock(mutex);
            if (!pFirst)
                pFirst = std::current_exception();
        }
    };
    std::vector<std::thread> aThreads;
    try {
        for (int i = 1; i < nThreads; ++i) aThreads.emplace_back(fnGuarded);
    } catch (const std::exception&) {
        // No more threads can be started: those that exist do the work.
    }
    fnGuarded();
    for (std::thread& thr : aThreads) thr.join();
    if (pFirst)
        std::rethrow_exception(pFirst);
}

}  // namespace run533

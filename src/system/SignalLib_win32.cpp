#include "system/SignalLib.h"

void EndSignalsHandle(std::function<void()> /*fnCleanUp*/) {}

int EndSignalsPipe() { return -1; }
std::stop_token EndSignalsStop() { return {}; }

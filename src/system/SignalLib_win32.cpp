#include "system/SignalLib.h"

void EndSignalsAnswer() {}

int EndSignalsPipe() { return -1; }

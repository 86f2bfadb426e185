#include "ui/common/BoxOpen.h"

int BoxOpen::s_nOpen = 0;

BoxOpen::BoxOpen() { ++s_nOpen; }

BoxOpen::~BoxOpen() { --s_nOpen; }

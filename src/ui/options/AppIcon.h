/// @file AppIcon.h
/// The program's own icon, in every size from 16 to 512 pixels.
#pragma once

#include <QIcon>

[[nodiscard]] QIcon AppIconGet();

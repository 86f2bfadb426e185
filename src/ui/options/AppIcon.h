/// @file AppIcon.h
/// The program's own icon, in every size from 16 to 256 pixels. Each picture is decoded as it is
/// added, a tenth of the program's start and more: it is made once, for the application, and every
/// window shows the application's.
#pragma once

#include <QIcon>

[[nodiscard]] QIcon AppIconGet();

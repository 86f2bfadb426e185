/// @file Pictures.h
/// The program's own small pictures, painted at whatever size and scale the screen wants.
#pragma once

#include <QIcon>
#include <QString>

/// The picture of a key: "Airmail" (an envelope on radio waves), "Map" (a globe).
/// Another key gives an empty icon.
[[nodiscard]] QIcon PictureGet(const QString& sKey);

/// @file Pictures.h
/// The program's own small pictures, painted for any size and screen scale.
#pragma once

#include <QIcon>
#include <QString>

/// The picture for a key: "Airmail" (an envelope on radio waves), "Map" (a globe). Any other key
/// gives an empty icon.
[[nodiscard]] QIcon PictureGet(const QString& sKey);

/// @file AreaPicture.h
/// The prediction of an area as a map.
///
/// Errors:  none.
/// Tests:   tests/app/HopcastExportTest.cpp
#pragma once

#include <QImage>

#include "app/predict/PredictRun.h"

/// REQUIRES: a QGuiApplication.
[[nodiscard]] QImage AreaPictureGet(const PredictArea& area, const PredictAreaRun& run);

/// @file MapExport.h
/// Copies or exports the map as shown, with markers, overlay and legend, above a line that says
/// what it shows.
///
/// Keys:    Ctrl+C copies, Ctrl+E exports; both are in the map's popup menu, too.
/// Errors:  shown in a message box.
/// Tests:   tests/ui/map/MapExportTest.cpp
#pragma once

#include <QImage>
#include <QObject>
#include <QString>

#include "ui/map/MapForm.h"

class MainWindowHost;
class MapDayControl;
class MapOverlayControl;

class MapExport final : public QObject {
    Q_OBJECT
public:
    MapExport(QWidget& window, MapForm& form, MainWindowHost& host,
              const MapOverlayControl& overlay, const MapDayControl& day);

    /// Both places; with an overlay, also its request.
    [[nodiscard]] QString CaptionGet() const;
    /// The map above its caption, with the pixel density of the screen.
    [[nodiscard]] QImage PictureGet() const;

private:
    void Copy() const;
    void Export() const;

    QWidget& m_window;
    MapForm& m_form;
    MainWindowHost& m_host;
    const MapOverlayControl& m_overlay;
    const MapDayControl& m_day;
};

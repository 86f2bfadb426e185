/// @file MapExport.h
/// The map as it is shown, markers, overlay and legend with it, into the clipboard or a file, with
/// a line below that says what it is.
///
/// Keys:    Ctrl+C copies, Ctrl+E exports; both stand in the map's popup menu, too.
/// Errors:  told in a box.
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

    /// Both places; with an overlay also what it is for.
    [[nodiscard]] QString CaptionGet() const;
    /// The map above its caption, in the density of the screen.
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

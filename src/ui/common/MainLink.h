/// @file MainLink.h
/// What the main window and the windows beside it are to each other, so that none needs to know
/// another's class.
#pragma once

#include <QWidget>
#include <functional>

#include "ui/common/MainWindowHost.h"

class GridControl;

/// The main window as the details window sees it, which copies the table's labels.
class MainLink : public MainWindowHost {
public:
    /// The SNR table: rows 1.. are the frequency list, column 0 its labels.
    [[nodiscard]] virtual GridControl& GridGet() = 0;
};

/// A window that the main window opens beside itself and that follows the settings.
class ChildWindow {
public:
    virtual ~ChildWindow() = default;
    [[nodiscard]] virtual QWidget* WidgetGet() = 0;
    /// The settings have changed: called by each update of the main window.
    virtual void Update() {}
    /// Brings a page to the front, counted from 0.
    virtual void TabShow(int /*iTab*/) {}
};

/// The windows beside the main one, in the order in which the end of the program unloads them; the
/// details window stands between About and Map.
enum class Child { About, Map, Options };
inline constexpr int kChildCount = 3;
using ChildMakeFn = std::function<ChildWindow*(MainLink&)>;

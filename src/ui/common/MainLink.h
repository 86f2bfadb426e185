/// @file MainLink.h
/// What the main window and the windows beside it are to each other, so that none needs to know
/// another's class.
#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>

#include "settings/Settings.h"

class GridControl;

/// The main window as the others see it: owner of the settings, the table and the selected cell,
/// and the only place from which a prediction is started.
class MainLink {
public:
    virtual ~MainLink() = default;
    [[nodiscard]] virtual Settings& SettingsGet() = 0;
    /// The SNR table: rows 1.. are the frequency list, column 0 its labels.
    [[nodiscard]] virtual GridControl& GridGet() = 0;
    /// Every setting to its default; no prediction is run.
    virtual void Initialize() = 0;
    /// Runs a prediction with the settings as they are. One that is asked for while another runs is
    /// done once, after it.
    /// @return true when the prediction succeeded (false also: put off).
    virtual bool Update() = 0;
    /// Stores and marks the selected cell; -1 means none.
    virtual void DataSetSelected(int iRow, int iCol) = 0;
    [[nodiscard]] virtual SelectedCell DataGetSelected() const = 0;
    [[nodiscard]] virtual float FrequencyGet(int iIndex) const = 0;  ///< kHz, as Settings
    virtual void FrequencySet(int iIndex, float fValue) = 0;
    /// Colour of an SNR in dB, 0x00BBGGRR.
    [[nodiscard]] virtual std::uint32_t SnrGetColor(float fSnr) const = 0;
};

/// A window that the main window opens beside itself and that follows the settings.
class ChildWindow : public QWidget {
    Q_OBJECT
public:
    explicit ChildWindow(QWidget* pParent = nullptr) : QWidget(pParent) {}
    /// The settings have changed: called by each update of the main window.
    virtual void Update() {}
    /// Brings a page to the front, counted from 0.
    virtual void TabSet(int iTab) { Q_UNUSED(iTab) }
};

/// The windows beside the main one, in the order in which the end of the program unloads them; the
/// details window stands between About and Map.
enum class Child { About, Map, Options };
inline constexpr int kChildCount = 3;
using ChildMakeFn = std::function<ChildWindow*(MainLink&)>;

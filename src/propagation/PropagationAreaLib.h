/// @file PropagationAreaLib.h
/// Area predictions for the map's overlay: one hour, one frequency, a grid of points.
///
/// Units:   degrees, dB.
/// Errors:  each a Failure with the text of its message box, which the caller shows; the point
///          reader's an error without a text of its own.
/// Tests:   tests/propagation/PropagationAreaTest.cpp
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "propagation/Prediction.h"
#include "propagation/itshfbc/EngineRun.h"
#include "system/FileLib.h"
#include "system/LockLib.h"
#include "system/Result.h"

/// A grid file under reading, and the hold on the engine root from an area run to the end of the
/// reading. Nothing else may run an engine in this program while one with a hold lives.
class AreaFile {
public:
    /// Closes the file and lets the engine root go.
    void Close();

private:
    friend std::optional<Failure> PropagationAreaOpen(const AreaRequest& request, AreaFile& file,
                                                      const EngineWay& way);
    friend std::optional<Failure> PropagationAreaOpenFile(int iModel, AreaFile& file);
    friend Result<bool> PropagationAreaReadPoint(AreaFile& file, int& iIndex1, int& iIndex2,
                                                 double& dCoordinate1, double& dCoordinate2,
                                                 float& fSnr);

    Result<void> HeadRead();
    Result<float> SnrCut(std::string_view sLine) const;

    std::optional<FileLock> m_lock;
    std::shared_ptr<EnginePlace> m_pPlace;  // a folder of the run's own goes with it
    std::optional<TextFile> m_file;
    bool m_bHeadRead = false;
    int m_nSnrColumn = 0;    // from 1; 0: the head names no SNR
    int m_nSnrLabelEnd = 0;  // last column of the label, under which a value ends
    bool m_bSignBefore = false;
    double m_dPowerShift = 0.0;  // dB, of the request whose engine made the grid
};

/// Writes the area deck, deletes the old grid and runs the engine; on success `file` keeps the
/// engine root until it is closed, read to its end, or destroyed.
/// @return nothing when the engine finished in time with exit code 0.
[[nodiscard]] std::optional<Failure> PropagationAreaOpen(const AreaRequest& request, AreaFile& file,
                                                         const EngineWay& way = {});

/// Opens the grid that PropagationAreaOpen has made, or the one that the engine of this model wrote
/// last.
[[nodiscard]] std::optional<Failure> PropagationAreaOpenFile(int iModel, AreaFile& file);

/// Runs an area and reads its grid to the end: the required number of points, in grid order. More
/// of them are "Subscript out of range", fewer "Input past end of file".
/// @return why there are no points; nothing when there are.
[[nodiscard]] std::vector<Failure> AreaPointsRead(const AreaRequest& request,
                                                  std::vector<AreaPoint>& aPoints,
                                                  const EngineWay& way = {});

/// Next point of an opened grid, its SNR with the own power of the request that
/// PropagationAreaOpen was given with this file.
/// @param iIndex1, iIndex2            place in the grid along latitude and longitude, from 1
/// @param dCoordinate1, dCoordinate2  latitude and longitude
/// @return false at the end of the file; "Type mismatch" when a field is no number (a cut line),
///         "Invalid procedure call or argument" when the file's head names no SNR.
Result<bool> PropagationAreaReadPoint(AreaFile& file, int& iIndex1, int& iIndex2,
                                      double& dCoordinate1, double& dCoordinate2, float& fSnr);

/// @file PropagationAreaLib.h
/// Area predictions for the map's overlay: one hour, one frequency, a grid of points.
///
/// Units:   degrees, dB.
/// Errors:  each a Failure with the text of its message box, which the caller shows; those of the
///          point reader are a Result with the classic description only.
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

/// A grid file that is being read, and the lock on the engine root from the area run to the end of
/// the reading. Nothing else may run an engine in this program while an object with a lock lives.
class AreaFile {
public:
    /// Closes the file and releases the engine root.
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
    std::shared_ptr<EnginePlace> m_pPlace;  // removes the run's own folder, if it has one
    std::optional<TextFile> m_file;
    bool m_bHeadRead = false;
    int m_nSnrColumn = 0;    // from 1; 0: there is no SNR in the head line
    int m_nSnrLabelEnd = 0;  // last column of the label, under which a value ends
    bool m_bSignBefore = false;
    double m_dPowerShift = 0.0;  // dB, of the request that the grid is for
};

/// Writes the area deck, deletes the old grid and runs the engine; on success `file` holds the
/// engine root until it is closed, read to its end, or destroyed.
/// @return nothing when the engine finished in time with exit code 0.
[[nodiscard]] std::optional<Failure> PropagationAreaOpen(const AreaRequest& request, AreaFile& file,
                                                         const EngineWay& way = {});

/// Opens the grid that PropagationAreaOpen has made, or the last one that this model's engine
/// wrote.
[[nodiscard]] std::optional<Failure> PropagationAreaOpenFile(int iModel, AreaFile& file);

/// Runs an area and reads its grid to the end: the required number of points, in grid order. With
/// more points the error is "Subscript out of range", with fewer "Input past end of file".
/// @return why there are no points; nothing when there are.
[[nodiscard]] std::vector<Failure> AreaPointsRead(const AreaRequest& request,
                                                  std::vector<AreaPoint>& aPoints,
                                                  const EngineWay& way = {});

/// Next point of an opened grid. Its SNR is shifted by the own power in the request that
/// PropagationAreaOpen was given with this file.
/// @param iIndex1, iIndex2            place in the grid along latitude and longitude, from 1
/// @param dCoordinate1, dCoordinate2  latitude and longitude
/// @return false at the end of the file; "Type mismatch" when a field is not a number (a cut line),
///         "Invalid procedure call or argument" when there is no SNR in the file's head line.
Result<bool> PropagationAreaReadPoint(AreaFile& file, int& iIndex1, int& iIndex2,
                                      double& dCoordinate1, double& dCoordinate2, float& fSnr);

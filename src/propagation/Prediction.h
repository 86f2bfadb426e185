/// @file Prediction.h
/// The answer to a Request: the table, or why there is none. A value that includes its request.
///
/// Units:   those of PropagationTable; degrees and dB in an area.
/// Tests:   tests/propagation/ProcessEngineTest.cpp
#pragma once

#include <string>
#include <vector>

#include "propagation/PropagationTable.h"
#include "propagation/Request.h"
#include "system/Message.h"

/// Why an engine gave no answer.
enum class FailureKind {
    NotInstalled,  ///< its program is missing
    NotStarted,    ///< its program could not be started
    Timeout,       ///< it was killed at the time limit
    BadInput,      ///< a value of the request does not fit the deck
    BadOutput,     ///< it ended with an error, or its output is missing or cannot be read
    Busy,          ///< another program holds the engine folder
    Cancelled,     ///< the caller no longer wants the answer
    File,          ///< a deck could not be written, or an old output not removed
};

struct Failure {
    FailureKind eKind = FailureKind::BadOutput;
    std::string sText;         ///< the text of the message box
    std::string sDetail = {};  ///< further details, for a status line; often empty
    int iFirst = 0;            ///< first and last frequency without a value; 0 for an area
    int iLast = 0;
    MsgIcon eIcon = MsgIcon::Exclamation;  ///< of the message box
    bool bShowAlways = false;              ///< shown even if a second attempt may succeed

    bool operator==(const Failure&) const = default;
};

/// A path's prediction.
struct Prediction {
    std::string sEngine;         ///< display name, "REC533"
    std::string sEngineVersion;  ///< "built-in, P.533-14" ...; empty if the engine reports none
    bool bOk = false;            ///< the outcome of the last chunk, which counts for the run
    /// In the order in which they occurred. If bOk is false and this is empty, no frequency was in
    /// range.
    std::vector<Failure> aFailures;
    PropagationTable table;  ///< with its request; frequencies that failed are absent
};

struct AreaPoint {
    double dLat = 0.0;
    double dLon = 0.0;
    float fSnr = 0.0F;  ///< dB

    bool operator==(const AreaPoint&) const = default;
};

/// An area's prediction.
struct AreaPrediction {
    AreaRequest request;
    std::string sEngine;
    std::string sEngineVersion;
    bool bOk = false;
    std::vector<Failure> aFailures;
    std::vector<AreaPoint> aPoints;  ///< in grid order: south to north, west to east in each row
};

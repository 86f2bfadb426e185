/// @file EngineProgram.h
/// The three engines, their files, and whether they are installed.
///
/// Paths:   the fixed layout of the engine package; EngineRoot::Path maps them to this host.
/// Tests:   tests/propagation/PropagationRunTest.cpp
#pragma once

#include <string>
#include <string_view>

#include "propagation/itshfbc/EngineRoot.h"
#include "settings/Settings.h"
#include "system/Message.h"

struct EngineProgram {
    int iModel;                     ///< EngineModel
    std::string_view sProgram;      ///< program file
    std::string_view sName;         ///< display name
    std::string_view sExecuteName;  ///< the name in "Unable to execute ... program."
    std::string_view sAreaDeck;
    std::string_view sAreaGrid;
};

/// The engine of a model; nullptr for any other number.
[[nodiscard]] const EngineProgram* EngineFind(int iModel);

/// Full path of the engine's program; for an unknown model the bare program folder.
[[nodiscard]] std::string EngineProgramPath(int iModel);

inline constexpr std::string_view kSoundDeck = "c:\\itshfbc\\RUN\\sound.dat";
inline constexpr std::string_view kSoundOutput = "c:\\itshfbc\\RUN\\sound.out";
inline constexpr std::string_view kAreaFolder = "c:\\itshfbc\\areadata\\";
/// Antenna files that the engines read, where the root has any.
inline constexpr std::string_view kEngineAntennas = "c:\\itshfbc\\antennas";
/// Receives an engine's standard output and error; deleted after the run.
inline constexpr std::string_view kEngineConsole = "c:\\itshfbc\\RUN\\hopcast.txt";
/// Lock file, held from writing a deck to reading its output.
inline constexpr std::string_view kEngineLock = "c:\\itshfbc\\hopcast.lock";

/// True when the model's program is Hopcast's own engine. Of the programs that Hopcast provisions
/// only REC533 is one: its VOACAP is a launcher for the system's.
[[nodiscard]] bool EngineIsHopcasts(int iModel, const EngineRoot& root = EngineRootGet());

/// True when the engine's program file exists. A missing one adds a message, if there is a list.
bool EngineCheckInstalled(int iModel, Messages* paMessages,
                          const EngineRoot& root = EngineRootGet());

/// Path, size and time of an engine's file: another text when the file is exchanged.
[[nodiscard]] std::string EngineFileStamp(const std::string& sFile);
/// The stamps of the antenna files that decks name; for the identity of an engine that reads them.
/// @param sRoot  host path
[[nodiscard]] std::string AntennaStamps(const std::string& sRoot);

/// Sets the seconds that one attempt may take; tests shorten it. @return the previous limit.
double EngineLimitSet(double dSeconds);
inline constexpr double kEngineLimit = 5.0;

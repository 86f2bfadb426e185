/// @file MainRig.h
/// The real main window with a fake engine, a fixed clock, and an Airmail folder and a profile of
/// its own.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "support/ClockSet.h"
#include "support/MsgRecorder.h"
#include "support/TempFolder.h"
#include "system/ProcessLib.h"
#include "ui/common/FileDialog.h"
#include "ui/main/frmMain.h"

/// An engine that writes output in VOACAP's (or REC533's) layout with the given values.
struct FakeEngine {
    /// SNR in dB for an hour and the index of a frequency.
    std::function<double(int iHour, int iFrequency)> fnSnr = [](int iHour, int iFrequency) {
        return iHour + iFrequency;
    };
    std::function<void()> fnDuring;  ///< called while the engine runs
    bool bDeciles = false;           ///< VOACAP prints 12 and 9 dB, and a median of 0
    bool bFail = false;              ///< starts but leaves no output
    std::set<int> anFailing;         ///< the starts (from 0) that leave no output
    int nStarts = 0;
    int nChunks = 2;                  ///< runs per prediction: 2 for more than ten frequencies
    std::vector<std::string> asDeck;  ///< decks in the order of the runs
    double dMufMhz = 21.0;
    double dLufMhz = 5.0;

    Result<int> Start(const ProcessCommand& command);

private:
    [[nodiscard]] std::string VoacapOutput(int iFirst) const;
    [[nodiscard]] std::string Rec533Output(int iFirst) const;
};

class MainRig {
public:
    explicit MainRig(int iModel = kEngineVoacap);
    ~MainRig();
    MainRig(const MainRig&) = delete;
    MainRig& operator=(const MainRig&) = delete;

    /// Creates the window with the rig's profile; not shown yet.
    frmMain& Make();
    /// Shows the window and waits for the first prediction.
    frmMain& Start();
    /// Processes events until none is pending.
    static void EventsRun();
    void ProfileAdd(const std::string& sLines);
    void AirmailWrite(const std::string& sFile, const std::string& sBytes);

    TempFolder m_folder;
    MsgRecorder m_msg;
    FakeEngine m_engine;
    DateTime m_dtUtc{2026, 11, 21, 13, 5, 0};
    DateTime m_dtLocal{2026, 11, 21, 13, 5, 0};
    std::string m_sProfileFile;
    std::vector<FileDialogQuestion> m_aAsked;
    QString m_sAnswer;  ///< the file dialog's
    std::unique_ptr<frmMain> m_pFrm;

private:
    EnvironmentSet m_envRoot;
    EnvironmentSet m_envWine;
    EnvironmentSet m_envConfig;
    ClockSet m_clock;
    ProcessStartFn m_fnStartBefore;
    FileDialogFn m_fnDialogBefore;
};

/// One line with a label and right-aligned fields of equal width from a column on.
std::string RowMake(const std::string& sLabel, int nColumn, int nWidth,
                    const std::vector<std::string>& asField);

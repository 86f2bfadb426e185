/// @file EngineRootSet.h
/// Sets an engine root of the test's own for as long as it exists, at first without an engine.
#pragma once

#include "support/TempFolder.h"

class EngineRootSet {
public:
    /// Puts an empty program in REC533's place.
    /// @param bOwn  listed as installed by Hopcast; otherwise as someone else's
    void Rec533Put(bool bOwn) const
    {
        m_folder.Write("bin_win/rec533w.exe", "");
        m_folder.Write("hopcast-engines.txt", bOwn ? "rec533w.exe copy 0 cbf29ce484222325\n" : "");
    }

    /// Puts an empty program in VOACAP's place.
    void VoacapPut() const { m_folder.Write("bin_win/voacapw.exe", ""); }

private:
    TempFolder m_folder;
    EnvironmentSet m_environment{"HOPCAST_ITSHFBC", m_folder.Path()};
};

#include "propagation/itshfbc/EngineProgram.h"

#include <array>

#include "system/FileLib.h"

namespace {

constexpr std::string_view kProgramFolder = "c:\\itshfbc\\bin_win\\";

// clang-format off
constexpr std::array kEngines{
    EngineProgram{kEngineIcepac, "icepacw.exe", "ICEPAC", "ICEPACW", "working.ice", "working.ig1"},
    EngineProgram{kEngineVoacap, "voacapw.exe", "VOACAP", "VOACAP",  "working.voa", "working.vg1"},
    EngineProgram{kEngineRec533, "rec533w.exe", "REC533", "REC533",  "working.rec", "working.rg1"},
};
// clang-format on

}  // namespace

const EngineProgram* EngineFind(int iModel)
{
    for (const EngineProgram& engine : kEngines)
        if (engine.iModel == iModel)
            return &engine;
    return nullptr;
}

std::string EngineProgramPath(int iModel)
{
    std::string sPath(kProgramFolder);
    if (const EngineProgram* pEngine = EngineFind(iModel))
        sPath += pEngine->sProgram;
    return sPath;
}

bool EngineIsHopcasts(int iModel, const EngineRoot& root)
{
    return iModel == kEngineRec533 && EngineIsBuiltIn(std::string(EngineFind(iModel)->sProgram), root);
}

bool EngineCheckInstalled(int iModel, Messages* paMessages, const EngineRoot& root)
{
    if (FileExists(root.Path(EngineProgramPath(iModel))))
        return true;
    const EngineProgram* pEngine = EngineFind(iModel);
    return MessageFail(
        paMessages, MsgIcon::Exclamation,
        "Propagation Model " + std::string(pEngine ? pEngine->sName : "")
            + " not found.\r\n\r\nPlease check that ITS HF propagation prediction software has "
              "been installed.");
}

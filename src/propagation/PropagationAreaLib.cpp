#include "propagation/PropagationAreaLib.h"

#include <string>
#include <string_view>
#include <utility>

#include "propagation/DeckLayout.h"
#include "propagation/DeckLib.h"
#include "propagation/EngineRun.h"
#include "propagation/ReaderFields.h"
#include "propagation/ReaderLib.h"
#include "system/MsgLib.h"
#include "system/NumberLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"

namespace {

constexpr std::string_view kSnrLabel = " SNRxx";  // ICEPAC and VOACAP
constexpr std::string_view kSnrLabelRec533 = " SNxx";

bool AreaFail(const std::string& sText)
{
    return MsgFail(MsgIcon::Exclamation, "PropagationAreaOpen, " + sText);
}

std::string AreaPath(std::string_view sName)
{
    return std::string(kAreaFolder) + std::string(sName);
}

Result<void> AreaDeckWrite(const PropagationAreaInput& input, const std::string& sPath)
{
    auto resFile = DeckOpen(sPath);
    if (!resFile)
        return resFile.ErrorGet();
    return DeckWrite(resFile.ValueGet(), DeckArea(input));
}

Result<int> FieldInteger(std::string_view sLine, const Field& fld)
{
    const Result<double> resNumber = NumberFromText(TextColumns(sLine, fld.nCol, fld.nWidth));
    if (!resNumber)
        return resNumber.ErrorGet();
    return RoundHalfEven(resNumber.ValueGet());
}

Result<double> FieldDouble(std::string_view sLine, const Field& fld)
{
    return NumberFromText(TextColumns(sLine, fld.nCol, fld.nWidth));
}

}  // namespace

void AreaFile::Close() { *this = AreaFile(); }

bool PropagationAreaOpen(const PropagationAreaInput& input, AreaFile& file)
{
    file.Close();
    const EngineProgram* pEngine = EngineFind(input.iModel);
    if (pEngine == nullptr)
        return AreaFail(kInvalidCall);
    if (const auto resRange = RangeCheck(input); !resRange)
        return AreaFail(resRange.TextGet());
    const AttemptTimer timer(input.nGridSize);
    auto resLock = EngineLockTake(timer);
    if (!resLock)
        return AreaFail(resLock.TextGet());
    if (auto resWritten = AreaDeckWrite(input, AreaPath(pEngine->sAreaDeck)); !resWritten)
        return AreaFail(resWritten.TextGet());
    // After a failed run an old grid would pass for the new one: the engines leave it.
    if (auto resRemoved = OldOutputRemove(AreaPath(pEngine->sAreaGrid)); !resRemoved)
        return AreaFail(resRemoved.TextGet());
    const Result<int> resId =
        EngineStart(*pEngine, resLock.ValueGet(), {"AREA", "CALC", pEngine->sAreaDeck});
    if (!resId)
        return AreaFail(resId.TextGet());
    if (resId.ValueGet() == 0)
        return EngineNotStarted(*pEngine);
    if (!EngineWait(resId.ValueGet(), timer))
        return AreaFail("Shell do not finish.");
    file.m_lock = std::move(resLock.ValueGet());
    return true;
}

bool PropagationAreaOpenFile(int iModel, AreaFile& file)
{
    std::optional<FileLock> lock = std::move(file.m_lock);
    file.Close();
    const EngineProgram* pEngine = EngineFind(iModel);
    auto resFile = pEngine ? TextFile::Open(AreaPath(pEngine->sAreaGrid))
                           : Result<TextFile>(RunError{kInvalidCall});
    if (!resFile)
        return MsgFail(MsgIcon::Exclamation, "PropagationAreaOpenFile, " + resFile.TextGet());
    file.m_lock = std::move(lock);
    file.m_file = std::move(resFile.ValueGet());
    return true;
}

Result<void> AreaFile::HeadRead()
{
    m_bHeadRead = true;
    std::string sLine;
    if (auto resFound = FindLine(*m_file, "Latitude", sLine); !resFound)
        return resFound;
    for (const std::string_view sLabel : {kSnrLabel, kSnrLabelRec533}) {
        const std::size_t nAt = sLine.find(sLabel);
        if (nAt == std::string::npos)
            continue;
        m_nSnrColumn = static_cast<int>(nAt) + 1;
        m_nSnrLabelEnd = m_nSnrColumn + static_cast<int>(sLabel.size()) - 1;
        m_bSignBefore = sLabel == kSnrLabelRec533;
        break;
    }
    return {};
}

Result<float> AreaFile::SnrCut(std::string_view sLine) const
{
    if (m_nSnrColumn < 1)
        return RunError{kInvalidCall};  // a field cannot begin at column 0
    // Values end under their label's end. One that ends before is what a killed engine left of it,
    // and would still read as a number.
    if (static_cast<int>(sLine.size()) < m_nSnrLabelEnd)
        return RunError{kTypeMismatch};
    // REC533's label begins one column to the right of its field: the minus sign of a value of -100
    // or lower stands before the columns that the label gives. Without it the worst points would be
    // painted as the best.
    std::string sField(TextColumns(sLine, m_nSnrColumn, grid_row::kSnrWidth));
    if (m_bSignBefore && TextColumns(sLine, m_nSnrColumn - 1, 1) == "-")
        sField.insert(0, 1, '-');
    return NumberFromTextSingle(sField);
}

Result<bool> PropagationAreaReadPoint(AreaFile& file, int& iIndex1, int& iIndex2,
                                      double& dCoordinate1, double& dCoordinate2, float& fSnr)
{
    if (!file.m_file)
        return RunError{kInvalidCall};
    if (!file.m_bHeadRead)
        if (auto resHead = file.HeadRead(); !resHead)
            return resHead.ErrorGet();
    std::string sLine;
    Result<bool> resRead = file.m_file->LineRead(sLine);
    if (!resRead || !resRead.ValueGet()) {
        file.m_lock.reset();
        return resRead;
    }
    const Result<int> resIndex1 = FieldInteger(sLine, grid_row::kIndex1);
    if (!resIndex1)
        return resIndex1.ErrorGet();
    const Result<int> resIndex2 = FieldInteger(sLine, grid_row::kIndex2);
    if (!resIndex2)
        return resIndex2.ErrorGet();
    const Result<double> resLat = FieldDouble(sLine, grid_row::kLat);
    if (!resLat)
        return resLat.ErrorGet();
    const Result<double> resLon = FieldDouble(sLine, grid_row::kLon);
    if (!resLon)
        return resLon.ErrorGet();
    const Result<float> resSnr = file.SnrCut(sLine);
    if (!resSnr)
        return resSnr.ErrorGet();
    iIndex1 = resIndex1.ValueGet();
    iIndex2 = resIndex2.ValueGet();
    dCoordinate1 = resLat.ValueGet();
    dCoordinate2 = resLon.ValueGet();
    fSnr = resSnr.ValueGet();
    return true;
}

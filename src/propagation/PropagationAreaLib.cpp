#include "propagation/PropagationAreaLib.h"

#include <string>
#include <string_view>
#include <utility>

#include "propagation/PowerTable.h"
#include "propagation/deck/DeckLayout.h"
#include "propagation/deck/DeckLib.h"
#include "propagation/reader/ReaderFields.h"
#include "propagation/reader/ReaderLib.h"
#include "system/NumberLib.h"
#include "system/RunErrorText.h"
#include "system/TextLib.h"

namespace {

constexpr std::string_view kSnrLabel = " SNRxx";  // ICEPAC and VOACAP
constexpr std::string_view kSnrLabelRec533 = " SNxx";

constexpr EngineTexts kAreaTexts{"PropagationAreaOpen, ", "PropagationAreaOpen, ",
                                 "PropagationAreaOpen, ", "PropagationAreaOpen, ",
                                 "PropagationAreaOpen, Shell do not finish.",
                                 // After a failed run an old grid would pass for the new one, as
                                 // the engines do not remove it.
                                 true};

std::string AreaPath(std::string_view sName)
{
    return std::string(kAreaFolder) + std::string(sName);
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

Failure GridUnread(const std::string& sError)
{
    Failure failure{FailureKind::BadOutput, "Unable to read the area's grid, " + sError};
    failure.eIcon = MsgIcon::None;
    return failure;
}

}  // namespace

void AreaFile::Close()
{
    m_file.reset();  // before its folder is removed, and before others may write there
    *this = AreaFile();
}

std::optional<Failure> PropagationAreaOpen(const AreaRequest& request, AreaFile& file,
                                           const EngineWay& way)
{
    file.Close();
    const EngineProgram* pEngine = EngineFind(request.iModel);
    if (pEngine == nullptr)
        return Failure{FailureKind::NotInstalled, std::string(kAreaTexts.sOpen) + kInvalidCall};
    if (const auto resRange = RangeCheck(request); !resRange)
        return Failure{FailureKind::BadInput, std::string(kAreaTexts.sOpen) + resRange.TextGet()};
    EngineAttempt attempt({pEngine,
                           &kAreaTexts,
                           {"AREA", "CALC", std::string(pEngine->sAreaDeck)},
                           AreaPath(pEngine->sAreaDeck),
                           AreaPath(pEngine->sAreaGrid),
                           [&request] { return DeckArea(request); },
                           request.nGridSize},
                          way);
    if (auto failure = attempt.Run())
        return failure;
    file.m_lock = attempt.LockTake();
    file.m_pPlace = attempt.PlaceGet();
    file.m_dPowerShift = PowerShiftGet(request);
    return {};
}

std::optional<Failure> PropagationAreaOpenFile(int iModel, AreaFile& file)
{
    std::optional<FileLock> lock = std::move(file.m_lock);
    auto pPlace = std::move(file.m_pPlace);
    const double dPowerShift = file.m_dPowerShift;
    file.Close();
    const EngineProgram* pEngine = EngineFind(iModel);
    if (pEngine != nullptr && pPlace == nullptr)
        pPlace = std::make_shared<EnginePlace>(false);
    auto resFile = pEngine ? TextFile::Open(pPlace->Path(AreaPath(pEngine->sAreaGrid)))
                           : Result<TextFile>(RunError{kInvalidCall});
    if (!resFile)
        return Failure{pEngine ? FailureKind::BadOutput : FailureKind::NotInstalled,
                       "PropagationAreaOpenFile, " + resFile.TextGet()};
    file.m_lock = std::move(lock);
    file.m_pPlace = std::move(pPlace);
    file.m_dPowerShift = dPowerShift;
    file.m_file = std::move(resFile.ValueGet());
    return {};
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
    // Values end under their label's end. One that ends earlier was cut when the engine was killed,
    // and would still read as a number.
    if (static_cast<int>(sLine.size()) < m_nSnrLabelEnd)
        return RunError{kTypeMismatch};
    // REC533's label begins one column to the right of its field: the minus sign of a value of -100
    // or lower is before the columns that the label gives. Without it the worst points would be
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
    fSnr = PowerShiftSnr(resSnr.ValueGet(), file.m_dPowerShift);
    return true;
}

std::vector<Failure> AreaPointsRead(const AreaRequest& request, std::vector<AreaPoint>& aPoints,
                                    const EngineWay& way)
{
    AreaFile file;
    if (auto failure = PropagationAreaOpen(request, file, way))
        return {std::move(*failure)};
    if (auto failure = PropagationAreaOpenFile(request.iModel, file))
        return {std::move(*failure)};
    const auto nWanted =
        static_cast<std::size_t>(request.nGridSize) * static_cast<std::size_t>(request.nGridSize);
    std::vector<AreaPoint> aRead;
    for (;;) {
        int iIndex1 = 0;
        int iIndex2 = 0;
        AreaPoint pnt;
        const auto res =
            PropagationAreaReadPoint(file, iIndex1, iIndex2, pnt.dLat, pnt.dLon, pnt.fSnr);
        if (!res)
            return {GridUnread(res.TextGet())};
        if (!res.ValueGet())
            break;
        if (aRead.size() == nWanted)
            return {GridUnread(kSubscriptOutOfRange)};
        aRead.push_back(pnt);
    }
    if (aRead.size() < nWanted)
        return {GridUnread(kInputPastEnd)};
    aPoints = std::move(aRead);
    return {};
}

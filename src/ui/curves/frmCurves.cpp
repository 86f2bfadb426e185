#include "ui/curves/frmCurves.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>

#include "propagation/RequestText.h"
#include "system/ClockLib.h"
#include "system/NumberLib.h"
#include "ui/common/LocationText.h"
#include "ui/common/PaletteShown.h"
#include "ui/curves/CurvesTable.h"

namespace {

constexpr int kNowEvery = 60'000;  // ms
constexpr double kMinutesOfHour = 60.0;

}  // namespace

frmCurves::frmCurves(PlanHost& host)
    : PlanWindow(host, PlanName::Curves, tr("Day Curves")),
      lblHint(new QLabel(this)),
      pctCurves(new CurvesControl(this)),
      tmrNow(new QTimer(this))
{
    setObjectName(QStringLiteral("frmCurves"));
    lblHint->setObjectName(QStringLiteral("lblHint"));
    lblHint->setWordWrap(true);
    pctCurves->setObjectName(QStringLiteral("pctCurves"));
    ContentGet().addWidget(lblHint);
    ContentGet().addWidget(pctCurves, 1);
    setTabOrder(pctCurves, cmdCopy);
    pctCurves->setFocus();
    connect(pctCurves, &CurvesControl::CellChosen, this, &frmCurves::Take);
    connect(pctCurves, &CurvesControl::CellEntered, this, [this] { HostGet().MainWindowRaise(); });
    const SettingsSignal& signal = host.SettingsSignalGet();
    connect(&signal, &SettingsSignal::TableRenewed, this, &frmCurves::TableShow);
    connect(&signal, &SettingsSignal::TableMarked, this, &frmCurves::TableShow);
    connect(&signal, &SettingsSignal::NeedChosen, this, &frmCurves::TableShow);
    connect(&signal, &SettingsSignal::CellSelected, this, &frmCurves::CellShow);
    connect(tmrNow, &QTimer::timeout, this, &frmCurves::NowShow);
    tmrNow->start(kNowEvery);
    TableShow();
}

void frmCurves::TableShow()
{
    const PropagationTable& table = HostGet().TableGet();
    const bool bTable = table.nData > 0;
    const bool bOld = bTable && HostGet().TableOldIs();
    for (QPushButton* pButton : {cmdCopy, cmdExport, cmdPrint}) pButton->setEnabled(bTable);
    lblHint->setVisible(!bTable || bOld);
    lblHint->setText(bTable ? tr("These curves are for older settings: Update in the main window.")
                            : tr("There is no table yet: Update in the main window."));
    if (!bTable) {
        FootSet({});
        return pctCurves->Clear();
    }
    FootSet(RequestFootText(table.request, table.bBuiltIn, UtcNow().nYear) + kTextBetween
            + NeedFootText(NeedGet()));
    const int iTimeCode = HostGet().SettingsGet().m_iTimeCode;
    m_asHour = HourLabelsGet(iTimeCode);
    CurvesView view;
    view.asHour = m_asHour;
    view.fNeed = NeedGet().fSnr;
    view.bOld = bOld;
    pctCurves->DayShow(DayCurvesGet(table), view, HourZoneGet(iTimeCode));
    NowShow();
    CellShow();
}

void frmCurves::CellShow()
{
    const SelectedCell cell = HostGet().DataGetSelected();
    pctCurves->Mark(cell.iFrequency, cell.iHour > 0 ? cell.iHour - 1 : -1);
}

void frmCurves::NowShow()
{
    const DateTime dtNow = UtcNow();
    pctCurves->NowSet(dtNow.nHour + dtNow.nMinute / kMinutesOfHour);
}

void frmCurves::Take(int iFrequency, int iHour) { HostGet().CellTake(iFrequency, iHour + 1); }

QString frmCurves::PathText() const
{
    const Request& request = HostGet().TableGet().request;
    return tr("Receiver %1, transmitter %2")
        .arg(PositionToText(request.dRcLat, request.dRcLon),
             PositionToText(request.dTxLat, request.dTxLon));
}

/// A copy or print is read at another time: it has neither the line at the present time nor the
/// mark.
Page frmCurves::PageGet() const
{
    Page page;
    page.sTitle = windowTitle();
    page.sFoot = lblFoot->text();
    if (HostGet().TableGet().nData <= 0)
        return page;
    const auto pDay = std::make_shared<const DayCurves>(pctCurves->DayGet());
    CurvesView view;
    view.asHour = m_asHour;
    view.fNeed = NeedGet().fSnr;
    const QString sZone = HourZoneGet(HostGet().SettingsGet().m_iTimeCode);
    PagePicture picture;
    picture.fnPaint = [pDay, view](QPainter& painter, const QRectF& rct, PageLook eLook) {
        CurvesView viewPage = view;
        viewPage.eLook = eLook;
        viewPage.ePalette = PaletteOnPaper();
        CurvesPlot(rct, QFontMetricsF(painter.font(), painter.device()), *pDay, viewPage)
            .Paint(painter);
    };
    picture.gridValues = CurvesTableGet(*pDay, m_asHour, sZone, view.fNeed);
    page.aBlock.push_back({PathText() + QStringLiteral(", ") + sZone, std::move(picture)});
    if (lblHint->isVisibleTo(this))
        page.sFoot.prepend(tr("For older settings. "));
    return page;
}

#include "ui/main/TableOutput.h"

#include <QApplication>
#include <QShortcut>

#include "propagation/RequestText.h"
#include "system/ClockLib.h"
#include "system/MsgLib.h"
#include "ui/common/GridControl.h"
#include "ui/page/PageFile.h"
#include "ui/page/PageFromGrid.h"
#include "ui/plan/PlanWindow.h"

namespace {

/// The table as shown in the window.
Page PageGet(const QWidget& window, const GridControl& grd, const PlanHost& host)
{
    const PropagationTable& table = host.TableGet();
    Page page;
    page.sTitle = window.windowTitle();
    page.aBlock.push_back({{}, PageFromGrid(grd)});
    if (table.nData == 0)
        return page;
    std::string sFoot = RequestFootText(table.request, table.bBuiltIn, UtcNow().nYear);
    if (host.TableOldIs())
        sFoot += kTextBetween + TableOutput::tr("from an earlier update").toStdString();
    page.sFoot = QString::fromStdString(sFoot);
    return page;
}

}  // namespace

TableOutput::TableOutput(QWidget& window, const GridControl& grd, PlanHost& host, QObject* pParent)
    : QObject(pParent), m_window(window), m_grd(grd), m_host(host)
{
    auto* const pCopy = new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), &window);
    pCopy->setContext(Qt::ApplicationShortcut);
    connect(pCopy, &QShortcut::activated, this, &TableOutput::FocusCopy);
}

void TableOutput::Copy() const { PageGridCopy(PageFromGrid(m_grd)); }

void TableOutput::FocusCopy() const
{
    if (const auto* pGrd = qobject_cast<const GridControl*>(QApplication::focusWidget()))
        PageGridCopy(PageFromGrid(*pGrd));
    else if (QApplication::activeWindow() == &m_window)
        Copy();
}

void TableOutput::Export()
{
    const QString sFile = PageFileAsk(&m_window, QStringLiteral("Table.csv"));
    if (sFile.isEmpty())
        return;
    PageForm form;
    form.eOrientation = QPageLayout::Landscape;
    if (const auto res = PageExport(PageGet(m_window, m_grd, m_host), form, sFile); !res)
        MsgBox(MsgIcon::Exclamation, res.TextGet());
}

void TableOutput::Print()
{
    if (auto* pPlan = qobject_cast<PlanWindow*>(QApplication::activeWindow()))
        pPlan->Print();
    else
        Q_EMIT CardInput();
}

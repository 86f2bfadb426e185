#include "ui/plan/PlanWindow.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "system/MsgLib.h"
#include "ui/common/WindowPlace.h"

namespace {

QPushButton* ButtonMake(const char* sName, const QString& sText, QWidget* pParent)
{
    auto* pButton = new QPushButton(sText, pParent);
    pButton->setObjectName(QString::fromLatin1(sName));
    pButton->setAutoDefault(false);
    return pButton;
}

void FailureTell(const Result<void>& res)
{
    if (!res)
        MsgBox(MsgIcon::Exclamation, res.TextGet());
}

}  // namespace

PlanWindow::PlanWindow(PlanHost& host, PlanName eName, const QString& sTitle)
    : lblFoot(new QLabel(this)),
      cmdCopy(ButtonMake("cmdCopy", tr("&Copy"), this)),
      cmdExport(ButtonMake("cmdExport", tr("&Export..."), this)),
      cmdPrint(ButtonMake("cmdPrint", tr("&Print..."), this)),
      m_host(host),
      m_eName(eName),
      m_pContent(new QVBoxLayout),
      m_pButtons(new QHBoxLayout)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(sTitle);
    lblFoot->setObjectName(QStringLiteral("lblFoot"));
    lblFoot->setWordWrap(true);
    lblFoot->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_pButtons->addStretch();
    for (QPushButton* pButton : {cmdCopy, cmdExport, cmdPrint}) m_pButtons->addWidget(pButton);
    auto* pAll = new QVBoxLayout(this);
    pAll->addLayout(m_pContent, 1);
    pAll->addWidget(lblFoot);
    pAll->addLayout(m_pButtons);
    connect(cmdCopy, &QPushButton::clicked, this, &PlanWindow::Copy);
    connect(cmdExport, &QPushButton::clicked, this, &PlanWindow::Export);
    connect(cmdPrint, &QPushButton::clicked, this, &PlanWindow::Print);
}

Need PlanWindow::NeedGet() const
{
    const Settings& settings = m_host.SettingsGet();
    return NeedInForce(settings.m_aNeed, settings.m_sNeedSelected);
}

void PlanWindow::FootSet(const std::string& sFoot)
{
    lblFoot->setText(QString::fromStdString(sFoot));
}

void PlanWindow::Copy() { PageCopy(PageGet()); }

PageForm PlanWindow::FormGet() const
{
    PageForm form;
    form.eOrientation = QPageLayout::Landscape;
    return form;
}

QString PlanWindow::FileNameGet() const { return windowTitle() + QStringLiteral(".csv"); }

void PlanWindow::Export()
{
    const QString sFile = PageFileAsk(this, FileNameGet());
    if (!sFile.isEmpty())
        FailureTell(PageExport(PageGet(), FormGet(), sFile));
}

void PlanWindow::Print() { FailureTell(PagePrint(PageGet(), FormGet(), this)); }

void PlanWindow::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() != Qt::Key_Escape)
        return QWidget::keyPressEvent(pEvent);
    if (!WorkStop())
        close();
}

void PlanWindow::showEvent(QShowEvent* pEvent)
{
    QWidget::showEvent(pEvent);
    if (m_bPlaced)
        return;
    m_bPlaced = true;
    const auto& place = m_host.SettingsGet().m_aPlanWindow.at(static_cast<std::size_t>(m_eName));
    if (!place)
        return;
    QRect rectOuter = frameGeometry();
    WindowKeyApply(rectOuter, WindowKey::Height, place->fHeight);
    WindowKeyApply(rectOuter, WindowKey::Width, place->fWidth);
    WindowKeyApply(rectOuter, WindowKey::Left, place->fLeft);
    WindowKeyApply(rectOuter, WindowKey::Top, place->fTop);
    WindowOuterSet(*this, rectOuter);
}

void PlanWindow::closeEvent(QCloseEvent* pEvent)
{
    if (const auto place = WindowDataGet(*this))
        m_host.SettingsGet().m_aPlanWindow.at(static_cast<std::size_t>(m_eName)) = place;
    QWidget::closeEvent(pEvent);
}

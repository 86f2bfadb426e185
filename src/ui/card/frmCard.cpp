#include "ui/card/frmCard.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>
#include <utility>
#include <vector>

#include "system/ClockLib.h"
#include "ui/card/CardPage.h"
#include "ui/common/NightColors.h"
#include "ui/common/PaletteShown.h"

namespace {

constexpr int kPreviewDotsPerInch = 150;

template <class T>
QComboBox* ChoiceAdd(QHBoxLayout& row, const char* sName, const QString& sLabel,
                     const std::vector<std::pair<QString, T>>& aEntry)
{
    QWidget* const pWindow = row.parentWidget();
    auto* const pLabel = new QLabel(sLabel, pWindow);
    auto* const pBox = new QComboBox(pWindow);
    pBox->setObjectName(QStringLiteral("cmb") + QLatin1String(sName));
    pLabel->setObjectName(QStringLiteral("lbl") + QLatin1String(sName));
    for (const auto& [sText, value] : aEntry) pBox->addItem(sText, static_cast<int>(value));
    pLabel->setBuddy(pBox);
    row.addWidget(pLabel);
    row.addWidget(pBox);
    return pBox;
}

template <class T>
T ChoiceGet(const QComboBox& box)
{
    return static_cast<T>(box.currentData().toInt());
}

}  // namespace

CardPreview::CardPreview(QWidget* pParent) : QWidget(pParent)
{
    setObjectName(QStringLiteral("picPreview"));
    setAccessibleName(tr("Preview"));
    constexpr QSize kLeast(240, 240);
    setMinimumSize(kLeast);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void CardPreview::SheetSet(const QImage& imgSheet)
{
    m_imgSheet = imgSheet;
    update();
}

void CardPreview::paintEvent(QPaintEvent* /*pEvent*/)
{
    QPainter painter(this);
    constexpr int kEdge = 6;
    const QSize size = m_imgSheet.size().scaled(
        rect().adjusted(kEdge, kEdge, -kEdge, -kEdge).size(), Qt::KeepAspectRatio);
    QRect rctSheet(QPoint(0, 0), size);
    rctSheet.moveCenter(rect().center());
    // Scaled to the screen's own pixels; the painter's scaling would lose hairlines.
    const QImage imgShown = m_imgSheet.scaled(size * devicePixelRatioF(), Qt::IgnoreAspectRatio,
                                              Qt::SmoothTransformation);
    // In Night the sheet is black: a white one would be the brightest thing on board.
    painter.drawImage(rctSheet, PaletteNightIs() ? NightNegative(imgShown) : imgShown);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawRect(rctSheet.adjusted(-1, -1, 0, 0));
}

frmCard::frmCard(PlanHost& host, PageForm& form)
    : PlanWindow(host, PlanName::Card, tr("Print Card")),
      picPreview(new CardPreview(this)),
      m_form(form)
{
    setObjectName(QStringLiteral("frmCard"));
    cmdExport->setText(tr("&Save..."));
    auto* const pRow = new QHBoxLayout;
    ContentGet().addLayout(pRow);
    cmbPaper = ChoiceAdd<QPageSize::PageSizeId>(
        *pRow, "Paper", tr("P&aper:"),
        {{tr("A4"), QPageSize::A4}, {tr("Letter"), QPageSize::Letter}});
    cmbOrientation = ChoiceAdd<QPageLayout::Orientation>(
        *pRow, "Orientation", tr("&Orientation:"),
        {{tr("Portrait"), QPageLayout::Portrait}, {tr("Landscape"), QPageLayout::Landscape}});
    cmbLook = ChoiceAdd<PageLook>(
        *pRow, "Look", tr("&Look:"),
        {{tr("Colours"), PageLook::Colour}, {tr("Black and white"), PageLook::BlackWhite}});
    pRow->addStretch();
    ContentGet().addWidget(picPreview, 1);
    ChoicesShow();
    for (QComboBox* pBox : {cmbPaper, cmbOrientation, cmbLook})
        connect(pBox, &QComboBox::currentIndexChanged, this, &frmCard::ChoicesTake);
    for (auto fnSignal : {&SettingsSignal::TableRenewed, &SettingsSignal::NeedChosen})
        connect(&host.SettingsSignalGet(), fnSignal, this, &frmCard::SheetShow);
    connect(&PaletteSignal::Get(), &PaletteSignal::Changed, this, &frmCard::SheetShow);
    const std::array<QWidget*, 6> apOrder{cmbPaper, cmbOrientation, cmbLook,
                                          cmdCopy,  cmdExport,      cmdPrint};
    for (std::size_t n = 1; n < apOrder.size(); ++n) setTabOrder(apOrder[n - 1], apOrder[n]);
    cmbPaper->setFocus();
    constexpr QSize kFirst(620, 860);
    resize(kFirst);
    SheetShow();
}

void frmCard::ChoicesShow()
{
    cmbPaper->setCurrentIndex(cmbPaper->findData(static_cast<int>(m_form.ePaper)));
    cmbOrientation->setCurrentIndex(
        cmbOrientation->findData(static_cast<int>(m_form.eOrientation)));
    cmbLook->setCurrentIndex(cmbLook->findData(static_cast<int>(m_form.eLook)));
}

void frmCard::ChoicesTake()
{
    m_form.ePaper = ChoiceGet<QPageSize::PageSizeId>(*cmbPaper);
    m_form.eOrientation = ChoiceGet<QPageLayout::Orientation>(*cmbOrientation);
    m_form.eLook = ChoiceGet<PageLook>(*cmbLook);
    SheetShow();
}

void frmCard::SheetShow()
{
    const Page page = PageGet();
    picPreview->SheetSet(PageImage(page, m_form, kPreviewDotsPerInch));
    QStringList asText{page.sTitle};
    for (const PageBlock& block : page.aBlock) {
        if (!block.sHeading.isEmpty())
            asText.append(block.sHeading);
        if (const auto* pasLine = std::get_if<QStringList>(&block.body))
            asText += *pasLine;
        if (const auto* pGrid = std::get_if<PageGrid>(&block.body))
            asText.append(PageGridTabs(*pGrid));
    }
    picPreview->setAccessibleDescription(asText.join(u'\n'));
    FootSet(page.sFoot.toStdString());
}

Page frmCard::PageGet() const
{
    const Settings& settings = HostGet().SettingsGet();
    CardInput input;
    input.sTx = HostGet().TransmitterNameGet();
    input.asShip = HourLabelsGet(kTimeLocal);
    input.iTimeCode = settings.m_iTimeCode;
    input.need = NeedGet();
    input.nYear = UtcNow().nYear;
    input.bOld = HostGet().TableOldIs();
    return CardPageGet(HostGet().TableGet(), input);
}

QString frmCard::FileNameGet() const { return QStringLiteral("Card.pdf"); }

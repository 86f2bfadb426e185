#include "ui/options/StationPage.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QStyledItemDelegate>
#include <algorithm>

#include "propagation/PowerTable.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"
#include "ui/common/Words.h"

namespace {

constexpr int kColName = 0;
constexpr int kColSnr = 1;
constexpr int kColSource = 2;
constexpr int kRowsShown = 6;  // the list is never lower than this

template <class W>
W* Named(W* pWidget, const char* sName)
{
    pWidget->setObjectName(QString::fromLatin1(sName));
    return pWidget;
}

/// The column of the figures: signs stay in front of them in a mirrored window.
class FigureDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* pOption, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(pOption, index);
        pOption->displayAlignment =
            QStyle::visualAlignment(pOption->direction, pOption->displayAlignment);
        pOption->direction = Qt::LeftToRight;
    }
};

QLabel* Caption(const QString& sText, QWidget* pBuddy)
{
    auto* pLabel = new QLabel(sText);
    pLabel->setBuddy(pBuddy);
    return pLabel;
}

}  // namespace

StationPage::StationPage(QWidget* pParent)
    : QWidget(pParent),
      txtStationPower(Named(new QLineEdit(this), "txtStationPower")),
      lblStationPowerUnit(Named(new QLabel(this), "lblStationPowerUnit")),
      lstNeeds(Named(new QTreeWidget(this), "lstNeeds")),
      txtNeedName(Named(new QLineEdit(this), "txtNeedName")),
      txtNeedSnr(Named(new QLineEdit(this), "txtNeedSnr")),
      txtNeedSource(Named(new QLineEdit(this), "txtNeedSource")),
      cmdNeedAdd(Named(new QPushButton(tr("Add Ne&w"), this), "cmdNeedAdd")),
      cmdNeedChange(Named(new QPushButton(tr("&Change"), this), "cmdNeedChange")),
      cmdNeedRemove(Named(new QPushButton(tr("&Remove"), this), "cmdNeedRemove")),
      cmdNeedRestore(Named(new QPushButton(tr("R&estore List"), this), "cmdNeedRestore")),
      lblNeedHint(Named(new QLabel(this), "lblNeedHint"))
{
    auto* pColumn = new QVBoxLayout(this);
    pColumn->addWidget(PowerMake());
    pColumn->addWidget(NeedsMake(), 1);
    for (QPushButton* pButton : {cmdNeedAdd, cmdNeedChange, cmdNeedRemove, cmdNeedRestore})
        pButton->setAutoDefault(false);  // Enter is for the dialog's OK
    for (QLineEdit* pBox : {txtNeedName, txtNeedSnr, txtNeedSource}) pBox->installEventFilter(this);
    connect(lstNeeds, &QTreeWidget::currentItemChanged, this, &StationPage::RowShow);
    connect(cmdNeedAdd, &QPushButton::clicked, this, &StationPage::cmdNeedAddClick);
    connect(cmdNeedChange, &QPushButton::clicked, this, &StationPage::cmdNeedChangeClick);
    connect(cmdNeedRemove, &QPushButton::clicked, this, &StationPage::cmdNeedRemoveClick);
    connect(cmdNeedRestore, &QPushButton::clicked, this, &StationPage::cmdNeedRestoreClick);
}

QWidget* StationPage::PowerMake()
{
    auto* pFrame = new QGroupBox(tr("Power"));
    auto* pRow = new QHBoxLayout(pFrame);
    txtStationPower->setToolTip(
        tr("Transmitter's power in all predictions, W\n0 means the power of the antenna choice"));
    txtStationPower->setAccessibleName(tr("My power in watts"));
    txtStationPower->setMaximumWidth(
        txtStationPower->fontMetrics().horizontalAdvance(QStringLiteral("--1000000--")));
    lblStationPowerUnit->setWordWrap(true);
    pRow->addWidget(Caption(tr("My &power"), txtStationPower));
    pRow->addWidget(txtStationPower);
    pRow->addWidget(lblStationPowerUnit, 1);
    return pFrame;
}

QWidget* StationPage::NeedsMake()
{
    auto* pFrame = new QGroupBox(tr("Needs"));
    auto* pColumn = new QVBoxLayout(pFrame);
    lstNeeds->setColumnCount(kColSource + 1);
    lstNeeds->setHeaderLabels({tr("Name"), tr("dB in 1 Hz"), tr("Source")});
    lstNeeds->setRootIsDecorated(false);
    lstNeeds->setUniformRowHeights(true);
    lstNeeds->setItemDelegateForColumn(kColSnr, new FigureDelegate(lstNeeds));
    lstNeeds->setAccessibleName(tr("Needs: name, dB in 1 Hz, source"));
    lstNeeds->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    lstNeeds->setMinimumHeight(kRowsShown * lstNeeds->fontMetrics().lineSpacing());
    lblNeedHint->setWordWrap(true);
    lblNeedHint->setTextFormat(Qt::PlainText);
    pColumn->addWidget(Caption(tr("What contacts are &for"), lstNeeds));
    pColumn->addWidget(lstNeeds, 1);
    pColumn->addLayout(EditorMake());
    pColumn->addWidget(lblNeedHint);
    return pFrame;
}

QLayout* StationPage::EditorMake()
{
    auto* pGrid = new QGridLayout;
    txtNeedName->setAccessibleName(tr("Name of the need"));
    txtNeedSnr->setAccessibleName(tr("Required SNR, dB in 1 Hz"));
    txtNeedSnr->setToolTip(tr("A figure in 2500 Hz is 34 dB higher in 1 Hz"));
    txtNeedSource->setAccessibleName(tr("Source of the figure"));
    pGrid->addWidget(Caption(tr("Na&me"), txtNeedName), 0, 0);
    pGrid->addWidget(txtNeedName, 0, 1);
    pGrid->addWidget(Caption(tr("d&B in 1 Hz"), txtNeedSnr), 0, 2);
    pGrid->addWidget(txtNeedSnr, 0, 3);
    pGrid->addWidget(Caption(tr("&Source"), txtNeedSource), 1, 0);
    pGrid->addWidget(txtNeedSource, 1, 1, 1, 3);
    pGrid->setColumnStretch(1, 2);
    pGrid->setColumnStretch(3, 1);
    auto* pButtons = new QHBoxLayout;
    for (QPushButton* pButton : {cmdNeedAdd, cmdNeedChange, cmdNeedRemove, cmdNeedRestore})
        pButtons->addWidget(pButton);
    pGrid->addLayout(pButtons, 2, 0, 1, 4);
    return pGrid;
}

void StationPage::Load(const Settings& settings)
{
    const bool bSame = m_needs == settings.m_aNeed && lstNeeds->topLevelItemCount() > 0;
    m_sSelected = m_sLoaded = settings.m_sNeedSelected;
    m_needs = settings.m_aNeed;
    if (!bSame)
        ListShow(0);
}

void StationPage::Copy(Settings& settings) const
{
    settings.m_aNeed = m_needs;
    if (settings.m_sNeedSelected == m_sLoaded)
        settings.m_sNeedSelected = m_sSelected;
    if (NeedFind(m_needs, settings.m_sNeedSelected) == nullptr)
        settings.m_sNeedSelected.clear();
}

void StationPage::PowerExplain(int iModel, int iAntennaType)
{
    const EngineProgram* pEngine = EngineFind(iModel);
    lblStationPowerUnit->setText(
        pEngine == nullptr ? tr("W; 0 means the power of the antenna choice")
                           : tr("W; 0 means the power of the antenna choice: %1 with %2")
                                 .arg(QString::fromStdString(PowerText(CardPowerGet(
                                          iModel, iAntennaType, DeckKind::PointToPoint))),
                                      QString::fromStdString(std::string(pEngine->sName))));
    txtStationPower->setAccessibleDescription(lblStationPowerUnit->text());
}

void StationPage::ListShow(int iRow)
{
    lstNeeds->clear();
    for (const Need& need : m_needs) {
        auto* pItem = new QTreeWidgetItem(lstNeeds);
        pItem->setText(kColName, QString::fromStdString(need.sName));
        pItem->setText(kColSnr, QString::fromStdString(NumberToText(need.fSnr)));
        pItem->setTextAlignment(kColSnr, Qt::AlignRight | Qt::AlignVCenter);
        pItem->setText(kColSource, QString::fromStdString(need.sSource));
    }
    const int nLast = lstNeeds->topLevelItemCount() - 1;
    lstNeeds->setCurrentItem(lstNeeds->topLevelItem(std::clamp(iRow, 0, std::max(nLast, 0))));
}

void StationPage::RowShow()
{
    const QTreeWidgetItem* pItem = lstNeeds->currentItem();
    lblNeedHint->clear();
    cmdNeedChange->setEnabled(pItem != nullptr);
    cmdNeedRemove->setEnabled(pItem != nullptr);
    if (pItem == nullptr)
        return;
    txtNeedName->setText(pItem->text(kColName));
    txtNeedSnr->setText(pItem->text(kColSnr));
    txtNeedSource->setText(pItem->text(kColSource));
}

Result<Need> StationPage::Typed() const
{
    const std::string sSnr = txtNeedSnr->text().toStdString();
    const auto resSnr = NumberFromTextSingle(sSnr);
    if (!resSnr)
        return RunError{
            WordsPut(tr("\"%1\" is not a number of dB. Type one."), TextForMessage(sSnr))};
    return Need{txtNeedName->text().toStdString(), resSnr.ValueGet(),
                txtNeedSource->text().toStdString()};
}

std::string StationPage::NameGet(int iRow) const
{
    const bool bIs = iRow >= 0 && iRow < static_cast<int>(m_needs.size());
    return bIs ? m_needs[static_cast<std::size_t>(iRow)].sName : std::string();
}

bool StationPage::Show(const Result<void>& res, int iRow)
{
    if (res)
        ListShow(iRow);
    lblNeedHint->setText(QString::fromStdString(res.TextGet()));
    return static_cast<bool>(res);
}

/// Enter presses the dialog's OK, but not while a need is being typed.
bool StationPage::eventFilter(QObject* pObject, QEvent* pEvent)
{
    if (pEvent->type() != QEvent::KeyPress)
        return QWidget::eventFilter(pObject, pEvent);
    const int nKey = static_cast<QKeyEvent*>(pEvent)->key();
    if (nKey != Qt::Key_Return && nKey != Qt::Key_Enter)
        return QWidget::eventFilter(pObject, pEvent);
    NeedEnter();
    return true;
}

void StationPage::NeedEnter()
{
    const std::string sName = NameGet(lstNeeds->indexOfTopLevelItem(lstNeeds->currentItem()));
    if (!sName.empty() && TextEqualNoCase(sName, txtNeedName->text().toStdString()))
        cmdNeedChangeClick();
    else
        cmdNeedAddClick();
}

void StationPage::cmdNeedAddClick()
{
    const auto resTyped = Typed();
    Show(resTyped ? NeedAdd(m_needs, resTyped.ValueGet()) : Result<void>(resTyped.ErrorGet()),
         static_cast<int>(m_needs.size()));
}

void StationPage::cmdNeedChangeClick()
{
    const int iRow = lstNeeds->indexOfTopLevelItem(lstNeeds->currentItem());
    const std::string sName = NameGet(iRow);
    const auto resTyped = Typed();
    const bool bTaken = Show(resTyped ? NeedChange(m_needs, sName, resTyped.ValueGet())
                                      : Result<void>(resTyped.ErrorGet()),
                             iRow);
    if (bTaken && TextEqualNoCase(sName, m_sSelected))
        m_sSelected = NameGet(iRow);
}

void StationPage::cmdNeedRemoveClick()
{
    const int iRow = lstNeeds->indexOfTopLevelItem(lstNeeds->currentItem());
    const std::string sName = NameGet(iRow);
    if (Show(NeedRemove(m_needs, sName), iRow) && TextEqualNoCase(sName, m_sSelected))
        m_sSelected.clear();
}

void StationPage::cmdNeedRestoreClick()
{
    m_needs = NeedsShipped();
    if (NeedFind(m_needs, m_sSelected) == nullptr)
        m_sSelected.clear();
    Show({}, 0);
}

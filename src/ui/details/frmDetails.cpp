#include "ui/details/frmDetails.h"

#include <QApplication>
#include <QKeyEvent>
#include <algorithm>
#include <array>

#include "propagation/PowerTable.h"
#include "propagation/SnrScale.h"
#include "system/NumberLib.h"
#include "system/TextLib.h"
#include "ui/common/GridCorner.h"

namespace {

constexpr int kColLimit = 1;
constexpr int kColLayer = 2;
constexpr int kColTakeoff = 3;
constexpr int kColDelay = 4;
constexpr int kColHeight = 5;
constexpr int kColSignal = 6;
constexpr int kColNoise = 7;
constexpr int kColSnr = 8;

/// The grid's left edge and least top edge in the window, pixels.
constexpr int kMargin = 8;
/// Room for a vertical scroll bar, pixels (360 twips).
constexpr int kBarRoom = 24;
/// Room above and below the line above the grid, pixels.
constexpr int kLineRoom = 6;
/// Contrast for legible text (Web Content Accessibility Guidelines 2.1, success criterion 1.4.3).
constexpr double kContrastLeast = 4.5;

struct Column {
    const char* sHeader;
    const char* sWidthOf;  ///< a text as wide as the widest expected value
    const char* sLong;
};

// The spellings that users know.
constexpr std::array<Column, 9> kColumns{{
    {"", "-20000-", QT_TRANSLATE_NOOP("frmDetails", "Frequency (kHz)")},
    {QT_TRANSLATE_NOOP("frmDetails", "LUF-MUF"), "-LUF-MUF-",
     QT_TRANSLATE_NOOP("frmDetails", "[<Lower][Maximun][>Maximun] Usable Frequency (kHz)")},
    {QT_TRANSLATE_NOOP("frmDetails", "Layer"), "-Layer-",
     QT_TRANSLATE_NOOP("frmDetails", "Ionispheric Layer, [Hops][Layer]")},
    {QT_TRANSLATE_NOOP("frmDetails", "T Ang"), "-T Ang-",
     QT_TRANSLATE_NOOP("frmDetails", "Ionispheric Takeoff Angle (Deg)")},
    {QT_TRANSLATE_NOOP("frmDetails", "Delay"), "-Delay-",
     QT_TRANSLATE_NOOP("frmDetails", "Ionispheric Time Delay (mSec)")},
    {QT_TRANSLATE_NOOP("frmDetails", "Height"), "-Height-",
     QT_TRANSLATE_NOOP("frmDetails", "Ionispheric Virtual Height (km)")},
    {QT_TRANSLATE_NOOP("frmDetails", "Signal"), "-Signal-",
     QT_TRANSLATE_NOOP("frmDetails", "Signal Level (dBw)")},
    {QT_TRANSLATE_NOOP("frmDetails", "Noise"), "-Noise-",
     QT_TRANSLATE_NOOP("frmDetails", "Noise Level (dBw)")},
    {QT_TRANSLATE_NOOP("frmDetails", "Snr"), "---Snr-",
     QT_TRANSLATE_NOOP("frmDetails", "Signal to Noise Ratio (dB)")},
}};

constexpr int kCols = static_cast<int>(kColumns.size());

const Column& ColumnGet(int iCol) { return kColumns.at(static_cast<std::size_t>(iCol)); }

/// REC533 computes neither delay nor height.
bool Rec533Lacks(int iCol) { return iCol == kColDelay || iCol == kColHeight; }

QString Formatted(float fValue, const char* sPattern)
{
    return QString::fromStdString(NumberFormat(fValue, sPattern));
}

/// Which limit of the usable band matters for a frequency, and which side of it the frequency is
/// on.
QString LimitText(float fFrequency, float fLuf, float fMuf)
{
    if (fFrequency < fLuf)
        return QStringLiteral("< ") + Formatted(fLuf, "0");
    if (fFrequency <= fMuf)
        return Formatted(fMuf, "0");
    return QStringLiteral("> ") + Formatted(fMuf, "0");
}

}  // namespace

frmDetails::frmDetails(MainWindowHost& host, GridControl& grdMain, QWidget* pParent)
    : QWidget(pParent),
      lblHour(new QLabel(this)),
      grdData(new GridControl(this)),
      m_host(host),
      m_grdMain(grdMain)
{
    setObjectName(QStringLiteral("frmDetails"));
    setWindowTitle(tr("%1 - Details by Frequency").arg(QApplication::applicationDisplayName()));
    setAttribute(Qt::WA_DeleteOnClose);
    lblHour->setObjectName(QStringLiteral("lblHour"));
    grdData->setObjectName(QStringLiteral("grdData"));
    grdData->setAccessibleName(tr("Details by Frequency"));
    new GridCorner(*grdData, tr(kColumns.front().sLong));
    SignalsConnect();
    grdData->RedrawSet(false);
    HeaderLayout();
    RowsLayout();
    DataSetSize();
    grdData->RedrawSet(true);
}

void frmDetails::SignalsConnect()
{
    grdData->SpeechSet([this](int iRow, int iCol) { return Speech(iRow, iCol); });
    connect(grdData, &GridControl::MouseMoved, this,
            [this](int, int iCol) { grdDataMouseMove(iCol); });
    connect(grdData, &GridControl::CellPressed, this,
            [this](int iRow, int, Qt::MouseButton eButton) { grdDataMouseDown(iRow, eButton); });
    const auto RowPick = [this](int iRow, int) { grdDataMouseDown(iRow, Qt::LeftButton); };
    connect(grdData, &GridControl::EnterPressed, this, RowPick);
    connect(grdData, &GridControl::CurrentMoved, this, RowPick);
}

bool frmDetails::Rec533Is() const { return m_host.TableInputGet().iModel == kEngineRec533; }

void frmDetails::HeaderLayout()
{
    grdData->RowsSet(1);
    grdData->ColsSet(kCols);
    for (int iCol = 0; iCol < kCols; ++iCol) {
        const Column& column = ColumnGet(iCol);
        const bool bHidden = Rec533Is() && Rec533Lacks(iCol);
        const int nWidth = fontMetrics().horizontalAdvance(QLatin1String(column.sWidthOf));
        grdData->ColWidthSet(iCol, bHidden ? 0 : nWidth);
        grdData->TextSet(0, iCol, bHidden ? QString() : tr(column.sHeader));
        grdData->AlignmentSet(0, iCol, Qt::AlignCenter);
    }
}

/// The rows are the main table's: the same labels, the same number.
void frmDetails::RowsLayout()
{
    grdData->RowsSet(m_grdMain.RowsGet());
    for (int iRow = 1; iRow < m_grdMain.RowsGet(); ++iRow)
        grdData->TextSet(iRow, 0, m_grdMain.TextGet(iRow, 0));
    if (m_iRow >= grdData->RowsGet())
        m_iRow = -1;
}

void frmDetails::DataSetSize()
{
    // Outer and inner size differ only by the window's frame, so setting the inner size sets both.
    const int nWidth = grdData->ColLeftGet(kCols) + kBarRoom;
    resize(2 * kMargin + nWidth, 2 * GridTop() + m_grdMain.height());
}

void frmDetails::resizeEvent(QResizeEvent* pEvent)
{
    QWidget::resizeEvent(pEvent);
    const int nTop = GridTop();
    lblHour->setGeometry(kMargin, 0, width() - 2 * kMargin, nTop);
    grdData->setGeometry(kMargin, nTop, width() - 2 * kMargin, height() - 2 * nTop);
}

int frmDetails::GridTop() const { return std::max(kMargin, fontMetrics().height() + kLineRoom); }

void frmDetails::keyPressEvent(QKeyEvent* pEvent)
{
    if (pEvent->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(pEvent);
}

void frmDetails::Update(int iRow, int iHour, const QString& sHour, const PropagationTable& table)
{
    grdData->RedrawSet(false);
    setWindowTitle(
        tr("%1 - Details by Frequency - %2").arg(QApplication::applicationDisplayName(), sHour));
    const bool bLocal = m_host.SettingsGet().m_iTimeCode == kTimeLocal;
    lblHour->setText((bLocal ? tr("%1 Local") : tr("%1 Zulu")).arg(sHour));
    RowsLayout();
    m_iHour = iHour;
    for (int i = 1; i < grdData->RowsGet(); ++i) {
        if (table.PresentIs(i))
            RowFill(i, table);
        else
            RowClear(i);
    }
    Highlight(iRow, iHour);
    if (m_iRow != -1)
        grdData->CurrentSet(m_iRow, std::max(1, grdData->CurrentGet().iCol));
    grdData->RedrawSet(true);
}

void frmDetails::RowClear(int iRow)
{
    for (int iCol = 1; iCol < kCols; ++iCol) grdData->TextSet(iRow, iCol, {});
    grdData->ColorSet(iRow, kColSnr, {}, {});
}

void frmDetails::RowFill(int iRow, const PropagationTable& table)
{
    const PropagationRecord record =
        PropagationRecordGet(table, m_iHour, iRow, {}, table.request.FrequencyGet(iRow));
    const bool bLacking = table.request.iModel == kEngineRec533;
    grdData->TextSet(iRow, kColLimit, LimitText(record.fFrequency, record.fLUF, record.fMUF));
    grdData->AlignmentSet(iRow, kColLimit, Qt::AlignRight | Qt::AlignVCenter);
    grdData->TextSet(iRow, kColLayer, QString::fromStdString(TextPrintable(record.sLayer)));
    grdData->TextSet(iRow, kColTakeoff, Formatted(record.fTakeoffAngle, "0.0"));
    grdData->TextSet(iRow, kColDelay, bLacking ? QString() : Formatted(record.fTimeDelay, "0.0"));
    grdData->TextSet(iRow, kColHeight,
                     bLacking ? QString() : Formatted(record.fVirtualHeight, "0"));
    grdData->TextSet(iRow, kColSignal, Formatted(record.fSdBW, "0"));
    grdData->TextSet(iRow, kColNoise, Formatted(record.fNdBW, "0"));
    grdData->TextSet(iRow, kColSnr, Formatted(record.fSnr, "0"));
    grdData->ColorSet(iRow, kColSnr,
                      ColorFromBgr(SnrBandOfTable(record.fSnr, table.request.fPower).nColor),
                      SnrTextColor(SnrBandOfTable(record.fSnr, table.request.fPower)));
}

/// The selection's text colour where it is legible on the SNR's colour, else black or white.
QColor frmDetails::SnrTextColor(const SnrBand& band) const
{
    const QColor clrSelection = palette().color(QPalette::HighlightedText);
    return ColorContrast(ColorToBgr(clrSelection), band.nColor) >= kContrastLeast
               ? clrSelection
               : ColorFromBgr(band.nText);
}

void frmDetails::RowColor(int iRow, const QColor& clrBack, const QColor& clrFore)
{
    for (int iCol = 0; iCol < kColSnr; ++iCol) grdData->ColorSet(iRow, iCol, clrBack, clrFore);
}

void frmDetails::Highlight(int iRow, int iHour)
{
    const bool bRedraw = grdData->RedrawGet();
    grdData->RedrawSet(false);
    if (m_iRow != -1) {
        RowColor(m_iRow, {}, {});
        grdData->BoldSet(m_iRow, kColSnr, false);
    }
    const bool bThere = iRow >= 1 && iRow < grdData->RowsGet();
    if (bThere) {
        RowColor(iRow, palette().color(QPalette::Highlight),
                 palette().color(QPalette::HighlightedText));
        grdData->BoldSet(iRow, kColSnr, true);
    }
    grdData->RedrawSet(bRedraw);
    m_iRow = bThere ? iRow : -1;
    m_iHour = iHour;
}

void frmDetails::grdDataMouseMove(int iCol)
{
    QString sText = iCol >= 0 && iCol < kCols ? tr(ColumnGet(iCol).sLong) : QString();
    const Request input = m_host.TableInputGet();
    if (iCol == kColLimit && input.fPower > 0.0F) {
        const double dDeck = CardPowerGet(input.iModel, input.iAntennaType, DeckKind::PointToPoint);
        sText += u'\n'
                 + tr("LUF for %1, the deck's power").arg(QString::fromStdString(PowerText(dDeck)));
    }
    grdData->ToolTipRenew(sText);
}

void frmDetails::grdDataMouseDown(int iRow, Qt::MouseButton eButton)
{
    if (eButton != Qt::LeftButton || iRow < 1)
        return;
    Highlight(iRow, m_iHour);
    m_host.DataSetSelected(iRow, m_iHour);
}

QString frmDetails::Speech(int iRow, int iCol) const
{
    return tr("%1 kHz, %2 %3")
        .arg(grdData->TextGet(iRow, 0), tr(ColumnGet(iCol).sLong), grdData->TextGet(iRow, iCol));
}

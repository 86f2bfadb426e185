#include "ui/common/LocationField.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <algorithm>

#include "ui/common/NightColors.h"
#include "ui/common/PaletteShown.h"

LocationField::LocationField(QWidget* pParent) : QLineEdit(pParent)
{
    setDragEnabled(false);
    setAcceptDrops(false);
    KindSet(LocationKind::Latitude);
    connect(&PaletteSignal::Get(), &PaletteSignal::Changed, this, [this] {
        if (m_bMark)
            MarkPaint();
    });
}

void LocationField::KindSet(LocationKind eKind)
{
    m_eKind = eKind;
    if (eKind == LocationKind::Latitude) {
        m_aSeparators = {3, 6, 9};
        m_nHemisphere = 10;
        m_sLetters = QStringLiteral("NS");
        TextSet(QStringLiteral("00 00.00 N"));
    } else {
        m_aSeparators = {4, 7, 10};
        m_nHemisphere = 11;
        m_sLetters = QStringLiteral("WE");
        TextSet(QStringLiteral("000 00.00 E"));
    }
}

void LocationField::MarkSet(const QString& sWhy)
{
    const bool bMark = !sWhy.isEmpty();
    if (bMark && !m_bMark) {
        m_sTip = toolTip();
        m_sAbout = accessibleDescription();
        MarkPaint();
    } else if (!bMark && m_bMark) {
        setPalette(QPalette());
    }
    if (bMark || m_bMark) {
        setToolTip(bMark ? sWhy : m_sTip);
        setAccessibleDescription(bMark ? sWhy : m_sAbout);
    }
    m_bMark = bMark;
}

/// Dark red on light red, contrast 6.8:1; in Night, where everything is red, black on red.
void LocationField::MarkPaint()
{
    QPalette pal = QApplication::palette(this);
    const bool bNight = PaletteNightIs();
    pal.setColor(QPalette::Base, bNight ? QColor(kNightInk) : QColor(0xFF, 0xE0, 0xE0));
    pal.setColor(QPalette::Text, bNight ? QColor(Qt::black) : QColor(0xA0, 0x00, 0x00));
    setPalette(pal);
}

void LocationField::TextSet(const QString& sText)
{
    if (!MaskFits(sText)) {
        MarkSet(tr("%1 does not fit here").arg(sText));
        return;
    }
    MarkSet({});
    const int nCaret = hasFocus() ? CaretGet() : 0;
    m_aUndo.clear();
    m_bTyping = false;
    setText(sText);
    if (hasFocus())
        CaretPlace(nCaret, 1);
    else
        setCursorPosition(0);
}

bool LocationField::MaskFits(const QString& sText) const { return sText.length() <= m_nHemisphere; }

QSize LocationField::sizeHint() const
{
    const QSize size = QLineEdit::sizeHint();
    const int nText = fontMetrics().horizontalAdvance(QStringLiteral("0000°00.000'W"));
    return {nText + size.height() / 2, size.height()};
}

int LocationField::CaretGet() const
{
    return hasSelectedText() ? selectionStart() : cursorPosition();
}

bool LocationField::SeparatorIs(int nCaret) const
{
    return std::find(m_aSeparators.begin(), m_aSeparators.end(), nCaret + 1) != m_aSeparators.end();
}

void LocationField::CaretPlace(int nCaret, int nStep)
{
    if (SeparatorIs(nCaret))
        nCaret += nStep;
    else if (nCaret == Length())
        --nCaret;
    nCaret = std::clamp(nCaret, 0, std::max(Length() - 1, 0));
    setSelection(nCaret, 1);
}

bool LocationField::CaretKey(int nKey)
{
    switch (nKey) {
        case Qt::Key_Up:
        case Qt::Key_Down:
            return true;
        case Qt::Key_Left:
        case Qt::Key_Backspace:
            CaretPlace(std::max(CaretGet() - 1, 0), -1);
            return true;
        case Qt::Key_Right:
        case Qt::Key_Delete:
            CaretPlace(std::min(CaretGet() + 1, Length()), 1);
            return true;
        case Qt::Key_Home:
            CaretPlace(0, 1);
            return true;
        case Qt::Key_End:
            CaretPlace(Length(), 1);
            return true;
        default:
            return false;
    }
}

/// The standard keys of an entry field, adapted to the mask.
bool LocationField::CommandKey(QKeyEvent* pEvent)
{
    if (pEvent->matches(QKeySequence::Paste))
        PositionPaste(QApplication::clipboard()->text());
    else if (pEvent->matches(QKeySequence::Copy) || pEvent->matches(QKeySequence::Cut))
        QApplication::clipboard()->setText(text());
    else if (pEvent->matches(QKeySequence::Undo))
        UndoLast();
    else
        return false;
    return true;
}

bool LocationField::event(QEvent* pEvent)
{
    // Keys that move the caret or undo belong to the field, whatever menu shortcuts there are.
    if (pEvent->type() == QEvent::ShortcutOverride) {
        const auto* pKey = static_cast<QKeyEvent*>(pEvent);
        if (pKey->matches(QKeySequence::Paste) || pKey->matches(QKeySequence::Copy)
            || pKey->matches(QKeySequence::Cut) || pKey->matches(QKeySequence::Undo)) {
            pEvent->accept();
            return true;
        }
    }
    return QLineEdit::event(pEvent);
}

void LocationField::keyPressEvent(QKeyEvent* pEvent)
{
    if (CommandKey(pEvent) || CaretKey(pEvent->key())) {
        m_bTyping = false;
        pEvent->accept();
        return;
    }
    if (pEvent->key() == Qt::Key_Return || pEvent->key() == Qt::Key_Enter) {
        Q_EMIT returnPressed();
        pEvent->accept();
        return;
    }
    const QString sTyped = pEvent->text();
    const bool bPlain = (pEvent->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
    if (bPlain && sTyped.length() == 1 && sTyped.at(0).isPrint()) {
        CharacterType(sTyped.at(0));
        pEvent->accept();
        return;
    }
    pEvent->ignore();  // Escape, Tab and shortcuts belong to the window
}

void LocationField::inputMethodEvent(QInputMethodEvent* pEvent)
{
    LocationField* pField = this;
    for (const QChar chr : pEvent->commitString()) {
        const bool bHere = pField->hasFocus();
        pField->CharacterType(chr);
        // What follows a latitude's letter belongs to the longitude, as when typing.
        if (bHere && m_pOther != nullptr && m_pOther->hasFocus())
            pField = m_pOther;
    }
    pEvent->accept();
}

void LocationField::CharacterType(QChar chr)
{
    const int nCaret = CaretGet();
    if (SeparatorIs(nCaret) || nCaret >= Length())
        return;
    if (nCaret + 1 == m_nHemisphere) {
        chr = chr.toUpper();
        if (!m_sLetters.contains(chr))
            return;
    } else if (chr < QLatin1Char('0') || chr > QLatin1Char('9')) {
        if (chr.isLetter())
            Q_EMIT Hinted(tr("Digits here; a grid square can be pasted (Ctrl+V)"));
        return;
    }
    QString sText = text();
    sText[nCaret] = chr;
    TextAccept(sText, nCaret + 1);
    if (nCaret + 1 == m_nHemisphere && m_eKind == LocationKind::Latitude && m_pOther != nullptr)
        m_pOther->setFocus(Qt::TabFocusReason);
}

void LocationField::TextAccept(const QString& sText, int nCaret, int nPair)
{
    // The half of a pair that changed nothing gets an entry too, so that undo in either field takes
    // both back.
    if (sText != text() || nPair != 0) {
        if (!m_bTyping || nPair != 0)
            m_aUndo.push_back({text(), CaretGet(), nPair});
        m_bTyping = nPair == 0;
        setText(sText);
    }
    CaretPlace(nCaret, 1);
    Q_EMIT Edited();
}

void LocationField::PositionPaste(const QString& sText)
{
    const auto res = LocationFromText(m_eKind, sText);
    if (!res) {
        QApplication::beep();
        Q_EMIT Hinted(
            tr("Not pasted: %1. 24°18.50'N, 24.308, both coordinates (24.308, -110.403) or a "
               "grid square (DL44) can be pasted")
                .arg(QString::fromStdString(res.TextGet())));
        return;
    }
    const bool bLatitude = m_eKind == LocationKind::Latitude;
    const PositionRead& pos = res.ValueGet();
    const auto dOther = bLatitude ? pos.dLon : pos.dLat;
    const auto dOwn = bLatitude ? pos.dLat : pos.dLon;
    const bool bOther = dOther && m_pOther != nullptr;
    static int s_nPair = 0;
    const bool bChanges =
        (dOwn && PasteChanges(*dOwn)) || (bOther && m_pOther->PasteChanges(*dOther));
    const int nPair = bChanges ? ++s_nPair : 0;
    if (bOther)
        m_pOther->PasteAccept(*dOther, nPair);
    if (dOwn)
        PasteAccept(*dOwn, nPair);
}

bool LocationField::PasteChanges(double dValue) const
{
    return LocationToText(m_eKind, dValue) != text();
}

void LocationField::PasteAccept(double dValue, int nPair)
{
    TextAccept(LocationToText(m_eKind, dValue), hasFocus() ? CaretGet() : 0, nPair);
    if (!hasFocus())
        setCursorPosition(0);  // only the focused field shows its caret
}

/// Takes the last entry back. A pasted pair is undone in both fields, unless the other one was
/// edited since.
void LocationField::UndoLast()
{
    if (m_aUndo.empty())
        return;
    const int nPair = EntryUndo();
    if (nPair != 0 && m_pOther != nullptr && !m_pOther->m_aUndo.empty()
        && m_pOther->m_aUndo.back().nPair == nPair)
        m_pOther->EntryUndo();
}

/// @return the entry's nPair
int LocationField::EntryUndo()
{
    const Entry entry = m_aUndo.back();
    m_aUndo.pop_back();
    m_bTyping = false;
    setText(entry.sBefore);
    if (hasFocus())
        CaretPlace(entry.nCaret, 1);
    else
        setCursorPosition(0);
    Q_EMIT Edited();
    return entry.nPair;
}

void LocationField::mousePressEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() != Qt::LeftButton)
        return;
    m_bTyping = false;
    CaretPlace(cursorPositionAt(pEvent->pos()), 1);
}

// Dragging would select more than one character.
void LocationField::mouseMoveEvent(QMouseEvent* pEvent) { pEvent->accept(); }

void LocationField::mouseReleaseEvent(QMouseEvent* pEvent)
{
    if (pEvent->button() == Qt::MiddleButton && QApplication::clipboard()->supportsSelection())
        PositionPaste(QApplication::clipboard()->text(QClipboard::Selection));
}

void LocationField::mouseDoubleClickEvent(QMouseEvent* pEvent) { mousePressEvent(pEvent); }

void LocationField::contextMenuEvent(QContextMenuEvent* pEvent)
{
    auto* pMenu = new QMenu(this);
    pMenu->setAttribute(Qt::WA_DeleteOnClose);
    pMenu->addAction(tr("&Undo"), this, &LocationField::UndoLast)->setEnabled(!m_aUndo.empty());
    pMenu->addAction(tr("&Copy"), this, [this] { QApplication::clipboard()->setText(text()); });
    pMenu->addAction(tr("&Paste"), this,
                     [this] { PositionPaste(QApplication::clipboard()->text()); });
    pMenu->popup(pEvent->globalPos());
}

void LocationField::focusInEvent(QFocusEvent* pEvent)
{
    QLineEdit::focusInEvent(pEvent);
    m_bTyping = false;
    const bool bKept =
        pEvent->reason() == Qt::PopupFocusReason || pEvent->reason() == Qt::ActiveWindowFocusReason;
    CaretPlace(bKept ? CaretGet() : 0, 1);
}

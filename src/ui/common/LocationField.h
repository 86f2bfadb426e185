/// @file LocationField.h
/// Entry field of one position component: an overtype mask. The caret always stands on one selected
/// character; typing replaces it; the separators are jumped over and cannot be typed. Behind the
/// hemisphere letter of a latitude the caret goes on to the longitude.
///
/// Texts:   "38°30.00'N" (latitude, 10 characters), "122°15.00'W" (longitude, 11 characters).
/// Errors:  a key or a pasted text that does not fit is dropped (a paste with a short beep, and
///          Hinted says why). No text is ever longer than the mask.
/// Tests:   tests/ui/common/LocationFieldTest.cpp
#pragma once

#include <QLineEdit>
#include <array>
#include <vector>

#include "ui/common/LocationText.h"

class LocationField final : public QLineEdit {
    Q_OBJECT
public:
    explicit LocationField(QWidget* pParent = nullptr);
    /// The kind gives mask, hemisphere letters and the initial text. Latitude until called.
    void KindSet(LocationKind eKind);
    /// The field of the other coordinate, which a pasted pair or grid square fills too.
    void PairSet(LocationField* pOther) { m_pOther = pOther; }
    /// The text as the program sets it; nothing is left to undo. One longer than the mask
    /// is not shown: the field is marked.
    void TextSet(const QString& sText);
    /// Marks a text that cannot be used, by its colours and by the reason as description and tip;
    /// an empty reason, and TextSet, take the mark away.
    void MarkSet(const QString& sWhy);
    [[nodiscard]] bool MarkIs() const { return m_bMark; }
    /// Caret position from 0: the character that the next key replaces.
    [[nodiscard]] int CaretGet() const;
    /// Stands the caret on a character, never on a separator.
    /// @param nStep  +1 or -1: the direction in which a separator is left.
    void CaretPlace(int nCaret, int nStep);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void Edited();                        ///< after each accepted key, paste or undo
    void Hinted(const QString& sAdvice);  ///< after a key or paste was dropped: why, what to do

protected:
    bool event(QEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void inputMethodEvent(QInputMethodEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void mouseReleaseEvent(QMouseEvent* pEvent) override;
    void mouseDoubleClickEvent(QMouseEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;
    void focusInEvent(QFocusEvent* pEvent) override;

private:
    void MarkPaint();
    [[nodiscard]] int Length() const { return static_cast<int>(text().length()); }
    /// A text to go back to: what was typed without a step of the caret, or pasted, is one entry.
    struct Entry {
        QString sBefore;
        int nCaret;
        int nPair;  ///< the same in both fields that a paste filled; 0 for a field alone
    };

    [[nodiscard]] bool SeparatorIs(int nCaret) const;
    bool CaretKey(int nKey);
    bool CommandKey(QKeyEvent* pEvent);
    void CharacterType(QChar chr);
    [[nodiscard]] bool MaskFits(const QString& sText) const;
    void TextAccept(const QString& sText, int nCaret, int nPair = 0);
    void PasteAccept(double dValue, int nPair);
    [[nodiscard]] bool PasteChanges(double dValue) const;
    void PositionPaste(const QString& sText);
    void UndoLast();
    int EntryUndo();

    LocationKind m_eKind = LocationKind::Latitude;
    std::array<int, 3> m_aSeparators{};  ///< counted from 1
    int m_nHemisphere = 0;               ///< counted from 1
    QString m_sLetters;
    LocationField* m_pOther = nullptr;
    bool m_bMark = false;
    QString m_sTip;  ///< tip and description without the mark
    QString m_sAbout;
    std::vector<Entry> m_aUndo;
    bool m_bTyping = false;  ///< the next key belongs to the last entry
};

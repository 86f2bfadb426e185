/// @file LocationField.h
/// Entry field for a latitude or longitude: an overtype mask. One character is always selected, and
/// typing replaces it; separators are skipped and cannot be typed. After the hemisphere letter of a
/// latitude the focus goes on to the longitude.
///
/// Texts:   "38°30.00'N" (latitude, 10 characters), "122°15.00'W" (longitude, 11 characters).
/// Errors:  a key or pasted text that does not fit is dropped; a paste beeps, and Hinted gives the
///          reason. No text is ever longer than the mask.
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
    /// Sets mask, hemisphere letters and initial text. Latitude until called.
    void KindSet(LocationKind eKind);
    /// The field of the other coordinate, which a pasted pair or grid square also fills.
    void PairSet(LocationField* pOther) { m_pOther = pOther; }
    /// Sets the text and clears the undo history. A text longer than the mask is not shown: the
    /// field is marked instead.
    void TextSet(const QString& sText);
    /// Marks a text that cannot be used by its colours, with the reason as description and tip. An
    /// empty reason, or TextSet, removes the mark.
    void MarkSet(const QString& sWhy);
    [[nodiscard]] bool MarkIs() const { return m_bMark; }
    /// Caret position from 0: the character that the next key replaces.
    [[nodiscard]] int CaretGet() const;
    /// Puts the caret on a character, never on a separator.
    /// @param nStep  +1 or -1: the direction in which to leave a separator
    void CaretPlace(int nCaret, int nStep);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void Edited();                        ///< after each accepted key, paste or undo
    void Hinted(const QString& sAdvice);  ///< a key or paste was dropped: why, and what to do

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
    /// A text that undo can restore. What was typed without moving the caret, or pasted, is one
    /// entry.
    struct Entry {
        QString sBefore;
        int nCaret;
        int nPair;  ///< shared by the two fields that one paste filled; 0 for a single field
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
    QString m_sTip;  ///< tip and description while unmarked
    QString m_sAbout;
    std::vector<Entry> m_aUndo;
    bool m_bTyping = false;  ///< the next key joins the last entry
};

/// @file NightPointer.h
/// The mouse pointer of Night; the system's own is white. While an object of this class exists, the
/// pointer is red with a black edge, in the shape that the widget under it asks for.
///
/// Tests:   tests/ui/common/NightStyleTest.cpp
#pragma once

#include <QCursor>
#include <QObject>

class NightPointer final : public QObject {
public:
    NightPointer();
    ~NightPointer() override;
    NightPointer(const NightPointer&) = delete;
    NightPointer& operator=(const NightPointer&) = delete;

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override;

private:
    void ShapeFollow();

    Qt::CursorShape m_eShape;
    QCursor m_cursor;
};

/// The system's pointer, or the red one in Night; for override pointers.
[[nodiscard]] QCursor PointerGet(Qt::CursorShape eShape);

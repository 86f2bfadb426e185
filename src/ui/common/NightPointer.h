/// @file NightPointer.h
/// The pointer of the night: the system's is white. While one of these lives the pointer is red
/// with a black edge, in the shape that what lies under it asks for.
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

/// The system's pointer, in Night the red one; for pointers that stand above all others.
[[nodiscard]] QCursor PointerGet(Qt::CursorShape eShape);

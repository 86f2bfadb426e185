#include "ui/common/MenuKey.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QWidget>

namespace {

class MenuKey final : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* pObject, QEvent* pEvent) override
    {
        if (pEvent->type() != QEvent::KeyPress || pObject != QApplication::focusWidget())
            return false;
        const auto* pKey = static_cast<QKeyEvent*>(pEvent);
        if (pKey->key() != Qt::Key_F10 || pKey->modifiers() != Qt::ShiftModifier)
            return false;
        auto* pWidget = static_cast<QWidget*>(pObject);
        const QPoint pnt = pWidget->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, pnt, pWidget->mapToGlobal(pnt));
        QApplication::sendEvent(pWidget, &event);
        return true;
    }
};

}  // namespace

void MenuKeyInstall([[maybe_unused]] QApplication& app)
{
#ifndef Q_OS_WIN
    app.installEventFilter(new MenuKey(&app));
#endif
}

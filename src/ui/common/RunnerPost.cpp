#include "ui/common/RunnerPost.h"

#include <QMetaObject>
#include <QObject>
#include <utility>

Runner::PostFn RunnerPostTo(QObject& receiver)
{
    return [pReceiver = &receiver](std::function<void()> fnCall) {
        QMetaObject::invokeMethod(pReceiver, std::move(fnCall), Qt::QueuedConnection);
    };
}

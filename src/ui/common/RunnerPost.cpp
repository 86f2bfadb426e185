#include "ui/common/RunnerPost.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <deque>
#include <mutex>
#include <utility>

namespace {

/// The calls that wait for the receiver's thread, an event for each. They are passed on under a
/// lock of their own, as the thread sanitizer does not see the locks within Qt's libraries.
class PostBox final : public QObject {
public:
    explicit PostBox(QObject& receiver) : QObject(&receiver) {}

    void Post(std::function<void()> fnCall)
    {
        {
            const std::scoped_lock lock(m_mtx);
            m_aCalls.push_back(std::move(fnCall));
        }
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }

protected:
    void customEvent(QEvent* /*pEvent*/) override
    {
        std::function<void()> fnCall;
        {
            const std::scoped_lock lock(m_mtx);
            fnCall = std::move(m_aCalls.front());
            m_aCalls.pop_front();
        }
        fnCall();  // may destroy the receiver, and with it this box
    }

private:
    std::mutex m_mtx;
    std::deque<std::function<void()>> m_aCalls;
};

}  // namespace

Runner::PostFn RunnerPostTo(QObject& receiver)
{
    return [pBox = new PostBox(receiver)](std::function<void()> fnCall) {
        pBox->Post(std::move(fnCall));
    };
}

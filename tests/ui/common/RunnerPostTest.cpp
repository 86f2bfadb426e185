#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QObject>
#include <QTest>
#include <QThread>
#include <memory>
#include <vector>

#include "ui/common/RunnerPost.h"

namespace {

/// Stands for a window with work under way, as far as the runner is concerned.
class Receiver : public QObject {
public:
    std::vector<std::size_t> m_aAnswers;
    bool m_bEnd = false;
    Runner m_runner{RunnerPostTo(*this), 3};
    RunnerJob m_job;

    void Start(std::size_t nTasks)
    {
        m_job = m_runner.Start(
            nTasks, 3,
            [this](std::size_t iTask, const std::stop_token&) {
                return [this, iTask] {
                    EXPECT_EQ(QThread::currentThread(), thread());
                    m_aAnswers.push_back(iTask);
                };
            },
            [this] { m_bEnd = true; });
    }
};

TEST(RunnerPost, AnswersComeOnTheWindowsThreadAndTheEndBehindThem)
{
    constexpr std::size_t kTasks = 200;
    Receiver receiver;
    receiver.Start(kTasks);
    EXPECT_TRUE(receiver.m_aAnswers.empty()) << "only the event loop runs them";
    ASSERT_TRUE(QTest::qWaitFor([&] { return receiver.m_bEnd; }));
    EXPECT_EQ(receiver.m_aAnswers.size(), kTasks);
}

TEST(RunnerPost, AWindowMayGoWithWorkUnderWay)
{
    constexpr int kRounds = 100;
    for (int i = 0; i < kRounds; ++i) {
        auto pReceiver = std::make_unique<Receiver>();
        pReceiver->Start(50);
        if (i % 2 == 0)
            QCoreApplication::processEvents();
        pReceiver.reset();
        QCoreApplication::processEvents();  // no answer may reach the destroyed window
    }
}

}  // namespace

#include "app/SingleInstance.h"
#include <QApplication>
#include <QUuid>
#include <gtest/gtest.h>
#include <thread>

namespace orvana
{

TEST(SingleInstance, SecondOneRaisesTheFirstAndKnowsIt)
{
    const auto machine = QUuid::createUuid().toString();
    SingleInstance first(machine);
    EXPECT_FALSE(first.askTheFirst());
    std::atomic<int> raised{0};
    first.listen([&] { ++raised; });
    std::atomic<bool> isAnswered{false};
    std::atomic<bool> found{false};
    std::thread second([&] {
        found = SingleInstance(machine).askTheFirst();
        isAnswered = true;
    });
    while (!isAnswered || raised == 0)
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    second.join();
    EXPECT_TRUE(found);
    EXPECT_EQ(raised, 1);
}

TEST(SingleInstance, FirstOneThatCannotAnswerIsStillThere)
{
    const auto machine = QUuid::createUuid().toString();
    SingleInstance busy(machine);
    busy.listen([] {});
    EXPECT_TRUE(SingleInstance(machine).askTheFirst()) << "no event was handled meanwhile";
}

TEST(SingleInstance, AnotherMachineIsAnotherInstance)
{
    SingleInstance first(QUuid::createUuid().toString());
    first.listen([] {});
    EXPECT_FALSE(SingleInstance(QUuid::createUuid().toString()).askTheFirst());
}

} // namespace orvana

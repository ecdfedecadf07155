#pragma once

#include "app/BaySetupSheet.h"
#include "app/WindowFixture.h"

#include <QtTest/QTest>

#include <atomic>
#include <semaphore>
#include <thread>

namespace orvana
{

/// A machine without enclosures, but with a dock whose four disks are not in yet.
class BaySetupTest : public WindowTest
{
protected:
    BaySetupTest()
    {
        m_machine["enclosures"] = Json::array();
        m_machine["docks"] = Json::array({{{"usb", "2109:0817"}, {"disks", Json::array()}}});
        for (const char *port : {"1", "2", "3", "4"})
            m_machine["docks"][0]["disks"].push_back({{"port", port},
                                                      {"model", "HD"},
                                                      {"serial", std::string("SN") + port},
                                                      {"size", 9000},
                                                      {"attached", false}});
    }

    // A thread that still waits must end before the window's destructor waits for it.
    ~BaySetupTest() override { m_permission.release(AtMost); }

    void open()
    {
        start();
        window().setUpBays();
        ASSERT_TRUE(sheet());
    }

    BaySetupSheet *sheet() { return window().baySetup(); }
    std::string instruction() { return sheet()->instruction->text().toStdString(); }
    std::string reason() { return sheet()->reasonText->text().toStdString(); }
    std::string problem() { return sheet()->problemText->text().toStdString(); }
    std::string textOf(char bay) { return sheet()->textOf(bay)->text().toStdString(); }
    void name(const QString &text) { QTest::keyClicks(sheet()->nameField, text); }
    static void press(QPushButton *button) { QTest::mouseClick(button, Qt::LeftButton); }

    /// Puts the disk of that port in, and waits until the bay shows it.
    void learn(char bay, const std::string &port)
    {
        move("attach", "dock/1/" + port);
        until([&] { return textOf(bay).find("SN" + port) != std::string::npos; });
    }

    void untilProblem(const std::string &text)
    {
        until([&] { return problem().find(text) != std::string::npos; });
    }

    void learnTwoAndName(const QString &text)
    {
        name(text);
        learn('A', "1");
        learn('B', "2");
    }

    /// Lets each write wait until the test gives the permission.
    void holdBackWrites()
    {
        m_addDefinition = [this](auto &machine, const auto &definition) {
            m_isAsking = true;
            m_permission.acquire();
            return machine.add(definition);
        };
    }

    Json definitions() const
    {
        return Json::parse(m_tree.read("machine.json")).value("definitions", Json::array());
    }

    QComboBox *picker() { return window().myTBDeviceViewController().tbDevicePopup; }

    static constexpr int AtMost = 100;
    std::counting_semaphore<AtMost> m_permission{0};
    std::atomic<bool> m_isAsking{false};
};

} // namespace orvana

#include "ui/QuietComboBox.h"

#include "languages/Languages.h"

#include <QApplication>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace orvana
{

TEST(QuietComboBox, WheelChoosesNothing)
{
    QuietComboBox box;
    box.addTitle("one");
    box.addTitle("two");
    box.show();
    QWheelEvent turn(QPointF(5, 5), box.mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -240), Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&box, &turn);
    EXPECT_EQ(box.currentIndex(), 0);
}

TEST(QuietComboBox, SelectedTitleIsTheBytesThatWereGiven)
{
    QuietComboBox box;
    EXPECT_EQ(box.selectedTitle(), "");
    box.addTitle("x\xFF\n");
    box.setCurrentIndex(0);
    EXPECT_EQ(box.selectedTitle(), "x\xFF\n");
    EXPECT_EQ(box.currentText(), QStringLiteral("x\\xFF\\x0A"));
}

// A combo box in another language paints other words, and still answers with its own.
TEST(QuietComboBox, TitleIsPaintedInTheUsersLanguageAndReadAsItIs)
{
    const auto pictureOf = [](const std::string &title) {
        QuietComboBox box;
        box.resize(300, 30);
        box.addTitle(title);
        EXPECT_EQ(box.selectedTitle(), title);
        EXPECT_EQ(box.currentText().toStdString(), title);
        return box.grab().toImage();
    };
    const WindowLanguage french(QStringLiteral("fr"));
    EXPECT_EQ(pictureOf("None"), pictureOf("Aucun"));
    EXPECT_NE(pictureOf("None"), pictureOf("Nona"));
}

} // namespace orvana

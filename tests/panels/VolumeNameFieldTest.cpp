#include "panels/VolumeNameField.h"

#include "languages/Languages.h"

#include <QtTest/QTest>
#include <gtest/gtest.h>

namespace orvana
{

TEST(VolumeNameField, GivesBackItsBytesUntilTheUserEditsThem)
{
    VolumeNameField field;
    field.setBytes("x\xFF");
    field.setEditing(VolumeNameField::Editing::Allowed);
    EXPECT_EQ(field.bytes(), "x\xFF");
    field.selectAll();
    QTest::keyClicks(&field, QStringLiteral("COPY"));
    EXPECT_EQ(field.bytes(), "COPY");
}

TEST(VolumeNameField, TakesNoKeysWhileItIsALabel)
{
    VolumeNameField field;
    field.setBytes("COPY1");
    field.setEditing(VolumeNameField::Editing::Forbidden);
    QTest::keyClicks(&field, QStringLiteral("x"));
    EXPECT_EQ(field.bytes(), "COPY1");
    EXPECT_EQ(field.focusPolicy(), Qt::NoFocus);
}

TEST(VolumeNameField, FixedNameIsPaintedInTheUsersLanguageAndReadAsItIs)
{
    const auto pictureOf = [](const std::string &name, VolumeNameField::Editing editing) {
        VolumeNameField field;
        field.resize(200, 22);
        field.setEditing(editing);
        field.setBytes(name);
        EXPECT_EQ(field.bytes(), name);
        return field.grab().toImage();
    };
    const WindowLanguage german(QStringLiteral("de"));
    using Editing = VolumeNameField::Editing;
    EXPECT_EQ(pictureOf("Unformatted", Editing::Forbidden), pictureOf("Unformatiert", Editing::Forbidden));
    EXPECT_NE(pictureOf("Unformatted", Editing::Allowed), pictureOf("Untitled", Editing::Allowed));
}

} // namespace orvana

#include "panels/VolumeNameField.h"

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

} // namespace orvana

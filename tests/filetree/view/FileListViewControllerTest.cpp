#include "filetree/view/FileListFixture.h"

#include <QAbstractItemModelTester>

namespace orvana
{

TEST_F(FileListTest, FreshPanelHasOneRowWithoutNameAndBoxAndABlankLabel)
{
    EXPECT_EQ(model().rowCount(), 1);
    EXPECT_EQ(rootIndex().data(Qt::DisplayRole).toString(), QString());
    EXPECT_FALSE(rootIndex().data(Qt::CheckStateRole).isValid());
    EXPECT_FALSE(model().hasChildren(rootIndex()));
    EXPECT_EQ(label(), "");
}

TEST_F(FileListTest, RootRowShowsItsWholePathAndTheOthersTheirNames)
{
    tree.file("A/one");
    showTree();
    EXPECT_EQ(rootIndex().data().toString().toStdString(), tree.root());
    EXPECT_EQ(childNamed(rootIndex(), "A").data().toString(), QStringLiteral("A"));
}

TEST_F(FileListTest, ModelKeepsItsContract)
{
    tree.file("A/one");
    tree.file("A/B/two");
    tree.folder("empty");
    const QAbstractItemModelTester tester(&model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    showTree();
    view().expand(rootIndex());
    const auto a = childNamed(rootIndex(), "A");
    view().expand(a);
    clickBox(a);
    view().collapse(a);
    pressSpaceOn(childNamed(rootIndex(), "empty"));
    showTree();
    waitForCount();
}

TEST_F(FileListTest, ClosedTickedRootCountsTheWholeVolume)
{
    tree.file("A/one", "1");
    tree.file("B/two", "22");
    showTree();
    panel->startCountThread();
    EXPECT_EQ(label(), "2 File(s)     Size : 3.00 Bytes");
}

TEST_F(FileListTest, OpeningTheRootMakesItMixedAndCountsWhatIsClosedAndOn)
{
    tree.file("A/one", "1");
    tree.file("B/two", "22");
    showTree();
    view().expand(rootIndex());
    EXPECT_EQ(stateOf(rootIndex()), FileSystemItem::Mixed);
    EXPECT_EQ(label(), "2 File(s)     Size : 3.00 Bytes");
    clickBox(childNamed(rootIndex(), "A"));
    EXPECT_EQ(label(), "1 File(s)     Size : 2.00 Bytes");
}

TEST_F(FileListTest, OpenFolderCyclesThroughOnMixedOffAndAClosedOneHasTwoStates)
{
    tree.file("A/one");
    showTree();
    view().expand(rootIndex());
    const auto a = childNamed(rootIndex(), "A");
    clickBox(a);
    EXPECT_EQ(stateOf(a), FileSystemItem::Off);
    clickBox(a);
    EXPECT_EQ(stateOf(a), FileSystemItem::On);
    view().expand(a);
    EXPECT_EQ(stateOf(a), FileSystemItem::Mixed);
    clickBox(a);
    EXPECT_EQ(stateOf(a), FileSystemItem::Off);
    clickBox(a);
    EXPECT_EQ(stateOf(a), FileSystemItem::On);
    clickBox(a);
    EXPECT_EQ(stateOf(a), FileSystemItem::Mixed);
    EXPECT_EQ(stateOf(childNamed(a, "one")), FileSystemItem::On) << "mixed is not handed down";
}

TEST_F(FileListTest, ClosedMixedFolderIsTurnedOffByAClick)
{
    tree.folder("empty");
    showTree();
    view().expand(rootIndex());
    const auto empty = childNamed(rootIndex(), "empty");
    OutlineViewDataSource::itemAt(empty)->setChecked(FileSystemItem::Mixed);
    clickBox(empty);
    EXPECT_EQ(stateOf(empty), FileSystemItem::Off);
}

TEST_F(FileListTest, ClosingAFolderClearsItAndAllThatWasBuiltBelow)
{
    tree.file("A/B/one", "1");
    tree.file("A/two", "22");
    showTree();
    view().expand(rootIndex());
    const auto a = childNamed(rootIndex(), "A");
    view().expand(a);
    const auto b = childNamed(a, "B");
    view().expand(b);
    view().collapse(a);
    EXPECT_EQ(stateOf(a), FileSystemItem::Off);
    EXPECT_EQ(stateOf(b), FileSystemItem::Off);
    EXPECT_EQ(stateOf(childNamed(b, "one")), FileSystemItem::Off);
    EXPECT_EQ(label(), "0 File(s)     Size : 0.00 Bytes");
    view().expand(a);
    EXPECT_EQ(stateOf(a), FileSystemItem::Mixed);
    EXPECT_EQ(stateOf(childNamed(a, "two")), FileSystemItem::Off);
    EXPECT_EQ(label(), "0 File(s)     Size : 0.00 Bytes");
}

TEST_F(FileListTest, EmptyFolderBecomesMixedStaysSoWhenClosedAndIsNotCounted)
{
    tree.folder("empty");
    tree.file("one", "1");
    showTree();
    view().expand(rootIndex());
    const auto empty = childNamed(rootIndex(), "empty");
    EXPECT_TRUE(model().hasChildren(empty)) << "every folder can be opened";
    view().expand(empty);
    EXPECT_EQ(stateOf(empty), FileSystemItem::Mixed);
    view().collapse(empty);
    EXPECT_EQ(stateOf(empty), FileSystemItem::Mixed);
    EXPECT_EQ(label(), "1 File(s)     Size : 1.00 Bytes");
    clickBox(empty);
    EXPECT_EQ(stateOf(empty), FileSystemItem::Off);
}

TEST_F(FileListTest, HiddenExtensionIsNeverCountedAndAPackageRowWithoutItsHiddenContents)
{
    const auto song = tree.folder("Song.band");
    const auto inside = tree.file("Song.band/Inside.wav", "12345");
    if (!test::hideExtension(song) || !test::hideExtension(inside))
        GTEST_SKIP() << "no extended attributes in the temporary folder";
    showTree();
    view().expand(rootIndex());
    EXPECT_TRUE(childNamed(rootIndex(), "Song.band").isValid());
    EXPECT_EQ(label(), "0 File(s)     Size : 0.00 Bytes");
}

TEST_F(FileListTest, CountCancelledByANewOpeningLeavesTheNewFiguresAlone)
{
    for (int i = 0; i < 300; ++i)
        tree.file("A/" + std::to_string(i), "12");
    tree.file("B/one", "1");
    showTree();
    panel->startCountThread();
    view().expand(rootIndex());
    clickBox(childNamed(rootIndex(), "A"));
    EXPECT_EQ(label(), "1 File(s)     Size : 1.00 Bytes");
}

TEST_F(FileListTest, OpeningAndClosingTellTheColoursAtOnceAndAtTheEndOfTheCount)
{
    tree.file("one");
    showTree();
    view().expand(rootIndex());
    waitForCount();
    EXPECT_EQ(told, 2);
    view().collapse(rootIndex());
    waitForCount();
    EXPECT_EQ(told, 4);
}

TEST_F(FileListTest, SpaceBarTicksAndCountsLikeAClick)
{
    tree.file("A/one", "1");
    tree.file("B/two", "22");
    showTree();
    view().expand(rootIndex());
    waitForCount();
    pressSpaceOn(childNamed(rootIndex(), "A"));
    EXPECT_EQ(stateOf(childNamed(rootIndex(), "A")), FileSystemItem::Off);
    EXPECT_EQ(label(), "1 File(s)     Size : 2.00 Bytes");
    pressSpaceOn(childNamed(rootIndex(), "A"));
    EXPECT_EQ(label(), "2 File(s)     Size : 3.00 Bytes");
}

TEST_F(FileListTest, ReloadWithTheSameRootKeepsWhatIsOpenAndTicked)
{
    tree.file("A/one");
    showTree();
    view().expand(rootIndex());
    const auto a = childNamed(rootIndex(), "A");
    view().expand(a);
    clickBox(a);
    int resets = 0;
    QObject::connect(&model(), &QAbstractItemModel::modelReset, panel.get(), [&] { ++resets; });
    center.post(notification::OutlineViewItemStateChange);
    EXPECT_EQ(resets, 0);
    EXPECT_TRUE(view().isExpanded(a));
    EXPECT_EQ(stateOf(a), FileSystemItem::Off);
}

TEST_F(FileListTest, AnotherRootStartsClosedAndTicked)
{
    tree.file("A/one");
    showTree();
    view().expand(rootIndex());
    clickBox(childNamed(rootIndex(), "A"));
    showTree();
    EXPECT_FALSE(view().isExpanded(rootIndex()));
    EXPECT_EQ(stateOf(rootIndex()), FileSystemItem::On);
    EXPECT_EQ(panel->rows().size(), 1U);
}

TEST_F(FileListTest, NoKeyOpensTheWholeVolumeAtOnce)
{
    tree.file("A/B/one");
    showTree();
    for (const auto key : {Qt::Key_Asterisk, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Right, Qt::Key_Return,
                           Qt::Key_Enter, Qt::Key_E, Qt::Key_8}) {
        for (const auto modifier :
             {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::KeypadModifier}) {
            view().setCurrentIndex(rootIndex());
            QTest::keyClick(&view(), key, modifier);
        }
    }
    EXPECT_FALSE(view().isExpanded(childNamed(rootIndex(), "A")));
    waitForCount();
}

TEST_F(FileListTest, LabelIsWrittenAtMostTenTimesASecond)
{
    tree.file("A/one", "1");
    showTree();
    panel->startCountThread();
    waitForCount();
    queue.advance(std::chrono::milliseconds(1000));
    panel->itemSizeLabel->setText(QStringLiteral("untouched"));
    for (int i = 0; i < 1000; ++i)
        center.post(notification::FileSizeChange);
    queue.advance(std::chrono::milliseconds(99));
    EXPECT_EQ(panel->itemSizeLabel->text(), QStringLiteral("untouched"));
    queue.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(panel->itemSizeLabel->text(), QStringLiteral("1 File(s)     Size : 1.00 Bytes"));
}

TEST_F(FileListTest, HostileNamesAreShownSafely)
{
    const std::string longest(255, 'n');
    tree.file("two\nlines");
    tree.file("\xff\xfe bytes");
    tree.file("right \xe2\x80\xae to left");
    tree.file("<b>bold");
    tree.file(longest);
    showTree();
    view().expand(rootIndex());
    EXPECT_EQ(childNamed(rootIndex(), "two\nlines").data().toString(), QStringLiteral("two\\x0Alines"));
    EXPECT_EQ(childNamed(rootIndex(), "\xff\xfe bytes").data().toString(),
              QStringLiteral("\\xFF\\xFE bytes"));
    EXPECT_EQ(childNamed(rootIndex(), "right \xe2\x80\xae to left").data().toString(),
              QStringLiteral("right \\xE2\\x80\\xAE to left"));
    EXPECT_FALSE(
        childNamed(rootIndex(), "<b>bold").data(Qt::ToolTipRole).toString().contains(QStringLiteral("<b>")));
    EXPECT_LE(view().visualRect(childNamed(rootIndex(), longest)).height(), 40);
    EXPECT_FALSE(panel->grab().isNull());
    waitForCount();
}

TEST_F(FileListTest, UnreadableFolderLeavesThePanelUsable)
{
    tree.file("A/one", "1");
    tree.file("B/two", "22");
    showTree();
    view().expand(rootIndex());
    waitForCount();
    host.faults().volume(tree.path("A")).gone = true;
    view().expand(childNamed(rootIndex(), "A"));
    clickBox(childNamed(rootIndex(), "B"));
    clickBox(childNamed(rootIndex(), "B"));
    EXPECT_EQ(label(), "1 File(s)     Size : 2.00 Bytes");
}

TEST_F(FileListTest, FilesAndFoldersHaveIconsOfTheirType)
{
    tree.file("A/one");
    tree.file("Poster.png");
    showTree();
    for (const char *name : {"A", "Poster.png"})
        EXPECT_FALSE(childNamed(rootIndex(), name).data(Qt::DecorationRole).value<QIcon>().isNull());
    auto *source = qobject_cast<OutlineViewDataSource *>(&model());
    EXPECT_FALSE(source->thumbForFileType(QStringLiteral("image/png")).isNull());
    EXPECT_FALSE(source->iconForFileType(QStringLiteral("no/such-type")).isNull());
}

TEST_F(FileListTest, ControlsHaveAccessibleNames)
{
    EXPECT_FALSE(view().accessibleName().isEmpty());
    EXPECT_FALSE(panel->itemSizeLabel->accessibleName().isEmpty());
}

} // namespace orvana

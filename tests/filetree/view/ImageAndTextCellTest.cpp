#include "filetree/view/ImageAndTextCell.h"

#include <QImage>
#include <QPainter>
#include <QStandardItemModel>
#include <QTreeView>
#include <gtest/gtest.h>

namespace orvana
{

namespace
{

QPixmap redSquare(int size)
{
    QPixmap image(size, size);
    image.fill(Qt::red);
    return image;
}

QImage painted(const ImageAndTextCell &cell, const QSize &size, const QBrush &background = {})
{
    QStandardItemModel model(1, 1);
    QImage canvas(size, QImage::Format_RGB32);
    canvas.fill(Qt::white);
    QPainter painter(&canvas);
    QStyleOptionViewItem option;
    option.rect = QRect(QPoint(0, 0), size);
    option.backgroundBrush = background;
    cell.paint(&painter, option, model.index(0, 0));
    return canvas;
}

} // namespace

TEST(ImageAndTextCell, ImageStandsThreePointsInAndInTheMiddle)
{
    ImageAndTextCell cell;
    cell.setImage(redSquare(16));
    EXPECT_EQ(cell.imageFrameForCellFrame({10, 100, 200, 21}), QRect(13, 103, 16, 16));
    EXPECT_EQ(cell.textFrameForCellFrame({10, 100, 200, 21}), QRect(29, 100, 181, 21));
}

TEST(ImageAndTextCell, OffsetTellsTopOrBottomByTheDirectionOfTheView)
{
    EXPECT_EQ(ImageAndTextCell::imageOffset(21, 16, ImageAndTextCell::Vertical::Up), 3);
    EXPECT_EQ(ImageAndTextCell::imageOffset(21, 16, ImageAndTextCell::Vertical::Down), 19);
    EXPECT_EQ(ImageAndTextCell::imageOffset(10, 16, ImageAndTextCell::Vertical::Up), -3);
}

TEST(ImageAndTextCell, WithoutAnImageTheTextHasTheWholeCell)
{
    const ImageAndTextCell cell;
    EXPECT_EQ(cell.imageFrameForCellFrame({0, 0, 100, 20}), QRect());
    EXPECT_EQ(cell.textFrameForCellFrame({0, 0, 100, 20}), QRect(0, 0, 100, 20));
}

TEST(ImageAndTextCell, NaturalWidthIsTheTextsAndThreeMoreAndTheImages)
{
    QStandardItemModel model(1, 1);
    model.setData(model.index(0, 0), QStringLiteral("some text"));
    const QStyleOptionViewItem option;
    const auto plain = QStyledItemDelegate().sizeHint(option, model.index(0, 0));
    ImageAndTextCell cell;
    EXPECT_EQ(cell.sizeHint(option, model.index(0, 0)), plain + QSize(3, 0));
    cell.setImage(redSquare(32));
    EXPECT_EQ(cell.sizeHint(option, model.index(0, 0)), plain + QSize(35, 0));
}

TEST(ImageAndTextCell, ImageIsDrawnInItsFrame)
{
    ImageAndTextCell cell;
    cell.setImage(redSquare(16));
    const auto canvas = painted(cell, {100, 21});
    EXPECT_EQ(canvas.pixelColor(3, 3), QColor(Qt::red));
    EXPECT_EQ(canvas.pixelColor(18, 18), QColor(Qt::red));
    EXPECT_EQ(canvas.pixelColor(2, 10), QColor(Qt::white));
    EXPECT_EQ(canvas.pixelColor(10, 19), QColor(Qt::white));
}

TEST(ImageAndTextCell, StripOfTheImageHasTheCellsBackgroundAndNoMore)
{
    ImageAndTextCell cell;
    cell.setImage(redSquare(16));
    const auto plain = painted(cell, {100, 21});
    const auto filled = painted(cell, {100, 21}, Qt::green);
    for (const int x : {0, 2, 18}) {
        EXPECT_EQ(plain.pixelColor(x, 0), QColor(Qt::white));
        EXPECT_EQ(filled.pixelColor(x, 0), QColor(Qt::green)) << x;
        EXPECT_EQ(filled.pixelColor(x, 20), QColor(Qt::green)) << x;
    }
    EXPECT_EQ(filled.pixelColor(10, 10), QColor(Qt::red)) << "the image lies on the background";
    cell.setImage({});
    EXPECT_EQ(cell.textFrameForCellFrame({0, 0, 100, 21}).left(), 0) << "without an image there is no strip";
}

TEST(ImageAndTextCell, CopyHasTheSameImage)
{
    ImageAndTextCell cell;
    cell.setImage(redSquare(16));
    QObject owner;
    EXPECT_EQ(cell.copy(&owner)->image().cacheKey(), cell.image().cacheKey());
}

TEST(ImageAndTextCell, EditorCoversTheTextOnly)
{
    ImageAndTextCell cell;
    cell.setImage(redSquare(16));
    QStandardItemModel model(1, 1);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 200, 20);
    QWidget editor;
    cell.updateEditorGeometry(&editor, option, model.index(0, 0));
    EXPECT_GE(editor.geometry().left(), 19);
}

} // namespace orvana

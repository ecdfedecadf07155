#include "filetree/view/ImageAndTextCell.h"

#include "ui/CoreWords.h"

#include <QPainter>
#include <QWidget>

#include <cmath>

namespace orvana
{

namespace
{

constexpr int Gap = 3;

} // namespace

ImageAndTextCell *ImageAndTextCell::copy(QObject *parent) const
{
    auto *cell = new ImageAndTextCell(parent);
    cell->setImage(m_image);
    return cell;
}

QSize ImageAndTextCell::imageSize() const
{
    return m_image.deviceIndependentSize().toSize();
}

int ImageAndTextCell::imageOffset(int frameHeight, int imageHeight, Vertical vertical)
{
    const int height = vertical == Vertical::Up ? frameHeight - imageHeight : frameHeight + imageHeight;
    return static_cast<int>(std::ceil(height * 0.5));
}

QRect ImageAndTextCell::imageFrameForCellFrame(const QRect &cellFrame) const
{
    if (m_image.isNull())
        return {};
    const int top = imageOffset(cellFrame.height(), imageSize().height(), Vertical::Up);
    return {cellFrame.topLeft() + QPoint(Gap, top), imageSize()};
}

QRect ImageAndTextCell::textFrameForCellFrame(const QRect &cellFrame) const
{
    if (m_image.isNull())
        return cellFrame;
    return cellFrame.adjusted(imageSize().width() + Gap, 0, 0, 0);
}

void ImageAndTextCell::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (!index.parent().isValid())
        option->textElideMode = Qt::ElideLeft; // the end of the root's path is what tells the disk
    else
        option->text = isolated(option->text);
}

void ImageAndTextCell::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const
{
    if (!m_image.isNull()) {
        auto strip = option.rect;
        strip.setRight(textFrameForCellFrame(option.rect).left() - 1);
        if (option.backgroundBrush.style() != Qt::NoBrush)
            painter->fillRect(strip, option.backgroundBrush);
        const int bottom = imageOffset(option.rect.height(), imageSize().height(), Vertical::Down);
        painter->drawPixmap(option.rect.left() + Gap, option.rect.top() + bottom - imageSize().height(),
                            m_image);
    }
    auto text = option;
    text.rect = textFrameForCellFrame(option.rect);
    QStyledItemDelegate::paint(painter, text, index);
}

QSize ImageAndTextCell::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const auto text = QStyledItemDelegate::sizeHint(option, index);
    return {text.width() + Gap + imageSize().width(), text.height()};
}

void ImageAndTextCell::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                            const QModelIndex &index) const
{
    auto text = option;
    text.rect = textFrameForCellFrame(option.rect);
    QStyledItemDelegate::updateEditorGeometry(editor, text, index);
}

} // namespace orvana

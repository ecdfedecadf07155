#pragma once

#include <QPixmap>
#include <QStyledItemDelegate>

namespace orvana
{

/// Draws a row's text, and an image beside it when there is one.
///
/// The image has its own size and stands 3 points from the left edge. The strip before the text is 3 points
/// wider than the image. Without an image a row looks like any other row.
class ImageAndTextCell : public QStyledItemDelegate
{
    Q_OBJECT

public:
    enum class Vertical {
        Up,  ///< y grows upward; an image is placed by its top
        Down ///< y grows downward, as in Qt; an image is placed by its bottom
    };

    explicit ImageAndTextCell(QObject *parent = nullptr) : QStyledItemDelegate(parent) {}

    const QPixmap &image() const { return m_image; }
    void setImage(const QPixmap &image) { m_image = image; }

    /// Returns a new cell with the same image. The caller or `parent` owns the cell.
    ImageAndTextCell *copy(QObject *parent) const;

    /// The distance in points from the frame's top to the image edge by which the image is placed.
    static int imageOffset(int frameHeight, int imageHeight, Vertical vertical);

    /// The rectangle of the image in a cell; empty without an image.
    QRect imageFrameForCellFrame(const QRect &cellFrame) const;

    /// The rest of the cell, for the text and its editor.
    QRect textFrameForCellFrame(const QRect &cellFrame) const;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    QSize imageSize() const;

    QPixmap m_image;
};

} // namespace orvana

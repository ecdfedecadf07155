#pragma once

#include <QPixmap>
#include <QStyledItemDelegate>

namespace orvana
{

/// Draws a row's text, and an image beside it when there is one.
///
/// The image stands in a strip at the left that is 3 points wider than it, 3 points in, at its own size.
/// Without an image a row looks like any other.
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

    /// A cell with the same image. The caller or `parent` owns it.
    ImageAndTextCell *copy(QObject *parent) const;

    /// How far from the frame's top the image's placing edge lies, in points.
    static int imageOffset(int frameHeight, int imageHeight, Vertical vertical);

    /// Where the image appears in a cell; empty without an image.
    QRect imageFrameForCellFrame(const QRect &cellFrame) const;

    /// What is left of the cell for text and its editor.
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

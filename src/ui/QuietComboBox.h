#pragma once

#include <QComboBox>

namespace orvana
{

/// A combo box that ignores the mouse wheel: scrolling past it must not choose a disk. The selected title is
/// the tool tip, unless the box has a tool tip of its own. Titles are painted as `paintedText` returns them;
/// `itemText` always returns the title itself.
class QuietComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit QuietComboBox(QWidget *parent = nullptr);

    /// Appends an item. The bytes of its title are kept beside the shown text.
    void addTitle(const std::string &title, const QIcon &icon = QIcon());

    /// The bytes of the selected item's title; empty when nothing is selected.
    std::string selectedTitle() const;

protected:
    bool event(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};

} // namespace orvana

#pragma once

#include <QComboBox>

namespace orvana
{

/// A combo box that the mouse wheel passes over: turning it on the way down a window must not choose a disk.
/// A title that is longer than the box is its tool tip.
class QuietComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit QuietComboBox(QWidget *parent = nullptr);

    /// Appends an item; the bytes of its title are kept beside what is shown.
    void addTitle(const std::string &title, const QIcon &icon = QIcon());

    /// The bytes of the selected item's title; empty when nothing is selected.
    std::string selectedTitle() const;

protected:
    bool event(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
};

} // namespace orvana

#pragma once

#include <QTreeView>

namespace orvana
{

/// The view of the source tree. The space bar ticks a row and counts as a click on it. No key opens the whole
/// volume at once.
class FileTreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit FileTreeView(QWidget *parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent *event) override;
};

} // namespace orvana

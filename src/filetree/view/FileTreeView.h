#pragma once

#include <QTreeView>

namespace orvana
{

/// The source tree as it is seen. Ticking a row with the space bar counts as clicking it, and no key opens
/// the whole volume at once.
class FileTreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit FileTreeView(QWidget *parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent *event) override;
};

} // namespace orvana

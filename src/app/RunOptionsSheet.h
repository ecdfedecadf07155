#pragma once

#include "duplicate/plan/RunSettings.h"

#include <QDialog>

#include <functional>
#include <vector>

class QCheckBox;

namespace orvana
{

/// Asks for the options of the next run: a box for each of `AllRunSettings`. Deletes itself when it is
/// closed. Main thread only.
class RunOptionsSheet : public QDialog
{
    Q_OBJECT

public:
    /// Calls `accepted` with the chosen options when the user presses OK.
    RunOptionsSheet(const RunSettings &settings, std::function<void(const RunSettings &)> accepted,
                    QWidget *parent);

private:
    RunSettings chosen() const;

    std::vector<QCheckBox *> m_boxes; ///< in the order of `AllRunSettings`
};

} // namespace orvana

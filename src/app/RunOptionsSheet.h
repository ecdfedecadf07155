#pragma once

#include "duplicate/plan/RunSettings.h"

#include <QDialog>

#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;

namespace orvana
{

/// Asks for the options of the next run: a box for each of `AllRunSettings`, and a pop-up for each of
/// `AllListedRunSettings`. Options that do not go together cannot be accepted. Deletes itself when it is
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

    void addList(const ListedRunSetting &setting, const RunSettings &settings, QGridLayout *grid);
    void showConflict();

    std::vector<QCheckBox *> m_boxes; ///< in the order of `AllRunSettings`
    std::vector<QComboBox *> m_lists; ///< in the order of `AllListedRunSettings`
    QLabel *m_conflict;
    QPushButton *m_accept;
};

} // namespace orvana

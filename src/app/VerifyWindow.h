#pragma once

#include "duplicate/evidence/Verification.h"
#include "duplicate/plan/ScannedDevices.h"

#include <QTimer>
#include <QWidget>

#include <memory>
#include <mutex>
#include <string>
#include <vector>

class QCheckBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTableWidget;

namespace orvana
{

/// Verifies disks against the lists on them, long after the run: a row for each disk in a bay, ticked except
/// in bay A, and for each folder that the user adds, and below the rows what was found. Deletes itself when
/// it is closed. Main thread only.
class VerifyWindow : public QWidget
{
    Q_OBJECT

public:
    /// `logFolder` has this machine's copies of manifests.
    VerifyWindow(platform::VolumeFiles &files, std::string logFolder, const std::vector<BayVolume> &disks);

    /// Cancels. A disk that does not answer is left behind.
    ~VerifyWindow() override;

    /// Adds a row for the folder, ticked.
    void addFolder(const std::string &path);

    /// Starts to verify the ticked rows. Does nothing while it is under way.
    void start();
    void cancel();
    /// What was found so far, as the window shows it below the rows.
    QString findings() const;

    bool isUnderWay() const { return m_verification != nullptr; }

private:
    struct Row
    {
        std::string root;
        std::string bay;
    };

    static QString nameOf(const Row &row);
    void addRow(const Row &row);
    void makeTable();
    void askForFolder();
    void look();
    void showProgress(int row, std::size_t disk);
    void showVerdict(int row, std::size_t disk);
    void showFindings();
    void end();
    void updateButtons();
    static QString wordFor(const DiskVerdict &verdict);

    platform::VolumeFiles &m_files;
    const std::string m_logFolder;
    std::vector<Row> m_rows;
    std::vector<int> m_rowsAtWork; // the row of each disk of the verification
    QTableWidget *m_table;
    QPlainTextEdit *m_findings;
    QCheckBox *m_record;
    QLabel *m_hint;
    QPushButton *m_startButton;
    QPushButton *m_addButton;
    QTimer m_timer;

    std::mutex m_mutex;
    QStringList m_newLines; // under the mutex: what the disks' threads have found
    std::vector<std::size_t> m_told;
    std::unique_ptr<Verification> m_verification; // last, so that its threads end first
};

} // namespace orvana

#pragma once

#include "app/ScriptFile.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QTimer>

#include <functional>

namespace orvana
{

class MainWindow;
class OrvanaAppDelegate;

/// Plays a script on the real window, step by step, as a user would. `docs/scripts.md` lists the steps. A
/// step that is not possible yet is tried again and again. If it is still not possible after its time limit,
/// the script ends with an error.
class ScriptRunner : public QObject
{
    Q_OBJECT

public:
    /// `simulatorFile` is the file of the simulated machine that the step "lever" changes; empty without a
    /// simulated machine.
    ScriptRunner(OrvanaAppDelegate &delegate, std::vector<ScriptStep> steps, QString simulatorFile);

    /// Begins with the first step once the event loop runs.
    void start();

Q_SIGNALS:
    /// The script has ended. An empty reason means success. Any other reason names the line, the step and
    /// what went wrong.
    void ended(const QString &reason);

private:
    /// The result of a step: done, not done yet, or failed. The last two give a reason.
    struct Result
    {
        enum class Kind { Done, NotYet, Failed };
        Kind kind = Kind::Done;
        QString reason;
    };
    using Step = std::function<Result(const QStringList &)>;

    static Result done() { return {}; }
    static Result failed(const QString &reason) { return {Result::Kind::Failed, reason}; }
    static Result when(bool isTrue, const QString &otherwise);

    void addChoices();
    void addTreeSteps();
    void addWaits();
    void addBaySetup();
    void addPictures();
    void addStep(const QString &name, int words, Step step);
    void runNext();
    void end(const QString &reason);

    Result chooseEnclosure(const QStringList &words);
    Result chooseSource(const QStringList &words);
    Result click(const QStringList &words);
    Result press(const QStringList &words);
    Result pressBays(const QStringList &words);
    Result typeName(const QStringList &words);
    Result atRow(const QString &path, const std::function<void(const QModelIndex &)> &act);
    Result expectBay(const QStringList &words);
    Result grab(const QStringList &words);
    static Result saveReport(const QString &file);
    Result moveLever(const QStringList &words);

    MainWindow &window() const;

    OrvanaAppDelegate &m_delegate;
    std::vector<ScriptStep> m_steps;
    QString m_simulatorFile;
    struct KnownStep
    {
        int words;
        Step run;
    };
    QHash<QString, KnownStep> m_known;
    std::size_t m_next = 0;
    QTimer m_timer;
    QElapsedTimer m_sinceStep;
    int m_patienceSeconds = 30;
};

} // namespace orvana

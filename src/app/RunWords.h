#pragma once

#include "duplicate/plan/RunOrder.h"
#include "duplicate/plan/RunSettings.h"
#include "duplicate/report/Verdict.h"
#include "duplicate/run/RunMonitor.h"

#include <QCoreApplication>
#include <QStringList>

#include <optional>
#include <string>

namespace orvana
{

/// The words of the window for a run that goes on or has ended, in the user's language.
class RunWords
{
    Q_DECLARE_TR_FUNCTIONS(orvana::RunWords)

public:
    /// "B" for "Slot-B"
    static QString letterOf(const std::string &slot);

    /// "Copying"
    static QString nameOf(RunStage stage);

    /// "1:02 left", or "--:-- left" while it is not known
    static QString timeLeft(std::optional<double> seconds);

    /// "3 failed"
    static QString failed(std::int64_t count);

    /// "\u2713 Verified"
    static QString signAndWord(Verdict verdict);

    /// Says what the verdict goes by: "from the disk", "3 failed".
    static QString detailOf(Verdict verdict, const DestinationSummary &destination);

    /// Says which disk an erase would take what from, as `stakeText` says it in English. `present` is the
    /// name of the disk's volume.
    static QString stake(const DiskAtStake &disk, const std::string &present);

    /// "Eject each disk that holds every file at the end"
    static QString sentenceOf(const RunSetting &setting);

    /// "&Manifest on each copy:"
    static QString titleOf(const ListedRunSetting &setting);

    /// "ASC MHL history"; of an empty value: "None"
    static QString valueOf(const ListedRunSetting &setting, const std::string &value);

    /// The options that are on, in a few words each: "Eject at the end"; empty for none.
    static QString summaryOf(const RunSettings &settings);

    /// Returns the parts that are not empty, side by side.
    static QString joined(QStringList parts);

private:
    static QString content(const DiskContent &content);
    static QString filesIn(const DiskContent &content);
};

} // namespace orvana

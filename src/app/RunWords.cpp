#include "app/RunWords.h"

#include "foundation/SizeText.h"
#include "ui/CoreWords.h"
#include "ui/ShownText.h"

#include <algorithm>
#include <climits>
#include <cstdint>

namespace orvana
{

namespace
{

bool isManifest(const ListedRunSetting &setting)
{
    return std::string_view(setting.key) == "manifest";
}

QString preflightValue(const std::string &value)
{
    if (value == "stop")
        return RunWords::tr("Copy nothing");
    if (value == "leave-out")
        return RunWords::tr("Leave that disk out");
    return value == "go-on" ? RunWords::tr("Copy what can be copied")
                            : RunWords::tr("Do not look beforehand");
}

bool isPreflight(const ListedRunSetting &setting)
{
    return std::string_view(setting.key) == "preflight";
}

bool isKeep(const ListedRunSetting &setting)
{
    return std::string_view(setting.key) == "keep";
}

} // namespace

QString RunWords::letterOf(const std::string &slot)
{
    return QString::fromStdString(slot).last(1);
}

QString RunWords::nameOf(RunStage stage)
{
    switch (stage) {
    case RunStage::Copying:
        return tr("Copying");
    case RunStage::Verifying:
        return tr("Verifying");
    case RunStage::CopyingAndVerifying:
        return tr("Copying and verifying");
    case RunStage::WritingOut:
        return tr("Writing out");
    }
    return {};
}

QString RunWords::timeLeft(std::optional<double> seconds)
{
    return tr("%1 left").arg(QString::fromStdString(durationText(seconds)));
}

QString RunWords::failed(std::int64_t count)
{
    return tr("%n failed", nullptr, static_cast<int>(count));
}

QString RunWords::signAndWord(Verdict verdict)
{
    const auto with = [&](const QString &word) -> QString {
        return QString::fromUtf8(signOf(verdict)) + QChar(u' ') + word;
    };
    switch (verdict) {
    case Verdict::Verified:
        return with(tr("Verified"));
    case Verdict::Complete:
        return with(tr("Complete"));
    case Verdict::Incomplete:
        return with(tr("Not complete"));
    case Verdict::Differs:
        return with(tr("Differs"));
    case Verdict::NotCompared:
        return with(tr("Not compared"));
    case Verdict::NotOnDisk:
        return with(tr("Not certain"));
    case Verdict::NotFinished:
        return with(tr("Not finished"));
    }
    return {};
}

QString RunWords::detailOf(Verdict verdict, const DestinationSummary &destination)
{
    const auto number = [](std::int64_t count) { return static_cast<int>(count); };
    switch (verdict) {
    case Verdict::Verified:
        return tr("from the disk");
    case Verdict::Complete:
        if (destination.durability == Durability::Memory)
            return tr("in memory only");
        if (destination.verified == 0)
            return tr("not verified");
        return destination.verified < destination.copied ? tr("not all verified") : tr("read from memory");
    case Verdict::Incomplete:
        return failed(destination.failed);
    case Verdict::Differs:
        return tr("%n differ", nullptr, number(destination.mismatched));
    case Verdict::NotCompared:
        return tr("%n not compared", nullptr, number(destination.unverified));
    case Verdict::NotOnDisk:
        return tr("not known to be on disk");
    case Verdict::NotFinished:
        return {};
    }
    return {};
}

QString RunWords::content(const DiskContent &content)
{
    const auto size = isolated(QString::fromStdString(sizeText(content.usedBytes)));
    if (content.isBlank)
        return tr("nothing");
    if (!content.isKnown)
        return content.usedBytes > 0 ? tr("%1, and something that is not mounted").arg(size)
                                     : tr("something that is not mounted, or cannot be read");
    const auto files = filesIn(content);
    return content.usedBytes > 0 ? tr("%1 in %2").arg(size, files) : files;
}

// A count of one has a text of its own, so that English needs no plural forms.
QString RunWords::filesIn(const DiskContent &content)
{
    const bool isOne = content.files == 1;
    const auto count = static_cast<int>(std::min<std::uint64_t>(content.files, INT_MAX));
    if (content.isCountComplete)
        return isOne ? tr("1 file") : tr("%n files", nullptr, count);
    return isOne ? tr("at least 1 file") : tr("at least %n files", nullptr, count);
}

QString RunWords::stake(const DiskAtStake &disk, const std::string &present)
{
    const auto &info = disk.erase.info;
    const auto shown = [](const std::string &text) { return isolated(shownText(text)); };
    const auto slot = shown(slotNameOf(disk.erase.bay));
    const auto serial = info.diskSN.empty() ? tr("unknown") : shown(info.diskSN);
    const auto held = content(disk.content);
    if (present == UnformattedDisk || present == NoVolume)
        return tr("%1: %2, serial number %3, holds %4, will be %5")
            .arg(slot, shown(info.diskModule), serial, held, shown(info.diskVolume));
    return tr("%1: %2, serial number %3, now %4, holds %5, will be %6")
        .arg(slot, shown(info.diskModule), serial, shown(present), held, shown(info.diskVolume));
}

QString RunWords::sentenceOf(const RunSetting &setting)
{
    const std::string_view key = setting.key;
    if (key == "resume")
        return tr("Go on with the last run: what it has brought to the disks is not copied again");
    if (key == "update")
        return tr("Compare what is there already with the source, and write only the blocks that differ");
    if (key == "exact")
        return tr("Cut longer files that are there already to the length of their source");
    if (key == "repair")
        return tr("When verifying, write blocks that differ once more");
    if (key == "health")
        return tr("Ask each disk how it is, and leave out one that calls itself failing");
    if (key == "ejectAtEnd")
        return tr("Eject each disk that holds every file at the end");
    return QString::fromLatin1(setting.help);
}

QString RunWords::titleOf(const ListedRunSetting &setting)
{
    if (isKeep(setting))
        return tr("&Keep of the source:");
    if (isPreflight(setting))
        return tr("&Where a disk cannot hold all:");
    return isManifest(setting) ? tr("&Manifest on each copy:") : tr("&Digest of each file:");
}

QString RunWords::valueOf(const ListedRunSetting &setting, const std::string &value)
{
    if (isKeep(setting))
        return value.empty() ? tr("Content alone") : value == "dates" ? tr("Dates") : tr("All it has");
    if (isPreflight(setting))
        return preflightValue(value);
    if (value.empty())
        return tr("None");
    if (!isManifest(setting))
        return QString::fromStdString(value);
    return value == "mhl" ? tr("ASC MHL history") : tr("Checksum file");
}

QString RunWords::summaryOf(const RunSettings &settings)
{
    QStringList parts;
    if (settings.resume)
        parts += tr("Go on with the last run");
    if (settings.manner.update)
        parts += tr("Update");
    else if (settings.manner.exact)
        parts += tr("Exact lengths");
    if (settings.manner.repair)
        parts += tr("Repair");
    if (settings.health)
        parts += tr("Health");
    if (settings.ejectAtEnd)
        parts += tr("Eject at the end");
    for (const auto &setting : AllListedRunSettings) {
        if (const auto value = setting.get(settings); !value.empty())
            parts += valueOf(setting, value);
    }
    return parts.join(QStringLiteral(", "));
}

QString RunWords::joined(QStringList parts)
{
    parts.removeAll(QString());
    return parts.join(QStringLiteral("  "));
}

} // namespace orvana

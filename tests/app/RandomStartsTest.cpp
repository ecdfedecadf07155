// Random things happen, and then Start is pressed with erase on. Whatever happened, the source's disks keep
// every byte. A disk that holds anything is erased only if the question that the user answered named it.
//
// The number of sequences and the first seed come from ORVANA_SEQUENCES and ORVANA_SEED.

#include "app/WindowFixture.h"

#include "filetree/FileSystemItem.h"
#include "platform/hosts/HostFactory.h"

#include <QtTest/QTest>

#include <algorithm>
#include <filesystem>
#include <random>
#include <set>

namespace orvana
{

namespace
{

constexpr int Events = 12;

std::uint64_t numberFrom(const char *variable, std::uint64_t otherwise)
{
    const char *text = std::getenv(variable);
    return text ? std::stoull(text) : otherwise;
}

/// One sequence: a random machine, random events, Start.
class Sequence : public WindowTest
{
public:
    explicit Sequence(std::uint64_t seed) : m_random(seed) {}

    void TestBody() override
    {
        makeMachine();
        m_beforeTool = [this](const Files &words) { judge(words); };
        startWithEnclosure();
        noteSource();
        for (int i = 0; i < Events; ++i) {
            oneEvent();
            noteSource();
        }
        if (m_erased == 0)
            pressStartWithErase();
        judgeSource();
    }

    int erased() const { return m_erased; }
    int asked() const { return m_asked; }
    const std::string &events() const { return m_events; }

private:
    std::size_t pick(std::size_t count)
    {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random);
    }
    bool chance(int percent) { return static_cast<int>(pick(100)) < percent; }

    Json &diskAt(std::size_t number) { return number < 4 ? bay(number) : m_machine["usbDisks"][number - 4]; }

    void makeMachine()
    {
        m_machine["usbDisks"].push_back(m_machine["usbDisks"][0]);
        for (std::size_t number = 0; number < DiskCount; ++number) {
            auto &disk = diskAt(number);
            const auto text = std::to_string(number);
            disk["wwn"] = "disk" + text;
            disk["size"] = chance(40) ? 1'000'000 : 1'000'000 + 1000 * (number + 1);
            if (chance(20))
                disk.erase("serial");
            else
                disk["serial"] = chance(20) ? "SAME" : "S" + text;
            if (number < 4)
                disk["model"] = "Model" + text;
            disk["volumes"] = Json::array();
            const auto volumes = number == 3 && chance(40) ? 0 : 1 + pick(2);
            for (std::size_t v = 0; v < volumes; ++v)
                disk["volumes"].push_back(
                    {{"name", nameOfVolume(number, v)},
                     {"capacity", 400'000},
                     {"mounted", chance(85)},
                     {"content", {{{"path", "token" + text}, {"bytes", chance(85) ? 100 + number : 0}}}}});
            if (volumes == 0)
                disk["formatted"] = false;
        }
    }

    std::string nameOfVolume(std::size_t disk, std::size_t volume)
    {
        return chance(10) ? "Twin" : "V" + std::to_string(disk) + static_cast<char>('a' + volume);
    }

    std::string somePlace()
    {
        const auto number = pick(DiskCount);
        return number < 4 ? std::string("1/") + static_cast<char>('A' + number)
                          : "usb/" + std::to_string(number - 3);
    }

    std::string someVolume()
    {
        const auto machine = Json::parse(m_tree.read("machine.json"));
        std::vector<std::string> names;
        const auto collect = [&](const Json &disks) {
            for (const auto &disk : disks) {
                for (const auto &volume : disk.value("volumes", Json::array()))
                    names.push_back(volume["name"]);
            }
        };
        collect(machine["enclosures"][0]["bays"]);
        collect(machine["usbDisks"]);
        return names.empty() ? "none" : names[pick(names.size())];
    }

    void lever(const char *name, const std::string &target, const std::string &newName = "")
    {
        m_events.append(" ").append(name).append("(").append(target).append(")");
        (void)platform::moveSimulatorLever(m_tree.path("machine.json"), name, target, newName);
    }

    // Swaps two disks between their bays.
    void swapBays()
    {
        auto machine = Json::parse(m_tree.read("machine.json"));
        auto &bays = machine["enclosures"][0]["bays"];
        const auto a = pick(4);
        const auto b = pick(4);
        m_events += " swap" + std::to_string(a) + std::to_string(b);
        std::swap(bays[a]["bay"], bays[b]["bay"]);
        m_tree.file("machine.json", machine.dump());
    }

    void happenOutside()
    {
        switch (pick(6)) {
        case 0:
            return lever("unmount", someVolume());
        case 1:
            return lever("mount", someVolume());
        case 2:
            return lever("rename", someVolume(), "R" + std::to_string(pick(5)));
        case 3:
            return lever("detach", somePlace());
        case 4:
            return lever("attach", somePlace());
        default:
            return swapBays();
        }
    }

    void oneEvent()
    {
        answerSheet();
        switch (pick(10)) {
        case 0:
            return pickSource();
        case 1:
            m_events += " erase";
            return actions().EraseDiskCheckBox->isEnabled() ? setErase(chance(70)) : void();
        case 2:
            return typeSomeName();
        case 3:
            m_events += " wait";
            return pass(std::chrono::milliseconds(100 * pick(8)));
        case 4:
            return chooseEnclosureAgain();
        case 5:
            return pressStartAsAUser();
        case 6:
            return tickSomething();
        default:
            return happenOutside();
        }
    }

    // A user cannot use a control that is disabled.
    void chooseEnclosureAgain()
    {
        if (!window().TBDeviceView->isEnabled())
            return;
        m_events += " enclosure";
        chooseEnclosure(1);
    }

    void pressStartAsAUser()
    {
        if (!actions().StartBtn->isEnabled() || !actions().StartBtn->isVisible())
            return;
        m_events += " start";
        if (title() == "Start") {
            m_agreed.clear();
            m_sourceOfRun = m_source;
            // A cancelled run may still write its last block to the disk that is the source now.
            for (int i = 0; i < 1000 && window().isBusy(); ++i) {
                pass(std::chrono::milliseconds(10));
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
            m_before = m_source ? contentOfDisk(*m_source) : std::set<std::string>();
        }
        pressStart();
    }

    void pickSource()
    {
        auto *popup = slots().SourcePopup;
        if (popup->count() == 0 || !popup->isEnabled())
            return;
        const int item = static_cast<int>(pick(static_cast<std::size_t>(popup->count())));
        m_events += " source" + std::to_string(item);
        popup->setCurrentIndex(item);
        Q_EMIT popup->activated(item);
    }

    void typeSomeName()
    {
        VolumeNameField *fields[] = {slots().SlotAVolume, slots().SlotBVolume, slots().SlotCVolume,
                                     slots().SlotDVolume};
        m_events += " type";
        typeName(fields[pick(4)], chance(20) ? "Twin" : "N" + std::to_string(pick(5)));
    }

    void tickSomething()
    {
        auto *view = files().sourceFileListView;
        const auto root = view->model()->index(0, 0);
        if (!root.isValid() || !view->isEnabled())
            return;
        m_events += " tick";
        view->setCurrentIndex(root);
        QTest::keyClick(view, Qt::Key_Space);
    }

    void answerSheet()
    {
        const auto message = sheetMessage();
        if (message.empty())
            return;
        if (message == "Erase") {
            ++m_asked;
            m_events += " asked";
            m_agreed = sheetText();
            if (chance(50))
                happenOutside(); // while the question stands
            pressSheet(chance(80) ? "Erase" : "Cancel");
            return;
        }
        auto buttons = window().sheets().current()->buttons();
        buttons[static_cast<qsizetype>(pick(static_cast<std::size_t>(buttons.size())))]->click();
    }

    void pressStartWithErase()
    {
        m_events += " | Start";
        for (int i = 0; i < 100 && (window().isBusy() || !sheetMessage().empty()); ++i) {
            answerSheet();
            pass(std::chrono::milliseconds(50));
        }
        if (window().layoutState() != 1 && chance(50)) {
            chooseEnclosureAgain();
            noteSource();
        }
        setErase(true);
        noteSource();
        pressStartAsAUser();
        for (int i = 0; i < 100; ++i) {
            const auto message = sheetMessage();
            if (message == "Erase") {
                ++m_asked;
                m_agreed = sheetText();
                pressSheet("Erase");
            } else if (!message.empty()) {
                answerSheet();
            }
            pass(std::chrono::milliseconds(50));
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            if (!window().isBusy() && sheetMessage().empty() && i > 6)
                return;
        }
    }

    std::string placeOfVolume(std::size_t disk, std::size_t volume) const
    {
        const auto key = (disk < 4 ? "-enclosures-0-bays-" + std::to_string(disk)
                                   : "-usbDisks-" + std::to_string(disk - 4)) +
                         "-volumes-" + std::to_string(volume);
        const auto mounted = "machine.json.volumes/Mounted/" + key;
        if (!m_tree.exists(mounted))
            return m_tree.path("machine.json.volumes/Store/" + key);
        auto name = m_tree.read(mounted);
        name.pop_back();
        return m_tree.path("machine.json.volumes/Volumes/" + name);
    }

    /// Returns path and content of every file on the disk's volumes. A volume is filled when it is first
    /// mounted.
    std::set<std::string> contentOfDisk(std::size_t disk) const
    {
        std::set<std::string> content;
        for (std::size_t volume = 0; volume < 2; ++volume) {
            const auto place = placeOfVolume(disk, volume);
            if (!std::filesystem::is_directory(place))
                continue;
            for (const auto &name : test::treeOf(place)) {
                if (std::filesystem::is_regular_file(place + "/" + name))
                    content.insert(std::to_string(volume) + "/" + name + "=" +
                                   test::contentOf(place + "/" + name));
            }
        }
        return content;
    }

    // Returns the disk whose volume the tree shows. It is found by the file that each of its volumes holds.
    void noteSource()
    {
        if (FileSystemItem::repoRoot() == m_rootObject || FileSystemItem::repoRoot()->empty())
            return;
        m_rootObject = FileSystemItem::repoRoot();
        const auto &root = *m_rootObject;
        m_source.reset();
        for (std::size_t disk = 0; disk < DiskCount; ++disk) {
            for (std::size_t volume = 0; volume < 2; ++volume) {
                std::error_code error;
                if (std::filesystem::equivalent(placeOfVolume(disk, volume), root, error))
                    m_source = disk;
            }
        }
    }

    std::optional<std::size_t> diskOfNode(const std::string &node)
    {
        for (const auto &enclosure : window().ScanDevice().tbArray()) {
            for (const auto &disk : enclosure->hddArray()) {
                if (disk->devPath() == node && disk->wwn())
                    return static_cast<std::size_t>(disk->wwn()->back() - '0');
            }
        }
        return std::nullopt;
    }

    // Called right before each command of the disk utility.
    void judge(const Files &words)
    {
        if (words.empty() || words[0] != "eraseDisk")
            return;
        ++m_erased;
        const auto disk = diskOfNode(words.back());
        ASSERT_TRUE(disk) << m_events;
        EXPECT_NE(disk, m_sourceOfRun) << "the source's disk is erased:" << m_events;
        if (contentOfDisk(*disk).empty())
            return;
        EXPECT_NE(m_agreed.find("Model" + std::to_string(*disk)), std::string::npos)
            << "disk " << *disk << " was not asked about:" << m_events << "\nquestion: " << m_agreed;
    }

    void judgeSource()
    {
        const auto now = m_sourceOfRun ? contentOfDisk(*m_sourceOfRun) : std::set<std::string>();
        EXPECT_TRUE(std::includes(now.begin(), now.end(), m_before.begin(), m_before.end()))
            << "the source's disk lost something:" << m_events;
    }

    static constexpr std::size_t DiskCount = 6;

    std::mt19937_64 m_random;
    std::string m_events, m_agreed;
    std::set<std::string> m_before;
    PathObject m_rootObject;
    std::optional<std::size_t> m_source;      // of the tree that is shown
    std::optional<std::size_t> m_sourceOfRun; // when Start was pressed
    int m_erased = 0;
    int m_asked = 0;
};

} // namespace

TEST(RandomStarts, EraseNeitherTheSourceNorWhatWasNotAskedAbout)
{
    const auto count = numberFrom("ORVANA_SEQUENCES", 150);
    const auto first = numberFrom("ORVANA_SEED", 1);
    int erased = 0;
    int asked = 0;
    for (std::uint64_t seed = first; seed < first + count && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Sequence sequence(seed);
        sequence.TestBody();
        erased += sequence.erased();
        asked += sequence.asked();
    }
    std::printf("%llu sequences, %d questions, %d disks erased\n", static_cast<unsigned long long>(count),
                asked, erased);
    EXPECT_GT(erased, 0) << "a test in which nothing is ever erased shows nothing";
}

} // namespace orvana

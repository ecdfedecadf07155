// Erases that need the user's answer, and changes to the disk while the question is open.

#include "diskutil/DiskUsers.h"
#include "diskutil/RealDisks.h"

#include <chrono>
#include <future>
#include <thread>

namespace orvana::test
{

class PlayedAuthorityAsks : public RealDisks
{
protected:
    bool isRightSystem() const override { return hasPlayedAuthority(); }

    /// The authority asks for the right over the system's disks. Images count as such disks.
    void SetUp() override
    {
        RealDisks::SetUp();
        if (IsSkipped())
            return;
        allowOnly({"open-device-system", "filesystem-mount-system"});
        askFor({"modify-device-system"}, Answers::WhenGiven);
    }

    std::future<Said> startErase(const ImageDisk &disk)
    {
        auto said = std::async(std::launch::async, [&] { return erase(disk, "COPY", "JHFS+", "nobody"); });
        for (int i = 0; i < 600 && !doesQuestionStand(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        EXPECT_TRUE(doesQuestionStand());
        EXPECT_FALSE(doesServiceAsk()) << "it would go on when the answer comes, whatever is there by then";
        return said;
    }
};

TEST_F(PlayedAuthorityAsks, GrantedRightErasesTheDisk)
{
    const auto disk = addDisk();
    auto erased = startErase(*disk);
    answerQuestions(true);
    const auto said = erased.get();
    EXPECT_EQ(said.status, 0) << said.text;
    EXPECT_EQ(disk->label(), "COPY");
}

TEST_F(PlayedAuthorityAsks, DeniedRightChangesNothing)
{
    const auto disk = addDisk();
    const auto before = disk->digest();
    auto erased = startErase(*disk);
    answerQuestions(false);
    const auto said = erased.get();
    EXPECT_EQ(said.status, 3);
    EXPECT_NE(said.text.find("you are not authorised to do this"), std::string::npos) << said.text;
    EXPECT_EQ(disk->digest(), before);
}

TEST_F(PlayedAuthorityAsks, DiskThatTakesThePlaceWhileTheQuestionStandsKeepsEveryByte)
{
    addDisk("other");
    const auto other = m_tree.path("bays/other");
    const auto before = must("sha256sum < " + asWord(other));
    const auto disk = addDisk();
    auto erased = startErase(*disk);
    disk->attach(other);
    answerQuestions(true);
    const auto said = erased.get();
    EXPECT_EQ(said.status, 3) << said.text;
    EXPECT_NE(said.text.find("is not the disk that was meant"), std::string::npos) << said.text;
    EXPECT_EQ(must("sync; sha256sum < " + asWord(other)), before);
}

TEST_F(PlayedAuthorityAsks, VolumeThatIsMountedWhileTheQuestionStandsKeepsEveryByte)
{
    const auto disk = addDisk();
    auto erased = startErase(*disk);
    disk->mount(m_tree.folder("here"));
    answerQuestions(true);
    const auto said = erased.get();
    EXPECT_EQ(said.status, 3) << said.text;
    EXPECT_EQ(disk->mountPoint(), m_tree.path("here"));
    EXPECT_EQ(disk->label(), "OLD");
}

TEST_F(PlayedAuthorityAsks, DiskThatSomebodyElseMountsWhileTheQuestionStandsKeepsEveryByte)
{
    const auto disk = addDisk();
    auto erased = startErase(*disk);
    const ForeignMount elsewhere(disk->partition(), m_tree.folder("here"));
    const auto before = disk->digest();
    answerQuestions(true);
    const auto said = erased.get();
    EXPECT_EQ(said.status, 3) << said.text;
    EXPECT_NE(said.text.find("is in use by another program"), std::string::npos) << said.text;
    EXPECT_EQ(disk->digest(), before);
}

TEST_F(PlayedAuthorityAsks, AnswerThatComesWhenNobodyWaitsAnyMoreErasesNothing)
{
    const auto disk = addDisk();
    auto erased = startErase(*disk);
    must("pkill -KILL -u nobody -f image-disk-utility"); // there is no other on this system
    erased.get();
    answerQuestions(true);
    must("udevadm settle --timeout=30");
    EXPECT_EQ(disk->label(), "OLD");
}

} // namespace orvana::test

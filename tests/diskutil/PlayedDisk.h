#pragma once

#include "diskutil/DiskOperations.h"
#include "diskutil/PlayedRawDisk.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <unistd.h>

namespace orvana::diskutil
{

/// Notes what it is asked to do; `failing` names the calls that fail, with their status.
class PlayedService final : public DiskService
{
public:
    explicit PlayedService(std::optional<DiskFacts> &disk) : m_disk(disk) {}

    Outcome<void> checkFormat(const VolumeFormat &format) override
    {
        return note(std::string("checkFormat ") + format.type);
    }
    Outcome<void> unmount(const std::string &node) override
    {
        const auto done = note("unmount " + node);
        if (done && m_disk && staysMounted != node)
            m_disk->mounted.pop_back();
        return done;
    }
    Outcome<void> checkNobodyHas(const std::string &node, Password password) override
    {
        const auto done =
            note((password == Password::IsAskedFor ? "checkNobodyHas " : "checkWithoutAsking ") + node);
        afterCheck();
        return done;
    }
    Outcome<std::unique_ptr<RawDisk>> openAlone(const std::string &node) override
    {
        if (auto done = note("openAlone " + node); !done)
            return tl::unexpected(done.error());
        afterOpen();
        return std::make_unique<BorrowedRawDisk>(rawDisk);
    }
    std::vector<std::string> rightsToChange(const std::string &) override { return {"first", "second"}; }
    Outcome<void> askFor(const std::string &right) override
    {
        const auto done = note("askFor " + right);
        whileAsked();
        return done;
    }
    Outcome<void> makeTable(const std::string &node) override
    {
        auto done = note("makeTable " + node);
        if (missingRights > 0) {
            --missingRights;
            done = tl::unexpected(Trouble{Refused, "a right is missing", true});
        }
        afterTable();
        return done;
    }
    Outcome<std::string> makeVolume(const std::string &node, const VolumeFormat &format,
                                    const std::string &name) override
    {
        const auto done = note("makeVolume " + node + " " + format.type + " " + name);
        return done.map([&] { return node + "1"; });
    }
    Outcome<std::string> mount(const std::string &node) override
    {
        return note("mount " + node).map([] { return std::string("/media/anna/COPY 11"); });
    }
    Outcome<void> release(const std::string &node) override { return note("release " + node); }

    /// True when a byte of the disk may have been written.
    bool hasWritten() const
    {
        return std::any_of(calls.begin(), calls.end(), [](const std::string &call) {
            return call.starts_with("makeTable") || call.starts_with("makeVolume");
        });
    }

    std::vector<std::string> calls;
    std::map<std::string, ExitStatus> failing;
    std::string staysMounted;
    std::function<void()> afterCheck = [] {};
    std::function<void()> afterTable = [] {};
    std::function<void()> whileAsked = [] {};
    std::function<void()> afterOpen = [] {};
    PlayedRawDisk rawDisk{512'000};
    int missingRights = 0; ///< how many times the table is refused

private:
    Outcome<void> note(const std::string &call)
    {
        calls.push_back(call);
        const auto found = failing.find(call.substr(0, call.find(' ')));
        return found == failing.end() ? Outcome<void>() : trouble(found->second, "played trouble");
    }

    std::optional<DiskFacts> &m_disk;
};

/// A disk in a bay that may be erased until a test says otherwise, and the service that would erase it.
class DiskUtility : public testing::Test
{
protected:
    DiskUtility()
    {
        DiskFacts facts;
        facts.isWholeDisk = true;
        facts.identity = {.sequence = 7, .serial = "SN1", .blocks = 1000, .place = "uid/00.0/0"};
        facts.isInBay = true;
        facts.isRootKnown = true;
        facts.isExamined = true;
        m_disk = facts;
        m_request.verb = Verb::EraseDisk;
        m_request.format = "JHFS+";
        m_request.name = "COPY 1";
        m_request.node = "/dev/sdb";
        m_request.expected = {.sequence = 7, .serial = "SN1", .size = 512'000, .bay = "uid/00.0/0"};
    }

    Outcome<std::string> erase() { return eraseDisk(m_request, surroundings()); }
    Outcome<std::string> eject() { return ejectDisk(m_request, surroundings()); }

    Surroundings surroundings()
    {
        return {[this](const std::string &) { return m_disk; },
                m_service,
                [this](const std::string &) { return m_users; },
                [this](const std::string &point) {
                    m_writtenOut.push_back(point);
                    return m_writeOut;
                },
                [this](const std::string &) { return m_isMountable; },
                m_setting,
                hold};
    }

    /// Holds a disk with a number of this process's own, because several tests run at once.
    static Outcome<std::shared_ptr<void>> hold(std::uint64_t sequence)
    {
        return holdDisk(static_cast<std::uint64_t>(::getpid()) * 1000 + sequence);
    }

    /// Expects that the erase is refused for the reason, and that the service got no request.
    void expectRefusal(const std::string &reason)
    {
        const auto done = erase();
        ASSERT_FALSE(done);
        EXPECT_EQ(done.error().status, Refused);
        EXPECT_EQ(done.error().reason, reason);
        EXPECT_TRUE(m_service.calls.empty());
    }

    std::optional<DiskFacts> m_disk;
    PlayedService m_service{m_disk};
    Request m_request;
    std::vector<std::string> m_users;
    std::vector<std::string> m_writtenOut;
    Outcome<void> m_writeOut;
    bool m_isMountable = true;
    std::optional<std::string> m_setting;
};

} // namespace orvana::diskutil

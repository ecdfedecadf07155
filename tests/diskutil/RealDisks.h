#pragma once

#include "diskutil/ImageDisk.h"
#include "diskutil/PrivateSystem.h"
#include "support/StoppedClock.h"
#include "support/TemporaryTree.h"

#include <gtest/gtest.h>
#include <memory>

namespace orvana::test
{

/// The disk utility on real disks, which are images on loop devices. It uses the real disk service on a
/// system of the test's own.
class RealDisks : public testing::Test
{
protected:
    void SetUp() override;

    virtual bool isRightSystem() const { return !hasPlayedAuthority() && !hasNoDiskService(); }

    /// Adds an empty image as a disk in a bay.
    std::unique_ptr<ImageDisk> addBlankDisk(int megabytes = 64, const std::string &name = "disk");

    /// Adds an image with a partition table and one volume as a disk in a bay.
    std::unique_ptr<ImageDisk> addDisk(const std::string &name = "disk");

    /// Calls the utility for a disk with the expectations for it; as the user `as` if one is named.
    Said erase(const ImageDisk &disk, const std::string &name, const std::string &format = "JHFS+",
               const std::string &as = {});
    Said eject(const ImageDisk &disk, const std::string &as = {});
    Said diskUtility(std::vector<std::string> words, const std::vector<std::string> &expectations,
                     const std::string &as = {});

    /// Expects that an erase is refused for the reason, and that no byte of the disk has changed.
    void expectRefusal(const ImageDisk &disk, const std::string &reason, const std::string &name = "COPY 1",
                       const std::string &format = "JHFS+");

    /// Expects that the engine copies two files to the disk's volume and verifies them.
    void expectCopyGoesTo(const ImageDisk &disk);

    TemporaryTree m_tree;
    StoppedClock m_clock;
};

/// The word that tells the utility never to touch the disk.
std::string sparingWord(const ImageDisk &disk);

/// Tests as a user other than root. An authority that the test plays decides about permissions.
class PlayedAuthority : public RealDisks
{
protected:
    bool isRightSystem() const override { return hasPlayedAuthority(); }
};

} // namespace orvana::test

#pragma once

#include "diskutil/ImageDisk.h"
#include "diskutil/PrivateSystem.h"
#include "support/StoppedClock.h"
#include "support/TemporaryTree.h"

#include <gtest/gtest.h>
#include <memory>

namespace orvana::test
{

/// The disk utility on real disks, images on loop devices, by way of the real disk service on a system of its
/// own.
class RealDisks : public testing::Test
{
protected:
    void SetUp() override;

    virtual bool isRightSystem() const { return !hasPlayedAuthority() && !hasNoDiskService(); }

    /// A disk of an image in a bay, with nothing on it.
    std::unique_ptr<ImageDisk> addBlankDisk(int megabytes = 64, const std::string &name = "disk");

    /// The same with a partition table and one volume.
    std::unique_ptr<ImageDisk> addDisk(const std::string &name = "disk");

    /// Calls the utility for a disk, with what is known of it; as another user where one is named.
    Said erase(const ImageDisk &disk, const std::string &name, const std::string &format = "JHFS+",
               const std::string &as = {});
    Said eject(const ImageDisk &disk, const std::string &as = {});
    Said diskUtility(std::vector<std::string> words, const std::vector<std::string> &expectations,
                     const std::string &as = {});

    /// An erase is refused for the reason, and every byte of the disk is what it was.
    void expectRefusal(const ImageDisk &disk, const std::string &reason, const std::string &name = "COPY 1",
                       const std::string &format = "JHFS+");

    /// The engine copies two files to the disk's volume and verifies them, and they are there.
    void expectCopyGoesTo(const ImageDisk &disk);

    TemporaryTree m_tree;
    StoppedClock m_clock;
};

/// The word that tells the utility never to touch the disk.
std::string sparingWord(const ImageDisk &disk);

/// The same as another user than root, where an authority decides that the test plays.
class PlayedAuthority : public RealDisks
{
protected:
    bool isRightSystem() const override { return hasPlayedAuthority(); }
};

} // namespace orvana::test

#pragma once

// The promises that every disk utility keeps. A back end takes part with a type that has a disk in a bay, and
// a volume on that disk. The type has the members `missing`, `run`, `device`, `noDevice`, `spare`,
// `takeInUse`, `mountedVolumes` and `filesOn`.

#include "support/Shell.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace orvana::platform
{

template <class Backend>
class DiskUtilityContract : public testing::Test
{
protected:
    using Names = std::vector<std::string>;

    void SetUp() override
    {
        if (const auto *missing = Backend::missing())
            GTEST_SKIP() << missing;
        m_backend = std::make_unique<Backend>();
    }

    test::Said erase(const std::string &name)
    {
        return m_backend->run({"eraseDisk", "JHFS+", name, m_backend->device()});
    }
    test::Said eject() { return m_backend->run({"eject", m_backend->device()}); }

    /// Expects that erase and eject are refused, and that the disk keeps its volume and the volume's files.
    void expectRefusals()
    {
        for (const auto &said : {erase("NEW"), eject()}) {
            EXPECT_EQ(said.status, 3) << said.text;
            EXPECT_FALSE(said.text.empty()) << "the reason is told";
        }
        EXPECT_EQ(m_backend->mountedVolumes(), Names{"OLD"});
        EXPECT_EQ(m_backend->filesOn("OLD"), Names{"file"});
    }

    std::unique_ptr<Backend> m_backend;
};

TYPED_TEST_SUITE_P(DiskUtilityContract);

TYPED_TEST_P(DiskUtilityContract, ErasedDiskHoldsOneEmptyMountedVolumeOfThatName)
{
    const auto said = this->erase("NEW ONE");
    EXPECT_EQ(said.status, 0) << said.text;
    EXPECT_EQ(this->m_backend->mountedVolumes(), std::vector<std::string>{"NEW ONE"});
    EXPECT_EQ(this->m_backend->filesOn("NEW ONE"), std::vector<std::string>());
}

TYPED_TEST_P(DiskUtilityContract, EjectedDiskHasNoMountedVolumeAndCanBeErasedWhereItIs)
{
    const auto ejected = this->eject();
    EXPECT_EQ(ejected.status, 0) << ejected.text;
    EXPECT_EQ(this->m_backend->mountedVolumes(), std::vector<std::string>());
    const auto erased = this->erase("AGAIN");
    EXPECT_EQ(erased.status, 0) << erased.text;
    EXPECT_EQ(this->m_backend->mountedVolumes(), std::vector<std::string>{"AGAIN"});
}

TYPED_TEST_P(DiskUtilityContract, SparedDiskIsLeftAlone)
{
    this->m_backend->spare();
    this->expectRefusals();
}

TYPED_TEST_P(DiskUtilityContract, DiskInUseIsLeftAlone)
{
    this->m_backend->takeInUse();
    this->expectRefusals();
}

TYPED_TEST_P(DiskUtilityContract, DiskThatIsNotThereIsTold)
{
    const auto device = this->m_backend->noDevice();
    for (const auto &said : {this->m_backend->run({"eraseDisk", "JHFS+", "NEW", device}),
                             this->m_backend->run({"eject", device})}) {
        EXPECT_EQ(said.status, 4) << said.text;
        EXPECT_NE(said.text.find(device), std::string::npos) << said.text;
    }
}

TYPED_TEST_P(DiskUtilityContract, WordsThatAreNoCommandTouchNothing)
{
    for (const auto &words : {std::vector<std::string>{"wipe", this->m_backend->device()},
                              {"eraseDisk", this->m_backend->device()}}) {
        const auto said = this->m_backend->run(words);
        EXPECT_EQ(said.status, 2) << said.text;
    }
    EXPECT_EQ(this->m_backend->filesOn("OLD"), std::vector<std::string>{"file"});
}

REGISTER_TYPED_TEST_SUITE_P(DiskUtilityContract, ErasedDiskHoldsOneEmptyMountedVolumeOfThatName,
                            EjectedDiskHasNoMountedVolumeAndCanBeErasedWhereItIs, SparedDiskIsLeftAlone,
                            DiskInUseIsLeftAlone, DiskThatIsNotThereIsTold,
                            WordsThatAreNoCommandTouchNothing);

} // namespace orvana::platform

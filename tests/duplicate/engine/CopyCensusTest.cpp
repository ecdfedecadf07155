#include "duplicate/engine/CopyCensus.h"
#include "duplicate/engine/EngineFixture.h"

namespace orvana
{

class CopyCensusTest : public test::EngineTest
{
protected:
    CopyCensus census(const std::vector<std::string> &items)
    {
        CopyJob job;
        for (const auto &item : items)
            job.SrcFileArray.push_back(source(item));
        return takeCensus(m_host, job, [] { return false; });
    }
};

TEST_F(CopyCensusTest, CountsWhatTheRunWillCopy)
{
    m_tree.file("source/docs/one", "12345");
    m_tree.file("source/docs/.hidden", "12");
    m_tree.file("source/docs/sub/two", "123");
    m_tree.file("source/docs/sub/.dot/three", "1");
    m_tree.file("source/docs/sub/Temporary Items/left out", "1234567");
    m_tree.link("source/docs/sub/link", "two");
    m_tree.link("source/docs/link", "sub");
    const auto counted = census({"docs"});
    runJob({"docs"}, {"a"}, counted.files);
    EXPECT_EQ(counted.files, report()["filesStarted"]);
    EXPECT_EQ(counted.bytes, report()["sourceBytes"]);
}

TEST_F(CopyCensusTest, EndsEarlyWhenCancelled)
{
    for (int i = 0; i < 10; ++i)
        m_tree.file("source/docs/f" + std::to_string(i));
    CopyJob job;
    job.SrcFileArray = {source("docs")};
    int asked = 0;
    EXPECT_LT(takeCensus(m_host, job, [&] { return ++asked > 3; }).files, 10);
}

} // namespace orvana

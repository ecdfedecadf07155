#include "cli/CopyPlan.h"

#include "support/TemporaryTree.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

namespace orvana::cli
{

class CopyPlan : public testing::Test
{
protected:
    CopyPlan()
    {
        m_tree.file("source/one.txt");
        m_tree.file("source/docs/two.txt");
        m_tree.folder("a");
        m_tree.folder("b");
    }

    tl::expected<CopyJob, Refusal> plan(const std::vector<std::string> &sources,
                                        const std::vector<std::string> &destinations,
                                        const std::optional<std::string> &root = std::nullopt)
    {
        CopyOptions options;
        for (const auto &source : sources)
            options.sources.push_back(source.starts_with('/') ? source : m_tree.path(source));
        for (const auto &destination : destinations)
            options.destinations.push_back(m_tree.path(destination));
        if (root)
            options.root = root->starts_with('/') ? *root : m_tree.path(*root);
        return planCopy(m_host, options);
    }

    /// The refusal as "status path: reason", with the tree's own path cut out.
    std::string refusal(const tl::expected<CopyJob, Refusal> &planned) const
    {
        if (planned)
            return "no refusal";
        auto text = planned.error().reason;
        for (auto at = text.find(m_tree.root()); at != std::string::npos; at = text.find(m_tree.root()))
            text.replace(at, m_tree.root().size() + 1, "");
        return std::to_string(planned.error().status) + " " + text;
    }

    test::TemporaryTree m_tree;
    test::TestHost m_host{m_tree.path("home")};
};

TEST_F(CopyPlan, RootIsTheParentThatAllSourcesShare)
{
    const auto job = plan({"source/one.txt", "source/docs/"}, {"a", "b"});
    ASSERT_TRUE(job) << refusal(job);
    EXPECT_EQ(job->SrcDiskPath, m_tree.path("source"));
    EXPECT_EQ(job->SrcFileArray, (std::vector{m_tree.path("source/one.txt"), m_tree.path("source/docs")}));
    EXPECT_EQ(job->DesFileArray, (std::vector{m_tree.path("a"), m_tree.path("b")}));
}

TEST_F(CopyPlan, SourceThatIsTheRootCopiesItsContent)
{
    const auto job = plan({"source"}, {"a"}, "source/./docs/..");
    ASSERT_TRUE(job) << refusal(job);
    EXPECT_EQ(job->SrcDiskPath, job->SrcFileArray.front());
}

TEST_F(CopyPlan, RefusesWhatIsNotThere)
{
    EXPECT_EQ(refusal(plan({"source/gone"}, {"a"})), "4 source/gone: no such file or folder");
    EXPECT_EQ(refusal(plan({"source"}, {"c"})), "4 c: no such folder");
    EXPECT_EQ(refusal(plan({"source"}, {"source/one.txt"})), "4 source/one.txt: not a folder");
    EXPECT_EQ(refusal(plan({"source"}, {"a"}, "gone")), "2 source: does not lie below the root gone");
}

TEST_F(CopyPlan, RefusesWrongUsage)
{
    EXPECT_EQ(refusal(plan({}, {"a"})), "2 no source given");
    EXPECT_EQ(refusal(plan({"source"}, {})), "2 no destination given; name one or more with --to");
    EXPECT_EQ(refusal(plan({"source/one.txt", "a"}, {"b"})),
              "2 a: does not lie in source like the others; name a common root with --root");
}

TEST_F(CopyPlan, RefusesTheSameDestinationTwiceByWhateverPath)
{
    EXPECT_EQ(refusal(plan({"source"}, {"a", "b", "a"})), "2 a: the same destination as a");
    m_tree.link("alias", "a");
    EXPECT_EQ(refusal(plan({"source"}, {"a", "alias"})), "2 alias: the same destination as a");
}

TEST_F(CopyPlan, RefusesADestinationInAnother)
{
    m_tree.folder("a/inner");
    EXPECT_EQ(refusal(plan({"source"}, {"a", "a/inner"})), "2 a/inner: lies in the destination a");
}

TEST_F(CopyPlan, RefusesEmptyTexts)
{
    CopyOptions options;
    options.sources = {""};
    options.destinations = {m_tree.path("a")};
    EXPECT_EQ(planCopy(m_host, options).error().reason, "an empty text is no source");
    options.sources = {m_tree.path("source")};
    options.destinations = {""};
    EXPECT_EQ(planCopy(m_host, options).error().reason, "an empty text is no destination");
}

TEST_F(CopyPlan, RefusesADestinationInASource)
{
    m_tree.folder("source/docs/deep/copies");
    EXPECT_EQ(refusal(plan({"source"}, {"source/docs/deep/copies"})),
              "2 source/docs/deep/copies: lies in the source source");
    EXPECT_EQ(refusal(plan({"source/docs"}, {"source/docs"})),
              "2 source/docs: lies in the source source/docs");
    m_tree.link("alias", "source/docs/deep");
    EXPECT_EQ(refusal(plan({"source"}, {"alias"})), "2 alias: lies in the source source");
    EXPECT_EQ(refusal(plan({"source/one.txt"}, {"source"})), "2 source: is the source itself");
}

TEST_F(CopyPlan, RefusesTheFileSystemsRootAsRoot)
{
    const std::string reason =
        "2 /: cannot be the root of a copy; name a folder above the sources with --root";
    EXPECT_EQ(refusal(plan({"source"}, {"a"}, "/")), reason);
    EXPECT_EQ(refusal(plan({"/etc"}, {"a"})), reason);
    EXPECT_EQ(refusal(plan({"/"}, {"a"})), reason);
}

TEST_F(CopyPlan, RefusalShowsHostileNamesEscaped)
{
    EXPECT_EQ(refusal(plan({"source/x\n\xFF"}, {"a"})), "4 source/x\\x0A\\xFF: no such file or folder");
}

} // namespace orvana::cli

#include "version/view/WebFetch.h"

#include "support/LoopbackServer.h"

#include <QTimer>
#include <gtest/gtest.h>

namespace orvana
{

using test::LoopbackServer;

namespace
{

std::optional<std::string> fetch(const std::string &address)
{
    return fetchFromWeb(QUrl(QString::fromStdString(address)));
}

std::optional<std::string> fetchAnswer(const std::string &answer)
{
    const LoopbackServer server([&](const std::string &) { return answer; });
    return fetch(server.address() + "/pl/version.txt");
}

std::string redirectTo(const std::string &address)
{
    return "HTTP/1.1 302 Found\r\nLocation: " + address +
           "\r\nConnection: close\r\nContent-Length: 0\r\n\r\n";
}

} // namespace

TEST(WebFetch, BringsTheBytesOfTheFile)
{
    const std::string body("Version: 1.2.3\0\xFF", 16);
    EXPECT_EQ(fetchAnswer(LoopbackServer::okay(body)), body);
}

TEST(WebFetch, AnswerWithoutALengthEndsWithTheConnection)
{
    EXPECT_EQ(fetchAnswer("HTTP/1.0 200 OK\r\n\r\nVersion: 1.2.3\n"), "Version: 1.2.3\n");
}

TEST(WebFetch, EmptyFileIsAnEmptyAnswer)
{
    EXPECT_EQ(fetchAnswer(LoopbackServer::okay("")), "");
}

TEST(WebFetch, PageThatComesWithAnErrorIsNotTheFile)
{
    EXPECT_EQ(fetchAnswer("HTTP/1.1 404 Not Found\r\nConnection: close\r\n\r\nError: 404\n"), std::nullopt);
}

TEST(WebFetch, AnswerThatBreaksOffIsNone)
{
    EXPECT_EQ(fetchAnswer("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nVersion: 1.2.3"), std::nullopt);
}

TEST(WebFetch, ServerThatHangsUpIsNoAnswer)
{
    EXPECT_EQ(fetchAnswer(""), std::nullopt);
}

TEST(WebFetch, PortThatNobodyListensOnIsNoAnswer)
{
    EXPECT_EQ(fetch(test::deafAddress() + "/pl/version.txt"), std::nullopt);
}

TEST(WebFetch, OnlyTheStartOfALongAnswerIsRead)
{
    const auto answer = fetchAnswer(LoopbackServer::okay("Version: 1.2.3:" + std::string(5000000, 'x')));
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->size(), static_cast<std::size_t>(MostOfAnAnswer));
    EXPECT_TRUE(answer->starts_with("Version: 1.2.3:x"));
}

TEST(WebFetch, RedirectWithinTheSchemeIsFollowed)
{
    const LoopbackServer server([](const std::string &path) {
        return path == "/new" ? LoopbackServer::okay("Version: 2") : redirectTo("/new");
    });
    EXPECT_EQ(fetch(server.address() + "/old"), "Version: 2");
}

TEST(WebFetch, RedirectToAnotherSchemeIsNotFollowed)
{
    EXPECT_EQ(fetchAnswer(redirectTo("file:///etc/hostname")), std::nullopt);
    EXPECT_EQ(fetchAnswer(redirectTo("https://127.0.0.1/pl/version.txt")), std::nullopt);
}

TEST(WebFetch, RedirectsInACircleComeToAnEnd)
{
    const LoopbackServer server([](const std::string &) { return redirectTo("/again"); });
    EXPECT_EQ(fetch(server.address() + "/again"), std::nullopt);
}

TEST(WebFetch, OnlyTheWebIsAsked)
{
    EXPECT_EQ(fetch("file:///etc/hostname"), std::nullopt);
    EXPECT_EQ(fetch("not an address"), std::nullopt);
}

TEST(WebFetch, NothingElseRunsInTheWaitingThread)
{
    bool hasRun = false;
    QTimer::singleShot(0, [&] { hasRun = true; });
    EXPECT_EQ(fetchAnswer(LoopbackServer::okay("Version: 1")), "Version: 1");
    EXPECT_FALSE(hasRun);
}

} // namespace orvana

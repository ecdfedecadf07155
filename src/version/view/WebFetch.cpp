#include "version/view/WebFetch.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QThread>

#include <memory>

namespace orvana
{

namespace
{

bool isWeb(const QUrl &address)
{
    return address.scheme() == QStringLiteral("http") || address.scheme() == QStringLiteral("https");
}

/// Fetches one file. The thread that calls `run` waits in it.
class Fetch
{
public:
    std::optional<std::string> run(const QUrl &address)
    {
        QNetworkRequest request(address);
        request.setTransferTimeout(); // a server that falls silent must not hold up the program for ever
        request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                             QNetworkRequest::UserVerifiedRedirectPolicy);
        m_reply.reset(m_manager.get(request));
        // The program buffers no more of the answer than this.
        m_reply->setReadBufferSize(MostOfAnAnswer);
        QObject::connect(m_reply.get(), &QNetworkReply::redirected, [this, address](const QUrl &target) {
            if (target.scheme() == address.scheme())
                Q_EMIT m_reply->redirectAllowed();
            else
                m_reply->abort();
        });
        QObject::connect(m_reply.get(), &QNetworkReply::readyRead, [this] { read(); });
        QObject::connect(m_reply.get(), &QNetworkReply::finished, &m_loop, &QEventLoop::quit);
        if (!m_reply->isFinished())
            m_loop.exec();
        read();
        if (!isTheFile() || (m_reply->error() != QNetworkReply::NoError && !isFull()))
            return std::nullopt;
        return m_answer.toStdString();
    }

private:
    bool isFull() const { return m_answer.size() == MostOfAnAnswer; }

    // The page that comes with an error is not the file.
    bool isTheFile() const
    {
        const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        return status >= 200 && status < 300;
    }

    void read()
    {
        if (!isTheFile() || !m_reply->isOpen())
            return;
        m_answer += m_reply->read(MostOfAnAnswer - m_answer.size());
        if (isFull() && m_reply->isRunning())
            m_reply->abort();
    }

    QNetworkAccessManager m_manager;
    QEventLoop m_loop;
    std::unique_ptr<QNetworkReply> m_reply;
    QByteArray m_answer;
};

} // namespace

bool mayFetchFromWeb()
{
    return true;
}

std::optional<std::string> fetchFromWeb(const QUrl &address)
{
    if (!isWeb(address))
        return std::nullopt;
    std::optional<std::string> answer;
    const std::unique_ptr<QThread> thread(QThread::create([&] { answer = Fetch().run(address); }));
    thread->start();
    thread->wait();
    return answer;
}

} // namespace orvana

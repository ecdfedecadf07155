#include "duplicate/evidence/Verification.h"

#include <exception>
#include <utility>

namespace orvana
{

Verification::Verification(platform::VolumeFiles &files, std::vector<std::string> roots,
                           VerifyOptions options, Listener listener)
    : m_files(files), m_options(std::move(options)), m_listener(std::move(listener))
{
    for (auto &root : roots)
        m_disks.emplace_back().root = std::move(root);
    for (std::size_t i = 0; i < m_disks.size(); ++i)
        m_disks[i].thread = std::jthread([this, i](const std::stop_token &token) { verify(i, token); });
}

Verification::~Verification()
{
    cancel();
    wait();
}

void Verification::cancel()
{
    for (auto &disk : m_disks)
        disk.thread.request_stop();
}

void Verification::wait()
{
    for (auto &disk : m_disks) {
        if (disk.thread.joinable())
            disk.thread.join();
    }
}

void Verification::verify(std::size_t index, const std::stop_token &token)
{
    auto &disk = m_disks[index];
    try {
        DiskVerification one(m_files, disk.root, m_options, disk.progress,
                             [&](const Finding &finding) { m_listener.finding(index, finding); });
        disk.verdict = one.verify(token);
    } catch (const std::exception &error) {
        disk.verdict.error = error.what();
    }
    disk.hasEnded = true;
    m_listener.ended(index);
}

} // namespace orvana

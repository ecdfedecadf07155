#pragma once

#include <memory>
#include <string>

namespace orvana::platform
{

/// The user's desktop.
class Workspace
{
public:
    virtual ~Workspace() = default;

    /// Opens a web page in the user's browser.
    virtual void openPage(const std::string &address) = 0;

    /// Tells the user something while they look elsewhere.
    virtual void notify(const std::string &title, const std::string &text) = 0;

    /// The machine does not fall asleep while the returned object lives.
    [[nodiscard]] virtual std::shared_ptr<void> holdOffSleep(const std::string &reason) = 0;
};

} // namespace orvana::platform

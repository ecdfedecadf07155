#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace orvana::platform
{

/// What the user is told while they look elsewhere.
struct DesktopNotice
{
    std::string title;
    std::string text;
    std::string button;            ///< its text; empty for a notice without one
    std::function<void()> pressed; ///< on the main thread, whenever the user presses the button
};

/// The user's desktop. What it does not offer is left undone. Main thread only.
class Workspace
{
public:
    virtual ~Workspace() = default;

    /// Opens a web page in the user's browser.
    virtual void openPage(const std::string &address) = 0;

    /// Shows a folder in the user's file manager. The path is absolute.
    virtual void openFolder(const std::string &path) = 0;

    virtual void notify(const DesktopNotice &notice) = 0;

    /// Shows beside the program's icon how much of its work is done, from 0 to 1; nothing while it has none.
    virtual void showProgress(std::optional<double> fraction) = 0;

    /// The machine does not fall asleep while the returned object lives.
    [[nodiscard]] virtual std::shared_ptr<void> holdOffSleep(const std::string &reason) = 0;
};

} // namespace orvana::platform

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace orvana::platform
{

/// A message for a user who is looking elsewhere.
struct DesktopNotice
{
    std::string title;
    std::string text;
    std::string button;            ///< the button's text; empty for a notice without a button
    std::function<void()> pressed; ///< called on the main thread whenever the user presses the button
};

/// The user's desktop. A function that the desktop does not offer does nothing. Main thread only.
class Workspace
{
public:
    virtual ~Workspace() = default;

    /// Opens a web page in the user's browser.
    virtual void openPage(const std::string &address) = 0;

    /// Shows a folder in the user's file manager. The path is absolute.
    virtual void openFolder(const std::string &path) = 0;

    virtual void notify(const DesktopNotice &notice) = 0;

    /// Shows beside the program's icon how much of its work is done, from 0 to 1; nullopt while there is no
    /// work.
    virtual void showProgress(std::optional<double> fraction) = 0;

    /// Keeps the machine awake while the returned object lives. Returns null when this is not possible.
    [[nodiscard]] virtual std::shared_ptr<void> holdOffSleep(const std::string &reason) = 0;
};

} // namespace orvana::platform

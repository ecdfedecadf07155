#pragma once

#include <functional>
#include <string>
#include <vector>

namespace orvana
{

struct Notification;

/// An action of the window, and the notifications that call for it.
struct DispatchEntry
{
    std::vector<std::string> names;
    std::function<void(const Notification &)> action;
};

} // namespace orvana

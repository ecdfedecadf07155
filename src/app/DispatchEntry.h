#pragma once

#include <functional>
#include <string>
#include <vector>

namespace orvana
{

class Notification;

/// What the window does when one of these notifications comes.
struct DispatchEntry
{
    std::vector<std::string> names;
    std::function<void(const Notification &)> action;
};

} // namespace orvana

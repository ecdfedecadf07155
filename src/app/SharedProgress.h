#pragma once

#include <mutex>
#include <string>

namespace orvana
{

/// The progress that the copy thread hands to the window. Callable from any thread.
class SharedProgress
{
public:
    struct Values
    {
        std::string message;
        float file = -1.0F;  ///< percent of the present file; -1 hides the bar
        float total = -1.0F; ///< fraction of the run; -1 hides the bar
    };

    /// Calls `set` with the values, to change them.
    template <class Set>
    void change(Set set)
    {
        const std::lock_guard lock(m_mutex);
        set(m_values);
    }

    Values values() const
    {
        const std::lock_guard lock(m_mutex);
        return m_values;
    }

private:
    mutable std::mutex m_mutex;
    Values m_values;
};

} // namespace orvana

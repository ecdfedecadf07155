#pragma once

#include <utility>

namespace orvana::platform::posix
{

/// Owns one file descriptor of the system, or no descriptor (-1).
class Descriptor
{
public:
    Descriptor() = default;
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(Descriptor &&other) noexcept : m_number(other.release()) {}
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor();

    int number() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }
    int release() { return std::exchange(m_number, -1); }

private:
    int m_number = -1;
};

} // namespace orvana::platform::posix

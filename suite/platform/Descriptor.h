#pragma once

#include <unistd.h>

#include <utility>

namespace k4suite {

/// Owns a file descriptor.
class Descriptor {
 public:
    explicit Descriptor(int descriptor = -1) : m_descriptor(descriptor) {}
    ~Descriptor() {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }
    Descriptor(Descriptor&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    explicit operator bool() const { return m_descriptor >= 0; }
    int Get() const { return m_descriptor; }

    /// Gives it away. @return the descriptor, which is no longer closed by the object.
    int Release() { return std::exchange(m_descriptor, -1); }
    /// Closes it now, for those to whom the result of closing matters.
    /// @return 0, or -1 with errno.
    int Close() { return close(std::exchange(m_descriptor, -1)); }

 private:
    int m_descriptor;
};

}  // namespace k4suite

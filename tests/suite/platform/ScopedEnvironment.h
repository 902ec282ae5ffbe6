#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace k4test {

/// A variable of the environment for the life of a scope; null takes it away.
class ScopedEnvironment {
 public:
    ScopedEnvironment(const char* name, const char* value) : m_name(name) {
        if (const char* before = std::getenv(name))
            m_before = before;
        Put(value);
    }
    ScopedEnvironment(const char* name, const std::string& value)
        : ScopedEnvironment(name, value.c_str()) {}
    ~ScopedEnvironment() { Put(m_before ? m_before->c_str() : nullptr); }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

 private:
    void Put(const char* value) {
        if (value)
            setenv(m_name, value, 1);
        else
            unsetenv(m_name);
    }

    const char* m_name;
    std::optional<std::string> m_before;
};

}  // namespace k4test

#pragma once

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace k4test {

/// Another time zone for the life of the object, as POSIX writes it ("CET-1CEST,M3.5.0,M10.5.0/3").
class ScopedTimeZone {
 public:
    explicit ScopedTimeZone(const char* zone) {
        if (const char* before = std::getenv("TZ"))
            m_before = before;
        setenv("TZ", zone, 1);
        tzset();
    }
    ~ScopedTimeZone() {
        if (m_before)
            setenv("TZ", m_before->c_str(), 1);
        else
            unsetenv("TZ");
        tzset();
    }
    ScopedTimeZone(const ScopedTimeZone&) = delete;
    ScopedTimeZone& operator=(const ScopedTimeZone&) = delete;

 private:
    std::optional<std::string> m_before;
};

}  // namespace k4test

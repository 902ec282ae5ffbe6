#pragma once

#include <cstdlib>
#include <ctime>
#include <string>

namespace k4test {

/// The time zone of this process, as long as the object lives; then it is UTC. A zone may be given
/// by its rule, which needs no file of the system.
class TimeZone {
 public:
    explicit TimeZone(const std::string& name) { Set(name); }
    ~TimeZone() { Set("UTC"); }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

 private:
    static void Set(const std::string& name) {
        setenv("TZ", name.c_str(), 1);
        tzset();
    }
};

}  // namespace k4test

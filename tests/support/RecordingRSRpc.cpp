#include "tests/support/RecordingRSRpc.h"

#include <algorithm>
#include <cstring>

namespace k4test {

namespace {

std::string Shown(const char* text) {
    return text ? text : "null";
}

}  // namespace

std::size_t RecordingRSRpc::Count(const std::string& stub) const {
    const std::string begin = stub + "(";
    return static_cast<std::size_t>(
        std::count_if(calls.begin(), calls.end(),
                      [&](const std::string& call) { return call.starts_with(begin); }));
}

RecordingRSRpc::Result RecordingRSRpc::Called(const std::string& stub, const std::string& in) {
    calls.push_back(stub + "(" + in + ")");
    if (onCall)
        onCall(stub);
    const auto found = results.find(stub);
    if (found == results.end() || found->second.empty())
        return needsConnection && !isConnected && stub != "k4rsConnect" ? 1 : 0;
    const Result result = found->second.front();
    if (found->second.size() > 1)
        found->second.erase(found->second.begin());
    return result;
}

RecordingRSRpc::Result RecordingRSRpc::Listed(const char* stub, char* buffer, Word capacity,
                                              Word* length) {
    lastCapacity = capacity;
    if (length)
        lastLengthBefore = *length;
    if (const auto found = replies.find(stub); found != replies.end() && buffer) {
        const Reply& reply = found->second;
        const std::size_t count = std::min<std::size_t>(reply.text.size(), capacity);
        std::memcpy(buffer, reply.text.data(), count);
        if (reply.terminate && count < capacity)
            buffer[count] = '\0';
        if (length)
            *length = static_cast<Word>(reply.text.size());
    }
    return Called(stub);
}

RecordingRSRpc::Result RecordingRSRpc::k4rsConnect(const char* system) {
    const Result result = Called("k4rsConnect", Shown(system));
    isConnected = isConnected || result == 0;
    return result;
}

RecordingRSRpc::Result RecordingRSRpc::k4rsDisconnect() {
    const Result result = Called("k4rsDisconnect");
    isConnected = false;
    return result;
}

RecordingRSRpc::Result RecordingRSRpc::k4rsGetChangeFlag(Word* flag) {
    if (const auto found = replies.find("k4rsGetChangeFlag"); found != replies.end() && flag)
        *flag = found->second.word;
    return Called("k4rsGetChangeFlag", flag ? "" : "null");
}

RecordingRSRpc::Result RecordingRSRpc::k4rsListConnectedPhoneEntries(char* buffer, Word capacity,
                                                                     Word* length) {
    return Listed("k4rsListConnectedPhoneEntries", buffer, capacity, length);
}

RecordingRSRpc::Result RecordingRSRpc::k4rsListServices(char* buffer, Word capacity, Word* length) {
    return Listed("k4rsListServices", buffer, capacity, length);
}

RecordingRSRpc::Result RecordingRSRpc::k4rsAddDownLoadEvent(const char* path, Word length,
                                                            Word time, Word date) {
    return Called("k4rsAddDownLoadEvent", Shown(path) + ", " + std::to_string(length) + ", " +
                                              std::to_string(time) + ", " + std::to_string(date));
}

}  // namespace k4test

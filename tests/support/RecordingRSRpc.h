#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "k4cmndlg/clients/contracts/K4rsRpc.h"

namespace k4test {

/// A remote service of scripted answers that records every call, as "k4rsConnect(.)": the texts and
/// numbers that go in, in order; a null text reads "null".
///
/// Without a script every stub succeeds and writes nothing. With `needsConnection` the others fail
/// unless k4rsConnect has succeeded since the last k4rsDisconnect.
class RecordingRSRpc final : public K4rsRpc {
    using Word = std::uint32_t;
    using Result = std::int32_t;

 public:
    /// What a stub writes through its out pointers.
    struct Reply {
        std::string text;       ///< into the buffer, raw, up to its capacity
        Word word = 0;          ///< through the pointer to a word
        bool terminate = true;  ///< ends the text with a zero where there is room
    };

    std::vector<std::string> calls;
    /// By stub, the results of its next calls; behind the last of them its calls go on with that.
    /// Without an entry 0.
    std::map<std::string, std::vector<Result>> results;
    std::map<std::string, Reply> replies;  ///< by stub; without an entry nothing is written
    bool needsConnection = false;
    bool isConnected = false;
    std::function<void(const std::string& stub)> onCall;  ///< runs inside each call

    /// How many times a stub was called.
    std::size_t Count(const std::string& stub) const;

    Result k4rsConnect(const char*) override;
    Result k4rsDisconnect() override;
    Result k4rsGetChangeFlag(Word*) override;
    Result k4rsListConnectedPhoneEntries(char*, Word, Word*) override;
    Result k4rsListServices(char*, Word, Word*) override;
    Result k4rsAddDownLoadEvent(const char*, Word, Word, Word) override;

    /// Bytes that the last stub with a buffer was given room for.
    Word lastCapacity = 0;
    /// What the last word of a length held when its stub was called.
    Word lastLengthBefore = 0xFFFFFFFF;

 private:
    Result Called(const std::string& stub, const std::string& in = {});
    Result Listed(const char* stub, char* buffer, Word capacity, Word* length);
};

}  // namespace k4test

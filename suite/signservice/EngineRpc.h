#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <string>

#include "k4cmndlg/clients/contracts/K4SSRpc.h"
#include "suite/signservice/PlayOrder.h"
#include "suite/signservice/SignEngine.h"

namespace k4suite {

class Sign;

/// The stubs of the sign service, served by an engine in this process. The object holds the one
/// connection: absent, or open to one machine. A connection that can't be made leaves the former
/// one. The three texts of connecting aren't looked at.
///
/// Beyond the rules of K4SSRpc: any pointer may be null; a buffer of no capacity is not touched; a
/// list that doesn't fit is cut behind a whole line, another text behind a whole character; the
/// length is the bytes written, without the zero. Threads: any.
class EngineRpc final : public K4SSRpc {
 public:
    /// @param engine must outlive the object.
    explicit EngineRpc(SignEngine& engine) : m_engine(engine) {}

    std::int32_t k4ssConnectSignAsUser(const char* service, const char* a, const char* b,
                                       const char* c) override;
    /// Succeeds also with nothing connected.
    std::int32_t k4ssDisconnectSign() override;
    std::int32_t k4ssIsServer(const char* service) override;
    std::int32_t k4ssPing() override;
    std::int32_t k4ssListSigns(char* buffer, std::uint32_t capacity,
                               std::uint32_t* length) override;

    std::int32_t k4ssGetChangeFlag(const char* sign, std::uint32_t* flag) override;
    std::int32_t k4ssGetSchedChangeFlag(const char* sign, std::uint32_t* flag) override;
    std::int32_t k4ssGetPhotocell(const char* sign, std::uint32_t* status) override;
    std::int32_t k4ssGetTemperatureFreq(std::uint32_t selector, std::uint32_t* frequency) override;
    std::int32_t k4ssGetStatus(const char* sign, char* buffer, std::uint32_t capacity,
                               std::uint32_t* length) override;
    std::int32_t k4ssGetSchedSeqStatus(const char* sign, char* schedule,
                                       std::uint32_t* scheduleCapacity, char* sequence,
                                       std::uint32_t* sequenceCapacity,
                                       std::uint32_t* word) override;
    std::int32_t k4ssGetFrameStatus(const char* sign, char* text, std::uint32_t* word1,
                                    std::uint32_t* word2, tag_K4_PLAY_SEQ_MODE* mode,
                                    std::uint32_t* word3, std::uint32_t* word4,
                                    std::uint32_t* word5) override;
    std::int32_t k4ssGetEffectStatus(const char* sign, std::uint32_t* word, std::uint8_t* bytes,
                                     std::uint32_t* length) override;
    std::int32_t k4ssGetSchedule(const char* sign, std::uint32_t* word, std::uint8_t* bytes,
                                 std::uint32_t* length) override;
    std::int32_t k4ssGetConfig(const char* sign, char* buffer, std::uint32_t capacity,
                               std::uint32_t* length) override;
    std::int32_t k4ssGetDIB(const char* sign, char* buffer, std::uint32_t capacity,
                            std::uint32_t* length) override;
    std::int32_t k4ssGetBulb(const char* sign, std::uint8_t* buffer, std::uint32_t capacity,
                             std::uint32_t* word1, std::uint32_t* word2) override;
    std::int32_t k4ssListWindows(const char* sign, char* buffer, std::uint32_t capacity,
                                 std::uint32_t* length) override;
    std::int32_t k4ssGetQueue(const char* sign, char* buffer, std::uint32_t capacity,
                              std::uint32_t* length) override;
    std::int32_t k4ssGetDefaultSequence(const char* sign, char* buffer, std::uint32_t* capacity,
                                        tag_K4_PLAY_SEQ_MODE* mode, std::uint32_t* param) override;
    std::int32_t k4ssGetDefaultSeqFlag(const char* sign, std::uint32_t* flag) override;

    std::int32_t k4ssPlaySequence(const char* sign, const char* file, tag_K4_PLAY_SEQ_MODE mode,
                                  std::uint32_t param) override;
    std::int32_t k4ssRunSchedule(const char* sign, const char* file,
                                 std::uint32_t reserved) override;
    std::int32_t k4ssCheckSequence(const char* sign, const char* file, tag_K4_PLAY_SEQ_MODE mode,
                                   std::uint32_t param) override;
    std::int32_t k4ssSetDefaultSequence(const char* sign, const char* file,
                                        tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param) override;
    std::int32_t k4ssSelectFrame(const char* sign, std::uint32_t frame) override;
    std::int32_t k4ssSingleStepFrame(const char* sign, std::int32_t step) override;
    std::int32_t k4ssQueueSequence(const char* sign, const char* file, tag_K4_PLAY_SEQ_MODE mode,
                                   std::uint32_t param) override;
    std::int32_t k4ssStopSequence(const char* sign) override;
    std::int32_t k4ssBlankSign(const char* sign) override;
    std::int32_t k4ssEndSchedule(const char* sign) override;
    std::int32_t k4ssSetDimming(const char* sign, tag_K4_SIGN_DIM_MODE mode,
                                std::int32_t value) override;
    std::int32_t k4ssWindowEnable(const char* sign, std::uint32_t window,
                                  std::int32_t open) override;
    std::int32_t k4ssWindowMove(const char* sign, std::uint32_t window, std::int32_t row,
                                std::int32_t column) override;
    std::int32_t k4ssQueueWindowEnable(const char* sign, std::uint32_t window,
                                       std::int32_t open) override;
    std::int32_t k4ssQueueWindowMove(const char* sign, std::uint32_t window, std::int32_t row,
                                     std::int32_t column) override;
    std::int32_t k4ssClearQueue(const char* sign) override;
    /// Fails with an empty queue, and if the entry can't be carried out; it is taken all the same.
    std::int32_t k4ssNextItem(const char* sign) override;

 private:
    using SignWork = std::function<bool(Machine& machine, Sign& sign, k4cmn::Clock::TimePoint now)>;

    /// One call to the connected machine. @return the stub's result.
    std::int32_t OnMachine(const char* stub, const SignEngine::Work& work);
    /// One call about one of its signs.
    std::int32_t OnSign(const char* stub, const char* sign, const SignWork& work);
    std::string Connected() const;

    SignEngine& m_engine;
    mutable std::mutex m_mutex;
    std::string m_machine;  ///< whom the connection is open to; empty: absent
};

}  // namespace k4suite

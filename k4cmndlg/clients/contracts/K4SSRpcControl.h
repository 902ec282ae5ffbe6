#pragma once

#include <cstdint>

#include "k4cmndlg/clients/SignServiceTypes.h"

/// The stubs of the sign service that make a sign do something. The rules that all stubs keep stand
/// at K4SSRpc. Rows and columns count from 0 here.
class K4SSRpcControl {
 public:
    virtual ~K4SSRpcControl() = default;

    virtual std::int32_t k4ssPlaySequence(const char* sign, const char* file,
                                          tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param) = 0;
    /// Runs a schedule. The last argument is always 0.
    virtual std::int32_t k4ssRunSchedule(const char* sign, const char* file,
                                         std::uint32_t reserved) = 0;
    virtual std::int32_t k4ssCheckSequence(const char* sign, const char* file,
                                           tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param) = 0;
    virtual std::int32_t k4ssSetDefaultSequence(const char* sign, const char* file,
                                                tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param) = 0;
    virtual std::int32_t k4ssSelectFrame(const char* sign, std::uint32_t frame) = 0;
    virtual std::int32_t k4ssSingleStepFrame(const char* sign, std::int32_t step) = 0;
    virtual std::int32_t k4ssQueueSequence(const char* sign, const char* file,
                                           tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param) = 0;
    virtual std::int32_t k4ssStopSequence(const char* sign) = 0;
    virtual std::int32_t k4ssBlankSign(const char* sign) = 0;
    virtual std::int32_t k4ssEndSchedule(const char* sign) = 0;
    /// @param value the manual level with mode 5, the photocell offset with mode 2.
    virtual std::int32_t k4ssSetDimming(const char* sign, tag_K4_SIGN_DIM_MODE mode,
                                        std::int32_t value) = 0;
    virtual std::int32_t k4ssWindowEnable(const char* sign, std::uint32_t window,
                                          std::int32_t open) = 0;
    virtual std::int32_t k4ssWindowMove(const char* sign, std::uint32_t window, std::int32_t row,
                                        std::int32_t column) = 0;
    virtual std::int32_t k4ssQueueWindowEnable(const char* sign, std::uint32_t window,
                                               std::int32_t open) = 0;
    virtual std::int32_t k4ssQueueWindowMove(const char* sign, std::uint32_t window,
                                             std::int32_t row, std::int32_t column) = 0;
    virtual std::int32_t k4ssClearQueue(const char* sign) = 0;
    virtual std::int32_t k4ssNextItem(const char* sign) = 0;
};

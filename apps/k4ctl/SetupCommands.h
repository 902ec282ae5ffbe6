#pragma once

#include <cstdint>
#include <string>

#include "apps/k4ctl/Arguments.h"
#include "apps/k4ctl/SignCommand.h"

namespace k4ctl {

/// `dim SIGN manual LEVEL`, `dim SIGN photocell OFFSET`, `dim SIGN remote`, `dim SIGN scheduled`:
/// sets the sign's dimming. A level or an offset out of its range is refused, not clamped.
class DimCommand final : public SignCommand {
 public:
    CommandText Text() const override;

 private:
    void AddFurtherArguments(CLI::App& app) override;
    void OnSign(CK4CmnSS& client, Answer& answer) const override;

    std::string m_mode;
    std::string m_value;
    Dimming m_dimming;
};

/// `window SIGN NUMBER open|close [--at ROW,COLUMN]`: opens or closes a sign window, and moves it
/// if a place is given. After a failed move the window stays opened or closed.
class WindowCommand final : public SignCommand {
 public:
    CommandText Text() const override;

 private:
    void AddFurtherArguments(CLI::App& app) override;
    void OnSign(CK4CmnSS& client, Answer& answer) const override;

    std::uint32_t m_window = 0;
    std::int32_t m_open = 0;
    Place m_place;  ///< 0 and 0: not to be moved
};

}  // namespace k4ctl

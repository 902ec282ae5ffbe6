#pragma once

#include <string>

#include "apps/k4ctl/PlayHow.h"
#include "apps/k4ctl/SignCommand.h"

namespace k4ctl {

/// `queue SIGN`: shows the sign's display queue, with rows and columns counted from 1.
/// `queue SIGN --add FILE [--mode MODE] [--param N]` puts a sequence behind it, `--next` goes on to
/// its next item, `--clear` empties it; one of the three at a time.
class QueueCommand final : public SignCommand {
 public:
    CommandText Text() const override;

 private:
    void AddFurtherArguments(CLI::App& app) override;
    void OnSign(CK4CmnSS& client, Answer& answer) const override;
    void Show(CK4CmnSS& client, Answer& answer) const;

    bool m_clear = false;
    bool m_next = false;
    bool m_add = false;
    std::string m_file;
    PlayHow m_how;
};

}  // namespace k4ctl

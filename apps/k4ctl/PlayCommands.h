#pragma once

#include <string>

#include "apps/k4ctl/PlayHow.h"
#include "apps/k4ctl/SignCommand.h"

namespace k4ctl {

/// `play SIGN FILE [--mode MODE] [--param N]`: plays a sequence, runs a schedule or plays a script,
/// by the ending of the file's name. Mode and param go with a sequence only.
class PlayCommand final : public SignCommand {
 public:
    CommandText Text() const override;

 private:
    void AddFurtherArguments(CLI::App& app) override;
    void OnSign(CK4CmnSS& client, Answer& answer) const override;

    std::string m_file;
    PlayHow m_how;
};

/// `stop SIGN [--schedule]`: stops the sequence, or ends the schedule.
class StopCommand final : public SignCommand {
 public:
    CommandText Text() const override;

 private:
    void AddFurtherArguments(CLI::App& app) override;
    void OnSign(CK4CmnSS& client, Answer& answer) const override;

    bool m_schedule = false;
};

/// `blank SIGN`: makes the sign dark.
class BlankCommand final : public SignCommand {
 public:
    CommandText Text() const override;

 private:
    void OnSign(CK4CmnSS& client, Answer& answer) const override;
};

/// `default SIGN [FILE] [--mode MODE] [--param N]`: sets the sequence that plays when nothing else
/// does; without FILE shows it.
class DefaultCommand final : public SignCommand {
 public:
    CommandText Text() const override;

 private:
    void AddFurtherArguments(CLI::App& app) override;
    void OnSign(CK4CmnSS& client, Answer& answer) const override;
    void Show(CK4CmnSS& client, Answer& answer) const;

    bool m_set = false;
    std::string m_file;
    PlayHow m_how;
};

}  // namespace k4ctl

#pragma once

#include <string>

#include "suite/signservice/Sign.h"

/// What the service's replies mean, where that is the service's to say. Texts are UTF-8 and never
/// hold control characters of their own.
///
/// Status (GetSignStatus), six fields:
/// - text 1: "Playing"; "Stopped": a frame stands; "Step": a frame stands and is stepped; "Blank".
/// - text 2: the sequence, as it was given; while blank the one that showed last.
/// - number 3: the frame that shows, from 1.
/// - mode: the play mode; a selected frame is Sel Frame, a stepped one Single Step.
/// - number 5: the play param: how often with Num Times, the frame from 1 with Sel Frame.
/// - number 6: how many frames the sequence has.
///
/// Frame status (GetFrameStatus): text the sequence; word 1 the frame from 1; word 2 how many
/// frames; the mode; word 3 the play param; word 4 how long the frame stands, in milliseconds; word
/// 5 how often the sequence has been played to its end since it was started.
///
/// Running names (GetSignSchedSeq): the schedule, empty if none runs; the sequence, empty while the
/// sign is blank; the word is 1 while a schedule runs, else 0. The capacity words come back as the
/// lengths written.
///
/// Schedule (GetSchedule): the word is the schedule change flag; the bytes are those of the
/// schedule file; the length word goes in as the buffer's capacity and comes back as the bytes
/// written. A buffer too small fails, with the bytes that it takes in the length word. No schedule:
/// no bytes.
///
/// Effect status (GetEffectStatus): the service has no effects; the word is 0 and so is the length.
///
/// Photocell (GetPhotocellStatus): the light at the sign's own cell, 0 to 255.
///
/// Temperature (GetTemperatureFreq): the selectors 0 to 3 are sensors; the frequency is in hertz,
/// ten for each kelvin. Other selectors fail.
///
/// Configuration (GetSignConfig): field 5 is the output orientation, field 7 the revision of the
/// service's sign controller.
///
/// Picture (GetDIB): see EncodeDib(). A buffer too small fails, with the bytes that it takes in the
/// length word.
///
/// Bulb data (GetBulb): see EncodeBulbs(); word 1 is the bytes written, or those that it takes on
/// failure; word 2 the number of planes.
///
/// Both show what the lamps do now: the sequence, the open windows on top of it, dimming. A sign
/// with discs isn't dimmed.
///
/// Change flag (GetChangeFlag): moves when it is read and anything has changed since it was read
/// last: a command that changed something, the end of a sequence, and everything that changes the
/// picture, be it the next frame, the brightness or a sign shown in an open window. Equal flags
/// thus mean that neither state nor picture have changed. It starts at another value at each start
/// of the service.
///
/// Schedule change flag (GetSchedChangeFlag): moves when a schedule is started or ended.
///
/// Play modes: see Player. Sequences: the test pattern and SQ4 files of the store; AVI files are
/// refused, since the service can't decode them. Schedules: see docs/schedule-format.md.
///
/// Saving: a command holds even if the state of the sign can't be saved; that is told among the
/// engine's problems.
namespace k4suite {

/// The revision that the configuration tells.
inline constexpr unsigned kControllerRevision = 100;

/// The line of GetSignStatus().
std::string StatusText(const Sign& sign, TimePoint now);
/// The line of GetSignConfig().
std::string ConfigText(const Sign& sign);
/// The 16 lines of GetWindowState(): sign, open flag, row, column, from 0.
std::string WindowsText(const Sign& sign);

}  // namespace k4suite

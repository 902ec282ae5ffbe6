#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "k4cmndlg/clients/SignServiceTypes.h"
#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/frame/CCriticalSection.h"
#include "k4cmndlg/frame/CObject.h"
#include "k4cmndlg/k4cmncore_export.h"

/// The client of the sign service: the long-running service that owns the signs of one machine and
/// plays sequences, schedules and real-time data on them.
///
/// Nearly every operation exists twice under one name. The *service overload* takes the name of a
/// machine in front (the empty text and "Local", in any case, mean this machine); it takes the lock
/// `m_cs`, connects if need be, calls, and releases. The *plain overload* takes no lock and uses
/// the connection as it stands: a caller who wants several of them in a row takes `m_cs`, calls
/// ConnectService() once, makes its calls and releases `m_cs`.
///
/// Results: an int is 1 for success and 0 for failure, unless told otherwise. After a failure
/// GetLastError() gives its words: "Sign service unavailable." where connecting failed, else the
/// words that stand with the operation. After a success it gives the empty text.
/// Out pointers may be null where the value isn't wanted.
///
/// The connection is the process's, not the object's: any object opens or replaces it, and the
/// destructor of any object drops it for all; the next service overload connects again. An object
/// is cheap and made for one action.
///
/// Threads: service overloads, GetLastError() and the destructor may be called on any thread. Plain
/// overloads of an object that threads share need `m_cs`. Every call blocks until the service has
/// answered.
class K4CMNCORE_EXPORT CK4CmnSS : public CObject {
 public:
    /// Serialises all threads of the process over the one connection.
    static CCriticalSection m_cs;

    /// Doesn't connect.
    CK4CmnSS();
    /// Drops the connection of the process.
    ~CK4CmnSS() override;

    // Connection ----------------------------------------------------------------------------------

    /// Sees to it that the process is connected to a service.
    /// @param a,b,c go to the stub unchanged, and are ignored where a live connection to that
    /// service stands already; nothing in this library passes other than null.
    /// @return 1 if connected, else 0 with "Sign service unavailable.".
    int ConnectService(std::string service, const char* a = nullptr, const char* b = nullptr,
                       const char* c = nullptr);
    /// Drops the connection. Takes no lock and sets no words.
    int DisconnectService();
    /// 1 if the process is connected to that service, by its name as given, and it answers a ping.
    /// Sets no words.
    int IsConnected(const std::string& service);
    /// Adds the names of the service's signs behind what `signs` holds.
    /// Words: "Could not get sign list from service.".
    int GetSignList(std::vector<std::string>& signs);
    int GetSignList(const std::string& service, std::vector<std::string>& signs);
    /// The words of the last failure of this object. Reading doesn't clear them.
    std::string GetLastError();

    // Reads ---------------------------------------------------------------------------------------

    /// A word that moves with every change of the sign.
    /// @param dwLockTimeout a wait for the lock, in milliseconds. It is carried and not honoured:
    /// the lock waits for as long as it takes. Where the lock couldn't be had, 0 without words.
    /// Words: "Could not get change flag from service.".
    int GetChangeFlag(const std::string& sign, std::uint32_t* flag);
    int GetChangeFlag(const std::string& service, const std::string& sign, std::uint32_t* flag,
                      std::uint32_t dwLockTimeout);
    /// A word that moves with every change of the sign's schedule.
    /// Words: "Could not get schedule change flag from service.".
    int GetSchedChangeFlag(const std::string& sign, std::uint32_t* flag);
    int GetSchedChangeFlag(const std::string& service, const std::string& sign,
                           std::uint32_t* flag);
    /// The state of the sign's photocell, a number of the service's own.
    /// Words: "Could not get photocell status from service.".
    int GetPhotocellStatus(const std::string& sign, std::uint32_t* status);
    int GetPhotocellStatus(const std::string& service, const std::string& sign,
                           std::uint32_t* status);
    /// The frequency of one of the service's temperature sensors.
    /// @param selector the sensor's number; the service says which there are.
    /// Words: "Could not get temerature frequency from service.".
    int GetTemperatureFreq(std::uint32_t selector, std::uint32_t* frequency);
    int GetTemperatureFreq(const std::string& service, std::uint32_t selector,
                           std::uint32_t* frequency);
    /// Six fields of the sign's status; what the texts and words mean is the service's to say. A
    /// mode out of 0 to 12 reads as 1. A field that the reply doesn't hold leaves its output as it
    /// was.
    /// Words: "Could not get sign status from service.".
    int GetSignStatus(const std::string& sign, std::string* text1, std::string* text2,
                      std::uint32_t* word1, tag_K4_PLAY_SEQ_MODE* mode, std::uint32_t* word2,
                      std::uint32_t* word3);
    int GetSignStatus(const std::string& service, const std::string& sign, std::string* text1,
                      std::string* text2, std::uint32_t* word1, tag_K4_PLAY_SEQ_MODE* mode,
                      std::uint32_t* word2, std::uint32_t* word3);
    /// The schedule and the sequence that run, up to 261 bytes each, and a word of the service's
    /// own. All three are taken over on failure too.
    /// Words: "Could not get sequence/schedule status from service".
    int GetSignSchedSeq(const std::string& sign, std::string* schedule, std::string* sequence,
                        std::uint32_t* word);
    int GetSignSchedSeq(const std::string& service, const std::string& sign, std::string* schedule,
                        std::string* sequence, std::uint32_t* word);
    /// Where the sign is in its sequence.
    /// @param text up to 1024 bytes, taken over on failure too.
    /// Words: "Could not get frame status from service.".
    int GetFrameStatus(const std::string& sign, std::string* text, std::uint32_t* word1,
                       std::uint32_t* word2, tag_K4_PLAY_SEQ_MODE* mode, std::uint32_t* word3,
                       std::uint32_t* word4, std::uint32_t* word5);
    int GetFrameStatus(const std::string& service, const std::string& sign, std::string* text,
                       std::uint32_t* word1, std::uint32_t* word2, tag_K4_PLAY_SEQ_MODE* mode,
                       std::uint32_t* word3, std::uint32_t* word4, std::uint32_t* word5);
    /// The state of the running effect: a word and bytes of the service's own.
    /// @param length in: room of `bytes`; out: how many.
    /// Words: "Could not get effect status from service.".
    int GetEffectStatus(const std::string& sign, std::uint32_t* word, std::uint8_t* bytes,
                        std::uint32_t* length);
    int GetEffectStatus(const std::string& service, const std::string& sign, std::uint32_t* word,
                        std::uint8_t* bytes, std::uint32_t* length);
    /// The running schedule: a word and bytes of the service's own.
    /// @param length in: room of `bytes`; out: how many.
    /// Words: "Could not get schedule from service.".
    int GetSchedule(const std::string& sign, std::uint32_t* word, std::uint8_t* bytes,
                    std::uint32_t* length);
    int GetSchedule(const std::string& service, const std::string& sign, std::uint32_t* word,
                    std::uint8_t* bytes, std::uint32_t* length);
    /// The sign's size, technologies and dimming. A color out of 0 to 15 reads as 0, a pixel
    /// technology out of 1 to 3 as 1, a mode out of 0 to 5 as 0; the level is clamped to 0 to 255,
    /// the offset to -64 to 64. A field that the reply doesn't hold leaves its output as it was.
    /// Words: "Could not get sign configuration from service".
    int GetSignConfig(const std::string& sign, std::uint32_t* rows, std::uint32_t* columns,
                      tag_K4_SIGN_COLOR* color, tag_K4_PIXEL_TECH* pixel,
                      tag_K4_SIGN_DIM_MODE* dimMode, std::int32_t* dimLevel,
                      std::int32_t* photocellOffset);
    int GetSignConfig(const std::string& service, const std::string& sign, std::uint32_t* rows,
                      std::uint32_t* columns, tag_K4_SIGN_COLOR* color, tag_K4_PIXEL_TECH* pixel,
                      tag_K4_SIGN_DIM_MODE* dimMode, std::int32_t* dimLevel,
                      std::int32_t* photocellOffset);
    /// What the sign shows, as a device-independent bitmap in the caller's buffer of `capacity`
    /// bytes.
    /// Words: "Could not get DIB from sign service".
    int GetDIB(const std::string& sign, char* buffer, std::uint32_t capacity,
               std::uint32_t* length);
    int GetDIB(const std::string& service, const std::string& sign, char* buffer,
               std::uint32_t capacity, std::uint32_t* length);
    /// What the sign shows, as bulb data in the caller's buffer of `capacity` bytes.
    /// Words: "Could not get bulb data from sign service".
    int GetBulb(const std::string& sign, std::uint8_t* buffer, std::uint32_t capacity,
                std::uint32_t* word1, std::uint32_t* word2);
    int GetBulb(const std::string& service, const std::string& sign, std::uint8_t* buffer,
                std::uint32_t capacity, std::uint32_t* word1, std::uint32_t* word2);
    /// One sign window.
    /// @param window from 1 to 16.
    /// @param open other than 0 if it is open.
    /// @param row,column counted from 1.
    /// @param name the sign that the window shows.
    /// @return 0 without words if the reply doesn't hold the window or holds it in part.
    /// Words: "Could not get window state".
    int GetWindowState(const std::string& sign, std::uint32_t window, std::int32_t* open,
                       std::int32_t* row, std::int32_t* column, std::string* name);
    int GetWindowState(const std::string& service, const std::string& sign, std::uint32_t window,
                       std::int32_t* open, std::int32_t* row, std::int32_t* column,
                       std::string* name);
    /// The sign's display queue.
    /// @param entries an array of `capacity` entries. Rows and columns in it count from 0.
    /// @return the number of entries filled; 0 is an empty queue and a failure, and GetLastError()
    /// tells which.
    /// Words: "Could not get queue from service".
    int GetQueue(const std::string& sign, K4_DISPLAY_QUEUE* entries, std::uint32_t capacity);
    int GetQueue(const std::string& service, const std::string& sign, K4_DISPLAY_QUEUE* entries,
                 std::uint32_t capacity);
    /// The sequence that plays when nothing else does, and how it is played.
    /// @param sequence up to 270 bytes, taken over on failure too.
    /// Words: "Could not get default sequence from sign service".
    int GetDefaultSequence(const std::string& sign, std::string* sequence,
                           tag_K4_PLAY_SEQ_MODE* mode, std::uint32_t* param);
    int GetDefaultSequence(const std::string& service, const std::string& sign,
                           std::string* sequence, tag_K4_PLAY_SEQ_MODE* mode, std::uint32_t* param);
    /// Whether the default sequence plays.
    /// @param flag other than 0 if it does.
    /// Words: "Could not get default sequence flag from sign service".
    int GetDefaultSeqFlag(const std::string& sign, std::uint32_t* flag);
    int GetDefaultSeqFlag(const std::string& service, const std::string& sign, std::uint32_t* flag);

    // Commands ------------------------------------------------------------------------------------
    //
    // A play mode is one of 0 to 12; the param that travels with it is the mode's number, and what
    // it says is the service's to know. Arguments aren't checked here: the service does that.

    /// Plays a sequence on the sign, in place of what it plays.
    /// Words: "Could not play sequence".
    int PlaySequence(const std::string& sign, const std::string& file, tag_K4_PLAY_SEQ_MODE mode,
                     std::uint32_t param);
    int PlaySequence(const std::string& service, const std::string& sign, const std::string& file,
                     tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param);
    /// Runs a schedule on the sign.
    /// Words: "Could not run schedule".
    int PlaySchedule(const std::string& sign, const std::string& file);
    int PlaySchedule(const std::string& service, const std::string& sign, const std::string& file);
    /// Does nothing and succeeds: the service knows no scripts.
    int PlayScript(const std::string& sign, const std::string& file);
    int PlayScript(const std::string& service, const std::string& sign, const std::string& file);
    /// Plays a file by its last three characters, in capitals: "SQ4" and "AVI" as a sequence, "SD4"
    /// as a schedule, without mode and param, "SC4" as a script. Any other file is refused: 0, and
    /// no words of its own.
    /// Words: those of what it is played as.
    int PlayFile(const std::string& sign, const std::string& file, tag_K4_PLAY_SEQ_MODE mode,
                 std::uint32_t param);
    int PlayFile(const std::string& service, const std::string& sign, const std::string& file,
                 tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param);
    /// Asks whether the sign could play a sequence in that way. Plays nothing.
    /// @return 1 if it could.
    /// Words: "Sequence is not valid".
    int CheckSequence(const std::string& sign, const std::string& file, tag_K4_PLAY_SEQ_MODE mode,
                      std::uint32_t param);
    int CheckSequence(const std::string& service, const std::string& sign, const std::string& file,
                      tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param);
    /// Sets the sequence that plays when nothing else does, and how it is played.
    /// Words: "Could not set default sequence".
    int SetDefaultSequence(const std::string& sign, const std::string& file,
                           tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param);
    int SetDefaultSequence(const std::string& service, const std::string& sign,
                           const std::string& file, tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param);
    /// Shows one frame of the sign's sequence and stays there.
    /// @param frame counted from 1.
    /// Words: "Could not show selected frame".
    int SelectFrame(const std::string& sign, std::uint32_t frame);
    int SelectFrame(const std::string& service, const std::string& sign, std::uint32_t frame);
    /// Moves by frames within the sign's sequence and stays there.
    /// @param step how many frames on, or back where it is negative.
    /// Words: "Could not single step".
    int SingleStep(const std::string& sign, std::int32_t step);
    int SingleStep(const std::string& service, const std::string& sign, std::int32_t step);
    /// Adds a sequence to the end of the sign's display queue.
    /// Words: "Could not queue sequence".
    int QueueSequence(const std::string& sign, const std::string& file, tag_K4_PLAY_SEQ_MODE mode,
                      std::uint32_t param);
    int QueueSequence(const std::string& service, const std::string& sign, const std::string& file,
                      tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param);
    /// Stops the sign's sequence.
    /// Words: "Could not stop sequence".
    int StopSequence(const std::string& sign);
    int StopSequence(const std::string& service, const std::string& sign);
    /// Makes the sign dark.
    /// Words: "Could not blank sign".
    int BlankSign(const std::string& sign);
    int BlankSign(const std::string& service, const std::string& sign);
    /// Ends the schedule that runs on the sign.
    /// Words: "Could not end schedule".
    int EndSchedule(const std::string& sign);
    int EndSchedule(const std::string& service, const std::string& sign);
    /// Does nothing and succeeds: the service knows no scripts.
    int EndScript(const std::string& sign);
    int EndScript(const std::string& service, const std::string& sign);
    /// Sets how the sign is dimmed.
    /// @param mode from 0 to 5.
    /// @param value with mode 5 the manual level, clamped to 0 to 255; with mode 2 the photocell
    /// offset, clamped to -64 to 64; with another mode passed on.
    /// Words: "Could not set dimming mode".
    int SetDimming(const std::string& sign, tag_K4_SIGN_DIM_MODE mode, std::int32_t value);
    int SetDimming(const std::string& service, const std::string& sign, tag_K4_SIGN_DIM_MODE mode,
                   std::int32_t value);
    /// Opens or closes a window, and moves it if row and column are both other than 0. After a
    /// failed move the window stays opened or closed.
    /// @param window from 1 to 16.
    /// @param open 0 to close it, any other number to open it.
    /// @param row,column counted from 1.
    /// @param name taken and not used: no stub receives it.
    /// Words: "Could not open window", "Could not close window", "Could not move window".
    int SetWindowState(const std::string& sign, std::uint32_t window, std::int32_t open,
                       std::int32_t row, std::int32_t column, const std::string& name);
    int SetWindowState(const std::string& service, const std::string& sign, std::uint32_t window,
                       std::int32_t open, std::int32_t row, std::int32_t column,
                       const std::string& name);
    /// As SetWindowState(), by way of the sign's display queue.
    /// Words: "Could not queue open window", "Could not queue close window",
    /// "Could not queue window move".
    int QueueWindowState(const std::string& sign, std::uint32_t window, std::int32_t open,
                         std::int32_t row, std::int32_t column, const std::string& name);
    int QueueWindowState(const std::string& service, const std::string& sign, std::uint32_t window,
                         std::int32_t open, std::int32_t row, std::int32_t column,
                         const std::string& name);
    /// Empties the sign's display queue.
    /// Words: "Could not clear queue".
    int ClearQueue(const std::string& sign);
    int ClearQueue(const std::string& service, const std::string& sign);
    /// Goes on to the next item of the sign's display queue.
    /// Words: "Could not execute "Next" command".
    int NextItem(const std::string& sign);
    int NextItem(const std::string& service, const std::string& sign);

 protected:
    /// 1 if the connected service answers.
    int Ping();
    /// Walks a reply of fields that are separated by tabs. The first call of a walk passes the
    /// reply, the later ones the empty text.
    /// @return 1 with the next field, which may be empty; 0 at the end, with `field` left as it
    /// was.
    int ParseTabSepBuf(std::string& field, std::string_view buffer);

 private:
    template <class Body>
    int Bordered(const char* words, Body body);
    template <auto Stub, class... Arguments>
    int Told(const char* words, Arguments... arguments);
    template <auto Stub, std::uint32_t Capacity, class Parse, class... Arguments>
    int Replied(const char* words, Parse parse, Arguments... arguments);
    template <class Call>
    int UnderLock(const std::string& service, Call call);
    template <class Call>
    int OverService(const std::string& service, Call call);
    template <class Call>
    int OverTestedLock(const std::string& service, std::uint32_t dwLockTimeout, Call call);

    template <auto Enable, auto Move>
    int ChangeWindow(std::string (*enableWords)(const char* verb), const char* moveWords,
                     const std::string& sign, std::uint32_t window, std::int32_t open,
                     std::int32_t row, std::int32_t column);
    int Failed(const char* words);

    std::string m_strParseBuf;
    std::string m_strLastError;
    std::uint32_t m_dwLockTimeout = 750;
};

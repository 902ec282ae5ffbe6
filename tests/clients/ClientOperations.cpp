#include "tests/clients/ClientOperations.h"

namespace k4test {

void ClientOperation::ScriptSuccess(RecordingSSRpc& rpc) const {
    if (!reply.empty())
        rpc.replies[FirstStub()].text = reply;
}

std::string ClientOperation::FirstStub() const {
    return stubs.empty() ? std::string() : stubs.front().substr(0, stubs.front().find('('));
}

void PrintTo(const ClientOperation& operation, std::ostream* stream) {
    *stream << operation.name;
}

// Both overloads of an operation, called with the same arguments behind the service.
#define K4_BOTH(operation, ...) \
#operation, [](CK4CmnSS& client) { return client.operation(__VA_ARGS__); }, \
        [](CK4CmnSS& client, const std::string& service) {                 \
            return client.operation(service, __VA_ARGS__);                 \
        }

const std::vector<ClientOperation>& ClientOperations() {
    // Where the reads of the table leave what they read.
    static std::vector<std::string> list;
    static std::string text, text2;
    static std::uint32_t word, word2, word3, word4, word5;
    static std::int32_t number, number2, number3;
    static tag_K4_PLAY_SEQ_MODE mode;
    static tag_K4_SIGN_COLOR color;
    static tag_K4_PIXEL_TECH pixel;
    static tag_K4_SIGN_DIM_MODE dimMode;
    static K4_DISPLAY_QUEUE queue[4];
    static char dib[16];
    static std::uint8_t bytes[16];
    constexpr auto often = K4_PLAY_SEQ_NUM_TIMES;

    static const std::vector<ClientOperation> operations = {
        {K4_BOTH(GetSignList, list), {"k4ssListSigns()"}, "Could not get sign list from service."},

        {"GetChangeFlag",
         [](CK4CmnSS& client) { return client.GetChangeFlag("Main", &word); },
         [](CK4CmnSS& client, const std::string& service) {
             return client.GetChangeFlag(service, "Main", &word, 100);
         },
         {"k4ssGetChangeFlag(Main)"},
         "Could not get change flag from service."},
        {K4_BOTH(GetSchedChangeFlag, "Main", &word),
         {"k4ssGetSchedChangeFlag(Main)"},
         "Could not get schedule change flag from service."},
        {K4_BOTH(GetPhotocellStatus, "Main", &word),
         {"k4ssGetPhotocell(Main)"},
         "Could not get photocell status from service."},
        {K4_BOTH(GetTemperatureFreq, 3, &word),
         {"k4ssGetTemperatureFreq(3)"},
         "Could not get temerature frequency from service."},
        {K4_BOTH(GetSignStatus, "Main", &text, &text2, &word, &mode, &word2, &word3),
         {"k4ssGetStatus(Main)"},
         "Could not get sign status from service."},
        {K4_BOTH(GetSignSchedSeq, "Main", &text, &text2, &word),
         {"k4ssGetSchedSeqStatus(Main, 261, 261)"},
         "Could not get sequence/schedule status from service"},
        {K4_BOTH(GetFrameStatus, "Main", &text, &word, &word2, &mode, &word3, &word4, &word5),
         {"k4ssGetFrameStatus(Main)"},
         "Could not get frame status from service."},
        {K4_BOTH(GetEffectStatus, "Main", &word, bytes, &word2),
         {"k4ssGetEffectStatus(Main)"},
         "Could not get effect status from service."},
        {K4_BOTH(GetSchedule, "Main", &word, bytes, &word2),
         {"k4ssGetSchedule(Main)"},
         "Could not get schedule from service."},
        {K4_BOTH(GetSignConfig, "Main", &word, &word2, &color, &pixel, &dimMode, &number, &number2),
         {"k4ssGetConfig(Main)"},
         "Could not get sign configuration from service"},
        {K4_BOTH(GetDIB, "Main", dib, 16, &word),
         {"k4ssGetDIB(Main, 16)"},
         "Could not get DIB from sign service"},
        {K4_BOTH(GetBulb, "Main", bytes, 16, &word, &word2),
         {"k4ssGetBulb(Main, 16)"},
         "Could not get bulb data from sign service"},
        {K4_BOTH(GetWindowState, "Main", 1, &number, &number2, &number3, &text),
         {"k4ssListWindows(Main)"},
         "Could not get window state",
         "Small\t1\t2\t3\n"},
        {K4_BOTH(GetQueue, "Main", queue, 4),
         {"k4ssGetQueue(Main)"},
         "Could not get queue from service",
         "2\t1\t1\n"},
        {K4_BOTH(GetDefaultSequence, "Main", &text, &mode, &word),
         {"k4ssGetDefaultSequence(Main, 270)"},
         "Could not get default sequence from sign service"},
        {K4_BOTH(GetDefaultSeqFlag, "Main", &word),
         {"k4ssGetDefaultSeqFlag(Main)"},
         "Could not get default sequence flag from sign service"},

        {K4_BOTH(PlaySequence, "Main", "A.SQ4", often, 9),
         {"k4ssPlaySequence(Main, A.SQ4, 4, 9)"},
         "Could not play sequence"},
        {K4_BOTH(PlaySchedule, "Main", "A.SD4"),
         {"k4ssRunSchedule(Main, A.SD4, 0)"},
         "Could not run schedule"},
        {K4_BOTH(PlayScript, "Main", "A.SC4"), {}, ""},
        {K4_BOTH(PlayFile, "Main", "A.AVI", often, 9),
         {"k4ssPlaySequence(Main, A.AVI, 4, 9)"},
         "Could not play sequence",
         "",
         2},
        {K4_BOTH(CheckSequence, "Main", "A.SQ4", often, 9),
         {"k4ssCheckSequence(Main, A.SQ4, 4, 9)"},
         "Sequence is not valid"},
        {K4_BOTH(SetDefaultSequence, "Main", "A.SQ4", often, 9),
         {"k4ssSetDefaultSequence(Main, A.SQ4, 4, 9)"},
         "Could not set default sequence"},
        {K4_BOTH(SelectFrame, "Main", 12),
         {"k4ssSelectFrame(Main, 12)"},
         "Could not show selected frame"},
        {K4_BOTH(SingleStep, "Main", -2),
         {"k4ssSingleStepFrame(Main, -2)"},
         "Could not single step"},
        {K4_BOTH(QueueSequence, "Main", "A.SQ4", often, 9),
         {"k4ssQueueSequence(Main, A.SQ4, 4, 9)"},
         "Could not queue sequence"},
        {K4_BOTH(StopSequence, "Main"), {"k4ssStopSequence(Main)"}, "Could not stop sequence"},
        {K4_BOTH(BlankSign, "Main"), {"k4ssBlankSign(Main)"}, "Could not blank sign"},
        {K4_BOTH(EndSchedule, "Main"), {"k4ssEndSchedule(Main)"}, "Could not end schedule"},
        {K4_BOTH(EndScript, "Main"), {}, ""},
        {K4_BOTH(SetDimming, "Main", K4_SIGN_DIM_MANUAL, 200),
         {"k4ssSetDimming(Main, 5, 200)"},
         "Could not set dimming mode"},
        {K4_BOTH(SetWindowState, "Main", 2, 1, 3, 4, "Small"),
         {"k4ssWindowEnable(Main, 2, 1)", "k4ssWindowMove(Main, 2, 2, 3)"},
         "Could not open window"},
        {K4_BOTH(QueueWindowState, "Main", 2, 1, 3, 4, "Small"),
         {"k4ssQueueWindowEnable(Main, 2, 1)", "k4ssQueueWindowMove(Main, 2, 2, 3)"},
         "Could not queue open window"},
        {K4_BOTH(ClearQueue, "Main"), {"k4ssClearQueue(Main)"}, "Could not clear queue"},
        {K4_BOTH(NextItem, "Main"), {"k4ssNextItem(Main)"}, "Could not execute \"Next\" command"},
    };
    return operations;
}

#undef K4_BOTH

}  // namespace k4test

#include "tests/clients/ClientOperations.h"

namespace k4test {

namespace {

struct Outputs {
    std::vector<std::string> list;
    std::string text = "untouched", text2 = "untouched";
    std::uint32_t word = 0xABCD, word2 = 0xABCD, word3 = 0xABCD, word4 = 0xABCD, word5 = 0xABCD;
    std::int32_t number = -7000, number2 = -7000, number3 = -7000;
    tag_K4_PLAY_SEQ_MODE mode = K4_PLAY_SEQ_NONE;
    tag_K4_SIGN_COLOR color = K4_SIGN_COLOR_MONO1;
    tag_K4_PIXEL_TECH pixel = K4_PIXEL_TECH_INCAND;
    tag_K4_SIGN_DIM_MODE dimMode = K4_SIGN_DIM_MANUAL_0;
    K4_DISPLAY_QUEUE queue[4] = {};
    char dib[16] = {};
    std::uint8_t bytes[16] = {};
};

Outputs g_out;

/// Collects the outputs that aren't what they were at first.
class Changes {
 public:
    void Text(const char* name, const std::string& now, const std::string& before) {
        if (now != before)
            m_shown += (m_shown.empty() ? "" : " ") + std::string(name) + "=" + now;
    }
    template <class Number>
    void Value(const char* name, Number now, Number before) {
        Text(name, std::to_string(now), std::to_string(before));
    }
    std::string Shown() const { return m_shown; }

 private:
    std::string m_shown;
};

std::string Joined(const std::vector<std::string>& parts) {
    std::string joined;
    for (const std::string& part : parts)
        joined += (joined.empty() ? "" : ",") + part;
    return joined;
}

std::string Shown(const K4_DISPLAY_QUEUE& entry) {
    if (entry.dwType != K4_QUEUE_SEQUENCE)
        return "tag " + std::to_string(entry.dwType);
    return Joined({entry.sequence.szSequence, std::to_string(entry.sequence.ePlayMode),
                   std::to_string(entry.sequence.dwPlayParam)});
}

}  // namespace

void ResetClientOutputs() {
    g_out = Outputs();
}

std::string ClientOutputs() {
    const Outputs before;
    Changes changes;
    changes.Text("list", Joined(g_out.list), "");
    changes.Text("text", g_out.text, before.text);
    changes.Text("text2", g_out.text2, before.text2);
    changes.Value("word", g_out.word, before.word);
    changes.Value("word2", g_out.word2, before.word2);
    changes.Value("word3", g_out.word3, before.word3);
    changes.Value("word4", g_out.word4, before.word4);
    changes.Value("word5", g_out.word5, before.word5);
    changes.Value("number", g_out.number, before.number);
    changes.Value("number2", g_out.number2, before.number2);
    changes.Value("number3", g_out.number3, before.number3);
    changes.Value<int>("mode", g_out.mode, before.mode);
    changes.Value<int>("color", g_out.color, before.color);
    changes.Value<int>("pixel", g_out.pixel, before.pixel);
    changes.Value<int>("dimMode", g_out.dimMode, before.dimMode);
    for (const K4_DISPLAY_QUEUE& entry : g_out.queue)
        changes.Text("queue", Shown(entry), Shown(K4_DISPLAY_QUEUE()));
    changes.Text("dib", std::string(g_out.dib, 16).c_str(), "");
    changes.Text("bytes", std::string(g_out.bytes, g_out.bytes + 16).c_str(), "");
    return changes.Shown();
}

void ClientOperation::ScriptSuccess(RecordingSSRpc& rpc) const {
    if (!stubs.empty())
        rpc.replies[FirstStub()] = reply;
}

std::string ClientOperation::FirstStub() const {
    return stubs.empty() ? std::string() : stubs.front().substr(0, stubs.front().find('('));
}

void PrintTo(const ClientOperation& operation, std::ostream* stream) {
    *stream << operation.name;
}

// Both overloads of an operation, called with the same arguments behind the service.
// clang-format off
#define K4_BOTH(operation, ...)                                     \
    #operation,                                                     \
    [](CK4CmnSS& client) { return client.operation(__VA_ARGS__); }, \
    [](CK4CmnSS& client, const std::string& service) {              \
        return client.operation(service, __VA_ARGS__);              \
    }
// clang-format on

const std::vector<ClientOperation>& ClientOperations() {
    static Outputs& out = g_out;
    constexpr auto often = K4_PLAY_SEQ_NUM_TIMES;

    static const std::vector<ClientOperation> operations = {
        {K4_BOTH(GetSignList, out.list),
         {"k4ssListSigns()"},
         "Could not get sign list from service.",
         {"Main\n\tSide\n", "", {}},
         "list=Main,Side"},

        {"GetChangeFlag",
         [](CK4CmnSS& client) { return client.GetChangeFlag("Main", &out.word); },
         [](CK4CmnSS& client, const std::string& service) {
             return client.GetChangeFlag(service, "Main", &out.word, 100);
         },
         {"k4ssGetChangeFlag(Main)"},
         "Could not get change flag from service.",
         {"", "", {11}},
         "word=11"},
        {K4_BOTH(GetSchedChangeFlag, "Main", &out.word),
         {"k4ssGetSchedChangeFlag(Main)"},
         "Could not get schedule change flag from service.",
         {"", "", {12}},
         "word=12"},
        {K4_BOTH(GetPhotocellStatus, "Main", &out.word),
         {"k4ssGetPhotocell(Main)"},
         "Could not get photocell status from service.",
         {"", "", {13}},
         "word=13"},
        {K4_BOTH(GetTemperatureFreq, 3, &out.word),
         {"k4ssGetTemperatureFreq(3)"},
         "Could not get temerature frequency from service.",
         {"", "", {14}},
         "word=14"},
        {K4_BOTH(GetSignStatus, "Main", &out.text, &out.text2, &out.word, &out.mode, &out.word2,
                 &out.word3),
         {"k4ssGetStatus(Main)"},
         "Could not get sign status from service.",
         {"Playing\tA.SQ4\t1\t4\t5\t6", "", {}},
         "text=Playing text2=A.SQ4 word=1 word2=5 word3=6 mode=4"},
        {K4_BOTH(GetSignSchedSeq, "Main", &out.text, &out.text2, &out.word),
         {"k4ssGetSchedSeqStatus(Main, 261, 261)"},
         "Could not get sequence/schedule status from service",
         {"Day.SD4", "A.SQ4", {9}},
         "text=Day.SD4 text2=A.SQ4 word=9"},
        {K4_BOTH(GetFrameStatus, "Main", &out.text, &out.word, &out.word2, &out.mode, &out.word3,
                 &out.word4, &out.word5),
         {"k4ssGetFrameStatus(Main)"},
         "Could not get frame status from service.",
         {"A.SQ4", "", {1, 2, 3, 4, 5}, 6},
         "text=A.SQ4 word=1 word2=2 word3=3 word4=4 word5=5 mode=6"},
        {K4_BOTH(GetEffectStatus, "Main", &out.word, out.bytes, &out.word2),
         {"k4ssGetEffectStatus(Main)"},
         "Could not get effect status from service.",
         {"effect", "", {21, 22}},
         "word=21 word2=22 bytes=effect"},
        {K4_BOTH(GetSchedule, "Main", &out.word, out.bytes, &out.word2),
         {"k4ssGetSchedule(Main)"},
         "Could not get schedule from service.",
         {"schedule", "", {31, 32}},
         "word=31 word2=32 bytes=schedule"},
        {K4_BOTH(GetSignConfig, "Main", &out.word, &out.word2, &out.color, &out.pixel, &out.dimMode,
                 &out.number, &out.number2),
         {"k4ssGetConfig(Main)"},
         "Could not get sign configuration from service",
         {"48\t96\t11\t3\t0\t5\t0\t200\t-12", "", {}},
         "word=48 word2=96 number=200 number2=-12 color=11 pixel=3 dimMode=5"},
        {K4_BOTH(GetDIB, "Main", out.dib, 16, &out.word),
         {"k4ssGetDIB(Main, 16)"},
         "Could not get DIB from sign service",
         {"picture", "", {}},
         "word=7 dib=picture"},
        {K4_BOTH(GetBulb, "Main", out.bytes, 16, &out.word, &out.word2),
         {"k4ssGetBulb(Main, 16)"},
         "Could not get bulb data from sign service",
         {"bulbs", "", {41, 42}},
         "word=41 word2=42 bytes=bulbs"},
        {K4_BOTH(GetWindowState, "Main", 1, &out.number, &out.number2, &out.number3, &out.text),
         {"k4ssListWindows(Main)"},
         "Could not get window state",
         {"Small\t1\t2\t3\n", "", {}},
         "text=Small number=1 number2=3 number3=4"},
        {K4_BOTH(GetQueue, "Main", out.queue, 4),
         {"k4ssGetQueue(Main)"},
         "Could not get queue from service",
         {"1\tA.SQ4\t4\t7\n", "", {}},
         "queue=A.SQ4,4,7"},
        {K4_BOTH(GetDefaultSequence, "Main", &out.text, &out.mode, &out.word),
         {"k4ssGetDefaultSequence(Main, 270)"},
         "Could not get default sequence from sign service",
         {"B.SQ4", "", {8}, 4},
         "text=B.SQ4 word=8 mode=4"},
        {K4_BOTH(GetDefaultSeqFlag, "Main", &out.word),
         {"k4ssGetDefaultSeqFlag(Main)"},
         "Could not get default sequence flag from sign service",
         {"", "", {15}},
         "word=15"},

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
         {},
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

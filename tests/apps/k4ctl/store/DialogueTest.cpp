#include "apps/k4ctl/store/Dialogue.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <csignal>
#include <sstream>

#include "apps/k4ctl/store/StopRequest.h"

// Questions, messages and progress on a terminal.

namespace {

using k4cmn::MessageAnswer;
using k4cmn::MessageButtons;
using k4ctl::Dialogue;
using k4ctl::ExitCode;
using k4ctl::Replies;
using k4suite::FileAnswer;
using testing::ElementsAre;
using testing::HasSubstr;

struct Desk {
    explicit Desk(const std::string& typed, Replies replies = Replies::Ask, bool canAsk = true,
                  bool mayDestroy = false)
        : in(typed), dialogue({in, screen, canAsk, true}, replies, mayDestroy, answer) {}

    MessageAnswer Ask(MessageButtons buttons) {
        return dialogue.Ask({"Well?", {}, buttons, k4cmn::MessageIcon::Question});
    }
    FileAnswer Confirm(bool several = false, const char* title = "Copy", bool isFinal = true) {
        return dialogue.Confirm({title, "Well?", several, isFinal});
    }

    std::istringstream in;
    std::ostringstream screen;
    k4ctl::Answer answer;
    Dialogue dialogue;
};

TEST(Dialogue, EveryButtonOfAMessageHasAWord) {
    const struct {
        MessageButtons buttons;
        const char* typed;
        MessageAnswer answer;
    } rows[] = {
        {MessageButtons::OkCancel, "yes", MessageAnswer::Ok},
        {MessageButtons::OkCancel, "no", MessageAnswer::Cancel},
        {MessageButtons::OkCancel, "", MessageAnswer::Cancel},
        {MessageButtons::YesNo, "Y", MessageAnswer::Yes},
        {MessageButtons::YesNo, "n", MessageAnswer::No},
        {MessageButtons::YesNo, "", MessageAnswer::No},
        {MessageButtons::YesNoCancel, "yes", MessageAnswer::Yes},
        {MessageButtons::YesNoCancel, "no", MessageAnswer::No},
        {MessageButtons::YesNoCancel, "can", MessageAnswer::Cancel},
        {MessageButtons::YesNoCancel, "", MessageAnswer::Cancel},
        {MessageButtons::RetryCancel, "retry", MessageAnswer::Retry},
        {MessageButtons::RetryCancel, "", MessageAnswer::Cancel},
    };
    for (const auto& row : rows) {
        Desk desk(std::string(row.typed) + "\n");
        EXPECT_EQ(desk.Ask(row.buttons), row.answer) << row.typed;
        EXPECT_EQ(desk.answer.code, ExitCode::Done);
    }
}

TEST(Dialogue, YesAndNoAnswerWithoutAsking) {
    const struct {
        MessageButtons buttons;
        MessageAnswer yes;
        MessageAnswer no;
    } rows[] = {{MessageButtons::OkCancel, MessageAnswer::Ok, MessageAnswer::Cancel},
                {MessageButtons::YesNo, MessageAnswer::Yes, MessageAnswer::No},
                {MessageButtons::YesNoCancel, MessageAnswer::Yes, MessageAnswer::No},
                {MessageButtons::RetryCancel, MessageAnswer::Retry, MessageAnswer::Cancel}};
    for (const auto& row : rows) {
        Desk yes("", Replies::Yes);
        EXPECT_EQ(yes.Ask(row.buttons), row.yes);
        Desk no("", Replies::No);
        EXPECT_EQ(no.Ask(row.buttons), row.no);
        EXPECT_EQ(yes.screen.str() + no.screen.str(), "");
    }
}

TEST(Dialogue, QuestionsOfFilesHaveAnswersForAllOnlyWhereMoreMayCome) {
    Desk one("all\nnone\ny\n");
    EXPECT_EQ(one.Confirm(), FileAnswer::Yes);
    const std::string line = "Well? (yes/no/cancel) [no] ";
    EXPECT_EQ(one.screen.str(), line + line + line);
}

TEST(Dialogue, AnswersForAll) {
    const std::pair<const char*, FileAnswer> rows[] = {
        {"yes", FileAnswer::Yes},       {"no", FileAnswer::No},
        {"all", FileAnswer::YesToAll},  {"none", FileAnswer::NoToAll},
        {"cancel", FileAnswer::Cancel}, {"", FileAnswer::No}};
    for (const auto& [typed, answer] : rows) {
        Desk desk(std::string(typed) + "\n");
        EXPECT_EQ(desk.Confirm(true), answer) << typed;
    }
    EXPECT_EQ(Desk("", Replies::Yes).Confirm(true), FileAnswer::YesToAll);
    EXPECT_EQ(Desk("", Replies::No).Confirm(true), FileAnswer::NoToAll);
    EXPECT_EQ(Desk("", Replies::Yes).Confirm(), FileAnswer::Yes);
    EXPECT_EQ(Desk("", Replies::No).Confirm(), FileAnswer::No);
}

TEST(Dialogue, WhereNobodySitsTheCautiousAnswerIsAFailureThatSaysSo) {
    Desk desk("yes\n", Replies::Ask, false);
    EXPECT_EQ(desk.Ask(MessageButtons::OkCancel), MessageAnswer::Cancel);
    EXPECT_EQ(desk.Confirm(true), FileAnswer::NoToAll);
    EXPECT_EQ(desk.answer.code, ExitCode::Refused);
    EXPECT_THAT(desk.answer.words,
                ElementsAre("Well? Nobody can be asked; --yes or --no answers.",
                            "Well? Nobody can be asked; --yes or --no answers."));
    EXPECT_EQ(desk.screen.str(), "");
}

TEST(Dialogue, DeletingForGoodNeedsMoreThanYes) {
    Desk desk("", Replies::Yes);
    EXPECT_EQ(desk.Confirm(true, "Delete"), FileAnswer::NoToAll);
    EXPECT_THAT(desk.answer.words, ElementsAre("Well? --force answers yes."));
    EXPECT_EQ(Desk("", Replies::Yes, true, true).Confirm(true, "Delete"), FileAnswer::YesToAll);
    EXPECT_EQ(Desk("", Replies::Yes).Confirm(false, "Delete", false), FileAnswer::Yes);
    EXPECT_EQ(Desk("y\n").Confirm(false, "Delete"), FileAnswer::Yes);
}

TEST(Dialogue, AMessageIsAFailureInOneLine) {
    Desk desk("");
    EXPECT_EQ(desk.dialogue.Ask(k4cmn::PlainMessage(" Error Creating Folder: A:\\x\n File exists")),
              MessageAnswer::Ok);
    desk.dialogue.Ask(k4cmn::PlainMessage("Create: \nA:\\x?\n"));
    desk.dialogue.Ask(k4cmn::PlainMessage("\nab\n\ncd"));
    EXPECT_THAT(desk.answer.words, ElementsAre("Error Creating Folder: A:\\x: File exists",
                                               "Create: A:\\x?", "ab: cd"));
    EXPECT_EQ(desk.answer.code, ExitCode::Refused);
}

TEST(Dialogue, KeepsQuestionsForMachines) {
    Desk desk("y\n\n");
    desk.Ask(MessageButtons::OkCancel);
    desk.Confirm();
    EXPECT_EQ(desk.dialogue.Questions(),
              (QJsonArray{QJsonObject{{QStringLiteral("text"), QStringLiteral("Well?")},
                                      {QStringLiteral("answer"), QStringLiteral("yes")}},
                          QJsonObject{{QStringLiteral("text"), QStringLiteral("Well?")},
                                      {QStringLiteral("answer"), QStringLiteral("no")}}}));
}

TEST(Dialogue, NamesInQuestionsCannotDriveTheTerminal) {
    Desk desk("n\n");
    desk.dialogue.Ask({"\x1b[2J\xff?", {}, MessageButtons::YesNo, k4cmn::MessageIcon::None});
    EXPECT_EQ(desk.screen.str(), "\\x1b[2J\\xff? (yes/no) [no] ");
}

TEST(Dialogue, ProgressIsWrittenOverItselfAndCleared) {
    Desk desk("n\n");
    desk.dialogue.Begin("Copy");
    // Not more often than an eye needs it.
    while (desk.screen.str().empty())
        EXPECT_TRUE(desk.dialogue.Progress(1, 4, "a\tname"));
    EXPECT_EQ(desk.screen.str(), "\rCopy  25% a\\tname\x1b[K");
    desk.screen.str("");
    desk.Confirm();
    EXPECT_THAT(desk.screen.str(), testing::StartsWith("\r\x1b[KWell? "));
    desk.screen.str("");
    desk.dialogue.End();
    EXPECT_EQ(desk.screen.str(), "");
}

TEST(Dialogue, StopsWorkAndQuestionsAfterARequest) {
    Desk desk("y\ny\ny\n");
    const k4ctl::StopRequest stop;
    desk.dialogue.Begin("Copy");
    EXPECT_TRUE(desk.dialogue.Progress(0, 1, "x"));
    std::raise(SIGTERM);
    EXPECT_FALSE(desk.dialogue.Progress(0, 1, "x"));
    EXPECT_EQ(desk.Confirm(true), FileAnswer::Cancel);
    EXPECT_EQ(desk.Ask(MessageButtons::YesNoCancel), MessageAnswer::Cancel);
    EXPECT_EQ(desk.screen.str(), "");
    EXPECT_EQ(desk.answer.code, ExitCode::Done);
}

TEST(StopRequest, WaitingForInputIsOverWithInputItsEndOrARequest) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const k4ctl::StopRequest stop;
    ASSERT_EQ(write(ends[1], "x", 1), 1);
    EXPECT_TRUE(k4ctl::StopRequest::WaitForInput(ends[0]));
    char read1 = 0;
    ASSERT_EQ(read(ends[0], &read1, 1), 1);
    // One that came before the waiting begins: no other signal comes.
    std::raise(SIGINT);
    EXPECT_FALSE(k4ctl::StopRequest::WaitForInput(ends[0]));
    close(ends[1]);
    close(ends[0]);
}

TEST(StopRequest, EndsWithItsObject) {
    {
        const k4ctl::StopRequest stop;
        std::raise(SIGTERM);
        EXPECT_TRUE(k4ctl::StopRequest::Came());
    }
    EXPECT_FALSE(k4ctl::StopRequest::Came());
}

}  // namespace

#include "tests/filesel/PropFixture.h"

namespace k4test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kOne[] = "A:\\One.SQ4";

/// What a sheet tells its parent window.
class PropertiesParent : public Properties {
 protected:
    PropertiesParent() { Make(kOne); }

    std::unique_ptr<CK4CmnDlgFileProp> Shown(QWidget* parentWindow) {
        auto made =
            std::make_unique<CK4CmnDlgFileProp>("Properties", parentWindow, kAdvanced, kModeless);
        EXPECT_EQ(made->ShowFileProperties(kOne), 1);
        return made;
    }
    static void Type(const CPropertySheet& sheet, const char* text) {
        TypeOver(sheet, kKeywords, QString::fromUtf8(text));
    }
};

TEST_F(PropertiesParent, IsToldOfASaveByTwoPostedMessages) {
    const auto sheet = Shown(&parent);
    Type(*sheet, "new");
    Click(*sheet, kApply);
    EXPECT_THAT(parent.told, IsEmpty()) << "posted, not sent";
    QCoreApplication::sendPostedEvents(&parent);
    EXPECT_THAT(parent.told, ElementsAre(1035U, 1034U));
}

TEST_F(PropertiesParent, IsToldOfTheEndBySentMessage) {
    const auto sheet = Shown(&parent);
    bool stood = false;
    parent.then = [&](const k4cmn::WindowMessage&) { stood = sheet->HasWindow(); };
    Click(*sheet, kCancel);
    EXPECT_THAT(parent.told, ElementsAre(1124U));
    EXPECT_EQ(parent.parameter, reinterpret_cast<std::uintptr_t>(sheet.get()));
    EXPECT_TRUE(stood) << "told before the window goes";
    sheet->DestroyWindow();
    EXPECT_THAT(parent.told, ElementsAre(1124U)) << "once";
}

TEST_F(PropertiesParent, IsToldOfTheEndBeforeThePostedMessagesOfTheSave) {
    const auto sheet = Shown(&parent);
    Type(*sheet, "new");
    Click(*sheet, kOk);
    QCoreApplication::sendPostedEvents(&parent);
    EXPECT_THAT(parent.told, ElementsAre(1124U, 1035U, 1034U));
}

TEST_F(PropertiesParent, IsToldWhenTheSheetIsDeleted) {
    auto sheet = Shown(&parent);
    sheet.reset();
    EXPECT_THAT(parent.told, ElementsAre(1124U));
}

TEST_F(PropertiesParent, IsToldNothingByASheetThatNeverHadAWindow) {
    { const CK4CmnDlgFileProp never("Properties", &parent, kGeneral, kModeless); }
    EXPECT_THAT(parent.told, IsEmpty());
}

TEST_F(PropertiesParent, IsToldOfAModalSheetToo) {
    CK4CmnDlgFileProp modal("Properties", &parent, kAdvanced);
    ASSERT_EQ(modal.ShowFileProperties(kOne), 1);
    RunModal(modal, [&] {
        Type(modal, "new");
        Click(modal, kOk);
    });
    QCoreApplication::sendPostedEvents(&parent);
    EXPECT_THAT(parent.told, testing::UnorderedElementsAre(1124U, 1035U, 1034U));
}

TEST_F(PropertiesParent, OfAPlainSheetIsToldNothing) {
    const auto file = Opened(kOne);
    CK4CmnSeqFileProperties record;
    record.filePath = kOne;
    CK4CmnPSProperties plain("Properties", &parent, kAdvanced, kModeless);
    ASSERT_EQ(plain.ShowFileProperties(file.get(), &record), 1);
    Type(plain, "new");
    Click(plain, kOk);
    QCoreApplication::sendPostedEvents(&parent);
    EXPECT_THAT(parent.told, IsEmpty());
}

TEST_F(PropertiesParent, MayBeNone) {
    const auto sheet = Shown(nullptr);
    Type(*sheet, "new");
    Click(*sheet, kApply);
    Type(*sheet, "newer");
    Click(*sheet, kOk);
    EXPECT_EQ(KeywordsIn(kOne), "newer; ");
}

/// Counts the window messages that any object gets.
class MessageCount final : public QObject {
 public:
    MessageCount() { qApp->installEventFilter(this); }
    int messages = 0;

    bool eventFilter(QObject*, QEvent* event) override {
        messages += k4cmn::WindowMessage::From(event) ? 1 : 0;
        return false;
    }
};

TEST_F(PropertiesParent, TakesItsSheetAlongUntold) {
    auto window = std::make_unique<ToldWindow>();
    const QPointer<CK4CmnDlgFileProp> sheet = Shown(window.get()).release();
    const MessageCount count;
    window.reset();
    EXPECT_TRUE(sheet.isNull());
    EXPECT_EQ(count.messages, 0);
}

TEST_F(PropertiesParent, ThatIsGoneIsNotTold) {
    auto window = std::make_unique<ToldWindow>();
    const auto sheet = Shown(window.get());
    sheet->setParent(nullptr);
    window.reset();
    sheet->show();
    Type(*sheet, "new");
    Click(*sheet, kApply);
    EXPECT_EQ(KeywordsIn(kOne), "new; ");
    sheet->DestroyWindow();
}

TEST_F(PropertiesParent, MayDeleteTheSheetLaterWhenItIsTold) {
    QPointer<CK4CmnDlgFileProp> sheet = Shown(&parent).release();
    parent.then = [&](const k4cmn::WindowMessage&) { sheet->deleteLater(); };
    Click(*sheet, kOk);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(sheet.isNull());
    EXPECT_THAT(parent.told, ElementsAre(1124U));
}

TEST_F(PropertiesParent, MayDeleteTheSheetWhileItIsTold) {
    for (const auto& way : std::vector<std::function<void(CK4CmnDlgFileProp&)>>{
             [](CK4CmnDlgFileProp& any) { any.OnOK(); },
             [](CK4CmnDlgFileProp& any) { any.OnCancel(); },
             [](CK4CmnDlgFileProp& any) { any.close(); },
             [](CK4CmnDlgFileProp& any) { any.DestroyWindow(); },
             [](CK4CmnDlgFileProp& any) { any.CloseProperties(1); },
             [](CK4CmnDlgFileProp& any) { Click(any, IDOK); },
             [](CK4CmnDlgFileProp& any) { Click(any, IDCANCEL); },
             [](CK4CmnDlgFileProp& any) { PressKey(any, Qt::Key_Escape); },
             [](CK4CmnDlgFileProp& any) { PressKey(any, Qt::Key_Return); }}) {
        parent.told.clear();
        QPointer<CK4CmnDlgFileProp> sheet = Shown(&parent).release();
        parent.then = [&](const k4cmn::WindowMessage&) { delete sheet; };
        way(*sheet);
        EXPECT_TRUE(sheet.isNull());
        EXPECT_THAT(parent.told, ElementsAre(1124U));
    }
}

TEST_F(PropertiesParent, MayEndTheSheetWhileItIsTold) {
    const auto sheet = Shown(&parent);
    parent.then = [&](const k4cmn::WindowMessage&) { sheet->DestroyWindow(); };
    Click(*sheet, kOk);
    EXPECT_FALSE(sheet->HasWindow());
    EXPECT_THAT(parent.told, ElementsAre(1124U));
}

TEST_F(PropertiesParent, MayShowTheFileAgainWhenItIsToldOfASave) {
    const auto sheet = Shown(&parent);
    parent.then = [&](const k4cmn::WindowMessage& message) {
        const int shown = message.number == 1035 ? sheet->ShowFileProperties(kOne) : 1;
        EXPECT_EQ(shown, 1);
    };
    Type(*sheet, "a,b");
    Click(*sheet, kApply);
    QCoreApplication::sendPostedEvents(&parent);
    EXPECT_THAT(parent.told, ElementsAre(1035U, 1034U));
    EXPECT_EQ(TextOf(*sheet, kKeywords), "a; b; ");
}

TEST_F(PropertiesParent, MayDeleteTheSheetWhileItShowsAMessage) {
    for (const bool saving : {false, true}) {
        Make(kOne);
        QPointer<CK4CmnDlgFileProp> sheet = Shown(&parent).release();
        const std::string path = saving ? kOne : "A:\\Absent.SQ4";
        if (saving) {
            Type(*sheet, "new");
            std::filesystem::remove(Native(kOne));
        }
        messages.Expect(CantOpen(path), k4cmn::MessageAnswer::Ok, [&] { delete sheet; });
        EXPECT_EQ(sheet->ShowFileProperties("A:\\Absent.SQ4"), 0);
        EXPECT_TRUE(sheet.isNull());
    }
}

}  // namespace
}  // namespace k4test

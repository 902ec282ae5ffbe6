#include "k4cmndlg/frame/CDataExchange.h"

#include <gtest/gtest.h>

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>
#include <functional>

#include "k4cmndlg/frame/CDialog.h"
#include "k4cmndlg/frame/StringTable.h"
#include "tests/support/MessageQueue.h"

using k4test::MessageQueue;

namespace {

/// A dialog whose exchange is given by each test.
class ExchangeDialog : public CDialog {
 public:
    ExchangeDialog() : CDialog(100, nullptr) {}
    std::function<void(CDataExchange*)> exchange;

 protected:
    void DoDataExchange(CDataExchange* pDX) override { exchange(pDX); }
};

class DataExchange : public testing::Test {
 protected:
    bool Load(std::function<void(CDataExchange*)> exchange) {
        m_dialog.exchange = std::move(exchange);
        return m_dialog.UpdateData(false);
    }
    bool Save(std::function<void(CDataExchange*)> exchange) {
        m_dialog.exchange = std::move(exchange);
        return m_dialog.UpdateData(true);
    }
    /// Shows the dialog, so that a control can have the focus.
    void Show() {
        m_dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
    }

    ExchangeDialog m_dialog;
    QLineEdit m_edit{&m_dialog};
    QLineEdit m_second{&m_dialog};
};

}  // namespace

TEST_F(DataExchange, TextGoesBothWays) {
    std::string text = "Grüße";
    EXPECT_TRUE(Load([&](CDataExchange* pDX) { DDX_Text(pDX, &m_edit, text); }));
    EXPECT_EQ(m_edit.text(), QString::fromUtf8("Grüße"));
    m_edit.setText(QString::fromUtf8("漢字"));
    EXPECT_TRUE(Save([&](CDataExchange* pDX) { DDX_Text(pDX, &m_edit, text); }));
    EXPECT_EQ(text, "漢字");
}

TEST_F(DataExchange, IntegerGoesBothWays) {
    std::int32_t value = -64;
    EXPECT_TRUE(Load([&](CDataExchange* pDX) { DDX_Text(pDX, &m_edit, value); }));
    EXPECT_EQ(m_edit.text(), QStringLiteral("-64"));
    m_edit.setText(QStringLiteral(" 255 "));
    EXPECT_TRUE(Save([&](CDataExchange* pDX) { DDX_Text(pDX, &m_edit, value); }));
    EXPECT_EQ(value, 255);
}

TEST_F(DataExchange, NumberWithoutASignGoesBothWays) {
    std::uint32_t value = 4294967295U;
    const auto move = [&](CDataExchange* pDX) { DDX_Text(pDX, &m_edit, value); };
    EXPECT_TRUE(Load(move));
    EXPECT_EQ(m_edit.text(), QStringLiteral("4294967295"));
    m_edit.setText(QStringLiteral("99999999999999999999"));
    value = 5;
    EXPECT_TRUE(Save(move));
    EXPECT_EQ(value, 4294967295U);
    for (const char* text : {"", "x", "7px"}) {
        MessageQueue messages;
        messages.Expect("Enter an integer.");
        m_edit.setText(QString::fromUtf8(text));
        EXPECT_FALSE(Save(move)) << text;
        EXPECT_EQ(value, 4294967295U) << text;
    }
}

TEST_F(DataExchange, NumberWithoutASignIsCheckedAgainstItsRange) {
    for (const std::uint32_t value : {7U, 2048U})
        EXPECT_TRUE(Save([&](CDataExchange* pDX) { DDV_MinMaxUInt(pDX, value, 7, 2048); }));
    for (const std::uint32_t value : {0U, 6U, 2049U, 4294967295U}) {
        MessageQueue messages;
        messages.Expect("Enter an integer between 7 and 2048.");
        EXPECT_FALSE(Save([&](CDataExchange* pDX) { DDV_MinMaxUInt(pDX, value, 7, 2048); }));
        EXPECT_TRUE(Load([&](CDataExchange* pDX) { DDV_MinMaxUInt(pDX, value, 7, 2048); }));
    }
}

TEST_F(DataExchange, AnEntrysIndexGoesBothWaysInSilence) {
    QComboBox combo(&m_dialog);
    combo.addItems({QStringLiteral("a"), QStringLiteral("b")});
    const QSignalSpy changes(&combo, &QComboBox::currentIndexChanged);
    int index = 1;
    const auto move = [&](CDataExchange* pDX) { DDX_CBIndex(pDX, &combo, index); };
    EXPECT_TRUE(Load(move));
    EXPECT_EQ(combo.currentIndex(), 1);
    for (const int none : {-1, 2, 1000}) {
        index = none;
        EXPECT_TRUE(Load(move));
        EXPECT_EQ(combo.currentIndex(), -1) << none;
        EXPECT_TRUE(Save(move));
        EXPECT_EQ(index, -1);
    }
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(DataExchange, TextThatIsNoIntegerIsRefused) {
    for (const char* text : {"", "x", "1.5", "12px", "-", "2147483648"}) {
        MessageQueue messages;
        messages.Expect("Enter an integer.");
        std::int32_t value = 5;
        m_edit.setText(QString::fromUtf8(text));
        EXPECT_FALSE(Save([&](CDataExchange* pDX) { DDX_Text(pDX, &m_edit, value); })) << text;
        EXPECT_EQ(value, 5) << text;
    }
}

TEST_F(DataExchange, RefusedControlGetsTheFocusWithItsTextSelected) {
    Show();
    m_second.setFocus();
    MessageQueue messages;
    messages.Expect("Enter an integer.");
    m_edit.setText(QStringLiteral("wrong"));
    std::int32_t value = 0;
    EXPECT_FALSE(Save([&](CDataExchange* pDX) { DDX_Text(pDX, &m_edit, value); }));
    EXPECT_TRUE(m_edit.hasFocus());
    EXPECT_EQ(m_edit.selectedText(), QStringLiteral("wrong"));
}

TEST_F(DataExchange, MessageComesBeforeTheFocusMoves) {
    Show();
    m_second.setFocus();
    MessageQueue messages;
    bool stillThere = false;
    messages.Expect(k4cmn::PlainMessage("Enter an integer."), k4cmn::MessageAnswer::Ok,
                    [&] { stillThere = m_second.hasFocus(); });
    std::int32_t value = 0;
    EXPECT_FALSE(Save([&](CDataExchange* pDX) { DDX_Text(pDX, &m_edit, value); }));
    EXPECT_TRUE(stillThere);
}

TEST_F(DataExchange, AfterAFailureTheRestDoesNothing) {
    MessageQueue messages;
    messages.Expect("Enter an integer.");
    m_edit.setText(QStringLiteral("x"));
    m_second.setText(QStringLiteral("9"));
    std::int32_t first = 1;
    std::int32_t second = 2;
    std::string text = "kept";
    int check = 3;
    QCheckBox box(&m_dialog);
    QSlider slider(&m_dialog);
    QComboBox combo(&m_dialog);
    QRadioButton radio(&m_dialog);
    EXPECT_FALSE(Save([&](CDataExchange* pDX) {
        DDX_Text(pDX, &m_edit, first);
        DDV_MinMaxInt(pDX, first, 10, 20);
        DDX_Text(pDX, &m_second, second);
        DDV_MinMaxInt(pDX, second, 10, 20);
        DDX_Text(pDX, &m_second, text);
        DDV_MaxChars(pDX, "far too long", 1);
        DDX_CBString(pDX, &combo, text);
        DDX_Check(pDX, &box, check);
        DDX_Radio(pDX, {&radio}, check);
        DDX_Slider(pDX, &slider, check);
    }));
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2);
    EXPECT_EQ(text, "kept");
    EXPECT_EQ(check, 3);
}

namespace {

struct RangeRow {
    std::int32_t value;
    bool passes;
};

}  // namespace

TEST_F(DataExchange, RangeIncludesItsBounds) {
    for (const RangeRow row :
         {RangeRow{-8, false}, {-7, true}, {0, true}, {16, true}, {17, false}}) {
        MessageQueue messages;
        if (!row.passes)
            messages.Expect("Enter an integer between -7 and 16.");
        m_edit.setText(QString::number(row.value));
        std::int32_t value = 0;
        EXPECT_EQ(Save([&](CDataExchange* pDX) {
                      DDX_Text(pDX, &m_edit, value);
                      DDV_MinMaxInt(pDX, value, -7, 16);
                  }),
                  row.passes)
            << row.value;
    }
}

TEST_F(DataExchange, RangeIsNotCheckedWhileLoading) {
    std::int32_t value = 99;
    EXPECT_TRUE(Load([&](CDataExchange* pDX) {
        DDX_Text(pDX, &m_edit, value);
        DDV_MinMaxInt(pDX, value, 1, 8);
    }));
    EXPECT_EQ(m_edit.text(), QStringLiteral("99"));
}

TEST_F(DataExchange, LongTextIsRefusedWithTheLimit) {
    MessageQueue messages;
    messages.Expect("Enter no more than 3 characters.");
    std::string text;
    m_edit.setText(QStringLiteral("four"));
    EXPECT_FALSE(Save([&](CDataExchange* pDX) {
        DDX_Text(pDX, &m_edit, text);
        DDV_MaxChars(pDX, text, 3);
    }));
}

TEST_F(DataExchange, LengthCountsCharactersAndNotBytes) {
    const MessageQueue messages;
    std::string text;
    m_edit.setText(QString::fromUtf8("äöü"));
    EXPECT_TRUE(Save([&](CDataExchange* pDX) {
        DDX_Text(pDX, &m_edit, text);
        DDV_MaxChars(pDX, text, 3);
    }));
}

TEST_F(DataExchange, LoadingLimitsWhatCanBeTyped) {
    std::string text = "ab";
    EXPECT_TRUE(Load([&](CDataExchange* pDX) {
        DDX_Text(pDX, &m_edit, text);
        DDV_MaxChars(pDX, text, 3);
    }));
    m_edit.end(false);
    QTest::keyClicks(&m_edit, QStringLiteral("cdef"));
    EXPECT_EQ(m_edit.text(), QStringLiteral("abc"));
}

TEST_F(DataExchange, LoadingALongerTextDoesNotCutIt) {
    std::string text = "already long";
    EXPECT_TRUE(Load([&](CDataExchange* pDX) {
        DDX_Text(pDX, &m_edit, text);
        DDV_MaxChars(pDX, text, 3);
    }));
    EXPECT_EQ(m_edit.text(), QStringLiteral("already long"));
}

TEST_F(DataExchange, HugeLimitIsNoLimit) {
    std::string text = "ab";
    EXPECT_TRUE(Load([&](CDataExchange* pDX) {
        DDX_Text(pDX, &m_edit, text);
        DDV_MaxChars(pDX, text, SIZE_MAX);
    }));
    EXPECT_EQ(m_edit.maxLength(), 32767);
}

TEST_F(DataExchange, CheckGoesBothWays) {
    QCheckBox box(&m_dialog);
    int value = 5;
    Load([&](CDataExchange* pDX) { DDX_Check(pDX, &box, value); });
    EXPECT_TRUE(box.isChecked());
    Save([&](CDataExchange* pDX) { DDX_Check(pDX, &box, value); });
    EXPECT_EQ(value, 1);
    box.setChecked(false);
    Save([&](CDataExchange* pDX) { DDX_Check(pDX, &box, value); });
    EXPECT_EQ(value, 0);
    Load([&](CDataExchange* pDX) { DDX_Check(pDX, &box, value); });
    EXPECT_FALSE(box.isChecked());
}

TEST_F(DataExchange, RadioIsTheIndexOfTheButtonThatIsOn) {
    QRadioButton a(&m_dialog);
    QRadioButton b(&m_dialog);
    QRadioButton c(&m_dialog);
    int value = 1;
    const auto exchange = [&](CDataExchange* pDX) { DDX_Radio(pDX, {&a, &b, &c}, value); };
    Load(exchange);
    EXPECT_TRUE(b.isChecked());
    c.setChecked(true);
    Save(exchange);
    EXPECT_EQ(value, 2);
}

TEST_F(DataExchange, RadioIndexMinusOneSwitchesAllOff) {
    QRadioButton a(&m_dialog);
    QRadioButton b(&m_dialog);
    a.setChecked(true);
    int value = -1;
    const auto exchange = [&](CDataExchange* pDX) { DDX_Radio(pDX, {&a, &b}, value); };
    Load(exchange);
    EXPECT_FALSE(a.isChecked());
    EXPECT_FALSE(b.isChecked());
    EXPECT_TRUE(a.autoExclusive());
    Save(exchange);
    EXPECT_EQ(value, -1);
    b.setChecked(true);
    a.setChecked(true);
    EXPECT_FALSE(b.isChecked()) << "the buttons exclude each other again";
}

TEST_F(DataExchange, RadioButtonsOfAGroupObjectAreSwitchedOffToo) {
    QRadioButton a(&m_dialog);
    QRadioButton b(&m_dialog);
    QButtonGroup group;
    group.addButton(&a);
    group.addButton(&b);
    a.setChecked(true);
    int value = -1;
    Load([&](CDataExchange* pDX) { DDX_Radio(pDX, {&a, &b}, value); });
    EXPECT_FALSE(a.isChecked());
    EXPECT_FALSE(b.isChecked());
    EXPECT_TRUE(group.exclusive());
}

TEST_F(DataExchange, RadioIndexOutsideSwitchesAllOff) {
    QRadioButton a(&m_dialog);
    a.setChecked(true);
    int value = 7;
    Load([&](CDataExchange* pDX) { DDX_Radio(pDX, {&a}, value); });
    EXPECT_FALSE(a.isChecked());
}

TEST_F(DataExchange, ComboSelectsTheEntryWithExactlyThatText) {
    QComboBox combo(&m_dialog);
    combo.addItems(
        {QString(), QStringLiteral("Main"), QStringLiteral("main"), QStringLiteral("Main 2")});
    std::string text = "main";
    const auto exchange = [&](CDataExchange* pDX) { DDX_CBString(pDX, &combo, text); };
    Load(exchange);
    EXPECT_EQ(combo.currentIndex(), 2);
    text = "";
    Load(exchange);
    EXPECT_EQ(combo.currentIndex(), 0);
    text = "Mai";
    Load(exchange);
    EXPECT_EQ(combo.currentIndex(), -1);
    combo.setCurrentIndex(3);
    Save(exchange);
    EXPECT_EQ(text, "Main 2");
}

TEST_F(DataExchange, EditableComboShowsAnyText) {
    QComboBox combo(&m_dialog);
    combo.setEditable(true);
    combo.addItem(QStringLiteral("Main"));
    std::string text = "Elsewhere";
    const auto exchange = [&](CDataExchange* pDX) {
        DDX_CBString(pDX, &combo, text);
        DDV_MaxChars(pDX, text, 9);
    };
    Load(exchange);
    EXPECT_EQ(combo.currentText(), QStringLiteral("Elsewhere"));
    EXPECT_EQ(combo.lineEdit()->maxLength(), 9);
    combo.setEditText(QStringLiteral("Other"));
    Save(exchange);
    EXPECT_EQ(text, "Other");
}

TEST_F(DataExchange, SliderGoesBothWaysInsideItsRange) {
    QSlider slider(&m_dialog);
    slider.setRange(-64, 64);
    int value = -64;
    const auto exchange = [&](CDataExchange* pDX) { DDX_Slider(pDX, &slider, value); };
    Load(exchange);
    EXPECT_EQ(slider.value(), -64);
    slider.setValue(16);
    Save(exchange);
    EXPECT_EQ(value, 16);
    value = 1000;
    Load(exchange);
    EXPECT_EQ(slider.value(), 64);
}

TEST_F(DataExchange, LoadingTellsNobody) {
    QCheckBox box(&m_dialog);
    QSlider slider(&m_dialog);
    QComboBox combo(&m_dialog);
    combo.addItems({QStringLiteral("a"), QStringLiteral("b")});
    QRadioButton radio(&m_dialog);
    const QSignalSpy spies[] = {{&m_edit, &QLineEdit::textChanged},
                                {&box, &QCheckBox::toggled},
                                {&slider, &QSlider::valueChanged},
                                {&combo, &QComboBox::currentIndexChanged},
                                {&radio, &QRadioButton::toggled}};
    std::string text = "b";
    int one = 1;
    int zero = 0;
    Load([&](CDataExchange* pDX) {
        DDX_Text(pDX, &m_edit, text);
        DDX_Check(pDX, &box, one);
        DDX_Slider(pDX, &slider, one);
        DDX_CBString(pDX, &combo, text);
        DDX_Radio(pDX, {&radio}, zero);
    });
    EXPECT_EQ(combo.currentIndex(), 1);
    EXPECT_TRUE(radio.isChecked());
    for (const QSignalSpy& spy : spies)
        EXPECT_EQ(spy.count(), 0);
}

TEST_F(DataExchange, FailingWithoutWordsShowsNothing) {
    const MessageQueue messages;
    EXPECT_FALSE(Save([&](CDataExchange* pDX) { pDX->Fail(""); }));
}

TEST_F(DataExchange, OwnWordsAreShownInAPlainMessage) {
    MessageQueue messages;
    messages.Expect("Columns must be on boundries of 8. (1 based)");
    EXPECT_FALSE(Save([&](CDataExchange* pDX) {
        pDX->PrepareControl(&m_edit);
        pDX->Fail("Columns must be on boundries of 8. (1 based)");
    }));
}

TEST_F(DataExchange, ApplicationsWordsComeFirst) {
    static constexpr k4cmn::StringRow kOwn[] = {{0xF110, "Bitte eine Zahl."}};
    k4cmn::SetApplicationStrings(kOwn);
    MessageQueue messages;
    messages.Expect("Bitte eine Zahl.");
    std::int32_t value = 0;
    EXPECT_FALSE(Save([&](CDataExchange* pDX) { DDX_Text(pDX, &m_edit, value); }));
    k4cmn::SetApplicationStrings({});
}

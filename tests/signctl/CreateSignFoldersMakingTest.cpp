#include <QPointer>
#include <cerrno>
#include <filesystem>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "tests/signctl/CreateSignFoldersFixture.h"
#include "tests/support/NoLibraryAccess.h"

namespace k4test {
namespace {

namespace fs = std::filesystem;

const std::string kSmallest = "8x16.Mono1.Incand.Sign";
const std::string kSmallestPalette = "8x16.Mono1.Incand.Palette.Sign";

// The checks of OK --------------------------------------------------------------------------------

struct Refused {
    const char* what;
    const char* rows;
    const char* columns;
    const char* words;
    int focus;
};

class CreateSignFoldersRefused : public CreateSignFolders,
                                 public testing::WithParamInterface<Refused> {};

TEST_P(CreateSignFoldersRefused, StaysOpenAndSaysWhy) {
    Look([&] {
        Tick(0);
        // By Enter, so that no field is left before OK reads it.
        const bool isInRows = GetParam().focus == kRows;
        TypeOver(dialog, isInRows ? kRows : kColumns,
                 QLatin1String(isInRows ? GetParam().rows : GetParam().columns));
        Of<QLineEdit>(isInRows ? kColumns : kRows)
            ->setText(QLatin1String(isInRows ? GetParam().columns : GetParam().rows));
        messages.Expect(GetParam().words);
        PressKey(dialog, Qt::Key_Return);
        EXPECT_EQ(messages.Pending(), 0u);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(FocusedId(dialog), GetParam().focus);
        EXPECT_TRUE(fs::is_empty(Native("A:")));
    });
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CreateSignFoldersRefused,
    testing::Values(
        Refused{"RowsBelow", "6", "16", "Enter an integer between 7 and 2048.", 1015},
        Refused{"RowsZero", "0", "16", "Enter an integer between 7 and 2048.", 1015},
        Refused{"RowsAbove", "2049", "16", "Enter an integer between 7 and 2048.", 1015},
        Refused{"RowsHuge", "99999999999", "16", "Enter an integer between 7 and 2048.", 1015},
        Refused{"RowsPast31Bits", "3000000000", "16", "Enter an integer between 7 and 2048.", 1015},
        Refused{"RowsEmpty", "", "16", "Enter an integer.", 1015},
        Refused{"ColumnsBelow", "8", "15", "Enter an integer between 16 and 16384.", 1017},
        Refused{"ColumnsAbove", "8", "16385", "Enter an integer between 16 and 16384.", 1017},
        Refused{"ColumnsEmpty", "8", "", "Enter an integer.", 1017},
        Refused{"RowsBeforeColumns", "6", "15", "Enter an integer between 7 and 2048.", 1015},
        Refused{"Product", "2048", "16384", "Rows x Cols cannot be > 8388608", 1015},
        Refused{"ProductBeforeRows", "2047", "16383", "Rows x Cols cannot be > 8388608", 1015},
        Refused{"RowsNoMultiple", "9", "16", "Number of rows must be 7 or a multiple of 8.\n",
                1015},
        Refused{"RowsBeforeTheirColumns", "20", "17",
                "Number of rows must be 7 or a multiple of 8.\n", 1015},
        Refused{"ColumnsNoMultiple", "8", "24", "Number of columns must be a multiple of 16.\n",
                1017}),
    [](const auto& row) { return row.param.what; });

TEST_F(CreateSignFolders, RowsOf3Become0WhichOkRefuses) {
    Look([&] {
        Tick(0);
        TypeOver(dialog, kRows, QStringLiteral("3"));
        messages.Expect("Enter an integer between 7 and 2048.");
        Click(dialog, kOk);
        EXPECT_EQ(Text(kRows), "0");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(FocusedId(dialog), kRows);
        EXPECT_EQ(Of<QLineEdit>(kRows)->selectedText(), QStringLiteral("0"));
    });
}

struct Accepted {
    const char* rows;
    const char* columns;
};

TEST_F(CreateSignFolders, TheLimitsThemselvesAreAccepted) {
    for (const Accepted& size :
         {Accepted{"7", "16"}, Accepted{"512", "16384"}, Accepted{"2048", "4096"}}) {
        EXPECT_EQ(Run([&] {
                      Enter(kRows, size.rows);
                      Enter(kColumns, size.columns);
                      Tick(0);
                      Click(dialog, kOk);
                  }),
                  IDOK);
        const std::string type = std::string(size.rows) + "x" + size.columns + ".Mono1.Incand";
        EXPECT_TRUE(Exists("A:\\" + type + ".Sign\\Default.Lib")) << type;
        EXPECT_TRUE(Exists("A:\\" + type + ".Palette.Sign\\Default.Lib")) << type;
    }
}

TEST_F(CreateSignFolders, AFixedSizeIsCheckedLikeAnyOther) {
    dialog.Initialize(8, 24, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 1);
    Look([&] {
        Tick(0);
        messages.Expect("Number of columns must be a multiple of 16.\n");
        Click(dialog, kOk);
    });
    EXPECT_TRUE(fs::is_empty(Native("A:")));
}

// Making ------------------------------------------------------------------------------------------

TEST_F(CreateSignFolders, AreMadeOnEveryTickedServerWithTheirTwins) {
    EXPECT_EQ(Run([&] {
                  Tick(0);
                  Tick(1);
                  Click(dialog, kOk);
              }),
              IDOK);
    for (const std::string server : {"A:\\", "B:\\"}) {
        for (const std::string& folder : {kSmallest, kSmallestPalette}) {
            EXPECT_TRUE(fs::is_directory(Native(server + folder + "\\Default.Lib")));
            EXPECT_TRUE(fs::is_empty(Native(server + folder + "\\Default.Lib")));
        }
    }
}

TEST_F(CreateSignFolders, AreMadeOnNoOtherServer) {
    EXPECT_EQ(Run([&] {
                  Tick(0);
                  Tick(0);
                  Tick(1);
                  Click(dialog, kOk);
              }),
              IDOK);
    EXPECT_TRUE(fs::is_empty(Native("A:")));
    EXPECT_TRUE(Exists("B:\\" + kSmallest));
}

TEST_F(CreateSignFolders, OfPalettesGetNoOrdinaryTwin) {
    EXPECT_EQ(Run([&] {
                  Click(dialog, kPalette);
                  Tick(0);
                  Click(dialog, kOk);
              }),
              IDOK);
    EXPECT_TRUE(Exists("A:\\" + kSmallestPalette + "\\Default.Lib"));
    EXPECT_FALSE(Exists("A:\\" + kSmallest));
}

TEST_F(CreateSignFolders, AreMadeOfWhatTheControlsShow) {
    EXPECT_EQ(Run([&] {
                  Enter(kRows, "48");
                  Enter(kColumns, "160");
                  Choose(kColor, 11);
                  EXPECT_EQ(Folder(), "Folder: 48x160.RGB16M.LED.Sign");
                  Tick(0);
                  Click(dialog, kOk);
              }),
              IDOK);
    EXPECT_TRUE(Exists("A:\\48x160.RGB16M.LED.Sign\\Default.Lib"));
    EXPECT_TRUE(Exists("A:\\48x160.RGB16M.LED.Palette.Sign\\Default.Lib"));
}

TEST_F(CreateSignFolders, ThatFailOnTheFirstServerAreToldAndMadeOnTheSecond) {
    MakeFolder("A:\\" + kSmallest);
    EXPECT_EQ(
        Run([&] {
            Tick(0);
            Tick(1);
            messages.Expect(" Error Creating Folder: A:\\" + kSmallest + "\n " + Words(EEXIST));
            Click(dialog, kOk);
        }),
        IDOK)
        << "the dialog closes all the same";
    EXPECT_FALSE(Exists("A:\\" + kSmallest + "\\Default.Lib")) << "its library isn't tried";
    EXPECT_TRUE(Exists("A:\\" + kSmallestPalette + "\\Default.Lib")) << "its twin is";
    EXPECT_TRUE(Exists("B:\\" + kSmallest + "\\Default.Lib"));
}

TEST_F(CreateSignFolders, OnAServerThatIsGoneAreTold) {
    EXPECT_EQ(
        Run([&] {
            fs::remove(Native("B:"));
            Tick(0);
            Tick(1);
            messages.Expect(" Error Creating Folder: B:\\" + kSmallest + "\n " + Words(ENOENT));
            Click(dialog, kOk);
        }),
        IDOK);
    EXPECT_TRUE(Exists("A:\\" + kSmallest));
}

TEST_F(CreateSignFolders, WhoseTwinIsThereSayNothing) {
    MakeFolder("A:\\" + kSmallestPalette);
    EXPECT_EQ(Run([&] {
                  Tick(0);
                  Click(dialog, kOk);
              }),
              IDOK);
    EXPECT_TRUE(Exists("A:\\" + kSmallest + "\\Default.Lib"));
}

TEST_F(CreateSignFolders, WhoseLibraryCantBeMadeAreTold) {
    const k4test::NoLibraryAccess full(access);
    EXPECT_EQ(Run([&] {
                  Tick(0);
                  messages.Expect(" Error Creating Library: A:\\" + kSmallest + "\\Default.Lib\n " +
                                  Words(ENOSPC));
                  Click(dialog, kOk);
              }),
              IDOK);
}

/// The dialog over an application's window, which goes while a message stands.
class CreateSignFoldersWithParent : public CreateSignFolders {
 protected:
    int RunUntilParentGoes(const std::function<void(CDialog&)>& press, const std::string& text) {
        auto parent = std::make_unique<QWidget>();
        parent->show();
        const QPointer<CK4CmnDlgCreateSignFolders> owned(
            new CK4CmnDlgCreateSignFolders(parent.get()));
        messages.Expect(k4cmn::PlainMessage(text), k4cmn::MessageAnswer::Ok,
                        [&] { parent.reset(); });
        const int result = RunModal(*owned, [&] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(owned));
            press(*owned);
        });
        EXPECT_TRUE(owned.isNull());
        return result;
    }
};

TEST_F(CreateSignFoldersWithParent, AreMadeToTheLastOneIfTheWindowGoesMeanwhile) {
    MakeFolder("A:\\" + kSmallest);
    MakeFolder("B:\\" + kSmallest);
    const auto tickAllAndPress = [](CDialog& owned) {
        auto* list = Item<QListWidget>(owned, kServers);
        list->item(0)->setCheckState(Qt::Checked);
        list->item(1)->setCheckState(Qt::Checked);
        Click(owned, kOk);
    };
    // The second server's message has no window any more, and isn't shown.
    EXPECT_EQ(RunUntilParentGoes(tickAllAndPress, " Error Creating Folder: A:\\" + kSmallest +
                                                      "\n " + Words(EEXIST)),
              IDCANCEL);
    EXPECT_TRUE(Exists("A:\\" + kSmallestPalette + "\\Default.Lib"));
    EXPECT_TRUE(Exists("B:\\" + kSmallestPalette + "\\Default.Lib"));
}

TEST_F(CreateSignFoldersWithParent, AreNotMadeIfTheWindowGoesWhileASizeIsRefused) {
    const std::pair<int, const char*> fields[] = {
        {kRows, "Enter an integer between 7 and 2048."},
        {kColumns, "Enter an integer between 16 and 16384."}};
    for (const auto& [field, range] : fields) {
        const std::pair<QString, const char*> texts[] = {{QString(), "Enter an integer."},
                                                         {QStringLiteral("5"), range}};
        for (const auto& [text, words] : texts) {
            const auto typeAndPress = [field = field, &text = text](CDialog& owned) {
                TypeOver(owned, field, text);
                PressKey(owned, Qt::Key_Return);
            };
            EXPECT_EQ(RunUntilParentGoes(typeAndPress, words), IDCANCEL) << words;
        }
    }
}

/// Settings of one server, whose text isn't UTF-8.
class OddServer final : public k4cmn::RegistryProvider {
 public:
    explicit OddServer(std::string server) : m_server(std::move(server)) {}
    int GetServers(std::vector<std::string>& servers, const std::string&,
                   const std::string&) override {
        servers = {m_server};
        return 1;
    }
    std::unique_ptr<k4cmn::RegistryKey> OpenUserKey(const std::string&, const std::string&,
                                                    int) override {
        return nullptr;
    }
    std::string BuildKey(const std::string&, const std::string&) override { return {}; }
    int GetServices(std::vector<std::string>&, const std::string&) override { return 0; }
    int GetLocalSigns(std::vector<std::string>&) override { return 0; }
    int GetSignSettings(const std::string&, k4cmn::SignSettings&) override { return 0; }
    int GetDataPath(std::string&) override { return 0; }
    int GetExePath(std::string&) override { return 0; }
    int SetPreviewOptions(const std::string&, const k4cmn::PreviewOptions&) override { return 0; }

 private:
    const std::string m_server;
};

TEST_F(CreateSignFolders, AreMadeOnAServerWhoseTextIsNoUtf8) {
    const std::string server = (home / "b\xFFr").string();
    fs::create_directory(server);
    OddServer odd(server);
    const k4cmn::ScopedProvider<k4cmn::RegistryProvider> use(odd);
    EXPECT_EQ(Run([&] {
                  Tick(0);
                  Click(dialog, kOk);
              }),
              IDOK);
    EXPECT_TRUE(fs::exists(server + "/" + kSmallest + "/Default.Lib"));
}

TEST_F(CreateSignFolders, WithoutATickedServerAreNotMade) {
    Look([&] {
        messages.Expect("No servers selected.");
        Click(dialog, kOk);
        EXPECT_EQ(messages.Pending(), 0u);
        EXPECT_TRUE(dialog.isVisible());
    });
    EXPECT_TRUE(fs::is_empty(Native("A:")));
}

TEST_F(CreateSignFolders, AreNotMadeByCancelOrEscape) {
    Look([&] { Tick(0); });
    EXPECT_EQ(Run([&] {
                  Tick(0);
                  PressKey(dialog, Qt::Key_Escape);
              }),
              IDCANCEL);
    EXPECT_TRUE(fs::is_empty(Native("A:")));
}

// By keys alone -----------------------------------------------------------------------------------

TEST_F(CreateSignFolders, CanBeMadeByKeysAlone) {
    EXPECT_EQ(Run([&] {
                  const auto alt = [&](Qt::Key key) {
                      PressKey(dialog, key, Qt::AltModifier);
                      QCoreApplication::processEvents();
                  };
                  alt(Qt::Key_R);
                  ASSERT_EQ(FocusedId(dialog), kRows);
                  QTest::keyClicks(dialog.focusWidget(), QStringLiteral("20"));
                  alt(Qt::Key_C);
                  ASSERT_EQ(FocusedId(dialog), kColumns);
                  EXPECT_EQ(Text(kRows), "24");
                  PressKey(dialog, Qt::Key_Up);
                  EXPECT_EQ(Text(kColumns), "32");
                  alt(Qt::Key_T);
                  ASSERT_EQ(FocusedId(dialog), kColor);
                  PressKey(dialog, Qt::Key_Down);
                  PressKey(dialog, Qt::Key_Down);
                  alt(Qt::Key_P);
                  ASSERT_EQ(FocusedId(dialog), kPixel);
                  for (const char* shown :
                       {"Folder: 24x32.Tri3.LED.Palette.Sign", "Folder: 24x32.Tri3.LED.Sign"}) {
                      alt(Qt::Key_F);
                      // A button that a key clicks is seen to go down for a moment.
                      EXPECT_TRUE(QTest::qWaitFor([&] { return Folder() == shown; })) << shown;
                  }
                  alt(Qt::Key_S);
                  ASSERT_EQ(FocusedId(dialog), kServers);
                  PressKey(dialog, Qt::Key_Space);
                  EXPECT_TRUE(IsTicked(0));
                  PressKey(dialog, Qt::Key_Down);
                  PressKey(dialog, Qt::Key_Space);
                  EXPECT_TRUE(IsTicked(1));
                  PressKey(dialog, Qt::Key_Space);
                  EXPECT_FALSE(IsTicked(1));
                  PressKey(dialog, Qt::Key_Return);
              }),
              IDOK);
    EXPECT_TRUE(Exists("A:\\24x32.Tri3.LED.Sign\\Default.Lib"));
    EXPECT_TRUE(fs::is_empty(Native("B:")));
}

}  // namespace
}  // namespace k4test

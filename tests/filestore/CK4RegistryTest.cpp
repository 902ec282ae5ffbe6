#include "k4cmndlg/filestore/contracts/CK4Registry.h"

#include <gmock/gmock.h>

#include <numeric>
#include <stdexcept>

#include "k4cmndlg/filestore/contracts/RegistryProvider.h"

namespace {

using k4cmn::PreviewOptions;
using k4cmn::RegistryKey;
using k4cmn::RegistryProvider;
using k4cmn::SignSettings;
using testing::_;
using testing::ByMove;
using testing::DoAll;
using testing::Return;
using testing::SetArgPointee;
using testing::SetArgReferee;
using testing::StrictMock;
using testing::Throw;
using Names = std::vector<std::string>;

class KeyMock : public RegistryKey {
 public:
    MOCK_METHOD(int, GetString, (const std::string&, std::string*), (override));
    MOCK_METHOD(int, SetString, (const std::string&, const std::string&), (override));
    MOCK_METHOD(int, GetDword, (const std::string&, std::uint32_t*), (override));
    MOCK_METHOD(int, SetDword, (const std::string&, std::uint32_t), (override));
    MOCK_METHOD(int, Subkeys, (Names&), (override));
    MOCK_METHOD(void, Closed, ());
    ~KeyMock() override { Closed(); }
};

class RegistryMock : public RegistryProvider {
 public:
    MOCK_METHOD(std::unique_ptr<RegistryKey>, OpenUserKey,
                (const std::string&, const std::string&, int), (override));
    MOCK_METHOD(std::string, BuildKey, (const std::string&, const std::string&), (override));
    MOCK_METHOD(int, GetServers, (Names&, const std::string&, const std::string&), (override));
    MOCK_METHOD(int, GetServices, (Names&, const std::string&), (override));
    MOCK_METHOD(int, GetLocalSigns, (Names&), (override));
    MOCK_METHOD(int, GetSignSettings, (const std::string&, SignSettings&), (override));
    MOCK_METHOD(int, GetDataPath, (std::string&), (override));
    MOCK_METHOD(int, GetExePath, (std::string&), (override));
    MOCK_METHOD(int, SetPreviewOptions, (const std::string&, const PreviewOptions&), (override));
};

class Registry : public testing::Test {
 protected:
    /// Opens the key "K" of `registry` and hands out what stands behind it.
    KeyMock& Opened(CK4Registry& registry) {
        auto key = std::make_unique<StrictMock<KeyMock>>();
        KeyMock& opened = *key;
        EXPECT_CALL(opened, Closed);
        EXPECT_CALL(settings, OpenUserKey("K", "", 0))
            .WillOnce(Return(ByMove(std::unique_ptr<RegistryKey>(std::move(key)))));
        EXPECT_EQ(registry.OpenUserRegistryKey("K"), 1);
        return opened;
    }

    StrictMock<RegistryMock> settings;
    k4cmn::ScopedProvider<RegistryProvider> use{settings};
};

TEST_F(Registry, OpeningPassesBothNamesAndDoesNotMakeTheKey) {
    EXPECT_CALL(settings, OpenUserKey("a", "b", 0)).WillOnce(Return(ByMove(nullptr)));
    CK4Registry registry;
    EXPECT_EQ(registry.OpenUserRegistryKey("a", "b"), 0);
}

TEST_F(Registry, CreatingMakesTheKey) {
    auto key = std::make_unique<testing::NiceMock<KeyMock>>();
    EXPECT_CALL(settings, OpenUserKey("a", "b", 1))
        .WillOnce(Return(ByMove(std::unique_ptr<RegistryKey>(std::move(key)))));
    CK4Registry registry;
    EXPECT_EQ(registry.CreateUserRegistryKey("a", "b"), 1);
}

TEST_F(Registry, OneKeyIsOpenAtATime) {
    CK4Registry registry;
    KeyMock& first = Opened(registry);
    EXPECT_CALL(first, GetString).Times(0);
    EXPECT_CALL(settings, OpenUserKey("other", "", 0)).WillOnce(Return(ByMove(nullptr)));
    EXPECT_EQ(registry.OpenUserRegistryKey("other"), 0);
    std::string text = "kept";
    EXPECT_EQ(registry.GetRegistryString("v", &text), 0);
    EXPECT_EQ(text, "kept");
}

TEST_F(Registry, ValuesGoThroughTheOpenKey) {
    CK4Registry registry;
    KeyMock& key = Opened(registry);
    EXPECT_CALL(key, GetString("s", _)).WillOnce(DoAll(SetArgPointee<1>("text"), Return(1)));
    EXPECT_CALL(key, SetString("s", "new")).WillOnce(Return(1)).WillOnce(Return(0));
    EXPECT_CALL(key, GetDword("d", _)).WillOnce(DoAll(SetArgPointee<1>(7u), Return(1)));
    EXPECT_CALL(key, SetDword("d", 0xFFFFFFFF)).WillOnce(Return(1)).WillOnce(Return(0));
    std::string text;
    EXPECT_EQ(registry.GetRegistryString("s", &text), 1);
    EXPECT_EQ(text, "text");
    EXPECT_EQ(registry.SetRegistryString("s", "new"), 1);
    EXPECT_EQ(registry.SetRegistryString("s", "new"), 0);
    std::uint32_t number = 0;
    EXPECT_EQ(registry.GetRegistryDword("d", &number), 1);
    EXPECT_EQ(number, 7u);
    number = 0xFFFFFFFF;
    EXPECT_EQ(registry.SetRegistryDword("d", &number), 1);
    EXPECT_EQ(registry.SetRegistryDword("d", &number), 0);
}

TEST_F(Registry, FailedReadsLeaveTheirTargets) {
    CK4Registry registry;
    KeyMock& key = Opened(registry);
    EXPECT_CALL(key, GetString).WillOnce(Return(0));
    EXPECT_CALL(key, GetDword).WillOnce(Return(0));
    std::string text = "kept";
    std::uint32_t number = 42;
    EXPECT_EQ(registry.GetRegistryString("s", &text), 0);
    EXPECT_EQ(registry.GetRegistryDword("d", &number), 0);
    EXPECT_EQ(text, "kept");
    EXPECT_EQ(number, 42u);
}

TEST_F(Registry, NullTargetsFailWithoutACall) {
    CK4Registry registry;
    Opened(registry);
    EXPECT_EQ(registry.GetRegistryString("s", nullptr), 0);
    EXPECT_EQ(registry.GetRegistryDword("d", nullptr), 0);
    EXPECT_EQ(registry.SetRegistryDword("d", nullptr), 0);
}

void ExpectClosed(CK4Registry& registry) {
    std::string text = "kept";
    std::uint32_t number = 42;
    Names names{"kept"};
    EXPECT_EQ(registry.GetRegistryString("s", &text), 0);
    EXPECT_EQ(registry.SetRegistryString("s", "x"), 0);
    EXPECT_EQ(registry.GetRegistryDword("d", &number), 0);
    EXPECT_EQ(registry.SetRegistryDword("d", &number), 0);
    EXPECT_EQ(CK4Registry::EnumerateKeys(registry, names), 0);
    EXPECT_EQ(text, "kept");
    EXPECT_EQ(number, 42u);
    EXPECT_EQ(names, Names{"kept"});
}

TEST_F(Registry, NothingWorksBeforeOpeningAndAfterClosing) {
    CK4Registry registry;
    ExpectClosed(registry);
    Opened(registry);
    registry.CloseRegistryKey();
    ExpectClosed(registry);
    registry.CloseRegistryKey();
}

TEST_F(Registry, EnumeratesSubkeysByPrefix) {
    CK4Registry registry;
    KeyMock& key = Opened(registry);
    EXPECT_CALL(key, Subkeys)
        .WillRepeatedly(DoAll(SetArgReferee<0>(Names{"alpha", "beta", "al"}), Return(1)));
    Names names{"old"};
    EXPECT_EQ(CK4Registry::EnumerateKeys(registry, names), 1);
    EXPECT_EQ(names, (Names{"alpha", "beta", "al"}));
    const std::string prefix = "al";
    EXPECT_EQ(CK4Registry::EnumerateKeys(registry, names, &prefix), 1);
    EXPECT_EQ(names, (Names{"alpha", "al"}));
    const std::string none = "z";
    EXPECT_EQ(CK4Registry::EnumerateKeys(registry, names, &none), 1);
    EXPECT_TRUE(names.empty());
}

TEST_F(Registry, SubkeysThatCantBeReadLeaveTheList) {
    CK4Registry registry;
    KeyMock& key = Opened(registry);
    EXPECT_CALL(key, Subkeys).WillOnce(DoAll(SetArgReferee<0>(Names{"half"}), Return(0)));
    Names names{"kept"};
    EXPECT_EQ(CK4Registry::EnumerateKeys(registry, names), 0);
    EXPECT_EQ(names, Names{"kept"});
}

TEST_F(Registry, ServersOfTheLocalSystemAreAskedForWithoutNames) {
    EXPECT_CALL(settings, GetServers(_, "", ""))
        .WillOnce(DoAll(SetArgReferee<0>(Names{"A:"}), Return(1)));
    Names servers{"old"};
    EXPECT_EQ(CK4Registry::GetRegistryServers(servers), 1);
    EXPECT_EQ(servers, Names{"A:"});
}

TEST_F(Registry, ServersOfAServiceAndEntry) {
    const std::string service = "North";
    const std::string entry = "Dial";
    EXPECT_CALL(settings, GetServers(_, "North", "Dial")).WillOnce(Return(0));
    Names servers{"kept"};
    EXPECT_EQ(CK4Registry::GetRegistryServers(servers, &service, &entry), 0);
    EXPECT_EQ(servers, Names{"kept"});
}

TEST_F(Registry, ServicesAndLocalSigns) {
    const std::string entry = "Dial";
    EXPECT_CALL(settings, GetServices(_, ""))
        .WillOnce(DoAll(SetArgReferee<0>(Names{"Local"}), Return(1)));
    EXPECT_CALL(settings, GetServices(_, "Dial")).WillOnce(Return(0));
    EXPECT_CALL(settings, GetLocalSigns)
        .WillOnce(DoAll(SetArgReferee<0>(Names{"Main"}), Return(1)));
    Names names;
    EXPECT_EQ(CK4Registry::GetRegistryServices(names), 1);
    EXPECT_EQ(names, Names{"Local"});
    EXPECT_EQ(CK4Registry::GetRegistryServices(names, &entry), 0);
    EXPECT_EQ(names, Names{"Local"});
    EXPECT_EQ(CK4Registry::GetLocalSignList(names), 1);
    EXPECT_EQ(names, Names{"Main"});
}

SignSettings LargeSign() {
    SignSettings sign{64, 192, K4_SIGN_COLOR_RGB16M,          K4_PIXEL_TECH_LED,
                      {}, {},  K4_OUTPUT_ORIENTATION_MIRRORED};
    sign.texts.assign(40, "text");
    sign.numbers.resize(40);
    std::iota(sign.numbers.begin(), sign.numbers.end(), 100u);
    return sign;
}

TEST_F(Registry, SignConfigFillsWhatIsAskedFor) {
    EXPECT_CALL(settings, GetSignSettings("Main", _))
        .WillRepeatedly(DoAll(SetArgReferee<1>(LargeSign()), Return(1)));
    std::uint32_t rows = 0;
    std::uint32_t columns = 0;
    tag_K4_SIGN_COLOR color{};
    tag_K4_PIXEL_TECH pixel{};
    EXPECT_EQ(CK4Registry::GetSignConfig("Main", &rows, &columns, &color, &pixel), 1);
    EXPECT_EQ(rows, 64u);
    EXPECT_EQ(columns, 192u);
    EXPECT_EQ(color, K4_SIGN_COLOR_RGB16M);
    EXPECT_EQ(pixel, K4_PIXEL_TECH_LED);
    EXPECT_EQ(CK4Registry::GetSignConfig("Main", nullptr, nullptr, nullptr, nullptr), 1);
}

TEST_F(Registry, FurtherSettingsHold32Entries) {
    EXPECT_CALL(settings, GetSignSettings("Main", _))
        .WillOnce(DoAll(SetArgReferee<1>(LargeSign()), Return(1)));
    Names texts{"old"};
    std::vector<std::uint32_t> numbers{1};
    tag_K4_OUTPUT_ORIENTATION orientation{};
    EXPECT_EQ(CK4Registry::GetSignConfigEx("Main", nullptr, nullptr, nullptr, nullptr, &texts,
                                           &numbers, &orientation),
              1);
    EXPECT_EQ(texts, Names(32, "text"));
    ASSERT_EQ(numbers.size(), 32u);
    EXPECT_EQ(numbers.front(), 100u);
    EXPECT_EQ(numbers.back(), 131u);
    EXPECT_EQ(orientation, K4_OUTPUT_ORIENTATION_MIRRORED);
}

TEST_F(Registry, SignConfigOfAnUnknownSignLeavesItsTargets) {
    EXPECT_CALL(settings, GetSignSettings).WillOnce(Return(0));
    std::uint32_t rows = 42;
    EXPECT_EQ(CK4Registry::GetSignConfig("?", &rows, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(rows, 42u);
}

TEST_F(Registry, PathsAndKeyTexts) {
    EXPECT_CALL(settings, GetDataPath).WillOnce(DoAll(SetArgReferee<0>("/data"), Return(1)));
    EXPECT_CALL(settings, GetExePath).WillOnce(Return(0));
    EXPECT_CALL(settings, BuildKey("Sign Control", "Services")).WillOnce(Return("key"));
    std::string path = "kept";
    EXPECT_EQ(CK4Registry::GetExePath(path), 0);
    EXPECT_EQ(path, "kept");
    EXPECT_EQ(CK4Registry::GetDataPath(path), 1);
    EXPECT_EQ(path, "/data");
    EXPECT_EQ(CK4Registry::BuildRegistryKey("Sign Control", "Services"), "key");
}

TEST_F(Registry, PreviewOptionsPassWhatIsGiven) {
    const std::string text = "t";
    const std::uint32_t one = 1;
    EXPECT_CALL(settings, SetPreviewOptions("path", _))
        .WillOnce([&](const std::string&, const PreviewOptions& options) {
            EXPECT_EQ(options.text, &text);
            EXPECT_EQ(options.first, nullptr);
            EXPECT_EQ(options.second, &one);
            return 1;
        });
    EXPECT_EQ(CK4Registry::SetPreviewOptions("path", &text, nullptr, &one), 1);
}

TEST_F(Registry, ExceptionsOfTheSettingsBecomeTheirFailure) {
    const std::runtime_error error("settings");
    EXPECT_CALL(settings, OpenUserKey("bad", "", 0)).WillOnce(Throw(error));
    EXPECT_CALL(settings, GetServers).WillOnce(Throw(error));
    EXPECT_CALL(settings, GetSignSettings).WillOnce(Throw(error));
    EXPECT_CALL(settings, GetDataPath).WillOnce(Throw(error));
    EXPECT_CALL(settings, BuildKey).WillOnce(Throw(error));
    EXPECT_CALL(settings, SetPreviewOptions).WillOnce(Throw(error));
    CK4Registry registry;
    Names names{"kept"};
    std::string path = "kept";
    EXPECT_EQ(registry.OpenUserRegistryKey("bad"), 0);
    EXPECT_EQ(CK4Registry::GetRegistryServers(names), 0);
    EXPECT_EQ(CK4Registry::GetSignConfig("s", nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(CK4Registry::GetDataPath(path), 0);
    EXPECT_EQ(CK4Registry::BuildRegistryKey("a", "b"), "");
    EXPECT_EQ(CK4Registry::SetPreviewOptions("p"), 0);
    EXPECT_EQ(names, Names{"kept"});
    EXPECT_EQ(path, "kept");
}

TEST_F(Registry, ExceptionsOfAKeyBecomeItsFailure) {
    CK4Registry registry;
    KeyMock& key = Opened(registry);
    const std::runtime_error error("key");
    EXPECT_CALL(key, GetString).WillOnce(Throw(error));
    EXPECT_CALL(key, SetDword).WillOnce(Throw(error));
    EXPECT_CALL(key, Subkeys).WillOnce(Throw(error));
    std::string text;
    const std::uint32_t number = 1;
    Names names;
    EXPECT_EQ(registry.GetRegistryString("s", &text), 0);
    EXPECT_EQ(registry.SetRegistryDword("d", &number), 0);
    EXPECT_EQ(CK4Registry::EnumerateKeys(registry, names), 0);
}

TEST(RegistryWithoutSettings, AnswersLikeAnAbsentOne) {
    CK4Registry registry;
    EXPECT_EQ(registry.OpenUserRegistryKey("a"), 0);
    EXPECT_EQ(registry.CreateUserRegistryKey("a"), 0);
    ExpectClosed(registry);
    Names names{"kept"};
    std::string path;
    EXPECT_EQ(CK4Registry::GetRegistryServers(names), 0);
    EXPECT_EQ(CK4Registry::GetRegistryServices(names), 0);
    EXPECT_EQ(CK4Registry::GetLocalSignList(names), 0);
    EXPECT_EQ(CK4Registry::GetSignConfig("s", nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(CK4Registry::GetDataPath(path), 0);
    EXPECT_EQ(CK4Registry::GetExePath(path), 0);
    EXPECT_EQ(CK4Registry::SetPreviewOptions("p"), 0);
    EXPECT_EQ(names, Names{"kept"});
}

}  // namespace

#include "apps/preview/RequestWatch.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QTest>
#include <vector>

#include "tests/apps/preview/PreviewFixture.h"

namespace {

using k4suite::IniRegistry;
using k4suite::PreviewRequest;
using preview::RequestWatch;

class RequestWatchTest : public k4test::PreviewFixture {
 protected:
    void Watch() {
        watch = std::make_unique<RequestWatch>(suite.Registry(), home);
        QObject::connect(watch.get(), &RequestWatch::Requested, watch.get(),
                         [this](const PreviewRequest& request) { requests.push_back(request); });
    }
    bool Come(std::size_t count) {
        return QTest::qWaitFor([&] { return requests.size() >= count; });
    }
    void Ask(const std::string& path, bool play = false) {
        const std::uint32_t second = 1;
        ASSERT_EQ(other.SetPreviewOptions(path, {nullptr, nullptr, play ? &second : nullptr}), 1);
    }

    IniRegistry other{home};
    std::unique_ptr<RequestWatch> watch;
    std::vector<PreviewRequest> requests;
};

TEST_F(RequestWatchTest, TheRequestThatIsThereIsKnown) {
    Ask("A:\\One.SQ4", true);
    Watch();
    EXPECT_EQ(watch->Last().sequence, "A:\\One.SQ4");
    EXPECT_TRUE(watch->Last().StartsPlaying());
    Ask("A:\\Two.SQ4");
    ASSERT_TRUE(Come(1));
    EXPECT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests[0].sequence, "A:\\Two.SQ4");
    EXPECT_FALSE(requests[0].StartsPlaying());
}

TEST_F(RequestWatchTest, ARequestComesWithinHalfASecond) {
    Ask("A:\\One.SQ4");
    Watch();
    for (std::size_t count = 1; count <= 5; ++count) {
        QElapsedTimer waiting;
        waiting.start();
        Ask("A:\\One.SQ4");
        ASSERT_TRUE(Come(count));
        EXPECT_LT(waiting.elapsed(), 500);
    }
}

TEST_F(RequestWatchTest, TheFirstRequestOfANewHomeIsSeen) {
    ASSERT_FALSE(std::filesystem::exists(home.UserSettings()));
    Watch();
    EXPECT_EQ(watch->Last(), PreviewRequest{});
    Ask("A:\\One.SQ4", true);
    ASSERT_TRUE(Come(1));
    EXPECT_EQ(requests[0].sequence, "A:\\One.SQ4");
}

TEST_F(RequestWatchTest, AnotherProcessAsks) {
    Watch();
    const pid_t child = fork();
    if (child == 0) {
        IniRegistry own(home);
        _exit(own.SetPreviewOptions("A:\\Child.SQ4", {}) ? 0 : 1);
    }
    EXPECT_TRUE(Come(1));
    int status = 1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(requests[0].sequence, "A:\\Child.SQ4");
}

TEST_F(RequestWatchTest, OtherSettingsAreNoRequest) {
    Ask("A:\\One.SQ4");
    Watch();
    const auto key = other.OpenUserKey("Other", "", 1);
    ASSERT_EQ(key->SetString("name", "value"), 1);
    Ask("A:\\Two.SQ4");
    ASSERT_TRUE(Come(1));
    EXPECT_EQ(requests.size(), 1u);
}

TEST_F(RequestWatchTest, AnEmptyRequestIsOne) {
    Watch();
    Ask("");
    ASSERT_TRUE(Come(1));
    EXPECT_EQ(requests[0].sequence, "");
}

TEST_F(RequestWatchTest, RemovedSettingsAskForNothingAndTheNextRequestCounts) {
    Ask("A:\\One.SQ4");
    Watch();
    std::filesystem::remove(home.UserSettings());
    ASSERT_TRUE(QTest::qWaitFor([&] { return watch->Last().number == 0; }));
    EXPECT_TRUE(requests.empty());
    Ask("A:\\One.SQ4");  // number 1 again
    ASSERT_TRUE(Come(1));
}

TEST_F(RequestWatchTest, DamagedSettingsAskForNothing) {
    Ask("A:\\One.SQ4");
    Watch();
    folder.Write("home/settings/user.ini", "no settings\xFF");
    ASSERT_TRUE(QTest::qWaitFor([&] { return watch->Last().number == 0; }));
    EXPECT_TRUE(requests.empty());
    EXPECT_FALSE(suite.Registry().Problems().empty());
    Ask("A:\\Two.SQ4");
    ASSERT_TRUE(Come(1));
    EXPECT_EQ(requests[0].sequence, "A:\\Two.SQ4");
}

}  // namespace

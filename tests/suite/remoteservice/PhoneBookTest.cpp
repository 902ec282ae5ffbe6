#include "suite/remoteservice/PhoneBook.h"

#include <gmock/gmock.h>

#include "tests/suite/remoteservice/RemoteRig.h"

using k4suite::MachineSettings;
using k4suite::PhoneBookOf;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Texts = std::vector<std::string>;

TEST(PhoneBook, HasAnEntryForEachLineInTheOrderAndSpellingOfTheFirst) {
    Texts problems;
    const auto book = PhoneBookOf(k4test::RemoteSettings(), problems);
    ASSERT_EQ(book.size(), 2U);
    EXPECT_EQ(book[0].name, "Harbor");
    EXPECT_THAT(book[0].services, ElementsAre("Pier", "Lighthouse"));
    EXPECT_EQ(book[1].name, "Airport");
    EXPECT_THAT(book[1].services, ElementsAre("Gate 1"));
    EXPECT_THAT(problems, IsEmpty());
}

TEST(PhoneBook, OfServicesWithoutDiallingIsEmpty) {
    Texts problems;
    MachineSettings settings;
    EXPECT_THAT(PhoneBookOf(settings, problems), IsEmpty());
    settings.services = {{"Local", {}, {}, {}}, {"North", {}, {}, {}}};
    EXPECT_THAT(PhoneBookOf(settings, problems), IsEmpty());
}

TEST(PhoneBook, LeavesOutWhatCantStandInALine) {
    Texts problems;
    MachineSettings settings;
    settings.services = {{"A\tB", "Harbor", {}, {}},
                         {"Pier", "Har\nbor", {}, {}},
                         {"", "Harbor", {}, {}},
                         {"Bell\x7F", "Harbor", {}, {}},
                         {"Z\xC3\xBCrich", "Harbor", {}, {}}};
    const auto book = PhoneBookOf(settings, problems);
    ASSERT_EQ(book.size(), 1U);
    EXPECT_THAT(book[0].services, ElementsAre("Z\xC3\xBCrich"));
    ASSERT_EQ(problems.size(), 4U);
    EXPECT_EQ(problems[2],
              "The service \"\" of the phone book entry \"Harbor\" was left out: one of the names "
              "is not possible.");
}

}  // namespace

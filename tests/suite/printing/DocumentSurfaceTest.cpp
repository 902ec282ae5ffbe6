#include "suite/printing/DocumentSurface.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

using k4cmn::PrintFont;
using k4suite::PrintedDocument;
using k4suite::TextFoot;

/// Keeps what it is to print.
class Surface final : public k4suite::DocumentSurface {
 public:
    std::optional<PrintedDocument> printed;
    std::string answer;

 private:
    std::string Print(const PrintedDocument& document) override {
        EXPECT_FALSE(printed) << "a second time";
        printed = document;
        return answer;
    }
};

TEST(DocumentSurface, KeepsEachPageWithItsTextsInOrder) {
    Surface surface;
    surface.StartDocument("name");
    surface.StartPage();
    surface.DrawText(1, 2, "one", PrintFont::Plain);
    surface.DrawTextAtBottom({3, 4, 5, 6}, "two", PrintFont::Underlined);
    surface.EndPage();
    surface.StartPage();
    surface.EndPage();
    EXPECT_FALSE(surface.printed) << "nothing is printed before the end";
    EXPECT_FALSE(surface.IsPrinted());
    surface.EndDocument();
    EXPECT_TRUE(surface.IsPrinted());
    EXPECT_EQ(surface.Problem(), "");
    ASSERT_TRUE(surface.printed);
    EXPECT_EQ(surface.printed->name, "name");
    ASSERT_EQ(surface.printed->pages.size(), 2u);
    EXPECT_TRUE(surface.printed->pages[1].empty());
    ASSERT_EQ(surface.printed->pages[0].size(), 2u);
    const k4suite::PrintedText& one = surface.printed->pages[0][0];
    EXPECT_EQ(one.x, 1);
    EXPECT_EQ(one.y, 2);
    EXPECT_EQ(one.foot, TextFoot::Baseline);
    EXPECT_EQ(one.text, "one");
    EXPECT_EQ(one.font, PrintFont::Plain);
    const k4suite::PrintedText& two = surface.printed->pages[0][1];
    EXPECT_EQ(two.x, 3);
    EXPECT_EQ(two.y, 6);
    EXPECT_EQ(two.foot, TextFoot::Bottom);
    EXPECT_EQ(two.font, PrintFont::Underlined);
}

TEST(DocumentSurface, WhatComesOutOfOrderCountsForNothing) {
    Surface surface;
    surface.StartPage();
    surface.DrawText(1, 1, "before the document", PrintFont::Plain);
    surface.EndPage();
    surface.EndDocument();
    EXPECT_FALSE(surface.printed);
    surface.StartDocument("first");
    surface.StartDocument("second");
    surface.DrawText(1, 1, "before the page", PrintFont::Plain);
    surface.StartPage();
    surface.StartPage();
    surface.DrawText(1, 1, "kept", PrintFont::Plain);
    surface.EndPage();
    surface.DrawTextAtBottom({}, "behind the page", PrintFont::Plain);
    surface.EndDocument();
    surface.EndDocument();
    surface.StartDocument("another");
    surface.EndDocument();
    ASSERT_TRUE(surface.printed);
    EXPECT_EQ(surface.printed->name, "first");
    ASSERT_EQ(surface.printed->pages.size(), 1u);
    ASSERT_EQ(surface.printed->pages[0].size(), 1u);
    EXPECT_EQ(surface.printed->pages[0][0].text, "kept");
}

TEST(DocumentSurface, AnOpenPageIsPartOfTheDocument) {
    Surface surface;
    surface.StartDocument("name");
    surface.StartPage();
    surface.DrawText(1, 1, "kept", PrintFont::Plain);
    surface.EndDocument();
    ASSERT_TRUE(surface.printed);
    EXPECT_EQ(surface.printed->pages.size(), 1u);
}

struct PagesRow {
    int first;
    int last;
    const char* printed;  ///< the texts of the pages; empty: none of them can be
};

TEST(DocumentSurface, LeavesOutWhatWasntChosen) {
    constexpr PagesRow kRows[] = {
        {1, 3, "abc"}, {2, 3, "bc"}, {2, 2, "b"}, {3, 9, "c"}, {0, 1, "a"},
        {-5, 1, "a"},  {4, 9, ""},   {3, 2, ""},  {0, 0, ""},  {1, 2147483647, "abc"},
    };
    for (const PagesRow& row : kRows) {
        Surface surface;
        surface.OnlyPages(row.first, row.last);
        surface.StartDocument("name");
        for (const char* text : {"a", "b", "c"}) {
            surface.StartPage();
            surface.DrawText(1, 1, text, PrintFont::Plain);
            surface.EndPage();
        }
        surface.EndDocument();
        std::string printed;
        if (surface.printed)
            for (const k4suite::PrintedPage& page : surface.printed->pages)
                printed += page.at(0).text;
        EXPECT_EQ(printed, row.printed) << row.first << " to " << row.last;
        EXPECT_EQ(surface.Problem(),
                  printed.empty() ? "The document doesn't have the chosen pages." : "");
    }
}

TEST(DocumentSurface, TellsOfItsFailureOnce) {
    Surface surface;
    surface.answer = "no paper";
    int told = 0;
    surface.WhenItFails([&](const std::string& problem) {
        ++told;
        EXPECT_EQ(problem, "no paper");
    });
    surface.StartDocument("name");
    EXPECT_EQ(told, 0);
    surface.EndDocument();
    surface.EndDocument();
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(surface.IsPrinted());
    EXPECT_EQ(surface.Problem(), "no paper");
}

TEST(DocumentSurface, OneThatIsLeftUnfinishedPrintsNothing) {
    std::optional<PrintedDocument> printed;
    class Watched final : public k4suite::DocumentSurface {
     public:
        explicit Watched(std::optional<PrintedDocument>& out) : m_out(out) {}

     private:
        std::string Print(const PrintedDocument& document) override {
            m_out = document;
            return {};
        }
        std::optional<PrintedDocument>& m_out;
    };
    {
        Watched surface(printed);
        surface.StartDocument("name");
        surface.StartPage();
        surface.DrawText(1, 1, "text", PrintFont::Plain);
        surface.EndPage();
    }
    EXPECT_FALSE(printed);
}

}  // namespace

#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QVBoxLayout>
#include <functional>
#include <string>
#include <vector>

#include "k4cmndlg/frame/CDataExchange.h"
#include "k4cmndlg/frame/CPropertyPage.h"
#include "k4cmndlg/frame/CPropertySheet.h"
#include "k4cmndlg/frame/WindowMessage.h"
#include "tests/support/DialogControls.h"

namespace k4test {

/// A page with one field that holds a number, which keeps the order of its events in a list that it
/// shares with its sheet.
class PageProbe : public CPropertyPage {
 public:
    PageProbe(const char* name, std::uint32_t resourceId, std::vector<std::string>& events)
        : CPropertyPage(resourceId), m_name(name), m_events(events) {
        setWindowTitle(QString::fromUtf8(name));
        auto* column = new QVBoxLayout(this);
        column->addWidget(m_field);
        m_field->setProperty("controlId", kField + static_cast<int>(resourceId));
    }

    static constexpr int kField = 1000;

    std::int32_t value = 7;
    std::function<int()> onKill;  ///< instead of the base's
    std::vector<std::uint32_t> messages;
    QLineEdit* m_field = new QLineEdit(this);

 protected:
    int OnCreate() override { return Note("create", CPropertyPage::OnCreate()); }
    int OnInitDialog() override {
        CPropertyPage::OnInitDialog();
        return Note("init", 1);
    }
    void OnDestroy() override {
        Note("destroy", 0);
        CPropertyPage::OnDestroy();
    }
    void OnSetActive() override {
        Note("set", 0);
        CPropertyPage::OnSetActive();
    }
    int OnKillActive() override {
        Note("kill", 0);
        return onKill ? onKill() : CPropertyPage::OnKillActive();
    }
    void DoDataExchange(CDataExchange* pDX) override {
        CPropertyPage::DoDataExchange(pDX);
        DDX_Text(pDX, m_field, value);
    }
    std::intptr_t OnWindowMessage(std::uint32_t message, std::uintptr_t, std::intptr_t) override {
        messages.push_back(message);
        return 77;
    }

 private:
    int Note(const char* what, int result) {
        m_events.push_back(m_name + " " + what);
        return result;
    }

    std::string m_name;
    std::vector<std::string>& m_events;
};

/// A sheet of three pages: One (resource 61), Two (62), Three (63).
class SheetProbe : public CPropertySheet {
 public:
    explicit SheetProbe(int firstPage = 0, QWidget* parent = nullptr)
        : CPropertySheet("Sheet", parent, firstPage) {
        AddPage(&one);
        AddPage(&two);
        AddPage(&three);
    }
    ~SheetProbe() override { DestroyWindow(); }

    using CPropertySheet::ButtonRow;
    using CPropertySheet::Close;
    using CPropertySheet::HideStandardButtons;
    using CPropertySheet::KeepPagesHeight;
    using CPropertySheet::PagesPlace;
    using CPropertySheet::SetMargin;

    std::vector<std::string> events;
    std::function<void()> onInit;
    PageProbe one{"One", 61, events};
    PageProbe two{"Two", 62, events};
    PageProbe three{"Three", 63, events};

    QTabBar* Tabs() const { return findChild<QTabBar*>(); }
    /// Clicks on a page's tab.
    void ClickTab(int index) const {
        QTest::mouseClick(Tabs(), Qt::LeftButton, {}, Tabs()->tabRect(index).center());
    }

 protected:
    int OnInitDialog() override {
        events.emplace_back("sheet init");
        CPropertySheet::OnInitDialog();
        if (onInit)
            onInit();
        return 1;
    }
    void OnDestroy() override {
        events.emplace_back("sheet destroy");
        CPropertySheet::OnDestroy();
    }
    void OnOK() override {
        events.emplace_back("sheet ok");
        CPropertySheet::OnOK();
    }
    void OnCancel() override {
        events.emplace_back("sheet cancel");
        CPropertySheet::OnCancel();
    }
    void OnApply() override {
        events.emplace_back("sheet apply");
        CPropertySheet::OnApply();
    }
};

}  // namespace k4test

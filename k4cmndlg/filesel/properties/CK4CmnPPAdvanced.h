#pragma once

#include <QString>
#include <memory>
#include <string>

#include "k4cmndlg/frame/CPropertyPage.h"

namespace Ui {
class AdvancedPage;
}

/// The page "Advanced" of the properties of a sequence: compression level, keywords and notes. A
/// page of CK4CmnPSProperties and of no other sheet.
///
/// Reading it takes over what differs from the record and marks the sheet modified for that. Texts
/// that differ in the case of letters alone don't count. A control that nobody has touched stands
/// for the record's own value, also where it can't show it as it is.
class CK4CmnPPAdvanced final : public CPropertyPage {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnPPAdvanced)

 public:
    CK4CmnPPAdvanced();
    ~CK4CmnPPAdvanced() override;

    /// Shows the sheet's record.
    void Fill();
    /// Shows the record's keywords alone.
    void ShowKeyWords();

 protected:
    void OnSetActive() override;
    void DoDataExchange(CDataExchange* pDX) override;

 private:
    void ReadText(const QString& now, QString& known, std::string& text);
    void ReadCompression();
    QString Notes() const;

    std::unique_ptr<Ui::AdvancedPage> m_ui;
    QString m_knownKeywords;  // what the controls had when they were filled or read last
    QString m_knownNotes;
    int m_knownCompression = 0;
};

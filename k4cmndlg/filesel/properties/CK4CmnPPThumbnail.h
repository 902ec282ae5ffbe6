#pragma once

#include <QTimer>
#include <cstdint>
#include <memory>

#include "k4cmndlg/frame/CPropertyPage.h"

class QResizeEvent;

namespace Ui {
class ThumbnailPage;
}

/// The page "Thumbnail" of the properties of a sequence: the number of the frame that stands for
/// the sequence, and its picture. A page of CK4CmnPSProperties and of no other sheet.
///
/// Each time it is shown it waits a moment before it fills itself, so that a person who leafs
/// through the pages doesn't wait for pictures. Leaving it frees the picture.
///
/// Reading it has the last word on the whole sheet's mark: a number that differs from the one that
/// the page began with goes into the record and marks the sheet modified; an equal one clears the
/// mark.
///
/// The box lies 70 pixels below the page's top edge, or below the label over it where the font is
/// so large that it would cover that.
class CK4CmnPPThumbnail final : public CPropertyPage {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnPPThumbnail)

 public:
    CK4CmnPPThumbnail();
    ~CK4CmnPPThumbnail() override;

    /// Shows the sheet's record: at once, or when the wait that is under way is over.
    void Refill();

 protected:
    void OnSetActive() override;
    int OnKillActive() override;
    void OnDestroy() override;
    void DoDataExchange(CDataExchange* pDX) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    void Fill();
    void FillFields();
    void OnFrameChanged();
    std::int32_t Within(std::int32_t number) const;
    void DrawFrame(std::int32_t number);
    void PlaceBox();
    void Leave();

    std::unique_ptr<Ui::ThumbnailPage> m_ui;
    QTimer m_wait;
    bool m_filled = false;         // the fields are those of the sheet's record
    std::int32_t m_thumbnail = 1;  // that the page began with, or that was read last
    std::int32_t m_frameCount = 0;
};

#pragma once

#include <QWidget>
#include <cstdint>

#include "k4cmndlg/filesel/SplitterBand.h"

namespace k4cmn {

class SplitterHandle;

/// The tree and the list of the file selection dialog, side by side, and the band between them,
/// which a person moves: with the mouse or, while it has the focus, by the arrow keys.
///
/// As long as nobody has placed the tree's right edge, both grow with the window. Once placed, the
/// tree keeps its width and the list takes the rest.
/// Ownership: the parent's; the panes are its children. Threads: the user interface thread.
class FilePanes final : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FilePanes)

 public:
    explicit FilePanes(QWidget* parent);
    ~FilePanes() override;

    /// The two panes, children of this widget. The Tab key comes from the tree to the band, and
    /// from there to the list.
    void SetPanes(QWidget* tree, QWidget* list);

    /// Places the tree's right edge, and fits the list to it.
    /// @param edge in pixels from the left of the window; 0 stands for the layout of the template.
    void AdjustListToTree(std::uint32_t edge);
    /// Where the panes are now, in pixels of the window.
    SplitterBand Band() const;
    /// Ends a drag, and tells of a move that BandLeft() hasn't followed yet.
    void EndDrag();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

 Q_SIGNALS:
    /// A person has moved the tree's right edge. @param edge as in AdjustListToTree().
    void EdgeMoved(std::uint32_t edge);
    /// The band is left: what was moved is to be kept.
    void BandLeft();

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    void DragTo(int x);
    void StepBy(int pixels);
    void MoveTo(int edge);
    void Leave();
    void PlacePanes();
    int InReach(const SplitterBand& band, int edge) const;
    int ListWidthHint() const;
    int TreeWidthHint() const;

    QWidget* m_tree = nullptr;
    QWidget* m_list = nullptr;
    SplitterHandle* m_handle;
    std::uint32_t m_edge = 0;
    bool m_isMoved = false;  ///< since the band was left last
};

}  // namespace k4cmn

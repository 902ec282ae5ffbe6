#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "k4cmndlg/filelist/contracts/PrintSurface.h"
#include "suite/printing/PrintedDocument.h"

namespace k4suite {

/// A surface that keeps the pages until the document ends, and prints them then. So a document that
/// is left unfinished never was a print job, and no file: whatever a device does with the beginning
/// of a document, there is none to do it with.
///
/// One object takes one document: what comes before StartDocument(), outside of a page, or behind
/// EndDocument() counts for nothing. A page that is still open when the document ends is part of
/// it. Threads: one.
class DocumentSurface : public k4cmn::PrintSurface {
 public:
    void StartDocument(const std::string& name) final;
    void StartPage() final;
    void DrawText(int x, int y, const std::string& text, k4cmn::PrintFont font) final;
    void DrawTextAtBottom(const k4cmn::PrintRectangle& rectangle, const std::string& text,
                          k4cmn::PrintFont font) final;
    void EndPage() final;
    void EndDocument() final;

    /// Leaves out all but some pages. A document that has none of them can't be printed.
    /// @param first, last from 1.
    void OnlyPages(int first, int last);

    /// Has a function called where the document can't be printed, with the words of the failure, at
    /// its end.
    void WhenItFails(std::function<void(const std::string& problem)> tell);

    /// Whether the document was printed: all of it, after EndDocument().
    bool IsPrinted() const { return m_stage == Stage::Printed; }
    /// Why it couldn't be; empty while nothing went wrong.
    const std::string& Problem() const { return m_problem; }

 private:
    enum class Stage { New, Open, OnPage, Printed, Failed };

    /// Prints all of a document. @return the words of the failure; empty for success.
    virtual std::string Print(const PrintedDocument& document) = 0;

    void Add(PrintedText text);
    std::string PrintChosen();

    Stage m_stage = Stage::New;
    PrintedDocument m_document;
    std::optional<std::pair<int, int>> m_only;  ///< first and last page
    std::string m_problem;
    std::function<void(const std::string&)> m_tell;
};

}  // namespace k4suite

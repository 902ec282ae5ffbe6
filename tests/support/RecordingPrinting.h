#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/filelist/contracts/Printing.h"

namespace k4test {

/// A print dialog that writes down what is printed. Installed for the life of the object.
class RecordingPrinting final : public k4cmn::Printing {
 public:
    bool hasPrinter = true;
    std::function<void()> onChoose;  ///< what happens while a printer is chosen

    QWidget* parent = nullptr;                 ///< of the dialog
    std::vector<std::string> texts;            ///< the document's name, each text, and "end"
    std::vector<k4cmn::PrintRectangle> lines;  ///< of the texts that were drawn in rectangles

    std::unique_ptr<k4cmn::PrintSurface> Choose(QWidget* window) override {
        parent = window;
        if (onChoose)
            onChoose();
        return hasPrinter ? std::make_unique<Surface>(*this) : nullptr;
    }

 private:
    class Surface final : public k4cmn::PrintSurface {
     public:
        explicit Surface(RecordingPrinting& record) : m_record(record) {}
        void StartDocument(const std::string& name) override { m_record.texts.push_back(name); }
        void StartPage() override {}
        void DrawText(int, int, const std::string& text, k4cmn::PrintFont) override {
            m_record.texts.push_back(text);
        }
        void DrawTextAtBottom(const k4cmn::PrintRectangle& line, const std::string& text,
                              k4cmn::PrintFont) override {
            m_record.lines.push_back(line);
            m_record.texts.push_back(text);
        }
        void EndPage() override {}
        void EndDocument() override { m_record.texts.emplace_back("end"); }

     private:
        RecordingPrinting& m_record;
    };

    k4cmn::ScopedProvider<k4cmn::Printing> m_use{*this};
};

}  // namespace k4test

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "k4cmndlg/filestore/contracts/CK4SequenceFile.h"
#include "suite/sequence/FileBytes.h"
#include "suite/sequence/SequenceHead.h"
#include "suite/sequence/SequenceReader.h"

namespace k4suite {

/// Turns a path as callers know it into one of this machine; empty if there is no such place.
using PathMapping = std::function<std::string(const std::string&)>;

/// A sequence file of this machine. Opening reads its head; frames are read as they are asked for.
class SequenceFile final : public CK4SequenceFile {
 public:
    /// @param native null takes paths as they are.
    explicit SequenceFile(PathMapping native = nullptr);
    ~SequenceFile() override;

    tag_K4_RIFF_FILE_DATA* RiffHdr() override;
    const char* GetPtrToKeywords() const override { return m_open ? m_open->head.keywords : ""; }
    const char* GetPtrToComments() const override { return m_open ? m_open->head.notes : ""; }
    int SetKeywordsString(const std::string& text) override;
    int SetCommentsString(const std::string& text) override;
    const char* GetPtrToErrorString() const override { return m_words.c_str(); }
    void Close() override;

    int Open(const std::string& path, K4OpenFlags flags) override;
    tag_K4_SOS_FRM* SosData() override;
    int FrameCount() const override;
    CK4Frame* Frame(int number) override;
    std::uint32_t CalcRunTime() override;
    int IsPreviewOnly() const override;
    int Save() override;

 private:
    /// What is there while a file is open.
    struct OpenFile {
        OpenFile(std::unique_ptr<FileBytes> openBytes, const SequenceHead& found, bool forWriting);

        /// Gives callers the values of a head.
        void Show(const SequenceHead& values);

        std::unique_ptr<FileBytes> bytes;
        const bool writable;
        SequenceHead saved;  ///< as it was found, with the values that were saved since
        SequenceHead head;   ///< as callers may change it; its texts always end
        SequenceReader reader;
        std::unique_ptr<CK4Frame> frame;
    };

    int TryOpen(const std::string& path, K4OpenFlags flags);
    std::uint32_t SumOfDwells();
    int TrySave();

    std::unique_ptr<CK4Frame> MakeFrame(const FramePlace& place, SequenceDefect& defect);
    int SetText(const std::string& text, char (&target)[kTextArea]);
    int Fail(const std::string& words);

    const PathMapping m_native;
    std::optional<OpenFile> m_open;
    std::string m_words;
};

}  // namespace k4suite

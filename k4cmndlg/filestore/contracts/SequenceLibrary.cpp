#include "k4cmndlg/filestore/contracts/SequenceLibrary.h"

namespace k4cmn {

SequenceLibrary::~SequenceLibrary() = default;

namespace {

/// A sequence file object that never opens anything.
class AbsentSequence final : public CK4SequenceFile {
 public:
    tag_K4_RIFF_FILE_DATA* RiffHdr() override { return nullptr; }
    const char* GetPtrToKeywords() const override { return ""; }
    const char* GetPtrToComments() const override { return ""; }
    int SetKeywordsString(const std::string&) override { return Fail(); }
    int SetCommentsString(const std::string&) override { return Fail(); }
    const char* GetPtrToErrorString() const override { return m_words; }
    void Close() override {}
    int Open(const std::string&, K4OpenFlags) override { return Fail(); }
    tag_K4_SOS_FRM* SosData() override { return nullptr; }
    int FrameCount() const override { return 0; }
    CK4Frame* Frame(int) override { return nullptr; }
    std::uint32_t CalcRunTime() override { return 0; }
    int IsPreviewOnly() const override { return 0; }
    int Save() override { return Fail(); }

 private:
    int Fail() {
        m_words = "Sequence files are not available.";
        return 0;
    }

    const char* m_words = "";
};

class AbsentSequenceLibrary final : public SequenceLibrary {
 public:
    std::unique_ptr<CK4SequenceFile> Create() override {
        return std::make_unique<AbsentSequence>();
    }
};

}  // namespace
}  // namespace k4cmn

K4_DEFINE_PROVIDED(SequenceLibrary, AbsentSequenceLibrary)

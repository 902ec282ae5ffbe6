#pragma once

#include "tests/filesel/PropFixture.h"

namespace k4test {

/// The sheet that opens and saves files by itself, modeless, with the page "Advanced" in front.
class FileProperties : public Properties {
 protected:
    static constexpr char kOne[] = "A:\\One.SQ4";
    static constexpr char kTwo[] = "A:\\Two.SQ4";

    FileProperties() {
        Make(kOne);
        k4suite::SequenceFacts facts = Facts();
        facts.keywords = "second; ";
        Make(kTwo, facts);
    }
    void Show(const std::string& path = kOne) { ASSERT_EQ(sheet.ShowFileProperties(path), 1); }
    void TypeKeywords(const char* text) { TypeOver(sheet, kKeywords, QString::fromUtf8(text)); }
    std::string Keywords() const { return TextOf(sheet, kKeywords); }
    void Remove(const std::string& path) const { std::filesystem::remove(Native(path)); }
    std::string Bytes(const std::string& name) const { return home.Read("drives/A/" + name); }
    static k4cmn::Message NotSaved(const std::string& words) {
        return {words, {}, k4cmn::MessageButtons::Ok, k4cmn::MessageIcon::Exclamation};
    }
    /// The words with which saving fails where a file can't grow.
    static constexpr char kFull[] = "Cannot write the file: File too large.";

    CK4CmnDlgFileProp sheet{"Properties", &parent, kAdvanced, kModeless};
};

}  // namespace k4test

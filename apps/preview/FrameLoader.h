#pragma once

#include <QImage>
#include <list>
#include <memory>
#include <string>

#include "apps/preview/TimeLine.h"
#include "k4cmndlg/filestore/contracts/CK4SequenceFile.h"

namespace preview {

/// Makes frames pictures, one at a time, when they are to be seen. A few files are kept open for
/// the next ones. Threads: one at a time.
class FrameLoader {
 public:
    /// What is seen of a moment: a picture, or words in its place.
    struct Seen {
        QImage picture;
        std::string words;
    };

    Seen Load(const TimeLine& line, std::size_t index);
    /// Closes all files: what lies in their places may have changed.
    void Forget() { m_open.clear(); }

 private:
    struct Open {
        std::string path;
        std::unique_ptr<CK4SequenceFile> file;
    };
    CK4SequenceFile* FileAt(const std::string& path, std::string& words);

    std::list<Open> m_open;  ///< the one used last in front
};

}  // namespace preview

#include "k4cmndlg/filestore/contracts/CK4SequenceFile.h"

#include "k4cmndlg/filestore/contracts/CK4GphFrame.h"
#include "k4cmndlg/filestore/contracts/CK4IncFrame.h"

CK4RiffChunk::~CK4RiffChunk() = default;
CK4Frame::~CK4Frame() = default;
CK4GphFrame::~CK4GphFrame() = default;
CK4IncFrame::~CK4IncFrame() = default;
CK4BulbData::~CK4BulbData() = default;
CK4RiffFile::~CK4RiffFile() = default;
CK4SequenceFile::~CK4SequenceFile() = default;

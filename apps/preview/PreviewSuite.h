#pragma once

#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "k4cmndlg/filestore/contracts/K4BulbCv.h"
#include "k4cmndlg/filestore/contracts/RegistryProvider.h"
#include "k4cmndlg/filestore/contracts/SequenceLibrary.h"
#include "k4cmndlg/frame/contracts/Profile.h"
#include "suite/bulbcv/PlaneBulbCv.h"
#include "suite/sequence/RiffSequenceLibrary.h"
#include "suite/settings/DataHome.h"
#include "suite/settings/IniProfile.h"
#include "suite/settings/IniRegistry.h"
#include "suite/store/FolderFiles.h"

namespace preview {

/// The parts of the suite that showing a sequence takes, installed for the life of the object. No
/// services are among them: those belong to programs that work with signs.
class PreviewSuite {
 public:
    explicit PreviewSuite(k4suite::DataHome home);
    PreviewSuite(const PreviewSuite&) = delete;
    PreviewSuite& operator=(const PreviewSuite&) = delete;

    const k4suite::DataHome& Home() const { return m_home; }
    k4suite::IniRegistry& Registry() { return m_registry; }

 private:
    const k4suite::DataHome m_home;
    k4suite::FolderFiles m_files;
    k4suite::IniRegistry m_registry;
    k4suite::IniProfile m_profile;
    k4suite::RiffSequenceLibrary m_sequences;
    k4suite::PlaneBulbCv m_bulbCv;
    k4cmn::ScopedProvider<k4cmn::FilesProvider> m_useFiles{m_files};
    k4cmn::ScopedProvider<k4cmn::RegistryProvider> m_useRegistry{m_registry};
    k4cmn::ScopedProvider<k4cmn::Profile> m_useProfile{m_profile};
    k4cmn::ScopedProvider<k4cmn::SequenceLibrary> m_useSequences{m_sequences};
    k4cmn::ScopedProvider<K4BulbCv> m_useBulbCv{m_bulbCv};
};

}  // namespace preview

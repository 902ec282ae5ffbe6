#pragma once

#include <string>

#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The application's profile: texts by section and name, kept between runs. A section may hold any
/// character, a backslash among them ("Dialogs\Dimming").
/// Threads: any, an implementation guards itself. Failure is silent by contract.
class K4CMNCORE_EXPORT Profile {
 public:
    virtual ~Profile();

    /// @return the stored text, or `fallback` where there is none or it can't be read.
    virtual std::string GetString(const std::string& section, const std::string& name,
                                  const std::string& fallback = {}) = 0;

    /// Stores a text.
    /// @return 1 if it is stored, else 0.
    virtual int WriteString(const std::string& section, const std::string& name,
                            const std::string& text) = 0;
};

}  // namespace k4cmn

K4_DECLARE_PROVIDED(K4CMNCORE_EXPORT, Profile)

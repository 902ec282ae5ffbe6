#pragma once

#include "k4cmndlg/k4cmncore_export.h"

/// The root of the library's plain objects: one may be deleted through a pointer to it.
class K4CMNCORE_EXPORT CObject {
 public:
    CObject() = default;
    virtual ~CObject();
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
};

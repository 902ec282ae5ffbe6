#include "k4cmndlg/frame/CObject.h"

CObject::~CObject() = default;

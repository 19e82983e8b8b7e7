// The system's headers and the published interfaces, for every file of this folder.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <ocidl.h>
#include <oleauto.h>

#include "OrvaneDocumenti_i.h"

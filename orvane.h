// Everything that a program needs: include this one header.
#pragma once

#include "core/VqDocumenti.h"

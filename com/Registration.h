// Entries of the registry by which clients find the server.
#pragma once

#include "com/Windows.h"

namespace orvane::com {

/// For whom: the whole machine (which needs an administrator) or the present user.
enum class Scope { Machine, User };

/// Writes every entry; after a failure none is left.
HRESULT registerServer(Scope scope) noexcept;

/// Takes away every entry of this DLL, and what it shares with the DLL for the other kind of process once
/// that is not registered either. It is no failure if nothing was there.
HRESULT unregisterServer(Scope scope) noexcept;

}  // namespace orvane::com

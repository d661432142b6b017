// Which version this is: the one that CMakeLists.txt names, with the commit it was built from where
// the tree is a checkout.

#pragma once

namespace tpn {

// "0.2.0", or "0.2.0 (commit 1234567)"; "-dirty" behind a commit that was changed since.
extern const char* const versionText;

}  // namespace tpn

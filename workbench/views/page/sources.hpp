// page.css and page.js, as they lie in this folder.

#pragma once

namespace tpn {

extern const char* const pageStyle;
extern const char* const pageScript;

}  // namespace tpn

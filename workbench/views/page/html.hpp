// Pieces of HTML as text. Foreign text becomes HTML by `xmlText`, which escapes it for elements and
// attributes both; what takes `content` wants HTML.

#pragma once

#include <string>

namespace tpn {

// An element with attributes, each with a blank before it, as `attribute` makes them.
std::string element(const std::string& name, const std::string& attributes,
                    const std::string& content);
std::string element(const std::string& name, const std::string& content);

// A part of a page that can be folded away, and is at first.
std::string folded(const std::string& summary, const std::string& content);

// A section with a heading of its own, which it is called by; `id` is what the page finds it by.
std::string section(const std::string& id, const std::string& heading, const std::string& content);

// Values within a data block: whatever they hold, it ends no element and begins none.
std::string dataBlock(const std::string& id, const std::string& json);

// An SVG file as an element of a page: without what stands before it, and without styles, which
// would be those of the whole page.
std::string inlineSvg(const std::string& file);

}  // namespace tpn

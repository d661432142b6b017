// TINA's textual nets, `.net`:
//
//     file      ::=  { tr | pl | lb | pr | net }
//     net       ::=  "net" NAME
//     tr        ::=  "tr" NAME [ ":" LABEL ] [ INTERVAL ] [ { ARC } "->" { ARC } ]
//     pl        ::=  "pl" NAME [ ":" LABEL ] [ "(" MARKING ")" ] [ { ARC } "->" { ARC } ]
//     lb        ::=  "lb" NAME LABEL
//     pr        ::=  "pr" { NAME } ( "<" | ">" ) { NAME }
//     ARC       ::=  NAME [ ( "*" | "?" | "?-" | "!" | "!-" ) WEIGHT ]
//     INTERVAL  ::=  ( "[" | "]" ) INT "," ( INT ( "]" | "[" ) | "w" "[" )
//
// Nothing is approximated: what a safe net with closed intervals cannot say is refused.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "workbench/base/checkpoint.hpp"
#include "workbench/nets/petrinet.hpp"
#include "workbench/network/diagnostic.hpp"

namespace tpn {

// `file` is the name used in the diagnostics. The value is there where no error was found; all that
// are found are appended in order of position. Takes time linear in the text, but for logarithms.
std::optional<PetriNet> readTina(const std::string& file, std::string_view text,
                                 Diagnostics& diagnostics, const Checkpoint& checkpoint = {});

}  // namespace tpn

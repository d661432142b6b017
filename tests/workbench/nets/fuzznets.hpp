// What must hold of whatever a reader of nets makes of any bytes.

#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "workbench/nets/anyreader.hpp"
#include "workbench/nets/bridge.hpp"
#include "workbench/nets/pnmlreader.hpp"
#include "workbench/nets/pnmlwriter.hpp"
#include "workbench/nets/tinareader.hpp"
#include "workbench/nets/tinawriter.hpp"
#include "workbench/nets/translate.hpp"
#include "workbench/network/strictread.hpp"
#include "workbench/network/writer.hpp"

inline void checkWritten(const tpn::PetriNet& net) {
  tpn::Diagnostics found;
  tpn::PetriNet bare = net;
  bare.units.clear();
  const auto tina = tpn::readTina("again", tpn::tinaFile(bare), found);
  assert(tina && *tina == bare);
  try {
    const std::string text = tpn::pnmlFile(net);
    const auto pnml = tpn::readPnml("again", text, found);
    assert(pnml && *pnml == net);
  } catch (const tpn::Inexact&) {
  }
}

inline void checkTranslated(const tpn::PetriNet& net) {
  const tpn::Translation made = tpn::translated(net);
  try {
    tpn::requirePlain(net, made);
  } catch (const tpn::Inexact&) {
    return;
  }
  tpn::Network plain = made.net;
  plain.names = {};
  tpn::Diagnostics found;
  assert(tpn::readNetwork("again", tpn::networkFile(plain), found) == plain);
}

inline void checkRead(const std::optional<tpn::PetriNet>& net, const tpn::Diagnostics& found) {
  for (const tpn::Diagnostic& d : found) assert(!text(d).empty());
  assert(net.has_value() == !hasErrors(found));
  if (!net) return;
  checkWritten(*net);
  tpn::Diagnostics origin;
  if (const auto network = tpn::networkIn(*net, "net", origin); network && net->origin)
    assert(!tpn::tinaFile(tpn::petriNetOf(*network)).empty());
  checkTranslated(*net);
}

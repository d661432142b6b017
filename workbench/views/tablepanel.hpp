// A process as a table: a row a location, and in it a line for every way there, from where and by
// whom. A long table goes on beside itself.

#pragma once

#include <string>

#include "workbench/views/panel.hpp"

namespace tpn {

class TablePanel : public Panel {
 public:
  explicit TablePanel(const Automaton& automaton);

 protected:
  double bodyWidth() const override;
  double bodyHeight() const override;
  std::string body() const override;

 private:
  void setColumns();
  double columnWidth() const;
  std::string drawRow(const TableRow& row, double left, double top) const;
  std::string drawEntry(const Entry& entry, double left, double top) const;

  std::size_t columns_ = 1;
  double height_ = 0;         // of the highest column
  double locationWidth_ = 0;  // of what stands beside each other in a column
  double sourceWidth_ = 0;
  double captionWidth_ = 0;
};

}  // namespace tpn

// Processes that can be exchanged for one another, found by trying.
//
// An exchange swaps two processes, location by location, and with them whatever has to follow:
// partners that only they have, and values (locations) of processes that they share, such as a
// variable that holds the number of one of them. It maps the set of transitions onto itself and the
// initial state onto itself, and undoes itself when done twice. It is inferred from the transitions
// of the two and then verified, so that a wrong guess costs an opportunity and no more.

#pragma once

#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/machine/machine.hpp"
#include "workbench/network/property.hpp"

namespace tpn {

struct Exchange {
  std::map<std::size_t, std::size_t> processes;  // of those that are swapped, both ways
  // (process, rank) -> rank, of locations that are swapped in processes that are not, both ways.
  std::map<std::pair<std::size_t, std::size_t>, std::size_t> ranks;

  std::size_t process(std::size_t p) const;
  std::size_t rank(std::size_t p, std::size_t r) const;
};

// What any exchange of the two needs, told at a glance.
bool alike(const Machine::Process& a, const Machine::Process& b);

std::optional<Exchange> exchange(const Machine& machine, std::size_t p, std::size_t q);

// Does the property mean the same after the exchange, as far as sorting the parts of conjunctions
// and disjunctions tells?
bool respects(const Exchange& exchange, const Network& net, const Machine& machine,
              const Property& property);

// Classes of two or more processes, ascending: exchanges that the property (if there is one)
// respects permute each in every way, and leave those of earlier classes in place. Not all that
// there are: it looks no longer than it pays.
std::vector<std::vector<std::size_t>> interchangeable(const Network& net, const Machine& machine,
                                                      const Property* property,
                                                      const Checkpoint& checkpoint = {});

}  // namespace tpn

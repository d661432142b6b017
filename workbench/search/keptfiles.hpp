// The folder with the files of each bound: kK.cnf, kK.lck and what solvers make of them.
//
// A folder that the user names holds a record, tpn-check.record: the process that uses it, and the
// names of the files that checks have written there. Only those are ever replaced: a file of one of
// these names that is in no record is the user's, and the folder is refused. The record is also the
// lock: two checks in one folder would mix up their files.

#pragma once

#include <set>
#include <string>
#include <string_view>

#include "model/tpnmodel.hpp"

namespace tpn {

// kK.cnf and its like?
bool isBoundFile(std::string_view name);

class KeptFiles {
 public:
  // In the folder `keep`, made where it does not exist; or, where that is empty, in one that goes
  // with the object. Throws std::runtime_error where it cannot be made, where another check uses
  // it, and where it has a file of the user's in the place of one of ours.
  explicit KeptFiles(const std::string& keep);
  ~KeptFiles();
  KeptFiles(const KeptFiles&) = delete;
  KeptFiles& operator=(const KeptFiles&) = delete;

  // What the files of bound k are called, without their suffixes.
  std::string name(int k) const { return folder_ + "/" + stem(k); }

  // From now on the files of k are this check's: removes those of an earlier one, which must not
  // pass for an answer to this one. REQUIRES: before anything of k is written.
  void begin(int k);

  // Removes all that belongs to k, unless files are kept.
  void forget(int k) const;

 private:
  static std::string stem(int k) { return "k" + std::to_string(k); }
  void lock();
  void refuseForeignFiles() const;
  void record(const std::string& file);
  void removeFiles(int k) const;

  std::string folder_;
  bool temporary_;
  int record_ = -1;             // the open record, -1 for a temporary folder
  std::set<std::string> ours_;  // what is in it
};

// Writes NAME.cnf and NAME.lck with the core's code. Empties the process-wide formula store, before
// and after. Returns whether a solver is needed: not where no formula node occurs. Throws
// std::runtime_error where the path does not fit or a file could not be written.
bool writeClauses(const NetTimedModel& model, int k, const std::string& name);

// Does this bound's clause file say what it means? Above 500000 variables its numbers fold.
bool fitsClauseFile(const NetTimedModel& model, int k);

}  // namespace tpn

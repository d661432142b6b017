// Certificates as text; docs/formats.md tells the form.

#pragma once

#include <string>

#include "workbench/proof/certificate.hpp"
#include "workbench/proof/statement.hpp"

namespace tpn {

struct CertificateFile {
  Statement about;
  Certificate proof;

  friend bool operator==(const CertificateFile&, const CertificateFile&) = default;
};

// With names of the network, if it is given and has any, in a remark behind each line.
std::string certificateText(const CertificateFile& file, const Network* net = nullptr);

// Throws std::runtime_error, one line with the number of the line at fault, where the text is not
// exactly of that form. Whether processes and locations exist is left to the checker.
CertificateFile readCertificate(const std::string& text);

// Of a file; its name stands before what is wrong.
CertificateFile readCertificateFile(const std::string& name);

}  // namespace tpn

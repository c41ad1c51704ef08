// Printers that keep what they were given; each may fail.
#pragma once

#include "platform/printing.h"

namespace korvane {

class FakePrinting : public Printing {
 public:
  std::vector<Printer> all{{u"Laser"_s, u"Laser"_s, {{u"A4"_s, u"A4"_s, 210, 297, 4, 4, 4, 4}}}};
  std::vector<std::pair<Job, Placed>> printed;
  QString failure;  // of every print, in words; empty for none

  std::vector<Printer> printers() override { return all; }
  bool print(const Job& job, const Placed& picture, QString* error) override {
    if (error) *error = failure;
    if (failure.isEmpty()) printed.emplace_back(job, picture);
    return failure.isEmpty();
  }
};

}  // namespace korvane

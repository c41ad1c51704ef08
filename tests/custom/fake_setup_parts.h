// What setup asks of the units above it, written down.
#pragma once

#include "custom/screens/setup_parts.h"

namespace korvane {

class FakeSetupParts : public SetupParts {
 public:
  void closeAlwaysOnTop() override { calls << u"closeAlwaysOnTop"_s; }
  void reloadMainForm() override { calls << u"reloadMainForm"_s; }
  void showMainPage() override { calls << u"showMainPage"_s; }
  QString getLibraryCounts() override { return u"1 Artist \n2 Albums \n3 Songs "_s; }
  void eraseLibrary() override { calls << u"eraseLibrary"_s; }
  void restartMasterListener() override { calls << u"restartMasterListener"_s; }
  void closeMovieConnection() override { calls << u"closeMovieConnection"_s; }
  QString keyboardLayout() const override { return u"US"_s; }
  bool nextKeyboardLayout(QString* error) override {
    *error = u"No room."_s;
    return false;
  }
  void gridLookChanged() override { calls << u"gridLookChanged"_s; }

  QStringList calls;
};

}  // namespace korvane

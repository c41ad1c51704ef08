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
  QString keyboardLayout() const override { return layout; }
  bool nextKeyboardLayout(QString* error) override {
    *error = unsaved;
    if (unsaved.isEmpty()) layout = u"GERMAN"_s;
    return unsaved.isEmpty();
  }
  void gridLookChanged() override { calls << u"gridLookChanged"_s; }

  QStringList calls;
  QString layout = u"US"_s;
  QString unsaved;  // why a layout cannot be stored
};

}  // namespace korvane

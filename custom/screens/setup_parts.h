// What setup asks of the units above it. What the library cannot do is thrown as std::exception
// with a text for the user.
#pragma once

#include "platform/text.h"

namespace korvane {

class SetupParts {
 public:
  virtual ~SetupParts() = default;
  virtual void closeAlwaysOnTop() = 0;  // the strip above other programs
  // Form_Load of frmMain again, then the photo and movie objects released and HideAllGrids. Yields.
  virtual void reloadMainForm() = 0;
  virtual void showMainPage() = 0;           // presses the Main tab, then domainpage. Yields.
  virtual QString getLibraryCounts() = 0;    // three lines
  virtual void eraseLibrary() = 0;           // the database empty again, its views reset. Yields.
  virtual void restartMasterListener() = 0;  // by the new values of the state block. Yields.
  virtual void closeMovieConnection() = 0;
  virtual QString keyboardLayout() const = 0;  // the name of the one in use
  // False, and the layout stays, when the choice cannot be stored; `error` says why. Yields.
  virtual bool nextKeyboardLayout(QString* error) = 0;
  virtual void gridLookChanged() = 0;  // colours and font of every list
};

}  // namespace korvane

// cmdSetup_Click: the way into setup, behind its password.
#pragma once

#include "core/prompt.h"
#include "core/settings.h"
#include "custom/screens/setup_form.h"

namespace korvane {

class SetupAccess {
 public:
  struct Uses {
    const AppState& state;
    const Settings& settings;
    Messages& messages;
    SetupParts& parts;
    SetupForm& form;
  };
  explicit SetupAccess(Uses uses) : uses_(uses) {}

  // Nothing while controls are moved; ends in silence on a wrong password. Yields.
  void cmdSetup_Click();

 private:
  bool admitted();
  Uses uses_;
};

// "Setup" as stored against what was typed: equal in any case, blanks around the stored one apart.
bool setupPasswordFits(const QString& stored, const QString& typed);

}  // namespace korvane

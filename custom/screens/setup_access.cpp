#include "custom/screens/setup_access.h"

namespace korvane {

bool setupPasswordFits(const QString& stored, const QString& typed) {
  return !typed.isEmpty() && typed.toUpper() == stored.trimmed().toUpper();
}

bool SetupAccess::admitted() {
  const QString stored = uses_.settings.raw(key::Setup);
  if (stored.toUpper() == "NO"_L1) return true;
  return setupPasswordFits(stored, uses_.messages.ask(u"Enter Setup Password"_s, true));
}

void SetupAccess::cmdSetup_Click() {
  if (uses_.state.moveControlsMode) return;
  if (uses_.state.gAlwaysOnTopShown) uses_.parts.closeAlwaysOnTop();
  if (!admitted()) return;
  uses_.form.open();
  if (uses_.form.reloadRequested) uses_.parts.reloadMainForm();
}

}  // namespace korvane

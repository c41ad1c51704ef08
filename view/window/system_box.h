// The system's own message box, for what is said where no themed one can be shown.
#pragma once

#include "platform/machine.h"

namespace korvane {

class MessageBox : public SystemBox {
 public:
  // Closed without a choice: No, or Ok. Yields.
  Answer show(const QString& text, bool yesNo) override;
};

}  // namespace korvane

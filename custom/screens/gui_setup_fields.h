// What frmGuiSetup is made of: its groups, the fields of each, and the pages that show them.
#pragma once

#include "core/form/form.h"
#include "core/settings_keys.h"

namespace korvane {

enum class SetupGroup { Nic, Master, AirShow, Music, Movies, X10, Maps, Camera };

struct SetupFrame {
  SetupGroup group;
  const char *control, *caption;
  int page;  // of the array cmdPage
};
std::span<const SetupFrame> setupFrames();

struct SetupPage {
  const char* caption;
};
std::span<const SetupPage> setupPages();

// One control of a group. A text has its caption in a label beside it.
struct SetupField {
  SetupGroup group;
  const char* control;
  int index;
  Kind kind;
  const char* caption;
  int row, column = 0, columns = 1;
};
std::span<const SetupField> setupFields();

// The texts and where they are stored, in the order of the save.
struct SetupText {
  const char* control;
  int index;
  const SettingKey& key;
  const char* whenNotSet;  // shown for "NO"; null shows what is stored
  const char* prompt;      // of the keyboard
};
std::span<const SetupText> setupTexts();

std::vector<InventoryRow> guiSetupInventory();

// Lays the frames of each page below one another, each as high as what is visible in it.
void stackSetupFrames(const Form& form);

}  // namespace korvane

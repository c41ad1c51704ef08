// What frmGuiSetup is made of: its groups, the fields of each, and the pages that show them.
#pragma once

#include "core/form/form.h"
#include "core/settings_keys.h"

namespace korvane {

enum class SetupGroup { Nic, Master, AirShow, Music, Movies, X10, Maps, Camera };

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

// The frames of the groups on their pages.
class SetupFrames {
 public:
  explicit SetupFrames(const Form& form);  // made of guiSetupInventory(); it must outlive this

  // Lays the frames of each page below one another, each as high as what is visible in it.
  void stack() const;
  void show(int page) const;  // those of this page alone

 private:
  struct Placed {
    Frame* frame;
    int page;
    std::vector<std::pair<Control*, int>> fields{};  // with their rows in the frame
  };
  std::vector<Placed> frames_;
};

}  // namespace korvane

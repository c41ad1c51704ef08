#include "ftp/ftp_side.h"

namespace korvane {

FtpSide::FtpSide(Desk& desk)
    : form({desk.dialogs, desk.chooser, desk.settings, desk.system.files, desk.screen,
            desk.system.clock, desk.system.pump, desk.system.makeFtp}) {
  desk.setupDoors.add({"cmdFtp", -1, [this] { form.open(); }});
  desk.steps.at(Step::CloseMusicLink, [this] { form.close(); });
}

}  // namespace korvane

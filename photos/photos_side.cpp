#include "photos/photos_side.h"

namespace korvane {

PhotosSide::PhotosSide(Desk& desk)
    : tab(desk.parts, desk.system, desk.messages, desk.awake),
      cmdPhotoSetup_(controlOf<Image>(desk.frmMain, u"cmdPhotoSetup")) {
  desk.tabs.setTab(kPhotosTab, tab);
  desk.addTabWord(kPhotosTab, u"PHOTOS"_s, u"btnphotos"_s, u"open the Photos tab"_s);
  desk.words.add({u"PICTUREEDIT"_s, u"btnpictureedit"_s, {}, [this, &desk] {
                    desk.tabs.imgTabs_Click(kPhotosTab);
                    if (!desk.frmMain.fire(cmdPhotoSetup_, {Event::Click}))
                      desk.messages.say(u"This console cannot change pictures yet."_s);
                  }});
  desk.setupDoors.add({"cmdAddDir", 0, [&desk] { chooseDirectory(desk); }});
}

void PhotosSide::chooseDirectory(Desk& desk) {
  ChooserRequest request;
  request.title = u"Select Photos Directory"_s;
  request.pattern = u"*.jpg;*.jpeg;*.png;*.gif;*.bmp"_s;
  request.places = {desk.settings.str(key::PDirectory)};
  request.keep = [&desk](const QString& directory) {
    QString error;
    desk.settings.write(key::PDirectory, directory, &error);
    return error;
  };
  if (desk.chooser.open(request)) desk.tabs.imgTabs_Click(kPhotosTab);
}

}  // namespace korvane

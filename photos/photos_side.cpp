#include "photos/photos_side.h"

#include <QStandardPaths>

namespace korvane {
namespace {

QString thumbsDirectory() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
         u"/korvane/thumbs"_s;
}

}  // namespace

PhotosSide::PhotosSide(Desk& d)
    : pictures({d.settings, d.system.files, d.system.imaging, d.system.pump, d.log}),
      album({d.state, d.settings, d.palette, d.messages, d.log, d.system,
             controlOf<Grid>(d.frmMain, u"PhotoList"),
             controlOf<Timer>(d.frmMain, u"PhotoListTimer")}),
      show({d.main, d.state, d.settings, d.palette, d.paging, d.awake, d.dialogs, d.system, d.log,
            pictures, d.addTimer}),
      tab({d.parts, d.system, d.awake, album, show}),
      printer({d.dialogs, d.system.printing, d.system.imaging, pictures, d.settings, d.screen,
               d.system.pump, d.log}),
      viewBig({d.dialogs, d.screen, d.settings, d.system.imaging, d.system.pump, d.log}),
      viewPic({d.dialogs, d.screen, d.system, d.settings, d.log, viewBig, thumbsDirectory()}),
      cmdPhotoSetup_(controlOf<Image>(d.frmMain, u"cmdPhotoSetup")) {
  d.tabs.setTab(kPhotosTab, tab);
  d.steps.at(Step::SetUpLists, [this] { album.setUpList(); });
  d.steps.at(Step::ReleasePhotos, [this] { show.leave(); });
  connectList(d);
  connectShow(d);
  connectSheet(d);
  addDoors(d);
}

void PhotosSide::connectList(Desk& desk) {
  Grid& list = controlOf<Grid>(desk.frmMain, u"PhotoList");
  desk.frmMain.on(u"PhotoList", Event::Click, [this, &desk](Control&, const Event& event) {
    if (desk.screen.busy()) return;
    const Busy busy(desk.screen, Screen::Custom);
    album.PhotoList_Click(event.row);
  });
  desk.on(u"PhotoListTimer", Event::Tick, [this](int) { album.PhotoListTimer_Timer(); });
  album.filled = [this, &desk, &list] {
    if (desk.tabs.open(kPhotosTab) && !show.on()) desk.paging.show(list);
  };
  album.moved = [this](bool toRoot) { show.listMoved(toRoot); };
  album.fileTouched = [this](int row, const QString& name) {
    show.start(row, album.directory(), name);
  };
}

void PhotosSide::connectShow(Desk& desk) {
  desk.on(u"pictimer", Event::Tick, [this](int) { show.PicTimer_Timer(); });
  desk.on(u"scrollDelay", Event::Change, [this](int) { show.scrollDelay_Change(); });
  desk.on(u"picTransition", Event::DblClick, [this](int) { show.picTransition_DblClick(); });
  // The movies' button too, which is theirs while there is no show.
  desk.frmMain.around(u"cmdMovieFullScreen", Event::Click,
                      [this](Control&, const Event&, const std::function<void()>& go) {
                        show.on() ? show.cmdMovieFullScreen_Click() : go();
                      });
}

void PhotosSide::connectSheet(Desk& desk) {
  desk.on(u"cmdPhotoSetup", Event::Click, [this, &desk](int) { cmdPhotoSetup_Click(desk); });
  viewBig.print = viewPic.print = [this](std::vector<QString> paths, int optSize, int optPrint,
                                         Progress& bar, const std::function<bool()>& stopped) {
    printer.mnuPrint_Click(std::move(paths), optSize, optPrint, bar, stopped);
  };
  for (const char* change : {"mnuGroup", "mnuRotate", "mnuRotate180", "mnuDeleted"})
    desk.guard(viewPic.form(), QString::fromLatin1(change), Event::Click);
}

void PhotosSide::cmdPhotoSetup_Click(Desk& desk) {
  const QString root = pictures.PhotoPath();
  if (root == "NO"_L1) {
    desk.messages.say(u"You must set up the photos directory before using this."_s);
    return;
  }
  controlOf<Timer>(desk.frmMain, u"pictimer").enabled = false;
  const QString shown = album.directory();
  viewPic.open(shown.isEmpty() ? root : shown);
  if (desk.tabs.open(kPhotosTab)) album.refresh();
}

void PhotosSide::addDoors(Desk& desk) {
  desk.addTabWord(kPhotosTab, u"PHOTOS"_s, u"btnphotos"_s, u"open the Photos tab"_s);
  desk.words.add({u"PICTUREEDIT"_s, u"btnpictureedit"_s, {}, [this, &desk] {
                    desk.tabs.imgTabs_Click(kPhotosTab);
                    if (show.on()) show.end();  // the button is hidden meanwhile
                    desk.frmMain.fire(cmdPhotoSetup_, {Event::Click});
                  }});
  desk.setupDoors.add({"cmdAddDir", 0, [this, &desk] { chooseDirectory(desk); }});
}

void PhotosSide::chooseDirectory(Desk& desk) {
  ChooserRequest request;
  request.title = u"Select Photos Directory"_s;
  request.pattern = u"*.jpg;*.jpeg;*.png;*.gif;*.bmp"_s;
  request.places = {photoRoot(desk.settings)};
  request.keep = [&desk](const QString& directory) {
    QString error;
    desk.settings.write(key::PDirectory, directory, &error);
    return error;
  };
  if (!desk.chooser.open(request)) return;
  if (show.on()) show.end();  // it has no pictures any more
  pictures.PhotoPath();
  pictures.rsFiles = {};
  album.forget();
  desk.tabs.imgTabs_Click(kPhotosTab);
}

}  // namespace korvane

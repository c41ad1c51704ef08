#include "platform/video/dvd_engine.h"

#include "platform/files/disk_file_system.h"
#include "platform/path_text.h"
#include "platform/video/dvd_check.h"

namespace korvane {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr auto kBetweenLooks = milliseconds(500);
constexpr auto kBetweenSteps = milliseconds(100);  // while something is awaited
constexpr auto kBetweenLooksAtDrive = seconds(2);
constexpr auto kBetweenLooksForDrive = seconds(10);  // on a machine without one
constexpr auto kLongestStart = seconds(40);          // of a drive that has to spin up and try again
constexpr auto kLongestArrival = seconds(5);         // until the time of a title is known
constexpr auto kLongestMenu = seconds(1);            // until a menu that was asked for shows
constexpr auto kSeekShows = milliseconds(600);
constexpr qint64 kFarIn = 1000;  // milliseconds that are worth a seek

// The seekpoints of libVLC's title 0, which stand for the menus of a disc.
constexpr int kRootMenu = 1, kTitleMenu = 2;

}  // namespace

DvdPlayerVlc::Engine::Engine(DvdPlayerVlc& owner, Pump& pump, QStringList arguments,
                             std::shared_ptr<DvdDrive> drive)
    : VlcEngine(pump, std::move(arguments)), owner_(owner), drive_(std::move(drive)) {}

void DvdPlayerVlc::Engine::prepare() {
  vlc_->libvlc_video_set_mouse_input(player_, 1);
  vlc_->libvlc_video_set_key_input(player_, 0);
}

void DvdPlayerVlc::Engine::event(const libvlc_event_t& event) {
  switch (event.type) {
    case libvlc_MediaPlayerEndReached:
    case libvlc_MediaPlayerEncounteredError:
      post([this, play = plays_.load(), failed = event.type == libvlc_MediaPlayerEncounteredError] {
        if (play == plays_) conclude(failed);
      });
      return;
    case libvlc_MediaPlayerESAdded:
    case libvlc_MediaPlayerESDeleted:
      tracksChanged_ = true;
      break;
    case libvlc_MediaPlayerTimeChanged:
      return;
    default:
      break;
  }
  post([this] {
    if (begun_) look();
  });
}

void DvdPlayerVlc::Engine::poll() {
  if (begun_) look();
  if (watching_ && Clock::now() >= driveDue_) lookAtDrive();
}

void DvdPlayerVlc::Engine::setPace() {
  pollEvery(begun_      ? arrived_ && !menuDue_ ? kBetweenLooks : kBetweenSteps
            : watching_ ? kBetweenLooksAtDrive
                        : milliseconds(0));
}

void DvdPlayerVlc::Engine::begin(const Start& start) {
  if (start.title == 0 && !start.atMenu) menuSeen_ = false;
  start_ = start;
  view_ = {};
  QString trouble = dvdTrouble(DiskFileSystem().resolve(start.directory).value_or(start.directory),
                               start.directory.isEmpty() ? drive_->look(true) : DvdDriveLook(),
                               canDecryptDvds(), &disc_);
  if (trouble.isEmpty() && !make()) trouble = VlcEngine::trouble();
  if (!trouble.isEmpty())
    return tell([this, number = start.number, trouble] { owner_.heardEnd(number, trouble); });
  this->start();
}

void DvdPlayerVlc::Engine::start() {
  stop();
  ++plays_;
  QByteArray place = "dvd://" + fromPath(disc_).toPercentEncoding("/");
  if (start_.title > 0)
    place += '#' + QByteArray::number(start_.title) + ':' + QByteArray::number(start_.chapter);
  libvlc_media_t* media = vlc_->libvlc_media_new_location(instance_, place.constData());
  vlc_->libvlc_media_add_option(media, start_.atMenu ? ":dvdnav-menu" : ":no-dvdnav-menu");
  setMedia(media);
  vlc_->libvlc_media_player_set_xwindow(player_, static_cast<uint32_t>(start_.window));
  since_ = Clock::now();
  begun_ = true;
  shown_ = arrived_ = sought_ = menuAsked_ = false;
  menuDue_.reset();
  silent_ = start_.paused;  // on the way to a place where it is to pause
  applyLevels();
  play();
  setPace();
}

void DvdPlayerVlc::Engine::halt() {
  if (std::exchange(begun_, false)) stop();
  setPace();
}

void DvdPlayerVlc::Engine::conclude(bool failed) {
  if (!begun_) return;
  failed = failed || !shown_;
  halt();
  QString trouble;
  const QString further = shown_ ? u" any further"_s : QString();
  if (failed && start_.directory.isEmpty())
    trouble = u"The disc in the DVD drive cannot be read%1. Clean it and try again."_s.arg(further);
  else if (failed)
    trouble = u"The DVD %1 cannot be read%2: one of its files is damaged or missing."_s.arg(
        start_.directory, further);
  tell([this, number = start_.number, trouble] { owner_.heardEnd(number, trouble); });
}

void DvdPlayerVlc::Engine::look() {
  shown_ = shown_ || vlc_->libvlc_media_player_has_vout(player_) > 0;
  if (!shown_) {
    if (Clock::now() - since_ > kLongestStart) conclude(true);
    return;
  }
  if (!arrived_) arrive();
  setPace();
  const int title = vlc_->libvlc_media_player_get_title(player_);
  if (!arrived_ || title < 0) return;
  const bool believed = titleBelieved(title);
  if (!begun_ || !arrived_) return;
  const View view = viewOf(believed ? title : view_.title);
  if (view == view_) return;
  view_ = view;
  menuSeen_ = menuSeen_ || view.domain == Menu;
  tell([this, number = start_.number, view] { owner_.heardView(number, view); });
}

// The seek waits until the beginning of the chapter shows, since libVLC reckons by the title's
// length; the pause waits for the picture of the place.
void DvdPlayerVlc::Engine::arrive() {
  const auto now = Clock::now();
  if (start_.title > 0 && !sought_) {
    const qint64 time = vlc_->libvlc_media_player_get_time(player_);
    const bool known = time > 0 && vlc_->libvlc_media_player_get_length(player_) > 0;
    if (!known && now - since_ < kLongestArrival) return;
    if (known && start_.milliseconds - time > kFarIn)
      vlc_->libvlc_media_player_set_time(player_, start_.milliseconds);
    sought_ = true;
    since_ = now;
  }
  if (sought_ && now - since_ < kSeekShows) return;
  arrived_ = true;
  if (start_.paused) VlcEngine::setPause(true);
  silent_ = false;
  applyLevels();
}

// Asked for its title 0, libVLC says at once that it is there, also when the disc has no such menu
// and the title plays on. It is there when the tracks of the title have gone.
bool DvdPlayerVlc::Engine::titleBelieved(int title) {
  if (!menuAsked_) return true;
  if (tracksChanged_ || (title > 0 && !menuDue_)) {
    menuAsked_ = false;
    menuDue_.reset();
    return true;
  }
  if (menuDue_ && Clock::now() >= *menuDue_) {
    menuDue_.reset();
    if (menuSeen_) startMenu();
  }
  return false;
}

// The way to the first menu of a disc whose titles have none of their own.
void DvdPlayerVlc::Engine::startMenu() {
  start_.atMenu = true;
  start_.title = 0;
  start();
}

DvdPlayerVlc::View DvdPlayerVlc::Engine::viewOf(int title) const {
  View view;
  view.domain = title > 0 ? Title : Menu;
  if (title == 0) return view;
  const bool same = view_.title == title;
  view.title = title;
  view.chapter =
      same && menuAsked_ ? view_.chapter : vlc_->libvlc_media_player_get_chapter(player_) + 1;
  view.chapters = vlc_->libvlc_media_player_get_chapter_count_for_title(player_, title);
  view.milliseconds = std::max<qint64>(0, vlc_->libvlc_media_player_get_time(player_));
  view.length = same && view_.length > 0 ? view_.length : lengthOf(title);
  const Tracks sounds = tracks(TrackKind::Sound), subtitles = tracks(TrackKind::Subtitles);
  view.sounds = sounds.all;
  view.sound = sounds.chosen;
  view.subtitles = subtitles.all;
  view.subtitle = subtitles.chosen;
  return view;
}

// From the disc's table. libVLC's length is that of the title before it for a moment, and unknown
// for another at each chapter.
qint64 DvdPlayerVlc::Engine::lengthOf(int title) const {
  libvlc_title_description_t** titles = nullptr;
  const int count = vlc_->libvlc_media_player_get_full_title_descriptions(player_, &titles);
  if (count <= 0) return 0;
  const qint64 length = title < count ? titles[title]->i_duration : 0;
  vlc_->libvlc_title_descriptions_release(titles, static_cast<unsigned>(count));
  return std::max<qint64>(0, length);
}

void DvdPlayerVlc::Engine::hold(bool on) {
  start_.paused = on;
  if (begun_ && arrived_) setPause(on);
}

void DvdPlayerVlc::Engine::navigate(libvlc_navigate_mode_t way) {
  if (begun_ && arrived_) vlc_->libvlc_media_player_navigate(player_, way);
}

void DvdPlayerVlc::Engine::showMenu(MenuId menu) {
  if (!begun_ || !arrived_) return;
  if (view_.domain == Menu) {
    vlc_->libvlc_media_player_set_chapter(player_, menu == TitleMenu ? kTitleMenu : kRootMenu);
  } else if (menu == TitleMenu) {
    if (menuSeen_) startMenu();
  } else {
    menuAsked_ = true;
    menuDue_ = Clock::now() + kLongestMenu;
    tracksChanged_ = false;
    vlc_->libvlc_media_player_set_title(player_, 0);
  }
}

// Never libVLC's own step: it leaves the title.
void DvdPlayerVlc::Engine::stepChapter(int by) {
  if (!begun_ || !arrived_ || menuAsked_ || view_.domain != Title) return;
  const int to = std::max(1, vlc_->libvlc_media_player_get_chapter(player_) + 1 + by);
  if (to <= view_.chapters) vlc_->libvlc_media_player_set_chapter(player_, to - 1);
}

void DvdPlayerVlc::Engine::seekTo(qint64 milliseconds) {
  if (begun_ && arrived_ && view_.domain == Title)
    vlc_->libvlc_media_player_set_time(player_, milliseconds);
}

void DvdPlayerVlc::Engine::choose(TrackKind kind, int id) {
  if (begun_ && arrived_ && view_.domain == Title) setTrack(kind, id);
}

void DvdPlayerVlc::Engine::watchDrive(bool on) {
  watching_ = on;
  discIn_.reset();
  if (on) lookAtDrive();
  setPace();
}

void DvdPlayerVlc::Engine::lookAtDrive() {
  const DvdDriveLook::State state = drive_->look(false).state;
  driveDue_ = Clock::now() +
              (state == DvdDriveLook::NoDrive ? kBetweenLooksForDrive : kBetweenLooksAtDrive);
  const bool disc = state == DvdDriveLook::Disc;
  if (const auto before = std::exchange(discIn_, disc); before && *before != disc)
    tell([this, disc] { owner_.heardDrive(disc ? DiscInserted : DiscEjected); });
}

}  // namespace korvane

#include "movies/dvd_seat.h"

#include "listener/listener_record.h"

namespace korvane {

DvdSeat::DvdSeat(Uses uses) : uses_(std::move(uses)), panel_(uses_.form) {
  uses_.dvd.setEvents(this);
  panel_.MSWebDVD1->drawer = [this](quintptr window) { uses_.dvd.setWindow(window); };
}

DvdSeat::~DvdSeat() {
  uses_.dvd.setEvents(nullptr);
}

// The Tag holds the directory of the real player while a folder has its place; the first drive,
// which has an empty one, by a word.
void DvdSeat::takeRealDisc() {
  const QString kept = panel_.MSWebDVD1->tag().trimmed();
  if (kept.isEmpty()) return;
  uses_.dvd.setDVDDirectory(kept == "DRIVE"_L1 ? QString() : kept);
  panel_.MSWebDVD1->tag = QString();
}

void DvdSeat::playDisc() {
  takeRealDisc();
  panel_.MSWebDVD1->visible = true;
  hitdvdButton();
  uses_.dvd.Play();
}

void DvdSeat::playFolder(const QString& path) {
  if (panel_.MSWebDVD1->tag().isEmpty()) {
    const QString real = uses_.dvd.DVDDirectory();
    panel_.MSWebDVD1->tag = real.isEmpty() ? u"DRIVE"_s : real;
  }
  panel_.MSWebDVD1->visible = true;
  uses_.dvd.setDVDDirectory(path + u"/video_ts"_s);
  uses_.dvd.Play();
}

void DvdSeat::DVDNotify(DvdPlayer::Notice notice) {
  switch (notice) {
    case DvdPlayer::DiscEjected:
      if (news_) news_->discOut();
      return;
    case DvdPlayer::DiscInserted:
      if (news_) news_->discIn();
      return;
    case DvdPlayer::DomainChange:
    case DvdPlayer::TitleChange:
    case DvdPlayer::ChapterStart:
    case DvdPlayer::CurrentTimeChange:
      showTime();
      if (news_) news_->discMoved();
      return;
  }
}

// A menu has no time, and its slider rests at the beginning.
void DvdSeat::showTime() {
  if (uses_.state.sliderHeld || !uses_.shows()) return;
  const DvdPlayer& dvd = uses_.dvd;
  const int length = std::max(dvd.TotalTitleTime(), 0);
  if (panel_.Slider1->maximum() != std::max(length, 1))
    panel_.Slider1->maximum = std::max(length, 1);
  panel_.Slider1->value = std::clamp(dvd.CurrentTime(), 0, length);
  panel_.TxtTime->caption = minutesAndSeconds(dvd.CurrentTime());
  uses_.presenter.DisplayDuration(length);
  panel_.Slider1->text =
      inMenu() ? u"Menu"_s
               : discTimes(dvd.CurrentChapter(), dvd.chapters(), dvd.CurrentTime(), length);
}

void DvdSeat::endOfDisc() {
  if (news_) news_->discEnded();
}

void DvdSeat::failed(const QString& description) {
  if (news_) news_->discFailed(description);
}

}  // namespace korvane

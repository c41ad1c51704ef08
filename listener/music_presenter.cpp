#include "listener/music_presenter.h"

namespace korvane {

MusicPresenter::MusicPresenter(Form& form) : PlayPresenter(form), panel_(form) {}

void MusicPresenter::hideCover() {
  panel_.coverArt->visible = false;
  panel_.coverArt->tag = u"FALSE"_s;
}

void MusicPresenter::showCover(const QByteArray& image) {
  panel_.coverArt->picture = Picture{{}, {}, std::make_shared<const QByteArray>(image)};
  if (panel_.musicTab->tagged()) panel_.coverArt->visible = true;
  panel_.coverArt->tag = u"TRUE"_s;
}

void MusicPresenter::showPlace(bool local) {
  panel_.lblMusicPlay[0]->setPicture(u"music"_s, local ? u"AtSeaton"_s : u"AtSeatOff"_s);
  panel_.lblMusicPlay[1]->setPicture(u"music"_s, local ? u"InCabinOff"_s : u"InCabinOn"_s);
}

}  // namespace korvane

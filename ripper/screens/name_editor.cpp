#include "ripper/screens/name_editor.h"

#include "ripper/rip_names.h"
#include "ripper/screens/ripper_rows.h"

namespace korvane {

NameEditor::NameEditor(Form& form, TrackList& tracks, FormHost& host, const Palette& palette)
    : form_(form), tracks_(tracks), panel_(form), keyboard_(form, u"KeyBoard"_s, host, palette) {
  keyboard_.shownChanged = [this](bool shown) { keyboardShown(shown); };
  for (TextBox* box : {panel_.lblArtist, panel_.lblAlbum, panel_.txtFilename}) {
    form.on(box->name, Event::Click, [this, box](Control&, const Event&) { edit(*box); });
    if (box == panel_.txtFilename) continue;
    form.on(box->name, Event::Change, [this](Control&, const Event&) {
      edited_ = true;
      typed();
    });
  }
  form.on(u"txtTitle", Event::Change, [this](Control&, const Event&) {
    if (row_ == 0) return;
    edited_ = true;
    const QString title = panel_.txtTitle->text().trimmed();
    tracks_.setTitle(row_, title.isEmpty() ? madeTitle(row_) : title);
    typed();
  });
  form.on(u"txtTitle", Event::Click,
          [this](Control&, const Event&) { keyboard_.showFor(*panel_.txtTitle); });
  form.on(Event::KeyDown, [this](Control&, const Event& event) {
    constexpr int kEnter = 13;
    if (event.key == kEnter && keyboard_.shown()) next();
  });
}

void NameEditor::showNobody() {
  panel_.lblAlbum->text = nobodysAlbum();
  panel_.lblArtist->text = nobodysArtist();
}

void NameEditor::setEnabled(bool on) {
  if (!on) end();
  panel_.lblArtist->enabled = panel_.lblAlbum->enabled = on;
}

// What nobody has typed makes room for what is typed now.
void NameEditor::edit(TextBox& box) {
  leaveTitle();
  if (box.text() == nobodysArtist() || box.text() == nobodysAlbum()) box.text = QString();
  box.selStart = static_cast<int>(box.text().size());
  keyboard_.showFor(box);
}

void NameEditor::editTitle(int row) {
  if (row < 1 || row > tracks_.rows()) return;
  row_ = 0;  // the new text is no typing
  const QString title = tracks_.title(row);
  panel_.txtTitle->text = title == madeTitle(row) ? QString() : title;
  panel_.txtTitle->selStart = static_cast<int>(panel_.txtTitle->text().size());
  panel_.txtTitle->toolTip = title;
  panel_.txtTitle->visible = true;
  row_ = row;
  keyboard_.showFor(*panel_.txtTitle);
  layOut(kTracksBelowTitle);
  tracks_.choose(row);
}

void NameEditor::next() {
  if (row_ > 0) return row_ < tracks_.rows() ? editTitle(row_ + 1) : end();
  if (form_.focus() == panel_.lblArtist) return edit(*panel_.lblAlbum);
  if (form_.focus() == panel_.lblAlbum && tracks_.rows() > 0) return editTitle(1);
  end();
}

void NameEditor::leaveTitle() {
  row_ = 0;
  panel_.txtTitle->visible = false;
  layOut(keyboard_.shown() ? kTracksAboveKeys : kTracks);
}

void NameEditor::end() {
  keyboard_.hide();
}

void NameEditor::keyboardShown(bool shown) {
  if (!shown) {
    leaveTitle();
    if (panel_.lblArtist->text().isEmpty()) panel_.lblArtist->text = nobodysArtist();
    if (panel_.lblAlbum->text().isEmpty()) panel_.lblAlbum->text = nobodysAlbum();
  } else if (row_ == 0) {
    layOut(kTracksAboveKeys);
  }
}

void NameEditor::layOut(const Rect& tracks) {
  form_.moveDesign(*panel_.ss, tracks);
}

}  // namespace korvane

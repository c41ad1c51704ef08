// A picture area with its timer, on which a show runs through rsFiles: on the tab, and in full
// screen. Pictures are decoded off the form's thread, in the size of the area, and by key ShowFade
// the next one while this one is seen.
#pragma once

#include "core/form/form.h"
#include "photos/cls_picture.h"
#include "platform/system.h"

namespace korvane {

class ShowArea {
 public:
  struct Uses {
    PictureArea& area;
    Timer& timer;
    clsPicture& pictures;
    const Settings& settings;
    System& system;
    Log& log;
  };
  explicit ShowArea(Uses uses);

  // What is seen: one picture, or two beside each other, which are rows `first` and `last` of
  // rsFiles, from 0; -1 for none.
  struct Frame {
    int first = -1, last = -1;
    std::shared_ptr<const Pixels> picture, beside;  // null where it could not be read
  };

  // The show begins at the position of rsFiles: the area is blank until the first tick, whose
  // picture is decoded meanwhile; with `atOnce` it is shown as soon as that is done.
  void begin(bool atOnce);
  // Goes on with what another area has shown, decoded again for the size of this one.
  void take(const Frame& seen);
  void end();  // the timer is off, and what is being decoded is not wanted any more

  void run(bool on);  // whether the timer runs; while a picture is awaited it rests
  bool runs() const { return running_; }
  void PicTimer_Timer();
  // To the next picture or the one before, round the ends; the timer runs then.
  void step(int by);

  const Frame& seen() const { return seen_; }
  std::function<void()> changed = [] {};  // another picture is seen

 private:
  void show(int by, bool moveOn);
  void load(int at, int by);
  void loadBeside(int at, int by);
  void loaded(Frame frame);
  void decodeAhead();
  void put(const Frame& frame);
  void decode(int at, std::function<void(std::shared_ptr<const Pixels>)> done);
  void restTimer();
  bool pairs(const Pixels& pixels) const;  // it is upright, and the area wide enough for two
  Imaging::Reading reading() const;
  PictureFiles& files() const { return uses_.pictures.rsFiles; }

  Uses uses_;
  PictureLoader loader_;
  Frame seen_, ahead_;     // ahead_: decoded or, while `decoding_`, being decoded
  int by_ = 1;             // the way in which ahead_ lies
  bool running_ = false;   // but for what is awaited
  bool decoding_ = false;  // ahead_
  bool awaited_ = false;   // it is to be shown when it is decoded
  bool moveOn_ = true;     // and the position moves on then
  int spareAt_ = -1;       // a picture that was decoded to be the second of two and was not
  std::shared_ptr<const Pixels> spare_;
};

}  // namespace korvane

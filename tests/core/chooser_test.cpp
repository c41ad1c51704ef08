#include "core/chooser.h"

#include "tests/fakes/form_world.h"

namespace korvane {
namespace {

// Shows two lines of progress, and meanwhile does what a test wants.
class FakeWork : public DirectoryWork {
 public:
  explicit FakeWork(Chooser& chooser) : chooser_(chooser) {}
  void run(const QString& directory, const QString& typed) override {
    ran << directory + u'|' + typed;
    chooser_.showStatus(u"half"_s, u"5 of 10"_s);
    if (during) during();
    if (!failure.empty()) throw std::runtime_error(failure);
    chooser_.showStatus(u"Finished"_s, u"10 of 10"_s);
  }
  void stop() override { stopped = true; }

  QStringList ran;
  std::function<void()> during;
  std::string failure;
  bool stopped = false;

 private:
  Chooser& chooser_;
};

struct ChooserTest : FormWorld {
  ChooserTest() {
    for (const char* file : {"music/Abba/Gold/01-Waterloo.mp3", "music/Abba/Gold/b.WMA",
                             "music/Abba/Gold/cover.jpg", "music/zz top/Legs.wav"})
      home.put(QString::fromLatin1(file), "x");
    request.title = u"Somewhere"_s;
    request.pattern = u"*.mp3;*.wma;*.wav"_s;
    request.places = {music()};
  }
  QString music(const QString& below = {}) const { return home / (u"music"_s + below); }
  std::optional<QString> opens(FakeFormHost::Script script) {
    host.onModal(u"frmDirectorys"_s, std::move(script));
    return chooser.open(request);
  }

  Chooser chooser{{host, palette, messages}, files};
  FakeWork work{chooser};
  ChooserRequest request;
};

TEST_F(ChooserTest, GoesOneFolderAtATimeAndGivesTheOneShown) {
  const auto chosen = opens([&](Form& form) {
    EXPECT_EQ(textOf(form, u"lblTitle"_s), u"Somewhere"_s);
    EXPECT_EQ(rows(form, u"Dir1"_s), QStringList({u".."_s, u"Abba"_s, u"zz top"_s}));
    EXPECT_EQ(textOf(form, u"lblfiles"_s), u"Files found = 0"_s);
    tap(form, u"Dir1"_s, u"Abba"_s);
    tap(form, u"Dir1"_s, u"Gold"_s);
    EXPECT_EQ(rows(form, u"File1"_s), QStringList({u"01-Waterloo.mp3"_s, u"b.WMA"_s}));
    EXPECT_EQ(textOf(form, u"lblfiles"_s), u"Files found = 2"_s);
    EXPECT_EQ(textOf(form, u"lblPath"_s), music(u"/Abba/Gold"_s));
    const QString drive = rows(form, u"Drive1"_s).value(0);
    tap(form, u"Drive1"_s, drive);
    EXPECT_EQ(textOf(form, u"lblPath"_s), drive);
    EXPECT_FALSE(canPress(form, u"txtListenerDrive"_s));
    EXPECT_FALSE(canPress(form, u"customSelect"_s));
  });
  EXPECT_EQ(chosen, std::nullopt) << "nobody pressed OK";
  request.keep = [this](const QString& directory) {
    QString error;
    settings.write(key::PLDirectory, directory, &error);
    return error;
  };
  EXPECT_EQ(opens([&](Form& form) {
              tap(form, u"Dir1"_s, u"Abba"_s);
              tap(form, u"Dir1"_s, u".."_s);
              tap(form, u"Dir1"_s, u"zz top"_s);
              diskCalls.full = true;
              press(form, u"cmdok"_s);
              EXPECT_TRUE(form.shown() && messages.texts.last().contains("The disk is full"_L1));
              diskCalls.full = false;
              press(form, u"cmdok"_s);
            }),
            music(u"/zz top/"_s));
  EXPECT_EQ(settings.str(key::PLDirectory), music(u"/zz top/"_s));
}

TEST_F(ChooserTest, BeginsAtTheFirstPlaceThatIsThere) {
  request.places = {QString(), u"/nowhere/at all"_s, music(u"/abba/"_s), music()};
  opens([&](Form& form) { EXPECT_EQ(textOf(form, u"lblPath"_s), music(u"/Abba"_s)); });
}

TEST_F(ChooserTest, TakesOneFileOrAnEntryWhicheverWasPressedLast) {
  request.kind = ChooserRequest::File;
  request.places = {music(u"/Abba/Gold"_s)};
  request.pattern = u"*.mp3"_s;
  request.entries = {u"CONNECT         is never taken"_s, u"RIPPER             Rip CDs &"_s};
  request.alsoShown = [](const QString& path) { return path.endsWith("cover.jpg"_L1); };
  const auto begin = [](Form& form) {
    press(form, u"cmdok"_s);
    EXPECT_TRUE(form.shown()) << "nothing is chosen yet";
    EXPECT_EQ(rows(form, u"File1"_s), QStringList({u"01-Waterloo.mp3"_s, u"cover.jpg"_s}));
    tap(form, u"customSelect"_s, u"RIPPER             Rip CDs &"_s);
  };
  EXPECT_EQ(opens([&](Form& form) {
              begin(form);
              press(form, u"cmdok"_s);
            }),
            u"RIPPER"_s);
  EXPECT_EQ(opens([&](Form& form) {
              begin(form);
              tap(form, u"File1"_s, u"cover.jpg"_s);
              press(form, u"cmdok"_s);
            }),
            music(u"/Abba/Gold/cover.jpg"_s));
  EXPECT_EQ(messages.texts, QStringList(2, u"Select a file first"_s));
}

TEST_F(ChooserTest, WorkShowsItsProgressAndCanBeStopped) {
  request.work = &work;
  request.asks = u"Listener Drive Letter"_s;
  EXPECT_FALSE(opens([&](Form& form) {
    work.during = [&] {
      EXPECT_EQ(textOf(form, u"txtStatus"_s) + textOf(form, u"lblRate"_s), u"half5 of 10"_s);
      EXPECT_FALSE(canPress(form, u"cmdok"_s));
      tap(form, u"Dir1"_s, u"Abba"_s);
      EXPECT_EQ(textOf(form, u"lblPath"_s), music()) << "the place stays while it is worked on";
      pressKey(form, 13);
      EXPECT_EQ(textOf(form, u"cmdCancel"_s), u"Stop"_s);
      pressKey(form, 27);
      EXPECT_TRUE(work.stopped && form.shown());
    };
    messages.typed = {u"M"_s};
    press(form, u"txtListenerDrive"_s);
    press(form, u"cmdok"_s);
    EXPECT_EQ(textOf(form, u"txtStatus"_s), u"Finished"_s);
    work.during = nullptr;
    work.failure = "The disk is gone";
    press(form, u"cmdok"_s);
    EXPECT_TRUE(canPress(form, u"cmdok"_s)) << "also after a failure";
    EXPECT_EQ(textOf(form, u"cmdCancel"_s), u"Cancel"_s);
    press(form, u"cmdCancel"_s);
    EXPECT_FALSE(form.shown());
  }));
  EXPECT_EQ(work.ran, QStringList(2, music() + u"|M"_s));
  EXPECT_EQ(messages.texts, QStringList({u"Listener Drive Letter"_s, u"The disk is gone"_s}));
}

TEST_F(ChooserTest, WorkStopsWhenTheWindowGoes) {
  request.work = &work;
  opens([&](Form& form) {
    work.during = [&] { host.hide(form); };
    press(form, u"cmdok"_s);
  });
  EXPECT_TRUE(work.stopped);
}

}  // namespace
}  // namespace korvane

// The owner's buttons and their tools on the real main form, with a real file of the theme.
#include "custom/buttons/custom_buttons.h"

#include "core/log.h"
#include "custom/buttons/button_editor.h"
#include "tests/fakes/fake_programs.h"
#include "tests/fakes/form_world.h"

namespace korvane {
namespace {

const QString kFile = u"krvgraphics/TEST/Buttonpositons.txt"_s;

struct ButtonsTest : FormWorld {
  ButtonsTest() {
    form.find(u"frameHome")->visible = false;
    for (const char* word : {"RIPPER", "MUSIC", "MAPS", "PHOTOS", "MORE"})
      words.add({QString::fromLatin1(word), u"btnmusic"_s, {}, [this, word] { done << word; }});
    buttons.programShown = [this] { strip << u"shown"_s; };
    buttons.programsEnded = [this] { strip << u"ended"_s; };
    editor.showKeyboard = [this](TextBox* target) { typesInto = target; };
  }

  void given(const QByteArray& file, const QString& name = kFile) { home.put(name, file); }
  void load() {
    buttons.loadCustomButtons();
    buttons.show();
  }
  QStringList shown() {
    QStringList captions;
    for (int i = 0; i <= form.upperBound(u"cmdbutton"); ++i)
      if (buttons.button(i).visible()) captions << buttons.button(i).caption();
    return captions;
  }
  void press(int index) {
    editor.cmdbutton_MouseDown(index);
    editor.cmdbutton_MouseUp(index);
    if (!editor.isOpen()) buttons.cmdbutton_Click(index);
  }
  void pressOneThatDoes(const QByteArray& action) {
    given("A@@#1@@#2@@#" + action + "@@#80@@#90@@#12\n");
    load();
    press(1);
  }

  Form form{u"frmMain"_s, mainInventory()};
  Log logFile{files, clock, home.path()};
  Graphics graphics{files, state, home.path()};
  Screen screen;
  FakePrograms programs;
  ButtonWords words;
  CustomButtons buttons{form, {graphics, palette, files, logFile, screen, programs, words}};
  ButtonEditor editor{form, {buttons, messages}};
  const TextBox* typesInto = nullptr;
  QByteArrayList done;
  QStringList strip;
};

TEST_F(ButtonsTest, EachThemeHasItsOwn) {
  given("Night@@#160@@#260@@#MUSIC@@#150@@#260@@#10\nBad@@#1\n");
  given("Day@@#10@@#20@@#PHOTOS@@#80@@#90@@#12\n", u"krvgraphics/DAY/Buttonpositons.txt"_s);
  load();
  EXPECT_EQ(shown(), QStringList{u"Night"_s});
  EXPECT_TRUE(home.get(u"log.txt"_s)
                  .contains("Buttonpositons.txt, line 2 is no button: it has 2 fields, not 7"));
  const Button& night = buttons.button(1);
  EXPECT_EQ(night.rect(), (Rect{160, 260, 260, 150}));
  EXPECT_EQ(night.fontUnits(), 24);
  EXPECT_EQ(night.picture().name, u"btnmusic"_s);
  EXPECT_EQ(night.colours().back, palette.back(u"CustomButtons"));
  for (const auto& [theme, wanted] :
       {std::pair{u"DAY"_s, QStringList{u"Day"_s}}, {u"NONE"_s, {}}}) {
    state.gTheme = theme;
    load();
    EXPECT_EQ(shown(), wanted);
  }
}

TEST_F(ButtonsTest, OneOutOfReachIsBroughtIntoItAndKeepsItsLine) {
  const QByteArray file =
      "Far@@#9000.5@@#-40@@#MUSIC@@#80@@#90@@#12\nTiny@@#700@@#300@@#MUSIC@@#10@@#20.5@@#12\n";
  const QByteArray wide = "A@@#160@@#260@@#MUSIC@@#150@@#260@@#10\n";
  given(file + wide);
  load();
  EXPECT_EQ(buttons.button(1).rect(), (Rect{1190, 0, 90, 80}));
  EXPECT_EQ(buttons.button(2).rect(), (Rect{700, 300, 72, 72}));
  form.resize(1600, 960);
  EXPECT_EQ(buttons.button(3).rect(), (Rect{200, 325, 325, 188})) << "its share of the surface";
  form.move(buttons.button(3), {400, 325, 325, 188});  // by a finger
  QString error;
  EXPECT_TRUE(buttons.save(&error));
  EXPECT_EQ(home.get(kFile), file + QByteArray(wide).replace("160", "320"));
  form.resize(1280, 768);
  EXPECT_EQ(buttons.button(3).rect(), (Rect{320, 260, 260, 150}));
}

TEST_F(ButtonsTest, APressDoesWhatItsTagSays) {
  for (const char* tag : {"", "RESET", "RIPPER ", "no such word"}) {  // paths that are not there
    programs.missing << QString::fromLatin1(tag);
    pressOneThatDoes(tag);
    EXPECT_TRUE(done.isEmpty()) << tag;
    EXPECT_TRUE(messages.texts.isEmpty()) << "a failed start is ignored";
  }
  screen.MousePointer = Screen::Hourglass;
  pressOneThatDoes("RIPPER");
  EXPECT_TRUE(done.isEmpty()) << "another press is at work";
}

TEST_F(ButtonsTest, AProgramIsStartedOnceAndThenBroughtForward) {
  const QString path = home.put(u"Apps/Eyes"_s, "x");
  given("A@@#1@@#2@@#" + (home / u"apps\\EYES"_s).toUtf8() + "@@#80@@#90@@#12\n");
  load();
  press(1);
  EXPECT_EQ(programs.calls, QStringList{u"start "_s + path}) << "found without regard to case";
  buttons.ButtonTimer_Timer();
  EXPECT_EQ(strip, QStringList{u"shown"_s}) << "it still runs";
  press(1);
  EXPECT_EQ(programs.calls.last(), u"activate 1"_s);
  programs.hasWindow = false;
  press(1);
  EXPECT_EQ(programs.calls.last(), u"start "_s + path) << "what cannot be activated is started";
  strip.clear();
  programs.end(1);
  EXPECT_TRUE(strip.isEmpty()) << "the second one runs on";
  programs.end(2);
  EXPECT_EQ(strip, QStringList{u"ended"_s});
  press(1);
  programs.end(3);
  strip.clear();
  buttons.ButtonTimer_Timer();
  EXPECT_TRUE(strip.isEmpty()) << "what was over at once has shown nothing";
}

struct EditorTest : ButtonsTest {
  void SetUp() override {
    given("One@@#160@@#260@@#MUSIC@@#150@@#260@@#10\nTwo@@#500@@#260@@#MAPS@@#80@@#90@@#12\n");
    load();
    editor.open();
  }
  QByteArrayList saved() { return home.get(kFile).trimmed().split('\n'); }
};

TEST_F(EditorTest, ShowsAllWithThePatternChosenAndAPressOnlyChooses) {
  EXPECT_EQ(shown(), (QStringList{u"Pattern"_s, u"One"_s, u"Two"_s}));
  EXPECT_TRUE(buttons.button(0).marked() && buttons.button(2).draggable);
  press(2);
  EXPECT_TRUE(done.isEmpty());
  EXPECT_TRUE(buttons.button(2).marked() && !buttons.button(0).marked());
  EXPECT_EQ(textOf(form, u"txtButtonWide"_s) + u'x' + textOf(form, u"txtButtonHigh"_s), u"90x80"_s);
  EXPECT_EQ(textOf(form, u"txtButtonFontSize"_s), u"12"_s);
  editor.cmdButtonDone_Click();
  EXPECT_EQ(shown(), (QStringList{u"One"_s, u"Two"_s}));
  EXPECT_FALSE(buttons.button(2).draggable);
  press(2);
  EXPECT_EQ(done, QByteArrayList{"MAPS"});
}

TEST_F(EditorTest, ANewOneIsMadeNamedSizedAndSaved) {
  messages.typed = {u"Café"_s};
  editor.chooseAction = [] { return std::optional<QString>(u"FAVOURITES"_s); };
  type(form, u"txtButtonWide"_s, u"200"_s);
  type(form, u"txtButtonHigh"_s, u"100"_s);
  type(form, u"txtButtonFontSize"_s, u"9.5"_s);
  editor.cmdButtonApplyAttr_Click();  // of the pattern
  editor.cmdButtonAdd_Click();
  const Rect at = buttons.button(3).rect();
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(apart(at, buttons.button(i).rect())) << "it covers " << i;
  editor.cmdButtonLabel_Click();
  editor.cmdButtonAction_Click();
  editor.cmdButtonDone_Click();
  EXPECT_EQ(QString::fromUtf8(saved().value(2)),
            u"Café@@#%1@@#%2@@#FAVOURITES@@#100@@#200@@#9.5"_s.arg(at.left).arg(at.top));
  EXPECT_EQ(saved()[0], "One@@#160@@#260@@#MUSIC@@#150@@#260@@#10");
}

TEST_F(EditorTest, TheFirstCannotBeDeletedAndADeletedOneIsNotWritten) {
  const QByteArray before = home.get(kFile);
  editor.cmdButtonDel_Click();
  EXPECT_EQ(messages.texts, QStringList{u"You cannot delete this button"_s});
  const auto change = [&] {
    press(1);
    editor.cmdButtonDel_Click();
  };
  change();
  EXPECT_TRUE(buttons.button(0).marked());
  editor.cmdButtonAdd_Click();
  form.move(buttons.button(2), {700, 600, 90, 80});
  editor.cmdButtonCancel_Click();
  EXPECT_EQ(shown(), (QStringList{u"One"_s, u"Two"_s}));
  EXPECT_EQ(buttons.button(2).rect().left, 500);
  EXPECT_EQ(home.get(kFile), before) << "cancelled";
  editor.open();
  change();
  editor.cmdButtonDone_Click();
  EXPECT_EQ(saved(), QByteArrayList{"Two@@#500@@#260@@#MAPS@@#80@@#90@@#12"});
  EXPECT_EQ(shown(), QStringList{u"Two"_s});
}

TEST_F(EditorTest, WhatTheFileCannotHoldIsRefusedWithWords) {
  press(1);
  messages.typed = {u"a@@#b"_s};
  editor.cmdButtonLabel_Click();
  EXPECT_EQ(buttons.button(1).caption(), u"One"_s);
  EXPECT_TRUE(messages.texts.last().contains("cannot hold @@#"_L1));
  editor.chooseAction = [] { return std::optional<QString>(u"/bin/@@#"_s); };
  editor.cmdButtonAction_Click();
  EXPECT_EQ(buttons.button(1).tag(), u"MUSIC"_s);
  messages.texts.clear();
  for (const auto& [name, bad] : {std::pair{u"txtButtonWide"_s, u"71"_s},
                                  {u"txtButtonHigh"_s, u"9999"_s},
                                  {u"txtButtonFontSize"_s, u"large"_s}}) {
    press(1);
    type(form, name, bad);
    editor.cmdButtonApplyAttr_Click();
    EXPECT_EQ(std::exchange(messages.texts, {}).size(), 1) << name.toStdString();
    EXPECT_EQ(buttons.button(1).rect(), (Rect{160, 260, 260, 150})) << name.toStdString();
  }
}

TEST_F(EditorTest, AFileThatCannotBeWrittenKeepsTheToolsOpen) {
  press(1);
  QFile::remove(home / kFile);
  home.folder(kFile);  // where the file should be
  editor.cmdButtonDone_Click();
  EXPECT_TRUE(editor.isOpen());
  EXPECT_EQ(messages.texts.size(), 1);
}

TEST_F(EditorTest, TheKeyboardTypesIntoTheBoxThatWasTouchedLast) {
  auto& high = dynamic_cast<TextBox&>(*form.find(u"txtButtonHigh"));
  editor.cmdButtonKeyboard_Click();
  EXPECT_EQ(typesInto, form.find(u"txtButtonWide"));
  editor.txtButton_Click(high);
  EXPECT_EQ(typesInto, &high);
  EXPECT_EQ(form.focus(), &high);
  editor.cmdButtonCancel_Click();
  EXPECT_EQ(typesInto, nullptr);
}

}  // namespace
}  // namespace korvane

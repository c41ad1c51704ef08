#include <QFile>

#include "custom/screens/colour_elements.h"
#include "custom/screens/colour_pick_form.h"
#include "tests/fakes/form_world.h"

namespace korvane {
namespace {

struct Colouring : FormWorld {
  int boxOf(Form& form, const QString& element) {
    for (int i = 0; i <= form.upperBound(u"Text1"); ++i)
      if (form.find(u"Text1", i)->tag() == element) return i;
    ADD_FAILURE() << "no box for " << qUtf8Printable(element);
    return 0;
  }
  QString colour(const char* key) const {
    return settings.readSetting(u"COLORS", QString::fromLatin1(key));
  }

  ColourPickForm pick{{dialog, settings}};
};

TEST_F(Colouring, AColourIsStoredAsItIsChosen) {
  settings.writeSetting(u"COLORS", u"MUSICGRIDBACK", u"255"_s);
  host.onModal(u"frmColorPick"_s, [&](Form& form) {
    const int grid = boxOf(form, u"MUSICGRID"_s);
    EXPECT_EQ(form.find(u"Text1", grid)->colours().back, 255U);
    host.onModal(u"frmColor"_s, [](Form& chooser) {
      EXPECT_EQ(textOf(chooser, u"txtNumber"_s), u"255"_s);
      press(chooser, u"cmdGrey"_s, 15);
      press(chooser, u"cmdOK"_s);
    });
    press(form, u"Text1"_s, grid);
    EXPECT_EQ(colour("MUSICGRIDBACK"), QString::number(0x0F0F0F));
    EXPECT_EQ(form.find(u"Text1", grid)->colours().fore, 0x0F0F0FU);
    EXPECT_EQ(colour("MUSICGRIDFOR"), u"NO"_s);

    diskCalls.full = true;
    for (const QString& end : {u"cmdCancel"_s, u"cmdOK"_s}) {
      host.onModal(u"frmColor"_s, [&](Form& chooser) {
        press(chooser, u"cmdGrey"_s, 3);
        press(chooser, end);
      });
      pressKey(form, 113);  // F2 on the same box
    }
    EXPECT_EQ(messages.texts.size(), 1);
    EXPECT_TRUE(messages.texts.value(0).contains("MUSICGRIDBACK"_L1)) << "said, and not shown";
    EXPECT_EQ(form.find(u"Text1", grid)->colours().back, 0x0F0F0FU);
    EXPECT_EQ(colour("MUSICGRIDBACK"), QString::number(0x0F0F0F));
  });
  pick.open();
}

TEST_F(Colouring, ElementsWhoseNameEndsInBackKeepTheDoubledKey) {
  host.onModal(u"frmColorPick"_s, [&](Form& form) {
    host.onModal(u"frmColor"_s, [&](Form& chooser) {
      messages.typed = {u"nonsense"_s, u"#FF8000"_s};
      press(chooser, u"txtNumber"_s);
      press(chooser, u"txtNumber"_s);
      press(chooser, u"cmdOK"_s);
    });
    press(form, u"TS"_s, 4);
    press(form, u"Text1"_s, boxOf(form, u"X10GRIDBACK"_s));
  });
  pick.open();
  EXPECT_EQ(colour("X10GRIDBACKBACK"), QString::number(0x0080FF));
  EXPECT_EQ(messages.texts.size(), 3);  // two questions and what is wrong with the first answer
}

TEST_F(Colouring, EveryColourOfTheThemesCanBeChosen) {
  QStringList elements;
  for (const ColourPage& page : colourPages())
    for (const ColourElement& element : page.elements)
      elements << QString::fromLatin1(element.name);
  QFile shipped(QStringLiteral(THEMES "/MERIDIAN/COLORS.INI"));
  ASSERT_TRUE(shipped.open(QIODevice::ReadOnly));
  int found = 0;
  for (const QByteArray& line : shipped.readAll().split('\n')) {
    const QString key = QString::fromLatin1(line.left(std::max<qsizetype>(line.indexOf('='), 0)));
    if (!key.endsWith("BACK"_L1)) continue;
    ++found;
    EXPECT_TRUE(elements.contains(key.chopped(4))) << qUtf8Printable(key);
  }
  EXPECT_EQ(found, elements.size());
}

TEST(Colours, AreReadAndMixed) {
  const std::pair<QString, Colour> texts[] = {
      {u"0"_s, 0}, {u" 16777215 "_s, 0xFFFFFF}, {u"&HFF"_s, 255}, {u"#0000FF"_s, 0xFF0000}};
  for (const auto& [text, colour] : texts) EXPECT_EQ(colourOfText(text), colour);
  for (const QString& none : {u"16777216"_s, u"-1"_s, u"12.5"_s, u"#00FF"_s, u"#GGGGGG"_s, u""_s,
                              u"99999999999999999999"_s})
    EXPECT_EQ(colourOfText(none), std::nullopt) << qUtf8Printable(none);
  EXPECT_EQ(colourOfHsl(0, 1, 0.5), 0x0000FFU);    // red
  EXPECT_EQ(colourOfHsl(120, 1, 0.5), 0x00FF00U);  // green
  EXPECT_EQ(colourOfHsl(240, 1, 0.5), 0xFF0000U);  // blue
  EXPECT_EQ(colourOfHsl(77, 0, 1), 0xFFFFFFU);
  EXPECT_EQ(colourOfHsl(77, 1, 0), 0U);
}

}  // namespace
}  // namespace korvane
